#include "VeskoLinux/input/X11PasteKeystroke.h"

#include "VeskoApp/async/QtClock.h"
#include "tests/linux/Desktop.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

class Field final : public FieldElement {
public:
    explicit Field(bool terminal = false)
        : m_terminal(terminal)
    {
    }
    bool equals(const FieldElement& other) const override { return this == &other; }
    bool isTerminal() const override { return m_terminal; }

private:
    bool m_terminal;
};

// A clock whose time stands still until the test turns it.
class StandingClock final : public EventClock {
public:
    Date now() const override { return {}; }
    double uptime() const override { return m_uptime; }
    TimerId arm(double seconds, std::function<void()> callback) override
    {
        m_armed.push_back({ ++m_last, m_uptime + seconds, std::move(callback) });
        return m_last;
    }
    void disarm(TimerId id) override
    {
        std::erase_if(m_armed, [id](const Armed& armed) { return armed.id == id; });
    }
    void turn(double seconds)
    {
        m_uptime += seconds;
        const auto due = std::exchange(m_armed, {});
        for (const auto& armed : due) {
            ASSERT_LE(armed.at, m_uptime);
            armed.callback();
        }
    }

private:
    struct Armed {
        TimerId id;
        double at;
        std::function<void()> callback;
    };
    double m_uptime = 0;
    TimerId m_last = 0;
    std::vector<Armed> m_armed;
};

class X11PasteKeystrokeTest : public testing::Test {
protected:
    void ask()
    {
        m_scope.spawn([](Eventual<std::monostate> waited, bool& to) -> Task<> {
            co_await waited;
            to = true;
        }(keystroke.keysReleased(), m_came));
    }

    StandingClock clock;
    SentKeys sent{ clock };
    X11PasteKeystroke keystroke{ sent, clock };
    desktop::Hands hands;
    desktop::Key shift = hands.key("Shift_L"), control = hands.key("Control_L"),
                 super = hands.key("Super_L");
    bool m_came = false;
    TaskScope m_scope;
};

TEST_F(X11PasteKeystrokeTest, WithNoKeyHeldTheresNothingToWaitFor)
{
    ask();
    EXPECT_TRUE(m_came);
}

TEST_F(X11PasteKeystrokeTest, WaitsUntilTheUserLetsGo)
{
    hands.down(super);
    ask();
    clock.turn(0.1);
    EXPECT_FALSE(m_came);
    hands.up(super);
    clock.turn(0.1);
    EXPECT_TRUE(m_came);
}

TEST_F(X11PasteKeystrokeTest, DoesNotWaitForever)
{
    hands.down(super);
    ask();
    clock.turn(0.59);
    EXPECT_FALSE(m_came);
    clock.turn(0.02);
    EXPECT_TRUE(m_came);
    hands.up(super);
}

TEST_F(X11PasteKeystrokeTest, LeavesNoKeyDownAndLetsGoWhatTheUserHeld)
{
    hands.down(super);
    hands.down(shift);
    EXPECT_TRUE(desktop::valueOf(keystroke.send(Field())));
    for (const auto key : { super, shift, control, hands.key("v") })
        EXPECT_FALSE(hands.isDown(key));
}

TEST_F(X11PasteKeystrokeTest, NotesEveryKeyThatItSends)
{
    const struct {
        const char* name;
        Field field;
        std::vector<desktop::Key> keys;
    } rows[] = {
        { "a field", Field(), { control, hands.key("v") } },
        { "a terminal", Field(true), { control, shift, hands.key("v") } },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(desktop::valueOf(keystroke.send(row.field)));
        for (const auto key : row.keys) {
            EXPECT_TRUE(sent.take(key, true));
            EXPECT_TRUE(sent.take(key, false));
        }
    }
}

} // namespace
} // namespace vesko
