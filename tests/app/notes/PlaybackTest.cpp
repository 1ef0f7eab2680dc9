// A stored recording is played from the library window.

#include "tests/app/AppModelTest.h"

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
        first = model->library().contents().notes[0].recordings[0];
        second = model->library().contents().notes[1].recordings[0];
    }
    [[nodiscard]] bool playing(const Recording& recording)
    {
        return eventually([&] { return model->playback().playingID() == recording.id; });
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
    model->playback().play(first);
    ASSERT_TRUE(playing(first));
    EXPECT_EQ(machine.player.playing, file(first));
    machine.clock.turn(3.19);
    EXPECT_EQ(model->playback().playingID(), first.id);
    machine.clock.turn(0.01);
    EXPECT_EQ(model->playback().playingID(), std::nullopt);
    EXPECT_EQ(machine.player.playing, std::nullopt);
}

TEST_F(PlaybackTest, TheSameButtonStopsIt)
{
    open();
    model->playback().play(first);
    ASSERT_TRUE(playing(first));
    model->playback().play(first);
    EXPECT_EQ(model->playback().playingID(), std::nullopt);
    EXPECT_EQ(machine.player.playing, std::nullopt);
    EXPECT_EQ(machine.clock.armed(), 0U);
}

TEST_F(PlaybackTest, AnotherRecordingReplacesItAtOnce)
{
    open();
    model->playback().play(first);
    ASSERT_TRUE(playing(first));
    machine.clock.turn(2);
    model->playback().play(second);
    EXPECT_EQ(model->playback().playingID(), std::nullopt);
    ASSERT_TRUE(playing(second));
    EXPECT_EQ(machine.player.playing, file(second));
    machine.clock.turn(3); // the first one's end comes and goes
    EXPECT_EQ(model->playback().playingID(), second.id);
    machine.clock.turn(0.2);
    EXPECT_EQ(model->playback().playingID(), std::nullopt);
}

TEST_F(PlaybackTest, AFreshStartInTheGraceOfAnotherIsNotCutShort)
{
    open();
    model->playback().play(first);
    ASSERT_TRUE(playing(first));
    machine.clock.turn(3.1);
    model->playback().play(second);
    ASSERT_TRUE(playing(second));
    machine.clock.turn(0.1);
    EXPECT_EQ(model->playback().playingID(), second.id);
    machine.clock.turn(3);
    EXPECT_EQ(model->playback().playingID(), second.id);
    machine.clock.turn(0.1);
    EXPECT_EQ(model->playback().playingID(), std::nullopt);
}

TEST_F(PlaybackTest, TheLatestOfSeveralQuickRequestsPlays)
{
    open();
    model->playback().play(first);
    model->playback().play(second);
    ASSERT_TRUE(playing(second));
    EXPECT_THAT(machine.player.played, testing::ElementsAre(file(second)));
}

TEST_F(PlaybackTest, ARequestThatIsOvertakenWhileThePlayerStartsLeavesNoTrace)
{
    open();
    machine.player.starting.close();
    model->playback().play(first);
    ASSERT_TRUE(eventually([&] { return machine.player.starting.waiting(); }));
    model->playback().stop();
    machine.player.starting.open();
    drainEvents();
    EXPECT_EQ(model->playback().playingID(), std::nullopt);
    EXPECT_EQ(machine.player.playing, std::nullopt);
    EXPECT_EQ(machine.clock.armed(), 0U);
}

TEST_F(PlaybackTest, ACaptureStopsIt)
{
    open();
    model->playback().play(first);
    ASSERT_TRUE(playing(first));
    machine.recorder.access.close();
    model->capture().toggleDictation();
    EXPECT_EQ(model->playback().playingID(), std::nullopt);
    EXPECT_EQ(machine.player.playing, std::nullopt);
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::recording));
}

TEST_F(PlaybackTest, NothingPlaysDuringACapture)
{
    open();
    machine.recorder.access.close();
    model->capture().toggleDictation();
    model->playback().play(first);
    machine.recorder.access.open();
    ASSERT_TRUE(reach(Phase::recording));
    model->playback().play(first);
    finish();
    EXPECT_TRUE(machine.player.played.empty());
}

TEST_F(PlaybackTest, ATranscriptionIsNoObstacle)
{
    open();
    machine.recognizer.hears.reset();
    dictate();
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recognizer.running(); }));
    model->playback().play(first);
    ASSERT_TRUE(playing(first));
    EXPECT_EQ(model->capture().phase(), Phase::processing);
}

TEST_F(PlaybackTest, AudioThatIsGoneIsReported)
{
    open();
    std::filesystem::remove(file(first));
    model->playback().play(first);
    ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    EXPECT_EQ(model->status().errorMessage(),
        "Vesko could not complete this operation. Your saved files were preserved. Check the "
        "data folder and try again.");
    EXPECT_EQ(model->playback().playingID(), std::nullopt);
}

TEST_F(PlaybackTest, ARecordThatNamesAForeignFileIsRefused)
{
    open();
    Recording forged = first;
    forged.fileName = "../../../etc/passwd";
    model->playback().play(forged);
    ASSERT_TRUE(eventually([&] { return !model->status().errorMessage().empty(); }));
    EXPECT_EQ(model->status().errorMessage(),
        "The recording path is invalid. The library was preserved.");
    EXPECT_TRUE(machine.player.played.empty());
}

TEST_F(PlaybackTest, AFailureOfARequestThatWasOvertakenIsSilent)
{
    open();
    Recording forged = first;
    forged.fileName = "elsewhere.m4a";
    model->playback().play(forged);
    model->playback().play(second);
    ASSERT_TRUE(playing(second));
    EXPECT_EQ(model->status().errorMessage(), "");
}

TEST_F(PlaybackTest, WhereItIsIsToldWhileItPlays)
{
    open();
    std::vector<double> told;
    QObject::connect(&model->playback(), &Playback::positionChanged,
        [&] { told.push_back(model->playback().position()); });
    EXPECT_EQ(model->playback().seconds(), 0);
    model->playback().play(first);
    ASSERT_TRUE(playing(first));
    EXPECT_EQ(model->playback().seconds(), 3);
    EXPECT_EQ(model->playback().position(), 0);
    machine.clock.turn(1);
    EXPECT_DOUBLE_EQ(model->playback().position(), 1);
    EXPECT_EQ(told.size(), 11U);
    machine.clock.turn(2.1);
    EXPECT_DOUBLE_EQ(model->playback().position(), 3);
    machine.clock.turn(0.1);
    EXPECT_EQ(model->playback().position(), 0);
    told.clear();
    machine.clock.turn(1);
    EXPECT_TRUE(told.empty());
}

TEST_F(PlaybackTest, ItGoesOnFromWhereItIsDraggedTo)
{
    open();
    model->playback().play(first);
    ASSERT_TRUE(playing(first));
    machine.clock.turn(2.5);
    model->playback().seek(1);
    EXPECT_THAT(machine.player.sought, testing::ElementsAre(testing::Pair(1, 1)));
    EXPECT_DOUBLE_EQ(model->playback().position(), 1);
    machine.clock.turn(2.1);
    EXPECT_EQ(model->playback().playingID(), first.id);
    machine.clock.turn(0.1);
    EXPECT_EQ(model->playback().playingID(), std::nullopt);
    model->playback().seek(1); // nothing plays
    EXPECT_EQ(machine.player.sought.size(), 1U);
}

TEST_F(PlaybackTest, NoPlaceIsBeforeTheBeginningOrBehindTheEnd)
{
    open();
    model->playback().play(first);
    ASSERT_TRUE(playing(first));
    model->playback().seek(-5);
    model->playback().seek(50);
    EXPECT_THAT(
        machine.player.sought, testing::ElementsAre(testing::Pair(0, 1), testing::Pair(3, 1)));
    machine.clock.turn(0.2);
    EXPECT_EQ(model->playback().playingID(), std::nullopt);
}

TEST_F(PlaybackTest, ItPlaysFasterAndTheNextOneToo)
{
    open();
    model->playback().play(first);
    ASSERT_TRUE(playing(first));
    machine.clock.turn(1);
    model->playback().changeRate();
    EXPECT_EQ(model->playback().rate(), 1.5);
    machine.clock.turn(1);
    EXPECT_DOUBLE_EQ(model->playback().position(), 2.5);
    model->playback().changeRate();
    EXPECT_EQ(model->playback().rate(), 2);
    machine.clock.turn(0.3);
    EXPECT_EQ(model->playback().playingID(), first.id);
    machine.clock.turn(0.15);
    EXPECT_EQ(model->playback().playingID(), std::nullopt);
    machine.player.sought.clear();
    model->playback().play(second);
    ASSERT_TRUE(playing(second));
    EXPECT_THAT(machine.player.sought, testing::ElementsAre(testing::Pair(0, 2)));
    model->playback().changeRate();
    EXPECT_EQ(model->playback().rate(), 1);
}

TEST_F(PlaybackTest, TheWaveOfWhatPlaysIsDrawnOnce)
{
    open();
    EXPECT_TRUE(model->playback().wave().empty());
    const auto isDrawn = [&] {
        return eventually(
            [&] { return std::cmp_equal(model->playback().wave().size(), Playback::waveParts); });
    };
    model->playback().play(first);
    ASSERT_TRUE(playing(first));
    ASSERT_TRUE(isDrawn());
    EXPECT_EQ(model->playback().wave()[0], 0.5);
    model->playback().stop();
    EXPECT_TRUE(model->playback().wave().empty());
    model->playback().play(first);
    ASSERT_TRUE(playing(first));
    EXPECT_FALSE(model->playback().wave().empty());
    model->playback().play(second);
    ASSERT_TRUE(playing(second));
    ASSERT_TRUE(isDrawn());
    EXPECT_THAT(machine.player.drawn, testing::ElementsAre(file(first), file(second)));
}

TEST_F(PlaybackTest, StoppingWithNothingPlayingDoesNothing)
{
    open();
    model->playback().stop();
    EXPECT_EQ(model->playback().playingID(), std::nullopt);
}

} // namespace

} // namespace vesko
