#include "VeskoLinux/input/WindowManager.h"

#include "VeskoLinux/input/X11Connection.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace vesko {

namespace {

constexpr std::uint32_t mostSupported = 1024; // names in a window manager's list

xcb_intern_atom_cookie_t ask(const X11Connection& connection, std::string_view name)
{
    return xcb_intern_atom(connection, 1, std::uint16_t(name.size()), name.data());
}

xcb_atom_t answer(const X11Connection& connection, xcb_intern_atom_cookie_t asked)
{
    const auto reply = fromX11(xcb_intern_atom_reply(connection, asked, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

xcb_get_property_cookie_t ask(
    const X11Connection& connection, std::uint32_t window, xcb_atom_t name)
{
    return xcb_get_property(connection, 0, window, name, XCB_ATOM_WINDOW, 0, 1);
}

std::optional<std::uint32_t> answer(
    const X11Connection& connection, xcb_get_property_cookie_t asked)
{
    xcb_generic_error_t* error = nullptr; // the window may be gone
    const auto reply = fromX11(xcb_get_property_reply(connection, asked, &error));
    const auto failure = fromX11(error);
    if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) != 4)
        return std::nullopt;
    return *static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
}

// Whether the window manager says that it tells of that.
bool tells(const X11Connection& connection, xcb_atom_t what)
{
    const auto name = answer(connection, ask(connection, "_NET_SUPPORTED"));
    const auto reply = fromX11(xcb_get_property_reply(connection,
        xcb_get_property(connection, 0, connection.root(), name, XCB_ATOM_ATOM, 0, mostSupported),
        nullptr));
    if (!reply || reply->format != 32)
        return false;
    const std::span supported(static_cast<const xcb_atom_t*>(xcb_get_property_value(reply.get())),
        static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) / sizeof(xcb_atom_t));
    return std::ranges::find(supported, what) != supported.end();
}

} // namespace

std::optional<std::uint32_t> activeWindow(const X11Connection& connection)
{
    const auto managerName = ask(connection, "_NET_SUPPORTING_WM_CHECK");
    const auto activeName = ask(connection, "_NET_ACTIVE_WINDOW");
    const xcb_atom_t manager = answer(connection, managerName);
    const xcb_atom_t active = answer(connection, activeName);
    if (manager == XCB_ATOM_NONE || active == XCB_ATOM_NONE)
        return std::nullopt;
    const auto managersWindow = ask(connection, connection.root(), manager);
    const auto told = ask(connection, connection.root(), active);
    const auto window = answer(connection, managersWindow);
    const auto value = answer(connection, told);
    // A window manager that lives has a window that names itself; by the number alone it could be
    // a later window of somebody else's.
    if (!window || answer(connection, ask(connection, *window, manager)) != window)
        return std::nullopt;
    // Before the first window it has none to tell of.
    return !value && tells(connection, active) ? 0 : value;
}

} // namespace vesko
