#include "VeskoCore/analytics/AnalyticsState.h"

#include <gtest/gtest.h>

#include <regex>

namespace vesko {
namespace {

constexpr auto sandbox = AnalyticsEnvironment::sandbox;
constexpr auto production = AnalyticsEnvironment::production;
const Date moment = *Date::parse("2026-11-21T12:00:00Z");
const Uuid known = *Uuid::parse("6F9619FF-8B86-D011-B42D-00C04FC964FF");

bool isLowerCaseUuid(const std::string& text)
{
    static const std::regex form("[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}");
    return std::regex_match(text, form);
}

TEST(AnalyticsState, ConsentDecidesWhetherThereIsAnIdentifier)
{
    EXPECT_EQ(AnalyticsState(production, true, known).iid, known);
    EXPECT_TRUE(AnalyticsState(production, true, std::nullopt).iid);
    EXPECT_NE(AnalyticsState(production, true, std::nullopt).iid,
        AnalyticsState(production, true, std::nullopt).iid);
    EXPECT_EQ(AnalyticsState(production, false, known).iid, std::nullopt);
    EXPECT_EQ(AnalyticsState(production, false, std::nullopt).iid, std::nullopt);
}

TEST(AnalyticsState, BeginsWithASessionOfItsOwnAndNoVersion)
{
    const AnalyticsState state(sandbox, true, known);
    EXPECT_TRUE(isLowerCaseUuid(state.sessionID)) << state.sessionID;
    EXPECT_NE(state.sessionID, AnalyticsState(sandbox, true, known).sessionID);
    EXPECT_EQ(state.appVersion, "0.0.0");
    EXPECT_EQ(state.appBuildNumber, "0");
}

TEST(AnalyticsState, AnEventCarriesTheStateAndNothingElse)
{
    AnalyticsState state(production, true, known);
    state.appVersion = "1.2.3";
    state.appBuildNumber = "45";
    UsageEnvelope expected;
    expected.timestamp = moment;
    expected.sessionId = state.sessionID;
    expected.eventName = UsageEvent::textCopied;
    expected.systemProps = { .isDebug = false,
        .sdkVersion = "vesko-aptabase@1",
        .osName = "Linux",
        .appVersion = "1.2.3",
        .appBuildNumber = "45" };
    expected.props = { .iid = "6f9619ff-8b86-d011-b42d-00c04fc964ff", .environment = production };
    EXPECT_EQ(state.event(UsageEvent::textCopied, moment), expected);
}

TEST(AnalyticsState, IsDebugOutsideProduction)
{
    const auto inSandbox = AnalyticsState(sandbox, true, known).event({}, moment).value();
    EXPECT_TRUE(inSandbox.systemProps.isDebug);
    EXPECT_EQ(inSandbox.props.environment, sandbox);
    const auto inProduction = AnalyticsState(production, true, known).event({}, moment).value();
    EXPECT_FALSE(inProduction.systemProps.isDebug);
    EXPECT_EQ(inProduction.props.environment, production);
}

TEST(AnalyticsState, NoEventExistsUnlessAllIsThere)
{
    const AnalyticsState whole(production, true, known);
    auto withoutConsent = whole;
    withoutConsent.consent = false;
    auto withoutIdentifier = whole;
    withoutIdentifier.iid.reset();
    auto withoutEnvironment = whole;
    withoutEnvironment.environment.reset();
    EXPECT_TRUE(whole.event(UsageEvent::appStarted, moment));
    for (const auto& state : { withoutConsent, withoutIdentifier, withoutEnvironment,
             AnalyticsState(production, false, known) })
        EXPECT_EQ(state.event(UsageEvent::appStarted, moment), std::nullopt);
}

TEST(AnalyticsState, EachGrantOfConsentMakesANewIdentity)
{
    AnalyticsState state(production, true, known);
    const auto before = state;
    state.setConsent(false);
    EXPECT_FALSE(state.consent);
    EXPECT_EQ(state.iid, std::nullopt);
    EXPECT_NE(state.sessionID, before.sessionID);
    const auto between = state;
    state.setConsent(true);
    EXPECT_TRUE(state.consent);
    ASSERT_TRUE(state.iid);
    EXPECT_NE(state.iid, before.iid);
    EXPECT_NE(state.sessionID, before.sessionID);
    EXPECT_NE(state.sessionID, between.sessionID);
    EXPECT_TRUE(isLowerCaseUuid(state.sessionID)) << state.sessionID;
}

TEST(AnalyticsState, ConsentThatHoldsAlreadyChangesNothing)
{
    for (const bool consent : { true, false }) {
        AnalyticsState state(production, consent, known);
        const auto before = state;
        state.setConsent(consent);
        EXPECT_EQ(state, before);
    }
}

} // namespace
} // namespace vesko
