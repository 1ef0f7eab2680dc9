#include "VeskoLinux/wayland/VirtualKeyboardPaste.h"

#include <ctime>
#include <sys/mman.h>
#include <unistd.h>
#include <virtual-keyboard-unstable-v1.h>
#include <wayland-client.h>

namespace vesko {

namespace {

std::uint32_t milliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint32_t>(now.tv_sec * 1000 + now.tv_nsec / 1'000'000);
}

} // namespace

bool VirtualKeyboardPaste::offered(const WaylandConnection& connection)
{
    return connection.seat() && connection.offers(zwp_virtual_keyboard_manager_v1_interface);
}

VirtualKeyboardPaste::VirtualKeyboardPaste(
    WaylandConnection& connection, const SessionState& session)
    : m_connection(connection)
    , m_session(session)
    , m_manager(connection.bind<zwp_virtual_keyboard_manager_v1>(
          zwp_virtual_keyboard_manager_v1_interface))
    , m_usersKeymap(connection, [this](const std::string& map) { plugIn(map); })
{
}

VirtualKeyboardPaste::~VirtualKeyboardPaste()
{
    if (m_keyboard)
        zwp_virtual_keyboard_v1_destroy(m_keyboard);
    zwp_virtual_keyboard_manager_v1_destroy(m_manager);
    m_connection.flush();
}

// Ours, too, is told of whenever it was the last one used; its map is the one that is known.
void VirtualKeyboardPaste::plugIn(const std::string& map)
{
    const int file = memfd_create("vesko-keymap", MFD_CLOEXEC);
    const auto length = map.size() + 1; // with the 0 behind it
    if (file < 0 || write(file, map.c_str(), length) != static_cast<ssize_t>(length)) {
        close(file);
        return;
    }
    m_keys.emplace(map);
    if (!m_keyboard)
        m_keyboard = zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(
            m_manager, m_connection.seat());
    zwp_virtual_keyboard_v1_keymap(
        m_keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file, static_cast<std::uint32_t>(length));
    m_connection.flush(); // sends the descriptor too
    close(file);
}

Eventual<std::monostate> VirtualKeyboardPaste::keysReleased()
{
    return Eventual<std::monostate>::of({});
}

std::optional<std::string> VirtualKeyboardPaste::keyboardTaken() const
{
    return m_session.locked() ? std::optional<std::string>("session_locked") : std::nullopt;
}

Eventual<std::optional<std::string>> VirtualKeyboardPaste::send(const FieldElement& element)
{
    using Obstacle = std::optional<std::string>;
    if (const auto taken = keyboardTaken())
        return Eventual<Obstacle>::of(taken);
    auto steps = m_keys ? m_keys->steps(element.isTerminal()) : std::vector<KeyStep>();
    if (steps.empty() || !m_connection.works())
        return Eventual<Obstacle>::of("event_failed");
    const Eventual<Obstacle> answer;
    m_tasks.spawn(type(std::move(steps), answer));
    return answer;
}

Task<> VirtualKeyboardPaste::type(
    std::vector<KeyStep> steps, Eventual<std::optional<std::string>> answer)
{
    for (const KeyStep& step : steps) {
        zwp_virtual_keyboard_v1_key(m_keyboard, milliseconds(), step.key,
            step.down ? WL_KEYBOARD_KEY_STATE_PRESSED : WL_KEYBOARD_KEY_STATE_RELEASED);
        zwp_virtual_keyboard_v1_modifiers(m_keyboard, step.modifiers, 0, 0, step.layout);
    }
    const bool typed = co_await m_connection.done();
    answer.set(typed ? std::nullopt : std::optional<std::string>("event_failed"));
}

} // namespace vesko
