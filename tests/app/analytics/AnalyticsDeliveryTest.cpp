// How events reach the service, or don't, on a clock turned by hand.

#include "tests/app/analytics/AnalyticsFixture.h"

#include "VeskoCore/base/Text.h"

namespace vesko {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::Optional;

constexpr int unreachable = FakeAnalyticsService::unreachable;

// How many events a request carries.
std::size_t eventsIn(const HttpRequest& request)
{
    std::size_t count = 0;
    for (auto at = request.body->find("eventName"); at != std::string::npos;
        at = request.body->find("eventName", at + 1))
        ++count;
    return count;
}

class AnalyticsDeliveryTest : public AnalyticsFixture {
protected:
    AnalyticsDeliveryTest() { agree(); }

    // The next request goes out after so many seconds and not sooner.
    void expectPause(double seconds)
    {
        const auto before = service.count();
        clock.turn(seconds - 0.001);
        drainEvents();
        EXPECT_EQ(service.count(), before);
        EXPECT_EQ(clock.armed(), 1U);
        clock.turn(0.001);
        ASSERT_TRUE(answered(before + 1)) << seconds;
    }
};

TEST_F(AnalyticsDeliveryTest, WhatIsTakenLeavesTheQueue)
{
    start();
    EXPECT_THAT(queued(), ElementsAre(UsageEvent::appStarted));
    ASSERT_TRUE(answered(1));
    EXPECT_TRUE(analytics->queue().items.empty());
    clock.turn(1);
    EXPECT_EQ(clock.armed(), 0U);
    clock.turn(1000);
    drainEvents();
    EXPECT_EQ(service.count(), 1U);
}

TEST_F(AnalyticsDeliveryTest, AFailureKeepsTheBatchAndBacksOff)
{
    for (const int outcome : { 500, 503, 599, 429, unreachable }) {
        SCOPED_TRACE(outcome);
        const auto before = service.count();
        for (int round = 0; round < 11; ++round)
            service.answer({ outcome });
        start();
        ASSERT_TRUE(answered(before + 1));
        for (const double seconds : { 2, 4, 8, 16, 32, 64, 128, 256, 256, 256 }) {
            expectPause(seconds);
            EXPECT_THAT(queued(), ElementsAre(UsageEvent::appStarted));
        }
        const auto requests = service.requests();
        for (std::size_t index = before; index < requests.size(); ++index)
            EXPECT_EQ(requests[index].body, requests[before].body);
        clock.turn(256);
        ASSERT_TRUE(answered(before + 12));
        EXPECT_TRUE(analytics->queue().items.empty());
        analytics.reset();
    }
}

TEST_F(AnalyticsDeliveryTest, ASuccessOrARefusalResetsTheBackOff)
{
    for (const int end : { 200, 400 }) {
        SCOPED_TRACE(end);
        const auto before = service.count();
        service.answer({ 500, 500, end, 500, 500 });
        start();
        ASSERT_TRUE(answered(before + 1));
        track();
        expectPause(2);
        track(UsageEvent::noteCreated);
        expectPause(4);
        EXPECT_TRUE(analytics->queue().items.empty());
        track(UsageEvent::noteExported);
        expectPause(1);
        expectPause(2);
        expectPause(4);
        EXPECT_TRUE(analytics->queue().items.empty());
        analytics.reset();
    }
}

TEST_F(AnalyticsDeliveryTest, ARefusedBatchIsThrownAwayAndTheNextFollows)
{
    for (const int status : { 400, 401, 302, 404, 428, 600, 0 }) {
        SCOPED_TRACE(status);
        const auto before = service.count();
        service.answer({ status });
        start();
        track();
        ASSERT_TRUE(answered(before + 1));
        EXPECT_THAT(queued(), ElementsAre(UsageEvent::textCopied));
        expectPause(1);
        EXPECT_TRUE(analytics->queue().items.empty());
        analytics.reset();
    }
}

TEST_F(AnalyticsDeliveryTest, ABatchIsOfTwentyFiveAndOneGoesASecond)
{
    service.answer({ 500 });
    start();
    ASSERT_TRUE(answered(1));
    for (int event = 0; event < 59; ++event)
        track();
    expectPause(2);
    EXPECT_EQ(analytics->queue().items.size(), 35U);
    expectPause(1);
    expectPause(1);
    const auto requests = service.requests();
    EXPECT_EQ(eventsIn(requests[1]), 25U);
    EXPECT_EQ(eventsIn(requests[2]), 25U);
    EXPECT_EQ(eventsIn(requests[3]), 10U);
    EXPECT_TRUE(analytics->queue().items.empty());
}

TEST_F(AnalyticsDeliveryTest, EventsOfARequestsTimeGoBehindItsBatch)
{
    service.hold();
    start();
    ASSERT_TRUE(eventually([&] { return service.count() == 1; }));
    track(UsageEvent::recordingStarted);
    track(UsageEvent::recordingSaved);
    EXPECT_EQ(analytics->queue().items.size(), 3U);
    drainEvents();
    EXPECT_EQ(service.count(), 1U);
    service.release();
    ASSERT_TRUE(answered(1));
    EXPECT_THAT(queued(), ElementsAre(UsageEvent::recordingStarted, UsageEvent::recordingSaved));
    expectPause(1);
    EXPECT_EQ(eventsIn(service.requests()[1]), 2U);
}

TEST_F(AnalyticsDeliveryTest, AnEventDuringAPauseWaitsForItsEnd)
{
    start();
    ASSERT_TRUE(answered(1));
    track();
    drainEvents();
    EXPECT_EQ(service.count(), 1U);
    EXPECT_EQ(clock.armed(), 1U);
    expectPause(1);
}

TEST_F(AnalyticsDeliveryTest, AfterTheQueueWasEmptyTheNextEventGoesAtOnce)
{
    start();
    ASSERT_TRUE(settled());
    track();
    ASSERT_TRUE(answered(2));
    EXPECT_TRUE(analytics->queue().items.empty());
}

TEST_F(AnalyticsDeliveryTest, ADeadServiceCostsNoMoreThanTheQueue)
{
    service.answer({ 500, 500 });
    start();
    ASSERT_TRUE(answered(1));
    for (int event = 0; event < 1000; ++event)
        track();
    EXPECT_EQ(analytics->queue().items.size(), 250U);
    EXPECT_EQ(analytics->queue().items.front().eventName, UsageEvent::appStarted);
}

TEST_F(AnalyticsDeliveryTest, WhatHasWaitedADayIsDropped)
{
    service.answer({ unreachable, unreachable });
    start();
    ASSERT_TRUE(answered(1));
    clock.turn(2);
    ASSERT_TRUE(answered(2));
    clock.changeDate(86'400 - 100);
    track();
    clock.changeDate(50);
    clock.turn(4); // 86,356 seconds after the start of the program: both are sent
    ASSERT_TRUE(answered(3));
    EXPECT_EQ(eventsIn(service.requests()[2]), 2U);

    service.answer({ unreachable });
    track();
    clock.turn(1);
    ASSERT_TRUE(answered(4));
    clock.changeDate(86'400);
    clock.turn(2);
    EXPECT_EQ(clock.armed(), 0U);
    EXPECT_TRUE(analytics->queue().items.empty());
    drainEvents();
    EXPECT_EQ(service.count(), 4U);
}

TEST_F(AnalyticsDeliveryTest, WithdrawingConsentDuringARequestLeavesNothingBehind)
{
    for (const int status : { 200, 500, unreachable }) {
        SCOPED_TRACE(status);
        const auto before = service.count();
        service.answer({ status });
        service.hold();
        start();
        const auto first = *analytics->state().iid;
        ASSERT_TRUE(eventually([&] { return service.count() == before + 1; }));
        track();
        analytics->setEnabled(false);
        service.release();
        drainEvents();
        EXPECT_TRUE(analytics->queue().items.empty());
        EXPECT_EQ(clock.armed(), 0U);
        EXPECT_EQ(storedIdentifier(), std::nullopt);
        clock.turn(1000);
        drainEvents();
        EXPECT_EQ(service.count(), before + 1);

        analytics->setEnabled(true);
        ASSERT_TRUE(answered(before + 2));
        EXPECT_TRUE(analytics->queue().items.empty());
        const auto body = service.requests().back().body;
        EXPECT_THAT(body, Optional(Not(HasSubstr(lowercased(first.text())))));
        EXPECT_THAT(body, Optional(HasSubstr(*storedIdentifier())));
        EXPECT_EQ(eventsIn(service.requests().back()), 1U);
        analytics.reset();
    }
}

// The answer that was given to the old identity must not empty the queue of the new one.
TEST_F(AnalyticsDeliveryTest, AnAnswerFromBeforeAWithdrawalTouchesNoLaterEvent)
{
    service.answer({ 200, 500 });
    service.hold();
    start();
    ASSERT_TRUE(eventually([&] { return service.count() == 1; }));
    analytics->setEnabled(false);
    analytics->setEnabled(true);
    track();
    service.release();
    ASSERT_TRUE(answered(2));
    EXPECT_THAT(queued(), ElementsAre(UsageEvent::appStarted, UsageEvent::textCopied));
}

TEST_F(AnalyticsDeliveryTest, AtTheEndOfTheProgramUnsentEventsAreLost)
{
    service.answer({ 500 });
    start();
    ASSERT_TRUE(answered(1));
    track();
    analytics.reset();
    EXPECT_EQ(clock.armed(), 0U);
    std::vector<std::string> stored;
    stored.reserve(settings.values.size());
    for (const auto& [key, value] : settings.values)
        stored.push_back(key);
    EXPECT_THAT(stored, ElementsAre("analyticsConsent", "analyticsIID"));

    start();
    ASSERT_TRUE(answered(2));
    EXPECT_EQ(eventsIn(service.requests()[1]), 1U);
    EXPECT_THAT(service.requests()[1].body, Optional(HasSubstr(R"("app_started")")));
}

TEST_F(AnalyticsDeliveryTest, TheEndOfTheProgramDuringARequestIsNoHarm)
{
    service.hold();
    start();
    ASSERT_TRUE(eventually([&] { return service.count() == 1; }));
    service.release();
    analytics.reset();
    clock.turn(1000);
    drainEvents();
    EXPECT_EQ(service.count(), 1U);
}

TEST_F(AnalyticsDeliveryTest, ADateThatCannotBeWrittenStopsDeliveryAndNothingElse)
{
    start();
    ASSERT_TRUE(settled());
    constexpr double eightThousandYears = 8000 * 365.25 * 86'400;
    analytics->track(UsageEvent::textCopied,
        { clock.now().time
            + std::chrono::round<std::chrono::microseconds>(
                std::chrono::duration<double>(eightThousandYears)) });
    drainEvents();
    EXPECT_EQ(service.count(), 1U);
    EXPECT_EQ(clock.armed(), 0U);
    track(UsageEvent::noteCreated);
    EXPECT_THAT(queued(), ElementsAre(UsageEvent::textCopied, UsageEvent::noteCreated));
    analytics->setEnabled(false);
    EXPECT_TRUE(analytics->queue().items.empty());
}

} // namespace

} // namespace vesko
