#pragma once

#include "VeskoLinux/audio/GstRecorder.h"
#include "tests/linux/audio/AudioFile.h"
#include "tests/linux/audio/EventLoop.h"
#include "tests/linux/audio/SoundServer.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sys/stat.h>

namespace vesko {

// Recordings into a folder of the test's own.
class GstRecorderTest : public testing::Test {
protected:
    GstRecorderTest()
    {
        SoundServer::keepToOurselves();
        std::string name
            = (std::filesystem::temp_directory_path() / "vesko-recorder-XXXXXX").string();
        folder = ::mkdtemp(name.data());
        file = folder / "recording.m4a";
    }
    ~GstRecorderTest() override { std::filesystem::remove_all(folder); }

    void begin(GstRecorder& recorder)
    {
        recorder.open();
        await(recorder.start(file));
    }
    static void recordUntil(GstRecorder& recorder, double seconds)
    {
        runUntil([&] { return recorder.currentTime() >= seconds; });
    }
    // Stops and waits for the whole file; the seconds that it is told to hold.
    static double end(GstRecorder& recorder)
    {
        recorder.stop();
        return waitForFile(recorder);
    }
    static double waitForFile(GstRecorder& recorder)
    {
        double seconds = 0;
        await([](GstRecorder& of, double& held) -> Task<> { held = co_await of.finished(); }(
                                                    recorder, seconds));
        return seconds;
    }
    // Until the sound server has no one left that listens to a microphone but the fixture.
    static void waitUntilReleased()
    {
        runUntil([] {
            return SoundServer::list("source-outputs").find("Vesko") == std::string::npos
                && SoundServer::list("clients").find("Vesko") == std::string::npos;
        });
    }
    std::string content() const
    {
        std::ifstream in(file, std::ios::binary);
        return { std::istreambuf_iterator<char>(in), {} };
    }
    mode_t permissions() const
    {
        struct stat status{};
        return ::stat(file.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
    }

    std::filesystem::path folder;
    std::filesystem::path file;
};

} // namespace vesko
