#pragma once

#include "VeskoApp/async/Worker.h"
#include "VeskoApp/platform/SpeechGate.h"

namespace vesko {

// Looks for a voice on a thread of its own: in what was heard of the recording's first minute, and
// where that doesn't tell, in the file, which it decodes.
class VoiceSpeechGate final : public SpeechGate {
public:
    std::unique_ptr<Hearing> hear() override;
    Task<bool> mayHoldSpeech(std::filesystem::path audio, std::unique_ptr<Hearing> heard) override;

private:
    class Listening;

    Worker m_worker;
};

} // namespace vesko
