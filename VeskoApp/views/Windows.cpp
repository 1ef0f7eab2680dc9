#include "VeskoApp/views/Windows.h"

#include "VeskoApp/dictionary/DictionaryView.h"
#include "VeskoApp/exchange/DictionaryExchange.h"
#include "VeskoApp/notes/LibraryWindow.h"
#include "VeskoApp/onboarding/OnboardingView.h"
#include "VeskoApp/settings/EngineSettings.h"
#include "VeskoApp/settings/GestureKeyNames.h"
#include "VeskoApp/settings/PreferencesView.h"
#include "VeskoApp/views/IconProvider.h"
#include "VeskoApp/views/LateListener.h"
#include "VeskoApp/views/StepAside.h"

#include <QElapsedTimer>
#include <QFont>
#include <QFontDatabase>
#include <QIcon>
#include <QImageReader>
#include <QLoggingCategory>
#include <QPixmap>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>

#include <stdexcept>

namespace vesko {

namespace {

Q_LOGGING_CATEGORY(windowsLog, "app.vesko.windows", QtInfoMsg)

const auto capturePanel = QStringLiteral("CapturePanel");

QUrl sourceOf(const QString& name)
{
    return { QStringLiteral("qrc:/qt/qml/Vesko/Views/%1.qml").arg(name) };
}

// Of the build itself, for who runs it without having installed it.
QIcon applicationIcon()
{
    QIcon icon;
    for (const int side : { 32, 64 }) {
        QImageReader reader(QStringLiteral(":/qt/qml/Vesko/Views/icons/vesko.svg"));
        reader.setScaledSize({ side, side });
        icon.addPixmap(QPixmap::fromImageReader(&reader));
    }
    return icon;
}

std::unique_ptr<QWindow> make(
    QQmlEngine& engine, const QString& name, const QVariantMap& properties)
{
    QElapsedTimer began;
    began.start();
    QQmlComponent component(&engine, sourceOf(name));
    if (!component.isReady())
        throw std::runtime_error(component.errorString().toStdString());
    std::unique_ptr<QObject> made(component.createWithInitialProperties(properties));
    auto* const window = qobject_cast<QWindow*>(made.get());
    if (!window)
        throw std::runtime_error(component.errorString().toStdString());
    made.release();
    // For who measures.
    if (auto* const quick = qobject_cast<QQuickWindow*>(window); windowsLog().isDebugEnabled())
        QObject::connect(
            quick, &QQuickWindow::frameSwapped, quick,
            [began, name] {
                qCDebug(windowsLog, "first_frame_ms=%lld %s", began.elapsed(), qPrintable(name));
            },
            Qt::SingleShotConnection);
    return std::unique_ptr<QWindow>(window);
}

QVariant handed(QObject& object)
{
    return QVariant::fromValue(&object);
}

// The window owns what it shows, and knows it by that name.
std::unique_ptr<QWindow> make(QQmlEngine& engine, const QString& name, QVariantMap properties,
    const QString& contentName, std::unique_ptr<QObject> content)
{
    properties.insert(contentName, handed(*content));
    auto window = make(engine, name, properties);
    content.release()->setParent(window.get());
    // Nobody waits for its icon to see a window.
    if (auto* const quick = qobject_cast<QQuickWindow*>(window.get()))
        QObject::connect(
            quick, &QQuickWindow::frameSwapped, quick,
            [quick] { quick->setIcon(applicationIcon()); }, Qt::SingleShotConnection);
    return window;
}

std::unique_ptr<QWindow> makeLibrary(
    QQmlEngine& engine, QVariantMap properties, Platform& platform, AppModel& model)
{
    properties.insert(QStringLiteral("capture"), handed(model.capture()));
    properties.insert(QStringLiteral("exchange"), handed(model.exchange()));
    properties.insert(QStringLiteral("storage"), handed(model.storage()));
    properties.insert(QStringLiteral("status"), handed(model.status()));
    return make(engine, QStringLiteral("LibraryWindow"), properties, QStringLiteral("library"),
        std::make_unique<LibraryWindow>(LibraryWindow::Neighbours{ .clock = platform.clock,
            .fileChooser = platform.fileChooser,
            .desktop = platform.desktop,
            .dataFolder = platform.dataFolder,
            .library = model.library(),
            .selection = model.selection(),
            .edits = model.edits(),
            .notes = model.notes(),
            .capture = model.capture(),
            .playback = model.playback(),
            .run = model.run(),
            .clipboard = model.clipboard(),
            .status = model.status() }));
}

std::unique_ptr<QWindow> makeDictionary(
    QQmlEngine& engine, QVariantMap properties, Platform& platform, AppModel& model)
{
    auto view = std::make_unique<DictionaryView>(
        model.terms(), model.library(), model.capture(), platform.clock);
    properties.insert(QStringLiteral("terms"), handed(model.terms()));
    properties.insert(QStringLiteral("exchange"),
        handed(*new DictionaryExchange(
            platform.clock, platform.fileChooser, model.library(), model.terms(), view.get())));
    return make(engine, QStringLiteral("DictionaryWindow"), properties,
        QStringLiteral("dictionary"), std::move(view));
}

std::unique_ptr<QWindow> makeSettings(QQmlEngine& engine, QVariantMap properties,
    Platform& platform, AppModel& model, PermissionRows& permissions)
{
    properties.insert(QStringLiteral("catalog"), handed(model.catalog()));
    properties.insert(QStringLiteral("notifier"), handed(model.notifier()));
    properties.insert(QStringLiteral("storage"), handed(model.storage()));
    properties.insert(QStringLiteral("status"), handed(model.status()));
    properties.insert(QStringLiteral("downloads"), handed(model.downloads()));
    auto engines
        = std::make_unique<EngineSettings>(EngineSettings::Neighbours{ .platform = platform,
            .preferences = model.preferences(),
            .keychain = model.keychain(),
            .engines = model.engines(),
            .downloads = model.downloads(),
            .status = model.status(),
            .trial = { .clock = platform.clock,
                .recorder = platform.recorder,
                .preferences = model.preferences(),
                .library = model.library(),
                .capture = model.capture(),
                .engines = model.engines(),
                .onDevice = model.onDevice(),
                .folder = platform.dataFolder } });
    properties.insert(QStringLiteral("engines"), handed(*engines));
    auto window
        = make(engine, QStringLiteral("SettingsWindow"), properties, QStringLiteral("preferences"),
            std::make_unique<PreferencesView>(PreferencesView::Neighbours{ .platform = platform,
                .preferences = model.preferences(),
                .permissions = permissions,
                .accounts = model.accounts(),
                .analytics = model.analytics(),
                .catalog = model.catalog(),
                .cues = model.cues(),
                .status = model.status() }));
    engines.release()->setParent(window.get());
    return window;
}

std::unique_ptr<QWindow> makeOnboarding(QQmlEngine& engine, QVariantMap properties,
    Platform& platform, AppModel& model, AppDelegate& delegate)
{
    auto& accounts = model.accounts();
    auto view = std::make_unique<OnboardingView>(
        delegate.permissions(),
        platform.offer.allKeys
            ? shownName(model.preferences().gestureKey(platform.keys.reportsFn()))
            : QString(),
        OnboardingView::Account{ .flow =
                                     [&accounts] {
                                         return OnboardingFlow{ .accountRequired
                                             = accounts.required(),
                                             .signedIn = accounts.signedIn(),
                                             .hasAccounts = accounts.available() };
                                     },
            .email =
                [&accounts] {
                    const auto* const account = accounts.account();
                    return account ? account->email : std::nullopt;
                } },
        [&analytics = model.analytics()](UsageEvent event) { analytics.track(event); },
        [&delegate] { delegate.finishOnboarding(); });
    QObject::connect(
        &accounts, &AccountStore::stateChanged, view.get(), &OnboardingView::accountChanged);
    properties.insert(QStringLiteral("signIn"), handed(*new SignInChoices(accounts, view.get())));
    properties.insert(QStringLiteral("status"), handed(model.status()));
    return make(engine, QStringLiteral("OnboardingWindow"), properties,
        QStringLiteral("onboarding"), std::move(view));
}

} // namespace

void prepareViews(QQmlEngine& engine)
{
    // Several fonts have a grey drawing of some of the signs that people expect in colour. Without
    // the windows' own font the next one would draw all letters.
    const auto family = QStringLiteral("Inter");
    if (QFontDatabase::hasFamily(family))
        QFont::insertSubstitution(family, QStringLiteral("Noto Color Emoji"));
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    engine.addImageProvider(QStringLiteral("icon"), new IconProvider);
    new LateListener(&engine);
    // Whoever makes the control soon finds it loaded, or waits for the rest only.
    new QQmlComponent(&engine, sourceOf(capturePanel), QQmlComponent::Asynchronous, &engine);
}

std::unique_ptr<QWindow> makeCapturePanel(
    QQmlEngine& engine, Platform& platform, AppModel& model, AppDelegate& delegate)
{
    auto panel = make(engine, capturePanel,
        { { QStringLiteral("capture"), handed(model.capture()) },
            { QStringLiteral("session"), handed(model.library()) },
            { QStringLiteral("inquiry"), handed(model.language()) },
            { QStringLiteral("status"), handed(model.status()) },
            { QStringLiteral("control"), handed(delegate.captureControl()) },
            { QStringLiteral("delegate"), handed(delegate) } });
    panel->setProperty("_q_showWithoutActivating", true);
    new StepAside(delegate.captureControl(), platform.clock, panel.get());
    return panel;
}

std::unique_ptr<QWindow> makeWindow(
    QQmlEngine& engine, AppWindow kind, Platform& platform, AppModel& model, AppDelegate& delegate)
{
    QVariantMap properties{ { QStringLiteral("session"), handed(model.library()) },
        { QStringLiteral("delegate"), handed(delegate) } };
    try {
        switch (kind) {
        case AppWindow::library:
            return makeLibrary(engine, properties, platform, model);
        case AppWindow::dictionary:
            return makeDictionary(engine, properties, platform, model);
        case AppWindow::settings:
            return makeSettings(engine, properties, platform, model, delegate.permissions());
        case AppWindow::onboarding:
            return makeOnboarding(engine, properties, platform, model, delegate);
        }
    } catch (const std::exception& error) {
        // A broken installation. Nothing that runs is to end because of it.
        qCCritical(windowsLog, "%s", error.what());
    }
    return nullptr;
}

std::unique_ptr<QWindow> makeNotice(QQmlEngine& engine, const QString& text)
{
    return make(engine, QStringLiteral("NoticeWindow"), { { QStringLiteral("text"), text } });
}

} // namespace vesko
