#include "VeskoApp/capture/Hotkeys.h"

#include "VeskoCore/base/Localized.h"

namespace vesko {

namespace {

// A key's repeat and a double firing are one press.
constexpr double triggerInterval = 0.25; // seconds
// The longest that a held key takes before it repeats.
constexpr double repeatDelay = 1.2; // seconds
// Each command comes by a program of its own, and that of a press may be slower than that of the
// release behind it: the last repeat's, which then means nothing, or the only one, and then it was
// a tap. No finger is back so soon.
constexpr double commandDelay = 0.15; // seconds

constexpr const char* noShortcut = L10N_KEY("Vesko",
    "%1 is unavailable: another program has it. Use the floating button, or choose another "
    "shortcut in the settings.");

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
    m_shortcut.onRefused = nullptr;
    m_shortcut.remove();
}

std::string Hotkeys::start()
{
    m_shortcut.onRefused = [this] {
        if (onShortcutLost)
            onShortcutLost(noShortcut);
    };
    const std::string warning = installShortcut();
    installFnMonitors();
    return warning;
}

std::string Hotkeys::installShortcut()
{
    return m_shortcut.install(combination(), [this] { trigger(); }) ? "" : noShortcut;
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
        KeyEvent meant = event;
        // A press that is meant for another program is as one that belongs to a combination.
        if (event.isGestureKey && event.gestureKeyDown && areForOther())
            meant.otherModifiers = true;
        flagsChanged(meant);
    } else if (const auto action = m_fnState.keyDown()) {
        m_hold.cancel();
        onFnAction(*action);
    }
}

void Hotkeys::commandGestureKey(bool down)
{
    if (!fnEnabled()) {
        resetFn();
        return;
    }
    const double now = m_clock.uptime();
    if (down && m_lastRelease && now - *m_lastRelease < commandDelay) {
        if (std::exchange(m_releaseCameFirst, false)) {
            moveGestureKey(true);
            moveGestureKey(false);
        }
        return;
    }
    if (!down) {
        m_lastRelease = now;
        m_releaseCameFirst = !m_lastCommand;
    }
    const bool repeated = m_lastCommand && now - *m_lastCommand <= repeatDelay;
    const bool releaseLost = down && m_lastCommand && !repeated;
    m_lastCommand = down ? std::optional(now) : std::nullopt;
    // Who presses a key again has let go of it before. What that release would have ended, this
    // press is meant to end.
    if (releaseLost)
        m_lastCommand.reset();
    moveGestureKey(down && !releaseLost);
}

void Hotkeys::moveGestureKey(bool down)
{
    flagsChanged({ .kind = KeyEvent::Kind::flagsChanged,
        .isGestureKey = true,
        .gestureKeyDown = down,
        .otherModifiers = down && isLocked() });
}

bool Hotkeys::areForOther() const
{
    return isLocked() || m_keys.takenByOther();
}

void Hotkeys::flagsChanged(const KeyEvent& event)
{
    const auto action = m_fnState.flagsChanged(event.isGestureKey, event.gestureKeyDown,
        event.otherModifiers, m_clock.uptime(), isRecording(), canStart());
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
