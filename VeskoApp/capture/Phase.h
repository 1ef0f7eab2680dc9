#pragma once

#include <cstdint>

namespace vesko {

// What the controller is doing with a capture.
enum class Phase : std::uint8_t { idle, preparing, recording, processing };

} // namespace vesko
