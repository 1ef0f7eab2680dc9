// What is shown of a running recording, and its limit.

#include "tests/app/AppModelTest.h"

namespace vesko {

namespace {

class MeterTest : public AppModelTest {
protected:
    // The level after one step from silence.
    double firstLevel(double decibels)
    {
        dictate();
        machine.recorder.power = decibels;
        machine.clock.turn(0.1);
        const double level = model->capture().level();
        finish();
        EXPECT_EQ(model->capture().level(), 0);
        return level;
    }
};

TEST_F(MeterTest, TheLevelFollowsThePowerBetweenItsBounds)
{
    open();
    EXPECT_EQ(firstLevel(-160), 0);
    EXPECT_EQ(firstLevel(-50), 0);
    EXPECT_NEAR(firstLevel(-27.5), 0.325, 1e-9);
    EXPECT_NEAR(firstLevel(-5), 0.65, 1e-9);
    EXPECT_NEAR(firstLevel(0), 0.65, 1e-9);
}

TEST_F(MeterTest, TheLevelIsSmoothed)
{
    open();
    dictate();
    machine.recorder.power = -5;
    machine.clock.turn(0.2);
    EXPECT_NEAR(model->capture().level(), 0.65 + 0.35 * 0.65, 1e-9);
    machine.recorder.power = -160;
    machine.clock.turn(0.1);
    EXPECT_NEAR(model->capture().level(), 0.35 * (0.65 + 0.35 * 0.65), 1e-9);
}

TEST_F(MeterTest, ObserversHearOfChangesOnly)
{
    open();
    dictate();
    int levels = 0;
    int seconds = 0;
    QObject::connect(&model->capture(), &Capture::levelChanged, [&] { ++levels; });
    QObject::connect(&model->capture(), &Capture::elapsedChanged, [&] { ++seconds; });
    machine.clock.turn(1);
    EXPECT_EQ(levels, 0);
    EXPECT_EQ(seconds, 10);
}

TEST_F(MeterTest, ItStopsWithTheRecordingAndStartsAtNothing)
{
    choose("learnCorrections", false); // no review afterwards
    open();
    dictate();
    machine.clock.turn(3);
    EXPECT_NEAR(model->capture().elapsed(), 3, 1e-6);
    finish();
    EXPECT_EQ(machine.clock.armed(), 0U);
    dictate();
    EXPECT_EQ(model->capture().elapsed(), 0);
}

constexpr const char* noSound
    = "No sound comes from the microphone. What was said before is kept; the recording goes on "
      "when sound comes again.";

TEST_F(MeterTest, AMicrophoneWithoutSoundIsToldOfUntilSomeComes)
{
    open();
    dictate();
    machine.recorder.stall(true);
    EXPECT_EQ(model->status().errorMessage(), noSound);
    EXPECT_EQ(model->capture().phase(), Phase::recording);
    machine.recorder.stall(false);
    EXPECT_EQ(model->status().errorMessage(), "");
    EXPECT_EQ(model->capture().phase(), Phase::recording);
}

TEST_F(MeterTest, WhatElseWentWrongStaysWhenSoundComesAgain)
{
    open();
    dictate();
    machine.recorder.stall(true);
    model->status().setErrorMessage("Something else");
    machine.recorder.stall(false);
    EXPECT_EQ(model->status().errorMessage(), "Something else");
}

TEST_F(MeterTest, TheFiveMinutesGoOnWhileNoSoundComes)
{
    open();
    dictate();
    machine.clock.turn(10);
    machine.recorder.holdTime();
    machine.recorder.stall(true);
    machine.clock.turn(289.9);
    EXPECT_EQ(model->capture().phase(), Phase::recording);
    EXPECT_NEAR(model->capture().elapsed(), 299.9, 1e-6);
    machine.clock.turn(0.1);
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    EXPECT_EQ(model->status().errorMessage(), "");
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_NEAR(onlyRecording().duration, 10, 1e-6);
    EXPECT_EQ(onlyNote().body, "hello world");
}

TEST_F(MeterTest, ARecordingIsFinishedAndTranscribedAfterFiveMinutes)
{
    open();
    dictate();
    machine.clock.turn(299.9);
    EXPECT_EQ(model->capture().phase(), Phase::recording);
    machine.clock.turn(0.1);
    EXPECT_EQ(model->capture().phase(), Phase::processing);
    EXPECT_FALSE(machine.recorder.running());
    ASSERT_TRUE(reach(Phase::idle));
    EXPECT_NEAR(onlyRecording().duration, 300, 1e-6);
    EXPECT_EQ(onlyRecording().status, RecordingStatus::ready);
    EXPECT_EQ(onlyNote().body, "hello world");
    EXPECT_EQ(model->status().errorMessage(), "");
    EXPECT_EQ(machine.clock.armed(), 0U);
}

} // namespace

} // namespace vesko
