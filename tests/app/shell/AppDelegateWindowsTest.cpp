// Which windows the process opens, when and where.

#include "tests/app/shell/AppDelegateTest.h"

#include <QScreen>

#include <limits>

namespace vesko {

namespace {

using AppDelegateWindowsTest = AppDelegateTest;

TEST_F(AppDelegateWindowsTest, TheFirstWindowIsTheLibraryOrTheTour)
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

TEST_F(AppDelegateWindowsTest, AWindowIsMadeOnceAndKept)
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

TEST_F(AppDelegateWindowsTest, TheEndOfTheTourOpensTheLibrary)
{
    open();
    ASSERT_EQ(opened(), std::vector{ AppWindow::onboarding });
    delegate->finishOnboarding();
    EXPECT_EQ(machine.settings.values["onboardingCompleted"], SettingValue{ true });
    EXPECT_EQ(opened(), (std::vector{ AppWindow::onboarding, AppWindow::library }));
    delegate->openTour(); // made anew
    EXPECT_EQ(made.size(), 3U);
}

TEST_F(AppDelegateWindowsTest, AWindowComesBackWhereItWas)
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

TEST_F(AppDelegateWindowsTest, AWindowWhoseScreenIsGoneIsCentred)
{
    choose("onboardingCompleted", true);
    choose("frameVeskoLibrary", std::vector<double>{ 9000, 50, 400, 300 });
    open();
    delegate->openLibrary();
    const auto* const window = made[0].second;
    EXPECT_TRUE(window->screen()->availableGeometry().contains(window->geometry()));
}

TEST_F(AppDelegateWindowsTest, AFrameThatIsNoneCountsAsNotSaved)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        const char* what;
        std::vector<double> frame;
    } rows[] = {
        { "not a number", { nan, 50, 400, 300 } },
        { "a size that is not a number", { 40, 50, 400, nan } },
        { "further than any screen", { 40, 1e300, 400, 300 } },
        { "no width", { 40, 50, 0, 300 } },
        { "less than no height", { 40, 50, 400, -300 } },
        { "a number too few", { 40, 50, 400 } },
    };
    choose("onboardingCompleted", true);
    open();
    delegate->openLibrary();
    const auto usual = made[0].second->geometry();
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        delegate.reset();
        made.clear();
        choose("frameVeskoLibrary", row.frame);
        launch();
        delegate->openLibrary();
        EXPECT_EQ(made[0].second->geometry(), usual);
    }
}

TEST_F(AppDelegateWindowsTest, ARefusedQuitShowsTheLibraryWhichSaysWhy)
{
    choose("onboardingCompleted", true);
    open();
    dictate();
    breakStore();
    delegate->quit();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(opened(), std::vector{ AppWindow::library });
    EXPECT_EQ(model->status().errorMessage(), storageText);
    repairStore();
}

TEST_F(AppDelegateWindowsTest, ADemoNeedsADataFolderOfItsOwn)
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
        // The library of these is the user's own.
        { "a relative data folder", "tmp", "settings", "dark", {}, {} },
        { "an empty data folder", "", "settings", "dark", {}, {} },
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

TEST_F(AppDelegateWindowsTest, AScenePicksItsWindowAndItsNote)
{
    choose("onboardingCompleted", true);
    AppModelTest::open();
    for (const char* name : { "Garden", "Radio" })
        model->notes().createProject(name);
    ASSERT_TRUE(eventually([&] { return model->library().contents().projects.size() == 2; }));
    model->selection().setSelectedProjectID(model->library().contents().projects[1].id);
    model->notes().newNote();
    ASSERT_TRUE(eventually([&] { return !model->library().contents().notes.empty(); }));
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
        model->selection().setSelectedProjectID(std::nullopt);
        model->selection().setSelectedNoteID(std::nullopt);
        demo.scene = row.scene;
        launch();
        EXPECT_EQ(opened(), row.opened);
        EXPECT_EQ(model->selection().selectedNoteID(), row.selected);
    }
}

TEST_F(AppDelegateWindowsTest, ASceneWaitsForTheLibraryButNotForever)
{
    choose("onboardingCompleted", true);
    demo.scene = DemoScene{ DemoScene::settings };
    start();
    launch();
    EXPECT_TRUE(made.empty());
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    machine.clock.turn(0.1);
    EXPECT_EQ(opened(), std::vector{ AppWindow::settings });

    delegate.reset();
    model.reset();
    made.clear();
    start();
    launch();
    machine.clock.turn(6);
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    machine.clock.turn(6);
    EXPECT_TRUE(made.empty());
}

} // namespace

} // namespace vesko
