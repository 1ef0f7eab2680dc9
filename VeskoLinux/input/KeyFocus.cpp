#include "VeskoLinux/input/KeyFocus.h"

#include "VeskoLinux/input/X11Connection.h"

#include <xcb/xcb.h>

#include <string_view>

namespace vesko {

namespace {

constexpr std::string_view activeWindow = "_NET_ACTIVE_WINDOW";
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

std::optional<std::uint32_t> active(const X11Connection& connection)
{
    const auto name = fromX11(xcb_intern_atom_reply(connection,
        xcb_intern_atom(connection, 1, activeWindow.size(), activeWindow.data()), nullptr));
    if (!name || name->atom == XCB_ATOM_NONE)
        return std::nullopt;
    const auto value = fromX11(xcb_get_property_reply(connection,
        xcb_get_property(connection, 0, connection.root(), name->atom, XCB_ATOM_WINDOW, 0, 1),
        nullptr));
    if (!value || value->format != 32 || xcb_get_property_value_length(value.get()) != 4)
        return std::nullopt;
    return *static_cast<const std::uint32_t*>(xcb_get_property_value(value.get()));
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
    KeyFocus focus{ .window = focused(connection), .active = active(connection) };
    const bool isWindow = focus.window != 0 && focus.window != connection.root();
    focus.settled
        = isWindow && (!focus.active || isWithin(connection, focus.window, *focus.active));
    return focus;
}

} // namespace vesko
