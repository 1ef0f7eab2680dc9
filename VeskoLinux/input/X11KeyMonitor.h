#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/platform/KeyInput.h"
#include "VeskoLinux/input/KeyMap.h"
#include "VeskoLinux/input/KeyboardProbe.h"
#include "VeskoLinux/input/SentKeys.h"
#include "VeskoLinux/input/X11Connection.h"

#include <bitset>
#include <deque>

namespace vesko {

// Watches the keyboard and the pointer's buttons through the raw events of XInput 2, which come
// whoever has the focus or a grab, and take nothing away from anyone.
class X11KeyMonitor final : public KeyMonitor {
public:
    // Events that `sent` knows are left out. Both outlive the monitor.
    X11KeyMonitor(SentKeys& sent, EventClock& clock);

    bool permitted() const override { return m_inputOpcode != 0; }
    bool reportsFn() const override;
    bool takenByOther() const override { return m_keyboard.isHeld(); }
    bool start(GestureKey key, std::function<void(const KeyEvent&)> onEvent) override;
    void stop() override;

private:
    struct Release {
        KeyCode key;
        std::uint32_t time; // of the server, in milliseconds
    };

    void selectEvents(bool on);
    void readMap();
    void buttonMoved(std::uint32_t button, bool down);
    void pressed(KeyCode key, std::uint32_t time);
    void released(KeyCode key, std::uint32_t time);
    void letGo(KeyCode key);
    void flushReleases();
    void tell(KeyEvent::Kind kind, KeyCode key);

    SentKeys& m_sent;
    X11Connection m_requests; // asks and waits for answers
    KeyboardProbe m_keyboard;
    X11Connection m_events;
    std::uint8_t m_inputOpcode = 0; // of XInput 2.2; 0 without it
    std::uint8_t m_xkbEvent = 0;
    KeyMap m_map;
    GestureKey m_gesture = GestureKey::fn;
    KeyCode m_gestureKey = 0;
    std::bitset<256> m_down;
    std::bitset<256> m_buttonsDown;
    // Releases that a press within the same moment would show to be a key's repeat.
    std::deque<Release> m_releasing;
    Timer m_release;
    Timer m_newMap;
    std::function<void(const KeyEvent&)> m_onEvent;
};

} // namespace vesko
