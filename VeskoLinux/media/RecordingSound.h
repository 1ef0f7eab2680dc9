#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <stop_token>

namespace vesko {

inline constexpr int soundRate = 16'000; // samples a second

// Gives the sound of a recording, AAC in m4a, piece by piece as one channel of 16-bit samples at
// soundRate; nothing but these formats is ever parsed. What still plays of a recording that was cut
// off is given. Blocks; a stop request ends it. Throws std::runtime_error for a file that is
// absent, no plain file, of no use to the decoder, or longer than an hour.
void decodeRecording(const std::filesystem::path& audio, const std::stop_token& stop,
    const std::function<void(std::span<const std::int16_t>)>& take);

} // namespace vesko
