// What becomes of a recording whose microphone, server, file or disk fails.

#include "tests/linux/audio/GstRecorderTest.h"

#include <QCoreApplication>

#include <csignal>
#include <sys/resource.h>
#include <thread>

using namespace vesko;
namespace fs = std::filesystem;

namespace {

class GstRecorderFailureTest : public GstRecorderTest {
protected:
    // Recording, with an ear for its failures.
    void beginHeard(GstRecorder& recorder)
    {
        recorder.onFailure = [this](RecorderFailure failure) { failures.push_back(failure); };
        begin(recorder);
    }
    void waitForFailure() const
    {
        runUntil([this] { return !failures.empty(); });
    }

    std::vector<RecorderFailure> failures;
};

TEST_F(GstRecorderFailureTest, AMicrophoneThatVanishesEndsTheRecordingAndKeepsWhatWasSaid)
{
    SoundServer server;
    server.playTone(-20);
    GstRecorder recorder;
    beginHeard(recorder);
    recordUntil(recorder, 1);
    SoundServer::removeSink("vout");
    SoundServer::removeSink("vmic"); // and the microphone with it
    waitForFailure();

    EXPECT_EQ(failures, std::vector{ RecorderFailure::stoppedUnexpectedly });
    EXPECT_EQ(recorder.currentTime(), 0);
    EXPECT_EQ(recorder.stop(), 0);
    EXPECT_EQ(audiofile::boxes(file), "ftyp free mdat moov ");
    const auto sound = audiofile::decode(file);
    EXPECT_GE(seconds(sound), 1);
    EXPECT_NEAR(frequency(part(sound, 0.1, 0.9)), 440, 1);
}

TEST_F(GstRecorderFailureTest, AMicrophoneThatVanishesBesideASpeakerIsNotReplacedByIt)
{
    SoundServer server;
    GstRecorder recorder;
    beginHeard(recorder);
    recordUntil(recorder, 0.5);
    SoundServer::removeMicrophone("mic"); // the stream moves to a monitor
    waitForFailure();
    EXPECT_EQ(failures, std::vector{ RecorderFailure::stoppedUnexpectedly });
    EXPECT_GE(seconds(audiofile::decode(file)), 0.5);
    waitUntilReleased();
}

TEST_F(GstRecorderFailureTest, AMicrophoneThatFallsSilentIsToldAndWhatWasSaidIsKept)
{
    SoundServer server;
    server.playTone(-20);
    GstRecorder recorder;
    std::vector<bool> told;
    recorder.onStalled = [&](bool stalled) { told.push_back(stalled); };
    beginHeard(recorder);
    recordUntil(recorder, 1);
    EXPECT_TRUE(told.empty());
    SoundServer::suspendMicrophone("mic", true);
    runUntil([&] { return !told.empty(); });
    SoundServer::suspendMicrophone("mic", false);
    runUntil([&] { return told.size() == 2; });
    SoundServer::suspendMicrophone("mic", true);
    runUntil([&] { return told.size() == 3; });
    EXPECT_EQ(told, (std::vector{ true, false, true }));
    const double seconds = end(recorder);
    EXPECT_TRUE(failures.empty());
    EXPECT_GE(seconds, 1);
    const auto sound = audiofile::decode(file);
    EXPECT_NEAR(frequency(part(sound, 0.1, 0.9)), 440, 1);
    EXPECT_EQ(told.size(), 3U) << "not after the stop";
}

TEST_F(GstRecorderFailureTest, AnotherMicrophoneTakesOverFromOneThatVanishes)
{
    SoundServer server;
    SoundServer::addMicrophone("other", "vother");
    server.playTone(-20, "vother");
    GstRecorder recorder;
    bool failed = false;
    recorder.onFailure = [&](RecorderFailure) { failed = true; };
    begin(recorder);
    recordUntil(recorder, 0.5);
    SoundServer::removeMicrophone("mic");
    const double vanished = recorder.currentTime();
    recordUntil(recorder, vanished + 3);
    EXPECT_FALSE(failed);
    const double seconds = end(recorder);
    const auto sound = audiofile::decode(file);
    EXPECT_NEAR(vesko::seconds(sound), seconds, 0.3);
    EXPECT_EQ(decibels(part(sound, 0, 0.4)), -160);
    EXPECT_NEAR(frequency(part(sound, seconds - 0.5, seconds - 0.2)), 440, 1);
}

TEST_F(GstRecorderFailureTest, AServerThatDiesEndsTheRecording)
{
    SoundServer server;
    GstRecorder recorder;
    beginHeard(recorder);
    recordUntil(recorder, 0.5);
    server.kill();
    waitForFailure();
    EXPECT_EQ(failures, std::vector{ RecorderFailure::stoppedUnexpectedly });
    EXPECT_GE(seconds(audiofile::decode(file)), 0.4);
}

TEST_F(GstRecorderFailureTest, TheListenerOfAFailureMayEndTheRecorder)
{
    SoundServer server;
    auto recorder = std::make_unique<GstRecorder>();
    recorder->onFailure = [&](RecorderFailure) { recorder.reset(); };
    begin(*recorder);
    server.kill();
    runUntil([&] { return !recorder; });
}

TEST_F(GstRecorderFailureTest, AFailureIsNotToldAfterAStop)
{
    SoundServer server;
    GstRecorder recorder;
    bool failed = false;
    recorder.onFailure = [&](RecorderFailure) { failed = true; };
    begin(recorder);
    recordUntil(recorder, 0.3);
    server.kill();
    EXPECT_GT(end(recorder), 0);
    EXPECT_FALSE(failed);
    EXPECT_GE(seconds(audiofile::decode(file)), 0.2);
}

TEST_F(GstRecorderFailureTest, WithoutAServerItFailsAndWorksOnceThereIsOne)
{
    GstRecorder recorder;
    EXPECT_THROW(begin(recorder), std::runtime_error);
    EXPECT_TRUE(fs::is_empty(folder));
    EXPECT_EQ(recorder.currentTime(), 0);
    EXPECT_EQ(recorder.stop(), 0);

    SoundServer server;
    begin(recorder);
    EXPECT_GT(end(recorder), 0);
    EXPECT_FALSE(audiofile::decode(file).empty());
}

TEST_F(GstRecorderFailureTest, ALoudspeakerAloneIsNoMicrophone)
{
    SoundServer server(SoundServer::Microphone::absent);
    GstRecorder recorder;
    EXPECT_THROW(begin(recorder), std::runtime_error);
    EXPECT_TRUE(fs::is_empty(folder));
    waitUntilReleased();
}

TEST_F(GstRecorderFailureTest, WithoutAnySourceItFails)
{
    SoundServer server(SoundServer::Microphone::absent);
    SoundServer::removeSink("vout");
    GstRecorder recorder;
    EXPECT_THROW(begin(recorder), std::runtime_error);
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(GstRecorderFailureTest, AServerThatHangsFailsInTimeAndHoldsNoOneUp)
{
    auto server = std::make_unique<SoundServer>();
    GstRecorder recorder;
    begin(recorder);
    end(recorder);
    file = folder / "next.m4a";
    server->hang();
    int turns = 0;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&] { ++turns; });
    turn.start(10);
    EXPECT_THROW(begin(recorder), std::runtime_error);
    EXPECT_GT(turns, 100) << "the main thread stood still";
    server.reset(); // which ends what waits for it
    waitForFile(recorder);
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(GstRecorderFailureTest, AStopEndsAStartThatAServerKeepsWaiting)
{
    auto server = std::make_unique<SoundServer>();
    server->hang();
    GstRecorder recorder(std::chrono::hours(1));
    recorder.open();
    QTimer::singleShot(0, [&] { recorder.stop(); });
    EXPECT_THROW(await(recorder.start(file)), std::runtime_error);
    server.reset(); // which ends what waits for it
    waitForFile(recorder);
    EXPECT_FALSE(fs::exists(file));
}

TEST_F(GstRecorderFailureTest, AServerThatHangsWhileItIsAskedHoldsNoStopUp)
{
    auto server = std::make_unique<SoundServer>();
    SoundServer::addMicrophone("other", "vother");
    GstRecorder recorder(std::chrono::seconds(4));
    begin(recorder);
    recordUntil(recorder, 0.5);
    SoundServer::removeMicrophone("mic"); // the recorder will ask what it hears now
    for (const double vanished = recorder.currentTime(); recorder.currentTime() < vanished + 0.5;)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    server->hang();
    QCoreApplication::processEvents(); // now it asks
    EXPECT_GE(end(recorder), 0.9);
    EXPECT_GE(seconds(audiofile::decode(file)), 0.5);
    server.reset(); // which ends what waits for it
}

TEST_F(GstRecorderFailureTest, AFileThatExistsStaysAsItIs)
{
    std::ofstream(file) << "mine";
    SoundServer server;
    GstRecorder recorder;
    EXPECT_THROW(begin(recorder), std::runtime_error);
    EXPECT_EQ(content(), "mine");
    waitUntilReleased();
}

TEST_F(GstRecorderFailureTest, ALinkIsNotFollowed)
{
    fs::create_symlink(folder / "elsewhere", file);
    SoundServer server;
    GstRecorder recorder;
    EXPECT_THROW(begin(recorder), std::runtime_error);
    EXPECT_FALSE(fs::exists(folder / "elsewhere"));
    EXPECT_TRUE(fs::is_symlink(file));
}

TEST_F(GstRecorderFailureTest, AFolderThatTakesNoFileFailsAndTheNextRecordingWorks)
{
    SoundServer server;
    GstRecorder recorder;
    recorder.open();
    EXPECT_THROW(await(recorder.start("/proc/recording.m4a")), std::runtime_error);
    waitForFile(recorder);
    begin(recorder);
    EXPECT_GT(end(recorder), 0);
    EXPECT_FALSE(audiofile::decode(file).empty());
}

TEST_F(GstRecorderFailureTest, AFullDiskEndsTheRecordingAndKeepsWhatFitted)
{
    SoundServer server;
    server.playTone(-20);
    GstRecorder recorder;
    beginHeard(recorder);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const auto handler = ::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{ 24UL * 1024, before.rlim_max };
    ::setrlimit(RLIMIT_FSIZE, &small);
    waitForFailure();
    ::setrlimit(RLIMIT_FSIZE, &before);
    ::signal(SIGXFSZ, handler);
    EXPECT_EQ(failures, std::vector{ RecorderFailure::encoding });
    const auto sound = audiofile::decode(file);
    EXPECT_GE(seconds(sound), 1);
    EXPECT_NEAR(frequency(part(sound, 0.1, 1)), 440, 1);
}

} // namespace
