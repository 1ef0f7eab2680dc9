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
            result = co_await transcriber.transcribe("/audio.m4a", language);
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
    std::unique_ptr<TaskScope> scope;
};

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

TEST_F(OnDeviceTranscriberTest, SilenceIsAnEmptyTranscript)
{
    for (const char* text : { "", " ", "\n\t ", "\u00a0\u2003" }) {
        begin();
        recognizer.report({ .text = text, .isFinal = true });
        EXPECT_EQ(outcome,
            "No speech was returned. Your audio is saved. You can retry with another model.");
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
