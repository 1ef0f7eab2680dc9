#include "VeskoLinux/input/SentKeys.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

class HandClock : public Clock {
public:
    Date now() const override { return {}; }
    double uptime() const override { return m_uptime; }
    void advance(double seconds) { m_uptime += seconds; }

private:
    double m_uptime = 100;
};

TEST(SentKeys, eachMovementCountsOnce)
{
    const HandClock clock;
    SentKeys sent(clock);
    sent.add(55, true);
    sent.add(55, false);
    EXPECT_FALSE(sent.take(56, true)) << "another key";
    EXPECT_TRUE(sent.take(55, true));
    EXPECT_FALSE(sent.take(55, true)) << "the user's own press of it";
    EXPECT_TRUE(sent.take(55, false));
    EXPECT_FALSE(sent.take(55, false));
}

TEST(SentKeys, whatNeverComesSwallowsNoKeyLater)
{
    HandClock clock;
    SentKeys sent(clock);
    sent.add(55, true);
    clock.advance(3);
    EXPECT_FALSE(sent.take(55, true));
}

} // namespace
} // namespace vesko
