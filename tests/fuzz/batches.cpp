// Bytes become a few batches of revisions over few ids, which one journal takes one after the
// other. What it says of each, and what it tells afterwards, has to be what the plainest form of
// the rules says.

#include "tests/core/sync/LiteralJournal.h"
#include "tests/core/sync/SampleRevisions.h"

#include <cstdlib>
#include <fuzzer/FuzzedDataProvider.h>

using namespace vesko;

namespace {

constexpr unsigned ids = 24, entities = 3;

TextSyncID entityNumber(unsigned number)
{
    return projectID(idNumber(1000 + number));
}

TextSyncRevision revisionFrom(FuzzedDataProvider& input)
{
    const auto id = input.ConsumeIntegralInRange<unsigned>(0, ids - 1);
    TextSyncRevision revision{ idNumber(1 + id), entityNumber(id % entities), {}, std::nullopt };
    const auto oddities = input.ConsumeIntegral<std::uint8_t>();
    if (oddities & 1)
        revision.entity = entityNumber(oddities >> 1 & 1);
    if (oddities & 4)
        revision.value = projectNamed(revision.entity.id, "name");
    if ((oddities & 0x38) == 0x38)
        revision.value = projectNamed(idNumber(1000), oddities & 0x40 ? "another" : "\xFF");
    const auto parents = input.ConsumeIntegral<std::uint32_t>();
    for (unsigned parent = 0; parent < ids; ++parent)
        if (parents >> parent & 1)
            revision.parents.insert(idNumber(1 + parent));
    return revision;
}

void require(bool kept)
{
    if (!kept)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    TextSyncJournal journal;
    LiteralJournal literal;
    while (input.remaining_bytes() > 0) {
        std::vector<TextSyncRevision> batch;
        for (auto count = input.ConsumeIntegralInRange<unsigned>(0, 7); count > 0; --count)
            batch.push_back(revisionFrom(input));
        const auto before = journal;
        const auto verdict = verdictOf([&] { journal.merge(SharedArray(batch)); });
        require(verdict == verdictOf([&] { literal.merge(batch); }));
        require(verdict == "taken" || journal == before);
        require(journal.revisions() == SharedArray(literal.revisions()));
        require(journal.isComplete() == literal.isComplete());
        for (unsigned number = 0; number < entities; ++number)
            require(journal.heads(entityNumber(number))
                == SharedArray(literal.heads(entityNumber(number))));
    }
    return 0;
}
