#pragma once

#include "VeskoApp/async/TaskScope.h"
#include "VeskoLinux/wayland/WaylandConnection.h"

#include <functional>
#include <string>

struct wl_keyboard;
struct wl_seat;

namespace vesko {

// The map of the keyboard that the user typed on last. Main thread.
class UsersKeymap {
public:
    // The connection outlives this. `onMap` comes from the event loop, first when the user has a
    // keyboard and then with each map that is another one, in the text form of XKB.
    UsersKeymap(WaylandConnection& connection, std::function<void(const std::string&)> onMap);
    UsersKeymap(const UsersKeymap&) = delete;
    UsersKeymap& operator=(const UsersKeymap&) = delete;
    ~UsersKeymap();

private:
    void capabilities(std::uint32_t devices);
    void keymap(std::uint32_t format, int descriptor, std::uint32_t size);
    Task<> supposeUsual();
    void become(std::string map);

    WaylandConnection& m_connection;
    std::function<void(const std::string&)> m_onMap;
    wl_seat* m_seat;
    wl_keyboard* m_keyboard = nullptr;
    std::string m_map;
    TaskScope m_tasks;
};

} // namespace vesko
