#include "VeskoLinux/input/X11PasteKeystroke.h"

#include "VeskoApp/async/QtClock.h"
#include "VeskoLinux/accessibility/AtspiFocusedField.h"
#include "VeskoLinux/input/X11KeyMonitor.h"
#include "tests/fakes/FakeSessionState.h"
#include "tests/linux/Desktop.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>

#include <gtest/gtest.h>

#include <cstdio>

namespace vesko {
namespace {

using namespace desktop;

constexpr const char* pasted = "dictated 😀 text";

class X11PasteKeystrokeTest : public testing::Test {
protected:
    X11PasteKeystrokeTest()
    {
        setLayouts("us,ru,gr");
        QGuiApplication::clipboard()->setText(QString::fromUtf8(pasted));
    }
    ~X11PasteKeystrokeTest() override
    {
        for (const char* name : { "Super_L", "Shift_L", "Control_L", "Alt_L", "space" })
            m_hands.up(m_hands.key(name));
        m_hands.latch(0);
        m_hands.lock(0);
        m_hands.slowKeys(false);
        m_hands.layout(0);
        setLayouts("us");
    }

    FieldReading fieldOf(const Program& program)
    {
        FieldReading reading;
        EXPECT_TRUE(until([&] {
            reading = valueOf(m_field.read({}));
            return reading.frontmost == program.pid() && reading.element && reading.selection;
        }));
        return reading;
    }
    // How often the pasted text stands in the field now.
    int timesPasted()
    {
        const auto reading = valueOf(m_field.read({}));
        return int(QString::fromStdString(reading.value.value_or(std::string()))
                .count(QString::fromUtf8(pasted)));
    }
    // What is said of a keystroke into the field: "" if it was sent.
    std::string send(const FieldReading& field)
    {
        valueOf(m_keystroke.keysReleased());
        return valueOf(m_keystroke.send(*field.element)).value_or("");
    }
    void expectPaste(const FieldReading& field)
    {
        const int before = timesPasted();
        EXPECT_EQ(send(field), "");
        EXPECT_TRUE(until([&] { return timesPasted() == before + 1; }));
    }
    // Nothing arrives, not even late: what would be sent comes before what is typed now.
    void expectNothing(const FieldReading& field, const char* reason)
    {
        RawKeys server;
        EXPECT_EQ(send(field), reason);
        const Key last = m_hands.key("F7");
        m_hands.tap(last);
        EXPECT_TRUE(until([&] { return server.presses(last) == 1; }));
        for (const char* name : { "Control_L", "Shift_L", "v" })
            EXPECT_EQ(server.presses(m_hands.key(name)), 0) << name;
    }

    QtClock m_clock;
    SentKeys m_sent{ m_clock };
    Hands m_hands;
    AtspiFocusedField m_field{ m_clock };
    FakeSessionState m_session;
    X11GlobalShortcut m_shortcut;
    X11PasteKeystroke m_keystroke{ m_sent, m_shortcut, m_session, m_clock };
};

TEST_F(X11PasteKeystrokeTest, pastesWithEveryLayout)
{
    struct Case {
        const char* name;
        QStringList arguments;
    };
    const auto profile = QStringLiteral("--user-data-dir=") + qEnvironmentVariable("SESSION_DIR")
        + QStringLiteral("/chromium");
    const Case programs[] = {
        { "mousepad", {} },
        { "featherpad", {} },
        { "xfce4-terminal", { QStringLiteral("--disable-server") } },
        { "chromium",
            { QStringLiteral("--no-sandbox"), QStringLiteral("--force-renderer-accessibility"),
                QStringLiteral("--no-first-run"), QStringLiteral("--disable-gpu"), profile,
                QStringLiteral("data:text/html,<textarea autofocus></textarea>") } },
    };
    for (const Case& one : programs) {
        const Program program(QString::fromLatin1(one.name), one.arguments);
        const auto field = fieldOf(program);
        for (const char* layouts : { "us,ru,gr", "us(dvorak),de", "ru", "gr" }) {
            // Its own shortcut needs a Latin layout, for a user's fingers too.
            if (field.element->isTerminal() && !std::string(layouts).starts_with("us"))
                continue;
            setLayouts(layouts);
            for (const int layout : { 0, 1, 2 }) {
                SCOPED_TRACE(testing::Message() << one.name << ", " << layout << " of " << layouts);
                m_hands.layout(layout);
                expectPaste(field);
            }
        }
        m_hands.layout(0);
    }
}

TEST_F(X11PasteKeystrokeTest, aKeyThatTheUserHoldsIsLeftToTheUser)
{
    const Program program(QStringLiteral("mousepad"), {});
    const auto field = fieldOf(program);
    for (const char* name :
        { "Super_L", "Shift_L", "Control_L", "Control_R", "Alt_L", "Alt_R", "v" }) {
        SCOPED_TRACE(name);
        const Key key = m_hands.key(name);
        m_hands.down(key);
        EXPECT_EQ(send(field), "keys_held");
        EXPECT_TRUE(m_hands.isDown(key));
        m_hands.up(key);
    }
    for (const char* name : { "space", "F5", "Caps_Lock", "Num_Lock" }) {
        SCOPED_TRACE(name);
        const Key key = m_hands.key(name);
        m_hands.down(key);
        expectPaste(field);
        EXPECT_TRUE(m_hands.isDown(key));
        m_hands.up(key);
    }
}

TEST_F(X11PasteKeystrokeTest, ourHeldShortcutGivesTheKeysBackToTheField)
{
    bool pressed = false;
    ASSERT_TRUE(m_shortcut.install({}, [&] { pressed = true; }));
    const Program program(QStringLiteral("mousepad"), {});
    const auto field = fieldOf(program);
    const Key keys[] = { m_hands.key("Super_L"), m_hands.key("Shift_L"), m_hands.key("space") };
    for (const Key key : keys)
        m_hands.down(key);
    EXPECT_TRUE(until([&] { return pressed; }));
    expectPaste(field);
    for (const Key key : keys)
        EXPECT_FALSE(m_hands.isDown(key)) << "let go, and not pressed again";
}

TEST_F(X11PasteKeystrokeTest, aKeyBesideOurHeldShortcutLeavesAllOfThemAlone)
{
    bool pressed = false;
    ASSERT_TRUE(m_shortcut.install({}, [&] { pressed = true; }));
    const Program program(QStringLiteral("mousepad"), {});
    const auto field = fieldOf(program);
    const Key keys[] = { m_hands.key("Super_L"), m_hands.key("Shift_L"), m_hands.key("space"),
        m_hands.key("Alt_L") };
    for (const Key key : keys)
        m_hands.down(key);
    EXPECT_TRUE(until([&] { return pressed; }));
    EXPECT_EQ(send(field), "keys_held");
    for (const Key key : keys)
        EXPECT_TRUE(m_hands.isDown(key));
}

TEST_F(X11PasteKeystrokeTest, anotherProgramThatHoldsTheKeyboardGetsNothing)
{
    const Program program(QStringLiteral("mousepad"), {});
    const auto field = fieldOf(program);
    for (const auto kind : { Grab::Kind::core, Grab::Kind::extension }) {
        SCOPED_TRACE(int(kind));
        {
            const KeyboardGrab other(kind);
            EXPECT_EQ(send(field), "keyboard_grabbed");
            EXPECT_FALSE(other.pressed());
        }
        {
            const Grab shortcut(m_hands.key("F5"), 0, kind);
            m_hands.down(m_hands.key("F5"));
            EXPECT_TRUE(until([&] { return shortcut.pressed(); }));
            EXPECT_EQ(send(field), "keyboard_grabbed");
            m_hands.up(m_hands.key("F5"));
        }
        expectPaste(field);
    }
}

TEST_F(X11PasteKeystrokeTest, theLookForAGrabIsFeltByNoWindowAndLeavesNothingGrabbed)
{
    const PlainWindow window;
    window.takeFocus();
    window.focusChanges();
    const X11Connection connection;
    const KeyboardProbe probe(connection);
    EXPECT_FALSE(probe.isHeld());
    EXPECT_FALSE(probe.isHeld());
    EXPECT_EQ(window.focusChanges(), 0);
    const KeyboardGrab other; // or this test ends here
    EXPECT_TRUE(probe.isHeld());
}

TEST_F(X11PasteKeystrokeTest, modifiersThatStickForbidItAndStayAsTheyAre)
{
    const Program program(QStringLiteral("mousepad"), {});
    const auto field = fieldOf(program);
    for (const unsigned modifier : { desktop::shift, desktop::control, alt, super, level3 }) {
        SCOPED_TRACE(modifier);
        m_hands.latch(modifier);
        EXPECT_EQ(send(field), "modifiers_latched");
        EXPECT_EQ(m_hands.sticking(), modifier);
        m_hands.latch(0);
        m_hands.lock(modifier);
        EXPECT_EQ(send(field), "modifiers_latched");
        EXPECT_EQ(m_hands.sticking(), modifier);
        m_hands.lock(0);
    }
    for (const unsigned locks : { capsLock, numLock, capsLock | numLock }) {
        SCOPED_TRACE(locks);
        m_hands.lock(locks);
        expectPaste(field);
        EXPECT_EQ(m_hands.sticking(), locks);
    }
}

TEST_F(X11PasteKeystrokeTest, slowKeysWouldLoseIt)
{
    const Program program(QStringLiteral("mousepad"), {});
    const auto field = fieldOf(program);
    m_hands.slowKeys(true);
    EXPECT_EQ(send(field), "slow_keys");
    m_hands.slowKeys(false);
    expectPaste(field);
}

TEST_F(X11PasteKeystrokeTest, aLockedSessionGetsNothing)
{
    const Program program(QStringLiteral("mousepad"), {});
    const auto field = fieldOf(program);
    m_session.isLocked = true;
    expectNothing(field, "session_locked");
}

TEST_F(X11PasteKeystrokeTest, anotherWindowThatHasTheKeysByNowGetsNothing)
{
    const Program program(QStringLiteral("mousepad"), {});
    const auto field = fieldOf(program);
    const PlainWindow window;
    valueOf(m_keystroke.keysReleased());
    window.takeFocus();
    EXPECT_EQ(valueOf(m_keystroke.send(*field.element)), "app_changed");
    // The window manager still calls the other one active.
    expectNothing(field, "app_changed");
}

TEST_F(X11PasteKeystrokeTest, whoeverHeldAKeyGetsAMomentInWhichWindowsAreChanged)
{
    const Key key = m_hands.key("Alt_L");
    m_hands.down(key);
    std::optional<double> came;
    TaskScope scope;
    scope.spawn([](X11PasteKeystroke& keystroke, Clock& clock, auto& at) -> Task<> {
        co_await keystroke.keysReleased();
        at = clock.uptime();
    }(m_keystroke, m_clock, came));
    const double letGo = m_clock.uptime();
    m_hands.up(key);
    EXPECT_TRUE(until([&] { return came.has_value(); }));
    EXPECT_GE(*came - letGo, 0.15);
}

TEST_F(X11PasteKeystrokeTest, nobodyTakesItForTheUsersKeys)
{
    X11KeyMonitor monitor(m_sent, m_clock);
    int events = 0;
    const Program program(QStringLiteral("mousepad"), {});
    const auto field = fieldOf(program);
    ASSERT_TRUE(monitor.start(GestureKey::rightControl, [&](const KeyEvent&) { ++events; }));
    expectPaste(field);
    EXPECT_EQ(events, 0);
    m_hands.tap(m_hands.key("x"));
    EXPECT_TRUE(until([&] { return events == 1; }));
}

TEST_F(X11PasteKeystrokeTest, waitsForTheUserToLetGo)
{
    valueOf(m_keystroke.keysReleased()); // nothing is held: at once
    const Key space = m_hands.key("space"), super = m_hands.key("Super_L");
    m_hands.down(super);
    m_hands.down(space);
    bool released = false;
    TaskScope scope;
    scope.spawn([](X11PasteKeystroke& keystroke, bool& done) -> Task<> {
        co_await keystroke.keysReleased();
        done = true;
    }(m_keystroke, released));
    m_hands.up(space);
    EXPECT_FALSE(released);
    m_hands.up(super);
    EXPECT_TRUE(until([&] { return released; }));
}

TEST_F(X11PasteKeystrokeTest, doesNotWaitForEver)
{
    const Key space = m_hands.key("space");
    m_hands.down(space);
    QElapsedTimer time;
    time.start();
    valueOf(m_keystroke.keysReleased());
    EXPECT_LT(time.elapsed(), 1'500);
    EXPECT_TRUE(m_hands.isDown(space));
}

TEST_F(X11PasteKeystrokeTest, takesLittleTime)
{
    const Program program(QStringLiteral("mousepad"), {});
    const auto field = fieldOf(program);
    QElapsedTimer time;
    time.start();
    valueOf(m_keystroke.keysReleased());
    const auto sent = m_keystroke.send(*field.element);
    std::printf(
        "[ measured ] the caller of send waits %.2f ms\n", double(time.nsecsElapsed()) / 1e6);
    EXPECT_EQ(valueOf(sent), std::nullopt);
    EXPECT_TRUE(until([&] { return timesPasted() == 1; }));
}

} // namespace
} // namespace vesko
