// Consent: who may be told what, and what is kept of it.

#include "tests/app/analytics/AnalyticsFixture.h"

#include "VeskoCore/base/Text.h"

namespace vesko {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Optional;

constexpr const char* uuid = "[0-9a-f]+-[0-9a-f]+-[0-9a-f]+-[0-9a-f]+-[0-9a-f]+";
constexpr const char* known = "6f9619ff-8b86-d011-b42d-00c04fc964ff";

using AnalyticsTest = AnalyticsFixture;

TEST_F(AnalyticsTest, AFirstStartTellsAndStoresNothing)
{
    start();
    track();
    drainEvents();
    EXPECT_FALSE(analytics->enabled());
    EXPECT_TRUE(analytics->queue().items.empty());
    EXPECT_EQ(service.count(), 0U);
    EXPECT_TRUE(settings.values.empty());
    EXPECT_EQ(settings.writes, 0);
}

TEST_F(AnalyticsTest, ConsentOfAnotherKindIsNone)
{
    settings.set("analyticsConsent", SettingValue{ std::string("true") });
    start();
    EXPECT_FALSE(analytics->enabled());
    EXPECT_EQ(service.count(), 0U);
}

TEST_F(AnalyticsTest, AnIdentifierWithoutConsentIsDeletedAtTheStart)
{
    settings.set("analyticsIID", SettingValue{ std::string(known) });
    start();
    EXPECT_EQ(storedIdentifier(), std::nullopt);
    EXPECT_EQ(analytics->state().iid, std::nullopt);
}

TEST_F(AnalyticsTest, WithConsentTheIdentifierStays)
{
    agree();
    settings.set(
        "analyticsIID", SettingValue{ std::string("6F9619FF-8B86-D011-B42D-00C04FC964FF") });
    start();
    EXPECT_EQ(analytics->state().iid, Uuid::parse(known));
    EXPECT_EQ(storedIdentifier(), known);
    const auto firstSession = analytics->state().sessionID;
    start();
    EXPECT_EQ(analytics->state().iid, Uuid::parse(known));
    EXPECT_NE(analytics->state().sessionID, firstSession);
}

TEST_F(AnalyticsTest, AnIdentifierThatIsMissingOrNoneIsMade)
{
    agree();
    for (const std::optional<SettingValue>& stored : { std::optional<SettingValue>(),
             std::optional(SettingValue{ std::string("the user's name") }),
             std::optional(SettingValue{ 5.0 }) }) {
        settings.remove("analyticsIID");
        if (stored)
            settings.set("analyticsIID", *stored);
        start();
        EXPECT_THAT(storedIdentifier(), Optional(MatchesRegex(uuid)));
        EXPECT_EQ(storedIdentifier(), lowercased(analytics->state().iid->text()));
    }
}

TEST_F(AnalyticsTest, AStartWithConsentIsTold)
{
    agree();
    start();
    ASSERT_TRUE(answered(1));
    EXPECT_THAT(service.requests()[0].body, Optional(HasSubstr(R"("app_started")")));
    EXPECT_EQ(analytics->state().appVersion, "1.2.3");
    EXPECT_EQ(analytics->state().appBuildNumber, "45");
}

TEST_F(AnalyticsTest, TheRequestIsThatOfTheService)
{
    agree();
    std::size_t count = 0;
    for (const char* url : { "https://analytics.example", "https://analytics.example/" }) {
        bundle.baseURL = url;
        start();
        ++count;
        ASSERT_TRUE(eventually([&] { return service.count() == count; }));
        const auto request = service.requests().back();
        EXPECT_EQ(request.url, "https://analytics.example/api/v0/events");
        EXPECT_EQ(request.method, "POST");
        EXPECT_THAT(request.headers,
            ElementsAre(
                std::pair("Content-Type", "application/json"), std::pair("App-Key", "A-EU-1")));
        EXPECT_EQ(request.timeout, 15);
        EXPECT_EQ(request.resourceTimeout, 60);
    }
}

TEST_F(AnalyticsTest, TurningItOnSendsAtOnceUnderANewIdentity)
{
    settings.set("analyticsIID", SettingValue{ std::string(known) });
    start();
    const auto session = analytics->state().sessionID;
    analytics->setEnabled(true);
    EXPECT_EQ(settings.get<bool>("analyticsConsent"), true);
    EXPECT_THAT(storedIdentifier(), Optional(MatchesRegex(uuid)));
    EXPECT_NE(storedIdentifier(), known);
    EXPECT_NE(analytics->state().sessionID, session);
    ASSERT_TRUE(answered(1));
    const auto body = service.requests()[0].body;
    EXPECT_THAT(body, Optional(HasSubstr(R"("app_started")")));
    EXPECT_THAT(body, Optional(HasSubstr(*storedIdentifier())));
}

TEST_F(AnalyticsTest, TurningItOffLeavesNothingBehind)
{
    agree();
    service.answer({ 500 });
    start();
    ASSERT_TRUE(answered(1));
    track();
    ASSERT_EQ(analytics->queue().items.size(), 2U);

    analytics->setEnabled(false);
    EXPECT_FALSE(analytics->enabled());
    EXPECT_TRUE(analytics->queue().items.empty());
    EXPECT_EQ(clock.armed(), 0U);
    EXPECT_EQ(storedIdentifier(), std::nullopt);
    EXPECT_EQ(settings.get<bool>("analyticsConsent"), false);
    track();
    clock.turn(1000);
    drainEvents();
    EXPECT_EQ(service.count(), 1U);
    EXPECT_TRUE(analytics->queue().items.empty());
}

TEST_F(AnalyticsTest, WhatHoldsAlreadyCanBeSaidAgain)
{
    agree();
    start();
    ASSERT_TRUE(settled());
    const auto state = analytics->state();
    const int writes = settings.writes;
    analytics->setEnabled(true);
    EXPECT_EQ(analytics->state(), state);
    EXPECT_EQ(settings.writes, writes);
    EXPECT_TRUE(analytics->queue().items.empty());
}

TEST_F(AnalyticsTest, ObserversHearOfEachChange)
{
    start();
    int heard = 0;
    QObject::connect(analytics.get(), &Analytics::enabledChanged, [&] { ++heard; });
    analytics->setEnabled(false);
    EXPECT_EQ(heard, 0);
    analytics->setEnabled(true);
    analytics->setEnabled(true);
    EXPECT_EQ(heard, 1);
    analytics->setEnabled(false);
    EXPECT_EQ(heard, 2);
}

TEST_F(AnalyticsTest, ABuildWithoutAServiceQueuesAndSendsNothing)
{
    const struct {
        const char* what;
        std::optional<std::string> appKey;
        std::string baseURL;
    } rows[] = {
        { "no app key", std::nullopt, "https://analytics.example" },
        { "no address", "A-EU-1", "" },
        { "neither", std::nullopt, "" },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        agree();
        settings.set("analyticsIID", SettingValue{ std::string(known) });
        bundle.appKey = row.appKey;
        bundle.baseURL = row.baseURL;
        start();
        EXPECT_FALSE(analytics->configured());
        EXPECT_EQ(storedIdentifier(), known);
        track();
        analytics->setEnabled(false);
        EXPECT_EQ(storedIdentifier(), std::nullopt);
        analytics->setEnabled(true);
        track();
        drainEvents();
        EXPECT_TRUE(analytics->queue().items.empty());
        EXPECT_EQ(service.count(), 0U);
        EXPECT_NE(storedIdentifier(), known);
        EXPECT_NE(storedIdentifier(), std::nullopt);
    }
}

TEST_F(AnalyticsTest, AnEmptyAppKeyIsOne)
{
    bundle.appKey = "";
    agree();
    start();
    EXPECT_TRUE(analytics->configured());
    ASSERT_TRUE(answered(1));
}

TEST_F(AnalyticsTest, NamesItsHostForTheUser)
{
    bundle.baseURL = "https://eu.analytics.example:8443/root/";
    start();
    EXPECT_EQ(analytics->host().toStdString(), "eu.analytics.example");
}

} // namespace

} // namespace vesko
