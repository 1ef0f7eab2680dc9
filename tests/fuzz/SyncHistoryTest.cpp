#include "tests/fuzz/SyncWorld.h"

#include <gtest/gtest.h>
#include <iostream>

using namespace vesko;

namespace {

struct Outcome {
    std::string broken; // the promise, or nothing
    std::string story;
};

// Ids are the machine's random ones, and a history may fail for some of them only.
constexpr int attempts = 2;

Outcome outcomeOf(const SyncHistory& history, unsigned replicas, SyncTally& tally)
{
    SyncWorld world(replicas, tally);
    try {
        for (const auto& step : history)
            world.take(step);
        world.finish();
    } catch (const SyncWorld::Broken& broken) {
        return { broken.what(), world.story() };
    }
    return {};
}

// The shortest history that still breaks a promise, told step by step.
std::string shortestFailure(const SyncHistory& history, unsigned replicas, Outcome last)
{
    SyncTally unused;
    shortened(history, [&](const SyncHistory& candidate) {
        for (int attempt = 0; attempt < attempts; ++attempt) {
            auto outcome = outcomeOf(candidate, replicas, unused);
            if (!outcome.broken.empty()) {
                last = std::move(outcome);
                return true;
            }
        }
        return false;
    });
    return last.story + "broken: " + last.broken;
}

} // namespace

TEST(SyncHistoryTest, aFailingHistoryIsShortenedToTheStepsThatMatter)
{
    auto history = randomHistory(1, 500);
    history[17].choice = 111;
    history[403].choice = 222;
    const auto both = [](const SyncHistory& candidate) {
        const auto has = [&](unsigned choice) {
            return std::ranges::any_of(
                candidate, [&](const SyncStep& step) { return step.choice == choice; });
        };
        return has(111) && has(222);
    };
    const auto shortest = shortened(history, both);
    ASSERT_EQ(shortest.size(), 2u);
    EXPECT_EQ(shortest[0].choice, 111u);
    EXPECT_EQ(shortest[1].choice, 222u);
}

// A hundred thousand steps over three to six replicas in short histories: stores hold little then,
// and every step can be checked against the whole.
TEST(TextSyncModelTest, replicasKeepEveryPromiseInRandomHistories)
{
    constexpr unsigned steps = 100'000, length = 100;
    SyncTally tally;
    for (unsigned seed = 1; seed <= steps / length; ++seed) {
        const auto history = randomHistory(seed, length);
        const auto replicas = 3 + seed % 4;
        const auto outcome = outcomeOf(history, replicas, tally);
        if (outcome.broken.empty())
            continue;
        // At once, since shortening takes a while.
        ADD_FAILURE() << "seed " << seed << ", " << replicas << " replicas: " << outcome.broken;
        FAIL() << "shortened:\n" << shortestFailure(history, replicas, outcome);
    }
    // Histories have to get into all of this, or they prove nothing.
    EXPECT_GT(tally.taken, 10'000u);
    EXPECT_GT(tally.refused, 3'000u);
    EXPECT_GT(tally.incomplete, 1'000u);
    EXPECT_GT(tally.forks, 1'000u);
    EXPECT_GT(tally.repeats, 1'000u);
    EXPECT_GT(tally.faults, 1'000u);
    EXPECT_GT(tally.oldAfterCrash, 500u);
    EXPECT_GT(tally.newAfterCrash, 100u);
}
