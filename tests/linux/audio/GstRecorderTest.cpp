#include "tests/linux/audio/GstRecorderTest.h"

#include <atomic>
#include <csignal>
#include <memory>
#include <sys/inotify.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace vesko;
using namespace std::chrono_literals;
namespace fs = std::filesystem;

namespace {

// All of this program, as on a machine that has no time for it; the sound server goes on.
void standStill(std::chrono::nanoseconds time)
{
    const timespec pause{ .tv_sec = time / 1s, .tv_nsec = (time % 1s).count() };
    const pid_t tester = ::getpid();
    const pid_t child = ::fork();
    if (child == 0) {
        ::kill(tester, SIGSTOP);
        ::nanosleep(&pause, nullptr);
        ::kill(tester, SIGCONT);
        ::_exit(0);
    }
    ::waitpid(child, nullptr, 0);
}

TEST_F(GstRecorderTest, WhatTheMicrophoneHearsStandsInAnOrdinaryFile)
{
    SoundServer server;
    server.playTone(-20);
    GstRecorder recorder;
    recorder.prepare();
    begin(recorder);
    recordUntil(recorder, 2);
    const double seconds = end(recorder);

    const auto description = audiofile::describe(file);
    EXPECT_EQ(description.at("codec_name"), "aac");
    EXPECT_EQ(description.at("profile"), "LC");
    EXPECT_EQ(description.at("sample_rate"), "44100");
    EXPECT_EQ(description.at("channels"), "1");
    EXPECT_NEAR(std::stod(description.at("bit_rate")), 96000, 12000);
    EXPECT_NEAR(std::stod(description.at("duration")), seconds, 0.1);
    EXPECT_GE(seconds, 2);
    EXPECT_EQ(audiofile::boxes(file), "ftyp free mdat moov ");

    const auto sound = audiofile::decode(file);
    EXPECT_NEAR(vesko::seconds(sound), seconds, 0.1);
    EXPECT_NEAR(frequency(part(sound, 0.1, seconds - 0.1)), 440, 1);
    EXPECT_NEAR(decibels(part(sound, 0.1, seconds - 0.1)), -20, 0.5);
    waitUntilReleased();
}

TEST_F(GstRecorderTest, OnlyItsOwnerMayReadTheFileFromTheStartOn)
{
    SoundServer server;
    GstRecorder recorder;
    const mode_t before = ::umask(0);
    begin(recorder);
    EXPECT_EQ(permissions(), 0600U);
    end(recorder);
    ::umask(before);
    EXPECT_EQ(permissions(), 0600U);
}

TEST_F(GstRecorderTest, TheMeterTellsThePowerOfTheSound)
{
    SoundServer server;
    server.playTone(-20);
    GstRecorder recorder;
    EXPECT_EQ(recorder.averagePower(), -160);
    begin(recorder);
    recordUntil(recorder, 0.5);
    EXPECT_NEAR(recorder.averagePower(), -20, 1);
    end(recorder);
    EXPECT_EQ(recorder.averagePower(), -160);
}

TEST_F(GstRecorderTest, SilenceIsTheBottomOfTheMeter)
{
    SoundServer server;
    GstRecorder recorder;
    begin(recorder);
    recordUntil(recorder, 0.3);
    EXPECT_EQ(recorder.averagePower(), -160);
    end(recorder);
}

TEST_F(GstRecorderTest, WhatWasHeardBeforeTheFileHadAPlaceIsInIt)
{
    SoundServer server;
    server.playTone(-20);
    GstRecorder recorder;
    recorder.open();
    recordUntil(recorder, 1.5);
    EXPECT_FALSE(fs::exists(file));
    await(recorder.start(file));
    const double seconds = end(recorder);

    EXPECT_GE(seconds, 1.5);
    const auto sound = audiofile::decode(file);
    EXPECT_NEAR(vesko::seconds(sound), seconds, 0.1);
    EXPECT_NEAR(frequency(part(sound, 0.1, seconds - 0.1)), 440, 1);
}

// Keeps what it hears.
struct Ear final : SoundListener {
    void take(std::span<const std::int16_t> samples) override { heard += samples.size(); }
    void end(bool all) override { whole = all; }

    std::atomic<std::size_t> heard = 0;
    std::atomic<bool> whole = false;
};

TEST_F(GstRecorderTest, AListenerHearsWhatWasSaidBeforeItCame)
{
    SoundServer server;
    server.playTone(-20);
    GstRecorder recorder;
    recorder.open();
    recordUntil(recorder, 1.5);
    const auto ear = std::make_shared<Ear>();
    recorder.setListener(ear);
    await(recorder.start(file));
    const double seconds = end(recorder);

    runUntil([&] { return ear->whole.load(); });
    EXPECT_NEAR(static_cast<double>(ear->heard) / 16000, seconds, 0.1);
}

TEST_F(GstRecorderTest, AListenerHearsOneRecording)
{
    SoundServer server;
    server.playTone(-20);
    GstRecorder recorder;
    const auto ear = std::make_shared<Ear>();
    recorder.setListener(ear);
    begin(recorder);
    end(recorder);
    runUntil([&] { return ear->whole.load(); });
    const std::size_t heard = ear->heard;
    fs::remove(file);
    begin(recorder);
    recordUntil(recorder, 0.5);
    end(recorder);
    EXPECT_EQ(ear->heard, heard);
}

TEST_F(GstRecorderTest, WhatIsHeardWhileTheMachineHasNoTimeIsInTheFile)
{
    SoundServer server;
    server.playTone(-20);
    GstRecorder recorder;
    begin(recorder);
    recordUntil(recorder, 0.5);
    standStill(1s);
    recordUntil(recorder, 2);
    const double seconds = end(recorder);

    const auto sound = audiofile::decode(file);
    EXPECT_NEAR(vesko::seconds(sound), seconds, 0.1);
    EXPECT_NEAR(decibels(part(sound, 0.1, seconds - 0.1)), -20, 0.5);
}

TEST_F(GstRecorderTest, WhatWasSaidUntilTheStopIsInTheFileHoweverLateItComes)
{
    SoundServer server;
    server.playTone(-20);
    GstRecorder recorder;
    begin(recorder);
    recordUntil(recorder, 0.5);
    server.hang();
    standStill(200ms);
    recorder.stop();
    server.goOn();
    const double told = waitForFile(recorder);

    const auto sound = audiofile::decode(file);
    EXPECT_GE(vesko::seconds(sound), 0.68);
    EXPECT_NEAR(vesko::seconds(sound), told, 0.1);
    EXPECT_NEAR(decibels(part(sound, 0.1, 0.65)), -20, 0.5);
}

TEST_F(GstRecorderTest, AStopBeforeTheStartForgetsWhatWasHeard)
{
    SoundServer server;
    GstRecorder recorder;
    recorder.open();
    recordUntil(recorder, 0.2);
    end(recorder);
    EXPECT_EQ(recorder.currentTime(), 0);
    EXPECT_THROW(await(recorder.start(file)), std::runtime_error);
    EXPECT_TRUE(fs::is_empty(folder));
    waitUntilReleased();
}

TEST_F(GstRecorderTest, AStopWhileItStartsLeavesNothing)
{
    SoundServer server;
    GstRecorder recorder;
    recorder.open();
    TaskScope tasks;
    bool failed = false;
    tasks.spawn([](GstRecorder& of, const fs::path& to, bool& thrown) -> Task<> {
        try {
            co_await of.start(to);
        } catch (const std::runtime_error&) {
            thrown = true;
        }
    }(recorder, file, failed));
    EXPECT_EQ(recorder.stop(), 0);
    waitForFile(recorder);
    runUntil([&] { return tasks.idle(); });
    EXPECT_TRUE(failed);
    EXPECT_TRUE(fs::is_empty(folder));
    waitUntilReleased();
}

TEST_F(GstRecorderTest, AStarterThatNoLongerWaitsLeavesNothingRunning)
{
    SoundServer server;
    GstRecorder recorder;
    recorder.open();
    {
        TaskScope tasks;
        tasks.spawn(recorder.start(file));
    }
    waitForFile(recorder);
    waitUntilReleased();
    begin(recorder);
    EXPECT_GT(end(recorder), 0);
}

TEST_F(GstRecorderTest, AStopRightAfterTheStartGivesAPlayableFile)
{
    SoundServer server;
    GstRecorder recorder;
    begin(recorder);
    EXPECT_GT(end(recorder), 0);
    EXPECT_FALSE(audiofile::decode(file).empty());
}

TEST_F(GstRecorderTest, ASecondStopDoesNothing)
{
    SoundServer server;
    GstRecorder recorder;
    EXPECT_EQ(recorder.stop(), 0);
    waitForFile(recorder); // at once: nothing is under way
    begin(recorder);
    EXPECT_GT(recorder.stop(), 0);
    EXPECT_EQ(recorder.stop(), 0);
    EXPECT_EQ(recorder.currentTime(), 0);
    waitForFile(recorder);
    EXPECT_FALSE(audiofile::decode(file).empty());
}

TEST_F(GstRecorderTest, OneRecordingFollowsTheOther)
{
    SoundServer server;
    GstRecorder recorder;
    for (int i = 0; i < 3; ++i) {
        file = folder / (std::to_string(i) + ".m4a");
        begin(recorder);
        recordUntil(recorder, 0.2);
        recorder.stop(); // the next begins while this one is being finished
    }
    waitForFile(recorder);
    for (int i = 0; i < 3; ++i)
        EXPECT_GE(seconds(audiofile::decode(folder / (std::to_string(i) + ".m4a"))), 0.2);
}

TEST_F(GstRecorderTest, ASecondStartIsRefusedAndTheFirstGoesOn)
{
    SoundServer server;
    GstRecorder recorder;
    begin(recorder);
    recorder.open();
    EXPECT_THROW(await(recorder.start(folder / "second.m4a")), std::runtime_error);
    EXPECT_GT(recorder.currentTime(), 0);
    EXPECT_GT(end(recorder), 0);
    EXPECT_FALSE(fs::exists(folder / "second.m4a"));
    EXPECT_FALSE(audiofile::decode(file).empty());
}

TEST_F(GstRecorderTest, ItsOwnEndMakesTheFileWhole)
{
    SoundServer server;
    {
        GstRecorder recorder;
        begin(recorder);
        recordUntil(recorder, 0.5);
    }
    EXPECT_EQ(audiofile::boxes(file), "ftyp free mdat moov ");
    EXPECT_GE(seconds(audiofile::decode(file)), 0.5);
}

TEST_F(GstRecorderTest, AKilledProgramLeavesAFileThatPlaysToItsLastSecond)
{
    SoundServer server;
    server.playTone(-20);
    Child program({ VESKO_RECORDING_PROGRAM, file.string(), "6000" });
    while (std::stoi("0" + program.line()) < 25) { }
    program.kill();
    EXPECT_EQ(permissions(), 0600U);
    EXPECT_NE(content().find("moof"), std::string::npos) << "finished before it was killed";
    const auto sound = audiofile::decode(file);
    EXPECT_GE(seconds(sound), 1.5);
    EXPECT_NEAR(frequency(part(sound, 0.1, 1.5)), 440, 1);
}

TEST_F(GstRecorderTest, WhatIsSaidIsBroughtToTheDiskWhileItGoesOn)
{
    SoundServer server;
    server.playTone(-20);
    GstRecorder recorder;
    begin(recorder);
    const int watch = ::inotify_init1(IN_CLOEXEC | IN_NONBLOCK);
    // Nobody else opens it but who writes it.
    ASSERT_GE(::inotify_add_watch(watch, file.c_str(), IN_CLOSE_NOWRITE), 0);
    char event[1024];
    for (int times = 0; times < 2; ++times)
        runUntil([&] { return ::read(watch, event, sizeof event) > 0; });
    ::close(watch);
    const double told = end(recorder);
    EXPECT_NEAR(seconds(audiofile::decode(file)), told, 0.1);
}

// On a new machine GStreamer used to look through all of its plugins first. That took longer than a
// start may, and the first dictation failed.
TEST_F(GstRecorderTest, ANewMachineRecordsAtOnce)
{
    SoundServer server;
    server.playTone(-20);
    const auto scanner = folder / "scanner";
    std::ofstream(scanner) << "#!/bin/sh\nsleep 60\n";
    fs::permissions(scanner, fs::perms::owner_all);
    Child program({ "env", "GST_REGISTRY=" + (folder / "registry").string(),
        "GST_PLUGIN_SCANNER=" + scanner.string(), VESKO_RECORDING_PROGRAM, file.string(), "1500" });
    EXPECT_EQ(program.line(), "0");
    EXPECT_FALSE(fs::exists(folder / "registry"));
}

} // namespace
