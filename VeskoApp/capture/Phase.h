#pragma once

#include <cstdint>

namespace vesko {

// How far a capture is, or what follows it.
enum class Phase : std::uint8_t { idle, preparing, recording, processing };

} // namespace vesko
