#include "VeskoApp/capture/AppModel.h"

#include "VeskoApp/capture/CaptureLog.h"
#include "VeskoApp/capture/SafeMessage.h"
#include "VeskoCore/base/Localized.h"

#include <algorithm>
#include <utility>

namespace vesko {

namespace {

constexpr double meterInterval = 0.1; // seconds
constexpr double longestRecording = 300; // seconds

} // namespace

void AppModel::toggleDictation()
{
    if (m_phase == Phase::recording) {
        stopRecording();
        return;
    }
    if (m_phase != Phase::idle)
        return;
    if (!m_accounts.admits()) {
        if (onAccountNeeded)
            onAccountNeeded();
        return;
    }
    m_tasks.spawn(startRecording(std::nullopt, true, captureField(), false));
}

void AppModel::recordNote(bool append)
{
    if (m_phase == Phase::recording) {
        stopRecording();
        return;
    }
    if (m_phase != Phase::idle)
        return;
    m_tasks.spawn(
        startRecording(append ? m_selectedNoteID : std::nullopt, false, std::nullopt, false));
}

// Which field it is, is settled here and now; everything that follows can move the focus or take
// time. Only the reading of its text goes on beside the start of the microphone.
AppModel::Destination AppModel::captureField()
{
    const Destination destination;
    m_tasks.spawn(readField(destination));
    return destination;
}

Task<> AppModel::readField(Destination destination)
{
    const Date at = m_platform.clock.now();
    const FieldReading reading = co_await m_platform.focusedField.read(std::nullopt);
    destination.set(FocusDestination::from(reading, at));
}

Task<> AppModel::startRecording(
    std::optional<Uuid> noteID, bool dictation, std::optional<Destination> destination, bool fromFn)
{
    if (m_phase != Phase::idle || !m_libraryReady)
        co_return;
    setPhase(Phase::preparing);
    setErrorMessage({});
    m_insertionReview.stop();
    if (!fromFn) {
        clearFnGesture();
    } else if (m_fnDiscardPending) {
        clearFnGesture();
        setPhase(Phase::idle);
        co_return;
    }
    stopPlayback();
    CaptureSettings frozen = settings();

    if (!co_await m_capture.requestMicrophone()) {
        setPhase(Phase::idle);
        setErrorMessage(L10N_KEY("Vesko",
            "Allow Microphone for Vesko in System Settings > Privacy & Security > Microphone, "
            "then try again."));
        clearFnGesture();
        co_return;
    }
    if (fromFn && m_fnDiscardPending) {
        clearFnGesture();
        setPhase(Phase::idle);
        co_return;
    }

    // The user speaks from here on, while the note and the recording are being saved.
    m_capture.open();
    if (m_preferences.soundsEnabled.get())
        m_cues.prepare();
    std::optional<Recording> recording;
    std::exception_ptr failure;
    try {
        recording = co_await prepareRecording(noteID, dictation);
        auto file = co_await m_store.run(
            [record = *recording](const LibraryStore& store) { return store.audioURL(record); });
        if (m_preferences.soundsEnabled.get())
            m_cues.play(CaptureCues::Cue::start);
        co_await m_capture.start(std::move(file));
    } catch (...) {
        failure = std::current_exception();
    }
    if (failure) {
        co_await startFailed(
            recording ? std::optional(recording->id) : std::nullopt, safeMessage(failure));
        co_return;
    }

    auto key = fetchKey(frozen);
    m_active = ActiveCapture{ *recording, dictation, std::move(destination), std::move(frozen),
        std::move(key) };
    if (fromFn) {
        m_fnTarget = recording->id;
        m_fnPendingStart = false;
    }
    assign(m_elapsed, 0.0, &AppModel::elapsedChanged);
    setPhase(Phase::recording);
    setMessage(L10N_KEY("Vesko", "Recording. Press the shortcut again to finish."));
    track(UsageEvent::recordingStarted);
    qCInfo(captureLog, "capture_started");
    m_meter.start(meterInterval, [this] { meter(); });
    co_await refreshLibrary();
    if (fromFn) {
        if (m_fnDiscardPending)
            handleFn(FnShortcutAction::discard);
        else if (m_fnFinishAfterStart)
            stopRecording();
    }
}

// The note and the recording stand in the library before the audio file exists.
Task<Recording> AppModel::prepareRecording(std::optional<Uuid> noteID, bool dictation)
{
    if (!noteID) {
        const NoteKind kind = dictation ? NoteKind::dictation : NoteKind::voice;
        const Note note
            = co_await m_store.run([kind, project = m_selectedProjectID](LibraryStore& store) {
                  return store.createNote(kind, project);
              });
        noteID = note.id;
        track(UsageEvent::noteCreated);
        if (!dictation) {
            setShowingTrash(false);
            setQuery({});
            setSelectedNoteID(note.id);
        }
    }
    co_return co_await m_store.run(
        [id = *noteID](LibraryStore& store) { return store.beginRecording(id); });
}

Task<> AppModel::startFailed(std::optional<Uuid> recordingID, std::string message)
{
    endCapture();
    if (recordingID)
        co_await storeFailure(*recordingID, message);
    clearFnGesture();
    setPhase(Phase::idle);
    setErrorMessage(message);
    co_await refreshLibrary();
}

void AppModel::meter()
{
    if (m_phase != Phase::recording)
        return;
    m_meter.start(meterInterval, [this] { meter(); });
    assign(m_elapsed, m_capture.currentTime(), &AppModel::elapsedChanged);
    const double loudness = std::clamp((m_capture.averagePower() + 50) / 45, 0.0, 1.0);
    assign(m_level, loudness * 0.65 + m_level * 0.35, &AppModel::levelChanged);
    if (m_elapsed >= longestRecording)
        stopRecording();
}

// Ends the recorder and all that goes with a running capture; the recorded seconds.
double AppModel::endCapture()
{
    const double duration = m_capture.stop();
    m_meter.cancel();
    m_active.reset();
    assign(m_level, 0.0, &AppModel::levelChanged);
    return duration;
}

void AppModel::stopRecording()
{
    if (m_phase != Phase::recording || !m_active)
        return;
    ActiveCapture capture = *m_active;
    const double duration = endCapture();
    clearFnGesture();
    if (m_preferences.soundsEnabled.get())
        m_cues.play(CaptureCues::Cue::stop);
    setPhase(Phase::processing);
    setMessage(L10N_KEY("Vesko", "Original saved. Transcribing…"));
    m_tasks.spawn(finishAndTranscribe(std::move(capture), duration));
}

Task<> AppModel::finishAndTranscribe(ActiveCapture capture, double duration)
{
    std::exception_ptr failure;
    try {
        co_await m_capture.finished();
        co_await m_store.run([id = capture.recording.id, duration](
                                 LibraryStore& store) { store.finishRecording(id, duration); });
        track(UsageEvent::recordingSaved);
        co_await refreshLibrary();
    } catch (...) {
        failure = std::current_exception();
    }
    if (failure) {
        setErrorMessage(safeMessage(failure));
        setPhase(Phase::idle);
        co_await refreshLibrary();
        co_return;
    }
    co_await transcribe(capture.recording, capture.settings,
        capture.dictation ? capture.destination : std::nullopt, capture.dictation, capture.key);
}

void AppModel::recordingFailed(std::string message)
{
    if (!m_active)
        return;
    const Uuid recordingID = m_active->recording.id;
    endCapture();
    setPhase(Phase::idle);
    clearFnGesture();
    m_tasks.spawn(storeFailure(recordingID, std::move(message)));
}

// The message stays in the error line even if it could not be stored: it tells more.
Task<> AppModel::storeFailure(Uuid recordingID, std::string message)
{
    try {
        co_await m_store.run([recordingID, message](LibraryStore& store) {
            store.failRecording(recordingID, message);
        });
    } catch (const std::exception&) {
        report(std::current_exception());
    }
    setErrorMessage(message);
    co_await refreshLibrary();
}

void AppModel::clearFnGesture()
{
    m_fnTarget.reset();
    m_fnPendingStart = false;
    m_fnFinishAfterStart = false;
    m_fnDiscardPending = false;
    assign(m_pushToTalk, false, &AppModel::pushToTalkChanged);
}

Task<bool> AppModel::prepareToQuit()
{
    // A note and a recording may be half made.
    if (m_phase == Phase::preparing)
        co_return false;
    if (m_phase == Phase::recording && m_active) {
        const Uuid recordingID = m_active->recording.id;
        const double duration = endCapture();
        std::exception_ptr failure;
        try {
            co_await m_capture.finished();
            co_await m_store.run([recordingID, duration](LibraryStore& store) {
                store.finishRecording(recordingID, duration);
            });
        } catch (...) {
            failure = std::current_exception();
        }
        // Not sooner: until the program ends, no trigger is to start another capture.
        setPhase(Phase::idle);
        if (failure) {
            setErrorMessage(safeMessage(failure));
            co_return false;
        }
    }
    // Others may be typed while these are being saved.
    while (!m_pendingEdits.empty()) {
        const auto [id, edit] = *m_pendingEdits.begin();
        if (co_await saveEdit(id, edit))
            co_return false;
    }
    co_return true;
}

} // namespace vesko
