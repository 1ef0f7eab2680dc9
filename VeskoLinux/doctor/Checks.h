#pragma once

#include "VeskoApp/platform/SpeechEngines.h"
#include "VeskoCore/speech/OpenRouterClient.h"
#include "VeskoLinux/doctor/Diagnosis.h"

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace vesko {

// What Vesko needs of this machine, one capability a check. The services are asked over the session
// bus; nothing is started, changed or sent anywhere but where a check says so. The microphone is
// listened to for a second, and what it hears is kept nowhere but for its loudness.

// What the settings say of speech on this computer, and what became of it when it was tried.
struct SpeechHere {
    std::string chosen; // the engine's id
    bool isThere = false;
    bool speaks = false; // the language
    bool inUse = false; // and not a service in its place
    std::string language = {}; // a tag, or "auto"
    std::vector<FoundEngine> found = {};
};

Finding lookAtVersions(const std::string& version);
Finding lookAtSession(const std::string& kind); // as the program goes by it
Finding lookAtProgram(); // the Vesko that runs
// Whose it is, as far as the session can tell. On X11, where no Vesko runs, `isFree` is asked
// whether it can be had.
Finding lookAtShortcut(bool wayland, const std::function<bool()>& isFree);
Finding lookAtAccessibility();
Finding lookAtTray();
Finding lookAtNotifications();
Finding lookAtMicrophone();
Finding lookAtEncoder();
Finding lookAtRecognizer(const SpeechHere& speech);
Finding lookAtOtherEngines(const SpeechHere& speech);
Finding lookAtKeyring();
// The one check that leaves this machine, for who asks for it: without a key.
Finding lookAtService(const OpenRouterClient& client);
Finding lookAtData(const std::filesystem::path& dataFolder);

} // namespace vesko
