// Bytes stand as an account's file. Either they are refused with one of the errors that stand for
// that, or what was read keeps every rule and reads the same when it is written again.

#include "tests/core/sync/LiteralJournal.h"
#include "tests/core/sync/SampleRevisions.h"

#include <cstdlib>

using namespace vesko;

namespace {

void require(bool kept)
{
    if (!kept)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    TextSyncState state;
    try {
        state = TextSyncState::decode({ reinterpret_cast<const char*>(data), size });
    } catch (const JsonError&) {
        return 0;
    } catch (const TextSyncFailure&) {
        return 0;
    }
    const auto revisions = state.journal.revisions();
    LiteralJournal literal;
    literal.merge({ revisions.begin(), revisions.end() });
    require(revisions == SharedArray(literal.revisions()));
    require(state.journal.isComplete() == literal.isComplete());
    for (const auto& revision : revisions)
        require(
            state.journal.heads(revision.entity) == SharedArray(literal.heads(revision.entity)));
    for (const auto& id : state.pending)
        require(literal.nodes.contains(id));
    require(TextSyncState::decode(textOf(state)) == state);
    return 0;
}
