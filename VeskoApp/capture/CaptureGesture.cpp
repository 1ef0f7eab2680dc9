// What the gesture key means for a capture.

#include "VeskoApp/base/Observed.h"
#include "VeskoApp/capture/Capture.h"
#include "VeskoCore/base/Localized.h"

namespace vesko {

void Capture::handleFn(FnShortcutAction action)
{
    switch (action) {
    case FnShortcutAction::begin:
        beginFn();
        break;
    case FnShortcutAction::armStop:
        m_fn.target = m_active ? std::optional(m_active->recording.id) : std::nullopt;
        break;
    case FnShortcutAction::finish:
        m_fn.settled.set(true);
        if (m_fn.pendingStart)
            m_fn.finishAfterStart = true;
        else if (m_phase == Phase::recording && m_active && fnTargetsActive())
            stop();
        break;
    case FnShortcutAction::hold:
        if (m_fn.pendingStart || (m_phase == Phase::recording && fnTargetsActive()))
            setPushToTalk(true);
        m_fn.settled.set(true);
        break;
    case FnShortcutAction::discard:
        discardFn();
        break;
    }
}

// A capture that was started by other means can't be ended by a gesture that did not arm it.
bool Capture::fnTargetsActive() const
{
    return m_fn.target == (m_active ? std::optional(m_active->recording.id) : std::nullopt);
}

void Capture::beginFn()
{
    if (m_phase != Phase::idle || !m_to.library.ready())
        return;
    m_fn = {};
    m_fn.pendingStart = true;
    m_tasks.spawn(start(std::nullopt, true, captureField(), true));
}

// The key turned out to be part of a combination: the user never meant to dictate. What was
// recorded once it had been taken for a gesture may be real speech and is kept.
void Capture::discardFn()
{
    m_fn.discardPending = true;
    setPushToTalk(false);
    m_fn.settled.set(false);
    if (m_phase != Phase::recording || !m_active || !fnTargetsActive())
        return;
    stopWithoutTranscription(
        L10N_KEY("Vesko", "Fn combination used. Audio saved without transcription."));
}

void Capture::clearFn()
{
    m_fn = {};
    setPushToTalk(false);
}

void Capture::setPushToTalk(bool on)
{
    assign(*this, m_pushToTalk, on, &Capture::pushToTalkChanged);
}

} // namespace vesko
