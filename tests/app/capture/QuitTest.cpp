// The program is asked to end, in every phase.

#include "tests/app/AppModelTest.h"

namespace vesko {

namespace {

using QuitTest = AppModelTest;

TEST_F(QuitTest, NothingHoldsItUpWhenIdle)
{
    open();
    EXPECT_TRUE(awaited(model->prepareToQuit()));
}

TEST_F(QuitTest, NothingHoldsItUpBeforeTheLibraryIsOpen)
{
    start();
    EXPECT_TRUE(awaited(model->prepareToQuit()));
}

TEST_F(QuitTest, TheQuestionWhetherTheMicrophoneMayBeUsedDoesNotHoldItUp)
{
    open();
    machine.recorder.access.close();
    model->capture().toggleDictation();
    EXPECT_TRUE(awaited(model->prepareToQuit()));
    EXPECT_TRUE(model->library().contents().notes.empty());
}

TEST_F(QuitTest, AMicrophoneThatNeverStartsIsGivenUp)
{
    open();
    machine.recorder.starting.close();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recorder.starting.waiting(); }));
    EXPECT_TRUE(awaited(model->prepareToQuit()));
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_FALSE(machine.recorder.running());
    EXPECT_EQ(onlyRecording().status, RecordingStatus::failed);
    EXPECT_FALSE(onlyRecording().errorMessage.value_or("").empty());
}

// Wherever on its way the start is when the end comes.
TEST_F(QuitTest, AStartIsGivenUpAtEachOfItsSteps)
{
    open();
    for (int step = 0; step < 4; ++step) {
        SCOPED_TRACE(step);
        model->capture().toggleDictation();
        for (int passed = 0; passed < step; ++passed)
            QCoreApplication::processEvents();
        EXPECT_TRUE(awaited(model->prepareToQuit()));
        EXPECT_EQ(model->capture().phase(), Phase::idle);
        EXPECT_FALSE(machine.recorder.running());
        for (const auto& note : model->library().contents().notes)
            for (const auto& recording : note.recordings)
                EXPECT_NE(recording.status, RecordingStatus::recording);
    }
    // The end may be called off.
    dictate();
    finish();
    EXPECT_EQ(model->library().contents().notes.back().body, "hello world");
}

TEST_F(QuitTest, AGestureThatIsNotClearYetLeavesNothing)
{
    open();
    model->capture().handleFn(FnShortcutAction::begin);
    EXPECT_EQ(model->capture().phase(), Phase::preparing);
    EXPECT_TRUE(awaited(model->prepareToQuit()));
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_FALSE(machine.recorder.running());
    EXPECT_TRUE(model->library().contents().notes.empty());
    EXPECT_EQ(model->status().errorMessage(), "");
}

TEST_F(QuitTest, ARunningCaptureIsKeptAndNotTranscribed)
{
    open();
    dictate();
    machine.clock.turn(4);
    EXPECT_TRUE(awaited(model->prepareToQuit()));
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_FALSE(machine.recorder.running());
    EXPECT_EQ(machine.clock.armed(), 0U);
    model.reset();

    const LibraryStore store(root(), machine.clock);
    const auto& recording = store.snapshot().notes.back().recordings.back();
    EXPECT_EQ(recording.status, RecordingStatus::recorded);
    EXPECT_EQ(recording.duration, 4);
    EXPECT_TRUE(recording.attempts.empty());
    EXPECT_TRUE(std::filesystem::exists(root() / "recordings" / recording.fileName));
}

TEST_F(QuitTest, ItWaitsUntilTheFileIsWhole)
{
    open();
    dictate();
    machine.recorder.finishing.close();
    std::optional<bool> answer;
    TaskScope scope;
    scope.spawn([](AppModel& of, std::optional<bool>& into) -> Task<> {
        into = co_await of.prepareToQuit();
    }(*model, answer));
    drainEvents();
    EXPECT_EQ(answer, std::nullopt);
    machine.recorder.finishing.open();
    ASSERT_TRUE(eventually([&] { return answer.has_value(); }));
    EXPECT_EQ(answer, true);
}

TEST_F(QuitTest, ItWaitsForARecordingThatHasJustBeenStopped)
{
    open();
    for (const bool works : { true, false }) {
        SCOPED_TRACE(works);
        dictate();
        machine.recorder.finishing.close();
        if (!works)
            breakStore();
        model->capture().toggleDictation();
        ASSERT_EQ(model->capture().phase(), Phase::processing);
        std::optional<bool> answer;
        TaskScope scope;
        scope.spawn([](AppModel& of, std::optional<bool>& into) -> Task<> {
            into = co_await of.prepareToQuit();
        }(*model, answer));
        drainEvents();
        EXPECT_EQ(answer, std::nullopt);
        machine.recorder.finishing.open();
        ASSERT_TRUE(eventually([&] { return answer.has_value(); }));
        EXPECT_EQ(answer, works);
        ASSERT_TRUE(reach(Phase::idle));
    }
}

TEST_F(QuitTest, ATriggerMeanwhileStartsNothing)
{
    open();
    dictate();
    machine.recorder.finishing.close();
    std::optional<bool> answer;
    TaskScope scope;
    scope.spawn([](AppModel& of, std::optional<bool>& into) -> Task<> {
        into = co_await of.prepareToQuit();
    }(*model, answer));
    model->capture().toggleDictation();
    model->capture().recordNote(false);
    model->capture().handleFn(FnShortcutAction::begin);
    machine.recorder.finishing.open();
    ASSERT_TRUE(eventually([&] { return answer.has_value(); }));
    EXPECT_EQ(answer, true);
    EXPECT_EQ(model->capture().phase(), Phase::idle);
    EXPECT_EQ(machine.recorder.files.size(), 1U);
    EXPECT_TRUE(machine.recognizer.audio.empty());
}

TEST_F(QuitTest, ACaptureThatCannotBeStoredRefusesIt)
{
    open();
    dictate();
    breakStore();
    EXPECT_FALSE(awaited(model->prepareToQuit()));
    EXPECT_EQ(model->status().errorMessage(),
        "Vesko could not save this change. Check free disk space and access to the data folder.");
    EXPECT_FALSE(machine.recorder.running());

    // The program goes on, and a second try has nothing left to lose.
    repairStore();
    dictate();
    finish();
    EXPECT_EQ(model->library().contents().notes.back().body, "hello world");
    EXPECT_TRUE(awaited(model->prepareToQuit()));
}

TEST_F(QuitTest, ATranscriptionDoesNotHoldItUp)
{
    open();
    machine.recognizer.hears.reset();
    dictate();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
    EXPECT_TRUE(awaited(model->prepareToQuit()));
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    EXPECT_TRUE(machine.recognizer.running());
    model.reset();
    EXPECT_FALSE(machine.recognizer.running());

    // The next start finds what was cut short.
    const LibraryStore store(root(), machine.clock);
    const auto& recording = store.snapshot().notes.back().recordings.back();
    EXPECT_EQ(recording.status, RecordingStatus::interrupted);
    EXPECT_EQ(recording.attempts.back().status, AttemptStatus::interrupted);
}

} // namespace

} // namespace vesko
