#pragma once

#include "VeskoCore/sync/TextSyncValue.h"

#include <set>

namespace vesko {

// One step in an entity's history. Once others know it, it never changes.
struct TextSyncRevision {
    Uuid id; // the revision's own
    TextSyncID entity;
    std::set<Uuid> parents; // the revisions that this one supersedes
    std::optional<TextSyncValue> value; // none: a tombstone, the entity has been deleted

    bool operator==(const TextSyncRevision&) const = default;
};

template <>
inline constexpr std::tuple jsonFields<TextSyncRevision>{
    JsonField{ "entity", &TextSyncRevision::entity },
    JsonField{ "id", &TextSyncRevision::id },
    JsonField{ "parents", &TextSyncRevision::parents },
    JsonField{ "value", &TextSyncRevision::value },
};

} // namespace vesko

template <>
struct std::hash<vesko::TextSyncRevision> {
    std::size_t operator()(const vesko::TextSyncRevision& revision) const noexcept
    {
        return std::hash<vesko::Uuid>{}(revision.id);
    }
};
