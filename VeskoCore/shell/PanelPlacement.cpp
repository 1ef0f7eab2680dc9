#include "VeskoCore/shell/PanelPlacement.h"

#include <algorithm>

namespace vesko {

std::optional<ScreenPoint> PanelPlacement::restore(const std::optional<ScreenPoint>& saved,
    const ScreenSize& size, std::span<const ScreenArea> screens)
{
    const auto holds = [&](const ScreenArea& screen) {
        return saved->x >= screen.origin.x && saved->y >= screen.origin.y
            && saved->x + size.width <= screen.origin.x + screen.size.width
            && saved->y + size.height <= screen.origin.y + screen.size.height;
    };
    if (!saved || std::ranges::none_of(screens, holds))
        return std::nullopt;
    return saved;
}

} // namespace vesko
