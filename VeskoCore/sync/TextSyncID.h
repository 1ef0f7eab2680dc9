#pragma once

#include "VeskoCore/base/JsonFields.h"
#include "VeskoCore/base/Uuid.h"

namespace vesko {

// The name of a synced thing.
struct TextSyncID {
    enum class Kind { note, project, dictionary };

    Kind kind = Kind::note;
    Uuid id; // of the note, project or dictionary entry

    auto operator<=>(const TextSyncID&) const = default;
};

template <>
inline constexpr auto jsonNames<TextSyncID::Kind>
    = std::to_array<std::string_view>({ "note", "project", "dictionary" });

template <>
inline constexpr std::tuple jsonFields<TextSyncID>{
    JsonField{ "id", &TextSyncID::id },
    JsonField{ "kind", &TextSyncID::kind },
};

} // namespace vesko

template <>
struct std::hash<vesko::TextSyncID> {
    std::size_t operator()(const vesko::TextSyncID& entity) const noexcept
    {
        return std::hash<vesko::Uuid>{}(entity.id) * 31 + static_cast<std::size_t>(entity.kind);
    }
};
