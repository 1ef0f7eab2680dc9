#pragma once

#include "VeskoCore/base/SharedArray.h"
#include "VeskoCore/library/DictionaryEntry.h"
#include "VeskoCore/library/Library.h"

#include <optional>
#include <string>

namespace vesko {

class Preferences;

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
    bool expectTerms = true; // an engine is told what stands in the dictionary
    bool cloudAllowed = true; // choosing the service is the consent; no setting is read for it
    std::optional<std::string> translateTo;

    // As the user has them now.
    static CaptureSettings from(const Preferences& preferences, const Library& library);

    bool onDevice() const { return provider == "apple"; }
};

} // namespace vesko
