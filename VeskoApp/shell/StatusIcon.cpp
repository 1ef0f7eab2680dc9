#include "VeskoApp/shell/StatusIcon.h"

#include <QPainter>
#include <QPixmap>

#include <array>

namespace vesko {

namespace {

constexpr double side = 18; // points
constexpr std::array<double, 5> resting{ 4, 7, 12, 7, 4 };
constexpr std::array<double, 5> speaking{ 7, 12, 16, 12, 7 };

QPixmap drawn(bool recording, bool dark, int scale)
{
    const auto pixels = static_cast<int>(side) * scale;
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    const QColor colour
        = dark ? QColor::fromRgbF(0.46F, 0.88F, 0.94F) : QColor::fromRgbF(0, 0.46F, 0.6F);
    painter.setPen(QPen(colour, 1.6, Qt::SolidLine, Qt::RoundCap));
    const auto& heights = recording ? speaking : resting;
    for (std::size_t bar = 0; bar < heights.size(); ++bar) {
        const double x = side * static_cast<double>(bar + 1) / 6;
        const double half = heights[bar] / 2;
        painter.drawLine(QPointF(x, side / 2 - half), QPointF(x, side / 2 + half));
    }
    return pixmap;
}

} // namespace

QIcon statusIcon(bool recording, bool dark)
{
    QIcon icon;
    for (const int scale : { 1, 2, 3 })
        icon.addPixmap(drawn(recording, dark, scale));
    return icon;
}

} // namespace vesko
