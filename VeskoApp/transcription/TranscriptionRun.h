#pragma once

#include "VeskoApp/async/EventClock.h"
#include "VeskoApp/capture/Capture.h"
#include "VeskoApp/platform/SpeechGate.h"
#include "VeskoApp/transcription/EngineSelection.h"
#include "VeskoApp/transcription/LanguageInquiry.h"
#include "VeskoApp/transcription/OnDeviceTranscriber.h"
#include "VeskoApp/transcription/TranscriptTransform.h"

#include <list>

namespace vesko {

// From a stored recording to a stored text that is delivered: the attempt, recognition on this
// machine or by the service, the user's own spellings, what is made of the text, and the failure,
// which keeps the recording, or the user's own end, which keeps all that there is. One run at a
// time, since the capture's phase goes on meanwhile; but those that wait for the user to unlock the
// secret store do so beside each other, and go on in the order in which they began, before any that
// began later. Main thread.
class TranscriptionRun {
public:
    // What it reaches; must outlive it.
    struct Neighbours {
        EventClock& clock;
        Capture& capture;
        EngineSelection& engines;
        OnDeviceTranscriber& onDevice;
        SpeechGate& gate;
        TranscriptTransform& transform;
        LanguageInquiry& language;
        TextDelivery& delivery;
        LibrarySession& library;
        const Preferences& preferences;
        ServiceKeys& keys;
        Analytics& analytics;
        StatusLine& status;
    };

    TranscriptionRun(const Neighbours& neighbours, OpenRouterClient client);

    // Begins to recognise a recording that is about to be made, or for a service to look whether
    // anybody speaks. Null where only the file can be asked; where the engine of the settings isn't
    // there, the user is told before the words are spoken, and no other hears them.
    std::unique_ptr<Hearing> listen(const CaptureSettings& settings);
    // What the capture has just left.
    void start(CapturedRecording captured);
    // Transcribes a stored recording again, with today's settings. False if something is under way.
    bool retry(const Recording& recording, bool copyWhenDone);

    // The text was to be pasted and could not be: it stands on the clipboard and in this note.
    std::function<void(const Uuid& noteID)> onNotPasted;
    // A run begins; it has failed, and why.
    std::function<void(const Recording&)> onStarted;
    std::function<void(const std::string& message)> onFailed;

private:
    // What a service is asked with, and whether it is asked at all: looked for at the same time.
    struct Service {
        ServiceKey key;
        Eventual<bool> spoken;
    };
    struct Run {
        CapturedRecording captured;
        std::optional<Service> service;
        bool waits = false; // it has its key, and something else is under way
        TaskScope tasks; // last, so that they end before what they use
    };
    void begin(CapturedRecording captured, bool copyWhenDone);
    Task<> transcribe(Run& run, bool copyWhenDone);
    Task<> tellIfMissing();
    Task<> lookForSpeech(Run& run);
    Task<TranscriptResult> attempt(Run& run, Uuid attemptID);
    Task<TranscriptResult> recognize(Run& run, std::filesystem::path audio);
    Task<KeyOutcome> awaited(Run& run, ServiceKey key);
    bool isBehindAnother(const Run& run) const;
    Task<> failed(Uuid recordingID, std::optional<Uuid> attemptID, std::string message);
    void offerToGiveUp(Run& run);
    Task<> giveUp(Uuid recordingID);

    Neighbours m_to;
    OpenRouterClient m_client;
    QObject m_home; // what it hears of

    // Last, so that tasks end before what they use.
    Worker m_network;
    std::list<Run> m_runs; // as they began; those that have ended go when the next one comes
    TaskScope m_tasks;
};

} // namespace vesko
