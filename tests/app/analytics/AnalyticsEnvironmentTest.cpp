// A build that finds out by itself which environment it runs in: until then events wait.

#include "tests/app/analytics/AnalyticsFixture.h"

#include "VeskoApp/async/Eventual.h"

#include <stdexcept>

namespace vesko {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Optional;

class AnalyticsEnvironmentTest : public AnalyticsFixture {
protected:
    AnalyticsEnvironmentTest() { agree(); }

    void startUnresolved()
    {
        start([environment = m_environment]() -> Task<AnalyticsEnvironment> {
            const auto found = co_await environment;
            if (!found)
                throw std::runtime_error("nobody knows");
            co_return *found;
        });
    }
    void resolve(std::optional<AnalyticsEnvironment> environment)
    {
        m_environment.set(environment);
    }

private:
    const Eventual<std::optional<AnalyticsEnvironment>> m_environment;
};

TEST_F(AnalyticsEnvironmentTest, TheBundlesEnvironmentHoldsAtOnceWithoutAResolver)
{
    start();
    EXPECT_EQ(analytics->state().environment, AnalyticsEnvironment::production);
}

TEST_F(AnalyticsEnvironmentTest, EventsWaitAndKeepTheirOrderAndTheirDates)
{
    startUnresolved();
    EXPECT_EQ(analytics->state().environment, std::nullopt);
    clock.turn(60);
    track(UsageEvent::noteCreated);
    drainEvents();
    EXPECT_TRUE(analytics->queue().items.empty());
    EXPECT_EQ(service.count(), 0U);
    clock.turn(60);
    resolve(AnalyticsEnvironment::sandbox);
    EXPECT_EQ(analytics->state().environment, AnalyticsEnvironment::sandbox);
    ASSERT_EQ(analytics->queue().items.size(), 2U);
    const auto& items = analytics->queue().items;
    EXPECT_EQ(items[0].eventName, UsageEvent::appStarted);
    EXPECT_EQ(items[0].timestamp.text(), "2026-11-21T10:52:00Z");
    EXPECT_EQ(items[1].eventName, UsageEvent::noteCreated);
    EXPECT_EQ(items[1].timestamp.text(), "2026-11-21T10:53:00Z");
    ASSERT_TRUE(answered(1));
    EXPECT_TRUE(analytics->queue().items.empty()) << "both went in one request";
}

TEST_F(AnalyticsEnvironmentTest, NoMoreWaitThanTheQueueHolds)
{
    startUnresolved();
    for (int event = 0; event < 300; ++event)
        track();
    service.answer({ 500 });
    resolve(AnalyticsEnvironment::production);
    EXPECT_EQ(analytics->queue().items.size(), 250U);
    EXPECT_EQ(analytics->queue().items.front().eventName, UsageEvent::appStarted);
}

TEST_F(AnalyticsEnvironmentTest, AResolverThatFailsMeansTheSandbox)
{
    startUnresolved();
    resolve(std::nullopt);
    EXPECT_EQ(analytics->state().environment, AnalyticsEnvironment::sandbox);
    ASSERT_TRUE(answered(1));
    EXPECT_THAT(service.requests()[0].body, Optional(HasSubstr(R"("environment" : "sandbox")")));
}

TEST_F(AnalyticsEnvironmentTest, WhatWaitedWhenConsentWasWithdrawnIsDropped)
{
    startUnresolved();
    track();
    analytics->setEnabled(false);
    resolve(AnalyticsEnvironment::production);
    drainEvents();
    EXPECT_TRUE(analytics->queue().items.empty());
    EXPECT_EQ(service.count(), 0U);

    analytics->setEnabled(true);
    EXPECT_THAT(queued(), ElementsAre(UsageEvent::appStarted));
}

TEST_F(AnalyticsEnvironmentTest, TheEndOfTheProgramBeforeTheAnswerIsNoHarm)
{
    startUnresolved();
    analytics.reset();
    resolve(AnalyticsEnvironment::production);
    drainEvents();
    EXPECT_EQ(service.count(), 0U);
}

} // namespace

} // namespace vesko
