#include "VeskoLinux/input/X11KeyMonitor.h"

#include "VeskoApp/async/QtClock.h"
#include "VeskoLinux/input/X11PasteKeystroke.h"
#include "tests/linux/Desktop.h"

#include <gtest/gtest.h>

namespace vesko {

void PrintTo(const KeyEvent& event, std::ostream* out)
{
    *out << (event.kind == KeyEvent::Kind::keyDown ? "keyDown" : "flagsChanged")
         << (event.isGestureKey ? " gesture" : "") << (event.isReturn ? " return" : "")
         << (event.gestureKeyDown ? " gesture-down" : "") << (event.shiftDown ? " shift-down" : "")
         << (event.otherModifiers ? " others-down" : "");
}

bool operator==(const KeyEvent& a, const KeyEvent& b)
{
    return testing::PrintToString(a) == testing::PrintToString(b);
}

namespace {

using Kind = KeyEvent::Kind;

const KeyEvent ordinary{ .kind = Kind::keyDown };
const KeyEvent gestureDown{
    .kind = Kind::flagsChanged, .isGestureKey = true, .gestureKeyDown = true
};
const KeyEvent gestureUp{ .kind = Kind::flagsChanged, .isGestureKey = true };

class Field final : public FieldElement {
public:
    bool equals(const FieldElement& other) const override { return this == &other; }
    bool isTerminal() const override { return false; }
};

class X11KeyMonitorTest : public testing::Test {
protected:
    void watch(GestureKey key = GestureKey::rightControl)
    {
        ASSERT_TRUE(monitor.start(key, [this](const KeyEvent& event) { seen.push_back(event); }));
    }
    // These come, and nothing else: the next to come is a key that nothing else uses. It is another
    // one each time, since the same one at once would look like its own repeat.
    void expect(const std::vector<KeyEvent>& wanted)
    {
        static int turn = 0;
        EXPECT_TRUE(desktop::until([&] { return seen.size() >= wanted.size(); }));
        const auto next = "F" + std::to_string(turn++ % 12 + 1);
        hands.tap(key(next.c_str()));
        EXPECT_TRUE(desktop::until([&] { return seen.size() > wanted.size(); }));
        auto all = wanted;
        all.push_back(ordinary);
        EXPECT_EQ(seen, all);
        seen.clear();
    }
    desktop::Key key(const char* symbol) const { return hands.key(symbol); }

    QtClock clock;
    SentKeys sent{ clock };
    X11KeyMonitor monitor{ sent, clock };
    desktop::Hands hands;
    std::vector<KeyEvent> seen;
};

TEST_F(X11KeyMonitorTest, CanWatchKeysHereAndKnowsOfNoFnKey)
{
    EXPECT_TRUE(monitor.permitted());
    EXPECT_FALSE(monitor.reportsFn());
}

TEST_F(X11KeyMonitorTest, TheGestureKeyGoesDownAndUp)
{
    const struct {
        const char* name;
        GestureKey gesture;
        const char* symbol;
    } rows[] = {
        { "Right Control", GestureKey::rightControl, "Control_R" },
        { "Right Alt", GestureKey::rightAlt, "Alt_R" },
        { "Menu", GestureKey::menu, "Menu" },
        { "Pause", GestureKey::pause, "Pause" },
        { "Scroll Lock", GestureKey::scrollLock, "Scroll_Lock" },
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        watch(row.gesture);
        hands.tap(key(row.symbol));
        expect(std::vector{ gestureDown, gestureUp });
    }
}

TEST_F(X11KeyMonitorTest, AnOrdinaryKeyIsToldWhenItGoesDown)
{
    watch();
    hands.tap(key("a"));
    expect(std::vector{ ordinary });
}

TEST_F(X11KeyMonitorTest, BothReturnKeysAreKnown)
{
    watch();
    hands.tap(key("Return"));
    hands.tap(key("KP_Enter"));
    const KeyEvent sends{ .kind = Kind::keyDown, .isReturn = true };
    expect(std::vector{ sends, sends });
}

TEST_F(X11KeyMonitorTest, ShiftIsToldBesideReturn)
{
    watch();
    hands.chord({ key("Shift_L"), key("Return") });
    expect({
        { .kind = Kind::flagsChanged, .shiftDown = true, .otherModifiers = true },
        { .kind = Kind::keyDown, .isReturn = true, .shiftDown = true, .otherModifiers = true },
        { .kind = Kind::flagsChanged },
    });
}

TEST_F(X11KeyMonitorTest, EachOtherModifierCountsAsOne)
{
    watch();
    for (const char* symbol : { "Control_L", "Alt_L", "Super_L", "Super_R" }) {
        SCOPED_TRACE(symbol);
        hands.tap(key(symbol));
        expect({ { .kind = Kind::flagsChanged, .otherModifiers = true },
            { .kind = Kind::flagsChanged } });
    }
}

TEST_F(X11KeyMonitorTest, TheGestureKeyIsNoOtherModifierOfItself)
{
    watch();
    hands.down(key("Control_R"));
    hands.tap(key("a"));
    hands.up(key("Control_R"));
    const KeyEvent joined{ .kind = Kind::keyDown, .gestureKeyDown = true };
    expect(std::vector{ gestureDown, joined, gestureUp });
}

TEST_F(X11KeyMonitorTest, AKeysRepeatIsNoSecondPress)
{
    watch();
    hands.down(key("Control_R"));
    // Some servers show the repeat of a held key like this.
    for (int repeat = 0; repeat < 20; ++repeat) {
        hands.up(key("Control_R"));
        hands.down(key("Control_R"));
    }
    hands.up(key("Control_R"));
    expect(std::vector{ gestureDown, gestureUp });
}

TEST_F(X11KeyMonitorTest, WhatWeSendOurselvesIsNoKeyOfTheUsers)
{
    X11PasteKeystroke keystroke(sent, clock);
    watch();
    EXPECT_TRUE(desktop::valueOf(keystroke.send(Field())));
    hands.tap(key("v"));
    expect(std::vector{ ordinary });
}

TEST_F(X11KeyMonitorTest, KeysAreSeenWhileAnotherProgramHoldsThem)
{
    const desktop::Grab other(key("a"), 0);
    watch();
    hands.tap(key("a"));
    expect(std::vector{ ordinary });
}

TEST_F(X11KeyMonitorTest, AKeyThatWasDownAtTheStartIsNoPress)
{
    hands.down(key("Control_R"));
    watch();
    hands.up(key("Control_R"));
    expect(std::vector{ gestureUp });
    hands.tap(key("Control_R"));
    expect(std::vector{ gestureDown, gestureUp });
}

TEST_F(X11KeyMonitorTest, TellsNothingAfterTheStop)
{
    watch();
    monitor.stop();
    hands.tap(key("a"));
    watch();
    expect(std::vector<KeyEvent>{});
}

} // namespace
} // namespace vesko
