#pragma once

#include <filesystem>
#include <functional>

namespace vesko {

// Writes the sound of any audio file as a recording of ours is written, for its owner alone, and
// gives its seconds. `progress` is told how far it is, 0 to 1, and says whether to go on; where it
// says no, what is thrown has no meaning. Throws std::runtime_error in words for a terminal: for
// what is no regular file, has no sound that can be decoded, or is longer than an hour; the new
// file may be there then. Blocks; any thread.
double convertAudio(const std::filesystem::path& from, const std::filesystem::path& to,
    const std::function<bool(double)>& progress);

} // namespace vesko
