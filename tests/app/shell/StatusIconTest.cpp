#include "VeskoApp/shell/StatusIcon.h"

#include <QImage>

#include <gtest/gtest.h>

#include <array>

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
    const auto resting = heights(statusIcon(false, false));
    const auto speaking = heights(statusIcon(true, false));
    // A round cap adds up to a pixel and a half.
    constexpr std::array<int, 5> restingHeights{ 4, 7, 12, 7, 4 };
    constexpr std::array<int, 5> speakingHeights{ 7, 12, 16, 12, 7 };
    for (std::size_t bar = 0; bar < 5; ++bar) {
        EXPECT_NEAR(resting[bar], restingHeights[bar], 2) << bar;
        EXPECT_NEAR(speaking[bar], speakingHeights[bar], 2) << bar;
        EXPECT_GT(speaking[bar], resting[bar]) << bar;
    }
}

TEST(StatusIcon, IsLightOnADarkDesktop)
{
    const auto strokes = [](bool dark) {
        const QColor colour = statusIcon(true, dark).pixmap(54, 54).toImage().pixelColor(27, 27);
        return std::array{ colour.red(), colour.green(), colour.blue() };
    };
    EXPECT_EQ(strokes(true), (std::array{ 117, 224, 240 }));
    EXPECT_EQ(strokes(false), (std::array{ 0, 117, 153 }));
}

} // namespace

} // namespace vesko
