// What is to be recognised on this machine is heard while it is spoken, and by nobody for longer.

#include "VeskoApp/shell/AppDelegate.h"
#include "tests/app/AppModelTest.h"

namespace vesko {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HeardWhileMadeTest : public AppModelTest {
protected:
    // With a keyboard.
    void launch()
    {
        open();
        delegate = std::make_unique<AppDelegate>(machine.all, *model);
        delegate->makeCapturePanel = [] { return std::make_unique<QWindow>(); };
        delegate->windows().make = [](AppWindow) { return nullptr; };
        delegate->terminate = [] { };
        delegate->launch(true);
    }
    int hearings() const { return machine.recognizer.hearings; }

    std::unique_ptr<AppDelegate> delegate; // ends before the model
};

TEST_F(HeardWhileMadeTest, ARecordingFromItsFirstSoundOn)
{
    choose("language", std::string("en-US"));
    open();
    dictate();
    EXPECT_EQ(hearings(), 1);
    EXPECT_THAT(machine.recorder.wasHeard, ElementsAre(true));
    finish();
    EXPECT_THAT(machine.recognizer.heardLanguages, ElementsAre("en-US"));
    EXPECT_THAT(machine.recognizer.wasHeard, ElementsAre(true));
    EXPECT_EQ(hearings(), 0);
}

TEST_F(HeardWhileMadeTest, ARetryGoesByTheFile)
{
    open();
    dictate();
    finish();
    model->run().retry(onlyRecording(), false);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_THAT(machine.recognizer.wasHeard, ElementsAre(true, false));
}

TEST_F(HeardWhileMadeTest, ByNoEngineWhatGoesToAService)
{
    choose("provider", std::string("openrouter"));
    open();
    dictate();
    EXPECT_THAT(machine.recognizer.heardLanguages, IsEmpty());
    EXPECT_EQ(machine.speechGate.hearings, 1);
    EXPECT_THAT(machine.recorder.wasHeard, ElementsAre(true));
}

TEST_F(HeardWhileMadeTest, ByNoOtherEngineThanTheChosenOneWhichTheUserIsTold)
{
    choose("engine", std::string("whisper.cpp/base"));
    open();
    dictate();
    EXPECT_THAT(machine.recognizer.heardLanguages, IsEmpty());
    EXPECT_EQ(model->status().errorMessage(),
        "The chosen engine isn't there. Until you choose another, recordings are only saved.");
    // It is installed while the user speaks.
    machine.speechEngines.found.push_back({ .id = "whisper.cpp/base", .name = "whisper.cpp" });
    finish();
    EXPECT_EQ(model->status().errorMessage(), "");
    EXPECT_EQ(onlyNote().body, "hello world");
    dictate();
    EXPECT_EQ(hearings(), 1);
}

TEST_F(HeardWhileMadeTest, ByNobodyWhileItIsNotKnownWhetherTheEngineIsThere)
{
    choose("engine", std::string("server"));
    machine.secrets.hang(); // the key of the server is waited for
    open();
    dictate();
    EXPECT_THAT(machine.recognizer.heardLanguages, IsEmpty());
    EXPECT_EQ(model->status().errorMessage(), "");
    machine.secrets.answer();
    finish();
    EXPECT_EQ(onlyNote().body, "hello world");
}

TEST_F(HeardWhileMadeTest, ACancelledRecordingNoLonger)
{
    open();
    dictate();
    model->capture().cancel();
    EXPECT_EQ(hearings(), 0);
}

TEST_F(HeardWhileMadeTest, ARecordingThatIsGivenUpWhileItIsBeingSavedNoLonger)
{
    open();
    dictate();
    model->capture().toggleDictation();
    EXPECT_TRUE(model->capture().cancel());
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_EQ(hearings(), 0);
    EXPECT_EQ(model->status().message(), "Recording cancelled. The audio is saved.");
    EXPECT_EQ(onlyRecording().status, RecordingStatus::recorded);
    EXPECT_TRUE(onlyRecording().attempts.empty());
}

TEST_F(HeardWhileMadeTest, ARecordingThatEndsByItselfNoLonger)
{
    open();
    dictate();
    machine.recorder.fail(RecorderFailure::encoding);
    EXPECT_EQ(hearings(), 0);
}

TEST_F(HeardWhileMadeTest, ARecordingThatCouldNotBeginNoLonger)
{
    open();
    machine.recorder.startFails = true;
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    EXPECT_THAT(machine.recognizer.heardLanguages, ElementsAre("en-US"));
    EXPECT_EQ(hearings(), 0);
}

TEST_F(HeardWhileMadeTest, AnOrdinaryCombinationStartsNoEngine)
{
    launch();
    machine.keys.pressGestureKey();
    drainEvents();
    machine.keys.pressKey();
    machine.keys.releaseGestureKey();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_THAT(machine.recognizer.heardLanguages, IsEmpty());
}

TEST_F(HeardWhileMadeTest, ATapIsHeardAsAHoldIs)
{
    launch();
    machine.keys.pressGestureKey();
    machine.clock.turn(0.1);
    machine.keys.releaseGestureKey();
    ASSERT_TRUE(reach(Phase::recording));
    EXPECT_EQ(hearings(), 1);
    EXPECT_THAT(machine.recorder.wasHeard, ElementsAre(true));
}

TEST_F(HeardWhileMadeTest, AHoldThatBecomesACombinationNoLonger)
{
    launch();
    machine.keys.pressGestureKey();
    machine.clock.turn(FnShortcutState::holdDuration);
    ASSERT_TRUE(reach(Phase::recording));
    EXPECT_EQ(hearings(), 1);
    machine.keys.pressKey();
    EXPECT_EQ(hearings(), 0);
}

} // namespace

} // namespace vesko
