// The cues as the sound server receives them: what its loudspeaker plays is recorded and measured.

#include "VeskoLinux/audio/GstCueEngine.h"

#include "VeskoApp/capture/CaptureCues.h"
#include "VeskoLinux/audio/CuePlayback.h"
#include "tests/linux/audio/AudioFile.h"
#include "tests/linux/audio/EventLoop.h"
#include "tests/linux/audio/SoundServer.h"

#include <gst/gst.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <complex>
#include <fstream>
#include <numbers>
#include <unistd.h>

using namespace vesko;
namespace fs = std::filesystem;
using Cue = CaptureCues::Cue;
using Sound = std::vector<std::int16_t>;

namespace {

constexpr double amplitude = 0.8; // of the tones that stand in for ours
constexpr double loudness = 0.35;
constexpr double sounds = 0.156; // seconds until the last step of the fade is silence

// All that a loudspeaker plays, from now on.
class Listener {
public:
    explicit Listener(const fs::path& folder)
        : m_file(inside(folder))
        , m_recorder({ "parec", "--device=vout.monitor", "--latency-msec=10", "--raw",
              "--format=s16le", "--rate=44100", "--channels=1", m_file.string() })
    {
        runUntil([this] { return !heard().empty(); });
    }

    Sound heard() const
    {
        Sound sound(fs::file_size(m_file) / sizeof(std::int16_t));
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
    static fs::path inside(const fs::path& folder)
    {
        std::string name = (folder / "heard-XXXXXX").string();
        ::close(::mkstemp(name.data()));
        return name;
    }

    const fs::path m_file;
    Child m_recorder;
};

// How often a program began to play something.
class Beginnings {
public:
    int count()
    {
        // A sink of our own stands at the end of what is counted.
        Child::run({ "pactl", "load-module", "module-null-sink", "sink_name=mark" });
        int result = 0;
        for (std::string line; line.find("'new' on sink #") == std::string::npos;) {
            line = m_events.line();
            result += line.find("'new' on sink-input #") != std::string::npos;
        }
        return result;
    }

private:
    Child m_events{ { "stdbuf", "-oL", "pactl", "subscribe" } };
};

void writeWav(const fs::path& file, double frequency, double length)
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

// The frequency that a sound has most of.
double strongest(const Sound& sound)
{
    const auto size = static_cast<double>(sound.size());
    int best = 0;
    double most = 0;
    for (int candidate = 200; candidate < 2500; ++candidate) {
        const auto turn = std::polar(1.0, -2 * std::numbers::pi * candidate / 44100);
        std::complex<double> phase = 1;
        std::complex<double> sum = 0;
        double at = 0;
        for (const double sample : sound) {
            sum += phase * (sample * std::sin(std::numbers::pi * at++ / size));
            phase *= turn;
        }
        if (std::abs(sum) > most) {
            most = std::abs(sum);
            best = candidate;
        }
    }
    return best;
}

class GstCueEngineTest : public testing::Test {
protected:
    GstCueEngineTest()
    {
        SoundServer::keepToOurselves();
        std::string name = (fs::temp_directory_path() / "vesko-cues-XXXXXX").string();
        folder = ::mkdtemp(name.data());
    }
    ~GstCueEngineTest() override { fs::remove_all(folder); }

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
    // That the server never hears of cues without sound: only of those of an engine that works.
    void expectSilence(const std::function<void(CaptureCues&)>& act)
    {
        const SoundServer server;
        GstCueEngine silent({ folder / "silent" });
        CaptureCues silentCues(silent);
        writeSamples(1000);
        GstCueEngine engine({ folder });
        CaptureCues cues(engine);
        const auto begun = [&](const std::function<void()>& first) {
            Beginnings beginnings;
            const Listener listener(folder);
            first();
            cues.play(Cue::start);
            EXPECT_NEAR(seconds(listener.wholeTone()), sounds, 0.005);
            waitUntilReleased();
            return beginnings.count();
        };
        const int ofOne = begun([] { });
        EXPECT_GT(ofOne, 0);
        EXPECT_EQ(begun([&] { act(silentCues); }), ofOne);
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
    fs::path folder;
};

TEST_F(GstCueEngineTest, TheVolumeIsHeldAndFadesInTenStepsToTheSample)
{
    const SoundServer server;
    writeSamples(3000);
    for (const Cue cue : { Cue::start, Cue::stop }) {
        const Sound tone = play(cue);
        EXPECT_NEAR(seconds(tone), sounds, 0.002);
        const auto peak = [&](double from, double to) {
            const Sound of = part(tone, from, to);
            return std::abs(*std::ranges::max_element(of, {}, [](int s) { return std::abs(s); }))
                / (32767 * amplitude);
        };
        for (int moment = 1; moment < 14; ++moment)
            EXPECT_NEAR(peak(0.005 * moment, 0.005 * (moment + 1)), loudness, 0.01) << moment;
        for (int step = 0; step < 9; ++step) {
            const double from = 0.075 + 0.009 * step;
            EXPECT_NEAR(peak(from + 0.001, from + 0.008), loudness * (9 - step) / 10, 0.01) << step;
        }
    }
}

TEST_F(GstCueEngineTest, ALongSampleIsCutShortAndAShortOneEndsByItself)
{
    const SoundServer server;
    writeSamples(3000, 20);
    EXPECT_NEAR(seconds(play(Cue::start)), sounds, 0.002);
    waitUntilReleased();
    writeSamples(3000, 0.1);
    EXPECT_NEAR(seconds(play(Cue::start)), 0.1, 0.02);
    waitUntilReleased();
}

TEST_F(GstCueEngineTest, ThePitchIsRaised)
{
    const SoundServer server;
    writeSamples(1000);
    EXPECT_NEAR(frequency(part(play(Cue::start), 0, 0.075)), 1000 * std::exp2(1.0 / 12), 2);
    EXPECT_NEAR(frequency(part(play(Cue::stop), 0, 0.075)), 1000 * std::exp2(4.0 / 12), 2);
}

TEST_F(GstCueEngineTest, LowSoundsAreDampedByTwelveDecibelsAnOctave)
{
    const struct {
        Cue cue;
        double frequency;
        double damping; // decibels
    } cases[] = {
        { Cue::start, 1400, 0 },
        { Cue::start, 350, 3 },
        { Cue::start, 175, 12.3 },
        { Cue::stop, 2200, 0 },
        { Cue::stop, 550, 3 },
        { Cue::stop, 275, 12.3 },
    };
    const SoundServer server;
    const double undamped = 20 * std::log10(amplitude * loudness / std::numbers::sqrt2);
    for (const auto& [cue, frequency, damping] : cases) {
        writeSamples(frequency);
        EXPECT_NEAR(decibels(part(play(cue), 0.01, 0.075)), undamped - damping, 1) << frequency;
    }
}

TEST_F(GstCueEngineTest, OurOwnTonesAreHeardAndDiffer)
{
    const SoundServer server;
    for (const auto* name : { "CaptureStart.wav", "CaptureStop.wav" })
        fs::copy_file(fs::path(VESKO_RESOURCES) / name, folder / name);
    const Sound start = play(Cue::start);
    EXPECT_NEAR(seconds(start), sounds, 0.005);
    EXPECT_NEAR(strongest(part(start, 0, 0.075)), 784, 2); // G5
    EXPECT_NEAR(decibels(part(start, 0, 0.075)), -18, 4);
    const Sound stop = play(Cue::stop);
    EXPECT_NEAR(seconds(stop), sounds, 0.005);
    EXPECT_NEAR(strongest(part(stop, 0, 0.075)), 587, 2); // D5
    EXPECT_NEAR(decibels(part(stop, 0, 0.075)), -18, 4);
}

TEST_F(GstCueEngineTest, ACueCutsOffTheOneBeforeAndHasItsWholeLength)
{
    const SoundServer server;
    writeSamples(1000, 20);
    GstCueEngine engine({ folder });
    CaptureCues cues(engine);
    cues.prepare();
    const Listener listener(folder);
    engine.play(endless);
    runUntil([&] { return seconds(listener.tone()) > 0.1; });
    cues.play(Cue::stop);
    runUntil([&] {
        const Sound tone = listener.tone();
        return frequency(part(tone, seconds(tone) - 0.02, seconds(tone))) > 1200;
    });
    const Sound both = listener.wholeTone();
    EXPECT_LT(seconds(both), 10);
    EXPECT_NEAR(frequency(part(both, 0, 0.1)), 1000, 3);
    EXPECT_NEAR(frequency(lastHeld(both)), 1000 * std::exp2(4.0 / 12), 3);
    EXPECT_NEAR(
        decibels(lastHeld(both)), 20 * std::log10(amplitude * loudness / std::numbers::sqrt2), 1);
    waitUntilReleased();
}

TEST_F(GstCueEngineTest, OfSeveralAtOnceTheLastIsHeard)
{
    const SoundServer server;
    writeSamples(1000);
    GstCueEngine engine({ folder });
    CaptureCues cues(engine);
    const Listener listener(folder);
    for (const Cue cue : { Cue::start, Cue::start, Cue::stop })
        cues.play(cue);
    const Sound tone = listener.wholeTone();
    EXPECT_NEAR(seconds(tone), sounds, 0.005);
    EXPECT_NEAR(frequency(part(tone, 0, 0.075)), 1000 * std::exp2(4.0 / 12), 2);
}

TEST_F(GstCueEngineTest, OneCueFollowsTheOtherAndEachLeavesTheServer)
{
    const SoundServer server;
    writeSamples(1000);
    GstCueEngine engine({ folder });
    CaptureCues cues(engine);
    for (const Cue cue : { Cue::start, Cue::stop, Cue::start }) {
        const Listener listener(folder);
        cues.play(cue);
        EXPECT_NEAR(seconds(listener.wholeTone()), sounds, 0.005);
        waitUntilReleased();
    }
}

TEST_F(GstCueEngineTest, TheFirstFolderThatHasASampleGivesIt)
{
    const SoundServer server;
    fs::create_directory(folder / "first");
    writeWav(folder / "first/CaptureStop.wav", 1500, 0.3);
    writeSamples(1000);
    GstCueEngine engine({ folder / "nowhere", folder / "first", folder });
    CaptureCues cues(engine);
    {
        const Listener listener(folder);
        cues.play(Cue::stop);
        EXPECT_NEAR(strongest(listener.wholeTone()), 1500 * std::exp2(4.0 / 12), 5);
    }
    const Listener listener(folder);
    cues.play(Cue::start);
    EXPECT_NEAR(strongest(listener.wholeTone()), 1000 * std::exp2(1.0 / 12), 5);
}

TEST_F(GstCueEngineTest, ASampleIsReadOnce)
{
    const SoundServer server;
    writeSamples(1000);
    GstCueEngine engine({ folder });
    CaptureCues cues(engine);
    const Listener listener(folder);
    cues.play(Cue::start);
    runUntil([&] { return !listener.tone().empty(); });
    fs::remove(folder / "CaptureStop.wav");
    cues.play(Cue::stop);
    EXPECT_NEAR(frequency(lastHeld(listener.wholeTone())), 1000 * std::exp2(4.0 / 12), 3);
}

TEST_F(GstCueEngineTest, WithoutFilesNothingIsEverBegun)
{
    expectSilence([](CaptureCues& cues) {
        cues.play(Cue::start);
        cues.play(Cue::stop);
    });
}

TEST_F(GstCueEngineTest, AFileThatHoldsNoSoundIsSilent)
{
    fs::create_directories(folder / "silent/CaptureStart.wav");
    std::ofstream(folder / "silent/CaptureStop.wav") << "no sound at all";
    expectSilence([](CaptureCues& cues) {
        cues.play(Cue::start);
        cues.play(Cue::stop);
    });
}

TEST_F(GstCueEngineTest, ADamagedSoundEndsAndTheNextIsHeard)
{
    const SoundServer server;
    writeSamples(1000);
    fs::resize_file(folder / "CaptureStart.wav", 44); // its head promises more
    GstCueEngine engine({ folder });
    CaptureCues cues(engine);
    const Listener listener(folder);
    cues.play(Cue::start);
    cues.play(Cue::stop);
    EXPECT_NEAR(frequency(lastHeld(listener.wholeTone())), 1000 * std::exp2(4.0 / 12), 3);
}

TEST_F(GstCueEngineTest, APartThatIsNotInstalledIsAPlainFailure)
{
    const SoundServer server;
    writeSamples(1000, 0.05);
    std::ifstream in(folder / "CaptureStart.wav", std::ios::binary);
    const std::string wav{ std::istreambuf_iterator<char>(in), {} };
    EXPECT_NO_THROW(playCue(wav, endless, {}));
    for (const auto* name : { "wavparse", "audiocheblimit", "pitch", "volume", "pulsesink" }) {
        GstPluginFeature* const feature = gst_registry_lookup_feature(gst_registry_get(), name);
        ASSERT_TRUE(feature) << name;
        gst_registry_remove_feature(gst_registry_get(), feature);
        EXPECT_THROW(playCue(wav, endless, {}), std::runtime_error) << name;
        gst_registry_add_feature(gst_registry_get(), feature);
        gst_object_unref(feature);
    }
    EXPECT_NO_THROW(playCue(wav, endless, {}));
}

TEST_F(GstCueEngineTest, WithoutASoundServerItIsSilentUntilThereIsOne)
{
    writeSamples(1000);
    GstCueEngine engine({ folder });
    CaptureCues cues(engine);
    cues.play(Cue::start);
    cues.play(Cue::stop);
    const SoundServer server;
    const Listener listener(folder);
    cues.play(Cue::start);
    EXPECT_NEAR(frequency(lastHeld(listener.wholeTone())), 1000 * std::exp2(1.0 / 12), 3);
}

TEST_F(GstCueEngineTest, AServerThatHangsHoldsNoOneUp)
{
    writeSamples(1000);
    auto server = std::make_unique<SoundServer>();
    GstCueEngine engine({ folder });
    CaptureCues cues(engine);
    server->hang();
    int turns = 0;
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&] { ++turns; });
    turn.start(1);
    cues.play(Cue::start);
    cues.play(Cue::stop);
    runUntil([&] { return turns > 100; });
    server.reset(); // which ends what waits for it
}

TEST_F(GstCueEngineTest, AServerThatGoesInTheMiddleOfACueIsNoHarm)
{
    writeSamples(1000, 20);
    GstCueEngine engine({ folder });
    CaptureCues cues(engine);
    {
        SoundServer server;
        const Listener listener(folder);
        cues.prepare();
        engine.play(endless);
        runUntil([&] { return !listener.tone().empty(); });
        server.kill();
    }
    const SoundServer server;
    const Listener listener(folder);
    cues.play(Cue::stop);
    EXPECT_NEAR(frequency(part(listener.wholeTone(), 0, 0.075)), 1000 * std::exp2(4.0 / 12), 2);
}

TEST_F(GstCueEngineTest, AnEngineThatGoesEndsItsCue)
{
    const SoundServer server;
    writeSamples(1000, 20);
    const Listener listener(folder);
    {
        GstCueEngine engine({ folder });
        CaptureCues(engine).prepare();
        engine.play(endless);
        runUntil([&] { return !listener.tone().empty(); });
    }
    waitUntilReleased();
    EXPECT_LT(seconds(listener.wholeTone()), 10);
}

} // namespace
