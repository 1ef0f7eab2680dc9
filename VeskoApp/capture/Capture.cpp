#include "VeskoApp/capture/Capture.h"

#include "VeskoApp/base/Observed.h"
#include "VeskoApp/capture/CaptureLog.h"
#include "VeskoApp/status/SafeMessage.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/base/Text.h"

#include <algorithm>
#include <utility>

namespace vesko {

namespace {

constexpr double meterInterval = 0.1; // seconds
constexpr double longestRecording = 300; // seconds
constexpr double longestUntold = 0.1; // seconds that came after the stop
constexpr std::size_t longestName = 32; // characters

// As a sentence about the program with that field, whose name is its own.
QString into(const FieldReading& reading)
{
    auto name = QString::fromStdString(
        std::string(firstCharacters(reading.program.value_or(""), longestName)))
                    .simplified();
    if (name.isEmpty())
        return translated(L10N_KEY("Vesko", "Into the field where you began"));
    name[0] = name[0].toUpper();
    return translated(L10N_KEY("Vesko", "Into %1")).arg(name);
}

constexpr const char* noSound = L10N_KEY("Vesko",
    "No sound comes from the microphone. What was said before is kept; the recording goes on when "
    "sound comes again.");

constexpr const char* cancelled = L10N_KEY("Vesko", "Recording cancelled. The audio is saved.");

} // namespace

Q_LOGGING_CATEGORY(captureLog, "app.vesko.capture")

Capture::Capture(const Neighbours& neighbours)
    : m_to(neighbours)
    , m_audio(neighbours.recorder)
    , m_meter(neighbours.clock)
{
    m_audio.onFailure = [this](std::string message) { failed(std::move(message)); };
    m_audio.onStalled = [this](bool stalled) { noteStall(stalled); };
    connect(this, &Capture::phaseChanged, this, &Capture::phaseTitleChanged);
    connect(&m_to.library, &LibrarySession::openingChanged, this, &Capture::phaseTitleChanged);
}

QString Capture::phaseTitle() const
{
    switch (m_phase) {
    case Phase::idle:
        return m_to.library.opening() ? translated(L10N_KEY("Vesko", "Opening library…"))
                                      : translated(L10N_KEY("Vesko", "Ready"));
    case Phase::preparing:
        return translated(L10N_KEY("Vesko", "Starting microphone"));
    case Phase::recording:
        return translated(L10N_KEY("Vesko", "Recording"));
    case Phase::processing:
        break;
    }
    switch (m_processing) {
    case Processing::transcribing:
        if (m_transcribed > 0)
            return translated(L10N_KEY("Vesko", "Transcribing: %1 %")).arg(m_transcribed);
        return translated(L10N_KEY("Vesko", "Transcribing"));
    case Processing::cleaningUp:
        return translated(L10N_KEY("Vesko", "Cleaning up"));
    case Processing::translating:
        return translated(L10N_KEY("Vesko", "Translating"));
    }
    return {};
}

void Capture::setProcessing(Processing step)
{
    assign(*this, m_processing, step, &Capture::phaseTitleChanged);
}

void Capture::setTranscribed(double share)
{
    assign(*this, m_transcribed, static_cast<int>(share * 100), &Capture::phaseTitleChanged);
}

void Capture::setTarget(const QString& target, bool isField)
{
    m_willPaste = isField;
    assign(*this, m_target, target, &Capture::targetChanged);
}

void Capture::setPhase(Phase phase)
{
    if (phase == Phase::idle)
        setTarget({}, false);
    if (phase != Phase::processing) {
        m_processing = Processing::transcribing;
        m_transcribed = 0;
    }
    assign(*this, m_phase, phase, &Capture::phaseChanged);
}

void Capture::toggleDictation()
{
    if (m_phase == Phase::recording) {
        stop();
        return;
    }
    if (m_phase != Phase::idle)
        return;
    if (!m_to.accounts.admits()) {
        if (onAccountNeeded)
            onAccountNeeded();
        return;
    }
    m_tasks.spawn(start(std::nullopt, true, captureField(), false));
}

void Capture::recordNote(bool append)
{
    if (m_phase == Phase::recording) {
        stop();
        return;
    }
    if (m_phase != Phase::idle)
        return;
    m_tasks.spawn(
        start(append ? m_to.selection.selectedNoteID() : std::nullopt, false, std::nullopt, false));
}

// Which field it is, is settled here and now; everything that follows can move the focus or take
// time. Only the reading of its text goes on beside the start of the microphone.
Destination Capture::captureField()
{
    const Destination destination;
    setTarget({}, false); // that of a press which came to nothing
    m_tasks.spawn(readField(destination));
    return destination;
}

Task<> Capture::readField(Destination destination)
{
    const Date at = m_to.clock.now();
    const FieldReading reading = co_await m_to.focusedField.read(std::nullopt);
    auto field = FocusDestination::from(reading, at);
    const bool pastes = field && m_to.preferences.pasteEnabled.get();
    setTarget(pastes ? into(reading) : translated(L10N_KEY("Vesko", "To the clipboard")), pastes);
    if (field)
        destination.set(std::move(*field));
    else
        destination.set(std::unexpected(FocusDestination::reasonAgainst(reading)));
}

Task<> Capture::start(
    std::optional<Uuid> noteID, bool dictation, std::optional<Destination> destination, bool fromFn)
{
    if (m_phase != Phase::idle || !m_to.library.ready())
        co_return;
    m_opened = false;
    setPhase(Phase::preparing);
    const auto begin = [this] {
        m_to.status.setErrorMessage({});
        Q_EMIT starting();
    };
    if (!fromFn) {
        clearFn();
        begin();
    }
    CaptureSettings frozen = CaptureSettings::from(m_to.preferences, m_to.library.contents());
    if (!co_await m_audio.requestMicrophone()) {
        setPhase(Phase::idle);
        m_to.status.setErrorMessage(L10N_KEY("Vesko",
            "Allow Microphone for Vesko in System Settings > Privacy & Security > Microphone, "
            "then try again."));
        clearFn();
        co_return;
    }

    // The user speaks from here on, while the gesture comes clear and the note and the recording
    // are being saved.
    m_audio.open();
    m_opened = true;
    if (fromFn) {
        if (!co_await m_fn.settled) {
            endCapture();
            clearFn();
            setPhase(Phase::idle);
            co_return;
        }
        begin();
    }
    if (m_to.preferences.soundsEnabled.get())
        m_to.cues.prepare();
    std::optional<Recording> recording;
    std::unique_ptr<Hearing> heard;
    std::exception_ptr failure;
    try {
        recording = co_await prepareRecording(noteID, dictation);
        auto file = co_await m_to.library.audioFile(*recording);
        if (m_to.preferences.soundsEnabled.get())
            m_to.cues.play(CaptureCues::Cue::start);
        // Only now: a press that turns out to be an ordinary combination starts no engine.
        if (hear)
            heard = hear(frozen);
        m_audio.setListener(heard ? heard->listener() : nullptr);
        co_await m_audio.start(std::move(file));
    } catch (...) {
        failure = std::current_exception();
    }
    if (failure) {
        heard.reset();
        co_await startFailed(
            recording ? std::optional(recording->id) : std::nullopt, safeMessage(failure));
        co_return;
    }

    auto key = frozen.onDevice() ? std::nullopt : std::optional(m_to.keys.fetch(frozen.keySource));
    m_active = CapturedRecording{ *recording, dictation, std::move(destination), std::move(frozen),
        std::move(key), std::move(heard) };
    if (fromFn) {
        m_fn.target = recording->id;
        m_fn.pendingStart = false;
    }
    assign(*this, m_elapsed, 0.0, &Capture::elapsedChanged);
    m_begunAt = m_to.clock.uptime() - m_audio.currentTime();
    setPhase(Phase::recording);
    m_to.status.setMessage(L10N_KEY("Vesko", "Recording. Press the shortcut again to finish."));
    m_to.analytics.track(UsageEvent::recordingStarted);
    qCInfo(captureLog, "capture_started");
    m_meter.start(meterInterval, [this] { meter(); });
    if (fromFn) {
        if (m_fn.discardPending)
            handleFn(FnShortcutAction::discard);
        else if (m_fn.finishAfterStart)
            stop();
    }
}

// The note and the recording stand in the library before the audio file exists.
Task<Recording> Capture::prepareRecording(std::optional<Uuid> noteID, bool dictation)
{
    if (!noteID) {
        const NoteKind kind = dictation ? NoteKind::dictation : NoteKind::voice;
        const auto note = co_await m_to.library.change(
            [kind, project = m_to.selection.selectedProjectID()](
                LibraryStore& store) { return store.createNote(kind, project); });
        if (!note)
            std::rethrow_exception(note.error());
        noteID = note->id;
        m_to.analytics.track(UsageEvent::noteCreated);
        if (!dictation)
            m_to.selection.reveal({ note->id });
    }
    auto begun = co_await m_to.library.change(
        [id = *noteID](LibraryStore& store) { return store.beginRecording(id); });
    if (!begun)
        std::rethrow_exception(begun.error());
    co_return std::move(*begun);
}

Task<> Capture::startFailed(std::optional<Uuid> recordingID, std::string message)
{
    endCapture();
    if (recordingID)
        co_await storeFailure(*recordingID, message);
    clearFn();
    setPhase(Phase::idle);
    m_to.status.setErrorMessage(message);
}

void Capture::meter()
{
    if (m_phase != Phase::recording)
        return;
    m_meter.start(meterInterval, [this] { meter(); });
    // Not what was recorded: a microphone that sleeps would keep the recording open for ever.
    assign(*this, m_elapsed, m_to.clock.uptime() - m_begunAt, &Capture::elapsedChanged);
    const double loudness = std::clamp((m_audio.averagePower() + 50) / 45, 0.0, 1.0);
    assign(*this, m_level, loudness * 0.65 + m_level * 0.35, &Capture::levelChanged);
    if (m_elapsed >= longestRecording)
        stop();
}

void Capture::noteStall(bool stalled)
{
    if (stalled && m_phase == Phase::recording)
        m_to.status.setErrorMessage(noSound);
    else if (m_to.status.errorMessage() == noSound)
        m_to.status.setErrorMessage({});
}

// Ends the recorder and all that goes with a running capture; the recorded seconds.
double Capture::endCapture()
{
    const double duration = m_audio.stop();
    m_meter.cancel();
    noteStall(false);
    m_active.reset();
    assign(*this, m_level, 0.0, &Capture::levelChanged);
    return duration;
}

void Capture::stop()
{
    if (m_phase != Phase::recording || !m_active)
        return;
    CapturedRecording captured = std::move(*m_active);
    const double duration = endCapture();
    clearFn();
    if (m_to.preferences.soundsEnabled.get())
        m_to.cues.play(CaptureCues::Cue::stop);
    setPhase(Phase::processing);
    m_to.status.setMessage(L10N_KEY("Vesko", "Original saved. Transcribing…"));
    offerToGiveUp([] { }); // taken up by finish
    m_tasks.spawn(finish(std::move(captured), duration));
}

Task<> Capture::finish(CapturedRecording captured, double duration)
{
    const auto saved = co_await save(captured.recording.id, duration);
    if (!saved) {
        m_to.status.report(saved.error());
        endProcessing();
        co_return;
    }
    qCInfo(captureLog, "recording_saved");
    m_to.analytics.track(UsageEvent::recordingSaved);
    if (!canGiveUp()) {
        m_to.status.setMessage(cancelled);
        setPhase(Phase::idle);
        co_return;
    }
    onCaptured(std::move(captured));
}

bool Capture::cancel()
{
    if (m_phase == Phase::recording && m_active) {
        stopWithoutTranscription(cancelled);
        return true;
    }
    const auto giveUp = m_giveUp;
    offerToGiveUp(nullptr);
    if (giveUp)
        giveUp();
    return giveUp != nullptr;
}

void Capture::stopWithoutTranscription(std::string message)
{
    const Uuid recordingID = m_active->recording.id;
    const double duration = endCapture();
    clearFn();
    setPhase(Phase::processing);
    m_tasks.spawn(keepWithoutTranscription(recordingID, duration, std::move(message)));
}

Task<> Capture::keepWithoutTranscription(Uuid recordingID, double duration, std::string message)
{
    const auto saved = co_await save(recordingID, duration);
    if (saved)
        m_to.status.setMessage(std::move(message));
    else
        m_to.status.report(saved.error());
    setPhase(Phase::idle);
}

// Once the file is whole, the library says so.
Task<LibrarySession::Outcome<void>> Capture::save(Uuid recordingID, double duration)
{
    const auto saving = m_saving.emplace();
    // Beside each other: until its file is an ordinary one, it is as whole as it grew.
    const auto whole = m_audio.finished();
    const auto store = [this, recordingID](double seconds) {
        return m_to.library.change([recordingID, seconds](LibraryStore& library) {
            library.finishRecording(recordingID, seconds);
        });
    };
    auto outcome = co_await store(duration);
    const double held = co_await whole;
    if (outcome && held - duration > longestUntold)
        outcome = co_await store(held);
    m_saving.reset();
    saving.set(outcome.has_value());
    co_return outcome;
}

void Capture::failed(std::string message)
{
    if (!m_active)
        return;
    const Uuid recordingID = m_active->recording.id;
    endCapture();
    setPhase(Phase::idle);
    clearFn();
    m_tasks.spawn(storeFailure(recordingID, std::move(message)));
}

// The message stays in the error line even if it could not be stored: it tells more.
Task<> Capture::storeFailure(Uuid recordingID, std::string message)
{
    co_await m_to.library.change(
        [recordingID, message](LibraryStore& store) { store.failRecording(recordingID, message); });
    m_to.status.setErrorMessage(message);
}

bool Capture::beginProcessing()
{
    if (m_phase != Phase::idle)
        return false;
    setPhase(Phase::processing);
    return true;
}

void Capture::offerToGiveUp(std::function<void()> giveUp)
{
    const bool could = canGiveUp();
    m_giveUp = std::move(giveUp);
    if (could != canGiveUp())
        Q_EMIT canGiveUpChanged();
}

void Capture::endProcessing()
{
    offerToGiveUp(nullptr);
    setPhase(Phase::idle);
}

Eventual<std::monostate> Capture::nextPhase()
{
    const Eventual<std::monostate> changed;
    connect(
        this, &Capture::phaseChanged, this, [changed] { changed.set({}); },
        Qt::ConnectionType(Qt::QueuedConnection | Qt::SingleShotConnection));
    return changed;
}

// A note and a recording may be half made: what has begun to be stored comes to its end, but nobody
// waits for the sound server.
Task<> Capture::giveUpStart()
{
    const Eventual<std::monostate> ended;
    const auto watching = connect(this, &Capture::phaseChanged, this, [ended] { ended.set({}); });
    m_fn.settled.set(false);
    m_audio.stop();
    co_await ended;
    disconnect(watching);
}

Task<bool> Capture::prepareToQuit()
{
    if (m_phase == Phase::preparing && m_opened)
        co_await giveUpStart();
    if (m_saving)
        co_return co_await *m_saving;
    if (m_phase != Phase::recording || !m_active)
        co_return true;
    const Uuid recordingID = m_active->recording.id;
    const double duration = endCapture();
    const auto saved = co_await save(recordingID, duration);
    // Not sooner: until the program ends, no trigger is to start another capture.
    setPhase(Phase::idle);
    if (!saved)
        m_to.status.report(saved.error());
    co_return saved.has_value();
}

} // namespace vesko
