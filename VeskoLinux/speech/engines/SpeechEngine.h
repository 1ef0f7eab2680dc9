#pragma once

#include "VeskoCore/speech/EngineContract.h"

#include <cstdint>
#include <memory>
#include <span>
#include <stop_token>
#include <string>

namespace vesko {

// A way to turn sound into words that is no part of this process. Holds nothing that changes; any
// thread.
class SpeechEngine {
public:
    struct Wish {
        std::string language; // a tag, or "auto"
        std::string prompt = {}; // words that may well be said; may be empty
    };

    // One recording, piece by piece. One thread; a stop request ends the call that is under way by
    // an exception, and leaves no process behind.
    class Session {
    public:
        virtual ~Session() = default;
        // What is said in a piece of sound, at speechRate. Blocks. Throws EngineFailure.
        virtual EngineAnswer heard(std::span<const std::int16_t> piece) = 0;
    };

    virtual ~SpeechEngine() = default;

    // As it stands in the settings and, with the model, in the records: "whisper.cpp".
    virtual std::string name() const = 0;
    // Whether it could be asked for the language of a tag, or for "auto". Cheap.
    virtual bool speaks(const std::string& language) const = 0;
    // How many seconds of sound it takes at once; a piece is no longer.
    virtual int longestPiece() const = 0;
    // May block until the engine is there. Throws EngineFailure.
    virtual std::unique_ptr<Session> begin(const Wish& wish, std::stop_token stop) const = 0;
};

} // namespace vesko
