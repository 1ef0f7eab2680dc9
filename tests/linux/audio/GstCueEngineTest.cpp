#include "tests/linux/audio/GstCueEngineTest.h"

#include <complex>

using namespace vesko;
namespace fs = std::filesystem;

namespace {

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

} // namespace
