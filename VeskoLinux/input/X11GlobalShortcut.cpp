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
    followFocus(true);
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

void X11GlobalShortcut::followFocus(bool on)
{
    const std::uint32_t events = on ? XCB_EVENT_MASK_FOCUS_CHANGE : XCB_EVENT_MASK_NO_EVENT;
    xcb_change_window_attributes(m_connection, m_connection.root(), XCB_CW_EVENT_MASK, &events);
    const auto focus = fromX11(
        xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    listenToAll(on && focus && focus->focus == XCB_INPUT_FOCUS_NONE);
}

void X11GlobalShortcut::listenToAll(bool on)
{
    if (on == m_all.has_value())
        return;
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection{ { XCB_INPUT_DEVICE_ALL_MASTER, 1 },
        on ? static_cast<std::uint32_t>(
                 XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE)
           : 0U };
    xcb_input_xi_select_events(m_connection, m_connection.root(), 1, &selection.head);
    xcb_flush(m_connection);
    m_held = false; // its release may have come in between
    m_all.reset();
    if (!on)
        return;
    m_all.emplace(KeyMap(m_connection), std::bitset<256>());
    if (const auto keys
        = fromX11(xcb_query_keymap_reply(m_connection, xcb_query_keymap(m_connection), nullptr)))
        for (std::size_t code = 0; code < m_all->down.size(); ++code)
            m_all->down[code] = (keys->keys[code / 8] >> (code % 8)) & 1;
}

void X11GlobalShortcut::receive(
    const xcb_generic_event_t& event, const std::function<void()>& onPressed)
{
    const auto type = event.response_type & 0x7F;
    if (type == XCB_FOCUS_IN || type == XCB_FOCUS_OUT) {
        const auto& focus = reinterpret_cast<const xcb_focus_in_event_t&>(event);
        if (focus.detail == XCB_NOTIFY_DETAIL_NONE)
            listenToAll(type == XCB_FOCUS_IN);
        return;
    }
    if (type != XCB_GE_GENERIC)
        return;
    const auto& key = reinterpret_cast<const xcb_input_key_press_event_t&>(event);
    if (key.extension != m_inputOpcode)
        return;
    const bool down = key.event_type == XCB_INPUT_KEY_PRESS;
    if ((down || key.event_type == XCB_INPUT_KEY_RELEASE) && key.detail == m_taken.key)
        moved(down, key.time, onPressed);
    const auto& raw = reinterpret_cast<const xcb_input_raw_key_press_event_t&>(event);
    const bool rawDown = raw.event_type == XCB_INPUT_RAW_KEY_PRESS;
    if (m_all && (rawDown || raw.event_type == XCB_INPUT_RAW_KEY_RELEASE) && raw.detail < 256)
        receiveAny(static_cast<KeyCode>(raw.detail), rawDown, raw.time, onPressed);
}

void X11GlobalShortcut::receiveAny(
    KeyCode key, bool down, std::uint32_t time, const std::function<void()>& onPressed)
{
    m_all->down[key] = down;
    if (key != m_taken.key)
        return;
    std::uint32_t modifiers = 0;
    for (std::size_t code = 0; code < m_all->down.size(); ++code)
        if (m_all->down[code])
            modifiers |= m_all->map.modifiers(static_cast<KeyCode>(code));
    if (!down || (modifiers & ~m_all->map.locks()) == m_taken.modifiers)
        moved(down, time, onPressed);
}

void X11GlobalShortcut::moved(bool down, std::uint32_t time, const std::function<void()>& onPressed)
{
    if (!down) {
        m_held = false;
        m_releasedAt = time;
        return;
    }
    const bool repeated = std::exchange(m_held, true) || time - m_releasedAt <= repeatInterval;
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
    followFocus(false);
    for (const auto modifiers : m_modifiers)
        xcb_ungrab_key(
            m_connection, taken.key, m_connection.root(), static_cast<std::uint16_t>(modifiers));
    xcb_input_xi_passive_ungrab_device(m_connection, m_connection.root(), taken.key,
        XCB_INPUT_DEVICE_ALL_MASTER, static_cast<std::uint16_t>(m_modifiers.size()),
        XCB_INPUT_GRAB_TYPE_KEYCODE, m_modifiers.data());
    xcb_flush(m_connection);
}

} // namespace vesko
