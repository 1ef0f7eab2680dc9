#pragma once

#include "VeskoCore/base/Date.h"
#include "VeskoCore/base/JsonFields.h"
#include "VeskoCore/base/Uuid.h"

#include <string>

namespace vesko {

// One replacement rule of the personal dictionary.
struct DictionaryEntry {
    enum class Source { manual, learned, suggestion };

    Uuid id;
    std::string original; // what the speech back end tends to write
    std::string replacement; // what the user wants instead
    bool enabled = true; // a disabled entry is kept but not applied
    Source source = Source::manual;
    Date createdAt;

    bool operator==(const DictionaryEntry&) const = default;
};

template <>
inline constexpr auto jsonNames<DictionaryEntry::Source>
    = std::to_array<std::string_view>({ "manual", "learned", "suggestion" });

template <>
inline constexpr std::tuple jsonFields<DictionaryEntry>{
    JsonField{ "createdAt", &DictionaryEntry::createdAt },
    JsonField{ "enabled", &DictionaryEntry::enabled },
    JsonField{ "id", &DictionaryEntry::id },
    JsonField{ "original", &DictionaryEntry::original },
    JsonField{ "replacement", &DictionaryEntry::replacement },
    JsonField{ "source", &DictionaryEntry::source },
};

} // namespace vesko
