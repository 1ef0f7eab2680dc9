#include "VeskoLinux/audio/Wave.h"

#include "VeskoLinux/media/RecordingSound.h"

#include <algorithm>
#include <cstdlib>

namespace vesko {

namespace {

constexpr std::size_t moment = soundRate / 50; // samples, of which the loudest is kept
constexpr float fullScale = 32768;

} // namespace

std::vector<float> loudestParts(
    const std::filesystem::path& audio, std::size_t parts, const std::stop_token& stop)
{
    // How long the sound is, is known at its end.
    std::vector<int> moments;
    std::size_t count = 0;
    decodeRecording(audio, stop, [&](std::span<const std::int16_t> samples) {
        for (const int sample : samples) {
            if (count++ % moment == 0)
                moments.push_back(0);
            moments.back() = std::max(moments.back(), std::abs(sample));
        }
    });
    std::vector<float> loudest(parts, 0.0F);
    for (std::size_t index = 0; index < moments.size(); ++index) {
        auto& part = loudest[index * parts / moments.size()];
        part = std::max(part, static_cast<float>(moments[index]) / fullScale);
    }
    return loudest;
}

} // namespace vesko
