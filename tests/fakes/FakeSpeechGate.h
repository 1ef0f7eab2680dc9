#pragma once

#include "VeskoApp/platform/SpeechGate.h"
#include "tests/fakes/DeafHearing.h"

#include <vector>

namespace vesko {

// Finds speech in every recording, or in none.
class FakeSpeechGate final : public SpeechGate {
public:
    bool finds = true;
    std::vector<std::filesystem::path> audio; // that it was asked about

    std::vector<bool> wasHeard; // of each, whether it was heard while it was made
    int hearings = 0; // that are alive

    std::unique_ptr<Hearing> hear() override { return std::make_unique<DeafHearing>(hearings); }
    Task<bool> mayHoldSpeech(std::filesystem::path of, std::unique_ptr<Hearing> heard) override
    {
        audio.push_back(std::move(of));
        wasHeard.push_back(heard != nullptr);
        co_return finds;
    }
};

} // namespace vesko
