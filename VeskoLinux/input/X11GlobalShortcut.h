#pragma once

#include "VeskoApp/platform/KeyInput.h"
#include "VeskoLinux/input/KeyMap.h"
#include "VeskoLinux/input/X11Connection.h"

namespace vesko {

// Super+Shift+Space by a grab on the root window, whatever locks are on and layout is in use. A
// held shortcut is one press.
class X11GlobalShortcut final : public GlobalShortcut {
public:
    X11GlobalShortcut() = default;
    ~X11GlobalShortcut() override { remove(); }

    bool install(std::function<void()> onPressed) override;
    void remove() override;

private:
    X11Connection m_connection;
    KeyCode m_space = 0;
    bool m_held = false;
    std::uint32_t m_releasedAt = 0; // by the server's clock, milliseconds
};

} // namespace vesko
