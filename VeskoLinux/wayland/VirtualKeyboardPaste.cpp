#include "VeskoLinux/wayland/VirtualKeyboardPaste.h"

#include <ctime>
#include <sys/mman.h>
#include <unistd.h>
#include <virtual-keyboard-unstable-v1.h>
#include <wayland-client.h>

namespace vesko {

namespace {

constexpr std::uint32_t longestMap = 4 << 20; // bytes; real ones have some 60,000

// A copy that belongs to this program, since compositors may share theirs with all of them.
std::string read(int descriptor, std::uint32_t size)
{
    if (size == 0 || size > longestMap)
        return {};
    void* const shared = mmap(nullptr, size, PROT_READ, MAP_PRIVATE, descriptor, 0);
    if (shared == MAP_FAILED)
        return {};
    std::string map(static_cast<const char*>(shared), size);
    munmap(shared, size);
    map.resize(map.find_last_not_of('\0') + 1);
    return map;
}

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

VirtualKeyboardPaste::VirtualKeyboardPaste(WaylandConnection& connection)
    : m_connection(connection)
    , m_manager(connection.bind<zwp_virtual_keyboard_manager_v1>(
          zwp_virtual_keyboard_manager_v1_interface))
    , m_seat(connection.bind<wl_seat>(wl_seat_interface))
{
    static constexpr wl_seat_listener listener{
        [](void* self, wl_seat*, std::uint32_t devices) {
            static_cast<VirtualKeyboardPaste*>(self)->capabilities(devices);
        },
        [](void*, wl_seat*, const char*) {},
    };
    wl_seat_add_listener(m_seat, &listener, this);
    m_connection.flush();
}

VirtualKeyboardPaste::~VirtualKeyboardPaste()
{
    if (m_keyboard)
        zwp_virtual_keyboard_v1_destroy(m_keyboard);
    if (m_usersKeyboard)
        wl_keyboard_destroy(m_usersKeyboard);
    wl_seat_destroy(m_seat);
    zwp_virtual_keyboard_manager_v1_destroy(m_manager);
    m_connection.flush();
}

// Asked for once: it goes on telling of every keyboard that is used later.
void VirtualKeyboardPaste::capabilities(std::uint32_t devices)
{
    if (m_usersKeyboard || !(devices & WL_SEAT_CAPABILITY_KEYBOARD))
        return;
    m_usersKeyboard = wl_seat_get_keyboard(m_seat);
    static constexpr wl_keyboard_listener listener{
        .keymap =
            [](void* self, wl_keyboard*, std::uint32_t format, std::int32_t descriptor,
                std::uint32_t size) {
                static_cast<VirtualKeyboardPaste*>(self)->keymap(format, descriptor, size);
            },
        .enter = [](void*, wl_keyboard*, std::uint32_t, wl_surface*, wl_array*) {},
        .leave = [](void*, wl_keyboard*, std::uint32_t, wl_surface*) {},
        .key
        = [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
        .modifiers = [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t,
                         std::uint32_t, std::uint32_t) {},
        .repeat_info = [](void*, wl_keyboard*, std::int32_t, std::int32_t) {},
    };
    wl_keyboard_add_listener(m_usersKeyboard, &listener, this);
    m_tasks.spawn(plugInAnyhow());
}

void VirtualKeyboardPaste::keymap(std::uint32_t format, int descriptor, std::uint32_t size)
{
    std::string map = format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 ? read(descriptor, size) : "";
    close(descriptor);
    // Ours, too, is told of whenever it was the last one used.
    if (map != m_map)
        plugIn(std::move(map));
}

// Of a keyboard that nobody has used yet, no map is told.
Task<> VirtualKeyboardPaste::plugInAnyhow()
{
    if (co_await m_connection.done() && !m_keyboard)
        plugIn(PasteKeys::usualMap());
}

void VirtualKeyboardPaste::plugIn(std::string map)
{
    if (map.empty())
        return;
    const int file = memfd_create("vesko-keymap", MFD_CLOEXEC);
    const auto length = map.size() + 1; // with the 0 behind it
    if (file < 0 || write(file, map.c_str(), length) != static_cast<ssize_t>(length)) {
        close(file);
        return;
    }
    m_map = std::move(map);
    m_keys.emplace(m_map);
    if (!m_keyboard)
        m_keyboard = zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(m_manager, m_seat);
    zwp_virtual_keyboard_v1_keymap(
        m_keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, file, static_cast<std::uint32_t>(length));
    m_connection.flush(); // sends the descriptor too
    close(file);
}

Eventual<std::monostate> VirtualKeyboardPaste::keysReleased()
{
    return Eventual<std::monostate>::of({});
}

Eventual<bool> VirtualKeyboardPaste::send(const FieldElement& element)
{
    const auto steps = m_keys ? m_keys->steps(element.isTerminal()) : std::vector<KeyStep>();
    if (steps.empty() || !m_connection.works())
        return Eventual<bool>::of(false);
    for (const KeyStep& step : steps) {
        zwp_virtual_keyboard_v1_key(m_keyboard, milliseconds(), step.key,
            step.down ? WL_KEYBOARD_KEY_STATE_PRESSED : WL_KEYBOARD_KEY_STATE_RELEASED);
        zwp_virtual_keyboard_v1_modifiers(m_keyboard, step.modifiers, 0, 0, step.layout);
    }
    return m_connection.done();
}

} // namespace vesko
