#include "VeskoApp/shell/Screens.h"

#include <QGuiApplication>
#include <QScreen>

namespace vesko {

std::vector<ScreenArea> screens()
{
    std::vector<ScreenArea> areas;
    for (const auto* screen : QGuiApplication::screens()) {
        const QRectF free = screen->availableGeometry();
        areas.push_back({ { free.x(), free.y() }, { free.width(), free.height() } });
    }
    return areas;
}

} // namespace vesko
