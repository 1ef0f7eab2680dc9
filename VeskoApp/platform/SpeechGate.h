#pragma once

#include "VeskoApp/async/Task.h"

#include <filesystem>

namespace vesko {

// Tells recordings in which somebody may have spoken from those in which nobody has. Main thread.
class SpeechGate {
public:
    virtual ~SpeechGate() = default;

    // False only for silence and steady noise: a word, however short or low, is let through, and so
    // is a recording that can't be looked at.
    virtual Task<bool> mayHoldSpeech(std::filesystem::path audio) = 0;
};

} // namespace vesko
