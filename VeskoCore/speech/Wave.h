#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace vesko {

// The samples as a WAV file: 16-bit PCM, one channel.
std::string wave(std::span<const std::int16_t> samples, int rate);

} // namespace vesko
