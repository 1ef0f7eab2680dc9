#include "VeskoLinux/input/X11PasteKeystroke.h"

#include "VeskoLinux/input/XcbXkb.h"

#include <algorithm>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace vesko {

namespace {

constexpr double patience = 0.6; // seconds for the user to let go
constexpr double calm = 0.15; // seconds in which a window manager sees to what was let go
constexpr double lookInterval = 0.005; // seconds
constexpr std::uint32_t letterV = 'v'; // Latin letters are their own symbols

// For this long the server serves nobody else.
class ServerGrab {
public:
    explicit ServerGrab(const X11Connection& connection)
        : m_connection(connection)
    {
        xcb_grab_server(m_connection);
    }
    ServerGrab(const ServerGrab&) = delete;
    ServerGrab& operator=(const ServerGrab&) = delete;
    ~ServerGrab()
    {
        xcb_ungrab_server(m_connection);
        xcb_flush(m_connection);
    }

private:
    const X11Connection& m_connection;
};

} // namespace

X11PasteKeystroke::X11PasteKeystroke(SentKeys& sent, const X11GlobalShortcut& shortcut,
    const SessionState& session, EventClock& clock)
    : m_sent(sent)
    , m_shortcut(shortcut)
    , m_session(session)
    , m_clock(clock)
    , m_keyboard(m_connection)
    , m_look(clock)
{
}

std::vector<KeyCode> X11PasteKeystroke::heldKeys() const
{
    std::vector<KeyCode> held;
    if (!m_connection.works())
        return held;
    const auto keys
        = fromX11(xcb_query_keymap_reply(m_connection, xcb_query_keymap(m_connection), nullptr));
    for (int code = 0; keys && code < 256; ++code)
        if ((keys->keys[code / 8] >> (code % 8)) & 1)
            held.push_back(static_cast<KeyCode>(code));
    return held;
}

Eventual<std::monostate> X11PasteKeystroke::keysReleased()
{
    m_patienceEnds = m_clock.uptime() + patience;
    m_heldAt.reset();
    m_ownReleased = false;
    const Eventual<std::monostate> released;
    m_released = released;
    look();
    return released;
}

void X11PasteKeystroke::look()
{
    const double now = m_clock.uptime();
    const bool held = !heldKeys().empty();
    if (held)
        m_heldAt = now;
    const bool waits
        = held ? now < m_patienceEnds || releaseOwnKeys() : m_heldAt && now < *m_heldAt + calm;
    if (waits) {
        m_look.start(lookInterval, [this] { look(); });
        return;
    }
    m_focus = m_connection.works() ? keyFocus(m_connection) : KeyFocus{};
    if (const auto released = std::exchange(m_released, std::nullopt))
        released->set({});
}

// While its key is down our own shortcut keeps all keys from the field. Once, unless the user holds
// other modifiers too; nobody presses these keys again, and the user's own release finds them
// released.
bool X11PasteKeystroke::releaseOwnKeys()
{
    const auto own = std::exchange(m_ownReleased, true) ? std::nullopt : m_shortcut.held();
    if (!own)
        return false;
    const KeyMap map(m_connection);
    std::vector<KeyCode> ours;
    for (const KeyCode held : heldKeys()) {
        const std::uint32_t modifiers = map.modifiers(held) & ~map.locks();
        if (held == own->key || (modifiers && (modifiers & ~own->modifiers) == 0))
            ours.push_back(held);
        else if (modifiers)
            return false;
    }
    for (const KeyCode key : ours)
        type(key, false);
    return !ours.empty();
}

Eventual<std::optional<std::string>> X11PasteKeystroke::send(const FieldElement& element)
{
    if (m_session.locked())
        return Eventual<Obstacle>::of("session_locked");
    const KeyMap map(m_connection);
    const auto keys = pasteKeys(map, element.isTerminal());
    return Eventual<Obstacle>::of(keys.empty() ? Obstacle("event_failed") : sendNow(map, keys));
}

std::optional<std::string> X11PasteKeystroke::keyboardTaken() const
{
    if (m_session.locked())
        return "session_locked";
    if (m_keyboard.isHeld())
        return "keyboard_grabbed";
    return std::nullopt;
}

// The server sees to nobody else between the first look and the last key.
X11PasteKeystroke::Obstacle X11PasteKeystroke::sendNow(
    const KeyMap& map, const std::vector<KeyCode>& keys)
{
    const ServerGrab alone(m_connection);
    const KeyFocus focus = keyFocus(m_connection);
    if (!focus.settled || focus != m_focus)
        return "app_changed";
    if (slowKeys())
        return "slow_keys";
    const auto held = heldKeys();
    if (std::ranges::find_first_of(held, keys) != held.end())
        return "keys_held";
    if (const auto obstacle = stateObstacle(map.locks()))
        return obstacle;
    if (m_keyboard.isHeld())
        return "keyboard_grabbed";
    bool sent = true;
    for (const KeyCode key : keys)
        sent = sent && type(key, true);
    for (auto key = keys.rbegin(); key != keys.rend(); ++key)
        sent = type(*key, false) && sent;
    return sent ? Obstacle() : "event_failed";
}

X11PasteKeystroke::Obstacle X11PasteKeystroke::stateObstacle(std::uint32_t locks) const
{
    const auto state = fromX11(xcb_xkb_get_state_reply(
        m_connection, xcb_xkb_get_state(m_connection, XCB_XKB_ID_USE_CORE_KBD), nullptr));
    if (!state)
        return "event_failed";
    if (((state->latchedMods | state->lockedMods) & ~locks) || state->latchedGroup)
        return "modifiers_latched";
    if (state->baseMods & ~locks)
        return "keys_held";
    return std::nullopt;
}

bool X11PasteKeystroke::slowKeys() const
{
    const auto controls = fromX11(xcb_xkb_get_controls_reply(
        m_connection, xcb_xkb_get_controls(m_connection, XCB_XKB_ID_USE_CORE_KBD), nullptr));
    return controls && (controls->enabledControls & XCB_XKB_BOOL_CTRL_SLOW_KEYS);
}

// The keys in the order of their presses; none if the keyboard lacks one of them.
std::vector<KeyCode> X11PasteKeystroke::pasteKeys(const KeyMap& map, bool terminal) const
{
    const KeyCode control = map.named("LCTL"), shift = map.named("LFSH"), letter = letterKey(map);
    std::vector<KeyCode> keys{ control, letter };
    if (terminal)
        keys.insert(keys.begin() + 1, shift);
    // Without a Latin layout there is no such letter. Every toolkit knows the older shortcut too.
    else if (!letter)
        keys = { shift, map.named("INS") };
    if (std::ranges::find(keys, KeyCode{ 0 }) != keys.end())
        keys.clear();
    return keys;
}

// Where the letter is in the layout in use, else in another one: programs look for the letter of
// a shortcut in all layouts.
KeyCode X11PasteKeystroke::letterKey(const KeyMap& map) const
{
    const auto state = fromX11(xcb_xkb_get_state_reply(
        m_connection, xcb_xkb_get_state(m_connection, XCB_XKB_ID_USE_CORE_KBD), nullptr));
    if (const KeyCode key = map.giving(letterV, state ? state->group : 0))
        return key;
    return map.giving(letterV);
}

bool X11PasteKeystroke::type(KeyCode key, bool down)
{
    m_sent.add(key, down);
    const auto error = fromX11(xcb_request_check(m_connection,
        xcb_test_fake_input_checked(m_connection, down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, key,
            XCB_CURRENT_TIME, m_connection.root(), 0, 0, 0)));
    return !error && m_connection.works();
}

} // namespace vesko
