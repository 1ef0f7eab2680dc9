#include "VeskoLinux/input/X11KeyMonitor.h"

#include "VeskoLinux/input/XcbXkb.h"

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <algorithm>

namespace vesko {

namespace {

constexpr std::uint32_t fnSymbol = 0x100811D0; // XF86Fn
// Servers inside other servers repeat a held key as release and press within a millisecond.
constexpr std::uint32_t repeatInterval = 12; // milliseconds
// Several changes of the map come together, whenever another keyboard is used.
constexpr double mapInterval = 0.1; // seconds
// The wheel's turns come as buttons that go down and up at once.
constexpr std::uint32_t firstWheelButton = 4, lastWheelButton = 7;

KeyCode keyOf(const KeyMap& map, GestureKey gesture)
{
    switch (gesture) {
    case GestureKey::fn:
        return map.giving(fnSymbol);
    case GestureKey::rightControl:
        return map.named("RCTL");
    case GestureKey::rightAlt:
        return map.named("RALT");
    case GestureKey::menu: {
        const KeyCode key = map.named("COMP");
        return key ? key : map.named("MENU");
    }
    case GestureKey::pause:
        return map.named("PAUS");
    case GestureKey::scrollLock:
        return map.named("SCLK");
    }
    return 0;
}

bool isReturn(const KeyMap& map, KeyCode key)
{
    return key == map.named("RTRN") || key == map.named("KPEN");
}

} // namespace

X11KeyMonitor::X11KeyMonitor(SentKeys& sent, EventClock& clock)
    : m_sent(sent)
    , m_keyboard(m_requests)
    , m_map(m_requests)
    , m_release(clock)
    , m_newMap(clock)
{
    if (!m_requests.works() || !m_events.works())
        return;
    const auto* input = xcb_get_extension_data(m_events, &xcb_input_id);
    const auto version = fromX11(xcb_input_xi_query_version_reply(
        m_events, xcb_input_xi_query_version(m_events, 2, 2), nullptr));
    if (input && input->present && version && version->major_version >= 2)
        m_inputOpcode = input->major_opcode;
    const auto* xkb = xcb_get_extension_data(m_events, &xcb_xkb_id);
    const auto xkbVersion = fromX11(xcb_xkb_use_extension_reply(m_events,
        xcb_xkb_use_extension(m_events, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION), nullptr));
    if (xkb && xkb->present && xkbVersion)
        m_xkbEvent = xkb->first_event;
}

bool X11KeyMonitor::reportsFn() const
{
    return keyOf(m_map, GestureKey::fn) != 0;
}

bool X11KeyMonitor::start(GestureKey key, std::function<void(const KeyEvent&)> onEvent)
{
    stop();
    if (!permitted())
        return false;
    m_gesture = key;
    m_onEvent = std::move(onEvent);
    readMap();
    selectEvents(true);
    // A key that is down already is no press of the user's for us. The answer also says that the
    // watch has begun: the server sees to the requests of one connection in their order.
    if (const auto keys
        = fromX11(xcb_query_keymap_reply(m_events, xcb_query_keymap(m_events), nullptr)))
        for (std::size_t code = 0; code < m_down.size(); ++code)
            m_down[code] = (keys->keys[code / 8] >> (code % 8)) & 1;
    // The state of the first five buttons stands behind the modifiers' bits.
    if (const auto pointer = fromX11(xcb_query_pointer_reply(
            m_events, xcb_query_pointer(m_events, m_events.root()), nullptr)))
        for (std::uint32_t button = 1; button < firstWheelButton; ++button)
            m_buttonsDown[button] = (pointer->mask >> (7 + button)) & 1;
    m_events.listen([this](const xcb_generic_event_t& event) {
        const auto type = event.response_type & 0x7F;
        if (m_xkbEvent && type == m_xkbEvent) {
            m_newMap.start(mapInterval, [this] { readMap(); });
            return;
        }
        if (type != XCB_GE_GENERIC)
            return;
        const auto& raw = reinterpret_cast<const xcb_input_raw_key_press_event_t&>(event);
        if (raw.extension != m_inputOpcode || raw.detail == 0 || raw.detail > 255)
            return;
        const auto code = static_cast<KeyCode>(raw.detail);
        const bool down = raw.event_type == XCB_INPUT_RAW_KEY_PRESS
            || raw.event_type == XCB_INPUT_RAW_BUTTON_PRESS;
        if (raw.event_type == XCB_INPUT_RAW_BUTTON_PRESS
            || raw.event_type == XCB_INPUT_RAW_BUTTON_RELEASE) {
            buttonMoved(code, down);
            return;
        }
        if (m_sent.take(code, down))
            return;
        if (down)
            pressed(code, raw.time);
        else
            released(code, raw.time);
    });
    return true;
}

void X11KeyMonitor::stop()
{
    m_events.stopListening();
    if (m_onEvent)
        selectEvents(false);
    m_onEvent = {};
    m_release.cancel();
    m_newMap.cancel();
    m_releasing.clear();
    m_down.reset();
    m_buttonsDown.reset();
}

void X11KeyMonitor::selectEvents(bool on)
{
    struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } selection{ { XCB_INPUT_DEVICE_ALL_MASTER, 1 },
        on ? static_cast<std::uint32_t>(XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS
                 | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE
                 | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS
                 | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE)
           : 0U };
    xcb_input_xi_select_events(m_events, m_events.root(), 1, &selection.head);
    if (m_xkbEvent) {
        constexpr std::uint16_t maps
            = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
        constexpr std::uint16_t parts = 0xFF;
        xcb_xkb_select_events(m_events, XCB_XKB_ID_USE_CORE_KBD, maps, on ? 0 : maps, on ? maps : 0,
            parts, on ? parts : 0, nullptr);
    }
    // From its answer on, no key is missed.
    const auto answer
        = fromX11(xcb_get_input_focus_reply(m_events, xcb_get_input_focus(m_events), nullptr));
}

void X11KeyMonitor::readMap()
{
    m_map = KeyMap(m_requests);
    m_gestureKey = keyOf(m_map, m_gesture);
}

void X11KeyMonitor::buttonMoved(std::uint32_t button, bool down)
{
    flushReleases();
    const bool wheel = button >= firstWheelButton && button <= lastWheelButton;
    m_buttonsDown[button] = down && !wheel;
    if (down)
        tell(KeyEvent::Kind::buttonDown, 0);
}

// By the server's time: events may have waited for us, however far apart they were.
void X11KeyMonitor::pressed(KeyCode key, std::uint32_t time)
{
    const auto repeating = std::ranges::find(m_releasing, key, &Release::key);
    if (repeating != m_releasing.end() && time - repeating->time <= repeatInterval) {
        m_releasing.erase(repeating);
        return;
    }
    flushReleases();
    if (m_down[key])
        return;
    m_down.set(key);
    const bool flags = key == m_gestureKey || m_map.isModifier(key);
    tell(flags ? KeyEvent::Kind::flagsChanged : KeyEvent::Kind::keyDown, key);
}

void X11KeyMonitor::released(KeyCode key, std::uint32_t time)
{
    if (!m_down[key])
        return;
    m_releasing.push_back({ key, time });
    m_release.start(repeatInterval / 1000.0, [this] { flushReleases(); });
}

void X11KeyMonitor::flushReleases()
{
    m_release.cancel();
    for (const auto releasing = std::exchange(m_releasing, {}); const Release& release : releasing)
        letGo(release.key);
}

void X11KeyMonitor::letGo(KeyCode key)
{
    m_down.reset(key);
    if (key == m_gestureKey || m_map.isModifier(key))
        tell(KeyEvent::Kind::flagsChanged, key);
}

void X11KeyMonitor::tell(KeyEvent::Kind kind, KeyCode key)
{
    KeyEvent event{ .kind = kind, .isGestureKey = key != 0 && key == m_gestureKey };
    event.isReturn = kind == KeyEvent::Kind::keyDown && isReturn(m_map, key);
    event.gestureKeyDown = m_gestureKey != 0 && m_down[m_gestureKey];
    event.otherModifiers = m_buttonsDown.any();
    for (std::size_t code = 0; code < m_down.size(); ++code) {
        if (!m_down[code])
            continue;
        const auto held = static_cast<KeyCode>(code);
        event.shiftDown = event.shiftDown || m_map.isShift(held);
        event.otherModifiers
            = event.otherModifiers || (held != m_gestureKey && m_map.makesCombination(held));
    }
    // The watcher may stop or restart the watch from within.
    if (const auto onEvent = m_onEvent)
        onEvent(event);
}

} // namespace vesko
