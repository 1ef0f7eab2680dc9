#pragma once

#include <cstddef>
#include <filesystem>
#include <stop_token>
#include <vector>

namespace vesko {

// How loud a recording is at its loudest in each of so many equal parts, 0 to 1. Blocks; as little
// is kept of the sound as that needs. Throws as decodeRecording does; a stop request ends it with
// what has come so far.
std::vector<float> loudestParts(
    const std::filesystem::path& audio, std::size_t parts, const std::stop_token& stop);

} // namespace vesko
