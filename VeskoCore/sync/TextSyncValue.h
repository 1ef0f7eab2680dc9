#pragma once

#include "VeskoCore/library/DictionaryEntry.h"
#include "VeskoCore/library/Project.h"
#include "VeskoCore/sync/SyncedNote.h"
#include "VeskoCore/sync/TextSyncID.h"

#include <variant>

namespace vesko {

// The content of a revision. The alternatives stand in the order of TextSyncID::Kind.
struct TextSyncValue : std::variant<SyncedNote, Project, DictionaryEntry> {
    using variant::variant;

    // The name of the thing that this is the content of.
    TextSyncID entity() const
    {
        const auto id = std::visit([](const auto& held) { return held.id; }, *this);
        return { static_cast<TextSyncID::Kind>(index()), id };
    }
};

template <>
inline constexpr auto jsonCases<TextSyncValue>
    = std::to_array<std::string_view>({ "note", "project", "dictionary" });

} // namespace vesko
