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
    std::function<void()> onSendIntent; // Return: the user sends what stands in the field

    // Installs both. Gives a warning, a key for the catalogues with a place for the shortcut's
    // name, if that could not be had; the gesture works all the same. Empty: all is well.
    std::string start();
    // Takes the shortcut anew: its combination has changed. The same warning.
    std::string installShortcut();
    // Watches the keys anew: the key of the gesture or the permission has changed.
    void installFnMonitors();
    // Forgets the gesture, and discards what it began.
    void resetFn();
    void stop();

private:
    void trigger();
    void receive(const KeyEvent& event);
    void flagsChanged(const KeyEvent& event);
    // Whether keys are meant for another program, whatever has the focus.
    bool areForOther() const;

    GlobalShortcut& m_shortcut;
    KeyMonitor& m_keys;
    EventClock& m_clock;
    FnShortcutState m_fnState;
    Timer m_hold;
    std::optional<double> m_lastTrigger; // uptime of the last accepted press
};

} // namespace vesko
