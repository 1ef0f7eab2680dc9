#include "VeskoApp/async/EventClock.h"
#include "tests/fakes/TestClock.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace vesko {

namespace {

TEST(Timer, CallsBackOnceWhenItsTimeHasCome)
{
    TestClock clock;
    int calls = 0;
    Timer timer(clock);
    timer.start(0.35, [&] { ++calls; });
    EXPECT_TRUE(timer.pending());
    clock.turn(0.349);
    EXPECT_EQ(calls, 0);
    clock.turn(0.001);
    EXPECT_EQ(calls, 1);
    EXPECT_FALSE(timer.pending());
    clock.turn(10);
    EXPECT_EQ(calls, 1);
}

TEST(Timer, ForgetsWhatIsCancelledReplacedOrWithoutAnOwner)
{
    TestClock clock;
    std::vector<int> calls;
    {
        Timer cancelled(clock);
        cancelled.start(1, [&] { calls.push_back(1); });
        cancelled.cancel();
        EXPECT_FALSE(cancelled.pending());
        cancelled.cancel();

        Timer ownerless(clock);
        ownerless.start(1, [&] { calls.push_back(2); });
    }
    Timer replaced(clock);
    replaced.start(1, [&] { calls.push_back(3); });
    replaced.start(2, [&] { calls.push_back(4); });
    clock.turn(10);
    EXPECT_EQ(calls, std::vector<int>{ 4 });
    EXPECT_EQ(clock.armed(), 0U);
}

TEST(Timer, MayBeStartedAgainFromItsOwnCallback)
{
    TestClock clock;
    std::vector<double> calls;
    const double start = clock.uptime();
    Timer timer(clock);
    std::function<void()> tick = [&] {
        calls.push_back(clock.uptime() - start);
        if (calls.size() < 3)
            timer.start(0.1, tick);
    };
    timer.start(0.1, tick);
    clock.turn(1);
    ASSERT_EQ(calls.size(), 3U);
    EXPECT_NEAR(calls[0], 0.1, 1e-6);
    EXPECT_NEAR(calls[1], 0.2, 1e-6);
    EXPECT_NEAR(calls[2], 0.3, 1e-6);
    EXPECT_FALSE(timer.pending());
}

TEST(Timer, MayBeDestroyedByItsOwnCallback)
{
    TestClock clock;
    std::optional<Timer> timer(std::in_place, clock);
    bool called = false;
    timer->start(1, [&, held = std::make_shared<int>(5)] {
        timer.reset();
        called = *held == 5;
    });
    clock.turn(1);
    EXPECT_TRUE(called);
}

} // namespace

} // namespace vesko
