#include "VeskoLinux/input/X11GlobalShortcut.h"

#include "tests/linux/Desktop.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

class X11GlobalShortcutTest : public testing::Test {
protected:
    void press() const { hands.chord({ super, shift, space }); }
    // How often it fired, once an other grab of ours has seen a later key.
    int presses()
    {
        press();
        const int before = fired;
        EXPECT_TRUE(desktop::until([&] { return fired > before; }));
        return fired - 1;
    }

    X11GlobalShortcut shortcut;
    int fired = 0;
    std::function<void()> fire = [this] { ++fired; };
    desktop::Hands hands;
    desktop::Key super = hands.key("Super_L"), shift = hands.key("Shift_L"),
                 space = hands.key("space");
};

TEST_F(X11GlobalShortcutTest, FiresForEachPress)
{
    ASSERT_TRUE(shortcut.install(fire));
    press();
    press();
    EXPECT_EQ(presses(), 2);
}

TEST_F(X11GlobalShortcutTest, FiresWhicheverLocksAreOn)
{
    ASSERT_TRUE(shortcut.install(fire));
    for (const char* lock : { "Caps_Lock", "Num_Lock" }) {
        SCOPED_TRACE(lock);
        hands.tap(hands.key(lock));
        const int before = fired;
        press();
        EXPECT_TRUE(desktop::until([&] { return fired == before + 1; }));
        hands.tap(hands.key(lock));
    }
}

TEST_F(X11GlobalShortcutTest, MeansTheWholeShortcutOnly)
{
    ASSERT_TRUE(shortcut.install(fire));
    hands.chord({ super, space });
    hands.chord({ shift, space });
    hands.tap(space);
    EXPECT_EQ(presses(), 0);
}

TEST_F(X11GlobalShortcutTest, AHeldShortcutIsOnePress)
{
    ASSERT_TRUE(shortcut.install(fire));
    hands.down(super);
    hands.down(shift);
    hands.down(space);
    // The modifiers may come up before the key.
    hands.up(super);
    hands.up(shift);
    hands.up(space);
    EXPECT_EQ(presses(), 1);
}

TEST_F(X11GlobalShortcutTest, IsNotToBeHadWhileAnotherProgramHasIt)
{
    {
        const desktop::Grab other(space, desktop::super | desktop::shift);
        EXPECT_FALSE(shortcut.install(fire));
    }
    ASSERT_TRUE(desktop::until([&] { return shortcut.install(fire); }));
    EXPECT_EQ(presses(), 0);
}

TEST_F(X11GlobalShortcutTest, IsFreeForOthersAfterItsRemoval)
{
    ASSERT_TRUE(shortcut.install(fire));
    shortcut.remove();
    X11GlobalShortcut other;
    EXPECT_TRUE(other.install([] { }));
}

} // namespace
} // namespace vesko
