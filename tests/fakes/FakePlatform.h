#pragma once

#include "VeskoApp/platform/Platform.h"
#include "tests/fakes/FakeAppearance.h"
#include "tests/fakes/FakeAudioPlayer.h"
#include "tests/fakes/FakeAudioRecorder.h"
#include "tests/fakes/FakeBrowser.h"
#include "tests/fakes/FakeClipboard.h"
#include "tests/fakes/FakeCueEngine.h"
#include "tests/fakes/FakeDesktop.h"
#include "tests/fakes/FakeDoctor.h"
#include "tests/fakes/FakeFileChooser.h"
#include "tests/fakes/FakeFocusedField.h"
#include "tests/fakes/FakeKeyInput.h"
#include "tests/fakes/FakeLoginItem.h"
#include "tests/fakes/FakeNotifications.h"
#include "tests/fakes/FakeOnDeviceRecognizer.h"
#include "tests/fakes/FakePasteKeystroke.h"
#include "tests/fakes/FakePermissions.h"
#include "tests/fakes/FakeRemoteControl.h"
#include "tests/fakes/FakeRunningInstance.h"
#include "tests/fakes/FakeSecretStore.h"
#include "tests/fakes/FakeSessionState.h"
#include "tests/fakes/FakeSettingsStore.h"
#include "tests/fakes/FakeSpeechEngines.h"
#include "tests/fakes/FakeSpeechGate.h"
#include "tests/fakes/FakeStatusItem.h"
#include "tests/fakes/FakeTextLanguageRecognizer.h"
#include "tests/fakes/TestClock.h"

namespace vesko {

// A whole machine in memory, on which everything works until a test breaks it.
struct FakePlatform {
    // What is pasted lands in the editor.
    FakePlatform()
    {
        pasteKeystroke.onSent = [this] { focusedField.paste(clipboard.text.value_or("")); };
    }

    TestClock clock;
    FakeAudioRecorder recorder{ clock };
    FakeAudioPlayer player;
    FakeCueEngine cues{ clock };
    FakeOnDeviceRecognizer recognizer;
    FakeSpeechEngines speechEngines;
    FakeSpeechGate speechGate;
    FakeTextLanguageRecognizer textLanguage;
    FakeFocusedField focusedField;
    FakePasteKeystroke pasteKeystroke;
    FakeClipboard clipboard;
    FakeGlobalShortcut shortcut;
    FakeKeyMonitor keys;
    FakeSecretStore secrets;
    FakeSettingsStore settings;
    FakeLoginItem loginItem;
    FakeStatusItem statusItem;
    FakeNotifications notifications;
    FakeBrowser browser;
    FakeRunningInstance runningInstance;
    FakeRemoteControl remoteControl;
    FakeDesktop desktop;
    FakeFileChooser fileChooser;
    FakeAppearance appearance;
    FakePermissions permissions;
    FakeDoctor doctor;
    FakeSessionState session;

    Platform all{
        .clock = clock,
        .recorder = recorder,
        .player = player,
        .cues = cues,
        .recognizer = recognizer,
        .speechEngines = speechEngines,
        .speechGate = speechGate,
        .textLanguage = textLanguage,
        .focusedField = focusedField,
        .pasteKeystroke = pasteKeystroke,
        .clipboard = clipboard,
        .shortcut = shortcut,
        .keys = keys,
        .secrets = secrets,
        .settings = settings,
        .loginItem = loginItem,
        .statusItem = statusItem,
        .notifications = notifications,
        .browser = browser,
        .runningInstance = runningInstance,
        .remoteControl = remoteControl,
        .desktop = desktop,
        .fileChooser = fileChooser,
        .appearance = appearance,
        .permissions = permissions,
        .doctor = doctor,
        .session = session,
        .preferredLanguages = { "en-US" },
        .dataFolder = "/data/Vesko",
    };
};

} // namespace vesko
