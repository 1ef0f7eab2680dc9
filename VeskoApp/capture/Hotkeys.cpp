#include "VeskoApp/capture/Hotkeys.h"

#include "VeskoCore/base/Localized.h"

namespace vesko {

namespace {

// A key's repeat and a double firing are one press.
constexpr double triggerInterval = 0.25; // seconds

} // namespace

Hotkeys::Hotkeys(GlobalShortcut& shortcut, KeyMonitor& keys, EventClock& clock)
    : m_shortcut(shortcut)
    , m_keys(keys)
    , m_clock(clock)
    , m_hold(clock)
{
}

Hotkeys::~Hotkeys()
{
    m_keys.stop();
    m_shortcut.remove();
}

std::string Hotkeys::start()
{
    const std::string warning = installShortcut();
    installFnMonitors();
    return warning;
}

std::string Hotkeys::installShortcut()
{
    if (m_shortcut.install(combination(), [this] { trigger(); }))
        return {};
    return L10N_KEY("Vesko",
        "%1 is unavailable: another program has it. Use the floating button, or choose another "
        "shortcut in the settings.");
}

void Hotkeys::trigger()
{
    if (isLocked())
        return;
    const double now = m_clock.uptime();
    if (m_lastTrigger && now - *m_lastTrigger <= triggerInterval)
        return;
    m_lastTrigger = now;
    onTrigger();
}

// Without the permission to watch keys there is neither gesture nor send signal; the permission
// rows of the settings tell the user.
void Hotkeys::installFnMonitors()
{
    m_keys.stop();
    resetFn();
    if (m_keys.permitted())
        m_keys.start(gestureKey(), [this](const KeyEvent& event) { receive(event); });
}

void Hotkeys::receive(const KeyEvent& event)
{
    if (event.kind == KeyEvent::Kind::interrupted) {
        resetFn();
        return;
    }
    // Ahead of the switch for the gesture: the send signal works without it.
    if (event.kind == KeyEvent::Kind::keyDown && event.isReturn && !event.gestureKeyDown
        && !event.shiftDown && !areForOther())
        onSendIntent();
    if (!fnEnabled()) {
        resetFn();
        return;
    }
    if (event.kind == KeyEvent::Kind::flagsChanged) {
        flagsChanged(event);
    } else if (const auto action = m_fnState.keyDown()) {
        m_hold.cancel();
        onFnAction(*action);
    }
}

bool Hotkeys::areForOther() const
{
    return isLocked() || m_keys.takenByOther();
}

// A press that is meant for another program is as one that belongs to a combination.
void Hotkeys::flagsChanged(const KeyEvent& event)
{
    const bool pressed = event.isGestureKey && event.gestureKeyDown;
    const auto action = m_fnState.flagsChanged(event.isGestureKey, event.gestureKeyDown,
        event.otherModifiers || (pressed && areForOther()), m_clock.uptime(), isRecording(),
        canStart());
    const bool wasTap = m_hold.pending() && event.isGestureKey && !event.gestureKeyDown;
    if (!event.gestureKeyDown)
        m_hold.cancel();
    if (!action) {
        if (wasTap)
            onFnTap();
        return;
    }
    onFnAction(*action);
    if (*action == FnShortcutAction::begin)
        m_hold.start(FnShortcutState::holdDuration, [this] {
            if (const auto held = m_fnState.holdReached(m_clock.uptime()))
                onFnAction(*held);
        });
}

void Hotkeys::resetFn()
{
    m_hold.cancel();
    if (const auto action = m_fnState.reset())
        onFnAction(*action);
}

void Hotkeys::stop()
{
    resetFn();
    m_shortcut.remove();
    m_keys.stop();
}

} // namespace vesko
