#include "VeskoLinux/speech/Loudness.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

namespace vesko {
namespace {

using testing::AllOf;
using testing::Ge;
using testing::Le;

std::vector<std::int16_t> tone(double amplitude)
{
    std::vector<std::int16_t> samples;
    for (int i = 0; i < 32'000; ++i)
        samples.push_back(static_cast<std::int16_t>(amplitude * std::sin(i * 0.1)));
    return samples;
}

int peak(const std::vector<std::int16_t>& samples)
{
    return std::ranges::max(samples);
}

TEST(Lifted, soundOfOrdinaryLevelStaysAsItIs)
{
    for (const double amplitude : { 1000.0, 5000.0, 32000.0 })
        EXPECT_EQ(lifted(tone(amplitude)), tone(amplitude)) << amplitude;
}

TEST(Lifted, quietSoundComesToTheLevelOfSpeech)
{
    for (const double amplitude : { 200.0, 500.0, 800.0 })
        EXPECT_THAT(peak(lifted(tone(amplitude))), AllOf(Ge(2700), Le(2900))) << amplitude;
}

TEST(Lifted, nearSilenceIsLiftedNoFurtherThanSixteenfold)
{
    EXPECT_THAT(peak(lifted(tone(10))), AllOf(Ge(140), Le(160)));
    EXPECT_EQ(lifted(std::vector<std::int16_t>(1000, 0)), std::vector<std::int16_t>(1000, 0));
    EXPECT_EQ(lifted({}), std::vector<std::int16_t>());
}

TEST(Lifted, noClickIsClipped)
{
    auto samples = tone(100);
    samples[5000] = 20'000;
    samples[7000] = -32'768;
    const auto louder = lifted(samples);
    EXPECT_EQ(louder, samples) << "there is no room above";
    samples[7000] = 0;
    EXPECT_EQ(peak(lifted(samples)), 30'000);
}

} // namespace
} // namespace vesko
