#pragma once

#include <optional>
#include <span>

namespace vesko {

struct ScreenPoint {
    double x = 0;
    double y = 0;

    bool operator==(const ScreenPoint&) const = default;
};

struct ScreenSize {
    double width = 0;
    double height = 0;
};

struct ScreenArea {
    ScreenPoint origin;
    ScreenSize size;
};

// Where a window that remembers its place may come back. Pure.
struct PanelPlacement {
    // The saved origin if one of the screens holds a window of that size there whole, edges
    // included; nothing if none does, so that an unplugged screen hides no window.
    static std::optional<ScreenPoint> restore(const std::optional<ScreenPoint>& saved,
        const ScreenSize& size, std::span<const ScreenArea> screens);
};

} // namespace vesko
