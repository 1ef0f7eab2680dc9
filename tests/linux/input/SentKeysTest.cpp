#include "VeskoLinux/input/SentKeys.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

class TurnedClock final : public Clock {
public:
    Date now() const override { return {}; }
    double uptime() const override { return time; }
    double time = 100;
};

TEST(SentKeys, AKeyThatWasSentIsTakenOnceAndOnlyInItsDirection)
{
    const TurnedClock clock;
    SentKeys sent(clock);
    sent.add(55, true);

    EXPECT_FALSE(sent.take(55, false));
    EXPECT_FALSE(sent.take(54, true));
    EXPECT_TRUE(sent.take(55, true));
    EXPECT_FALSE(sent.take(55, true));
}

TEST(SentKeys, WhatHasNotComeBackInHalfASecondSwallowsNothingOfTheUsers)
{
    TurnedClock clock;
    SentKeys sent(clock);
    sent.add(55, false);
    clock.time += 0.51;

    EXPECT_FALSE(sent.take(55, false));
}

} // namespace
} // namespace vesko
