// The tones that mark a capture: what they are, and when the controller has them played.

#include "VeskoApp/capture/CaptureCues.h"
#include "tests/app/AppModelTest.h"

#include <algorithm>

namespace vesko {

namespace {

using testing::DoubleEq;
using testing::ElementsAre;
using testing::Pointwise;
using Cue = CaptureCues::Cue;

class CaptureCuesTest : public testing::Test {
protected:
    TestClock clock;
    FakeCueEngine engine{ clock };
    CaptureCues cues{ engine };
};

struct Setting {
    Cue cue;
    std::string sample;
    double highPass;
    double pitch;
};

TEST_F(CaptureCuesTest, EachCueHasItsOwnSampleFilterAndPitch)
{
    const Setting settings[] = {
        { .cue = Cue::stop, .sample = "CaptureStop", .highPass = 550, .pitch = 400 },
        { .cue = Cue::start, .sample = "CaptureStart", .highPass = 350, .pitch = 100 },
        { .cue = Cue::stop, .sample = "CaptureStop", .highPass = 550, .pitch = 400 },
    };
    for (const auto& expected : settings) {
        SCOPED_TRACE(expected.sample);
        cues.play(expected.cue);
        EXPECT_EQ(engine.played.back().sample, expected.sample);
        EXPECT_EQ(engine.played.back().highPass, expected.highPass);
        EXPECT_EQ(engine.played.back().pitch, expected.pitch);
    }
}

TEST_F(CaptureCuesTest, BothCuesHoldTheirVolumeAndFadeInTenSteps)
{
    for (const Cue cue : { Cue::start, Cue::stop }) {
        cues.play(cue);
        std::vector<double> times;
        std::vector<double> volumes;
        for (const auto& step : engine.played.back().envelope) {
            times.push_back(step.from);
            volumes.push_back(step.volume);
        }
        EXPECT_THAT(times,
            Pointwise(DoubleEq(),
                { 0.0, 0.075, 0.084, 0.093, 0.102, 0.111, 0.120, 0.129, 0.138, 0.147, 0.156 }));
        EXPECT_THAT(volumes,
            Pointwise(DoubleEq(),
                { 0.35, 0.315, 0.28, 0.245, 0.21, 0.175, 0.14, 0.105, 0.07, 0.035, 0.0 }));
        EXPECT_DOUBLE_EQ(engine.played.back().length, 0.165);
    }
}

TEST_F(CaptureCuesTest, ACueIsOverAfterAMoment)
{
    EXPECT_EQ(engine.volume(), 0);
    cues.play(Cue::start);
    EXPECT_DOUBLE_EQ(engine.volume(), 0.35);
    clock.turn(0.074);
    EXPECT_DOUBLE_EQ(engine.volume(), 0.35);
    clock.turn(0.001);
    EXPECT_DOUBLE_EQ(engine.volume(), 0.315);
    clock.turn(0.080);
    EXPECT_DOUBLE_EQ(engine.volume(), 0.035);
    clock.turn(0.001);
    EXPECT_EQ(engine.volume(), 0);
    EXPECT_TRUE(engine.sounding());
    clock.turn(0.009);
    EXPECT_FALSE(engine.sounding());
}

TEST_F(CaptureCuesTest, ACueThatCutsOffAnotherHasItsWholeLength)
{
    cues.play(Cue::start);
    clock.turn(0.05);
    cues.play(Cue::stop);
    clock.turn(0.074); // the first would be in its fade
    EXPECT_DOUBLE_EQ(engine.volume(), 0.35);
    EXPECT_EQ(engine.sounding()->sample, "CaptureStop");
    clock.turn(0.09); // and be over
    EXPECT_TRUE(engine.sounding());
    clock.turn(0.001);
    EXPECT_FALSE(engine.sounding());
}

TEST_F(CaptureCuesTest, ACueInTheFadeOfAnotherIsAtFullVolumeAgain)
{
    cues.play(Cue::start);
    clock.turn(0.12);
    EXPECT_DOUBLE_EQ(engine.volume(), 0.14);
    cues.play(Cue::start);
    EXPECT_DOUBLE_EQ(engine.volume(), 0.35);
}

TEST_F(CaptureCuesTest, ItsSamplesAreLoadedOnce)
{
    EXPECT_TRUE(engine.loads.empty());
    cues.prepare();
    cues.prepare();
    cues.play(Cue::start);
    cues.play(Cue::stop);
    EXPECT_THAT(engine.loads, ElementsAre(ElementsAre("CaptureStart", "CaptureStop")));
    EXPECT_EQ(engine.played.size(), 2U);
}

TEST_F(CaptureCuesTest, WithoutItsFileACueIsSilentAndStillCutsOffTheOther)
{
    engine.missing = { "CaptureStop" };
    cues.play(Cue::start);
    clock.turn(0.05);
    cues.play(Cue::stop);
    EXPECT_EQ(engine.volume(), 0);
    cues.play(Cue::start);
    EXPECT_DOUBLE_EQ(engine.volume(), 0.35);
}

TEST_F(CaptureCuesTest, WithoutBothFilesNothingIsEverPlayed)
{
    engine.missing = { "CaptureStart", "CaptureStop" };
    cues.play(Cue::start);
    cues.play(Cue::stop);
    EXPECT_TRUE(engine.played.empty());
}

class CapturesAndCuesTest : public AppModelTest {
protected:
    std::vector<std::string> heard() const
    {
        std::vector<std::string> names(machine.cues.played.size());
        std::ranges::transform(machine.cues.played, names.begin(), &CueSound::sample);
        return names;
    }
};

TEST_F(CapturesAndCuesTest, ACaptureBeginsAndEndsWithItsCue)
{
    open();
    EXPECT_TRUE(machine.cues.loads.empty()); // a waiting program holds no sound
    dictate();
    EXPECT_THAT(heard(), ElementsAre("CaptureStart"));
    finish();
    EXPECT_THAT(heard(), ElementsAre("CaptureStart", "CaptureStop"));
}

TEST_F(CapturesAndCuesTest, TheStartCueComesRightBeforeTheRecordersStartAndIsNotWaitedFor)
{
    open();
    machine.recorder.starting.close();
    machine.cues.onPlay = [&](const CueSound&) {
        EXPECT_TRUE(machine.recorder.running()) << "the first words would be lost";
        EXPECT_TRUE(machine.recorder.files.empty());
        EXPECT_EQ(model->capture().phase(), Phase::preparing);
    };
    model->capture().toggleDictation();
    ASSERT_TRUE(eventually([&] { return machine.recorder.starting.waiting(); }));
    EXPECT_THAT(heard(), ElementsAre("CaptureStart"));
    EXPECT_TRUE(machine.cues.sounding());
    machine.recorder.starting.open();
    ASSERT_TRUE(reach(Phase::recording));
}

TEST_F(CapturesAndCuesTest, TheCuesAreLoadedWhileTheRecordingIsBeingSaved)
{
    open();
    model->capture().toggleDictation();
    EXPECT_EQ(machine.cues.loads.size(), 1U);
    EXPECT_TRUE(machine.cues.played.empty());
    ASSERT_TRUE(reach(Phase::recording));
}

TEST_F(CapturesAndCuesTest, TheStopCueComesWhenTheMicrophoneHasClosed)
{
    open();
    dictate();
    machine.cues.onPlay = [&](const CueSound&) {
        EXPECT_FALSE(machine.recorder.running());
        EXPECT_EQ(model->capture().phase(), Phase::recording);
    };
    finish();
    EXPECT_THAT(heard(), ElementsAre("CaptureStart", "CaptureStop"));
}

TEST_F(CapturesAndCuesTest, AVoiceNoteHasThemToo)
{
    open();
    model->capture().recordNote(false);
    ASSERT_TRUE(reach(Phase::recording));
    model->capture().recordNote(false);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_THAT(heard(), ElementsAre("CaptureStart", "CaptureStop"));
}

TEST_F(CapturesAndCuesTest, ARecordingThatReachesItsLimitEndsWithTheCue)
{
    open();
    dictate();
    machine.clock.turn(300);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_THAT(heard(), ElementsAre("CaptureStart", "CaptureStop"));
}

TEST_F(CapturesAndCuesTest, AUserWithoutSoundsHearsNone)
{
    choose("soundsEnabled", false);
    open();
    dictate();
    finish();
    EXPECT_TRUE(machine.cues.loads.empty());
    EXPECT_TRUE(machine.cues.played.empty());
}

TEST_F(CapturesAndCuesTest, SoundsTurnedOffDuringACaptureAreOffAtItsEnd)
{
    open();
    dictate();
    model->preferences().soundsEnabled.set(false);
    finish();
    EXPECT_THAT(heard(), ElementsAre("CaptureStart"));
}

TEST_F(CapturesAndCuesTest, SoundsTurnedOnDuringACaptureAreOnAtItsEnd)
{
    choose("soundsEnabled", false);
    open();
    dictate();
    model->preferences().soundsEnabled.set(true);
    finish();
    EXPECT_THAT(heard(), ElementsAre("CaptureStop"));
}

TEST_F(CapturesAndCuesTest, MissingSoundsChangeNothingElse)
{
    machine.cues.missing = { "CaptureStart", "CaptureStop" };
    open();
    dictate();
    finish();
    EXPECT_TRUE(machine.cues.played.empty());
    EXPECT_EQ(onlyRecording().status, RecordingStatus::ready);
    EXPECT_EQ(model->status().errorMessage(), "");
}

TEST_F(CapturesAndCuesTest, ARefusedMicrophoneIsSilent)
{
    machine.recorder.grantsAccess = false;
    open();
    model->capture().toggleDictation();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_TRUE(machine.cues.loads.empty());
    EXPECT_TRUE(machine.cues.played.empty());
}

TEST_F(CapturesAndCuesTest, ALibraryThatCannotSaveIsSilent)
{
    open();
    breakStore();
    model->capture().toggleDictation();
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_TRUE(machine.cues.played.empty());
}

TEST_F(CapturesAndCuesTest, ARecordingThatIsLostHasNoCue)
{
    open();
    dictate();
    machine.recorder.fail(RecorderFailure::stoppedUnexpectedly);
    ASSERT_TRUE(reach(Phase::idle));
    drainEvents();
    EXPECT_THAT(heard(), ElementsAre("CaptureStart"));
}

TEST_F(CapturesAndCuesTest, AKeyCombinationHasNoStopCue)
{
    open();
    model->capture().handleFn(FnShortcutAction::begin);
    model->capture().handleFn(FnShortcutAction::hold);
    ASSERT_TRUE(reach(Phase::recording));
    model->capture().handleFn(FnShortcutAction::discard);
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_THAT(heard(), ElementsAre("CaptureStart"));
}

TEST_F(CapturesAndCuesTest, AQuitHasNoStopCue)
{
    open();
    dictate();
    EXPECT_TRUE(awaited(model->prepareToQuit()));
    EXPECT_THAT(heard(), ElementsAre("CaptureStart"));
}

} // namespace

} // namespace vesko
