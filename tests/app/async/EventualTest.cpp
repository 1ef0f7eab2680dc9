#include "VeskoApp/async/Eventual.h"
#include "VeskoApp/async/TaskScope.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace vesko {

namespace {

Task<> take(std::string& into, Eventual<std::string> value)
{
    into = co_await value;
}

TEST(Eventual, GivesAValueThatWasThereBefore)
{
    std::string taken;
    const Eventual<std::string> value;
    value.set("early");
    TaskScope scope;
    scope.spawn(take(taken, value));
    EXPECT_EQ(taken, "early");
}

TEST(Eventual, ResumesTheTaskThatWaitsBeforeSetReturns)
{
    std::string taken;
    const Eventual<std::string> value;
    TaskScope scope;
    scope.spawn(take(taken, value));
    EXPECT_EQ(taken, "");
    value.set("late");
    EXPECT_EQ(taken, "late");
}

TEST(Eventual, KeepsItsFirstValue)
{
    std::string before;
    std::string after;
    const Eventual<std::string> value;
    TaskScope scope;
    scope.spawn(take(before, value));
    value.set("first");
    value.set("second");
    scope.spawn(take(after, value));
    EXPECT_EQ(before, "first");
    EXPECT_EQ(after, "first");
}

TEST(Eventual, ForgetsATaskThatHasEnded)
{
    std::string first;
    std::string second;
    const Eventual<std::string> value;
    TaskScope scope;
    {
        TaskScope shortLived;
        shortLived.spawn(take(first, value));
    }
    scope.spawn(take(second, value));
    value.set("for the one that is left");
    EXPECT_EQ(first, "");
    EXPECT_EQ(second, "for the one that is left");
}

TEST(Eventual, MayBeDroppedByTheTaskThatItResumes)
{
    std::optional<Eventual<std::string>> value(std::in_place);
    bool resumed = false;
    TaskScope scope;
    scope.spawn([](std::optional<Eventual<std::string>>& own, bool& done) -> Task<> {
        co_await *own;
        own.reset();
        done = true;
    }(value, resumed));
    value->set("go");
    EXPECT_TRUE(resumed);
    EXPECT_FALSE(value);
}

} // namespace

} // namespace vesko
