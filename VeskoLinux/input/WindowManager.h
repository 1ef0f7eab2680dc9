#pragma once

#include <cstdint>
#include <optional>

namespace vesko {

class X11Connection;

// The window that the window manager tells of as the active one, 0 if none is. Nothing without a
// window manager, or from one that doesn't tell; what one left behind that has ended is no account.
// Three round trips to the server. Any thread, one at a time for a connection.
std::optional<std::uint32_t> activeWindow(const X11Connection& connection);

} // namespace vesko
