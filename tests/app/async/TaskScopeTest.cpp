#include "VeskoApp/async/TaskScope.h"
#include "VeskoApp/async/Eventual.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <vector>

namespace vesko {

namespace {

Task<> append(std::vector<int>& to, Eventual<int> value)
{
    to.push_back(co_await value);
}

TEST(TaskScope, RunsATaskAtOnceUpToItsFirstSuspension)
{
    std::vector<int> values;
    const Eventual<int> later;
    TaskScope scope;
    scope.spawn(append(values, Eventual<int>::of(1)));
    EXPECT_EQ(values, std::vector<int>{ 1 });
    EXPECT_TRUE(scope.idle());

    scope.spawn(append(values, later));
    EXPECT_EQ(values, std::vector<int>{ 1 });
    EXPECT_FALSE(scope.idle());
    later.set(2);
    EXPECT_EQ(values, (std::vector<int>{ 1, 2 }));
    EXPECT_TRUE(scope.idle());
}

TEST(TaskScope, EndsTheSuspendedTasksWhenItIsDestroyed)
{
    std::vector<int> values;
    const Eventual<int> first;
    const Eventual<int> second;
    {
        TaskScope scope;
        scope.spawn(append(values, first));
        scope.spawn(append(values, second));
        first.set(1);
    }
    second.set(2);
    EXPECT_EQ(values, std::vector<int>{ 1 });
}

TEST(TaskScope, LetsATaskSpawnAnother)
{
    std::vector<int> values;
    const Eventual<int> later;
    TaskScope scope;
    scope.spawn([](TaskScope& own, std::vector<int>& to, Eventual<int> value) -> Task<> {
        own.spawn(append(to, value));
        co_return;
    }(scope, values, later));
    EXPECT_FALSE(scope.idle());
    later.set(3);
    EXPECT_EQ(values, std::vector<int>{ 3 });
    EXPECT_TRUE(scope.idle());
}

TEST(TaskScope, ReplacingAScopeDropsWhatItsTasksWaitedFor)
{
    std::vector<int> values;
    const Eventual<int> stale;
    const Eventual<int> fresh;
    std::optional<TaskScope> scope(std::in_place);
    scope->spawn(append(values, stale));
    scope.emplace();
    scope->spawn(append(values, fresh));
    stale.set(1);
    fresh.set(2);
    EXPECT_EQ(values, std::vector<int>{ 2 });
}

TEST(TaskScopeDeathTest, AnEscapedExceptionEndsTheProgram)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto escape = [] {
        TaskScope scope;
        scope.spawn([]() -> Task<> {
            throw std::runtime_error("nobody catches this");
            co_return;
        }());
    };
    EXPECT_DEATH(escape(), "");
}

} // namespace

} // namespace vesko
