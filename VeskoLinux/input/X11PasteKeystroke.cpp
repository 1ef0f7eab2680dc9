#include "VeskoLinux/input/X11PasteKeystroke.h"

#include "VeskoLinux/input/XcbXkb.h"

#include <algorithm>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace vesko {

namespace {

constexpr double patience = 0.6; // seconds for the user to let go
constexpr double lookInterval = 0.005; // seconds
constexpr std::uint32_t letterV = 'v'; // Latin letters are their own symbols

} // namespace

X11PasteKeystroke::X11PasteKeystroke(SentKeys& sent, EventClock& clock)
    : m_sent(sent)
    , m_clock(clock)
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
    const Eventual<std::monostate> released;
    m_released = released;
    look();
    return released;
}

void X11PasteKeystroke::look()
{
    if (!heldKeys().empty() && m_clock.uptime() < m_patienceEnds) {
        m_look.start(lookInterval, [this] { look(); });
        return;
    }
    if (const auto released = std::exchange(m_released, std::nullopt))
        released->set({});
}

Eventual<bool> X11PasteKeystroke::send(const FieldElement& element)
{
    const auto keys = shortcut(element.isTerminal());
    if (keys.empty())
        return Eventual<bool>::of(false);
    // What the user still holds would make another shortcut of ours, and a held shortcut keeps all
    // keys from the field. Nobody presses it again: the user's own release finds it released.
    bool sent = true;
    for (const KeyCode key : heldKeys())
        sent = type(key, false) && sent;
    for (const KeyCode key : keys)
        sent = type(key, true) && sent;
    for (auto key = keys.rbegin(); key != keys.rend(); ++key)
        sent = type(*key, false) && sent;
    return Eventual<bool>::of(sent);
}

// The keys in the order of their presses; none if the keyboard lacks one of them.
std::vector<KeyCode> X11PasteKeystroke::shortcut(bool terminal) const
{
    const KeyMap map(m_connection);
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
