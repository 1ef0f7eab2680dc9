#include "VeskoCore/speech/Wave.h"

namespace vesko {

namespace {

void append(std::string& bytes, std::uint32_t number, int size)
{
    for (int i = 0; i < size; ++i)
        bytes += static_cast<char>(number >> (8 * i));
}

} // namespace

std::string wave(std::span<const std::int16_t> samples, int rate)
{
    constexpr std::uint32_t headSize = 36, formatSize = 16, sampleSize = 2;
    const auto size = static_cast<std::uint32_t>(samples.size() * sampleSize);
    const auto perSecond = static_cast<std::uint32_t>(rate);
    std::string bytes;
    bytes.reserve(headSize + 8 + size);
    bytes += "RIFF";
    append(bytes, headSize + size, 4);
    bytes += "WAVE";
    bytes += "fmt ";
    append(bytes, formatSize, 4);
    append(bytes, 1, 2); // PCM
    append(bytes, 1, 2); // channels
    append(bytes, perSecond, 4);
    append(bytes, perSecond * sampleSize, 4);
    append(bytes, sampleSize, 2);
    append(bytes, sampleSize * 8, 2);
    bytes += "data";
    append(bytes, size, 4);
    for (const auto sample : samples)
        append(bytes, static_cast<std::uint16_t>(sample), sampleSize);
    return bytes;
}

} // namespace vesko
