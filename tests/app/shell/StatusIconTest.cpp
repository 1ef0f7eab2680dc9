#include "VeskoApp/shell/StatusIcon.h"

#include <QImage>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace vesko {

namespace {

// How tall the five strokes are, in pixels of the plain size: those that are more than half there.
std::array<int, 5> heights(const QIcon& icon)
{
    const QImage image = icon.pixmap(18, 18).toImage();
    std::array<int, 5> found{};
    for (int bar = 0; bar < 5; ++bar)
        for (int y = 0; y < image.height(); ++y)
            found[static_cast<std::size_t>(bar)]
                += image.pixelColor(3 * (bar + 1), y).alpha() > 100 ? 1 : 0;
    return found;
}

TEST(StatusIcon, StandsTallerWhileRecording)
{
    const auto resting = heights(statusIcon(false));
    const auto speaking = heights(statusIcon(true));
    // A round cap adds up to a pixel and a half.
    constexpr std::array<int, 5> restingHeights{ 4, 7, 12, 7, 4 };
    constexpr std::array<int, 5> speakingHeights{ 7, 12, 16, 12, 7 };
    for (std::size_t bar = 0; bar < 5; ++bar) {
        EXPECT_NEAR(resting[bar], restingHeights[bar], 2) << bar;
        EXPECT_NEAR(speaking[bar], speakingHeights[bar], 2) << bar;
        EXPECT_GT(speaking[bar], resting[bar]) << bar;
    }
}

// https://www.w3.org/TR/WCAG21/#dfn-relative-luminance
double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}

TEST(StatusIcon, IsSeenOnLightAndOnDarkPanels)
{
    const double strokes = luminance(statusIcon(true).pixmap(54, 54).toImage().pixelColor(27, 27));
    for (const char* panel : { "#000000", "#1e1e1e", "#2b2b2b", "#eeeeee", "#f6f5f4", "#ffffff" }) {
        const double ground = luminance(QColor(panel));
        EXPECT_GE((std::max(strokes, ground) + 0.05) / (std::min(strokes, ground) + 0.05), 3)
            << panel;
    }
}

} // namespace

} // namespace vesko
