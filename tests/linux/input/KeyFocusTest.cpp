#include "VeskoLinux/input/KeyFocus.h"

#include "VeskoLinux/input/X11Connection.h"
#include "tests/linux/Desktop.h"

#include <gtest/gtest.h>

#include <cstring>

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

// What a window manager writes on the root of the screen and, while it lives, on a window of its
// own.
class Account {
public:
    explicit Account(const X11Connection& connection)
        : m_connection(connection)
    {
    }

    void write(std::uint32_t window, const char* name, std::uint32_t value) const
    {
        const auto atom = fromX11(xcb_intern_atom_reply(m_connection,
            xcb_intern_atom(m_connection, 0, std::uint16_t(std::strlen(name)), name), nullptr));
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, atom->atom,
            XCB_ATOM_WINDOW, 32, 1, &value);
        xcb_flush(m_connection);
    }
    void tellActive(std::uint32_t window) const
    {
        write(m_connection.root(), "_NET_ACTIVE_WINDOW", window);
    }
    void nameManager(std::uint32_t window) const
    {
        write(m_connection.root(), "_NET_SUPPORTING_WM_CHECK", window);
    }

private:
    const X11Connection& m_connection;
};

TEST(KeyFocusWithoutAWindowManager, isNotWhatOneThatEndedLeftBehind)
{
    const NestedServer nested;
    const auto connection = nested.make<X11Connection>();
    const Account account(*connection);
    const auto window = nested.make<PlainWindow>();
    const auto other = nested.make<PlainWindow>();
    window->takeFocus();
    account.tellActive(std::uint32_t(other->id()));
    EXPECT_TRUE(keyFocus(*connection).settled) << "no window manager names itself";

    constexpr std::uint32_t gone = 0x12345;
    account.nameManager(gone);
    EXPECT_TRUE(keyFocus(*connection).settled) << "its window is gone";

    account.nameManager(std::uint32_t(other->id()));
    EXPECT_TRUE(keyFocus(*connection).settled) << "its window's number is another program's now";

    account.write(std::uint32_t(other->id()), "_NET_SUPPORTING_WM_CHECK", gone);
    EXPECT_TRUE(keyFocus(*connection).settled) << "that window names another one";
    EXPECT_EQ(keyFocus(*connection).active, std::nullopt);

    account.write(
        std::uint32_t(other->id()), "_NET_SUPPORTING_WM_CHECK", std::uint32_t(other->id()));
    EXPECT_EQ(keyFocus(*connection).active, other->id()) << "this one lives";
    EXPECT_FALSE(keyFocus(*connection).settled);
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
