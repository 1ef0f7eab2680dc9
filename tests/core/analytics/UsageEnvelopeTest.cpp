#include "VeskoCore/analytics/AnalyticsState.h"
#include "VeskoCore/base/JsonWriter.h"

#include <gtest/gtest.h>

#include <vector>

namespace vesko {
namespace {

TEST(UsageEnvelope, ABatchIsReadableTextInTheOrderOfTheKeys)
{
    AnalyticsState state(AnalyticsEnvironment::production, true,
        Uuid::parse("6F9619FF-8B86-D011-B42D-00C04FC964FF"));
    state.sessionID = "00000000-0000-0000-0000-00000000000a";
    state.appVersion = "1.2.3";
    state.appBuildNumber = "45";
    const Date at{ Date::parse("2026-11-21T12:00:00Z")->time + std::chrono::milliseconds(750) };
    const std::vector batch{ *state.event(UsageEvent::recordingStarted, at) };
    EXPECT_EQ(JsonWriter::write(batch, JsonWriter::Form::pretty), R"([
  {
    "eventName" : "recording_started",
    "props" : {
      "environment" : "production",
      "iid" : "6f9619ff-8b86-d011-b42d-00c04fc964ff"
    },
    "sessionId" : "00000000-0000-0000-0000-00000000000a",
    "systemProps" : {
      "appBuildNumber" : "45",
      "appVersion" : "1.2.3",
      "isDebug" : false,
      "osName" : "Linux",
      "sdkVersion" : "vesko-aptabase@1"
    },
    "timestamp" : "2026-11-21T12:00:00Z"
  }
])");
}

TEST(UsageEnvelope, EveryEventHasItsNameOnTheWire)
{
    const struct {
        UsageEvent event;
        const char* name;
    } rows[] = {
        { UsageEvent::appStarted, "app_started" },
        { UsageEvent::recordingStarted, "recording_started" },
        { UsageEvent::recordingSaved, "recording_saved" },
        { UsageEvent::transcriptionSucceeded, "transcription_succeeded" },
        { UsageEvent::transcriptionFailed, "transcription_failed" },
        { UsageEvent::noteCreated, "note_created" },
        { UsageEvent::noteExported, "note_exported" },
        { UsageEvent::textCopied, "text_copied" },
        { UsageEvent::onboardingStarted, "onboarding_started" },
        { UsageEvent::onboardingCompleted, "onboarding_completed" },
        { UsageEvent::signInStarted, "sign_in_started" },
        { UsageEvent::signInSucceeded, "sign_in_succeeded" },
        { UsageEvent::signInFailed, "sign_in_failed" },
        { UsageEvent::signInCancelled, "sign_in_cancelled" },
        { UsageEvent::signedOut, "signed_out" },
        { UsageEvent::accountDeleted, "account_deleted" },
    };
    EXPECT_EQ(std::size(rows), jsonNames<UsageEvent>.size());
    for (const auto& row : rows) {
        UsageEnvelope envelope;
        envelope.eventName = row.event;
        const auto text = JsonWriter::write(envelope, JsonWriter::Form::compact);
        EXPECT_NE(text.find(std::string(R"("eventName":")") + row.name + "\""), std::string::npos)
            << text;
    }
}

} // namespace
} // namespace vesko
