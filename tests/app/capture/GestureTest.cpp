// The gesture key through the whole chain: keyboard, state, controller, library.

#include "VeskoApp/shell/AppDelegate.h"
#include "tests/app/AppModelTest.h"

namespace vesko {

namespace {

constexpr const char* discarded = "Fn combination used. Audio saved without transcription.";

class GestureTest : public AppModelTest {
protected:
    void open()
    {
        AppModelTest::open();
        delegate = std::make_unique<AppDelegate>(machine.all, *model);
        delegate->makeCapturePanel = [] { return std::make_unique<QWindow>(); };
        delegate->windows().make = [](AppWindow) { return nullptr; };
        delegate->terminate = [] { };
        delegate->launch(true);
    }
    void press() { machine.keys.pressGestureKey(); }
    void release() { machine.keys.releaseGestureKey(); }
    // Down for longer than a tap, from which on it records.
    void hold()
    {
        press();
        machine.clock.turn(FnShortcutState::holdDuration);
    }
    void tap()
    {
        press();
        machine.clock.turn(0.1);
        release();
    }
    // The audio is kept, and nothing else is done with it.
    void expectDiscarded(double duration)
    {
        ASSERT_TRUE(reach(Phase::idle));
        EXPECT_EQ(model->status().message(), discarded);
        EXPECT_EQ(model->status().errorMessage(), "");
        EXPECT_EQ(onlyRecording().status, RecordingStatus::recorded);
        EXPECT_NEAR(onlyRecording().duration, duration, 1e-6);
        EXPECT_TRUE(onlyRecording().attempts.empty());
        EXPECT_TRUE(std::filesystem::exists(audioFile()));
        EXPECT_FALSE(model->capture().pushToTalk());
        EXPECT_EQ(machine.clipboard.text, std::nullopt);
        EXPECT_TRUE(machine.recognizer.audio.empty());
        EXPECT_FALSE(machine.recorder.running());
    }
    void expectTranscribed()
    {
        ASSERT_TRUE(reach(Phase::idle));
        EXPECT_EQ(onlyRecording().status, RecordingStatus::ready);
        EXPECT_EQ(onlyNote().body, "hello world");
        EXPECT_FALSE(model->capture().pushToTalk());
    }

    std::unique_ptr<AppDelegate> delegate; // ends before the model
};

TEST_F(GestureTest, ATapStartsAndASecondTapFinishes)
{
    open();
    tap();
    ASSERT_TRUE(reach(Phase::recording));
    EXPECT_FALSE(model->capture().pushToTalk());
    machine.clock.turn(2);
    EXPECT_EQ(model->capture().phase(), Phase::recording);
    tap();
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    expectTranscribed();
    EXPECT_EQ(machine.clipboard.text, "hello world");
    EXPECT_EQ(machine.pasteKeystroke.sent, 1);
    EXPECT_EQ(onlyNote().kind, NoteKind::dictation);
}

TEST_F(GestureTest, TheFieldIsSettledWhenTheKeyGoesDown)
{
    open();
    machine.recorder.access.close();
    press();
    EXPECT_EQ(machine.focusedField.reads.size(), 1U);
    EXPECT_EQ(model->capture().phase(), Phase::preparing);
}

TEST_F(GestureTest, AHoldIsPushToTalk)
{
    open();
    press();
    machine.clock.turn(0.34);
    EXPECT_FALSE(model->capture().pushToTalk());
    EXPECT_EQ(model->capture().phase(), Phase::preparing);
    machine.clock.turn(0.01);
    EXPECT_TRUE(model->capture().pushToTalk());
    ASSERT_TRUE(reach(Phase::recording));
    machine.clock.turn(1);
    release();
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    EXPECT_FALSE(model->capture().pushToTalk());
    expectTranscribed();
    EXPECT_NEAR(onlyRecording().duration, 1.35, 1e-6);
}

TEST_F(GestureTest, ATapFinishesACaptureThatTheShortcutBegan)
{
    open();
    machine.shortcut.press();
    ASSERT_TRUE(reach(Phase::recording));
    tap();
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    expectTranscribed();
}

TEST_F(GestureTest, AHoldFinishesARunningCaptureOnRelease)
{
    open();
    tap();
    ASSERT_TRUE(reach(Phase::recording));
    press();
    machine.clock.turn(1);
    EXPECT_EQ(model->capture().phase(), Phase::recording);
    EXPECT_FALSE(model->capture().pushToTalk());
    release();
    expectTranscribed();
}

TEST_F(GestureTest, TheShortcutFinishesACaptureThatATapBegan)
{
    open();
    tap();
    ASSERT_TRUE(reach(Phase::recording));
    machine.shortcut.press();
    expectTranscribed();
}

TEST_F(GestureTest, AnOrdinaryCombinationLeavesNoTrace)
{
    using Join = void (*)(FakeKeyMonitor&);
    struct Case {
        const char* name;
        double after; // seconds of the gesture key alone
        Join join;
    };
    const std::vector<Case> cases{
        { "a key at once", 0, [](auto& keys) { keys.pressKey(); } },
        { "a key just before the press is a hold", 0.34, [](auto& keys) { keys.pressKey(); } },
        { "a modifier", 0.1, [](auto& keys) { keys.pressModifier(); } },
    };
    open();
    const auto message = model->status().message();
    model->status().setErrorMessage("what went wrong before");
    for (const auto& [name, after, join] : cases) {
        SCOPED_TRACE(name);
        press();
        machine.clock.turn(after);
        join(machine.keys);
        EXPECT_EQ(model->capture().phase(), Phase::idle);
        EXPECT_FALSE(machine.recorder.running());
        machine.clock.turn(1);
        machine.keys.releaseModifier();
        release();
        drainEvents();
        EXPECT_EQ(model->capture().phase(), Phase::idle);
    }
    EXPECT_TRUE(model->library().contents().notes.empty());
    EXPECT_TRUE(machine.recorder.files.empty());
    EXPECT_TRUE(machine.cues.played.empty());
    EXPECT_EQ(model->status().message(), message);
    EXPECT_EQ(model->status().errorMessage(), "what went wrong before");

    tap();
    ASSERT_TRUE(reach(Phase::recording));
    tap();
    expectTranscribed(); // the only note there is
}

TEST_F(GestureTest, WhatIsSaidWhileTheGestureComesClearIsRecorded)
{
    open();
    hold();
    ASSERT_TRUE(reach(Phase::recording));
    machine.clock.turn(1);
    release();
    expectTranscribed();
    EXPECT_NEAR(onlyRecording().duration, FnShortcutState::holdDuration + 1, 1e-6);
}

TEST_F(GestureTest, ACombinationAfterTheHoldKeepsTheAudioAndTranscribesNothing)
{
    open();
    hold();
    ASSERT_TRUE(reach(Phase::recording));
    machine.clock.turn(0.2);
    machine.keys.pressKey();
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    EXPECT_EQ(model->capture().level(), 0);
    expectDiscarded(FnShortcutState::holdDuration + 0.2);
    release();
    EXPECT_EQ(model->capture().phase(), Phase::idle);

    // It can be transcribed by hand.
    model->run().retry(onlyRecording(), false);
    expectTranscribed();
}

TEST_F(GestureTest, ACombinationAfterTheHoldEndsPushToTalk)
{
    open();
    hold();
    ASSERT_TRUE(reach(Phase::recording));
    machine.clock.turn(0.65);
    ASSERT_TRUE(model->capture().pushToTalk());
    machine.keys.pressModifier();
    EXPECT_FALSE(model->capture().pushToTalk());
    expectDiscarded(1);
}

TEST_F(GestureTest, ACombinationThatCannotBeStoredIsReported)
{
    open();
    hold();
    ASSERT_TRUE(reach(Phase::recording));
    breakStore();
    machine.keys.pressKey();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(model->status().errorMessage(),
        "Vesko could not save this change. Check free disk space and access to the data folder.");
    EXPECT_NE(model->status().message(), discarded);
}

TEST_F(GestureTest, ACombinationWhileTheUserIsBeingAskedLeavesNothingBehind)
{
    open();
    machine.recorder.access.close();
    press();
    machine.keys.pressKey();
    EXPECT_EQ(model->capture().phase(), Phase::preparing);
    machine.recorder.access.open();
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_EQ(model->status().errorMessage(), "");
    EXPECT_TRUE(machine.recorder.files.empty());
    release();

    tap();
    ASSERT_TRUE(reach(Phase::recording));
    tap();
    expectTranscribed(); // the only note there is
}

TEST_F(GestureTest, ACombinationWhileTheMicrophoneStartsKeepsWhatWasRecorded)
{
    open();
    machine.recorder.starting.close();
    hold();
    ASSERT_TRUE(eventually([&] { return machine.recorder.starting.waiting(); }));
    machine.keys.pressModifier();
    EXPECT_EQ(model->capture().phase(), Phase::preparing);
    machine.recorder.starting.open();
    ASSERT_TRUE(eventually([&] { return model->status().message() == discarded; }));
    expectDiscarded(FnShortcutState::holdDuration);
    machine.keys.releaseModifier();
    release();
    EXPECT_EQ(model->capture().phase(), Phase::idle);
}

TEST_F(GestureTest, AKeyThatCameUpWhileTheMicrophoneStartedFinishesAtOnce)
{
    open();
    machine.recorder.starting.close();
    hold();
    ASSERT_TRUE(eventually([&] { return machine.recorder.starting.waiting(); }));
    machine.clock.turn(0.15);
    EXPECT_TRUE(model->capture().pushToTalk()); // held, though nothing is recorded yet
    release();
    EXPECT_EQ(model->capture().phase(), Phase::preparing);
    machine.recorder.starting.open();
    ASSERT_TRUE(reach(Phase::processing));
    expectTranscribed();
}

TEST_F(GestureTest, AKeyThatCameUpWhileTheUserWasBeingAskedFinishesAtOnce)
{
    open();
    machine.recorder.access.close();
    press();
    machine.clock.turn(2);
    release();
    std::vector<Phase> phases;
    QObject::connect(&model->capture(), &Capture::phaseChanged,
        [&] { phases.push_back(model->capture().phase()); });
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::processing));
    EXPECT_EQ(phases, (std::vector{ Phase::recording, Phase::processing }));
    expectTranscribed();
}

TEST_F(GestureTest, ATapThatEndedWhileTheMicrophoneStartedLeavesTheCaptureRunning)
{
    open();
    machine.recorder.starting.close();
    tap();
    ASSERT_TRUE(eventually([&] { return machine.recorder.starting.waiting(); }));
    machine.recorder.starting.open();
    ASSERT_TRUE(reach(Phase::recording));
    ASSERT_TRUE(eventually([&] { return !model->library().contents().notes.empty(); }));
    EXPECT_EQ(model->capture().phase(), Phase::recording);
    EXPECT_FALSE(model->capture().pushToTalk());
    tap();
    expectTranscribed();
}

TEST_F(GestureTest, AStartThatFailsForgetsTheGesture)
{
    open();
    machine.recorder.starting.close();
    machine.recorder.startFails = true;
    hold();
    ASSERT_TRUE(eventually([&] { return machine.recorder.starting.waiting(); }));
    ASSERT_TRUE(model->capture().pushToTalk());
    release(); // asks for a finish that will never come
    machine.recorder.starting.open();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_FALSE(model->capture().pushToTalk());

    machine.recorder.startFails = false;
    tap();
    ASSERT_TRUE(reach(Phase::recording));
    ASSERT_TRUE(eventually([&] { return model->library().contents().notes.size() == 2; }));
    EXPECT_EQ(model->capture().phase(), Phase::recording);
}

TEST_F(GestureTest, ARefusedMicrophoneForgetsTheGesture)
{
    open();
    machine.recorder.grantsAccess = false;
    machine.recorder.access.close();
    press();
    machine.clock.turn(0.5);
    release();
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_FALSE(model->capture().pushToTalk());
    EXPECT_NE(model->status().errorMessage(), "");
}

TEST_F(GestureTest, ARecordingThatEndsByItselfForgetsTheGesture)
{
    open();
    hold();
    ASSERT_TRUE(reach(Phase::recording));
    machine.clock.turn(1);
    ASSERT_TRUE(model->capture().pushToTalk());
    machine.recorder.fail(RecorderFailure::stoppedUnexpectedly);
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_FALSE(model->capture().pushToTalk());
    release();
    EXPECT_EQ(model->capture().phase(), Phase::idle);
}

TEST_F(GestureTest, APressWhileBusyDoesNothing)
{
    open();
    machine.recognizer.hears.reset();
    tap();
    ASSERT_TRUE(reach(Phase::recording));
    tap();
    ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
    const std::string message = model->status().message();
    press();
    machine.clock.turn(1);
    release();
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    EXPECT_EQ(model->status().message(), message);
    EXPECT_EQ(machine.focusedField.reads.size(), 1U);
    machine.recognizer.report({ .text = "hello world", .isFinal = true });
    expectTranscribed();
}

TEST_F(GestureTest, AKeyHeldFromTheRunIntoReadinessStartsNothing)
{
    open();
    machine.recognizer.hears.reset();
    tap();
    ASSERT_TRUE(reach(Phase::recording));
    tap();
    ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
    press();
    machine.recognizer.report({ .text = "hello world", .isFinal = true });
    expectTranscribed();
    machine.clock.turn(1);
    release();
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_EQ(machine.recorder.files.size(), 1U);
}

TEST_F(GestureTest, AKeyThatJoinsAPressWhileRecordingLetsTheCaptureGoOn)
{
    open();
    tap();
    ASSERT_TRUE(reach(Phase::recording));
    press();
    machine.keys.pressKey();
    release();
    EXPECT_EQ(model->capture().phase(), Phase::recording);
    tap();
    expectTranscribed();
}

TEST_F(GestureTest, AFinishThatNobodyArmedLeavesTheCaptureAlone)
{
    open();
    dictate();
    model->capture().handleFn(FnShortcutAction::finish);
    EXPECT_EQ(model->capture().phase(), Phase::recording);
    model->capture().handleFn(FnShortcutAction::hold);
    EXPECT_FALSE(model->capture().pushToTalk());
    model->capture().handleFn(FnShortcutAction::discard);
    EXPECT_EQ(model->capture().phase(), Phase::recording);
    finish();
    EXPECT_EQ(onlyRecording().status, RecordingStatus::ready);
}

TEST_F(GestureTest, AnArmedFinishIsForTheCaptureOfItsMoment)
{
    open();
    dictate();
    model->capture().handleFn(FnShortcutAction::armStop);
    finish();
    dictate();
    model->capture().handleFn(FnShortcutAction::finish);
    EXPECT_EQ(model->capture().phase(), Phase::recording);
}

TEST_F(GestureTest, ActionsWithoutACaptureDoNothing)
{
    open();
    for (const auto action : { FnShortcutAction::armStop, FnShortcutAction::finish,
             FnShortcutAction::hold, FnShortcutAction::discard }) {
        model->capture().handleFn(action);
        EXPECT_EQ(model->capture().phase(), Phase::idle);
        EXPECT_FALSE(model->capture().pushToTalk());
    }
    tap();
    ASSERT_TRUE(reach(Phase::recording));
    tap();
    expectTranscribed();
}

TEST_F(GestureTest, ACaptureOfTheShortcutIsNotEndedByTheGestureBeforeIt)
{
    open();
    machine.recorder.access.close();
    press();
    machine.keys.pressKey(); // the gesture ends here; its start finds out when it has its answer
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::idle));
    machine.shortcut.press();
    ASSERT_TRUE(reach(Phase::recording));
    release();
    ASSERT_TRUE(eventually([&] { return !model->library().contents().notes.empty(); }));
    EXPECT_EQ(model->capture().phase(), Phase::recording);
}

TEST_F(GestureTest, TurningTheGestureOffInTheMiddleDiscards)
{
    open();
    hold();
    ASSERT_TRUE(reach(Phase::recording));
    model->preferences().fnEnabled.set(false);
    machine.clock.turn(0.1);
    machine.keys.pressKey();
    expectDiscarded(FnShortcutState::holdDuration + 0.1);
    tap();
    EXPECT_EQ(model->capture().phase(), Phase::idle);
}

TEST_F(GestureTest, MissedEventsDiscard)
{
    open();
    hold();
    ASSERT_TRUE(reach(Phase::recording));
    machine.clock.turn(0.5);
    machine.keys.interrupt();
    expectDiscarded(FnShortcutState::holdDuration + 0.5);
}

} // namespace

} // namespace vesko
