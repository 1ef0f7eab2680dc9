#pragma once

#include <cstdint>

namespace vesko {

class X11Connection;

// Tells whether another connection to the X server, of this program or another, holds the keyboard:
// as a screen locker does, a run dialog, an open menu, or a global shortcut while its key is down.
// Then keys reach that connection, whichever window has the focus. Takes nothing from anyone, and
// no window hears of it.
class KeyboardProbe {
public:
    // The connection outlives the probe.
    explicit KeyboardProbe(const X11Connection& connection);

    // One round trip to the server. True too when the server doesn't answer.
    bool isHeld() const;

private:
    const X11Connection& m_connection;
    std::uint32_t m_unseen = 0; // a window that is never shown
};

} // namespace vesko
