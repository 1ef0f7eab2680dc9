#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/async/Task.h"
#include "VeskoApp/capture/CaptureSettings.h"
#include "VeskoApp/platform/OnDeviceRecognizer.h"
#include "VeskoCore/library/TranscriptResult.h"

#include <functional>

namespace vesko {

// Turns a recording into text on this machine. One recognition at a time; main thread.
class OnDeviceTranscriber {
public:
    OnDeviceTranscriber(OnDeviceRecognizer& recognizer, EventClock& clock);

    // Begins to recognise a recording that is about to be made; null if that can't be done, which
    // transcribe() will say.
    std::unique_ptr<Hearing> listen(const CaptureSettings& settings);
    // The text of a recording that stands. The language of the settings is a tag, or "auto", which
    // is the system's own where the recogniser can't tell. Throws CaptureFailure in the user's
    // words, after 65 seconds at the latest, and VeskoError::noSpeech for silence. Destroying the
    // task cancels the recognition. Of a long one, the share that is done is told now and then.
    Task<TranscriptResult> transcribe(std::filesystem::path audio, CaptureSettings settings,
        std::unique_ptr<Hearing> heard = nullptr, std::function<void(double)> progress = {});

private:
    std::string languageOf(const CaptureSettings& settings) const;

    OnDeviceRecognizer& m_recognizer;
    EventClock& m_clock;
};

} // namespace vesko
