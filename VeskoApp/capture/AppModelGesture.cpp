#include "VeskoApp/capture/AppModel.h"

#include "VeskoCore/base/Localized.h"

namespace vesko {

void AppModel::handleFn(FnShortcutAction action)
{
    switch (action) {
    case FnShortcutAction::begin:
        beginFn();
        break;
    case FnShortcutAction::armStop:
        m_fnTarget = m_active ? std::optional(m_active->recording.id) : std::nullopt;
        break;
    case FnShortcutAction::finish:
        if (m_fnPendingStart)
            m_fnFinishAfterStart = true;
        else if (m_phase == Phase::recording && m_active && fnTargetsActive())
            stopRecording();
        break;
    case FnShortcutAction::hold:
        if (m_fnPendingStart || (m_phase == Phase::recording && fnTargetsActive()))
            assign(m_pushToTalk, true, &AppModel::pushToTalkChanged);
        break;
    case FnShortcutAction::discard:
        discardFn();
        break;
    }
}

// A capture that was started by other means can't be ended by a gesture that did not arm it.
bool AppModel::fnTargetsActive() const
{
    return m_fnTarget == (m_active ? std::optional(m_active->recording.id) : std::nullopt);
}

void AppModel::beginFn()
{
    if (m_phase != Phase::idle || !m_libraryReady)
        return;
    m_fnPendingStart = true;
    m_fnFinishAfterStart = false;
    m_fnDiscardPending = false;
    m_tasks.spawn(startRecording(std::nullopt, true, captureField(), true));
}

// The key turned out to be part of a combination: the user never meant to dictate. What was
// recorded meanwhile may be real speech and is kept.
void AppModel::discardFn()
{
    m_fnDiscardPending = true;
    assign(m_pushToTalk, false, &AppModel::pushToTalkChanged);
    if (m_phase != Phase::recording || !m_active || !fnTargetsActive())
        return;
    const Uuid recordingID = m_active->recording.id;
    const double duration = endCapture();
    clearFnGesture();
    setPhase(Phase::processing);
    m_tasks.spawn(keepWithoutTranscription(recordingID, duration));
}

Task<> AppModel::keepWithoutTranscription(Uuid recordingID, double duration)
{
    try {
        co_await m_capture.finished();
        co_await m_store.run([recordingID, duration](LibraryStore& store) {
            store.finishRecording(recordingID, duration);
        });
        setMessage(L10N_KEY("Vesko", "Fn combination used. Audio saved without transcription."));
    } catch (const std::exception&) {
        report(std::current_exception());
    }
    co_await refreshLibrary();
    setPhase(Phase::idle);
}

} // namespace vesko
