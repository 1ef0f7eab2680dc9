// Cues without a file, a part or a server that works.

#include "VeskoLinux/audio/CuePlayback.h"
#include "tests/linux/audio/GstCueEngineTest.h"

#include <gst/gst.h>

using namespace vesko;
namespace fs = std::filesystem;

namespace {

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

class GstCueEngineFailureTest : public GstCueEngineTest {
protected:
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
};

TEST_F(GstCueEngineFailureTest, WithoutFilesNothingIsEverBegun)
{
    expectSilence([](CaptureCues& cues) {
        cues.play(Cue::start);
        cues.play(Cue::stop);
    });
}

TEST_F(GstCueEngineFailureTest, AFileThatHoldsNoSoundIsSilent)
{
    fs::create_directories(folder / "silent/CaptureStart.wav");
    std::ofstream(folder / "silent/CaptureStop.wav") << "no sound at all";
    expectSilence([](CaptureCues& cues) {
        cues.play(Cue::start);
        cues.play(Cue::stop);
    });
}

TEST_F(GstCueEngineFailureTest, ADamagedSoundEndsAndTheNextIsHeard)
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

TEST_F(GstCueEngineFailureTest, APartThatIsNotInstalledIsAPlainFailure)
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

TEST_F(GstCueEngineFailureTest, WithoutASoundServerItIsSilentUntilThereIsOne)
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

TEST_F(GstCueEngineFailureTest, AServerThatHangsHoldsNoOneUp)
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

TEST_F(GstCueEngineFailureTest, AServerThatGoesInTheMiddleOfACueIsNoHarm)
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

TEST_F(GstCueEngineFailureTest, AnEngineThatGoesEndsItsCue)
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
