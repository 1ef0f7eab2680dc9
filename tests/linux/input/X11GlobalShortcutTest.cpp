#include "VeskoLinux/input/X11GlobalShortcut.h"

#include "VeskoLinux/input/X11Connection.h"
#include "tests/linux/Desktop.h"

#include <gtest/gtest.h>

#include <vector>

namespace vesko {
namespace {

using namespace desktop;

class X11GlobalShortcutTest : public testing::Test {
protected:
    X11GlobalShortcutTest() { setLayouts("us,ru,gr"); }
    ~X11GlobalShortcutTest() override
    {
        m_hands.layout(0);
        m_hands.locks(0);
    }

    bool install()
    {
        return m_shortcut.install({}, [this] { ++m_presses; });
    }
    void press() const
    {
        rest();
        m_hands.chord({ m_super, m_shift, m_space });
    }
    void expectPresses(int expected)
    {
        EXPECT_TRUE(until([&] { return m_presses >= expected; }));
        EXPECT_EQ(m_presses, expected);
    }

    Hands m_hands;
    const Key m_super = m_hands.key("Super_L"), m_shift = m_hands.key("Shift_L"),
              m_space = m_hands.key("space");
    int m_presses = 0;
    X11GlobalShortcut m_shortcut;
};

TEST_F(X11GlobalShortcutTest, knowsKeysByTheirPlaceAndByWhatIsOnThem)
{
    const struct {
        const char* symbol;
        const char* place;
        const char* name;
    } cases[] = {
        { "d", "AC03", "D" },
        { "1", "AE01", "1" },
        { "comma", "AB08", "," },
        { "space", "SPCE", "" },
        { "F6", "FK06", "" },
        { "Home", "HOME", "" },
    };
    for (const int layout : { 0, 1 }) {
        m_hands.layout(layout);
        for (const auto& one : cases) {
            SCOPED_TRACE(one.symbol);
            const auto key = m_shortcut.keyAt(m_hands.key(one.symbol));
            ASSERT_TRUE(key);
            EXPECT_EQ(key->place, one.place);
            EXPECT_EQ(key->name, one.name);
        }
    }
    EXPECT_FALSE(m_shortcut.keyAt(m_shift)) << "it makes combinations of others";
    EXPECT_FALSE(m_shortcut.keyAt(5000));
}

TEST_F(X11GlobalShortcutTest, isPressedInEveryLayoutAndWithEveryLock)
{
    ASSERT_TRUE(install());
    const Program editor(QStringLiteral("zenity"), { QStringLiteral("--entry") });
    int expected = 0;
    for (const int layout : { 0, 1, 2 }) {
        for (const unsigned locks : { 0U, capsLock, numLock, capsLock | numLock }) {
            SCOPED_TRACE(testing::Message() << "layout " << layout << ", locks " << locks);
            m_hands.layout(layout);
            m_hands.locks(locks);
            press();
            expectPresses(++expected);
        }
    }
}

TEST_F(X11GlobalShortcutTest, otherCombinationsAreNotTheShortcut)
{
    ASSERT_TRUE(install());
    const Key control = m_hands.key("Control_L");
    m_hands.chord({ m_super, m_space });
    m_hands.chord({ m_shift, m_space });
    m_hands.chord({ control, m_super, m_shift, m_space });
    press();
    expectPresses(1);
}

TEST_F(X11GlobalShortcutTest, modifiersMayBeLetGoBeforeTheKey)
{
    ASSERT_TRUE(install());
    for (int expected = 1; expected <= 2; ++expected) {
        rest();
        for (const Key key : { m_super, m_shift, m_space })
            m_hands.down(key);
        for (const Key key : { m_super, m_shift, m_space })
            m_hands.up(key);
        expectPresses(expected);
    }
}

TEST_F(X11GlobalShortcutTest, anotherProgramsShortcutIsLeftToIt)
{
    // With one state of the locks is enough: the shortcut would be there now and then only.
    for (const unsigned locks : { 0U, capsLock, numLock, capsLock | numLock }) {
        SCOPED_TRACE(locks);
        m_hands.locks(locks);
        {
            const Grab other(m_space, desktop::shift | desktop::super | locks);
            EXPECT_FALSE(install());
            press();
            EXPECT_TRUE(until([&] { return other.pressed(); }));
            // Nothing was kept of what could be had.
            X11GlobalShortcut third;
            EXPECT_FALSE(third.install({}, [] { }));
        }
        EXPECT_TRUE(until([this] { return install(); })) << "it is free again";
        m_shortcut.remove();
    }
    EXPECT_EQ(m_presses, 0);
}

TEST_F(X11GlobalShortcutTest, aShortcutOfTheOtherKindIsAnotherProgramsToo)
{
    for (const unsigned locks : { 0U, capsLock, numLock, capsLock | numLock }) {
        SCOPED_TRACE(locks);
        m_hands.locks(locks);
        {
            const Grab other(
                m_space, desktop::shift | desktop::super | locks, Grab::Kind::extension);
            EXPECT_FALSE(install());
            press();
            EXPECT_TRUE(until([&] { return other.pressed(); }));
        }
        EXPECT_TRUE(until([this] { return install(); })) << "it is free again";
        m_shortcut.remove();
    }
    EXPECT_EQ(m_presses, 0);
}

TEST_F(X11GlobalShortcutTest, nobodyTakesItAwayLater)
{
    ASSERT_TRUE(install());
    const Grab core(m_space, desktop::shift | desktop::super);
    const Grab extension(m_space, desktop::shift | desktop::super, Grab::Kind::extension);
    EXPECT_FALSE(core.works());
    EXPECT_FALSE(extension.works());
    press();
    expectPresses(1);
}

TEST_F(X11GlobalShortcutTest, anyCombinationOfModifiersAndAKeyCanBeIt)
{
    struct Case {
        const char* name;
        KeyCombination combination;
        std::vector<const char*> keys;
    };
    const Case cases[] = {
        { "Control+Alt+D", { true, true, false, false, "AC03" }, { "Control_L", "Alt_L", "d" } },
        { "Super+F9", { false, false, false, true, "FK09" }, { "Super_L", "F9" } },
        { "Pause alone", { false, false, false, false, "PAUS" }, { "Pause" } },
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        m_presses = 0;
        ASSERT_TRUE(m_shortcut.install(one.combination, [this] { ++m_presses; }));
        press(); // the one that it was before
        rest();
        for (const char* key : one.keys)
            m_hands.down(m_hands.key(key));
        for (const char* key : one.keys)
            m_hands.up(m_hands.key(key));
        expectPresses(1);
    }
    EXPECT_FALSE(m_shortcut.install({ .key = "NONE" }, [] { })) << "the keyboard has no such key";
}

TEST_F(X11GlobalShortcutTest, tellsWhatIsHeldUntilItsKeyIsLetGo)
{
    ASSERT_TRUE(install());
    EXPECT_FALSE(m_shortcut.held());
    for (const Key key : { m_super, m_shift, m_space })
        m_hands.down(key);
    expectPresses(1);
    ASSERT_TRUE(m_shortcut.held());
    EXPECT_EQ(m_shortcut.held()->key, m_space);
    EXPECT_EQ(m_shortcut.held()->modifiers, desktop::shift | desktop::super);
    m_hands.up(m_space);
    EXPECT_TRUE(until([this] { return !m_shortcut.held(); }));
    m_hands.up(m_shift);
    m_hands.up(m_super);
}

TEST_F(X11GlobalShortcutTest, isPressedWhileNoWindowHasTheFocus)
{
    const X11Connection connection;
    const PlainWindow window;
    const auto focus = [&](std::uint32_t on) {
        xcb_set_input_focus(connection, XCB_INPUT_FOCUS_NONE, on, XCB_CURRENT_TIME);
        // The server sees to it before it answers.
        EXPECT_EQ(
            fromX11(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr))
                ->focus,
            on);
    };
    focus(XCB_NONE);
    ASSERT_TRUE(install());
    press();
    expectPresses(1);
    m_hands.tap(m_space);
    m_hands.chord({ m_super, m_space });
    press();
    expectPresses(2);

    window.takeFocus();
    press();
    expectPresses(3);

    focus(XCB_NONE);
    rest();
    press();
    expectPresses(4);
    m_shortcut.remove();
    ASSERT_TRUE(install());
    press();
    expectPresses(5);
}

TEST_F(X11GlobalShortcutTest, removedItIsFreeForOthers)
{
    ASSERT_TRUE(install());
    X11GlobalShortcut other;
    EXPECT_FALSE(other.install({}, [] { }));
    m_shortcut.remove();
    int others = 0;
    EXPECT_TRUE(other.install({}, [&] { ++others; }));
    press();
    EXPECT_TRUE(until([&] { return others == 1; }));
    EXPECT_EQ(m_presses, 0);
}

TEST_F(X11GlobalShortcutTest, mayBeRemovedByThePressItself)
{
    ASSERT_TRUE(m_shortcut.install({}, [this] {
        m_shortcut.remove();
        ++m_presses;
    }));
    press();
    expectPresses(1);
    ASSERT_TRUE(install());
    press();
    expectPresses(2);
}

TEST(X11GlobalShortcutInNestedServer, heldItIsOnePress)
{
    const NestedServer nested;
    const auto shortcut = nested.make<X11GlobalShortcut>();
    int presses = 0;
    ASSERT_TRUE(shortcut->install({}, [&] { ++presses; }));
    RawKeys server(nested.display());
    const Hands hands; // on the outer server, so to speak the hardware
    const Key keys[] = { hands.key("Super_L"), hands.key("Shift_L"), hands.key("space") };
    for (const Key key : keys)
        hands.down(key);
    EXPECT_TRUE(until([&] { return server.presses(keys[2]) >= 10; }));
    EXPECT_EQ(presses, 1);
    for (const Key key : keys)
        hands.up(key);
}

} // namespace
} // namespace vesko
