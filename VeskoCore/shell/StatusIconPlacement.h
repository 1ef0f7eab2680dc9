#pragma once

#include <optional>

namespace vesko {

// Whether the status icon can be seen where the desktop put it. Pure.
struct StatusIconPlacement {
    // A stretch of the panel, in the coordinates of the screen.
    struct Span {
        double lower = 0;
        double upper = 0;
    };

    // The icon is hidden if its window is not visible, or if it reaches under the notch; only
    // touching the notch hides nothing.
    static bool iconHidden(
        double itemMinX, double itemMaxX, const std::optional<Span>& notch, bool visible);
};

} // namespace vesko
