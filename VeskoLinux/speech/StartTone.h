#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vesko {

// The beginning of a recording, at speechRate, silent where there is nothing but the tone that
// Vesko plays at the start, as the machine's loudspeakers bring it back to its microphone. What is
// said beside it stays.
std::vector<std::int16_t> withoutStartTone(std::span<const std::int16_t> samples);

} // namespace vesko
