#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vesko {

// The sound as an engine is to hear it: what a quiet microphone took is lifted to the level of
// ordinary speech, as far as nothing is clipped and at most sixteenfold; other sound stays as it
// is.
std::vector<std::int16_t> lifted(std::span<const std::int16_t> samples);

} // namespace vesko
