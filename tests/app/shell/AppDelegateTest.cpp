// The process around the controller.

#include "tests/app/shell/AppDelegateTest.h"

#include "VeskoCore/account/QueryItems.h"
#include "tests/fakes/Files.h"
#include "tests/fakes/LoopbackServer.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace vesko {

namespace {

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
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    expectStatus("Vesko: Ready", "Start dictation", true);
}

TEST_F(AppDelegateTest, TheStatusItemTellsOfALibraryThatIsLongInOpening)
{
    slowDisk();
    start();
    launch();
    machine.clock.turn(0.2);
    expectStatus("Vesko: Opening library…", "Start dictation", false);
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
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
    EXPECT_EQ(model->capture().phase(), Phase::idle);
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
    EXPECT_EQ(model->status().shortcutMessage(), "");
}

TEST_F(AppDelegateTest, AShortcutThatIsTakenIsReported)
{
    machine.shortcut.taken = true;
    open();
    EXPECT_EQ(model->status().shortcutMessage(),
        "Super+Shift+Space is unavailable: another program has it. Use the floating button, or "
        "choose another shortcut in the settings.");
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

TEST_F(AppDelegateTest, TheFloatingControlComesWithTheLibrary)
{
    slowDisk();
    start();
    launch();
    machine.clock.turn(0.1);
    drainEvents();
    EXPECT_FALSE(controlShown());
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    EXPECT_TRUE(eventually([&] { return controlShown(); }));
}

TEST_F(AppDelegateTest, TheFloatingControlSaysThatTheLibraryIsLongInOpening)
{
    slowDisk();
    start();
    launch();
    machine.clock.turn(0.2);
    EXPECT_TRUE(eventually([&] { return controlShown(); }));
    const auto* const control = delegate->captureControl().window();
    hurryDisk();
    ASSERT_TRUE(eventually([&] { return model->library().ready(); }));
    drainEvents();
    EXPECT_EQ(delegate->captureControl().window(), control);
}

TEST_F(AppDelegateTest, TheFloatingControlSaysThatThereIsNoLibrary)
{
    std::filesystem::create_directories(root());
    putBytes(root() / "library.json", "no library");
    start();
    launch();
    EXPECT_TRUE(eventually([&] { return controlShown(); }));
    EXPECT_FALSE(model->library().ready());
    EXPECT_FALSE(model->status().errorMessage().empty());
}

TEST_F(AppDelegateTest, TheGestureKeyIsThatOfTheSettings)
{
    machine.keys.hasFn = false;
    open();
    EXPECT_EQ(machine.keys.watched, GestureKey::rightControl);
    model->preferences().setGestureKey(GestureKey::scrollLock);
    EXPECT_EQ(machine.keys.watched, GestureKey::scrollLock);
    machine.keys.pressGestureKey();
    // Another setting does not disturb a gesture.
    model->preferences().soundsEnabled.set(false);
    machine.clock.turn(1);
    EXPECT_TRUE(model->capture().pushToTalk());
    EXPECT_TRUE(reach(Phase::recording));
}

TEST_F(AppDelegateTest, TheGestureCanBeTurnedOff)
{
    choose("fnEnabled", false);
    open();
    machine.keys.pressGestureKey();
    EXPECT_EQ(model->capture().phase(), Phase::idle);
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

TEST_F(AppDelegateTest, SleepAndTheSessionsEndWaitUntilARunningCaptureIsKept)
{
    open();
    for (void (FakeSessionState::* const begin)() :
        { &FakeSessionState::sleep, &FakeSessionState::end }) {
        dictate();
        machine.clock.turn(2);
        machine.recorder.finishing.close();
        (machine.session.*begin)();
        drainEvents();
        EXPECT_TRUE(machine.session.waits);
        machine.recorder.finishing.open();
        ASSERT_TRUE(eventually([&] { return !machine.session.waits; }));
        EXPECT_EQ(model->capture().phase(), Phase::idle);
    }
    EXPECT_EQ(terminated, 0);
    delegate.reset();
    model.reset();
    const LibraryStore store(root(), machine.clock);
    EXPECT_EQ(store.snapshot().notes.size(), 2U);
    for (const Note& note : store.snapshot().notes)
        EXPECT_EQ(note.recordings.back().status, RecordingStatus::recorded);
}

TEST_F(AppDelegateTest, AQuitWhileTheSessionEndsWaitsForTheSameCapture)
{
    open();
    dictate();
    machine.recorder.finishing.close();
    machine.session.end();
    delegate->quit();
    drainEvents();
    EXPECT_EQ(terminated, 0);
    machine.recorder.finishing.open();
    EXPECT_TRUE(eventually([&] { return terminated == 1; }));
    EXPECT_FALSE(machine.session.waits);
}

TEST_F(AppDelegateTest, ALockedSessionHearsNeitherShortcutNorGesture)
{
    open();
    machine.session.isLocked = true;
    machine.shortcut.press();
    machine.keys.pressGestureKey();
    EXPECT_EQ(model->capture().phase(), Phase::idle);
}

TEST_F(AppDelegateTest, TheUserIsToldHowToGetAShortcutUntilACommandHasCome)
{
    machine.all.offer.shortcut = SessionOffer::Shortcut::command;
    machine.all.offer.desktop = "sway";
    machine.shortcut.taken = true;
    open();
    EXPECT_THAT(model->status().shortcutMessage(), testing::StartsWith("sway gives"));
    machine.remoteControl.call(RemoteCommand::press);
    EXPECT_EQ(model->status().shortcutMessage(), "");
    machine.remoteControl.call(RemoteCommand::release);
    ASSERT_TRUE(reach(Phase::recording)); // it was a tap

    delegate.reset();
    model.reset();
    open();
    EXPECT_EQ(model->status().shortcutMessage(), "");
}

TEST_F(AppDelegateTest, WhereNoWindowCanFloatTheControlStaysAway)
{
    machine.all.offer.floats = false;
    open();
    EXPECT_FALSE(controlShown());
}

TEST_F(AppDelegateTest, ARefusedQuitCanBeAskedForAgain)
{
    open();
    dictate();
    breakStore();
    delegate->quit();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(terminated, 0);
    repairStore();
    delegate->quit();
    EXPECT_TRUE(eventually([&] { return terminated == 1; }));
}

TEST_F(AppDelegateTest, AKeyThatIsHeldAtTheEndDiscardsItsCapture)
{
    open();
    machine.keys.pressGestureKey();
    machine.clock.turn(FnShortcutState::holdDuration);
    ASSERT_TRUE(reach(Phase::recording));
    delegate->willTerminate();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyRecording().status, RecordingStatus::recorded);
    delegate.reset();
    EXPECT_EQ(machine.clock.armed(), 0U);
}

TEST_F(AppDelegateTest, AnIconThatCannotBeSeenIsNoticed)
{
    machine.statusItem.isVisible = false;
    open();
    machine.statusItem.onVisibleChanged();
    EXPECT_FALSE(delegate->statusIconHidden()); // too soon to tell
    machine.clock.turn(2);
    EXPECT_TRUE(delegate->statusIconHidden());
    machine.statusItem.isVisible = true;
    machine.statusItem.onVisibleChanged();
    EXPECT_FALSE(delegate->statusIconHidden());
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

TEST_F(AppDelegateTest, ScriptsSteerIt)
{
    open();
    const auto outcomeOf = [this](RemoteCommand command) {
        const auto answer = machine.remoteControl.call(command);
        EXPECT_TRUE(eventually([&] { return answer->has_value(); }));
        return **answer;
    };
    EXPECT_EQ(machine.remoteControl.status().title, QStringLiteral("Ready"));
    EXPECT_EQ(outcomeOf(RemoteCommand::start), RemoteAnswer::done);
    EXPECT_EQ(machine.remoteControl.status().state, QStringLiteral("recording"));
    EXPECT_EQ(outcomeOf(RemoteCommand::toggle), RemoteAnswer::done);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyAttempt().status, AttemptStatus::ready);
    EXPECT_EQ(outcomeOf(RemoteCommand::show), RemoteAnswer::done);
    EXPECT_EQ(opened().back(), AppWindow::library);
    EXPECT_EQ(outcomeOf(RemoteCommand::quit), RemoteAnswer::done);
    EXPECT_TRUE(eventually([&] { return terminated == 1; }));
    EXPECT_THAT(machine.remoteControl.told,
        testing::ElementsAre("preparing", "recording", "processing", "ready"));
}

TEST_F(AppDelegateTest, ScriptsReadWhyTheLibraryCouldNotBeOpened)
{
    std::filesystem::create_directories(root());
    putBytes(root() / "library.json", "{");
    start();
    launch();
    ASSERT_TRUE(eventually([&] { return !machine.remoteControl.told.empty(); }));
    const auto status = machine.remoteControl.status();
    EXPECT_EQ(status.state, QStringLiteral("unavailable"));
    EXPECT_EQ(status.title,
        QStringLiteral("The library could not be read. Your files were preserved. Open the data "
                       "folder to recover its backup."));
}

TEST_F(AppDelegateTest, ADictationThatAScriptCancelsIsKeptWithoutATranscript)
{
    open();
    dictate();
    EXPECT_EQ(*machine.remoteControl.call(RemoteCommand::cancel), RemoteAnswer::done);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(onlyRecording().status, RecordingStatus::recorded);
    EXPECT_TRUE(onlyRecording().attempts.empty());
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
