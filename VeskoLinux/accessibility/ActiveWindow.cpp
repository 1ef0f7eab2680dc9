#include "VeskoLinux/accessibility/ActiveWindow.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace vesko {
namespace {

template <class Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply)
{
    return { reply, &std::free };
}

xcb_window_t rootOf(xcb_connection_t* connection, int screen)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem && screen > 0; --screen)
        xcb_screen_next(&screens);
    return screens.rem ? screens.data->root : XCB_NONE;
}

xcb_atom_t atom(xcb_connection_t* connection, std::string_view name)
{
    const auto cookie = xcb_intern_atom(connection, 0, std::uint16_t(name.size()), name.data());
    const auto reply = owned(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

} // namespace

ActiveWindow::ActiveWindow()
{
    int screen = 0;
    m_connection = xcb_connect(nullptr, &screen);
    if (xcb_connection_has_error(m_connection))
        return;
    m_root = rootOf(m_connection, screen);
    m_activeWindow = atom(m_connection, "_NET_ACTIVE_WINDOW");
    m_processId = atom(m_connection, "_NET_WM_PID");
}

ActiveWindow::~ActiveWindow()
{
    xcb_disconnect(m_connection);
}

std::optional<std::int32_t> ActiveWindow::process() const
{
    const auto window = property(m_root, m_activeWindow, XCB_ATOM_WINDOW);
    if (!window)
        return std::nullopt;
    const auto process = property(*window, m_processId, XCB_ATOM_CARDINAL);
    if (!process || *process > std::uint32_t(INT32_MAX))
        return std::nullopt;
    return std::int32_t(*process);
}

// A property of one 32-bit value other than 0.
std::optional<std::uint32_t> ActiveWindow::property(
    std::uint32_t window, std::uint32_t name, std::uint32_t type) const
{
    if (xcb_connection_has_error(m_connection))
        return std::nullopt;
    const auto cookie = xcb_get_property(m_connection, 0, window, name, type, 0, 1);
    xcb_generic_error_t* error = nullptr; // the window may be gone
    const auto reply = owned(xcb_get_property_reply(m_connection, cookie, &error));
    const auto failure = owned(error);
    if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) != 4)
        return std::nullopt;
    const auto value = *static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return value ? std::optional(value) : std::nullopt;
}

} // namespace vesko
