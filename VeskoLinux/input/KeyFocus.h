#pragma once

#include <cstdint>
#include <optional>

namespace vesko {

class X11Connection;

// Where the X server takes keys at one moment.
struct KeyFocus {
    std::uint32_t window = 0; // with the input focus; where that follows the pointer, the one there
    // What activeWindow tells.
    std::optional<std::uint32_t> active;
    // Whether the window with the focus is the active one, or stands in it: while the window
    // manager changes the window, the one may be ahead of the other. Where nobody tells of an
    // active one, the focus counts alone.
    bool settled = false;

    bool operator==(const KeyFocus&) const = default;
};

// What the server says now; several round trips. No window if there is none, or no answer.
KeyFocus keyFocus(const X11Connection& connection);

} // namespace vesko
