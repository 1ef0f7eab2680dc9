#include "VeskoLinux/speech/Loudness.h"

#include "VeskoLinux/speech/SpeechSamples.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vesko {

namespace {

constexpr std::size_t moment = speechRate / 50;
constexpr double ordinary = 2000; // of 32767, root mean square of the loud moments
constexpr double quiet = 600;
constexpr double mostGain = 16;
constexpr double highest = 30'000;

// Of the moments that are louder than nine in ten: the vowels, not the clicks.
double loudness(std::span<const std::int16_t> samples)
{
    std::vector<double> moments;
    for (std::size_t at = 0; at + moment <= samples.size(); at += moment) {
        double sum = 0;
        for (const double sample : samples.subspan(at, moment))
            sum += sample * sample;
        moments.push_back(std::sqrt(sum / moment));
    }
    if (moments.empty())
        return 0;
    const auto ninth = moments.begin() + static_cast<std::ptrdiff_t>(moments.size() * 9 / 10);
    std::ranges::nth_element(moments, ninth);
    return *ninth;
}

} // namespace

std::vector<std::int16_t> lifted(std::span<const std::int16_t> samples)
{
    std::vector<std::int16_t> sound(samples.begin(), samples.end());
    const double loud = loudness(samples);
    if (loud == 0 || loud > quiet)
        return sound;
    int peak = 1;
    for (const int sample : samples)
        peak = std::max(peak, std::abs(sample));
    const double gain = std::min({ ordinary / loud, highest / peak, mostGain });
    if (gain > 1)
        for (auto& sample : sound)
            sample = static_cast<std::int16_t>(std::lround(sample * gain));
    return sound;
}

} // namespace vesko
