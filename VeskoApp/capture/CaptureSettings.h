#pragma once

#include "VeskoCore/base/SharedArray.h"
#include "VeskoCore/library/DictionaryEntry.h"

#include <optional>
#include <string>

namespace vesko {

// The choices of one capture, frozen when it starts.
struct CaptureSettings {
    std::string provider;
    std::string keySource;
    std::string model;
    std::string language;
    bool cleanup = false;
    std::string cleanupModel;
    bool paste = true;
    SharedArray<DictionaryEntry> dictionary;
    bool cloudAllowed = true; // choosing the service is the consent; no setting is read for it
    std::optional<std::string> translateTo;
};

} // namespace vesko
