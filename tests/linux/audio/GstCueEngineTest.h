#pragma once

#include "VeskoApp/capture/CaptureCues.h"
#include "VeskoLinux/audio/GstCueEngine.h"
#include "tests/linux/audio/AudioFile.h"
#include "tests/linux/audio/EventLoop.h"
#include "tests/linux/audio/SoundServer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <unistd.h>

// The cues as the sound server receives them: what its loudspeaker plays is recorded and measured.
namespace vesko {

using Cue = CaptureCues::Cue;
using Sound = std::vector<std::int16_t>;

constexpr double amplitude = 0.8; // of the tones that stand in for ours
constexpr double loudness = 0.35;
constexpr double sounds = 0.156; // seconds until the last step of the fade is silence

// All that a loudspeaker plays, from now on.
class Listener {
public:
    explicit Listener(const std::filesystem::path& folder)
        : m_file(inside(folder))
        , m_recorder({ "parec", "--device=vout.monitor", "--latency-msec=10", "--raw",
              "--format=s16le", "--rate=44100", "--channels=1", m_file.string() })
    {
        runUntil([this] { return !heard().empty(); });
    }

    Sound heard() const
    {
        Sound sound(std::filesystem::file_size(m_file) / sizeof(std::int16_t));
        std::ifstream(m_file, std::ios::binary)
            .read(reinterpret_cast<char*>(sound.data()),
                static_cast<std::streamsize>(sound.size() * sizeof(std::int16_t)));
        return sound;
    }
    // From the first audible sample to the last one so far.
    Sound tone() const { return audible(heard()); }
    // The whole tone, once it has been silent long enough to be over.
    Sound wholeTone() const
    {
        Sound whole;
        runUntil([&] {
            const Sound all = heard();
            whole = audible(all);
            return !whole.empty() && audible(part(all, seconds(all) - 0.3, seconds(all))).empty();
        });
        return whole;
    }

private:
    static Sound audible(const Sound& all)
    {
        const auto loud = [](std::int16_t sample) { return std::abs(sample) > 32; };
        const auto first = std::find_if(all.begin(), all.end(), loud);
        const auto last = std::find_if(all.rbegin(), all.rend(), loud);
        return first == all.end() ? Sound{} : Sound(first, last.base());
    }
    static std::filesystem::path inside(const std::filesystem::path& folder)
    {
        std::string name = (folder / "heard-XXXXXX").string();
        ::close(::mkstemp(name.data()));
        return name;
    }

    const std::filesystem::path m_file;
    Child m_recorder;
};

inline void writeWav(const std::filesystem::path& file, double frequency, double length)
{
    std::string samples;
    for (int i = 0; i < static_cast<int>(44100 * length); ++i) {
        const auto sample = static_cast<std::int16_t>(std::lround(
            32767 * amplitude * std::sin(2 * std::numbers::pi * frequency * i / 44100)));
        samples.append(reinterpret_cast<const char*>(&sample), sizeof(sample));
    }
    const auto number = [](std::uint32_t value, std::size_t bytes) {
        return std::string(reinterpret_cast<const char*>(&value), bytes);
    };
    const auto size = static_cast<std::uint32_t>(samples.size());
    std::ofstream(file, std::ios::binary)
        << "RIFF" << number(size + 36, 4) << "WAVEfmt " << number(16, 4) << number(1, 2)
        << number(1, 2) << number(44100, 4) << number(88200, 4) << number(2, 2) << number(16, 2)
        << "data" << number(size, 4) << samples;
}

class GstCueEngineTest : public testing::Test {
protected:
    GstCueEngineTest()
    {
        SoundServer::keepToOurselves();
        std::string name = (std::filesystem::temp_directory_path() / "vesko-cues-XXXXXX").string();
        folder = ::mkdtemp(name.data());
    }
    ~GstCueEngineTest() override { std::filesystem::remove_all(folder); }

    // A tone in place of either sample.
    void writeSamples(double frequency, double length = 0.3) const
    {
        for (const auto* name : { "CaptureStart.wav", "CaptureStop.wav" })
            writeWav(folder / name, frequency, length);
    }
    // What arrives of one cue.
    Sound play(Cue cue)
    {
        GstCueEngine engine({ folder });
        CaptureCues cues(engine);
        const Listener listener(folder);
        cues.play(cue);
        return listener.wholeTone();
    }
    static void waitUntilReleased()
    {
        runUntil([] {
            return SoundServer::list("sink-inputs").empty()
                && SoundServer::list("clients").find("Vesko") == std::string::npos;
        });
    }
    // The last of several cues, up to its fade.
    static Sound lastHeld(const Sound& tone)
    {
        const double begin = seconds(tone) - sounds;
        return part(tone, begin + 0.003, begin + 0.073);
    }

    // What only another cue, or its engine's end, ends.
    const CueSound endless{ .sample = "CaptureStart",
        .highPass = 20,
        .pitch = 0,
        .envelope = { { .from = 0, .volume = loudness } },
        .length = 20 };
    std::filesystem::path folder;
};

} // namespace vesko
