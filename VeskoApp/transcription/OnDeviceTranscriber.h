#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/async/Task.h"
#include "VeskoApp/platform/OnDeviceRecognizer.h"
#include "VeskoCore/library/TranscriptResult.h"

namespace vesko {

// Turns a stored recording into text on this machine. One recognition at a time; main thread.
class OnDeviceTranscriber {
public:
    OnDeviceTranscriber(OnDeviceRecognizer& recognizer, EventClock& clock);

    // The language is a tag, or "auto" for the system's own. Throws CaptureFailure in the user's
    // words, after 65 seconds at the latest, and VeskoError::emptyTranscript for silence.
    // Destroying the task cancels the recognition.
    Task<TranscriptResult> transcribe(std::filesystem::path audio, std::string language);

private:
    OnDeviceRecognizer& m_recognizer;
    EventClock& m_clock;
};

} // namespace vesko
