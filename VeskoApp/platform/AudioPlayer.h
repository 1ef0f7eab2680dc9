#pragma once

#include "VeskoApp/async/Task.h"

#include <cstddef>
#include <filesystem>
#include <vector>

namespace vesko {

// Plays one audio file at a time through the default output. Main thread only.
class AudioPlayer {
public:
    virtual ~AudioPlayer() = default;

    // Starts to play from the beginning, in place of what was playing; gives the length in
    // seconds. Throws std::runtime_error when the file is absent or no audio.
    virtual Task<double> play(std::filesystem::path file) = 0;
    // What plays goes on from that second, at so many times its speed, 0.5 to 2, its pitch kept.
    virtual void seek(double seconds, double rate) = 0;
    // Ends it, also while it is still starting.
    virtual void stop() = 0;
    // How loud the file is at its loudest in each of so many equal parts, 0 to 1. Takes as long as
    // decoding it; asking again ends what is asked for. Throws std::runtime_error as play does.
    virtual Task<std::vector<float>> wave(std::filesystem::path file, std::size_t parts) = 0;
};

} // namespace vesko
