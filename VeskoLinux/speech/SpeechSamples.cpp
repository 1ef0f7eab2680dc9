#include "VeskoLinux/speech/SpeechSamples.h"

#include <algorithm>

namespace vesko {

namespace {

std::uint64_t energy(std::span<const std::int16_t> samples)
{
    std::uint64_t sum = 0;
    for (const std::int32_t sample : samples)
        sum += static_cast<std::uint64_t>(sample * sample);
    return sum;
}

} // namespace

std::vector<std::int16_t> speechSamples(
    const std::filesystem::path& audio, const std::stop_token& stop)
{
    std::vector<std::int16_t> samples;
    decodeRecording(audio, stop, [&](std::span<const std::int16_t> piece) {
        samples.insert(samples.end(), piece.begin(), piece.end());
    });
    return samples;
}

namespace {

struct PieceBounds {
    explicit PieceBounds(int seconds)
        : longest(static_cast<std::size_t>(seconds) * speechRate)
        , shortest(longest * 5 / 12)
    {
    }
    std::size_t longest, shortest; // samples
};

// Where to cut sound that is longer than one piece.
std::size_t quietestCut(std::span<const std::int16_t> samples, const PieceBounds& bounds)
{
    constexpr std::size_t moment = speechRate * 3 / 10, step = speechRate / 50;
    // What remains is to be no crumb either.
    const std::size_t end = std::min(bounds.longest, samples.size() - bounds.shortest);
    std::size_t quietest = bounds.shortest;
    std::uint64_t least = UINT64_MAX;
    for (std::size_t at = bounds.shortest; at + moment <= end; at += step)
        if (const auto loudness = energy(samples.subspan(at, moment)); loudness < least) {
            least = loudness;
            quietest = at;
        }
    return quietest + moment / 2;
}

} // namespace

std::vector<std::span<const std::int16_t>> speechPieces(
    std::span<const std::int16_t> samples, int longest)
{
    const PieceBounds bounds(longest);
    std::vector<std::span<const std::int16_t>> pieces;
    while (samples.size() > bounds.longest) {
        const std::size_t cut = quietestCut(samples, bounds);
        pieces.push_back(samples.first(cut));
        samples = samples.subspan(cut);
    }
    if (!samples.empty())
        pieces.push_back(samples);
    return pieces;
}

std::optional<std::size_t> firstSpeechPiece(std::span<const std::int16_t> samples, int longest)
{
    const PieceBounds bounds(longest);
    if (samples.size() < bounds.longest + bounds.shortest)
        return std::nullopt;
    return quietestCut(samples, bounds);
}

} // namespace vesko
