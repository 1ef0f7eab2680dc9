#include "VeskoApp/async/QtClock.h"
#include "tests/fakes/EventLoop.h"

#include <gtest/gtest.h>

#include <vector>

namespace vesko {

namespace {

TEST(QtClock, CallsBackNoSoonerThanAsked)
{
    QtClock clock;
    const double start = clock.uptime();
    double called = 0;
    clock.arm(0.0123, [&] { called = clock.uptime(); });
    ASSERT_TRUE(eventually([&] { return called > 0; }));
    EXPECT_GE(called - start, 0.0123);
}

TEST(QtClock, CallsBackInTheOrderOfTheMomentsNotOfTheRequests)
{
    QtClock clock;
    std::vector<int> calls;
    clock.arm(0.05, [&] { calls.push_back(2); });
    clock.arm(0.001, [&] { calls.push_back(1); });
    ASSERT_TRUE(eventually([&] { return calls.size() == 2; }));
    EXPECT_EQ(calls, (std::vector<int>{ 1, 2 }));
}

TEST(QtClock, NeverCallsBackWhatWasDisarmed)
{
    QtClock clock;
    std::vector<int> calls;
    const auto disarmed = clock.arm(0.001, [&] { calls.push_back(1); });
    clock.arm(0.02, [&] { calls.push_back(2); });
    clock.disarm(disarmed);
    clock.disarm(disarmed);
    ASSERT_TRUE(eventually([&] { return !calls.empty(); }));
    EXPECT_EQ(calls, std::vector<int>{ 2 });
}

TEST(QtClock, LetsACallbackArmAndDisarm)
{
    QtClock clock;
    EventClock::TimerId own = 0;
    EventClock::TimerId other = 0;
    std::vector<int> calls;
    other = clock.arm(0.02, [&] { calls.push_back(2); });
    own = clock.arm(0.001, [&, held = std::make_shared<int>(1)] {
        clock.disarm(own);
        clock.disarm(other);
        clock.arm(0.03, [&] { calls.push_back(3); });
        calls.push_back(*held);
    });
    ASSERT_TRUE(eventually([&] { return calls.size() == 2; }));
    EXPECT_EQ(calls, (std::vector<int>{ 1, 3 }));
    drainEvents();
}

TEST(QtClock, TakesItsCallbacksWithIt)
{
    bool called = false;
    {
        QtClock clock;
        clock.arm(0, [&] { called = true; });
    }
    bool later = false;
    QtClock clock;
    clock.arm(0.005, [&] { later = true; });
    ASSERT_TRUE(eventually([&] { return later; }));
    EXPECT_FALSE(called);
}

} // namespace

} // namespace vesko
