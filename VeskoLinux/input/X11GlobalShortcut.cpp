#include "VeskoLinux/input/X11GlobalShortcut.h"

#include "VeskoLinux/input/XcbXkb.h"

#include <xcb/xcb.h>

#include <array>
#include <utility>

namespace vesko {

namespace {

constexpr std::uint16_t superShift = XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT;
// Caps Lock and Num Lock are no part of the shortcut.
constexpr std::array<std::uint16_t, 4> lockVariants{ 0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2,
    XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2 };

// Servers inside other servers repeat a held key as release and press within a millisecond. No
// finger is that fast.
constexpr xcb_timestamp_t repeatInterval = 15; // milliseconds

} // namespace

bool X11GlobalShortcut::install(std::function<void()> onPressed)
{
    remove();
    if (!m_connection.works())
        return false;
    m_space = KeyMap(m_connection).named("SPCE");
    if (!m_space)
        return false;
    // A held key then repeats its presses without releases between them.
    const auto detectable = fromX11(xcb_xkb_per_client_flags_reply(m_connection,
        xcb_xkb_per_client_flags(m_connection, XCB_XKB_ID_USE_CORE_KBD,
            XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT,
            XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT, 0, 0, 0),
        nullptr));
    bool all = true;
    for (const auto locks : lockVariants) {
        const auto error = fromX11(xcb_request_check(m_connection,
            xcb_grab_key_checked(m_connection, 0, m_connection.root(), superShift | locks, m_space,
                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
        all = all && !error;
    }
    if (!all) {
        remove();
        return false;
    }
    m_connection.listen([this, onPressed = std::move(onPressed)](const xcb_generic_event_t& event) {
        const auto type = event.response_type & 0x7F;
        if (type != XCB_KEY_PRESS && type != XCB_KEY_RELEASE)
            return;
        const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
        if (key.detail != m_space)
            return;
        if (type == XCB_KEY_RELEASE) {
            m_held = false;
            m_releasedAt = key.time;
            return;
        }
        const bool repeated
            = std::exchange(m_held, true) || key.time - m_releasedAt <= repeatInterval;
        if (!repeated)
            onPressed();
    });
    return true;
}

void X11GlobalShortcut::remove()
{
    m_connection.stopListening();
    m_held = false;
    if (!m_space || !m_connection.works())
        return;
    for (const auto locks : lockVariants)
        xcb_ungrab_key(m_connection, m_space, m_connection.root(), superShift | locks);
    xcb_flush(m_connection);
    m_space = 0;
}

} // namespace vesko
