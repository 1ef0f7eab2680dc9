#include "VeskoApp/shell/RemoteCommands.h"
#include "tests/fakes/FakeRemoteControl.h"
#include "tests/fakes/TestClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vesko {
namespace {

using testing::ElementsAre;
using testing::Optional;

// A program whose phases a test sets.
class RemoteCommandsTest : public testing::Test {
protected:
    void become(Phase next)
    {
        phase = next;
        commands.changed();
    }
    void opened()
    {
        ready = true;
        commands.changed();
    }

    TestClock clock;
    FakeRemoteControl control;
    Phase phase = Phase::idle;
    bool ready = true;
    bool admits = true;
    bool canGiveUp = false;
    bool hasShortcut = true;
    std::vector<std::string> done;
    RemoteCommands commands{ control, clock,
        { .phase = [this] { return phase; },
            .ready = [this] { return ready; },
            .title = [] { return QStringLiteral("A title"); },
            .elapsed = [] { return 12.5; },
            .start =
                [this] {
                    done.emplace_back("start");
                    if (admits)
                        become(Phase::preparing);
                },
            .stop =
                [this] {
                    done.emplace_back("stop");
                    become(Phase::processing);
                },
            .cancel =
                [this] {
                    const bool can = phase == Phase::recording || canGiveUp;
                    if (can) {
                        done.emplace_back("cancel");
                        become(std::exchange(canGiveUp, false) ? Phase::idle : Phase::processing);
                    }
                    return can;
                },
            .show = [this] { done.emplace_back("show"); },
            .quit = [this] { done.emplace_back("quit"); },
            .gestureKey = [this](bool down) { done.emplace_back(down ? "down" : "up"); },
            .hasShortcut = [this] { return hasShortcut; } } };
};

TEST_F(RemoteCommandsTest, aStartIsAnsweredWhenTheRecordingRuns)
{
    for (const auto command : { RemoteCommand::start, RemoteCommand::toggle }) {
        phase = Phase::idle;
        const auto answer = control.call(command);
        EXPECT_EQ(*answer, std::nullopt);
        become(Phase::recording);
        EXPECT_THAT(*answer, Optional(RemoteAnswer::done));
    }
    EXPECT_THAT(done, ElementsAre("start", "start"));
}

TEST_F(RemoteCommandsTest, aStartThatComesToNothingHasFailed)
{
    const auto answer = control.call(RemoteCommand::start);
    become(Phase::idle);
    EXPECT_THAT(*answer, Optional(RemoteAnswer::failed));
}

TEST_F(RemoteCommandsTest, aStartThatTheProgramRefusesIsNotNow)
{
    admits = false;
    EXPECT_THAT(*control.call(RemoteCommand::toggle), Optional(RemoteAnswer::notNow));
    admits = true;
    clock.turn(1);
    control.call(RemoteCommand::toggle);
    EXPECT_EQ(phase, Phase::preparing);
}

TEST_F(RemoteCommandsTest, aStartWaitsForTheLibrary)
{
    ready = false;
    const auto answer = control.call(RemoteCommand::start);
    EXPECT_THAT(done, ElementsAre());
    opened();
    EXPECT_THAT(done, ElementsAre("start"));
    become(Phase::recording);
    EXPECT_THAT(*answer, Optional(RemoteAnswer::done));
    EXPECT_EQ(clock.armed(), 0U);
}

TEST_F(RemoteCommandsTest, aStartDoesNotWaitForeverForTheLibrary)
{
    ready = false;
    const auto answer = control.call(RemoteCommand::start);
    clock.turn(20);
    EXPECT_THAT(*answer, Optional(RemoteAnswer::failed));
    opened();
    EXPECT_THAT(done, ElementsAre());
}

TEST_F(RemoteCommandsTest, anEndIsAnsweredAtOnce)
{
    const struct {
        RemoteCommand command;
        const char* does;
    } rows[] = {
        { RemoteCommand::toggle, "stop" },
        { RemoteCommand::stop, "stop" },
        { RemoteCommand::cancel, "cancel" },
    };
    for (const auto& row : rows) {
        phase = Phase::recording;
        done.clear();
        EXPECT_THAT(*control.call(row.command), Optional(RemoteAnswer::done));
        EXPECT_THAT(done, ElementsAre(row.does));
    }
}

TEST_F(RemoteCommandsTest, anEndDuringTheStartComesBehindIt)
{
    const auto start = control.call(RemoteCommand::start);
    const auto stop = control.call(RemoteCommand::stop);
    const auto cancel = control.call(RemoteCommand::cancel);
    EXPECT_EQ(*stop, std::nullopt);
    become(Phase::recording);
    EXPECT_THAT(*start, Optional(RemoteAnswer::done));
    EXPECT_THAT(*stop, Optional(RemoteAnswer::done));
    EXPECT_THAT(*cancel, Optional(RemoteAnswer::notNow));
    EXPECT_THAT(done, ElementsAre("start", "stop"));
}

TEST_F(RemoteCommandsTest, anEndDuringAStartByTheKeyComesBehindItToo)
{
    become(Phase::preparing);
    const auto stop = control.call(RemoteCommand::stop);
    EXPECT_EQ(*stop, std::nullopt);
    become(Phase::recording);
    EXPECT_THAT(*stop, Optional(RemoteAnswer::done));
}

TEST_F(RemoteCommandsTest, anEndOfAStartThatFailedIsNotNow)
{
    const auto start = control.call(RemoteCommand::start);
    const auto stop = control.call(RemoteCommand::stop);
    become(Phase::idle);
    EXPECT_THAT(*start, Optional(RemoteAnswer::failed));
    EXPECT_THAT(*stop, Optional(RemoteAnswer::notNow));
}

TEST_F(RemoteCommandsTest, whatCannotBeDoneNowChangesNothing)
{
    const struct {
        const char* described;
        Phase phase;
        RemoteCommand command;
    } rows[] = {
        { "a stop of nothing", Phase::idle, RemoteCommand::stop },
        { "a cancel of nothing", Phase::idle, RemoteCommand::cancel },
        { "a second start", Phase::recording, RemoteCommand::start },
        { "a start during a start", Phase::preparing, RemoteCommand::start },
        { "a toggle during a start", Phase::preparing, RemoteCommand::toggle },
        { "a start while it transcribes", Phase::processing, RemoteCommand::start },
        { "a toggle while it transcribes", Phase::processing, RemoteCommand::toggle },
        { "a stop while it transcribes", Phase::processing, RemoteCommand::stop },
    };
    for (const auto& row : rows) {
        phase = row.phase;
        EXPECT_THAT(*control.call(row.command), Optional(RemoteAnswer::notNow)) << row.described;
    }
    EXPECT_THAT(done, ElementsAre());
}

TEST_F(RemoteCommandsTest, aCancelGivesUpWhatIsBeingTranscribed)
{
    phase = Phase::processing;
    EXPECT_THAT(*control.call(RemoteCommand::cancel), Optional(RemoteAnswer::notNow));
    canGiveUp = true;
    EXPECT_THAT(*control.call(RemoteCommand::cancel), Optional(RemoteAnswer::done));
    EXPECT_THAT(done, ElementsAre("cancel"));
}

TEST_F(RemoteCommandsTest, itIsShownAndQuit)
{
    EXPECT_THAT(*control.call(RemoteCommand::show), Optional(RemoteAnswer::done));
    EXPECT_THAT(*control.call(RemoteCommand::quit), Optional(RemoteAnswer::done));
    EXPECT_THAT(done, ElementsAre("show", "quit"));
}

TEST_F(RemoteCommandsTest, theGestureKeyIsHandedOn)
{
    EXPECT_THAT(*control.call(RemoteCommand::press), Optional(RemoteAnswer::done));
    EXPECT_THAT(*control.call(RemoteCommand::release), Optional(RemoteAnswer::done));
    EXPECT_THAT(done, ElementsAre("down", "up"));
}

TEST_F(RemoteCommandsTest, aHeldShortcutTogglesOnce)
{
    control.call(RemoteCommand::toggle);
    become(Phase::recording);
    clock.turn(0.6);
    for (int times = 0; times < 50; ++times) {
        EXPECT_THAT(*control.call(RemoteCommand::toggle), Optional(RemoteAnswer::notNow));
        clock.turn(0.04);
    }
    EXPECT_THAT(done, ElementsAre("start"));
    clock.turn(0.7);
    control.call(RemoteCommand::toggle);
    EXPECT_THAT(done, ElementsAre("start", "stop"));
}

TEST_F(RemoteCommandsTest, theStatusIsThatOfTheProgram)
{
    const struct {
        bool ready;
        Phase phase;
        const char* state;
        double elapsed;
    } rows[] = {
        { false, Phase::idle, "unavailable", 0 },
        { true, Phase::idle, "ready", 0 },
        { true, Phase::preparing, "preparing", 0 },
        { true, Phase::recording, "recording", 12.5 },
        { true, Phase::processing, "processing", 0 },
    };
    for (const auto& row : rows) {
        ready = row.ready;
        phase = row.phase;
        const auto status = control.status();
        EXPECT_EQ(status.state.toStdString(), row.state);
        EXPECT_EQ(status.title, QStringLiteral("A title"));
        EXPECT_EQ(status.elapsed, row.elapsed) << row.state;
    }
}

TEST_F(RemoteCommandsTest, whoAsksLearnsWhetherItHasAShortcut)
{
    EXPECT_TRUE(control.hasShortcut());
    hasShortcut = false;
    EXPECT_FALSE(control.hasShortcut());
}

TEST_F(RemoteCommandsTest, eachChangeIsToldOnce)
{
    commands.changed();
    commands.changed();
    control.call(RemoteCommand::start);
    become(Phase::recording);
    control.call(RemoteCommand::stop);
    become(Phase::idle);
    EXPECT_THAT(
        control.told, ElementsAre("ready", "preparing", "recording", "processing", "ready"));
}

} // namespace
} // namespace vesko
