#include "VeskoLinux/input/KeyFocus.h"

#include "VeskoLinux/input/WindowManager.h"
#include "VeskoLinux/input/X11Connection.h"

#include <xcb/xcb.h>

namespace vesko {

namespace {

constexpr int deepest = 32; // levels of windows inside each other

std::uint32_t focused(const X11Connection& connection)
{
    const auto focus
        = fromX11(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    if (!focus || focus->focus != XCB_INPUT_FOCUS_POINTER_ROOT)
        return focus ? focus->focus : 0;
    const auto pointer = fromX11(xcb_query_pointer_reply(
        connection, xcb_query_pointer(connection, connection.root()), nullptr));
    return pointer ? pointer->child : 0;
}

// Toolkits give the focus to a window of their own inside the one that the window manager knows.
bool isWithin(const X11Connection& connection, std::uint32_t window, std::uint32_t outer)
{
    for (int level = 0; level < deepest && window && window != connection.root(); ++level) {
        if (window == outer)
            return true;
        const auto tree = fromX11(
            xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr));
        window = tree ? tree->parent : 0;
    }
    return false;
}

} // namespace

KeyFocus keyFocus(const X11Connection& connection)
{
    KeyFocus focus{ .window = focused(connection), .active = activeWindow(connection) };
    const bool isWindow = focus.window != 0 && focus.window != connection.root();
    focus.settled
        = isWindow && (!focus.active || isWithin(connection, focus.window, *focus.active));
    return focus;
}

} // namespace vesko
