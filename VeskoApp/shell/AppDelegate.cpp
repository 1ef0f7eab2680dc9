#include "VeskoApp/shell/AppDelegate.h"

#include "VeskoApp/shell/StatusIcon.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace vesko {

AppDelegate::AppDelegate(Platform& platform, AppModel& model)
    : m_platform(platform)
    , m_model(model)
    , m_hotkeys(platform.shortcut, platform.keys, platform.clock)
    , m_gestureKey(model.preferences().gestureKey(platform.keys.reportsFn()))
{
}

void AppDelegate::launch()
{
    // The menus of the windows are set up here once there are windows.
    setupStatusItem();
    wireHotkeys();
    m_platform.runningInstance.onActivate = [this] { applicationShouldHandleReopen(); };
    m_platform.runningInstance.onOpen
        = [this](const auto& addresses) { m_model.openAddresses(addresses); };
    m_model.setShortcutMessage(m_hotkeys.start());
    showCaptureControl(m_model.preferences().showFloating.get());
    m_model.onAccountNeeded = [this] {
        if (showOnboarding)
            showOnboarding();
    };
    connect(&m_model.accounts(), &AccountStore::stateChanged, this, &AppDelegate::observeAccess);
    observeAccess();
    // Onboarding or the library window opens here once they exist.
    connect(&m_model.preferences(), &Preferences::changed, this, [this] {
        showCaptureControl(m_model.preferences().showFloating.get());
        const GestureKey key = m_model.preferences().gestureKey(m_platform.keys.reportsFn());
        if (std::exchange(m_gestureKey, key) != key)
            m_hotkeys.installFnMonitors();
    });
}

void AppDelegate::setupStatusItem()
{
    m_platform.statusItem.onCapture = [this] { m_model.toggleDictation(); };
    m_platform.statusItem.onQuit = [this] { quit(); };
    // "Open Vesko" and "Settings…" lead to their windows once these exist.
    for (const auto changed : { &AppModel::phaseChanged, &AppModel::libraryReadyChanged })
        connect(&m_model, changed, this, &AppDelegate::showCaptureState);
    connect(&m_model.accounts(), &AccountStore::stateChanged, this, &AppDelegate::showCaptureState);
    qGuiApp->installEventFilter(this);
    showCaptureState();
}

void AppDelegate::wireHotkeys()
{
    m_hotkeys.onTrigger = [this] { m_model.toggleDictation(); };
    m_hotkeys.fnEnabled = [this] { return m_model.preferences().fnEnabled.get(); };
    m_hotkeys.isRecording = [this] { return m_model.isRecording(); };
    m_hotkeys.canStart = [this] { return canStart(); };
    m_hotkeys.gestureKey = [this] { return m_gestureKey; };
    m_hotkeys.onFnAction = [this](FnShortcutAction action) { m_model.handleFn(action); };
    m_hotkeys.onSendIntent = [this] { m_model.insertionReview().armSend(); };
}

bool AppDelegate::canStart() const
{
    return m_model.phase() == Phase::idle && m_model.libraryReady() && m_model.accounts().admits();
}

void AppDelegate::showCaptureState()
{
    const bool recording = m_model.isRecording();
    const bool dark = qGuiApp->palette().color(QPalette::Window).lightnessF() < 0.5F;
    m_platform.statusItem.show(
        statusIcon(recording, dark), QStringLiteral("Vesko: ") + m_model.phaseTitle());
    const QString title = recording      ? translated(L10N_KEY("Vesko", "Stop dictation"))
        : m_model.phase() == Phase::idle ? translated(L10N_KEY("Vesko", "Start dictation"))
                                         : m_model.phaseTitle();
    m_platform.statusItem.setCapture(title, recording || canStart());
}

// Whoever has to sign in is asked to as soon as it is known that nobody has.
void AppDelegate::observeAccess()
{
    if (m_model.accounts().signedOut() && !m_model.accounts().admits())
        m_model.onAccountNeeded();
}

// The icon's strokes follow the desktop's change between light and dark.
bool AppDelegate::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange)
        showCaptureState();
    return false;
}

void AppDelegate::applicationShouldHandleReopen()
{
    // The library window opens here once it exists.
}

void AppDelegate::quit()
{
    if (!std::exchange(m_quitting, true))
        m_tasks.spawn(quitWhenSafe());
}

Task<> AppDelegate::quitWhenSafe()
{
    const bool safe = co_await m_model.prepareToQuit();
    m_quitting = false;
    // The library window, which shows why not, opens here once it exists.
    if (safe)
        terminate();
}

void AppDelegate::willTerminate()
{
    m_hotkeys.stop();
}

} // namespace vesko
