#pragma once

#include "VeskoLinux/input/X11Connection.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vesko {

// Asks the X server which window is active: by the window manager's account, and where there is
// none, or one that tells of none, the one with the input focus. Each question is a few round trips
// to the server, some tens of microseconds. One thread.
class ActiveWindow {
public:
    ActiveWindow();

    // The process that owns the active window, as the X server sees it, whatever numbers count
    // where the process lives; by the window's own account only where the server doesn't know.
    // Absent without an X server or an active window.
    std::optional<std::int32_t> process() const;
    // What stands in the active window's frame; empty where nothing does.
    std::string title() const;

private:
    std::optional<std::uint32_t> active() const;
    std::optional<std::uint32_t> focused() const;
    bool has(std::uint32_t window, std::uint32_t name) const;
    std::optional<std::int32_t> ownerOf(std::uint32_t window) const;
    std::optional<std::uint32_t> property(
        std::uint32_t window, std::uint32_t name, std::uint32_t type) const;

    X11Connection m_connection;
    bool m_knowsClients = false; // the server can tell the process behind a window
    std::uint32_t m_processId = 0;
    std::uint32_t m_name = 0;
    std::uint32_t m_utf8 = 0;
};

} // namespace vesko
