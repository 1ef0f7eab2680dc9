// The process: names the concrete parts of this desktop, and hands them to the program.

#include "VeskoApp/async/QtClock.h"
#include "VeskoApp/shell/AppDelegate.h"
#include "VeskoApp/shell/AppModel.h"
#include "VeskoApp/shell/Deployment.h"
#include "VeskoApp/shell/KeyInstaller.h"
#include "VeskoApp/shell/ModelInstaller.h"
#include "VeskoApp/views/Windows.h"
#include "VeskoApp/wording/InterfaceLanguage.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/base/Localized.h"
#include "VeskoLinux/audio/GstCueEngine.h"
#include "VeskoLinux/audio/GstPlayer.h"
#include "VeskoLinux/audio/GstRecorder.h"
#include "VeskoLinux/command/Arguments.h"
#include "VeskoLinux/console/ExportCommand.h"
#include "VeskoLinux/console/TranscribeCommand.h"
#include "VeskoLinux/console/Waiting.h"
#include "VeskoLinux/desktop/CborSettings.h"
#include "VeskoLinux/desktop/DBusNotifications.h"
#include "VeskoLinux/desktop/DBusRunningInstance.h"
#include "VeskoLinux/desktop/DesktopBrowser.h"
#include "VeskoLinux/desktop/DesktopSession.h"
#include "VeskoLinux/desktop/PortalAppearance.h"
#include "VeskoLinux/desktop/PortalFileChooser.h"
#include "VeskoLinux/desktop/QtClipboardKeeper.h"
#include "VeskoLinux/desktop/TerminationSignals.h"
#include "VeskoLinux/desktop/TrayStatusItem.h"
#include "VeskoLinux/desktop/X11Desktop.h"
#include "VeskoLinux/desktop/XdgFolders.h"
#include "VeskoLinux/desktop/XdgLoginItem.h"
#include "VeskoLinux/doctor/Checks.h"
#include "VeskoLinux/doctor/DoctorProcess.h"
#include "VeskoLinux/input/X11GlobalShortcut.h"
#include "VeskoLinux/media/GstPlugins.h"
#include "VeskoLinux/permissions/LinuxPermissions.h"
#include "VeskoLinux/secrets/SecretServiceStore.h"
#include "VeskoLinux/session/LinuxSession.h"
#include "VeskoLinux/speech/Cld2LanguageRecognizer.h"
#include "VeskoLinux/speech/EngineRecognizer.h"
#include "VeskoLinux/speech/EngineShelf.h"
#include "VeskoLinux/speech/PreferredLanguages.h"
#include "VeskoLinux/speech/VoiceSpeechGate.h"
#include "VeskoLinux/speech/engines/PocketSphinxEngine.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTranslator>
#include <QtQml/QQmlExtensionPlugin>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <future>
#include <iostream>
#include <iterator>
#include <malloc.h>
#include <span>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

Q_IMPORT_QML_PLUGIN(Vesko_ViewsPlugin)

namespace vesko {

namespace {

int installKeyFromEnvironment()
{
    // First of all, since the programs that the secret store starts inherit the environment.
    const auto key = takeFromEnvironment("OPENROUTER_API_KEY");
    SecretServiceStore secrets;
    CborSettings settings(configFolder());
    return installKey(key, secrets, settings, std::cout, std::cerr);
}

ModelSource modelSource(const Deployment& deployment)
{
    std::filesystem::path list;
    for (const auto& folder : deploymentFolders())
        if (list.empty() && std::filesystem::exists(folder / "SpeechModels.json"))
            list = folder / "SpeechModels.json";
    return { list, deployment.speechModelsURL, dataFolder() / "vesko/models" };
}

int installModelNamed(const std::string& name)
{
    const auto source = modelSource(Deployment::read(deploymentFolders()));
    if (source.address.empty())
        throw std::runtime_error("this build names no place to load models from");
    std::ifstream file(source.list);
    const std::string list{ std::istreambuf_iterator<char>(file), {} };
    return installModel(name, list, source.address, source.folder, std::cout, std::cerr);
}

// The recogniser of the settings, for a command that is over soon.
struct SpeechOfSettings {
    std::filesystem::path programs = programFolder();
    CborSettings settings{ configFolder() };
    SecretServiceStore secrets;
    Keychain keychain{ secrets };
    XdgLoginItem loginItem{ configFolder(), programPath() };
    Preferences preferences{ settings, keychain, loginItem };
    EngineRecognizer recognizer{ std::make_shared<PocketSphinxEngine>(
        programs / "vesko-pocketsphinx") };
    EngineShelf shelf{ EngineShelf::usualPlaces(programs, dataFolder()),
        [this](std::shared_ptr<const SpeechEngine> engine) { recognizer.use(std::move(engine)); } };
};

// The engines are looked for, and the one of the settings is tried; a server's key stays where it
// is.
SpeechHere speechHere()
{
    SpeechOfSettings speech;
    auto choice = EngineSelection::choiceOf(speech.preferences);
    SpeechHere here{ .chosen = choice.id,
        .inUse = speech.preferences.provider.get() == "apple",
        .language = speech.preferences.language.get(),
        .found = waitedFor(speech.shelf.find()) };
    here.isThere = waitedFor(speech.shelf.use(std::move(choice)));
    if (here.language == "auto" && !speech.recognizer.supports("auto"))
        here.language = speech.recognizer.systemLanguage();
    here.speaks = here.isThere && speech.recognizer.supports(here.language);
    return here;
}

// Whether nothing is wanting. The settings are read and nothing else of Vesko's is opened for it,
// so it can be asked beside one that runs.
bool sayWhatWorks(int argc, char** argv, bool network)
{
    startGStreamer();
    const QCoreApplication application(argc, argv); // for the bus
    SpeechHere speech;
    const auto deployment = Deployment::read(deploymentFolders());
    const OpenRouterClient client(deployment.openRouterBaseURL);
    const auto data = AppModel::dataRoot(std::getenv("VESKO_DATA_ROOT"), dataFolder());
    const auto session = LinuxSession::summary();
    const auto isFree = [] {
        const CborSettings settings(configFolder());
        return X11GlobalShortcut().install(
            shortcutFrom(settings.get<std::string>("shortcut").value_or("")), [] { });
    };
    bool works = true;
    std::vector<Check> checks{
        { "Versions", [&] { return lookAtVersions(deployment.version); } },
        { "Session", [&] { return lookAtSession(session); } },
        { "Program", lookAtProgram },
        { "Shortcut", [&] { return lookAtShortcut(session.starts_with("Wayland"), isFree); } },
        { "Accessibility", lookAtAccessibility },
        { "Status icon", lookAtTray },
        { "Notifications", lookAtNotifications },
        { "Microphone", lookAtMicrophone },
        { "Recordings", lookAtEncoder },
        { "Recogniser", [&] { return lookAtRecognizer(speech = speechHere()); } },
        { "Other engines", [&] { return lookAtOtherEngines(speech); } },
        { "Keyring", lookAtKeyring },
        { "Data folder", [&] { return lookAtData(data); } },
    };
    if (network)
        checks.push_back({ "Network", [&] { return lookAtService(client); } });
    diagnose(checks, [&](const Finding& finding) {
        works = works && finding.state != Finding::State::wanting;
        std::cout << described(finding) << std::flush;
    });
    return works;
}

int transcribe(int argc, char** argv, const Arguments& read)
{
    startGStreamer();
    const QCoreApplication application(argc, argv);
    SpeechOfSettings speech;
    EngineSelection engines(speech.shelf, speech.preferences, speech.keychain);
    const OpenRouterClient client(Deployment::read(deploymentFolders()).openRouterBaseURL);
    const SystemClock clock;
    return TranscribeCommand(
        { .recognizer = speech.recognizer,
            .engines = engines,
            .client = client,
            .preferences = speech.preferences,
            .secrets = speech.secrets,
            .clock = clock,
            .root = AppModel::dataRoot(std::getenv("VESKO_DATA_ROOT"), dataFolder()) })
        .run({ .file = read.file, .language = read.language, .keep = read.keep });
}

// What it says, or throws, also goes to whom it is promised.
bool claim(DBusRunningInstance& runningInstance, const std::vector<std::string>& addresses,
    bool quiet, const std::filesystem::path& lock, std::promise<bool>& claimed)
{
    try {
        const bool isTheOne = runningInstance.claim(addresses, quiet, lock);
        claimed.set_value(isTheOne);
        return isTheOne;
    } catch (...) {
        claimed.set_exception(std::current_exception());
        return false;
    }
}

// Who starts the program from a menu reads nothing that is written.
void showNotice(const QString& sentence)
{
    if (isatty(STDERR_FILENO))
        return;
    QQmlEngine engine;
    prepareViews(engine);
    const auto notice = makeNotice(engine, sentence);
    notice->show();
    QGuiApplication::exec();
}

// Everything that must not be lost was kept before the event loop ended. What still waits then, for
// a sound server that hangs, must not keep the program alive.
void endSoon(int code)
{
    std::thread([code] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        std::_Exit(code);
    }).detach();
}

int runApplication(
    int argc, char** argv, bool background, const std::vector<std::string>& addresses)
{
    // Each growth of the heap halts the threads that start beside each other, so it grows in large
    // steps; memory that nobody has written to costs nothing.
    mallopt(M_TOP_PAD, 64 << 20);
    startGStreamer();
    // Reading a large library takes as long as all else of the start, and goes on beside it. Only
    // the one Vesko may begin, else two that start at once could keep each other from theirs.
    QtClock clock;
    DBusRunningInstance runningInstance;
    std::promise<bool> claimed;
    const auto root = AppModel::dataRoot(std::getenv("VESKO_DATA_ROOT"), dataFolder());
    auto library = std::async(std::launch::async, [&] {
        const bool isTheOne
            = claim(runningInstance, addresses, background, root / ".lock", claimed);
        return isTheOne ? std::make_unique<LibraryStore>(root, clock) : nullptr;
    });

    // Quiet windows don't need a graphics driver, which costs more memory than all the rest.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    const bool chosen = LinuxSession::chooseWindowSystem();
    // Else Qt asks whether accessibility is on, and waits for an answer that may never come; a bus
    // that comes later would not get our windows.
    qputenv("QT_LINUX_ACCESSIBILITY_ALWAYS_ON", "1");
    QGuiApplication application(argc, argv);
    if (chosen)
        qunsetenv("QT_QPA_PLATFORM");
    QGuiApplication::setApplicationName(QStringLiteral("vesko"));
    QGuiApplication::setDesktopFileName(QStringLiteral("app.vesko.Vesko"));
    const auto languages = preferredLanguages();
    QTranslator wording;
    if (wording.load(catalogueOf(interfaceLanguage(languages))))
        QGuiApplication::installTranslator(&wording);

    bool isTheOne = false;
    try {
        isTheOne = claimed.get_future().get();
    } catch (const std::exception& error) {
        std::cerr << "vesko: " << error.what() << "\n";
        showNotice(translated(error.what()));
        return 1;
    }
    const bool quiet = background && addresses.empty();
    if (const auto& display = runningInstance.elsewhere(); !display.empty()) {
        std::cerr << "vesko: Vesko is running already, on the display " << display
                  << (isTheOne       ? ", and can't be told to show its window there.\n"
                             : quiet ? ".\n"
                                     : ", and shows its window there.\n");
        if (!isTheOne && !quiet)
            showNotice(translated(L10N_KEY("Vesko",
                                      "Vesko is running already, on the display %1, and shows its "
                                      "window there."))
                    .arg(QString::fromStdString(display)));
    }
    if (!isTheOne)
        return 0;
    QGuiApplication::setQuitOnLastWindowClosed(false);
    // The control's parts are loaded while the rest of the machine is asked for.
    QQmlEngine engine;
    prepareViews(engine);
    const auto deployment = Deployment::read(deploymentFolders());
    QGuiApplication::setApplicationVersion(QString::fromStdString(deployment.version));

    GstRecorder recorder;
    GstPlayer player;
    GstCueEngine cues(deploymentFolders());
    const auto programs = programFolder();
    EngineRecognizer recognizer(
        std::make_shared<PocketSphinxEngine>(programs / "vesko-pocketsphinx"));
    EngineShelf speechEngines(EngineShelf::usualPlaces(programs, dataFolder()),
        [&](std::shared_ptr<const SpeechEngine> engine) { recognizer.use(std::move(engine)); });
    VoiceSpeechGate speechGate;
    Cld2LanguageRecognizer textLanguage;
    SecretServiceStore secrets;
    CborSettings settings(configFolder());
    DesktopSession sessionState;
    LinuxSession session(clock, settings, sessionState);
    XdgLoginItem loginItem(configFolder(), programPath());
    TrayStatusItem statusItem;
    DBusNotifications notifications;
    DesktopBrowser browser;
    X11Desktop desktop;
    PortalFileChooser fileChooser(clock);
    PortalAppearance appearance;
    LinuxPermissions permissions;
    DoctorProcess doctor(programs / "vesko-app");
    Platform platform{ clock, recorder, player, cues, recognizer, speechEngines, speechGate,
        textLanguage, session.focusedField(), session.pasteKeystroke(), session.clipboard(),
        session.shortcut(), session.keys(), secrets, settings, loginItem, statusItem, notifications,
        browser, runningInstance, runningInstance.control(), desktop, fileChooser, appearance,
        permissions, doctor, sessionState, languages, root, session.offer(),
        session.desktopShortcut() };

    AppModel model(
        platform, [&library] { return library.get(); },
        OpenRouterClient(deployment.openRouterBaseURL), deployment.analytics, deployment.account,
        modelSource(deployment));
    AppDelegate delegate(platform, model);
    delegate.windows().make
        = [&](AppWindow kind) { return makeWindow(engine, kind, platform, model, delegate); };
    delegate.makeCapturePanel = [&] { return makeCapturePanel(engine, platform, model, delegate); };
    delegate.terminate = [] { QGuiApplication::exit(); };
    const TerminationSignals signals([&delegate] { delegate.quit(); });
    QObject::connect(
        &application, &QGuiApplication::aboutToQuit, [&] { delegate.willTerminate(); });
    delegate.launch(background,
        AppDelegate::Demo::from(std::getenv("VESKO_DATA_ROOT"), std::getenv("VESKO_DEMO_SCENE"),
            std::getenv("VESKO_DEMO_APPEARANCE")));
    const int code = QGuiApplication::exec();
    leaveClipboardBehind();
    endSoon(code);
    return code;
}

} // namespace

} // namespace vesko

int main(int argc, char** argv)
{
    using namespace vesko;
    // Where it is set, libcurl would write down what decrypts its connections.
    takeFromEnvironment("SSLKEYLOGFILE");
    try {
        const auto read = Arguments::read({ argv + 1, static_cast<std::size_t>(argc - 1) });
        if (read.purpose == Purpose::keyInstaller)
            return installKeyFromEnvironment();
        if (read.purpose == Purpose::modelInstaller)
            return installModelNamed(read.model);
        if (read.purpose == Purpose::clipboardKeeper) {
            LinuxSession::chooseWindowSystem();
            return keepClipboard(argc, argv);
        }
        if (read.purpose == Purpose::transcribe)
            return transcribe(argc, argv, read);
        if (read.purpose == Purpose::exportLibrary)
            return exportToFolder(AppModel::dataRoot(std::getenv("VESKO_DATA_ROOT"), dataFolder()),
                read.file, SystemClock());
        if (read.purpose == Purpose::doctor)
            return sayWhatWorks(argc, argv, read.network) ? 0 : 1;
        return runApplication(argc, argv, read.purpose == Purpose::background, read.addresses);
    } catch (const std::exception& error) {
        // Nothing of the user's is in these words: only a broken installation comes here.
        std::cerr << "vesko: " << error.what() << "\n";
    }
    return 1;
}
