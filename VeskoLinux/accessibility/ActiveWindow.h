#pragma once

#include <cstdint>
#include <optional>

struct xcb_connection_t;

namespace vesko {

// Asks the X server which window is active. Each question is two round trips to the server, some
// tens of microseconds. One thread.
class ActiveWindow {
public:
    ActiveWindow();
    ActiveWindow(const ActiveWindow&) = delete;
    ActiveWindow& operator=(const ActiveWindow&) = delete;
    ~ActiveWindow();

    // The process that owns the active window, by its own account. Absent without an X server, a
    // window manager or an active window.
    std::optional<std::int32_t> process() const;

private:
    std::optional<std::uint32_t> property(
        std::uint32_t window, std::uint32_t name, std::uint32_t type) const;

    xcb_connection_t* m_connection;
    std::uint32_t m_root = 0;
    std::uint32_t m_activeWindow = 0;
    std::uint32_t m_processId = 0;
};

} // namespace vesko
