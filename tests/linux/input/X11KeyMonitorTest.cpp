#include "VeskoLinux/input/X11KeyMonitor.h"

#include "VeskoApp/async/QtClock.h"
#include "tests/linux/Desktop.h"

#include <gtest/gtest.h>

#include <vector>

namespace vesko {

bool operator==(const KeyEvent& one, const KeyEvent& other)
{
    return one.kind == other.kind && one.isGestureKey == other.isGestureKey
        && one.isReturn == other.isReturn && one.gestureKeyDown == other.gestureKeyDown
        && one.shiftDown == other.shiftDown && one.otherModifiers == other.otherModifiers;
}

void PrintTo(const KeyEvent& event, std::ostream* out)
{
    constexpr const char* names[] = { "keyDown", "buttonDown", "flagsChanged", "interrupted" };
    *out << names[int(event.kind)] << (event.isGestureKey ? " gesture key" : "")
         << (event.isReturn ? " return" : "") << (event.gestureKeyDown ? " +gesture" : "")
         << (event.shiftDown ? " +shift" : "") << (event.otherModifiers ? " +modifiers" : "");
}

namespace {

using namespace desktop;

constexpr auto flagsChanged = KeyEvent::Kind::flagsChanged;

KeyEvent gesture(bool down)
{
    KeyEvent event{ .kind = flagsChanged, .isGestureKey = true };
    event.gestureKeyDown = down;
    return event;
}

KeyEvent modifier(bool down, bool isShift = false)
{
    KeyEvent event{ .kind = flagsChanged };
    event.shiftDown = down && isShift;
    event.otherModifiers = down;
    return event;
}

KeyEvent key()
{
    return {};
}

class X11KeyMonitorTest : public testing::Test {
protected:
    X11KeyMonitorTest() { setLayouts("us,ru,gr"); }
    ~X11KeyMonitorTest() override
    {
        m_hands.layout(0);
        rest();
    }

    void watch(GestureKey key = GestureKey::rightControl)
    {
        ASSERT_TRUE(m_monitor.permitted());
        ASSERT_TRUE(
            m_monitor.start(key, [this](const KeyEvent& event) { m_events.push_back(event); }));
    }
    // Exactly these, and nothing more: the key that ends the list is one that no test uses.
    void expectSeen(std::vector<KeyEvent> expected)
    {
        m_hands.tap(m_hands.key("F7"));
        expected.push_back(key());
        EXPECT_TRUE(until([&] { return m_events.size() >= expected.size(); }));
        EXPECT_EQ(m_events, expected);
    }
    QtClock m_clock;
    SentKeys m_sent{ m_clock };
    X11KeyMonitor m_monitor{ m_sent, m_clock };
    Hands m_hands;
    std::vector<KeyEvent> m_events;
};

TEST_F(X11KeyMonitorTest, everyKeyOfTheGestureIsSeenGoingDownAndUpInEveryLayout)
{
    struct Case {
        const char* name;
        GestureKey gesture;
    };
    const Case cases[] = {
        { "Control_R", GestureKey::rightControl },
        { "Alt_R", GestureKey::rightAlt },
        { "Menu", GestureKey::menu },
        { "Pause", GestureKey::pause },
        { "Scroll_Lock", GestureKey::scrollLock },
    };
    for (const Case& one : cases) {
        const Key code = m_hands.key(one.name);
        for (const int layout : { 0, 1, 2 }) {
            SCOPED_TRACE(one.name + std::string(", layout ") + std::to_string(layout));
            m_hands.layout(layout);
            m_events.clear();
            watch(one.gesture);
            m_hands.tap(code);
            expectSeen({ gesture(true), gesture(false) });
            rest();
        }
    }
}

TEST_F(X11KeyMonitorTest, tapsAfterEachOtherAreSeparate)
{
    watch();
    for (int tap = 0; tap < 2; ++tap) {
        m_hands.tap(m_hands.key("Control_R"));
        rest();
    }
    expectSeen({ gesture(true), gesture(false), gesture(true), gesture(false) });
}

TEST_F(X11KeyMonitorTest, aKeyThatJoinsTheGestureIsSeenWithIt)
{
    watch();
    m_hands.chord({ m_hands.key("Control_R"), m_hands.key("c") });
    auto joined = key();
    joined.gestureKeyDown = true;
    expectSeen({ gesture(true), joined, gesture(false) });
}

TEST_F(X11KeyMonitorTest, aButtonThatJoinsTheGestureIsSeenWithItAndReachesItsWindow)
{
    const PlainWindow window;
    watch();
    for (const unsigned button : { 1U, 2U, 3U, 4U, 5U, 8U }) {
        SCOPED_TRACE(button);
        const bool wheel = button == 4 || button == 5;
        m_events.clear();
        m_hands.down(m_hands.key("Control_R"));
        m_hands.buttonDown(button);
        m_hands.buttonUp(button);
        m_hands.up(m_hands.key("Control_R"));
        KeyEvent joined{ .kind = KeyEvent::Kind::buttonDown };
        joined.gestureKeyDown = true;
        joined.otherModifiers = !wheel;
        expectSeen({ gesture(true), joined, gesture(false) });
        rest();
    }
}

TEST_F(X11KeyMonitorTest, aButtonThatIsDownMakesACombinationOfTheKey)
{
    const auto combined = [](bool down) {
        auto event = gesture(down);
        event.otherModifiers = true;
        return event;
    };
    for (const bool before : { true, false }) {
        SCOPED_TRACE(before ? "down before the watch began" : "down while it runs");
        m_events.clear();
        if (before)
            m_hands.buttonDown(1);
        watch();
        if (!before)
            m_hands.buttonDown(1);
        m_hands.tap(m_hands.key("Control_R"));
        rest();
        m_hands.buttonUp(1);
        m_hands.tap(m_hands.key("Control_R"));
        std::vector<KeyEvent> expected{ combined(true), combined(false), gesture(true),
            gesture(false) };
        if (!before) {
            KeyEvent button{ .kind = KeyEvent::Kind::buttonDown };
            button.otherModifiers = true;
            expected.insert(expected.begin(), button);
        }
        expectSeen(expected);
        rest();
    }
}

TEST_F(X11KeyMonitorTest, knowsWhetherAnotherProgramHoldsTheKeyboard)
{
    EXPECT_FALSE(m_monitor.takenByOther());
    for (const auto kind : { Grab::Kind::core, Grab::Kind::extension }) {
        const KeyboardGrab other(kind);
        EXPECT_TRUE(m_monitor.takenByOther());
    }
    EXPECT_FALSE(m_monitor.takenByOther());
}

TEST_F(X11KeyMonitorTest, modifiersAreToldFromTheGestureKey)
{
    for (const char* name : { "Control_L", "Alt_L", "Super_L", "Super_R", "Shift_L", "Shift_R" }) {
        SCOPED_TRACE(name);
        m_events.clear();
        watch();
        m_hands.chord({ m_hands.key(name), m_hands.key("Control_R") });
        const bool isShift = std::string(name).starts_with("Shift");
        auto down = gesture(true), up = gesture(false);
        down.shiftDown = up.shiftDown = isShift;
        down.otherModifiers = up.otherModifiers = true;
        expectSeen({ modifier(true, isShift), down, up, modifier(false) });
        rest();
    }
}

TEST_F(X11KeyMonitorTest, returnIsSeenWithTheShiftThatMakesItALineEnd)
{
    for (const int layout : { 0, 1, 2 }) {
        SCOPED_TRACE(layout);
        m_hands.layout(layout);
        for (const char* name : { "Return", "KP_Enter" }) {
            SCOPED_TRACE(name);
            m_events.clear();
            watch();
            m_hands.tap(m_hands.key(name));
            rest();
            m_hands.chord({ m_hands.key("Shift_L"), m_hands.key(name) });
            rest();
            m_hands.tap(m_hands.key("space"));
            auto sent = key();
            sent.isReturn = true;
            auto line = sent;
            line.shiftDown = line.otherModifiers = true;
            expectSeen({ sent, modifier(true, true), line, modifier(false), key() });
            rest();
        }
    }
}

TEST_F(X11KeyMonitorTest, keysThatThisProgramSentAreNotTheUsers)
{
    watch();
    const Key control = m_hands.key("Control_L"), v = m_hands.key("v");
    for (const Key code : { control, v })
        m_sent.add(code, true);
    for (const Key code : { v, control })
        m_sent.add(code, false);
    m_hands.chord({ control, v });
    rest();
    m_hands.tap(v); // and this is the user
    expectSeen({ key() });
}

TEST_F(X11KeyMonitorTest, keysAreSeenWhileAnotherProgramHasThemAndItStillGetsThem)
{
    const Grab other(m_hands.key("F5"), 0);
    watch();
    const Program editor(QStringLiteral("zenity"), { QStringLiteral("--entry") });
    m_hands.tap(m_hands.key("F5"));
    rest();
    expectSeen({ key() });
    EXPECT_TRUE(other.pressed());
}

TEST_F(X11KeyMonitorTest, aKeyThatIsDownAtTheStartIsNoPress)
{
    const Key control = m_hands.key("Control_R");
    m_hands.down(control);
    watch();
    m_hands.up(control);
    expectSeen({ gesture(false) });
}

TEST_F(X11KeyMonitorTest, nothingIsToldAfterTheEnd)
{
    watch();
    m_monitor.stop();
    RawKeys server;
    const Key control = m_hands.key("Control_R");
    m_hands.tap(control);
    EXPECT_TRUE(until([&] { return server.presses(control) == 1; }));
    rest();
    EXPECT_TRUE(m_events.empty());
    // Nor of a watch that ends while it is being told.
    EXPECT_TRUE(m_monitor.start(GestureKey::rightControl, [this](const KeyEvent& event) {
        m_events.push_back(event);
        m_monitor.stop();
    }));
    m_hands.tap(control);
    EXPECT_TRUE(until([&] { return server.presses(control) == 2 && !m_events.empty(); }));
    rest();
    EXPECT_EQ(m_events, std::vector{ gesture(true) });
}

TEST_F(X11KeyMonitorTest, aKeyboardWithAnFnKeyHasTheGestureOnIt)
{
    EXPECT_FALSE(m_monitor.reportsFn());
    QProcess::execute(QStringLiteral("xmodmap"),
        { QStringLiteral("-e"), QStringLiteral("keycode 150 = XF86Fn") });
    // The monitor that is there learns of it in its own time; a new one knows at once.
    X11KeyMonitor fresh(m_sent, m_clock);
    EXPECT_TRUE(fresh.reportsFn());
    m_events.clear();
    EXPECT_TRUE(
        fresh.start(GestureKey::fn, [this](const KeyEvent& event) { m_events.push_back(event); }));
    m_hands.tap(150);
    expectSeen({ gesture(true), gesture(false) });
}

TEST(X11KeyMonitorInNestedServer, theRepeatOfAHeldKeyIsNoSecondPress)
{
    const NestedServer nested;
    QtClock clock;
    SentKeys sent(clock);
    const Hands hands; // on the outer server, so to speak the hardware
    for (const auto& [name, gestureKey] :
        { std::pair{ "Menu", GestureKey::menu }, { "a", GestureKey::rightControl } }) {
        SCOPED_TRACE(name);
        std::vector<KeyEvent> events;
        const auto monitor = nested.make<X11KeyMonitor>(sent, clock);
        ASSERT_TRUE(
            monitor->start(gestureKey, [&](const KeyEvent& event) { events.push_back(event); }));
        RawKeys server(nested.display());
        const Key code = hands.key(name);
        hands.down(code);
        EXPECT_TRUE(until([&] { return server.presses(code) >= 5; }));
        EXPECT_EQ(events.size(), 1U);
        hands.up(code);
        if (gestureKey == GestureKey::menu) {
            EXPECT_TRUE(until([&] { return events.size() >= 2; }));
            EXPECT_EQ(events, (std::vector{ gesture(true), gesture(false) }));
        }
    }
}

} // namespace
} // namespace vesko
