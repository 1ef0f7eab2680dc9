#pragma once

#include "VeskoApp/platform/OnDeviceRecognizer.h"
#include "VeskoApp/platform/SecretStore.h"
#include "VeskoApp/transcription/EngineSelection.h"
#include "VeskoCore/base/Clock.h"
#include "VeskoCore/speech/OpenRouterClient.h"

#include <filesystem>
#include <string>

namespace vesko {

class Terminal;

// Prints the text of one audio file, as the settings' own recogniser hears it.
class TranscribeCommand {
public:
    // What it reaches; must outlive it.
    struct Neighbours {
        OnDeviceRecognizer& recognizer;
        EngineSelection& engines;
        const OpenRouterClient& client;
        const Preferences& preferences;
        SecretStore& secrets;
        const Clock& clock;
        std::filesystem::path root; // of the library
    };
    struct Wish {
        std::filesystem::path file;
        std::string language; // a tag; empty for what the settings say
        bool keep = false; // as a recording of the library, too
    };

    explicit TranscribeCommand(const Neighbours& neighbours);

    // The exit code: 0, Terminal's with the reason on the error output, or 4 if the library is in
    // use and was to be changed. Blocks; turns the event loop of a QCoreApplication.
    int run(const Wish& wish);

private:
    TranscriptResult onDevice(
        const std::filesystem::path& audio, const std::string& language, const Terminal& terminal);
    TranscriptResult byService(
        const std::filesystem::path& audio, const std::string& language, const Terminal& terminal);
    bool usesService() const;

    Neighbours m_to;
};

} // namespace vesko
