#include "VeskoLinux/input/KeyFocus.h"

#include "VeskoLinux/input/X11Connection.h"
#include "tests/linux/Desktop.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

using namespace desktop;

TEST(KeyFocus, isTheWindowManagersActiveWindow)
{
    const X11Connection connection;
    const Program editor(QStringLiteral("zenity"), { QStringLiteral("--entry") });
    EXPECT_TRUE(until([&] {
        const KeyFocus focus = keyFocus(connection);
        return focus.settled && focus.active.value_or(0) != 0;
    }));
    const KeyFocus before = keyFocus(connection);
    EXPECT_EQ(before, keyFocus(connection));

    const PlainWindow window; // of which the window manager knows nothing
    window.takeFocus();
    const KeyFocus focus = keyFocus(connection);
    EXPECT_EQ(focus.window, window.id());
    EXPECT_FALSE(focus.settled);
}

TEST(KeyFocusWithoutAWindowManager, isTheWindowWithTheInputFocus)
{
    const NestedServer nested;
    const auto connection = nested.make<X11Connection>();
    const auto window = nested.make<PlainWindow>();
    window->takeFocus();
    const KeyFocus focus = keyFocus(*connection);
    EXPECT_EQ(focus.window, window->id());
    EXPECT_EQ(focus.active, std::nullopt);
    EXPECT_TRUE(focus.settled);
}

TEST(KeyFocusWithoutAWindowManager, isTheWindowUnderThePointerWhereTheFocusFollowsIt)
{
    const NestedServer nested;
    const auto connection = nested.make<X11Connection>();
    const Hands hands(nested.display());
    hands.point(50, 50);
    EXPECT_FALSE(keyFocus(*connection).settled) << "no window is there";
    const auto window = nested.make<PlainWindow>();
    const KeyFocus focus = keyFocus(*connection);
    EXPECT_EQ(focus.window, window->id());
    EXPECT_TRUE(focus.settled);
    hands.point(300, 250);
    EXPECT_FALSE(keyFocus(*connection).settled);
}

} // namespace
} // namespace vesko
