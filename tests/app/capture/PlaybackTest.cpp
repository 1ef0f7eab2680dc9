// A stored recording is played from the library window.

#include "tests/app/capture/AppModelTest.h"

namespace vesko {

namespace {

class PlaybackTest : public AppModelTest {
protected:
    // Two recordings stand in the library.
    void open()
    {
        choose("learnCorrections", false); // no review of the pastes
        AppModelTest::open();
        dictate();
        finish();
        dictate();
        finish();
        first = model->library().notes[0].recordings[0];
        second = model->library().notes[1].recordings[0];
    }
    [[nodiscard]] bool playing(const Recording& recording)
    {
        return eventually([&] { return model->playingID() == recording.id; });
    }
    std::filesystem::path file(const Recording& recording) const
    {
        return root() / "recordings" / recording.fileName;
    }

    Recording first;
    Recording second;
};

TEST_F(PlaybackTest, ARecordingPlaysToItsEndAndALittleLonger)
{
    open();
    model->play(first);
    ASSERT_TRUE(playing(first));
    EXPECT_EQ(machine.player.playing, file(first));
    machine.clock.turn(3.19);
    EXPECT_EQ(model->playingID(), first.id);
    machine.clock.turn(0.01);
    EXPECT_EQ(model->playingID(), std::nullopt);
    EXPECT_EQ(machine.player.playing, std::nullopt);
}

TEST_F(PlaybackTest, TheSameButtonStopsIt)
{
    open();
    model->play(first);
    ASSERT_TRUE(playing(first));
    model->play(first);
    EXPECT_EQ(model->playingID(), std::nullopt);
    EXPECT_EQ(machine.player.playing, std::nullopt);
    EXPECT_EQ(machine.clock.armed(), 0U);
}

TEST_F(PlaybackTest, AnotherRecordingReplacesItAtOnce)
{
    open();
    model->play(first);
    ASSERT_TRUE(playing(first));
    machine.clock.turn(2);
    model->play(second);
    EXPECT_EQ(model->playingID(), std::nullopt);
    ASSERT_TRUE(playing(second));
    EXPECT_EQ(machine.player.playing, file(second));
    machine.clock.turn(3); // the first one's end comes and goes
    EXPECT_EQ(model->playingID(), second.id);
    machine.clock.turn(0.2);
    EXPECT_EQ(model->playingID(), std::nullopt);
}

TEST_F(PlaybackTest, AFreshStartInTheGraceOfAnotherIsNotCutShort)
{
    open();
    model->play(first);
    ASSERT_TRUE(playing(first));
    machine.clock.turn(3.1);
    model->play(second);
    ASSERT_TRUE(playing(second));
    machine.clock.turn(0.1);
    EXPECT_EQ(model->playingID(), second.id);
    machine.clock.turn(3);
    EXPECT_EQ(model->playingID(), second.id);
    machine.clock.turn(0.1);
    EXPECT_EQ(model->playingID(), std::nullopt);
}

TEST_F(PlaybackTest, TheLatestOfSeveralQuickRequestsPlays)
{
    open();
    model->play(first);
    model->play(second);
    ASSERT_TRUE(playing(second));
    EXPECT_THAT(machine.player.played, testing::ElementsAre(file(second)));
}

TEST_F(PlaybackTest, ARequestThatIsOvertakenWhileThePlayerStartsLeavesNoTrace)
{
    open();
    machine.player.starting.close();
    model->play(first);
    ASSERT_TRUE(eventually([&] { return machine.player.starting.waiting(); }));
    model->stopPlayback();
    machine.player.starting.open();
    drainEvents();
    EXPECT_EQ(model->playingID(), std::nullopt);
    EXPECT_EQ(machine.player.playing, std::nullopt);
    EXPECT_EQ(machine.clock.armed(), 0U);
}

TEST_F(PlaybackTest, ACaptureStopsIt)
{
    open();
    model->play(first);
    ASSERT_TRUE(playing(first));
    machine.recorder.access.close();
    model->toggleDictation();
    EXPECT_EQ(model->playingID(), std::nullopt);
    EXPECT_EQ(machine.player.playing, std::nullopt);
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::recording));
}

TEST_F(PlaybackTest, NothingPlaysDuringACapture)
{
    open();
    machine.recorder.access.close();
    model->toggleDictation();
    model->play(first);
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::recording));
    model->play(first);
    finish();
    EXPECT_TRUE(machine.player.played.empty());
}

TEST_F(PlaybackTest, ATranscriptionIsNoObstacle)
{
    open();
    machine.recognizer.hears.reset();
    dictate();
    model->toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
    model->play(first);
    ASSERT_TRUE(playing(first));
    EXPECT_EQ(model->phase(), Phase::processing);
}

TEST_F(PlaybackTest, AudioThatIsGoneIsReported)
{
    open();
    std::filesystem::remove(file(first));
    model->play(first);
    ASSERT_TRUE(eventually([&] { return !model->errorMessage().empty(); }));
    EXPECT_EQ(model->errorMessage(),
        "Vesko could not complete this operation. Your saved files were preserved. Check the "
        "data folder and try again.");
    EXPECT_EQ(model->playingID(), std::nullopt);
}

TEST_F(PlaybackTest, ARecordThatNamesAForeignFileIsRefused)
{
    open();
    Recording forged = first;
    forged.fileName = "../../../etc/passwd";
    model->play(forged);
    ASSERT_TRUE(eventually([&] { return !model->errorMessage().empty(); }));
    EXPECT_EQ(model->errorMessage(), "The recording path is invalid. The library was preserved.");
    EXPECT_TRUE(machine.player.played.empty());
}

TEST_F(PlaybackTest, AFailureOfARequestThatWasOvertakenIsSilent)
{
    open();
    Recording forged = first;
    forged.fileName = "elsewhere.m4a";
    model->play(forged);
    model->play(second);
    ASSERT_TRUE(playing(second));
    EXPECT_EQ(model->errorMessage(), "");
}

TEST_F(PlaybackTest, StoppingWithNothingPlayingDoesNothing)
{
    open();
    model->stopPlayback();
    EXPECT_EQ(model->playingID(), std::nullopt);
}

} // namespace

} // namespace vesko
