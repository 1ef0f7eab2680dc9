// A recording is heard while it is made, and the words are those of its file.

#include "VeskoLinux/speech/EngineRecognizer.h"

#include "VeskoLinux/audio/SoundTap.h"
#include "VeskoLinux/media/GstPlugins.h"
#include "VeskoLinux/speech/SpeechSamples.h"
#include "VeskoLinux/speech/engines/PocketSphinxEngine.h"
#include "tests/fakes/TemporaryFolder.h"
#include "tests/linux/audio/Child.h"
#include "tests/linux/audio/EventLoop.h"
#include "tests/linux/speech/FakeEngine.h"
#include "tests/linux/speech/Voice.h"

#include <gmock/gmock.h>
#include <gst/gst.h>

namespace vesko {
namespace {

using std::filesystem::path;
using testing::ElementsAre;
using testing::SizeIs;

// Keeps what it hears.
struct Ear final : SoundListener {
    void take(std::span<const std::int16_t> samples) override
    {
        heard.insert(heard.end(), samples.begin(), samples.end());
    }
    void end(bool whole) override { ends.push_back(whole); }

    std::vector<std::int16_t> heard;
    std::vector<bool> ends;
};

class WhatIsHeard : public testing::Test {
private:
    TemporaryFolder m_folder;

protected:
    path in(const std::string& name) const { return m_folder.path() / name; }

    // A recording of the wave file, made by the recorder's own parts, and heard meanwhile.
    path recorded(const path& wave, const std::shared_ptr<SoundListener>& listener) const
    {
        loadGstPlugins({ "coreelements", "wavparse", "audioconvert", "audioresample", "libav",
            "audioparsers", "isomp4" });
        const auto description = "filesrc location=" + wave.string()
            + " ! wavparse ! audioconvert ! audioresample"
              " ! audio/x-raw,format=S16LE,rate=44100,channels=1 ! audioconvert"
              " ! avenc_aac bitrate=96000 ! aacparse name=encoded"
              " ! mp4mux fragment-duration=200 fragment-mode=first-moov-then-finalise"
              " ! filesink location="
            + in("recording.m4a").string();
        GstElement* pipeline = gst_parse_launch(description.c_str(), nullptr);
        GstElement* parser = gst_bin_get_by_name(GST_BIN(pipeline), "encoded");
        GstPad* out = gst_element_get_static_pad(parser, "src");
        {
            const SoundTap tap(out, listener);
            gst_element_set_state(pipeline, GST_STATE_PLAYING);
            GstBus* bus = gst_element_get_bus(pipeline);
            GstMessage* end = gst_bus_timed_pop_filtered(bus, GST_CLOCK_TIME_NONE,
                static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR));
            EXPECT_EQ(GST_MESSAGE_TYPE(end), GST_MESSAGE_EOS);
            gst_message_unref(end);
            gst_object_unref(bus);
        }
        gst_element_set_state(pipeline, GST_STATE_NULL);
        gst_object_unref(out);
        gst_object_unref(parser);
        gst_object_unref(pipeline);
        return in("recording.m4a");
    }
    path spoken(const std::string& text, const std::string& voice = "en-us+f2") const
    {
        Child::run({ "espeak-ng", "-v", voice, "-s", "140", "-w", in("spoken.wav"), text });
        voice::convert(
            { "-i", in("spoken.wav"), "-af", "adelay=0.3s:all=1,apad=pad_dur=0.3", "-ar", "44100" },
            in("padded.wav"));
        return in("padded.wav");
    }
};

std::string repeated(const std::string& text, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i)
        all += text + ". ";
    return all;
}

TEST_F(WhatIsHeard, isTheVerySoundOfTheFile)
{
    const std::string texts[] = { "no", "yes", voice::brother, voice::coffee,
        repeated(voice::brother, 2), repeated(voice::coffee, 3), repeated(voice::brother, 4),
        repeated(voice::coffee, 5), "one two three four five", repeated(voice::brother, 8) };
    for (const auto& text : texts) {
        const auto ear = std::make_shared<Ear>();
        const auto file = recorded(spoken(text), ear);
        EXPECT_THAT(ear->ends, ElementsAre(true)) << text;
        const auto samples = speechSamples(file, {});
        EXPECT_EQ(ear->heard.size(), samples.size()) << text;
        EXPECT_TRUE(ear->heard == samples) << text;
    }
}

TEST_F(WhatIsHeard, givesTheWordsOfTheFile)
{
    EngineRecognizer recognizer(std::make_shared<PocketSphinxEngine>(VESKO_POCKETSPHINX));
    auto hearing = recognizer.hear("en");
    const auto file = recorded(spoken(repeated(voice::brother, 5)), hearing->listener());
    std::vector<OnDeviceRecognizer::Report> reports;
    const auto keep = [&](const auto& report) {
        if (!report.done)
            reports.push_back(report);
    };
    const auto live = recognizer.recognize(file, "en", keep, std::move(hearing));
    runUntil([&] { return !reports.empty(); });
    const auto later = recognizer.recognize(file, "en", keep, nullptr);
    runUntil([&] { return reports.size() == 2; });
    EXPECT_EQ(reports[0].text, reports[1].text);
    EXPECT_THAT(*reports[0].text, testing::HasSubstr("my brother lives in a small house near"));
    EXPECT_EQ(reports[0].model, "pocketsphinx/en-us");
    EXPECT_EQ(reports[1].model, "pocketsphinx/en-us");
}

class HearingWithAFake : public WhatIsHeard {
protected:
    std::shared_ptr<FakeEngine> engine = std::make_shared<FakeEngine>();
    EngineRecognizer recognizer{ engine };
    std::vector<OnDeviceRecognizer::Report> reports;

    std::unique_ptr<OnDeviceRecognizer::Recognition> recognize(
        const path& file, const std::string& language, std::unique_ptr<Hearing> heard)
    {
        return recognizer.recognize(
            file, language, [this](const auto& report) { reports.push_back(report); },
            std::move(heard));
    }
};

TEST_F(HearingWithAFake, needsNoSecondLookAtTheFile)
{
    recognizer.expect("Vesko");
    auto hearing = recognizer.hear("ru");
    recorded(spoken(voice::brother), hearing->listener());
    const auto recognition = recognize(in("missing.m4a"), "ru", std::move(hearing));
    runUntil([&] { return !reports.empty(); });
    EXPECT_EQ(reports[0].text, "word");
    EXPECT_THAT(engine->pieces(), SizeIs(1));
    EXPECT_EQ(engine->wishes().at(0).language, "ru");
    EXPECT_EQ(engine->wishes().at(0).prompt, "Vesko");
}

TEST_F(HearingWithAFake, isPassedOverWhereItIsNoUse)
{
    const auto file = recorded(spoken(voice::brother), std::make_shared<Ear>());
    const struct {
        const char* what;
        std::string language;
        bool whole, anotherEngine, fails;
    } rows[] = {
        { "another language", "de", true, false, false },
        { "another engine", "en", true, true, false },
        { "some of the sound is missing", "en", false, false, false },
        { "the engine failed", "en", true, false, true },
    };
    for (const auto& row : rows) {
        reports.clear();
        auto first = std::make_shared<FakeEngine>();
        if (row.fails)
            first->answers = [count = 0](auto) mutable -> EngineAnswer {
                if (count++ == 0)
                    throw EngineFailure("once");
                return { .text = "word" };
            };
        recognizer.use(first);
        auto hearing = recognizer.hear("en");
        hearing->listener()->take(speechSamples(file, {}));
        hearing->listener()->end(row.whole);
        if (row.anotherEngine)
            recognizer.use(std::make_shared<FakeEngine>());
        const auto recognition = recognize(file, row.language, std::move(hearing));
        runUntil([&] { return !reports.empty(); });
        EXPECT_EQ(reports[0].text, "word") << row.what;
    }
}

TEST_F(HearingWithAFake, endsAtOnceWhenItIsLetGo)
{
    auto hearing = recognizer.hear("en");
    auto ended = hearing->listener();
    ended->take(std::vector<std::int16_t>(100, 1));
    hearing.reset();
    ended->end(true); // the recorder's end may come later
    auto next = recognizer.hear("en"); // which waits for no one
    next->listener()->end(true);
    const auto recognition = recognize(in("missing.m4a"), "en", std::move(next));
    runUntil([&] { return !reports.empty(); });
    EXPECT_EQ(reports[0].text, "");
}

} // namespace
} // namespace vesko
