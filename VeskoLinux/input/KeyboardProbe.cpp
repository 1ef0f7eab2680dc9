#include "VeskoLinux/input/KeyboardProbe.h"

#include "VeskoLinux/input/X11Connection.h"

#include <xcb/xcb.h>

namespace vesko {

KeyboardProbe::KeyboardProbe(const X11Connection& connection)
    : m_connection(connection)
{
    if (!connection.works())
        return;
    m_unseen = xcb_generate_id(connection);
    xcb_create_window(connection, 0, m_unseen, connection.root(), 0, 0, 1, 1, 0,
        XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
}

// A window that isn't shown can't hold the keyboard, but the server looks first whether somebody
// else does.
bool KeyboardProbe::isHeld() const
{
    if (!m_unseen)
        return true;
    const auto answer = fromX11(xcb_grab_keyboard_reply(m_connection,
        xcb_grab_keyboard(
            m_connection, 0, m_unseen, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC),
        nullptr));
    return !answer || answer->status != XCB_GRAB_STATUS_NOT_VIEWABLE;
}

} // namespace vesko
