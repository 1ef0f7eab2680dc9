#include "VeskoCore/sync/TextSyncJournal.h"

#include "VeskoCore/base/JsonReader.h"
#include "VeskoCore/base/JsonWriter.h"

namespace vesko {

SharedArray<TextSyncRevision> TextSyncJournal::revisions() const
{
    std::vector<Pointer> all;
    all.reserve(m_nodes.size());
    // The bytes of two ids compare as their texts do.
    for (const auto& node : m_nodes)
        all.push_back(m_revisions[node.place]);
    return SharedArray<TextSyncRevision>(std::move(all));
}

const TextSyncRevision* TextSyncJournal::find(const Uuid& id) const
{
    const auto* node = m_nodes.find({ id, 0 });
    return node ? m_revisions[node->place].get() : nullptr;
}

SharedArray<TextSyncRevision> TextSyncJournal::heads(const TextSyncID& entity) const
{
    std::vector<Pointer> heads;
    for (auto at = m_heads.lowerBound({ entity, Uuid() });
        at != m_heads.end() && at->entity == entity; ++at)
        heads.push_back(m_revisions[m_nodes.find({ at->id, 0 })->place]);
    return SharedArray<TextSyncRevision>(std::move(heads));
}

TextSyncRevision TextSyncJournal::write(const TextSyncValue& value)
{
    const JsonDocument stored(JsonWriter::write(value, JsonWriter::Form::pretty));
    return change(value.entity(), stored.as<TextSyncValue>());
}

TextSyncRevision TextSyncJournal::remove(const TextSyncID& entity)
{
    return change(entity, std::nullopt);
}

TextSyncRevision TextSyncJournal::change(
    const TextSyncID& entity, std::optional<TextSyncValue> value)
{
    if (!isComplete())
        throw TextSyncFailure(TextSyncFailure::incompleteHistory);
    TextSyncRevision revision;
    revision.id = Uuid::random();
    revision.entity = entity;
    for (const auto& head : heads(entity))
        revision.parents.insert(head.id);
    revision.value = std::move(value);
    merge({ revision });
    return revision;
}

} // namespace vesko
