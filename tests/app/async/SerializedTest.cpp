#include "VeskoApp/async/Serialized.h"
#include "VeskoApp/async/Task.h"
#include "tests/fakes/EventLoop.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>

namespace vesko {

namespace {

struct Counter {
    int value = 0;
    std::thread::id madeOn = std::this_thread::get_id();
};

TEST(Serialized, MakesAndUsesItsObjectOnOneThread)
{
    const auto run = [](Serialized<Counter>& counter) -> Task<bool> {
        co_await counter.open([] { return std::make_unique<Counter>(); });
        co_return co_await counter.run(
            [](Counter& c) { return c.madeOn == std::this_thread::get_id(); });
    };
    Serialized<Counter> counter;
    EXPECT_TRUE(awaited(run(counter)));
}

TEST(Serialized, KeepsTheOrderInWhichOperationsWereAskedFor)
{
    Serialized<Counter> counter;
    awaited([](Serialized<Counter>& of) -> Task<> {
        co_await of.open([] { return std::make_unique<Counter>(); });
    }(counter));

    std::vector<int> seen;
    TaskScope scope;
    for (int round = 0; round < 100; ++round)
        scope.spawn([](Serialized<Counter>& of, std::vector<int>& into) -> Task<> {
            into.push_back(co_await of.run([](Counter& c) { return ++c.value; }));
        }(counter, seen));
    ASSERT_TRUE(eventually([&] { return scope.idle(); }));
    ASSERT_EQ(seen.size(), 100U);
    EXPECT_TRUE(std::ranges::is_sorted(seen));
    EXPECT_EQ(seen.back(), 100);
}

TEST(Serialized, TellsWhyItCouldNotBeOpened)
{
    Serialized<Counter> counter;
    EXPECT_THROW(awaited([](Serialized<Counter>& of) -> Task<> {
        co_await of.open(
            []() -> std::unique_ptr<Counter> { throw std::runtime_error("no such folder"); });
    }(counter)),
        std::runtime_error);
}

} // namespace

} // namespace vesko
