#include "VeskoLinux/wayland/UsersKeymap.h"

#include "VeskoLinux/wayland/PasteKeys.h"

#include <sys/mman.h>
#include <unistd.h>
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

} // namespace

UsersKeymap::UsersKeymap(
    WaylandConnection& connection, std::function<void(const std::string&)> onMap)
    : m_connection(connection)
    , m_onMap(std::move(onMap))
    , m_seat(connection.bind<wl_seat>(wl_seat_interface))
{
    static constexpr wl_seat_listener listener{
        [](void* self, wl_seat*, std::uint32_t devices) {
            static_cast<UsersKeymap*>(self)->capabilities(devices);
        },
        [](void*, wl_seat*, const char*) {},
    };
    if (m_seat)
        wl_seat_add_listener(m_seat, &listener, this);
    m_connection.flush();
}

UsersKeymap::~UsersKeymap()
{
    if (m_keyboard)
        wl_keyboard_destroy(m_keyboard);
    if (m_seat)
        wl_seat_destroy(m_seat);
    m_connection.flush();
}

// Asked for once: it goes on telling of every keyboard that is used later.
void UsersKeymap::capabilities(std::uint32_t devices)
{
    if (m_keyboard || !(devices & WL_SEAT_CAPABILITY_KEYBOARD))
        return;
    m_keyboard = wl_seat_get_keyboard(m_seat);
    static constexpr wl_keyboard_listener listener{
        .keymap =
            [](void* self, wl_keyboard*, std::uint32_t format, std::int32_t descriptor,
                std::uint32_t size) {
                static_cast<UsersKeymap*>(self)->keymap(format, descriptor, size);
            },
        .enter = [](void*, wl_keyboard*, std::uint32_t, wl_surface*, wl_array*) {},
        .leave = [](void*, wl_keyboard*, std::uint32_t, wl_surface*) {},
        .key
        = [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t, std::uint32_t) {},
        .modifiers = [](void*, wl_keyboard*, std::uint32_t, std::uint32_t, std::uint32_t,
                         std::uint32_t, std::uint32_t) {},
        .repeat_info = [](void*, wl_keyboard*, std::int32_t, std::int32_t) {},
    };
    wl_keyboard_add_listener(m_keyboard, &listener, this);
    m_tasks.spawn(supposeUsual());
}

void UsersKeymap::keymap(std::uint32_t format, int descriptor, std::uint32_t size)
{
    std::string map = format == WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1 ? read(descriptor, size) : "";
    close(descriptor);
    become(std::move(map));
}

// Of a keyboard that nobody has used yet, no map is told.
Task<> UsersKeymap::supposeUsual()
{
    if (co_await m_connection.done() && m_map.empty())
        become(PasteKeys::usualMap());
}

void UsersKeymap::become(std::string map)
{
    if (map.empty() || map == m_map)
        return;
    m_map = std::move(map);
    m_onMap(m_map);
}

} // namespace vesko
