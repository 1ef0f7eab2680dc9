#pragma once

#include <cstdint>
#include <span>

namespace vesko {

// Who hears a recording while it is made: the very sound that its file will give, as one channel of
// 16,000 samples a second. Called from a thread of the recorder's, which it must not keep waiting.
class SoundListener {
public:
    virtual ~SoundListener() = default;

    virtual void take(std::span<const std::int16_t> samples) = 0;
    // Comes once, last; `whole` unless some of the sound could not be given.
    virtual void end(bool whole) = 0;
};

} // namespace vesko
