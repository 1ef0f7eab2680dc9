#include "VeskoApp/transcription/TranscriptionRun.h"

#include "VeskoApp/capture/CaptureLog.h"
#include "VeskoApp/status/CaptureFailure.h"
#include "VeskoApp/status/SafeMessage.h"
#include "VeskoApp/transcription/AudioBytes.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/insertion/PersonalDictionary.h"

#include <algorithm>
#include <utility>

namespace vesko {

namespace {

constexpr const char* transcribing = L10N_KEY("Vesko", "Original saved. Transcribing…");
constexpr const char* waitsForKey = L10N_KEY("Vesko",
    "Original saved. Waiting for the key from your password store (keyring), which may be asking "
    "you to unlock it.");
constexpr double keysTake = 1; // seconds at most, where nobody is asked for a password
constexpr const char* onlySaved = L10N_KEY(
    "Vesko", "The chosen engine isn't there. Until you choose another, recordings are only saved.");

} // namespace

TranscriptionRun::TranscriptionRun(const Neighbours& neighbours, OpenRouterClient client)
    : m_to(neighbours)
    , m_client(std::move(client))
{
    QObject::connect(&m_to.engines, &EngineSelection::settled, &m_home, [this] {
        if (m_to.engines.inUse())
            m_to.status.withdraw(onlySaved);
    });
}

std::unique_ptr<Hearing> TranscriptionRun::listen(const CaptureSettings& settings)
{
    if (!settings.onDevice())
        return m_to.gate.hear();
    if (m_to.engines.inUse())
        return m_to.onDevice.listen(settings);
    m_tasks.spawn(tellIfMissing());
    return nullptr;
}

Task<> TranscriptionRun::tellIfMissing()
{
    if (!co_await m_to.engines.isThere() && m_to.capture.phase() != Phase::idle)
        m_to.status.setErrorMessage(onlySaved);
}

void TranscriptionRun::start(CapturedRecording captured)
{
    const bool dictation = captured.dictation;
    begin(std::move(captured), dictation);
}

void TranscriptionRun::begin(CapturedRecording captured, bool copyWhenDone)
{
    m_runs.remove_if([](const Run& run) { return run.tasks.idle(); });
    auto& run = m_runs.emplace_back();
    run.captured = std::move(captured);
    run.tasks.spawn(transcribe(run, copyWhenDone));
}

bool TranscriptionRun::retry(const Recording& recording, bool copyWhenDone)
{
    if (!m_to.capture.beginProcessing())
        return false;
    m_to.status.setErrorMessage({});
    m_to.status.setMessage(transcribing);
    CapturedRecording again;
    again.recording = recording;
    again.settings = CaptureSettings::from(m_to.preferences, m_to.library.contents());
    begin(std::move(again), copyWhenDone);
    return true;
}

Task<> TranscriptionRun::transcribe(Run& run, bool copyWhenDone)
{
    if (!m_to.library.ready()) {
        m_to.capture.endProcessing();
        co_return;
    }
    const Recording& recording = run.captured.recording;
    if (onStarted)
        onStarted(recording);
    offerToGiveUp(run);
    const CaptureSettings& settings = run.captured.settings;
    if (!settings.onDevice()) {
        run.service.emplace(
            m_to.keys.fetch(settings.keySource, run.captured.key), Eventual<bool>());
        run.tasks.spawn(lookForSpeech(run));
    }
    std::optional<Uuid> attemptID;
    TranscriptResult result;
    std::exception_ptr failure;
    try {
        const auto begun = co_await m_to.library.change(
            [id = recording.id,
                provider = std::string(settings.onDevice() ? onDeviceProvider : "OpenRouter"),
                model = settings.onDevice() ? m_to.engines.named() : settings.model,
                cleanupModel = settings.cleanup || settings.translateTo
                    ? std::optional(settings.cleanupModel)
                    : std::nullopt](LibraryStore& store) {
                return store.beginAttempt(id, provider, model, cleanupModel);
            });
        if (!begun)
            std::rethrow_exception(begun.error());
        attemptID = begun->id;
        result = co_await attempt(run, begun->id);
    } catch (...) {
        failure = std::current_exception();
    }
    m_to.capture.offerToGiveUp(nullptr);
    run.service.reset(); // the key with it
    run.captured.key.reset();
    if (failure) {
        co_await failed(recording.id, attemptID, safeMessage(failure));
        co_return;
    }

    bool pasted = true;
    if (copyWhenDone)
        pasted
            = co_await m_to.delivery.deliver(result.text, settings.paste, run.captured.destination);
    else
        m_to.status.setMessage(L10N_KEY("Vesko", "Saved to your note"));
    if (result.warning)
        m_to.status.setErrorMessage(*result.warning);
    qCInfo(captureLog, "transcription_saved");
    m_to.analytics.track(UsageEvent::transcriptionSucceeded);
    m_to.capture.endProcessing();
    const auto& notes = m_to.library.contents().notes;
    const auto note = std::ranges::find_if(notes, [&](const Note& candidate) {
        return std::ranges::find(candidate.recordings, recording.id, &Recording::id)
            != candidate.recordings.end();
    });
    if (!pasted && note != notes.end() && onNotPasted)
        onNotPasted(note->id);
}

Task<> TranscriptionRun::lookForSpeech(Run& run)
{
    const auto spoken = run.service->spoken;
    bool may = true;
    try {
        may = co_await m_to.gate.mayHoldSpeech(
            co_await m_to.library.audioFile(run.captured.recording), std::move(run.captured.heard));
    } catch (const std::exception&) {
        // Whoever needs the file will say what is wrong with it.
    }
    spoken.set(may);
}

// From speech to the final text; once completeAttempt has succeeded the transcript is safe.
Task<TranscriptResult> TranscriptionRun::attempt(Run& run, Uuid attemptID)
{
    const auto& recording = run.captured.recording;
    const auto& settings = run.captured.settings;
    auto audio = co_await m_to.library.audioFile(recording);
    TranscriptResult result = co_await recognize(run, std::move(audio));
    result.text = PersonalDictionary::apply(settings.dictionary, result.text);
    const auto stored
        = co_await m_to.library.change([id = recording.id, attemptID, result](LibraryStore& store) {
              store.completeAttempt(id, attemptID, result);
          });
    if (!stored)
        std::rethrow_exception(stored.error());
    if (settings.language == "auto")
        m_to.language.consider(result.rawText, recording);
    if (settings.cleanup || settings.translateTo) {
        const KeyOutcome loaded = co_await awaited(run, m_to.keys.fetch(settings.keySource));
        m_to.capture.setProcessing(settings.translateTo ? Capture::Processing::translating
                                                        : Capture::Processing::cleaningUp);
        result
            = co_await m_to.transform.apply(recording.id, attemptID, result, settings, loaded.key);
    }
    co_return result;
}

// With a service's key by OpenRouter, else on this machine.
Task<TranscriptResult> TranscriptionRun::recognize(Run& run, std::filesystem::path audio)
{
    const auto& settings = run.captured.settings;
    if (!run.service) {
        if (!co_await m_to.engines.lookAgain())
            throw CaptureFailure(L10N_KEY("Vesko",
                "The speech engine that you chose isn't there. Choose one in Settings. Your audio "
                "is saved."));
        co_return co_await m_to.onDevice.transcribe(std::move(audio), settings,
            std::move(run.captured.heard),
            [this](double done) { m_to.capture.setTranscribed(done); });
    }
    if (!co_await run.service->spoken)
        throw VeskoError(VeskoError::noSpeech);
    const KeyOutcome loaded = co_await awaited(run, run.service->key);
    if (loaded.failure)
        std::rethrow_exception(loaded.failure);
    if (!loaded.key || loaded.key->empty())
        throw VeskoError(VeskoError::missingKey);
    co_return co_await m_network.run([client = m_client, audio = std::move(audio), settings,
                                         key = *loaded.key](const std::stop_token& stop) {
        return client.transcribe(audioBytes(audio), "m4a", settings.model, settings.language, key,
            settings.cloudAllowed, stop);
    });
}

// The user hears what keeps a text back: the question for the password may lie behind a window.
// Until it is answered, the user can dictate on.
Task<KeyOutcome> TranscriptionRun::awaited(Run& run, ServiceKey key)
{
    Timer patience(m_to.clock);
    patience.start(keysTake, [this] {
        m_to.status.setMessage(waitsForKey);
        m_to.capture.endProcessing();
    });
    KeyOutcome outcome = co_await key;
    const bool goesOn = patience.pending();
    if (goesOn && !isBehindAnother(run))
        co_return outcome;
    patience.cancel();
    run.waits = true;
    if (goesOn)
        m_to.capture.endProcessing();
    while (isBehindAnother(run) || !m_to.capture.beginProcessing())
        co_await m_to.capture.nextPhase();
    run.waits = false;
    offerToGiveUp(run);
    m_to.status.setMessage(transcribing);
    co_return outcome;
}

bool TranscriptionRun::isBehindAnother(const Run& run) const
{
    const auto first = std::ranges::find_if(
        m_runs, [&run](const Run& each) { return each.waits || &each == &run; });
    return &*first != &run;
}

Task<> TranscriptionRun::failed(
    Uuid recordingID, std::optional<Uuid> attemptID, std::string message)
{
    m_to.analytics.track(UsageEvent::transcriptionFailed);
    if (attemptID)
        co_await m_to.library.change([recordingID, id = *attemptID, message](LibraryStore& store) {
            store.failAttempt(recordingID, id, message);
        });
    // What failed tells the user more than that it could not be stored.
    m_to.status.setErrorMessage(message);
    m_to.status.setMessage(L10N_KEY("Vesko", "Audio saved. Transcription needs attention."));
    qCCritical(captureLog, "transcription_failed");
    if (onFailed)
        onFailed(message);
    m_to.capture.endProcessing();
}

void TranscriptionRun::offerToGiveUp(Run& run)
{
    m_to.capture.offerToGiveUp([this, &run] {
        const Uuid recordingID = run.captured.recording.id;
        m_runs.remove_if([&run](const Run& each) { return &each == &run; });
        m_tasks.spawn(giveUp(recordingID));
    });
}

// The store comes to this behind all that the run has asked of it: an attempt that hasn't ended
// then never will.
Task<> TranscriptionRun::giveUp(Uuid recordingID)
{
    constexpr auto cancelled
        = L10N_KEY("Vesko", "Transcription cancelled. The recording is saved.");
    const auto isHeard = co_await m_to.library.change([recordingID](LibraryStore& store) {
        std::vector<Uuid> running;
        bool isReady = false;
        for (const auto& note : store.snapshot().notes)
            for (const auto& recording : note.recordings)
                for (const auto& attempt : recording.attempts) {
                    if (recording.id != recordingID)
                        continue;
                    if (attempt.status == AttemptStatus::running)
                        running.push_back(attempt.id);
                    isReady = isReady || attempt.status == AttemptStatus::ready;
                }
        for (const auto& attempt : running)
            store.failAttempt(recordingID, attempt, cancelled);
        return running.empty() && isReady;
    });
    m_to.status.setMessage(isHeard.value_or(false)
            ? L10N_KEY("Vesko", "Cancelled. The text as it was heard is in its note.")
            : cancelled);
    if (!isHeard)
        m_to.status.report(isHeard.error());
    qCInfo(captureLog, "transcription_cancelled");
    m_to.capture.endProcessing();
}

} // namespace vesko
