#include "VeskoApp/shell/AppDelegate.h"

#include "VeskoApp/base/Observed.h"
#include "VeskoApp/capture/CaptureLog.h"
#include "VeskoApp/shell/StatusIcon.h"
#include "VeskoApp/wording/SessionWords.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoCore/shell/StatusIconPlacement.h"

#include <QGuiApplication>
#include <QPalette>
#include <QScreen>

namespace vesko {

namespace {

const std::string onboardingCompleted = "onboardingCompleted";
const std::string commandedKey = "steeredByCommand"; // true once a command has come

// The desktop takes a moment to give the icon its place.
constexpr double statusIconSettles = 2; // seconds

} // namespace

AppDelegate::AppDelegate(Platform& platform, AppModel& model)
    : m_platform(platform)
    , m_model(model)
    , m_hotkeys(platform.shortcut, platform.keys, platform.clock)
    , m_shortcut({ platform.shortcut, m_hotkeys, model.preferences(), model.status(),
          platform.offer.shortcut == SessionOffer::Shortcut::own })
    , m_desktopKeys(platform.desktopShortcut)
    , m_diagnosis(platform.doctor)
    , m_windows(platform)
    , m_captureControl(platform, model.capture(), model.library(), model.status())
    , m_remote(platform.remoteControl, platform.clock, remoteProgram())
    , m_gestureKey(model.preferences().gestureKey(platform.keys.reportsFn()))
    , m_statusIconCheck(platform.clock)
{
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::launch(bool background, const Demo& demo)
{
    applyAppearance(demo.dark);
    m_platform.appearance.onChanged = [this, forced = demo.dark] {
        applyAppearance(forced);
        Q_EMIT appearanceChanged();
        m_captureControl.animate();
    };
    setupStatusItem();
    observeStatusIcon();
    wireHotkeys();
    m_captureControl.shortcutWords
        = [this] { return m_shortcut.offered() ? m_shortcut.words() : m_desktopKeys.keys(); };
    connect(
        &m_shortcut, &ShortcutChoice::changed, &m_captureControl, &CaptureControl::stateChanged);
    m_platform.runningInstance.onActivate = [this] { applicationShouldHandleReopen(); };
    m_platform.runningInstance.onOpen
        = [this](const auto& addresses) { m_model.openAddresses(addresses); };
    m_platform.session.onSleep = m_platform.session.onEnd
        = [this](SessionState::Done done) { whenSafe([done](bool) { done(); }); };
    m_hotkeys.onShortcutLost = [this](const std::string& warning) { m_shortcut.tell(warning); };
    const auto warning = m_hotkeys.start();
    const auto advice = shortcutAdvice(m_platform.offer).toStdString();
    const bool commanded = m_platform.settings.get<bool>(commandedKey).value_or(false);
    const auto adviseOnShortcut = [this, advice, commanded] {
        const bool has = commanded || !m_desktopKeys.keys().isEmpty();
        m_model.status().setShortcutMessage(has ? "" : advice);
    };
    if (advice.empty()) {
        m_shortcut.tell(warning);
    } else {
        connect(&m_desktopKeys, &DesktopKeys::changed, this, adviseOnShortcut);
        adviseOnShortcut();
    }
    for (const auto changed : { &LibrarySession::readyChanged, &LibrarySession::openingChanged })
        connect(&m_model.library(), changed, this, &AppDelegate::showCaptureControl,
            Qt::QueuedConnection);
    connect(&m_model.status(), &StatusLine::errorMessageChanged, this,
        &AppDelegate::showCaptureControl, Qt::QueuedConnection);
    showCaptureControl();
    m_model.capture().onAccountNeeded = [this] { showOnboarding(); };
    m_model.run().onNotPasted = [this](const Uuid& id) { m_captureControl.offerNote(id); };
    m_captureControl.onOpenNote = m_model.notifier().openNote = [this](const Uuid& note) {
        m_model.selection().setSelectedProjectID(std::nullopt);
        m_model.selection().reveal({ note });
        showLibrary();
    };
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
    const auto tellRemote = [this] { m_remote.changed(); };
    connect(&m_model.capture(), &Capture::phaseChanged, this, tellRemote);
    connect(&m_model.library(), &LibrarySession::readyChanged, this, tellRemote);
    if (demo.scene)
        m_tasks.spawn(showScene(*demo.scene));
}

// Where nothing can be dictated yet, the button would only be in the way of the library: it comes
// when there is something to press or to say.
void AppDelegate::showCaptureControl()
{
    const bool isWanted = m_model.library().ready() || m_model.library().opening()
        || !m_model.status().errorMessage().empty();
    if (m_captureControl.window() || !isWanted)
        return;
    m_captureControl.setWindow(makeCapturePanel());
    updateCaptureVisibility();
}

void AppDelegate::updateCaptureVisibility()
{
    m_captureControl.show(m_platform.offer.floats && m_model.preferences().showFloating.get());
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
            if (state != Qt::ApplicationActive)
                return;
            m_model.preferences().refresh();
            m_shortcut.retry();
        });
}

PermissionRows& AppDelegate::permissions()
{
    if (!m_permissions) {
        auto& preferences = m_model.preferences();
        m_permissions.emplace(
            m_platform, [this] { m_hotkeys.installFnMonitors(); },
            [&preferences] { return preferences.language.get(); });
        connect(&preferences, &Preferences::changed, &*m_permissions, &PermissionRows::rowsChanged);
    }
    return *m_permissions;
}

void AppDelegate::screenChanged()
{
    m_captureControl.position();
    if (m_statusIconChecked)
        checkStatusIcon();
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
    m_model.notes().newNote();
}

void AppDelegate::exportLibrary()
{
    showLibrary();
    Q_EMIT exportWanted();
}

void AppDelegate::importLibrary()
{
    showLibrary();
    Q_EMIT importWanted();
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
    connect(&m_model.capture(), &Capture::phaseTitleChanged, this, &AppDelegate::showCaptureState);
    connect(
        &m_model.library(), &LibrarySession::readyChanged, this, &AppDelegate::showCaptureState);
    connect(&m_model.accounts(), &AccountStore::stateChanged, this, &AppDelegate::showCaptureState);
    showCaptureState();
}

void AppDelegate::observeStatusIcon()
{
    m_platform.statusItem.onVisibleChanged = [this] {
        if (m_statusIconChecked)
            checkStatusIcon();
    };
    m_statusIconCheck.start(statusIconSettles, [this] { checkStatusIcon(); });
}

// No panel of this desktop has a notch; what hides the icon here is a panel without a place for it.
void AppDelegate::checkStatusIcon()
{
    const bool hidden
        = StatusIconPlacement::iconHidden(0, 0, std::nullopt, m_platform.statusItem.visible());
    if (hidden != m_statusIconHidden || !m_statusIconChecked)
        qCInfo(captureLog, "status_icon_hidden=%d", hidden);
    m_statusIconChecked = true;
    assign(*this, m_statusIconHidden, hidden, &AppDelegate::statusIconHiddenChanged);
}

void AppDelegate::wireHotkeys()
{
    m_hotkeys.onTrigger = [this] { m_model.capture().toggleDictation(); };
    m_hotkeys.fnEnabled
        = [this] { return m_model.preferences().fnEnabled.get() && !m_shortcut.listening(); };
    m_hotkeys.isRecording = [this] { return m_model.capture().isRecording(); };
    m_hotkeys.canStart = [this] { return canStart(); };
    m_hotkeys.gestureKey = [this] { return m_gestureKey; };
    m_hotkeys.combination = [this] { return m_shortcut.combination(); };
    m_hotkeys.isLocked = [this] { return m_platform.session.locked(); };
    m_hotkeys.onFnAction = [this](FnShortcutAction action) { m_model.capture().handleFn(action); };
    m_hotkeys.onFnTap = [this] { m_model.capture().fnTapped(); };
    m_hotkeys.onSendIntent = [this] { m_model.review().armSend(); };
}

RemoteCommands::Program AppDelegate::remoteProgram()
{
    Capture& capture = m_model.capture();
    return {
        .phase = [&capture] { return capture.phase(); },
        .ready = [this] { return m_model.library().ready(); },
        .title =
            [this, &capture] {
                const std::string& refusal = m_model.library().refusal();
                return refusal.empty() ? capture.phaseTitle() : translated(refusal);
            },
        .elapsed = [&capture] { return capture.elapsed(); },
        .start =
            [this, &capture] {
                noteCommand();
                capture.toggleDictation();
            },
        .stop = [&capture] { capture.toggleDictation(); },
        .cancel = [&capture] { return capture.cancel(); },
        .show = [this] { applicationShouldHandleReopen(); },
        .quit = [this] { quit(); },
        .gestureKey =
            [this](bool down) {
                noteCommand();
                m_hotkeys.commandGestureKey(down);
            },
        .hasShortcut = [this] { return m_shortcut.inForce(); },
    };
}

// Who has set a command up need not be told how to.
void AppDelegate::noteCommand()
{
    if (m_platform.offer.shortcut == SessionOffer::Shortcut::own
        || m_platform.settings.get<bool>(commandedKey))
        return;
    m_platform.settings.set(commandedKey, true);
    m_model.status().setShortcutMessage({});
}

bool AppDelegate::canStart() const
{
    return m_model.capture().phase() == Phase::idle && m_model.library().ready()
        && m_model.accounts().admits();
}

void AppDelegate::showCaptureState()
{
    const bool recording = m_model.capture().isRecording();
    m_platform.statusItem.show(
        statusIcon(recording), QStringLiteral("Vesko: ") + m_model.capture().phaseTitle());
    const QString title = recording ? translated(L10N_KEY("Vesko", "Stop dictation"))
        : m_model.capture().phase() == Phase::idle
        ? translated(L10N_KEY("Vesko", "Start dictation"))
        : m_model.capture().phaseTitle();
    m_platform.statusItem.setCapture(title, recording || canStart());
}

// Whoever has to sign in is asked to as soon as it is known that nobody has.
void AppDelegate::observeAccess()
{
    if (m_model.accounts().signedOut() && !m_model.accounts().admits())
        m_model.capture().onAccountNeeded();
}

void AppDelegate::quit()
{
    if (std::exchange(m_quitting, true))
        return;
    whenSafe([this](bool safe) {
        m_quitting = false;
        if (safe)
            terminate();
        else
            showLibrary(); // which says why not
    });
}

void AppDelegate::whenSafe(std::function<void(bool)> then)
{
    m_whenSafe.push_back(std::move(then));
    if (m_whenSafe.size() == 1)
        m_tasks.spawn(keepAll());
}

// The desktop's session, the signals and the user may ask for it at the same time.
Task<> AppDelegate::keepAll()
{
    const bool safe = co_await m_model.prepareToQuit();
    for (const auto& then : std::exchange(m_whenSafe, {}))
        then(safe);
}

void AppDelegate::willTerminate()
{
    m_hotkeys.stop();
}

} // namespace vesko
