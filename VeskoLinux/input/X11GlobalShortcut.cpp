#include "VeskoLinux/input/X11GlobalShortcut.h"

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <algorithm>
#include <utility>

namespace vesko {

namespace {

// Servers inside other servers repeat a held key as release and press within a millisecond. No
// finger is that fast.
constexpr xcb_timestamp_t repeatInterval = 15; // milliseconds

std::uint32_t modifiersOf(const KeyCombination& combination)
{
    return (combination.shift ? XCB_MOD_MASK_SHIFT : 0U)
        | (combination.control ? XCB_MOD_MASK_CONTROL : 0U)
        | (combination.alt ? XCB_MOD_MASK_1 : 0U) | (combination.super ? XCB_MOD_MASK_4 : 0U);
}

// The modifiers with every set of the locks.
std::vector<std::uint32_t> withLocks(std::uint32_t modifiers, std::uint32_t locks)
{
    std::vector<std::uint32_t> all;
    for (std::uint32_t some = locks;; some = (some - 1) & locks) {
        all.push_back(modifiers | some);
        if (!some)
            return all;
    }
}

} // namespace

X11GlobalShortcut::X11GlobalShortcut()
{
    if (!m_connection.works())
        return;
    const auto* input = xcb_get_extension_data(m_connection, &xcb_input_id);
    const auto version = fromX11(xcb_input_xi_query_version_reply(
        m_connection, xcb_input_xi_query_version(m_connection, 2, 2), nullptr));
    if (input && input->present && version && version->major_version >= 2)
        m_inputOpcode = input->major_opcode;
}

bool X11GlobalShortcut::install(const KeyCombination& combination, std::function<void()> onPressed)
{
    remove();
    if (!m_connection.works() || !m_inputOpcode)
        return false;
    const KeyMap map(m_connection);
    m_taken = { map.named(combination.key), modifiersOf(combination) };
    if (!m_taken.key)
        return false;
    m_modifiers = withLocks(m_taken.modifiers, map.locks());
    if (!grab()) {
        remove();
        return false;
    }
    m_connection.listen([this, onPressed = std::move(onPressed)](
                            const xcb_generic_event_t& event) { receive(event, onPressed); });
    return true;
}

// The core's first, so that the other one is the newest, and all presses come in one way.
bool X11GlobalShortcut::grab()
{
    for (const auto modifiers : m_modifiers) {
        const auto error = fromX11(xcb_request_check(m_connection,
            xcb_grab_key_checked(m_connection, 0, m_connection.root(),
                static_cast<std::uint16_t>(modifiers), m_taken.key, XCB_GRAB_MODE_ASYNC,
                XCB_GRAB_MODE_ASYNC)));
        if (error)
            return false;
    }
    constexpr std::uint32_t events
        = XCB_INPUT_XI_EVENT_MASK_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_KEY_RELEASE;
    const auto refused = fromX11(xcb_input_xi_passive_grab_device_reply(m_connection,
        xcb_input_xi_passive_grab_device(m_connection, XCB_CURRENT_TIME, m_connection.root(),
            XCB_NONE, m_taken.key, XCB_INPUT_DEVICE_ALL_MASTER,
            static_cast<std::uint16_t>(m_modifiers.size()), 1, XCB_INPUT_GRAB_TYPE_KEYCODE,
            XCB_INPUT_GRAB_MODE_22_ASYNC, XCB_INPUT_GRAB_MODE_22_ASYNC,
            XCB_INPUT_GRAB_OWNER_NO_OWNER, &events, m_modifiers.data()),
        nullptr));
    return refused && refused->num_modifiers == 0;
}

void X11GlobalShortcut::receive(
    const xcb_generic_event_t& event, const std::function<void()>& onPressed)
{
    if ((event.response_type & 0x7F) != XCB_GE_GENERIC)
        return;
    const auto& key = reinterpret_cast<const xcb_input_key_press_event_t&>(event);
    if (key.extension != m_inputOpcode || key.detail != m_taken.key)
        return;
    if (key.event_type == XCB_INPUT_KEY_RELEASE) {
        m_held = false;
        m_releasedAt = key.time;
        return;
    }
    if (key.event_type != XCB_INPUT_KEY_PRESS)
        return;
    const bool repeated = std::exchange(m_held, true) || key.time - m_releasedAt <= repeatInterval;
    if (!repeated)
        onPressed();
}

std::optional<TakenKey> X11GlobalShortcut::held() const
{
    return m_held ? std::optional(m_taken) : std::nullopt;
}

std::optional<NamedKey> X11GlobalShortcut::keyAt(std::uint32_t scanCode) const
{
    const KeyMap map(m_connection);
    const auto key = static_cast<KeyCode>(scanCode);
    const auto place = map.place(key);
    if (scanCode != key || place.empty() || map.isModifier(key))
        return std::nullopt;
    return NamedKey{ place, map.name(key) };
}

void X11GlobalShortcut::remove()
{
    m_connection.stopListening();
    m_held = false;
    const TakenKey taken = std::exchange(m_taken, {});
    if (!taken.key || !m_connection.works())
        return;
    for (const auto modifiers : m_modifiers)
        xcb_ungrab_key(
            m_connection, taken.key, m_connection.root(), static_cast<std::uint16_t>(modifiers));
    xcb_input_xi_passive_ungrab_device(m_connection, m_connection.root(), taken.key,
        XCB_INPUT_DEVICE_ALL_MASTER, static_cast<std::uint16_t>(m_modifiers.size()),
        XCB_INPUT_GRAB_TYPE_KEYCODE, m_modifiers.data());
    xcb_flush(m_connection);
}

} // namespace vesko
