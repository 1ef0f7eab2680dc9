// The process around the controller.

#include "VeskoApp/shell/AppDelegate.h"
#include "VeskoCore/account/QueryItems.h"
#include "tests/app/capture/AppModelTest.h"
#include "tests/fakes/LoopbackServer.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>
#include <QScreen>

namespace vesko {

namespace {

class AppDelegateTest : public AppModelTest {
protected:
    void launch()
    {
        delegate = std::make_unique<AppDelegate>(machine.all, *model);
        delegate->makeCapturePanel = [] { return std::make_unique<QWindow>(); };
        delegate->windows().make = [this](AppWindow kind) {
            auto window = std::make_unique<QWindow>();
            made.emplace_back(kind, window.get());
            return window;
        };
        delegate->terminate = [this] { ++terminated; };
        delegate->launch(background, demo);
    }
    // How often a user was sent to where one begins, and signs in.
    std::ptrdiff_t onboardings() const
    {
        std::ptrdiff_t count = 0;
        for (const auto& [kind, window] : made)
            if (kind == AppWindow::onboarding)
                count += 1 + std::ranges::count(machine.desktop.broughtHere, window);
        return count;
    }
    bool controlShown() const { return delegate->captureControl().window()->isVisible(); }
    // The kinds of the windows that were made, in that order.
    std::vector<AppWindow> opened() const
    {
        std::vector<AppWindow> kinds;
        for (const auto& [kind, window] : made)
            kinds.push_back(kind);
        return kinds;
    }
    void open()
    {
        AppModelTest::open();
        launch();
    }
    void expectStatus(const char* toolTip, const char* title, bool enabled) const
    {
        EXPECT_EQ(machine.statusItem.toolTip.toStdString(), toolTip);
        EXPECT_EQ(machine.statusItem.captureTitle.toStdString(), title);
        EXPECT_EQ(machine.statusItem.captureEnabled, enabled);
    }

    bool background = true;
    AppDelegate::Demo demo;
    std::vector<std::pair<AppWindow, QWindow*>> made;
    int terminated = 0;
    std::unique_ptr<AppDelegate> delegate; // ends before the model
};

TEST_F(AppDelegateTest, TheStatusItemFollowsTheCapture)
{
    open();
    expectStatus("Vesko: Ready", "Start dictation", true);

    machine.recorder.access.close();
    machine.statusItem.onCapture();
    expectStatus("Vesko: Starting microphone", "Starting microphone", false);
    EXPECT_EQ(machine.focusedField.reads.size(), 1U);
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::recording));
    expectStatus("Vesko: Recording", "Stop dictation", true);

    machine.recognizer.hears.reset();
    machine.statusItem.onCapture();
    expectStatus("Vesko: Transcribing", "Transcribing", false);
    ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
    machine.recognizer.report({ .text = "done", .isFinal = true });
    ASSERT_TRUE(reach(Phase::idle));
    expectStatus("Vesko: Ready", "Start dictation", true);
}

TEST_F(AppDelegateTest, NothingCanBeStartedUntilTheLibraryIsReady)
{
    start();
    launch();
    expectStatus("Vesko: Ready", "Start dictation", false);
    machine.keys.pressGestureKey();
    machine.keys.releaseGestureKey();
    EXPECT_TRUE(machine.focusedField.reads.empty());
    ASSERT_TRUE(eventually([&] { return model->libraryReady(); }));
    expectStatus("Vesko: Ready", "Start dictation", true);
}

TEST_F(AppDelegateTest, WhoHasToSignInIsAskedToAtTheLaunchAndStartsNothingBefore)
{
    choose("onboardingCompleted", true);
    accounts.required = true;
    open();
    EXPECT_EQ(onboardings(), 1);
    expectStatus("Vesko: Ready", "Start dictation", false);
    machine.keys.pressGestureKey();
    machine.keys.releaseGestureKey();
    EXPECT_TRUE(machine.focusedField.reads.empty());
    machine.shortcut.press();
    EXPECT_EQ(onboardings(), 2);
    EXPECT_TRUE(machine.focusedField.reads.empty());
    EXPECT_EQ(model->phase(), Phase::idle);
}

TEST_F(AppDelegateTest, NobodyIsAskedWhoNeedNotSignInOrMayHave)
{
    choose("onboardingCompleted", true);
    open();
    EXPECT_EQ(onboardings(), 0);

    // An earlier run had an account, and the secret store has not answered yet.
    delegate.reset();
    model.reset();
    accounts.required = true;
    choose("veskoAccount", std::vector<std::byte>());
    start();
    launch();
    EXPECT_EQ(onboardings(), 0);
    expectStatus("Vesko: Ready", "Start dictation", false);
    ASSERT_TRUE(eventually([&] { return model->accounts().signedOut(); }));
    EXPECT_EQ(onboardings(), 1);
}

TEST_F(AppDelegateTest, WhoHasSignedInMayStart)
{
    choose("onboardingCompleted", true);
    LoopbackServer server;
    accounts.required = true;
    accounts.baseURL = server.url();
    accounts.googleClientID = "1-a.apps.googleusercontent.com";
    accounts.google.token = server.url() + "/token";
    open();
    expectStatus("Vesko: Ready", "Start dictation", false);
    server.reply(LoopbackServer::answer(200, R"({"id_token":"x"})"));
    server.reply(LoopbackServer::answer(200,
        R"({"session":{"token":"t","expiresAt":"2026-12-21T10:52:00Z"},"account":{"id":)"
        R"("0123ABCD-4567-89EF-ABCD-EF0123456789","providers":["google"],"createdAt":)"
        R"("2026-11-21T10:52:00Z"}})"));
    model->accounts().run(model->accounts().signInWithGoogle());
    ASSERT_EQ(machine.browser.pages.size(), 1U);
    const auto items = *queryItems(machine.browser.pages.back());
    const std::string redirect = *firstItem(items, "redirect_uri")->second
        + "?code=4&state=" + *firstItem(items, "state")->second;
    machine.runningInstance.onOpen({ "https://elsewhere.example/?code=4", redirect, redirect });
    ASSERT_TRUE(eventually([&] { return model->accounts().signedIn(); }));
    expectStatus("Vesko: Ready", "Start dictation", true);
    EXPECT_EQ(machine.secrets.items().at("vesko-session"), "t");
    EXPECT_EQ(server.requests().size(), 2U);

    server.reply(LoopbackServer::answer(204, ""));
    awaited(model->accounts().signOut());
    expectStatus("Vesko: Ready", "Start dictation", false);
    EXPECT_EQ(onboardings(), 2);
}

TEST_F(AppDelegateTest, TheIconFollowsTheDesktopsAppearance)
{
    open();
    const auto colour
        = [&] { return machine.statusItem.icon.pixmap(54, 54).toImage().pixelColor(27, 27); };
    const QPalette before = qGuiApp->palette();
    QGuiApplication::setPalette(QPalette(QColor(Qt::black)));
    drainEvents();
    const QColor dark = colour();
    QGuiApplication::setPalette(QPalette(QColor(Qt::white)));
    drainEvents();
    const QColor light = colour();
    QGuiApplication::setPalette(before);
    drainEvents();
    EXPECT_GT(dark.lightnessF(), light.lightnessF());
}

TEST_F(AppDelegateTest, TheShortcutTogglesADictation)
{
    open();
    machine.shortcut.press();
    EXPECT_EQ(machine.focusedField.reads.size(), 1U);
    ASSERT_TRUE(reach(Phase::recording));
    machine.clock.turn(1);
    machine.shortcut.press();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyNote().body, "hello world");
    EXPECT_EQ(model->shortcutMessage(), "");
}

TEST_F(AppDelegateTest, AShortcutThatIsTakenIsReported)
{
    machine.shortcut.taken = true;
    open();
    EXPECT_EQ(model->shortcutMessage(),
        "Command Shift Space is unavailable. Use the floating button or choose another system "
        "shortcut.");
}

TEST_F(AppDelegateTest, TheFloatingControlIsShownAsTheSettingsSay)
{
    open();
    EXPECT_TRUE(controlShown());
    model->preferences().showFloating.set(false);
    EXPECT_FALSE(controlShown());
    model->preferences().showFloating.set(true);
    EXPECT_TRUE(controlShown());
}

TEST_F(AppDelegateTest, TheGestureKeyIsThatOfTheSettings)
{
    machine.keys.hasFn = false;
    open();
    EXPECT_EQ(machine.keys.watched, GestureKey::rightControl);
    model->preferences().setGestureKey(GestureKey::scrollLock);
    EXPECT_EQ(machine.keys.watched, GestureKey::scrollLock);
    machine.keys.pressGestureKey();
    ASSERT_TRUE(reach(Phase::recording));
    // Another setting does not disturb a gesture.
    model->preferences().soundsEnabled.set(false);
    machine.clock.turn(1);
    EXPECT_TRUE(model->pushToTalk());
}

TEST_F(AppDelegateTest, TheGestureCanBeTurnedOff)
{
    choose("fnEnabled", false);
    open();
    machine.keys.pressGestureKey();
    EXPECT_EQ(model->phase(), Phase::idle);
}

TEST_F(AppDelegateTest, QuittingKeepsARunningCapture)
{
    open();
    dictate();
    machine.clock.turn(2);
    machine.recorder.finishing.close();
    machine.statusItem.onQuit();
    machine.statusItem.onQuit(); // one is enough
    drainEvents();
    EXPECT_EQ(terminated, 0);
    machine.recorder.finishing.open();
    ASSERT_TRUE(eventually([&] { return terminated > 0; }));
    EXPECT_EQ(terminated, 1);
    delegate->willTerminate();
    EXPECT_FALSE(machine.shortcut.installed());
    EXPECT_EQ(machine.keys.watched, std::nullopt);
    delegate.reset();
    model.reset();

    const LibraryStore store(root(), machine.clock);
    EXPECT_EQ(store.snapshot().notes.back().recordings.back().status, RecordingStatus::recorded);
}

TEST_F(AppDelegateTest, ARefusedQuitCanBeAskedForAgain)
{
    open();
    machine.recorder.access.close();
    model->toggleDictation();
    delegate->quit();
    EXPECT_EQ(terminated, 0);
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::recording));
    delegate->quit();
    EXPECT_TRUE(eventually([&] { return terminated == 1; }));
}

TEST_F(AppDelegateTest, AKeyThatIsHeldAtTheEndDiscardsItsCapture)
{
    open();
    machine.keys.pressGestureKey();
    ASSERT_TRUE(reach(Phase::recording));
    delegate->willTerminate();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyRecording().status, RecordingStatus::recorded);
    delegate.reset();
    EXPECT_EQ(machine.clock.armed(), 0U);
}

TEST_F(AppDelegateTest, TheFirstWindowIsTheLibraryOrTheTour)
{
    const struct {
        const char* what;
        bool onboarded;
        bool background;
        std::vector<AppWindow> opened;
    } rows[] = {
        { "a first start", false, false, { AppWindow::onboarding } },
        { "a first start in the background", false, true, { AppWindow::onboarding } },
        { "a later start", true, false, { AppWindow::library } },
        { "a later start in the background", true, true, {} },
    };
    for (const auto& row : rows) {
        delegate.reset();
        model.reset();
        made.clear();
        choose("onboardingCompleted", row.onboarded);
        background = row.background;
        open();
        EXPECT_EQ(opened(), row.opened) << row.what;
    }
}

TEST_F(AppDelegateTest, AWindowIsMadeOnceAndKept)
{
    choose("onboardingCompleted", true);
    open();
    machine.statusItem.onOpen();
    ASSERT_EQ(opened(), std::vector{ AppWindow::library });
    QWindow* const library = made[0].second;
    EXPECT_TRUE(library->isVisible());
    EXPECT_TRUE(machine.desktop.broughtHere.empty());
    delegate->applicationShouldHandleReopen();
    EXPECT_EQ(machine.desktop.broughtHere, std::vector<const QWindow*>{ library });
    library->close();
    EXPECT_FALSE(library->isVisible());
    delegate->openLibrary();
    EXPECT_TRUE(library->isVisible());
    EXPECT_EQ(made.size(), 1U);
    machine.statusItem.onSettings();
    delegate->openDictionary();
    delegate->openTour();
    EXPECT_EQ(opened(),
        (std::vector{ AppWindow::library, AppWindow::settings, AppWindow::dictionary,
            AppWindow::onboarding }));
}

TEST_F(AppDelegateTest, TheEndOfTheTourOpensTheLibrary)
{
    open();
    ASSERT_EQ(opened(), std::vector{ AppWindow::onboarding });
    delegate->finishOnboarding();
    EXPECT_EQ(machine.settings.values["onboardingCompleted"], SettingValue{ true });
    EXPECT_EQ(opened(), (std::vector{ AppWindow::onboarding, AppWindow::library }));
    delegate->openTour(); // made anew
    EXPECT_EQ(made.size(), 3U);
}

TEST_F(AppDelegateTest, AWindowComesBackWhereItWas)
{
    choose("onboardingCompleted", true);
    open();
    delegate->openLibrary();
    QWindow& window = *made[0].second;
    window.setFramePosition({ 40, 50 });
    window.resize(400, 300);
    drainEvents();
    EXPECT_FALSE(machine.settings.values.contains("frameVeskoLibrary"));
    machine.clock.turn(0.6);
    EXPECT_EQ(machine.settings.values["frameVeskoLibrary"],
        (SettingValue{ std::vector<double>{ 40, 50, 400, 300 } }));

    delegate.reset();
    made.clear();
    launch();
    delegate->openLibrary();
    EXPECT_EQ(made[0].second->framePosition(), QPoint(40, 50));
    EXPECT_EQ(made[0].second->size(), QSize(400, 300));
}

TEST_F(AppDelegateTest, AWindowWhoseScreenIsGoneIsCentred)
{
    choose("onboardingCompleted", true);
    choose("frameVeskoLibrary", std::vector<double>{ 9000, 50, 400, 300 });
    open();
    delegate->openLibrary();
    const auto* const window = made[0].second;
    EXPECT_TRUE(window->screen()->availableGeometry().contains(window->geometry()));
}

TEST_F(AppDelegateTest, ARefusedQuitShowsTheLibraryWhichSaysWhy)
{
    choose("onboardingCompleted", true);
    open();
    machine.recorder.access.close();
    model->toggleDictation();
    delegate->quit();
    EXPECT_EQ(opened(), std::vector{ AppWindow::library });
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::recording));
}

TEST_F(AppDelegateTest, AnIconThatCannotBeSeenIsNoticed)
{
    machine.statusItem.isVisible = false;
    open();
    machine.statusItem.onVisibleChanged();
    EXPECT_FALSE(model->menuBarIconHidden()); // too soon to tell
    machine.clock.turn(2);
    EXPECT_TRUE(model->menuBarIconHidden());
    machine.statusItem.isVisible = true;
    machine.statusItem.onVisibleChanged();
    EXPECT_FALSE(model->menuBarIconHidden());
}

TEST_F(AppDelegateTest, TheAppearanceIsTheDesktopsUnlessForced)
{
    const QPalette before = qGuiApp->palette();
    const auto dark = [] { return qGuiApp->palette().color(QPalette::Window).lightnessF() < 0.5F; };
    machine.appearance.prefersDark = true;
    open();
    EXPECT_TRUE(dark());
    machine.appearance.prefersDark = false;
    machine.appearance.onChanged();
    EXPECT_FALSE(dark());
    demo.dark = true;
    launch();
    EXPECT_TRUE(dark());
    machine.appearance.onChanged();
    EXPECT_TRUE(dark());
    QGuiApplication::setPalette(before);
    drainEvents();
}

TEST_F(AppDelegateTest, ADemoNeedsADataFolderOfItsOwn)
{
    const struct {
        const char* what;
        const char* root;
        const char* scene;
        const char* look;
        std::optional<DemoScene> shown;
        std::optional<bool> dark;
    } rows[] = {
        { "no data folder", nullptr, "settings", "dark", {}, {} },
        { "no scene", "/tmp", nullptr, "dark", {}, {} },
        { "a scene", "/tmp", "note=2", nullptr, DemoScene{ DemoScene::note, 0, 2 }, {} },
        { "a dark scene", "/tmp", "settings", "dark", DemoScene{ DemoScene::settings }, true },
        { "a light scene", "/tmp", "settings", "light", DemoScene{ DemoScene::settings }, false },
        { "another look", "/tmp", "settings", "pink", DemoScene{ DemoScene::settings }, {} },
        { "an unknown scene", "/tmp", "note=-1", "dark", {}, true },
    };
    for (const auto& row : rows) {
        const auto found = AppDelegate::Demo::from(row.root, row.scene, row.look);
        EXPECT_EQ(found.scene, row.shown) << row.what;
        EXPECT_EQ(found.dark, row.dark) << row.what;
    }
}

TEST_F(AppDelegateTest, AScenePicksItsWindowAndItsNote)
{
    choose("onboardingCompleted", true);
    AppModelTest::open();
    for (const char* name : { "Garden", "Radio" })
        model->createProject(name);
    ASSERT_TRUE(eventually([&] { return model->library().projects.size() == 2; }));
    model->setSelectedProjectID(model->library().projects[1].id);
    model->newNote();
    ASSERT_TRUE(eventually([&] { return !model->library().notes.empty(); }));
    const auto id = onlyNote().id;
    const struct {
        DemoScene scene;
        std::vector<AppWindow> opened;
        std::optional<Uuid> selected;
    } rows[] = {
        { { DemoScene::note, 0, 0 }, { AppWindow::library }, id },
        { { DemoScene::note, 0, 7 }, { AppWindow::library }, {} },
        { { DemoScene::project, 1, 0 }, { AppWindow::library }, id },
        { { DemoScene::project, 0, 0 }, { AppWindow::library }, {} },
        { { DemoScene::dictionary }, { AppWindow::dictionary }, {} },
        { { DemoScene::settings }, { AppWindow::settings }, {} },
    };
    for (const auto& row : rows) {
        delegate.reset();
        made.clear();
        model->setSelectedProjectID(std::nullopt);
        model->setSelectedNoteID(std::nullopt);
        demo.scene = row.scene;
        launch();
        EXPECT_EQ(opened(), row.opened);
        EXPECT_EQ(model->selectedNoteID(), row.selected);
    }
}

TEST_F(AppDelegateTest, ASceneWaitsForTheLibraryButNotForever)
{
    choose("onboardingCompleted", true);
    demo.scene = DemoScene{ DemoScene::settings };
    start();
    launch();
    EXPECT_TRUE(made.empty());
    ASSERT_TRUE(eventually([&] { return model->libraryReady(); }));
    machine.clock.turn(0.1);
    EXPECT_EQ(opened(), std::vector{ AppWindow::settings });

    delegate.reset();
    model.reset();
    made.clear();
    start();
    launch();
    machine.clock.turn(6);
    ASSERT_TRUE(eventually([&] { return model->libraryReady(); }));
    machine.clock.turn(6);
    EXPECT_TRUE(made.empty());
}

TEST_F(AppDelegateTest, TheEndOfTheDelegateUnderAQuitIsNoHarm)
{
    open();
    dictate();
    machine.recorder.finishing.close();
    delegate->quit();
    delegate.reset();
    machine.recorder.finishing.open();
    drainEvents();
    EXPECT_EQ(terminated, 0);
}

} // namespace

} // namespace vesko
