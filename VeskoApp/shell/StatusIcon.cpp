#include "VeskoApp/shell/StatusIcon.h"

#include <QPainter>
#include <QPixmap>

#include <array>

namespace vesko {

namespace {

constexpr double side = 18; // points
// A panel may be dark on a light desktop, and the other way round, and nobody tells.
constexpr QColor strokes(0, 134, 175);
constexpr std::array<double, 5> resting{ 4, 7, 12, 7, 4 };
constexpr std::array<double, 5> speaking{ 7, 12, 16, 12, 7 };

QPixmap drawn(bool recording, int scale)
{
    const auto pixels = static_cast<int>(side) * scale;
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.setPen(QPen(strokes, 1.6, Qt::SolidLine, Qt::RoundCap));
    const auto& heights = recording ? speaking : resting;
    for (std::size_t bar = 0; bar < heights.size(); ++bar) {
        const double x = side * static_cast<double>(bar + 1) / 6;
        const double half = heights[bar] / 2;
        painter.drawLine(QPointF(x, side / 2 - half), QPointF(x, side / 2 + half));
    }
    return pixmap;
}

} // namespace

QIcon statusIcon(bool recording)
{
    QIcon icon;
    for (const int scale : { 1, 2, 3 })
        icon.addPixmap(drawn(recording, scale));
    return icon;
}

} // namespace vesko
