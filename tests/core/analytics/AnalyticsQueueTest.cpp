#include "VeskoCore/analytics/AnalyticsQueue.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

const Date noon = *Date::parse("2026-11-21T12:00:00Z");

Date at(double seconds)
{
    return { noon.time
        + std::chrono::round<std::chrono::microseconds>(std::chrono::duration<double>(seconds)) };
}

// Known again by its session.
UsageEnvelope envelope(int number, Date timestamp = noon)
{
    UsageEnvelope made;
    made.timestamp = timestamp;
    made.sessionId = std::to_string(number);
    return made;
}

AnalyticsQueue queueOf(int count)
{
    AnalyticsQueue queue;
    for (int number = 0; number < count; ++number)
        queue.append(envelope(number));
    return queue;
}

std::vector<int> numbers(const std::vector<UsageEnvelope>& envelopes)
{
    std::vector<int> found;
    for (const auto& item : envelopes)
        found.push_back(std::stoi(item.sessionId));
    return found;
}

TEST(AnalyticsQueue, TheTwoHundredAndFiftyFirstIsDroppedAndTheOldStay)
{
    AnalyticsQueue queue = queueOf(250);
    queue.append(envelope(250));
    ASSERT_EQ(queue.items.size(), 250U);
    EXPECT_EQ(queue.items.front(), envelope(0));
    EXPECT_EQ(queue.items.back(), envelope(249));
}

TEST(AnalyticsQueue, ABatchIsTheOldestTwentyFiveAndLeavesThemThere)
{
    AnalyticsQueue queue = queueOf(26);
    const auto batch = queue.batch(noon);
    ASSERT_EQ(batch.size(), 25U);
    EXPECT_EQ(batch.front(), envelope(0));
    EXPECT_EQ(batch.back(), envelope(24));
    EXPECT_EQ(queue.items.size(), 26U);
    queue.removeFirst(25);
    EXPECT_EQ(numbers(queue.items), std::vector{ 25 });
    EXPECT_EQ(numbers(queue.batch(noon)), std::vector{ 25 });
}

TEST(AnalyticsQueue, AnEmptyQueueHasAnEmptyBatch)
{
    AnalyticsQueue queue;
    EXPECT_TRUE(queue.batch(noon).empty());
}

TEST(AnalyticsQueue, ABatchDropsWhatHasWaitedADay)
{
    AnalyticsQueue queue;
    queue.append(envelope(0, at(-86'400)));
    queue.append(envelope(1, at(-86'399.999)));
    queue.append(envelope(2, at(-86'400.001)));
    queue.append(envelope(3, noon));
    queue.append(envelope(4, at(1'000'000)));
    EXPECT_EQ(numbers(queue.batch(noon)), (std::vector{ 1, 3, 4 }));
    EXPECT_EQ(numbers(queue.items), (std::vector{ 1, 3, 4 }));
    EXPECT_EQ(numbers(queue.batch(at(100'000))), std::vector{ 4 });
}

TEST(AnalyticsQueue, RemovesNoMoreThanThereIs)
{
    AnalyticsQueue queue = queueOf(3);
    queue.removeFirst(0);
    EXPECT_EQ(queue.items.size(), 3U);
    queue.removeFirst(2);
    EXPECT_EQ(numbers(queue.items), std::vector{ 2 });
    queue = queueOf(3);
    queue.removeFirst(10);
    EXPECT_TRUE(queue.items.empty());
    queue.removeFirst(1);
    EXPECT_TRUE(queue.items.empty());
}

TEST(AnalyticsQueue, ClearingDropsAll)
{
    AnalyticsQueue queue = queueOf(30);
    queue.clear();
    EXPECT_EQ(queue, AnalyticsQueue());
}

TEST(AnalyticsQueue, OnlyABusyOrBrokenServiceIsTriedAgain)
{
    for (const int status : { 429, 500, 502, 503, 599 })
        EXPECT_TRUE(AnalyticsQueue::shouldRetry(status)) << status;
    for (const int status :
        { 0, 100, 200, 204, 301, 302, 307, 400, 401, 404, 428, 430, 499, 600, -500 })
        EXPECT_FALSE(AnalyticsQueue::shouldRetry(status)) << status;
}

} // namespace
} // namespace vesko
