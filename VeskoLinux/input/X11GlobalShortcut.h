#pragma once

#include "VeskoApp/platform/KeyInput.h"
#include "VeskoLinux/input/KeyMap.h"
#include "VeskoLinux/input/X11Connection.h"

#include <bitset>
#include <vector>

namespace vesko {

// A key that this program has taken, with the modifiers that make it the shortcut.
struct TakenKey {
    KeyCode key = 0;
    std::uint32_t modifiers = 0; // the server's bits
};

// A combination by grabs on the root window, whatever locks are on. The server knows two kinds of
// grab, of its core and of XInput 2, which don't exclude each other: the newest is the one that
// gets the key. With both of them nobody else has the combination, or can take it away later. While
// no window has the focus, as after a window manager has crashed, the server takes no notice of
// grabs, and all keys are listened to. A held shortcut is one press.
class X11GlobalShortcut final : public GlobalShortcut {
public:
    X11GlobalShortcut();
    ~X11GlobalShortcut() override { remove(); }

    bool install(const KeyCombination& combination, std::function<void()> onPressed) override;
    void remove() override;
    std::optional<NamedKey> keyAt(std::uint32_t scanCode) const override;

    // The shortcut, while the user has not let go of its key since it was pressed.
    std::optional<TakenKey> held() const;

private:
    bool grab();
    void followFocus(bool on);
    void listenToAll(bool on);
    void receive(const xcb_generic_event_t& event, const std::function<void()>& onPressed);
    void receiveAny(
        KeyCode key, bool down, std::uint32_t time, const std::function<void()>& onPressed);
    void moved(bool down, std::uint32_t time, const std::function<void()>& onPressed);

    X11Connection m_connection;
    std::uint8_t m_inputOpcode = 0; // of XInput 2; 0 without it
    TakenKey m_taken; // no key: nothing is installed
    std::vector<std::uint32_t> m_modifiers; // with each set of locks
    // What lies on the keys, and which are down, while all are listened to.
    struct AllKeys {
        KeyMap map;
        std::bitset<256> down;
    };
    std::optional<AllKeys> m_all;
    bool m_held = false;
    std::uint32_t m_releasedAt = 0; // by the server's clock, milliseconds
};

} // namespace vesko
