#pragma once

#include "VeskoCore/base/Date.h"
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

} // namespace vesko
