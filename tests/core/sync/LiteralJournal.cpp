#include "tests/core/sync/LiteralJournal.h"

#include "VeskoCore/base/JsonWriter.h"

#include <algorithm>

namespace vesko {

namespace {

template <class Predicate>
std::vector<TextSyncRevision> sorted(const LiteralJournal& journal, Predicate belongs)
{
    std::map<std::string, const TextSyncRevision*> byText;
    for (const auto& [id, revision] : journal.nodes)
        if (belongs(revision))
            byText[id.text()] = &revision;
    std::vector<TextSyncRevision> list;
    for (const auto& [text, revision] : byText)
        list.push_back(*revision);
    return list;
}

} // namespace

std::vector<TextSyncRevision> LiteralJournal::revisions() const
{
    return sorted(*this, [](const TextSyncRevision&) { return true; });
}

bool LiteralJournal::isComplete() const
{
    return std::ranges::all_of(nodes, [&](const auto& node) {
        return std::ranges::all_of(
            node.second.parents, [&](const Uuid& parent) { return nodes.contains(parent); });
    });
}

std::vector<TextSyncRevision> LiteralJournal::heads(const TextSyncID& entity) const
{
    std::set<Uuid> superseded;
    for (const auto& [id, revision] : nodes)
        if (revision.entity == entity)
            superseded.insert(revision.parents.begin(), revision.parents.end());
    return sorted(*this, [&](const TextSyncRevision& revision) {
        return revision.entity == entity && !superseded.contains(revision.id);
    });
}

void LiteralJournal::change(
    const Uuid& id, const TextSyncID& entity, const std::optional<TextSyncValue>& value)
{
    if (!isComplete())
        throw TextSyncFailure(TextSyncFailure::incompleteHistory);
    TextSyncRevision revision{ id, entity, {}, value };
    for (const auto& head : heads(entity))
        revision.parents.insert(head.id);
    merge({ revision });
}

void LiteralJournal::merge(const std::vector<TextSyncRevision>& incoming)
{
    if (incoming.size() > 50'000)
        throw TextSyncFailure(TextSyncFailure::tooLarge);
    auto candidate = nodes;
    for (const auto& revision : incoming) {
        if (revision.value && revision.value->entity() != revision.entity)
            throw TextSyncFailure(TextSyncFailure::invalidRevision);
        if (revision.parents.contains(revision.id) || revision.parents.size() > 64)
            throw TextSyncFailure(TextSyncFailure::invalidRevision);
        if (JsonWriter::write(revision, JsonWriter::Form::pretty).size() > 512'000)
            throw TextSyncFailure(TextSyncFailure::tooLarge);
        const auto known = candidate.find(revision.id);
        if (known != candidate.end() && known->second != revision)
            throw TextSyncFailure(TextSyncFailure::invalidRevision);
        candidate[revision.id] = revision;
    }
    if (candidate.size() > 50'000)
        throw TextSyncFailure(TextSyncFailure::tooLarge);

    std::map<Uuid, std::size_t> openParents;
    std::map<Uuid, std::vector<Uuid>> children;
    for (const auto& [id, revision] : candidate) {
        openParents[id] = 0;
        for (const auto& parent : revision.parents) {
            const auto known = candidate.find(parent);
            if (known == candidate.end())
                continue;
            if (known->second.entity != revision.entity)
                throw TextSyncFailure(TextSyncFailure::invalidRevision);
            ++openParents[id];
            children[parent].push_back(id);
        }
    }
    std::vector<Uuid> work;
    for (const auto& [id, open] : openParents)
        if (open == 0)
            work.push_back(id);
    for (std::size_t at = 0; at < work.size(); ++at)
        for (const auto& child : children[work[at]])
            if (--openParents[child] == 0)
                work.push_back(child);
    if (work.size() != candidate.size())
        throw TextSyncFailure(TextSyncFailure::invalidRevision);
    nodes = std::move(candidate);
}

} // namespace vesko
