#include "VeskoLinux/accessibility/ActiveWindow.h"

#include "VeskoLinux/input/WindowManager.h"

#include <xcb/res.h>

#include <string_view>

namespace vesko {
namespace {

constexpr int deepest = 32; // levels of windows inside each other

xcb_atom_t atom(xcb_connection_t* connection, std::string_view name)
{
    const auto cookie = xcb_intern_atom(connection, 0, std::uint16_t(name.size()), name.data());
    const auto reply = fromX11(xcb_intern_atom_reply(connection, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

} // namespace

ActiveWindow::ActiveWindow()
{
    if (!m_connection.works())
        return;
    m_processId = atom(m_connection, "_NET_WM_PID");
    m_name = atom(m_connection, "_NET_WM_NAME");
    m_utf8 = atom(m_connection, "UTF8_STRING");
    const auto version = fromX11(xcb_res_query_version_reply(
        m_connection, xcb_res_query_version(m_connection, 1, 2), nullptr));
    m_knowsClients = version && version->server_minor >= 2;
}

std::optional<std::uint32_t> ActiveWindow::active() const
{
    if (const auto told = activeWindow(m_connection))
        return *told ? told : std::nullopt;
    return focused();
}

// The program's own window around the one with the focus.
std::optional<std::uint32_t> ActiveWindow::focused() const
{
    const auto focus = fromX11(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    std::uint32_t window = focus ? focus->focus : XCB_NONE;
    if (window == XCB_INPUT_FOCUS_POINTER_ROOT)
        return std::nullopt;
    for (int level = 0; level < deepest && window != XCB_NONE && window != m_connection.root();
        ++level) {
        if (has(window, XCB_ATOM_WM_CLASS))
            return window;
        const auto tree = fromX11(
            xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, window), nullptr));
        window = tree ? tree->parent : XCB_NONE;
    }
    return std::nullopt;
}

bool ActiveWindow::has(std::uint32_t window, std::uint32_t name) const
{
    const auto cookie
        = xcb_get_property(m_connection, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
    xcb_generic_error_t* error = nullptr; // the window may be gone
    const auto reply = fromX11(xcb_get_property_reply(m_connection, cookie, &error));
    const auto failure = fromX11(error);
    return reply && reply->type != XCB_ATOM_NONE;
}

std::optional<std::int32_t> ActiveWindow::process() const
{
    const auto window = active();
    if (!window)
        return std::nullopt;
    if (const auto owner = ownerOf(*window))
        return owner;
    const auto process = property(*window, m_processId, XCB_ATOM_CARDINAL);
    if (!process || *process > std::uint32_t(INT32_MAX))
        return std::nullopt;
    return std::int32_t(*process);
}

// Of programs on this machine.
std::optional<std::int32_t> ActiveWindow::ownerOf(std::uint32_t window) const
{
    if (!m_knowsClients)
        return std::nullopt;
    const xcb_res_client_id_spec_t wanted{ window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID };
    const auto cookie = xcb_res_query_client_ids(m_connection, 1, &wanted);
    xcb_generic_error_t* error = nullptr; // the window may be gone
    const auto reply = fromX11(xcb_res_query_client_ids_reply(m_connection, cookie, &error));
    const auto failure = fromX11(error);
    if (!reply)
        return std::nullopt;
    for (auto ids = xcb_res_query_client_ids_ids_iterator(reply.get()); ids.rem;
        xcb_res_client_id_value_next(&ids)) {
        const auto* value = xcb_res_client_id_value_value(ids.data);
        if (xcb_res_client_id_value_value_length(ids.data) == 1 && *value > 0
            && *value <= std::uint32_t(INT32_MAX))
            return std::int32_t(*value);
    }
    return std::nullopt;
}

std::string ActiveWindow::title() const
{
    constexpr std::uint32_t limit = 1024; // words of four bytes
    const auto window = active();
    if (!window)
        return {};
    const auto cookie = xcb_get_property(m_connection, 0, *window, m_name, m_utf8, 0, limit);
    xcb_generic_error_t* error = nullptr;
    const auto reply = fromX11(xcb_get_property_reply(m_connection, cookie, &error));
    const auto failure = fromX11(error);
    if (!reply || reply->format != 8)
        return {};
    return { static_cast<const char*>(xcb_get_property_value(reply.get())),
        std::size_t(xcb_get_property_value_length(reply.get())) };
}

// A property of one 32-bit value other than 0.
std::optional<std::uint32_t> ActiveWindow::property(
    std::uint32_t window, std::uint32_t name, std::uint32_t type) const
{
    const auto cookie = xcb_get_property(m_connection, 0, window, name, type, 0, 1);
    xcb_generic_error_t* error = nullptr; // the window may be gone
    const auto reply = fromX11(xcb_get_property_reply(m_connection, cookie, &error));
    const auto failure = fromX11(error);
    if (!reply || reply->format != 32 || xcb_get_property_value_length(reply.get()) != 4)
        return std::nullopt;
    const auto value = *static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return value ? std::optional(value) : std::nullopt;
}

} // namespace vesko
