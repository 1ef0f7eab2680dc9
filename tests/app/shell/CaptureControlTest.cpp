// The floating control.

#include "VeskoApp/shell/CaptureControl.h"
#include "tests/app/AppModelTest.h"

#include <QGuiApplication>
#include <QScreen>

namespace vesko {

namespace {

class CaptureControlTest : public AppModelTest {
protected:
    void open()
    {
        AppModelTest::open();
        makeControl();
    }
    void makeControl()
    {
        control = std::make_unique<CaptureControl>(
            machine.all, model->capture(), model->library(), model->status());
        auto made = std::make_unique<QWindow>();
        made->setFlags(Qt::FramelessWindowHint);
        made->resize(240, 236);
        window = made.get();
        control->setWindow(std::move(made));
        control->pointer = [this] { return pointer; };
        control->show(true);
    }
    void press(double x, double y)
    {
        pointer = { x, y };
        control->press(pointer);
    }
    void drag(double x, double y)
    {
        pointer = { x, y };
        control->drag(pointer);
    }
    void release() { control->release(pointer); }
    static QPoint corner()
    {
        const auto free = QGuiApplication::primaryScreen()->availableGeometry();
        return { free.x() + free.width() - 240 - 24, free.y() + free.height() - 236 - 24 };
    }
    std::optional<SettingValue> savedOrigin() const
    {
        return machine.settings.value("capturePanelOrigin");
    }

    std::unique_ptr<CaptureControl> control; // ends before the model
    QWindow* window = nullptr;
    QPointF pointer;
};

TEST_F(CaptureControlTest, APressAndAReleaseAreAClick)
{
    open();
    press(100, 100);
    drag(103, 100);
    release();
    EXPECT_EQ(machine.focusedField.reads.size(), 1U);
    ASSERT_TRUE(reach(Phase::recording));
    EXPECT_EQ(window->position(), corner());
    EXPECT_EQ(savedOrigin(), std::nullopt);
}

TEST_F(CaptureControlTest, ADragMovesTheWindowAndStartsNothing)
{
    open();
    press(100, 100);
    drag(95, 100);
    EXPECT_EQ(window->position(), corner() - QPoint(5, 0));
    drag(60, 80);
    release();
    EXPECT_EQ(window->position(), corner() - QPoint(40, 20));
    const auto at = QPointF(corner() - QPoint(40, 20));
    EXPECT_EQ(savedOrigin(), (SettingValue{ std::vector<double>{ at.x(), at.y() } }));
    EXPECT_TRUE(machine.focusedField.reads.empty());
    makeControl();
    EXPECT_EQ(window->position(), corner() - QPoint(40, 20));
}

TEST_F(CaptureControlTest, InEachCornerItTurnsTowardsTheMiddleAndComesBackThere)
{
    const auto screen = QGuiApplication::primaryScreen()->availableGeometry();
    const auto size = CaptureControl::buttonSize();
    const struct {
        const char* what;
        QPoint dropped; // the middle of the button
        bool atLeft, atTop;
        QPoint origin;
    } cases[] = {
        { "top left", { 100, 90 }, true, true, QPoint(100, 90) - QPoint(size, size) / 2 },
        { "beyond the edge", { 3, 2 }, true, true, { 0, 0 } },
        { "bottom left", { 100, screen.height() - 90 }, true, false,
            { 100 - size / 2, screen.height() - 90 + size / 2 - 236 } },
        { "top right", { screen.width() - 100, 90 }, false, true,
            { screen.width() - 100 + size / 2 - 240, 90 - size / 2 } },
    };
    AppModelTest::open();
    for (const auto& [what, dropped, atLeft, atTop, origin] : cases) {
        SCOPED_TRACE(what);
        machine.settings.values.erase("capturePanelOrigin");
        makeControl();
        const auto button = corner() + QPoint(240 - size / 2, 236 - size / 2);
        press(button.x(), button.y());
        drag(dropped.x(), dropped.y());
        release();
        EXPECT_EQ(control->atLeft(), atLeft);
        EXPECT_EQ(control->atTop(), atTop);
        EXPECT_EQ(window->position(), origin);
        makeControl();
        EXPECT_EQ(control->atLeft(), atLeft);
        EXPECT_EQ(control->atTop(), atTop);
        EXPECT_EQ(window->position(), origin);
    }
}

TEST_F(CaptureControlTest, AnEventThatComesLateMakesNoDragOfAClick)
{
    open();
    control->press({ 100, 100 });
    pointer = { 400, 400 }; // is somewhere else by now
    control->release({ 101, 100 });
    EXPECT_EQ(machine.focusedField.reads.size(), 1U);
    EXPECT_EQ(window->position(), corner());
    ASSERT_TRUE(reach(Phase::recording));
}

TEST_F(CaptureControlTest, ADragOutAndBackIsNoClick)
{
    open();
    press(100, 100);
    drag(110, 100);
    drag(100, 100);
    release();
    EXPECT_TRUE(machine.focusedField.reads.empty());
    EXPECT_EQ(window->position(), corner());
}

TEST_F(CaptureControlTest, BesideTheButtonItIsDraggedAndNotClicked)
{
    open();
    control->press({ 100, 100 });
    control->release({ 100, 100 }, false);
    EXPECT_TRUE(machine.focusedField.reads.empty());
    control->press({ 100, 100 });
    pointer = { 60, 80 };
    control->drag({ 60, 80 });
    control->release({ 60, 80 }, false);
    EXPECT_EQ(window->position(), corner() - QPoint(40, 20));
    EXPECT_TRUE(savedOrigin());
    EXPECT_TRUE(machine.focusedField.reads.empty());
}

TEST_F(CaptureControlTest, APressThatOpensTheMenuIsNoClick)
{
    open();
    press(100, 100);
    control->dropGesture();
    drag(150, 100);
    release();
    release();
    EXPECT_TRUE(machine.focusedField.reads.empty());
    EXPECT_EQ(window->position(), corner());
}

TEST_F(CaptureControlTest, AClickWhileItIsBusyIsIgnored)
{
    open();
    machine.recorder.access.close();
    model->capture().toggleDictation();
    EXPECT_FALSE(control->orbEnabled());
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::recording));
    EXPECT_TRUE(control->orbEnabled());
    machine.recognizer.hears.reset();
    model->capture().toggleDictation();
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    EXPECT_FALSE(control->orbEnabled());
    press(100, 100);
    release();
    EXPECT_EQ(machine.focusedField.reads.size(), 1U);
}

TEST_F(CaptureControlTest, NothingCanBeClickedBeforeTheLibraryIsOpen)
{
    start();
    makeControl();
    EXPECT_FALSE(control->orbEnabled());
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    EXPECT_TRUE(control->orbEnabled());
}

TEST_F(CaptureControlTest, ALibraryThatIsLongInOpeningKeepsTheDotsMoving)
{
    slowDisk();
    start();
    makeControl();
    EXPECT_FALSE(control->live());
    int redrawn = 0;
    QObject::connect(control.get(), &CaptureControl::glyphChanged, [&] { ++redrawn; });
    machine.clock.turn(0.2);
    EXPECT_TRUE(control->live());
    EXPECT_EQ(control->dots().size(), 3);
    redrawn = 0;
    machine.clock.turn(0.5);
    EXPECT_EQ(redrawn, 10);
    EXPECT_FALSE(control->orbEnabled());
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    EXPECT_FALSE(control->live());
    redrawn = 0;
    machine.clock.turn(0.5);
    EXPECT_EQ(redrawn, 0);
}

TEST_F(CaptureControlTest, ASavedPlaceCountsOnlyWholeOnAScreen)
{
    const struct {
        const char* what;
        SettingValue saved;
        bool restored;
    } rows[] = {
        { "on the screen", std::vector<double>{ 100, 50 }, true },
        { "on a screen that is gone", std::vector<double>{ 5000, 50 }, false },
        { "partly off", std::vector<double>{ -1, 50 }, false },
        { "one number", std::vector<double>{ 100 }, false },
        { "three numbers", std::vector<double>{ 100, 50, 1 }, false },
        { "another kind", std::string("100,50"), false },
    };
    AppModelTest::open();
    for (const auto& row : rows) {
        machine.settings.values["capturePanelOrigin"] = row.saved;
        makeControl();
        EXPECT_EQ(window->position(), row.restored ? QPoint(100, 50) : corner()) << row.what;
        EXPECT_EQ(savedOrigin(), row.saved) << row.what;
    }
}

TEST_F(CaptureControlTest, ItFloatsEachTimeItIsShown)
{
    open();
    control->show(true);
    EXPECT_EQ(machine.desktop.floating.size(), 1U);
    control->show(false);
    EXPECT_FALSE(window->isVisible());
    control->show(true);
    EXPECT_EQ(machine.desktop.floating.size(), 2U);
}

TEST_F(CaptureControlTest, ItSaysWhatAClickDoes)
{
    open();
    EXPECT_EQ(control->name(), QStringLiteral("Start dictation"));
    EXPECT_EQ(control->help().toStdString(),
        "Click once to record. Drag to move. Right-click for the menu.");
    control->shortcutWords = [] { return QStringLiteral("Ctrl+Alt+D"); };
    EXPECT_EQ(control->help().toStdString(),
        "Click once to record. Drag to move. Right-click for the menu. Shortcut: Ctrl+Alt+D");
    EXPECT_EQ(control->elapsed(), QString());
    dictate();
    machine.clock.turn(3.05);
    EXPECT_EQ(control->name(), QStringLiteral("Stop dictation"));
    EXPECT_EQ(control->help().toStdString(),
        "Click once to stop. Drag to move. Right-click for the menu.");
    EXPECT_EQ(control->elapsed(), QStringLiteral("0:03"));
}

TEST_F(CaptureControlTest, TheTimeGoesWithTheRecording)
{
    open();
    dictate();
    machine.clock.turn(3.05);
    QString shown = control->elapsed();
    QObject::connect(
        control.get(), &CaptureControl::elapsedChanged, [&] { shown = control->elapsed(); });
    finish();
    EXPECT_EQ(shown, QString());
}

TEST_F(CaptureControlTest, TheHintOfAHeldKeyGoesAfterAWhile)
{
    open();
    model->capture().handleFn(FnShortcutAction::begin);
    EXPECT_FALSE(control->fnHintVisible());
    model->capture().handleFn(FnShortcutAction::hold);
    ASSERT_TRUE(reach(Phase::recording));
    EXPECT_TRUE(control->holdingFn());
    EXPECT_TRUE(control->fnHintVisible());
    machine.clock.turn(2.39);
    EXPECT_TRUE(control->fnHintVisible());
    machine.clock.turn(0.02);
    EXPECT_FALSE(control->fnHintVisible());
}

TEST_F(CaptureControlTest, TheHintGoesWithTheKey)
{
    open();
    model->capture().handleFn(FnShortcutAction::begin);
    model->capture().handleFn(FnShortcutAction::hold);
    ASSERT_TRUE(reach(Phase::recording));
    machine.clock.turn(1);
    model->capture().handleFn(FnShortcutAction::finish);
    EXPECT_FALSE(control->holdingFn());
    EXPECT_FALSE(control->fnHintVisible());
}

TEST_F(CaptureControlTest, NothingMovesWhileNothingGoesOn)
{
    open();
    machine.clock.turn(60);
    int frames = 0;
    QObject::connect(control.get(), &CaptureControl::glyphChanged, [&] { ++frames; });
    machine.clock.turn(60);
    EXPECT_EQ(frames, 0);
    EXPECT_EQ(machine.clock.armed(), 0U);
    EXPECT_TRUE(control->bars().isEmpty());
    EXPECT_TRUE(control->dots().isEmpty());
}

TEST_F(CaptureControlTest, TheGlyphFollowsTheVoice)
{
    open();
    machine.recorder.power = -160;
    dictate();
    machine.clock.turn(1);
    EXPECT_EQ(control->dots().size(), 3);
    EXPECT_TRUE(control->bars().isEmpty());
    machine.recorder.power = -10;
    int frames = 0;
    QObject::connect(control.get(), &CaptureControl::glyphChanged, [&] { ++frames; });
    machine.clock.turn(1);
    EXPECT_EQ(control->bars().size(), 5);
    EXPECT_TRUE(control->dots().isEmpty());
    EXPECT_GE(frames, 19);
    control->show(false);
    frames = 0;
    machine.clock.turn(1);
    EXPECT_EQ(frames, 0);
}

TEST_F(CaptureControlTest, WhoWantsStillnessSeesTheLevelAlone)
{
    machine.appearance.prefersStillness = true;
    open();
    machine.recorder.power = -10;
    dictate();
    int frames = 0;
    QObject::connect(control.get(), &CaptureControl::glyphChanged, [&] { ++frames; });
    machine.clock.turn(1);
    EXPECT_LE(frames, 11);
    EXPECT_EQ(control->bars()[0], control->bars()[4]);
}

TEST_F(CaptureControlTest, NewsAreShownForAWhile)
{
    open();
    EXPECT_EQ(control->news(), QString());
    model->clipboard().copy("text");
    EXPECT_EQ(control->news(), QStringLiteral("Copied to clipboard"));
    machine.clock.turn(7.9);
    EXPECT_EQ(control->news(), QStringLiteral("Copied to clipboard"));
    machine.clock.turn(0.2);
    EXPECT_EQ(control->news(), QString());
    model->clipboard().copy("more");
    control->dismissNews();
    EXPECT_EQ(control->news(), QString());
}

TEST_F(CaptureControlTest, TheWindowIsCutToWhatIsSeen)
{
    open();
    control->cut({ QVariantMap{ { QStringLiteral("x"), 184 }, { QStringLiteral("y"), 180 },
        { QStringLiteral("width"), 56 }, { QStringLiteral("height"), 56 },
        { QStringLiteral("radius"), 28 } } });
    EXPECT_TRUE(machine.desktop.visible.contains(QPoint(212, 208)));
    EXPECT_FALSE(machine.desktop.visible.contains(QPoint(185, 181)));
    EXPECT_FALSE(machine.desktop.visible.contains(QPoint(20, 20)));
}

TEST_F(CaptureControlTest, AHiddenOneIsNotCut)
{
    open();
    control->show(false);
    control->cut(
        { QVariantMap{ { QStringLiteral("width"), 56 }, { QStringLiteral("height"), 56 } } });
    EXPECT_TRUE(machine.desktop.visible.isEmpty());
}

TEST_F(CaptureControlTest, ItsSoftEdgeIsKeptWhereWhatLiesBelowIsSeenThroughIt)
{
    const QVariantList square{ QVariantMap{ { QStringLiteral("x"), 10.5 },
        { QStringLiteral("y"), 100.5 }, { QStringLiteral("width"), 56 },
        { QStringLiteral("height"), 56 }, { QStringLiteral("radius"), 0 } } };
    open();
    control->cut(square);
    EXPECT_EQ(machine.desktop.visible.boundingRect(), QRect(10, 100, 57, 57));
    machine.desktop.seesThrough = false;
    control->cut(square);
    EXPECT_EQ(machine.desktop.visible.boundingRect(), QRect(11, 101, 55, 55));
}

TEST_F(CaptureControlTest, StandsAsideAndComesBack)
{
    open();
    const auto shape = [](int x, int width) {
        return QVariantMap{ { QStringLiteral("x"), x }, { QStringLiteral("y"), 180 },
            { QStringLiteral("width"), width }, { QStringLiteral("height"), 56 },
            { QStringLiteral("radius"), 28 } };
    };
    auto message = shape(0, 240);
    message[QStringLiteral("y")] = 100;
    message[QStringLiteral("height")] = 72;
    control->cut({ shape(184, 56), shape(100, 78), message }); // the button, its words, a message
    EXPECT_EQ(control->face(), QRect(100, 180, 140, 56).translated(corner()));
    EXPECT_TRUE(control->movable());

    const auto screen = window->screen()->availableGeometry();
    control->stand({ screen.left() + 24, screen.top() + 24, 140, 56 });
    EXPECT_EQ(window->position(), screen.topLeft() + QPoint(24, 24));
    EXPECT_TRUE(control->atLeft());
    EXPECT_TRUE(control->atTop());
    EXPECT_EQ(savedOrigin(), std::nullopt);

    control->position();
    EXPECT_EQ(window->position(), corner());
    EXPECT_FALSE(control->atLeft());
    press(100, 100);
    EXPECT_FALSE(control->movable());
    release();
    EXPECT_FALSE(control->movable()); // a dictation has begun
}

TEST_F(CaptureControlTest, TheNoteThatTheNewsIsAboutCanBeOpenedAsLongAsItIsNews)
{
    open();
    std::vector<Uuid> opened;
    control->onOpenNote = [&](const Uuid& id) { opened.push_back(id); };
    const auto note = Uuid::random();
    control->offerNote(note);
    EXPECT_FALSE(control->offersNote()); // nothing was said
    model->status().setMessage("Copied to clipboard");
    control->offerNote(note);
    EXPECT_TRUE(control->offersNote());
    control->openNote();
    EXPECT_EQ(opened, std::vector{ note });
    EXPECT_FALSE(control->offersNote());
    EXPECT_EQ(control->news(), QString());

    model->status().setMessage("Copied again");
    control->offerNote(note);
    model->status().setMessage("Something else");
    EXPECT_FALSE(control->offersNote());
    control->openNote();
    EXPECT_EQ(opened.size(), 1U);
}

} // namespace

} // namespace vesko
