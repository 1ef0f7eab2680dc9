// The process: names the concrete parts of this desktop, and hands them to the program.

#include "VeskoApp/async/QtClock.h"
#include "VeskoApp/capture/AppModel.h"
#include "VeskoApp/shell/AppDelegate.h"
#include "VeskoApp/shell/Deployment.h"
#include "VeskoApp/shell/KeyInstaller.h"
#include "VeskoApp/views/Windows.h"
#include "VeskoApp/wording/InterfaceLanguage.h"
#include "VeskoLinux/audio/GstCueEngine.h"
#include "VeskoLinux/audio/GstPlayer.h"
#include "VeskoLinux/audio/GstRecorder.h"
#include "VeskoLinux/command/Arguments.h"
#include "VeskoLinux/desktop/CborSettings.h"
#include "VeskoLinux/desktop/DBusRunningInstance.h"
#include "VeskoLinux/desktop/DesktopBrowser.h"
#include "VeskoLinux/desktop/PortalAppearance.h"
#include "VeskoLinux/desktop/PortalFileChooser.h"
#include "VeskoLinux/desktop/TerminationSignals.h"
#include "VeskoLinux/desktop/TrayStatusItem.h"
#include "VeskoLinux/desktop/X11Desktop.h"
#include "VeskoLinux/desktop/XdgFolders.h"
#include "VeskoLinux/desktop/XdgLoginItem.h"
#include "VeskoLinux/media/GstPlugins.h"
#include "VeskoLinux/permissions/LinuxPermissions.h"
#include "VeskoLinux/secrets/SecretServiceStore.h"
#include "VeskoLinux/session/LinuxSession.h"
#include "VeskoLinux/speech/Cld2LanguageRecognizer.h"
#include "VeskoLinux/speech/PocketSphinxRecognizer.h"
#include "VeskoLinux/speech/PreferredLanguages.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTranslator>
#include <QtQml/QQmlExtensionPlugin>

#include <cstdlib>
#include <future>
#include <iostream>
#include <malloc.h>
#include <span>
#include <string>
#include <vector>

Q_IMPORT_QML_PLUGIN(Vesko_ViewsPlugin)

namespace vesko {

namespace {

int installKeyFromEnvironment()
{
    SecretServiceStore secrets;
    CborSettings settings(configFolder());
    return installKey(std::getenv("OPENROUTER_API_KEY"), secrets, settings, std::cout, std::cerr);
}

// What it says, or throws, also goes to whom it is promised.
bool claim(DBusRunningInstance& runningInstance, const std::vector<std::string>& addresses,
    bool quiet, std::promise<bool>& claimed)
{
    try {
        const bool isTheOne = runningInstance.claim(addresses, quiet);
        claimed.set_value(isTheOne);
        return isTheOne;
    } catch (...) {
        claimed.set_exception(std::current_exception());
        return false;
    }
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
        const bool isTheOne = claim(runningInstance, addresses, background, claimed);
        return isTheOne ? std::make_unique<LibraryStore>(root, clock) : nullptr;
    });

    // Quiet windows don't need a graphics driver, which costs more memory than all the rest.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    LinuxSession::chooseWindowSystem();
    QGuiApplication application(argc, argv);
    if (!claimed.get_future().get())
        return 0;
    QGuiApplication::setApplicationName(QStringLiteral("vesko"));
    QGuiApplication::setDesktopFileName(QStringLiteral("app.vesko.Vesko"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
    // The control's parts are loaded while the rest of the machine is asked for.
    QQmlEngine engine;
    prepareViews(engine);
    const auto deployment = Deployment::read(deploymentFolders());
    QGuiApplication::setApplicationVersion(QString::fromStdString(deployment.version));
    const auto languages = preferredLanguages();
    QTranslator wording;
    if (wording.load(catalogueOf(interfaceLanguage(languages))))
        QGuiApplication::installTranslator(&wording);

    GstRecorder recorder;
    GstPlayer player;
    GstCueEngine cues(deploymentFolders());
    PocketSphinxRecognizer recognizer;
    Cld2LanguageRecognizer textLanguage;
    SecretServiceStore secrets;
    CborSettings settings(configFolder());
    LinuxSession session(clock, settings);
    XdgLoginItem loginItem(configFolder(), programPath());
    TrayStatusItem statusItem;
    DesktopBrowser browser;
    X11Desktop desktop;
    PortalFileChooser fileChooser(clock);
    PortalAppearance appearance;
    LinuxPermissions permissions;
    Platform platform{ clock, recorder, player, cues, recognizer, textLanguage,
        session.focusedField(), session.pasteKeystroke(), session.clipboard(), session.shortcut(),
        session.keys(), secrets, settings, loginItem, statusItem, browser, runningInstance,
        runningInstance.control(), desktop, fileChooser, appearance, permissions, languages, root,
        session.offer() };

    AppModel model(
        platform, [&library] { return library.get(); },
        OpenRouterClient(deployment.openRouterBaseURL), deployment.analytics, deployment.account);
    AppDelegate delegate(platform, model);
    delegate.windows().make
        = [&](AppWindow kind) { return makeWindow(engine, kind, platform, model, delegate); };
    delegate.makeCapturePanel = [&] { return makeCapturePanel(engine, model, delegate); };
    delegate.terminate = [] { QGuiApplication::exit(); };
    const TerminationSignals signals([&delegate] { delegate.quit(); });
    QObject::connect(
        &application, &QGuiApplication::aboutToQuit, [&] { delegate.willTerminate(); });
    delegate.launch(background,
        AppDelegate::Demo::from(std::getenv("VESKO_DATA_ROOT"), std::getenv("VESKO_DEMO_SCENE"),
            std::getenv("VESKO_DEMO_APPEARANCE")));
    return QGuiApplication::exec();
}

} // namespace

} // namespace vesko

int main(int argc, char** argv)
{
    using namespace vesko;
    try {
        const auto read = Arguments::read({ argv + 1, static_cast<std::size_t>(argc - 1) });
        if (read.purpose == Purpose::keyInstaller)
            return installKeyFromEnvironment();
        return runApplication(argc, argv, read.purpose == Purpose::background, read.addresses);
    } catch (const std::exception& error) {
        // Nothing of the user's is in these words: only a broken installation comes here.
        std::cerr << "vesko: " << error.what() << "\n";
    }
    return 1;
}
