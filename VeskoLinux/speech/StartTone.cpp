#include "VeskoLinux/speech/StartTone.h"

#include "VeskoLinux/speech/SpeechSamples.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>

namespace vesko {

namespace {

constexpr std::size_t moment = speechRate / 50;
// It comes within this time of the press.
constexpr std::size_t latest = std::size_t{ speechRate } * 3 / 2;
// CaptureStart.wav, as it is played: a bell on G, with two overtones.
constexpr std::array bell{ 784.0, 1568.0, 2352.0 }; // hertz
// Of its power a moment of the tone has 0.85 and more at these frequencies, one of speech 0.46 and
// less.
constexpr double pure = 0.7;
constexpr int shortest = 3; // moments

bool isBell(std::span<const std::int16_t> samples)
{
    double power = 0;
    std::array<std::complex<double>, bell.size()> found{};
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double sample = samples[i];
        power += sample * sample;
        for (std::size_t k = 0; k < bell.size(); ++k) {
            const double turn = 2 * std::numbers::pi * bell[k] / speechRate;
            found[k] += sample * std::polar(1.0, turn * static_cast<double>(i));
        }
    }
    double ofBell = 0;
    for (const auto& part : found)
        ofBell += 2 * std::norm(part) / static_cast<double>(samples.size());
    return power > 0 && ofBell > pure * power;
}

} // namespace

std::vector<std::int16_t> withoutStartTone(std::span<const std::int16_t> samples)
{
    std::vector<std::int16_t> rest(samples.begin(), samples.end());
    const std::size_t moments = std::min(samples.size(), latest) / moment;
    std::size_t since = 0;
    for (std::size_t at = 0; at <= moments; ++at) {
        if (at < moments && isBell(samples.subspan(at * moment, moment)))
            continue;
        if (at >= since + shortest) {
            // Its first and its last moment are not all bell.
            const std::size_t begin = (since > 0 ? since - 1 : 0) * moment;
            const std::size_t end = std::min((at + 1) * moment, rest.size());
            std::fill(rest.begin() + static_cast<std::ptrdiff_t>(begin),
                rest.begin() + static_cast<std::ptrdiff_t>(end), std::int16_t{ 0 });
        }
        since = at + 1;
    }
    return rest;
}

} // namespace vesko
