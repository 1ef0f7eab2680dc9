#pragma once

#include "VeskoApp/async/Task.h"

#include <filesystem>

namespace vesko {

// Plays one audio file at a time through the default output. Main thread only.
class AudioPlayer {
public:
    virtual ~AudioPlayer() = default;

    // Starts to play from the beginning, in place of what was playing; gives the length in
    // seconds. Throws std::runtime_error when the file is absent or no audio.
    virtual Task<double> play(std::filesystem::path file) = 0;
    // Ends it, also while it is still starting.
    virtual void stop() = 0;
};

} // namespace vesko
