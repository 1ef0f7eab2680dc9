#pragma once

#include "VeskoApp/platform/SpeechGate.h"

#include <vector>

namespace vesko {

// Finds speech in every recording, or in none.
class FakeSpeechGate final : public SpeechGate {
public:
    bool finds = true;
    std::vector<std::filesystem::path> audio; // that it was asked about

    Task<bool> mayHoldSpeech(std::filesystem::path of) override
    {
        audio.push_back(std::move(of));
        co_return finds;
    }
};

} // namespace vesko
