// The recogniser, the watchdog and the caller race for the end of a recognition.

#include "VeskoApp/transcription/OnDeviceTranscriber.h"
#include "VeskoApp/status/CaptureFailure.h"
#include "VeskoCore/library/VeskoError.h"
#include "tests/fakes/EventLoop.h"
#include "tests/fakes/FakeOnDeviceRecognizer.h"
#include "tests/fakes/TestClock.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

namespace vesko {

namespace {

using testing::ElementsAre;

constexpr const char* failedText
    = "On-device transcription failed. Your audio is saved. Retry or choose OpenRouter.";

CaptureSettings in(const std::string& language)
{
    CaptureSettings settings;
    settings.language = language;
    return settings;
}

class OnDeviceTranscriberTest : public testing::Test {
protected:
    OnDeviceTranscriberTest() { recognizer.hears.reset(); }

    // Begins a recognition, whose outcome is noted.
    void begin(const std::string& language = "auto")
    {
        scope = std::make_unique<TaskScope>();
        outcome.clear();
        scope->spawn(note(language));
    }
    Task<> note(std::string language)
    {
        try {
            result = co_await transcriber.transcribe("/audio.m4a", in(language), std::move(hearing),
                [this](double share) { done.push_back(share); });
            outcome = "text: " + result.text;
        } catch (const CaptureFailure& failure) {
            outcome = failure.message();
        } catch (const VeskoError& failure) {
            outcome = failure.errorDescription();
        }
    }

    TestClock clock;
    FakeOnDeviceRecognizer recognizer;
    OnDeviceTranscriber transcriber{ recognizer, clock };
    TranscriptResult result;
    std::string outcome;
    std::vector<double> done; // of the recording, as it was told
    std::unique_ptr<Hearing> hearing; // for the next recognition
    std::unique_ptr<TaskScope> scope;
};

DictionaryEntry entry(const char* replacement, bool enabled = true)
{
    DictionaryEntry entry;
    entry.replacement = replacement;
    entry.enabled = enabled;
    return entry;
}

TEST_F(OnDeviceTranscriberTest, GivesTheFinalTextWithoutTheSpaceAround)
{
    begin();
    recognizer.report({ .text = "\n Good morning. \t", .isFinal = true });
    EXPECT_EQ(outcome, "text: Good morning.");
    EXPECT_EQ(result.rawText, "Good morning.");
    EXPECT_EQ(result.cost, std::nullopt);
    EXPECT_EQ(result.requestID, std::nullopt);
    EXPECT_EQ(result.warning, std::nullopt);
    EXPECT_FALSE(recognizer.running());
    EXPECT_EQ(clock.armed(), 0U);
    EXPECT_THAT(recognizer.audio, ElementsAre("/audio.m4a"));
}

TEST_F(OnDeviceTranscriberTest, TellsHowFarItIs)
{
    begin();
    recognizer.report({ .done = 0.25 });
    recognizer.report({ .done = 0.75 });
    EXPECT_EQ(outcome, "");
    recognizer.report({ .text = "Good morning.", .isFinal = true });
    EXPECT_EQ(outcome, "text: Good morning.");
    EXPECT_THAT(done, ElementsAre(0.25, 0.75));
}

TEST_F(OnDeviceTranscriberTest, AutomaticIsTheLanguageOfTheSystem)
{
    recognizer.system = "de-DE";
    recognizer.installed = { "de-DE", "en-US" };
    begin("auto");
    begin("en-US");
    EXPECT_THAT(recognizer.languages, ElementsAre("de-DE", "en-US"));
}

TEST_F(OnDeviceTranscriberTest, ALanguageWithoutAModelFailsBeforeAnyAudioIsRead)
{
    begin("fi");
    EXPECT_EQ(outcome,
        "On-device speech is unavailable for this language. Choose another language or "
        "OpenRouter. Your audio is saved.");
    EXPECT_TRUE(recognizer.audio.empty());
}

TEST_F(OnDeviceTranscriberTest, ThePermissionIsAskedFirstTheLanguageNextTheRecogniserLast)
{
    recognizer.isAuthorized = false;
    recognizer.isAvailable = false;
    begin("fi");
    EXPECT_THAT(outcome, testing::StartsWith("Allow Speech Recognition"));
    recognizer.isAuthorized = true;
    begin("fi");
    EXPECT_THAT(outcome, testing::StartsWith("On-device speech is unavailable"));
    begin("auto");
    EXPECT_EQ(outcome,
        "On-device speech is not available right now. Your audio is saved. Try again or choose "
        "OpenRouter.");
}

TEST_F(OnDeviceTranscriberTest, AutomaticIsLeftToARecogniserThatFindsTheLanguage)
{
    recognizer.installed = { "en-US", "auto" };
    begin("auto");
    hearing = transcriber.listen(in("auto"));
    EXPECT_THAT(recognizer.languages, ElementsAre("auto"));
    EXPECT_THAT(recognizer.heardLanguages, ElementsAre("auto"));
}

TEST_F(OnDeviceTranscriberTest, SaysWhoDidItAndInWhatLanguage)
{
    begin();
    recognizer.report(
        { .text = "Hallo.", .isFinal = true, .model = "whisper.cpp/base", .language = "de" });
    EXPECT_EQ(result.model, "whisper.cpp/base");
    EXPECT_EQ(result.language, "de");
    begin();
    recognizer.report({ .text = "Hello.", .isFinal = true });
    EXPECT_EQ(result.model, std::nullopt);
    EXPECT_EQ(result.language, std::nullopt);
}

TEST_F(OnDeviceTranscriberTest, WhatWasHeardAlreadyIsHandedToTheRecognition)
{
    hearing = transcriber.listen(in("en-US"));
    EXPECT_EQ(recognizer.hearings, 1);
    begin("en-US");
    begin("en-US");
    EXPECT_THAT(recognizer.wasHeard, ElementsAre(true, false));
}

TEST_F(OnDeviceTranscriberTest, NothingIsHeardThatCouldNotBeRecognised)
{
    using Break = void (*)(FakeOnDeviceRecognizer&);
    for (const Break breaks : std::initializer_list<Break>{ [](auto& r) { r.installed.clear(); },
             [](auto& r) { r.isAuthorized = false; }, [](auto& r) { r.isAvailable = false; } }) {
        FakeOnDeviceRecognizer broken;
        breaks(broken);
        EXPECT_EQ(OnDeviceTranscriber(broken, clock).listen(in("auto")), nullptr);
        EXPECT_TRUE(broken.heardLanguages.empty());
    }
}

TEST_F(OnDeviceTranscriberTest, TheUsersOwnSpellingsAreExpectedNewestFirst)
{
    CaptureSettings settings = in("en-US");
    for (auto&& term : { entry("Vesko"), entry("off", false), entry("Ильинична") })
        settings.dictionary.append(term);
    hearing = transcriber.listen(settings);
    EXPECT_EQ(recognizer.expected, "Ильинична, Vesko");
    settings.expectTerms = false;
    hearing = transcriber.listen(settings);
    EXPECT_EQ(recognizer.expected, "");
}

TEST_F(OnDeviceTranscriberTest, AsManySpellingsAreExpectedAsAnEngineTakes)
{
    CaptureSettings settings = in("en-US");
    for (int i = 0; i < 1000; ++i)
        settings.dictionary.append(entry("Kubernetes"));
    settings.dictionary.append(entry(std::string(500, 'x').c_str()));
    hearing = transcriber.listen(settings);
    EXPECT_LE(recognizer.expected.size(), 400U);
    EXPECT_GE(recognizer.expected.size(), 380U);
}

TEST_F(OnDeviceTranscriberTest, SilenceHoldsNoSpeech)
{
    for (const char* text : { "", " ", "\n\t ", "\u00a0\u2003" }) {
        begin();
        recognizer.report({ .text = text, .isFinal = true });
        EXPECT_EQ(outcome, "No speech was heard. The recording is saved.");
    }
}

TEST_F(OnDeviceTranscriberTest, AReportMeansWhatItSaysLast)
{
    using Report = OnDeviceRecognizer::Report;
    struct Case {
        const char* name;
        Report report;
        const char* outcome; // empty: it goes on
    };
    const std::vector<Case> cases{
        { "nothing", {}, "" },
        { "text that may still change", { .text = "good" }, "" },
        { "an end without text", { .text = std::nullopt, .isFinal = true }, "" },
        { "a failure", { .text = std::nullopt, .failed = true }, failedText },
        { "a failure with text that may still change", { .text = "good", .failed = true },
            failedText },
        { "a failure at an end without text",
            { .text = std::nullopt, .isFinal = true, .failed = true }, failedText },
        { "a final text along with a failure", { .text = "good", .isFinal = true, .failed = true },
            "text: good" },
    };
    for (const auto& [name, report, expected] : cases) {
        SCOPED_TRACE(name);
        begin();
        recognizer.report(report);
        EXPECT_EQ(outcome, expected);
        EXPECT_EQ(recognizer.running(), outcome.empty());
    }
}

TEST_F(OnDeviceTranscriberTest, ARecogniserThatNeverAnswersIsGivenUp)
{
    begin();
    clock.turn(64.999);
    EXPECT_EQ(outcome, "");
    clock.turn(0.001);
    EXPECT_EQ(outcome, "On-device transcription timed out. Your audio is saved.");
    EXPECT_FALSE(recognizer.running());
}

TEST_F(OnDeviceTranscriberTest, TheEndOfTheCallerIsTheEndOfTheRecognition)
{
    begin();
    ASSERT_TRUE(recognizer.running());
    scope.reset();
    EXPECT_FALSE(recognizer.running());
    clock.turn(100);
    EXPECT_EQ(outcome, "");
}

} // namespace

} // namespace vesko
