#include "VeskoApp/async/Worker.h"
#include "VeskoApp/async/TaskScope.h"
#include "tests/fakes/EventLoop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <latch>
#include <optional>
#include <string>
#include <vector>

namespace vesko {

namespace {

// Runs a function on the worker and notes what came of it.
template <class Function>
Task<> noting(Worker& worker, std::vector<std::string>& events, Function function)
{
    try {
        events.push_back(co_await worker.run(std::move(function)));
    } catch (const std::exception& error) {
        events.push_back(std::string("threw ") + error.what());
    }
}

TEST(Worker, RunsAJobOnAThreadOfItsOwnAndGoesOnWhereItWasAwaited)
{
    Worker worker;
    const auto here = std::this_thread::get_id();
    std::thread::id resumedOn;
    const auto ranOn = awaited([](Worker& on, std::thread::id& resumed) -> Task<std::thread::id> {
        const auto id = co_await on.run([] { return std::this_thread::get_id(); });
        resumed = std::this_thread::get_id();
        co_return id;
    }(worker, resumedOn));
    EXPECT_NE(ranOn, here);
    EXPECT_EQ(resumedOn, here);
}

TEST(Worker, DoesNotResumeATaskBeforeTheEventLoopTurns)
{
    std::vector<std::string> events;
    std::latch ran(1);
    Worker worker;
    TaskScope scope;
    scope.spawn(noting(worker, events, [&ran] {
        ran.count_down();
        return "done";
    }));
    ran.wait();
    EXPECT_TRUE(events.empty());
    EXPECT_TRUE(eventually([&] { return !events.empty(); }));
}

TEST(Worker, RunsJobsOneAtATimeInTheOrderTheyWereAskedFor)
{
    constexpr int jobs = 500;
    std::atomic<int> running = 0;
    std::atomic<bool> overlapped = false;
    std::vector<int> started; // only ever touched by one job at a time
    std::vector<std::string> results;
    std::vector<std::string> expected;
    Worker worker;
    TaskScope scope;
    for (int job = 0; job < jobs; ++job) {
        expected.push_back(std::to_string(job));
        scope.spawn(noting(worker, results, [&, job] {
            if (++running != 1)
                overlapped = true;
            started.push_back(job);
            --running;
            return std::to_string(job);
        }));
    }
    ASSERT_TRUE(eventually([&] { return scope.idle(); }));
    EXPECT_FALSE(overlapped);
    EXPECT_TRUE(std::ranges::is_sorted(started));
    EXPECT_EQ(results, expected);
}

TEST(Worker, MovesAResultThatCannotBeCopied)
{
    Worker worker;
    const auto run = [](Worker& on) -> Task<int> {
        auto input = std::make_unique<int>(20);
        const std::unique_ptr<int> output = co_await on.run(
            [input = std::move(input)] { return std::make_unique<int>(*input + 1); });
        co_return *output;
    };
    EXPECT_EQ(awaited(run(worker)), 21);
}

TEST(Worker, HandsTheExceptionItselfToTheTask)
{
    std::vector<std::string> events;
    Worker worker;
    TaskScope scope;
    scope.spawn(noting(worker, events, []() -> std::string { throw std::out_of_range("far"); }));
    scope.spawn(noting(worker, events, [] { return "and went on"; }));
    ASSERT_TRUE(eventually([&] { return scope.idle(); }));
    EXPECT_EQ(events, (std::vector<std::string>{ "threw far", "and went on" }));
}

TEST(Worker, ReleasesWhatAJobHeldWhenTheJobIsOver)
{
    const auto held = std::make_shared<int>(1);
    Worker worker;
    const auto run = [](Worker& on, std::shared_ptr<int> value) -> Task<long> {
        co_await on.run([value] { return *value; });
        co_return value.use_count();
    };
    EXPECT_EQ(awaited(run(worker, held)), 2);
}

TEST(Worker, AsksARunningJobToStopWhenItsTaskIsDestroyed)
{
    std::latch running(1);
    std::latch stopped(1);
    Worker worker;
    std::vector<std::string> events;
    {
        TaskScope scope;
        scope.spawn(noting(worker, events, [&](std::stop_token stop) {
            const std::stop_callback end(stop, [&] { stopped.count_down(); });
            running.count_down();
            stopped.wait();
            return "dropped";
        }));
        running.wait();
    }
    EXPECT_EQ(awaited([](Worker& on) -> Task<std::string> {
        co_return co_await on.run([] { return std::string("free again"); });
    }(worker)),
        "free again");
    EXPECT_TRUE(events.empty());
}

TEST(Worker, SkipsAJobWhoseTaskIsGoneBeforeItBegan)
{
    std::latch release(1);
    std::atomic<bool> ran = false;
    std::vector<std::string> events;
    Worker worker;
    TaskScope scope;
    scope.spawn(noting(worker, events, [&] {
        release.wait();
        return "first";
    }));
    {
        TaskScope shortLived;
        shortLived.spawn(noting(worker, events, [&] {
            ran = true;
            return "second";
        }));
    }
    scope.spawn(noting(worker, events, [] { return "third"; }));
    release.count_down();
    ASSERT_TRUE(eventually([&] { return scope.idle(); }));
    EXPECT_FALSE(ran);
    EXPECT_EQ(events, (std::vector<std::string>{ "first", "third" }));
}

TEST(Worker, DropsAResultWhoseTaskEndedWhileItWasOnItsWay)
{
    std::latch ran(1);
    std::vector<std::string> events;
    Worker worker;
    {
        TaskScope scope;
        scope.spawn(noting(worker, events, [&] {
            ran.count_down();
            return "nobody's";
        }));
        ran.wait();
    }
    drainEvents();
    EXPECT_TRUE(events.empty());
}

TEST(Worker, EndsWithAJobRunningAndOthersQueued)
{
    std::latch running(1);
    std::latch stopped(1);
    std::atomic<bool> queuedRan = false;
    std::vector<std::string> events;
    std::optional<Worker> worker(std::in_place);
    TaskScope scope;
    scope.spawn(noting(*worker, events, [&](std::stop_token stop) {
        const std::stop_callback end(stop, [&] { stopped.count_down(); });
        running.count_down();
        stopped.wait();
        return "too late";
    }));
    scope.spawn(noting(*worker, events, [&] {
        queuedRan = true;
        return "never";
    }));
    running.wait();
    worker.reset();
    drainEvents();
    EXPECT_FALSE(queuedRan);
    EXPECT_TRUE(events.empty());
    EXPECT_FALSE(scope.idle());
}

TEST(Worker, IsMadeAndEndedAgainAndAgainWithWorkUnderWay)
{
    for (int round = 0; round < 200; ++round) {
        std::vector<std::string> events;
        Worker worker;
        TaskScope scope;
        for (int job = 0; job < 5; ++job)
            scope.spawn(noting(worker, events, [] { return std::string(64, 'x'); }));
        if (round % 3 == 0)
            drainEvents();
    }
}

} // namespace

} // namespace vesko
