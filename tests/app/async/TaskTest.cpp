#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/async/TaskScope.h"
#include "tests/fakes/EventLoop.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace vesko {

namespace {

Task<> noting(std::vector<std::string>& events, std::string event)
{
    events.push_back(std::move(event));
    co_return;
}

// Says when it dies.
class Mortal {
public:
    explicit Mortal(bool& dead)
        : m_dead(&dead)
    {
    }
    Mortal(Mortal&& other) noexcept
        : m_dead(std::exchange(other.m_dead, nullptr))
    {
    }
    ~Mortal()
    {
        if (m_dead)
            *m_dead = true;
    }

private:
    bool* m_dead;
};

Task<int> waiting(Mortal, Eventual<int> value)
{
    co_return co_await value;
}

TEST(Task, RunsNothingUntilItIsAwaited)
{
    std::vector<std::string> events;
    Task<> task = noting(events, "inner");
    EXPECT_TRUE(events.empty());

    TaskScope scope;
    scope.spawn([](Task<> inner, std::vector<std::string>& into) -> Task<> {
        into.push_back("before");
        co_await std::move(inner);
        into.push_back("after");
    }(std::move(task), events));
    EXPECT_EQ(events, (std::vector<std::string>{ "before", "inner", "after" }));
}

TEST(Task, ThatIsNeverAwaitedLetsGoOfItsArguments)
{
    bool dead = false;
    {
        const auto task = waiting(Mortal(dead), {});
        EXPECT_FALSE(dead);
    }
    EXPECT_TRUE(dead);
}

TEST(Task, ThatIsDestroyedInTheMiddleTakesItsFrameWithIt)
{
    bool outerDead = false;
    bool innerDead = false;
    const Eventual<int> never;
    {
        TaskScope scope;
        scope.spawn([](Mortal, Task<int> inner) -> Task<> {
            co_await std::move(inner);
            ADD_FAILURE() << "it must not wake up";
        }(Mortal(outerDead), waiting(Mortal(innerDead), never)));
        EXPECT_FALSE(outerDead);
        EXPECT_FALSE(innerDead);
    }
    EXPECT_TRUE(outerDead);
    EXPECT_TRUE(innerDead);
    never.set(1);
}

TEST(Task, GivesAValueThatCanOnlyBeMoved)
{
    const auto value
        = awaited([]() -> Task<std::unique_ptr<int>> { co_return std::make_unique<int>(7); }());
    EXPECT_EQ(*value, 7);
}

TEST(Task, HandsAnExceptionToWhoeverAwaitsIt)
{
    const auto outer = []() -> Task<std::string> {
        try {
            co_await []() -> Task<> {
                throw std::runtime_error("lost");
                co_return;
            }();
        } catch (const std::runtime_error& error) {
            co_return error.what();
        }
        co_return "nothing was thrown";
    };
    EXPECT_EQ(awaited(outer()), "lost");
}

TEST(Task, HandsAnExceptionOnAfterASuspensionToo)
{
    const Eventual<int> value;
    std::string caught;
    TaskScope scope;
    scope.spawn([](Eventual<int> awaitedValue, std::string& into) -> Task<> {
        try {
            co_await [](Eventual<int> inner) -> Task<> {
                throw std::out_of_range(std::to_string(co_await inner));
            }(awaitedValue);
        } catch (const std::out_of_range& error) {
            into = error.what();
        }
    }(value, caught));
    EXPECT_EQ(caught, "");
    value.set(12);
    EXPECT_EQ(caught, "12");
}

TEST(Task, ChainsDeeplyWithoutGrowingTheStack)
{
    const auto one = []() -> Task<int> { co_return 1; };
    const auto sum = [](auto step) -> Task<int> {
        int total = 0;
        for (int round = 0; round < 200'000; ++round)
            total += co_await step();
        co_return total;
    };
    EXPECT_EQ(awaited(sum(one)), 200'000);
}

} // namespace

} // namespace vesko
