#include "VeskoLinux/accessibility/FocusFollower.h"

#include "tests/fakes/TestClock.h"
#include "tests/linux/Desktop.h"
#include "tests/linux/accessibility/ToldProgram.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <vector>

namespace vesko {
namespace {

using desktop::until;

class FocusFollowerTest : public testing::Test {
protected:
    FocusFollowerTest()
    {
        m_bus.onFocus = [this, follow = m_bus.onFocus](const AtspiAddress& element, bool gained) {
            follow(element, gained);
            ++m_events;
        };
        m_bus.start();
        EXPECT_TRUE(until([this] { return m_bus.usable(); }));
    }

    void gain(int field)
    {
        m_program.focused = field;
        tell(field, true);
    }
    // To something that doesn't tell.
    void lose(int field)
    {
        m_program.focused = -1;
        tell(field, false);
    }
    void tell(int field, bool gained)
    {
        m_program.tellFocus(field, gained);
        EXPECT_TRUE(until([this, before = m_events] { return m_events > before; }));
    }
    // Time goes by until these count.
    bool comesTo(const std::vector<AtspiAddress>& elements)
    {
        return until([&] {
            m_clock.turn(0.01);
            return m_follower.heard(std::int32_t(QCoreApplication::applicationPid())) == elements;
        });
    }
    // Whatever was being asked is answered, if it is answered at all.
    void talkToAnEnd()
    {
        for (int count = 0; count < 10; ++count)
            valueOf(m_search.hasActiveWindow(m_program.field(0).service, AtspiInquiry(10'000)));
    }
    bool valueOf(Task<bool> task)
    {
        const Eventual<bool> value;
        m_tasks.spawn([](Task<bool> from, Eventual<bool> to) -> Task<> {
            to.set(co_await std::move(from));
        }(std::move(task), value));
        return desktop::valueOf(value);
    }

    TestClock m_clock;
    AtspiBus m_bus{ m_clock };
    FocusSearch m_search{ m_bus };
    FocusFollower m_follower{ m_bus, m_search, m_clock };
    ToldProgram m_program;
    int m_events = 0; // that the follower has heard
    TaskScope m_tasks;
};

TEST_F(FocusFollowerTest, aFieldThatLostTheFocusNoLongerCounts)
{
    gain(1);
    ASSERT_TRUE(comesTo({ m_program.field(1) }));
    lose(1);
    EXPECT_TRUE(comesTo({}));
}

TEST_F(FocusFollowerTest, aFieldThatHasTheFocusCountsWhateverItTells)
{
    gain(1);
    tell(1, false);
    EXPECT_TRUE(until([&] {
        m_clock.turn(0.01);
        return m_program.asked() == 2;
    }));
    talkToAnEnd();
    EXPECT_TRUE(comesTo({ m_program.field(1) }));
}

TEST_F(FocusFollowerTest, aLossCountsThatComesWhileItsGainIsWeighedAgainstAnother)
{
    gain(1);
    talkToAnEnd();
    m_program.hesitates = true;
    gain(2);
    lose(2);
    m_program.goOn();
    EXPECT_TRUE(comesTo({}));
}

TEST_F(FocusFollowerTest, aLossCountsThatComesWhileItsGainIsWeighedForLong)
{
    m_program.hesitates = true;
    gain(1);
    ASSERT_TRUE(until([&] { return m_program.asked() == 1; }));
    m_program.hesitates = false;
    lose(1);
    m_clock.turn(1);
    talkToAnEnd();
    m_program.goOn();
    EXPECT_TRUE(comesTo({}));
}

} // namespace
} // namespace vesko
