#include "VeskoApp/shell/AudioGlyph.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vesko {
namespace {

TEST(AudioGlyph, SilenceIsDotsAndSpeechIsBars)
{
    EXPECT_FALSE(AudioGlyph::showsBars(0.16, true));
    EXPECT_TRUE(AudioGlyph::showsBars(0.161, true));
    EXPECT_FALSE(AudioGlyph::showsBars(1, false));
}

TEST(AudioGlyph, BarsSwingOneAfterTheOtherWithinTheLevel)
{
    for (const double time : { 0.0, 0.3, 17.2 }) {
        const auto bars = AudioGlyph::bars(0.5, time, false);
        const double phases[] = { 0, 0.9, 1.8, 2.7, 3.6 };
        for (std::size_t bar = 0; bar < bars.size(); ++bar)
            EXPECT_NEAR(bars[bar], 0.5 * (std::sin(time * 8 + phases[bar]) * 0.4 + 0.6), 1e-9);
    }
    for (const double bar : AudioGlyph::bars(0.5, 3, true))
        EXPECT_DOUBLE_EQ(bar, 0.5 * 0.65);
}

TEST(AudioGlyph, DotsBreatheOneAfterTheOther)
{
    for (const double time : { 0.0, 0.3, 17.2 }) {
        const auto dots = AudioGlyph::dots(time, false);
        const double phases[] = { 0, -0.8, -1.6 };
        for (std::size_t dot = 0; dot < dots.size(); ++dot)
            EXPECT_NEAR(
                dots[dot], (std::sin(time * 3 + phases[dot]) * 0.5 + 0.5) * 0.55 + 0.35, 1e-9);
    }
    for (const double dot : AudioGlyph::dots(3, true))
        EXPECT_DOUBLE_EQ(dot, 0.8);
}

} // namespace
} // namespace vesko
