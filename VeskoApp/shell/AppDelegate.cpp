#include "VeskoApp/shell/AppDelegate.h"

#include "VeskoApp/capture/CaptureLog.h"
#include "VeskoApp/shell/StatusIcon.h"
#include "VeskoApp/wording/SessionWords.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/shell/MenuBarPlacement.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <QScreen>

namespace vesko {

namespace {

const std::string onboardingCompleted = "onboardingCompleted";
const std::string commandedKey = "steeredByCommand"; // true once a command has come

// The desktop takes a moment to give the icon its place.
constexpr double menuBarSettles = 2; // seconds

} // namespace

AppDelegate::AppDelegate(Platform& platform, AppModel& model)
    : m_platform(platform)
    , m_model(model)
    , m_hotkeys(platform.shortcut, platform.keys, platform.clock)
    , m_windows(platform)
    , m_captureControl(platform, model)
    , m_remote(platform.remoteControl, platform.clock, remoteProgram())
    , m_gestureKey(model.preferences().gestureKey(platform.keys.reportsFn()))
    , m_menuBarCheck(platform.clock)
{
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::launch(bool background, const Demo& demo)
{
    applyAppearance(demo.dark);
    m_platform.appearance.onChanged = [this, forced = demo.dark] {
        applyAppearance(forced);
        Q_EMIT reduceMotionChanged();
        m_captureControl.animate();
    };
    setupStatusItem();
    observeMenuBarIcon();
    wireHotkeys();
    m_platform.runningInstance.onActivate = [this] { applicationShouldHandleReopen(); };
    m_platform.runningInstance.onOpen
        = [this](const auto& addresses) { m_model.openAddresses(addresses); };
    m_hotkeys.onShortcutLost
        = [this](const std::string& warning) { m_model.setShortcutMessage(warning); };
    const auto warning = m_hotkeys.start();
    const auto advice = shortcutAdvice(m_platform.session).toStdString();
    const bool commanded = m_platform.settings.get<bool>(commandedKey).value_or(false);
    m_model.setShortcutMessage(advice.empty() ? warning : commanded ? "" : advice);
    for (const auto changed : { &AppModel::libraryReadyChanged, &AppModel::libraryOpeningChanged,
             &AppModel::errorMessageChanged })
        connect(&m_model, changed, this, &AppDelegate::showCaptureControl, Qt::QueuedConnection);
    showCaptureControl();
    m_model.onAccountNeeded = [this] { showOnboarding(); };
    connect(&m_model.accounts(), &AccountStore::stateChanged, this, &AppDelegate::observeAccess);
    observeAccess();
    openFirstWindow(background);
    connect(&m_model.preferences(), &Preferences::changed, this, [this] {
        updateCaptureVisibility();
        const GestureKey key = m_model.preferences().gestureKey(m_platform.keys.reportsFn());
        if (std::exchange(m_gestureKey, key) != key)
            m_hotkeys.installFnMonitors();
    });
    observeScreens();
    observeActivation();
    for (const auto changed : { &AppModel::phaseChanged, &AppModel::libraryReadyChanged })
        connect(&m_model, changed, this, [this] { m_remote.changed(); });
    if (demo.scene)
        m_tasks.spawn(showScene(*demo.scene));
}

// Where nothing can be dictated yet, the button would only be in the way of the library: it comes
// when there is something to press or to say.
void AppDelegate::showCaptureControl()
{
    const bool isWanted
        = m_model.libraryReady() || m_model.libraryOpening() || !m_model.errorMessage().empty();
    if (m_captureControl.window() || !isWanted)
        return;
    m_captureControl.setWindow(makeCapturePanel());
    updateCaptureVisibility();
}

void AppDelegate::updateCaptureVisibility()
{
    m_captureControl.show(m_platform.session.floats && m_model.preferences().showFloating.get());
}

void AppDelegate::observeScreens()
{
    const auto watch = [this](QScreen* screen) {
        connect(screen, &QScreen::availableGeometryChanged, this, &AppDelegate::screenChanged);
    };
    for (auto* screen : QGuiApplication::screens())
        watch(screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this, watch](QScreen* screen) {
        watch(screen);
        screenChanged();
    });
    for (const auto changed :
        { &QGuiApplication::screenRemoved, &QGuiApplication::primaryScreenChanged })
        connect(qGuiApp, changed, this, &AppDelegate::screenChanged);
}

// The user may have been in the desktop's settings, or another program may have changed ours.
void AppDelegate::observeActivation()
{
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
        [this](Qt::ApplicationState state) {
            if (state == Qt::ApplicationActive)
                m_model.preferences().refresh();
        });
}

PermissionRows& AppDelegate::permissions()
{
    if (!m_permissions)
        m_permissions.emplace(m_platform, [this] { m_hotkeys.installFnMonitors(); });
    return *m_permissions;
}

void AppDelegate::screenChanged()
{
    m_captureControl.position();
    if (m_menuBarChecked)
        checkMenuBarIcon();
}

void AppDelegate::openFirstWindow(bool background)
{
    const bool onboarded = m_platform.settings.get<bool>(onboardingCompleted).value_or(false);
    if (!onboarded && m_windows.show(AppWindow::onboarding))
        return;
    if (!background)
        showLibrary();
}

void AppDelegate::newNote()
{
    showLibrary();
    m_model.newNote();
}

void AppDelegate::openDictionary()
{
    m_windows.show(AppWindow::dictionary);
}

void AppDelegate::showLibrary()
{
    m_windows.show(AppWindow::library);
}

void AppDelegate::showSettings()
{
    m_windows.show(AppWindow::settings);
}

void AppDelegate::showOnboarding()
{
    m_windows.show(AppWindow::onboarding);
}

void AppDelegate::finishOnboarding()
{
    m_platform.settings.set(onboardingCompleted, SettingValue{ true });
    m_windows.discard(AppWindow::onboarding);
    showLibrary();
}

// Every window and the status icon follow the application's palette.
void AppDelegate::applyAppearance(std::optional<bool> dark)
{
    if (!dark)
        dark = m_platform.appearance.dark();
    if (dark)
        QGuiApplication::setPalette(
            QPalette(*dark ? QColor(0x2b, 0x2f, 0x31) : QColor(0xf0, 0xf0, 0xf0)));
}

void AppDelegate::setupStatusItem()
{
    m_platform.statusItem.onCapture = [this] { toggleCapture(); };
    m_platform.statusItem.onOpen = [this] { openLibrary(); };
    m_platform.statusItem.onSettings = [this] { openSettings(); };
    m_platform.statusItem.onQuit = [this] { quit(); };
    for (const auto changed : { &AppModel::phaseTitleChanged, &AppModel::libraryReadyChanged })
        connect(&m_model, changed, this, &AppDelegate::showCaptureState);
    connect(&m_model.accounts(), &AccountStore::stateChanged, this, &AppDelegate::showCaptureState);
    qGuiApp->installEventFilter(this);
    showCaptureState();
}

void AppDelegate::observeMenuBarIcon()
{
    m_platform.statusItem.onVisibleChanged = [this] {
        if (m_menuBarChecked)
            checkMenuBarIcon();
    };
    m_menuBarCheck.start(menuBarSettles, [this] { checkMenuBarIcon(); });
}

// No panel of this desktop has a notch; what hides the icon here is a panel without a place for it.
void AppDelegate::checkMenuBarIcon()
{
    const bool hidden
        = MenuBarPlacement::iconHidden(0, 0, std::nullopt, m_platform.statusItem.visible());
    if (hidden != m_model.menuBarIconHidden() || !m_menuBarChecked)
        qCInfo(captureLog, "menu_bar_icon_hidden=%d", hidden);
    m_menuBarChecked = true;
    m_model.setMenuBarIconHidden(hidden);
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

RemoteCommands::Program AppDelegate::remoteProgram()
{
    return {
        .phase = [this] { return m_model.phase(); },
        .ready = [this] { return m_model.libraryReady(); },
        .title = [this] { return m_model.phaseTitle(); },
        .elapsed = [this] { return m_model.elapsed(); },
        .start =
            [this] {
                noteCommand();
                m_model.toggleDictation();
            },
        .stop = [this] { m_model.toggleDictation(); },
        .cancel =
            [this] {
                m_model.handleFn(FnShortcutAction::armStop);
                m_model.handleFn(FnShortcutAction::discard);
            },
        .show = [this] { applicationShouldHandleReopen(); },
        .quit = [this] { quit(); },
        .gestureKey =
            [this](bool down) {
                noteCommand();
                m_hotkeys.commandGestureKey(down);
            },
    };
}

// Who has set a command up need not be told how to.
void AppDelegate::noteCommand()
{
    if (m_platform.session.shortcut == SessionOffer::Shortcut::own
        || m_platform.settings.get<bool>(commandedKey))
        return;
    m_platform.settings.set(commandedKey, true);
    m_model.setShortcutMessage({});
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

void AppDelegate::quit()
{
    if (!std::exchange(m_quitting, true))
        m_tasks.spawn(quitWhenSafe());
}

Task<> AppDelegate::quitWhenSafe()
{
    const bool safe = co_await m_model.prepareToQuit();
    m_quitting = false;
    if (safe)
        terminate();
    else
        showLibrary(); // which says why not
}

void AppDelegate::willTerminate()
{
    m_hotkeys.stop();
}

} // namespace vesko
