#include "VeskoLinux/speech/VoiceSpeechGate.h"

#include "VeskoLinux/speech/SpeechSamples.h"
#include "VeskoLinux/speech/VoiceActivity.h"

#include <stdexcept>

namespace vesko {

Task<bool> VoiceSpeechGate::mayHoldSpeech(std::filesystem::path audio)
{
    co_return co_await m_worker.run([audio = std::move(audio)](const std::stop_token& stop) {
        try {
            return vesko::mayHoldSpeech(speechSamples(audio, stop));
        } catch (const std::runtime_error&) {
            return true; // whoever is to recognise it knows better what is wrong
        }
    });
}

} // namespace vesko
