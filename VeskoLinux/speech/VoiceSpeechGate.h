#pragma once

#include "VeskoApp/async/Worker.h"
#include "VeskoApp/platform/SpeechGate.h"

namespace vesko {

// Decodes the recording and looks for a voice in it, on a thread of its own.
class VoiceSpeechGate final : public SpeechGate {
public:
    Task<bool> mayHoldSpeech(std::filesystem::path audio) override;

private:
    Worker m_worker;
};

} // namespace vesko
