#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/platform/Appearance.h"
#include "VeskoApp/platform/AudioPlayer.h"
#include "VeskoApp/platform/AudioRecorder.h"
#include "VeskoApp/platform/Browser.h"
#include "VeskoApp/platform/Clipboard.h"
#include "VeskoApp/platform/CueEngine.h"
#include "VeskoApp/platform/Desktop.h"
#include "VeskoApp/platform/DesktopShortcut.h"
#include "VeskoApp/platform/Doctor.h"
#include "VeskoApp/platform/FileChooser.h"
#include "VeskoApp/platform/FocusedField.h"
#include "VeskoApp/platform/KeyInput.h"
#include "VeskoApp/platform/LoginItem.h"
#include "VeskoApp/platform/Notifications.h"
#include "VeskoApp/platform/OnDeviceRecognizer.h"
#include "VeskoApp/platform/PasteKeystroke.h"
#include "VeskoApp/platform/Permissions.h"
#include "VeskoApp/platform/RemoteControl.h"
#include "VeskoApp/platform/RunningInstance.h"
#include "VeskoApp/platform/SecretStore.h"
#include "VeskoApp/platform/SessionOffer.h"
#include "VeskoApp/platform/SessionState.h"
#include "VeskoApp/platform/SettingsStore.h"
#include "VeskoApp/platform/SpeechEngines.h"
#include "VeskoApp/platform/SpeechGate.h"
#include "VeskoApp/platform/StatusItem.h"
#include "VeskoApp/platform/TextLanguageRecognizer.h"

#include <filesystem>
#include <string>
#include <vector>

namespace vesko {

// Everything the program reaches of the machine, handed in at its start. What it refers to must
// outlive the program's objects.
struct Platform {
    EventClock& clock;
    AudioRecorder& recorder;
    AudioPlayer& player;
    CueEngine& cues;
    OnDeviceRecognizer& recognizer;
    SpeechEngines& speechEngines; // of the recogniser
    SpeechGate& speechGate;
    TextLanguageRecognizer& textLanguage;
    FocusedField& focusedField;
    PasteKeystroke& pasteKeystroke;
    Clipboard& clipboard;
    GlobalShortcut& shortcut;
    KeyMonitor& keys;
    SecretStore& secrets;
    SettingsStore& settings;
    LoginItem& loginItem;
    StatusItem& statusItem;
    Notifications& notifications;
    Browser& browser;
    RunningInstance& runningInstance;
    RemoteControl& remoteControl;
    Desktop& desktop;
    FileChooser& fileChooser;
    Appearance& appearance;
    Permissions& permissions;
    Doctor& doctor;
    SessionState& session;
    std::vector<std::string> preferredLanguages; // tags, the user's first language first
    std::filesystem::path dataFolder; // where the library is
    SessionOffer offer = {}; // of the session; by default everything
    DesktopShortcut* desktopShortcut = nullptr; // if the offer has one
};

} // namespace vesko
