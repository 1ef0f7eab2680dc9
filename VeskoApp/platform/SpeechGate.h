#pragma once

#include "VeskoApp/async/Task.h"
#include "VeskoApp/platform/Hearing.h"

#include <filesystem>
#include <memory>

namespace vesko {

// Tells recordings in which somebody may have spoken from those in which nobody has. Main thread.
class SpeechGate {
public:
    virtual ~SpeechGate() = default;

    // Looks at a recording that is about to begin while it is made.
    virtual std::unique_ptr<Hearing> hear() = 0;

    // False only for silence and steady noise: a word, however short or low, is let through, and so
    // is a recording that can't be looked at. What a hearing of this very recording has heard needs
    // no second look; null where nobody heard it.
    virtual Task<bool> mayHoldSpeech(std::filesystem::path audio, std::unique_ptr<Hearing> heard)
        = 0;
};

} // namespace vesko
