#include "tests/fuzz/HostileRevisions.h"

#include "tests/core/sync/SampleRevisions.h"

namespace vesko {

namespace {

// A parent that is not here and the revision that names it.
std::optional<std::pair<Uuid, TextSyncRevision>> gapOf(const LiteralJournal& journal)
{
    for (const auto& [id, revision] : journal.nodes)
        for (const auto& parent : revision.parents)
            if (!journal.nodes.contains(parent))
                return std::pair{ parent, revision };
    return std::nullopt;
}

} // namespace

std::vector<TextSyncRevision> hostileRevisions(const LiteralJournal& journal, std::mt19937& random)
{
    const auto below = [&](std::size_t limit) { return random() % limit; };
    auto known = tombstone(Uuid::random());
    if (!journal.nodes.empty())
        known = std::next(
            journal.nodes.begin(), static_cast<std::ptrdiff_t>(below(journal.nodes.size())))
                    ->second;
    TextSyncRevision fresh{ Uuid::random(), known.entity, {}, std::nullopt };
    const auto gap = gapOf(journal);

    switch (below(11)) {
    case 0: // another content under a known id
        known.value = known.value
            ? std::nullopt
            : std::optional<TextSyncValue>(projectNamed(known.entity.id, "changed"));
        return { known };
    case 1: // other parents under a known id
        known.parents.insert(fresh.id);
        return { known };
    case 2: // its own parent
        fresh.parents = { fresh.id };
        return { fresh };
    case 3: // a parent too many
        while (fresh.parents.size() < 65)
            fresh.parents.insert(Uuid::random());
        return { fresh };
    case 4: // content of another thing
        fresh.value = projectNamed(fresh.id, "of another");
        return { fresh };
    case 5: // a parent of another entity
        fresh.parents = { known.id };
        fresh.entity.id = fresh.id;
        return { fresh };
    case 6: { // a cycle that leads through what is here
        auto other = fresh;
        other.id = Uuid::random();
        other.parents = { fresh.id, known.id };
        fresh.parents = { other.id };
        return { fresh, other };
    }
    case 7: // a cycle that a missing parent closes
        if (gap) {
            fresh = { gap->first, gap->second.entity, { gap->second.id }, std::nullopt };
            return { fresh };
        }
        break;
    case 8: // a missing parent that turns out to be of another entity
        if (gap) {
            fresh.id = gap->first;
            fresh.entity.id = Uuid::random();
            return { fresh };
        }
        break;
    case 9: { // text that is none
        fresh.entity = { TextSyncID::Kind::note, fresh.id };
        fresh.value = noteWithBody(fresh.id, "\xFF");
        return { fresh };
    }
    default:
        break;
    }
    // A byte too many, which takes longest to find out.
    return below(8) == 0 ? std::vector{ revisionOfSize(fresh.id, 512'001) } : std::vector{ fresh };
}

} // namespace vesko
