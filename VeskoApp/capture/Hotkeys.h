#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/platform/KeyInput.h"
#include "VeskoCore/shell/FnShortcutState.h"

#include <functional>
#include <string>

namespace vesko {

// The two global inputs: the shortcut, which toggles, and the gesture key, which toggles when
// tapped and talks while held. Main thread. The functions are set before start and are called
// from the event loop.
class Hotkeys {
public:
    Hotkeys(GlobalShortcut& shortcut, KeyMonitor& keys, EventClock& clock);
    ~Hotkeys();

    std::function<void()> onTrigger; // the shortcut was pressed
    std::function<bool()> fnEnabled;
    std::function<bool()> isRecording;
    std::function<bool()> canStart;
    std::function<GestureKey()> gestureKey;
    std::function<KeyCombination()> combination; // of the shortcut
    std::function<bool()> isLocked; // the session: its keys are meant for the locker
    std::function<void(FnShortcutAction)> onFnAction;
    std::function<void()> onFnTap; // the press that began a capture ended before it was a hold
    // The shortcut was not to be had after all; with the warning that start gives.
    std::function<void(const std::string&)> onShortcutLost;
    std::function<void()> onSendIntent; // Return: the user sends what stands in the field

    // Installs both. Gives a warning, a key for the catalogues with a place for the shortcut's
    // name, if that could not be had; the gesture works all the same. Empty: all is well.
    std::string start();
    // Takes the shortcut anew: its combination has changed. The same warning.
    std::string installShortcut();
    // Watches the keys anew: the key of the gesture or the permission has changed.
    void installFnMonitors();
    // The gesture key went down or up, as a desktop tells that runs a command for it. It may run
    // the one for down again and again while the key is held, and leave out the one for up.
    void commandGestureKey(bool down);
    // Forgets the gesture, and discards what it began.
    void resetFn();
    void stop();

private:
    void trigger();
    void receive(const KeyEvent& event);
    void flagsChanged(const KeyEvent& event);
    void moveGestureKey(bool down);
    // Whether keys are meant for another program, whatever has the focus.
    bool areForOther() const;

    GlobalShortcut& m_shortcut;
    KeyMonitor& m_keys;
    EventClock& m_clock;
    FnShortcutState m_fnState;
    Timer m_hold;
    std::optional<double> m_lastCommand; // uptime of the last command that the key is down
    std::optional<double> m_lastRelease; // and of the last one that it is up
    bool m_releaseCameFirst = false; // that one came without a press before it
    std::optional<double> m_lastTrigger; // uptime of the last accepted press
};

} // namespace vesko
