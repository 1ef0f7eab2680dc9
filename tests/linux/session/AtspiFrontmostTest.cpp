// Who is in front where no window server tells.

#include "VeskoApp/async/QtClock.h"
#include "VeskoLinux/accessibility/AtspiFocusedField.h"
#include "tests/linux/Desktop.h"

#include <gtest/gtest.h>
#include <signal.h>

namespace vesko {
namespace {

using namespace desktop;

class AtspiFrontmostTest : public testing::Test {
protected:
    // What hides this program from the desktop is not for those that it starts.
    AtspiFrontmostTest() { qunsetenv("QT_QPA_PLATFORM"); }

    FieldReading read() { return valueOf(m_field.read({})); }

    bool comesToFront(const Program& program)
    {
        return until([&] {
            const auto reading = read();
            return reading.frontmost == program.pid() && reading.seesFrontmost && reading.element
                && reading.selection;
        });
    }

    static void raise(const Program& program)
    {
        Program tool(
            QStringLiteral("swaymsg"), { QStringLiteral("[pid=%1] focus").arg(program.pid()) });
        EXPECT_TRUE(until([&] { return tool.ended(); }));
    }

    // Without a keyboard the compositor gives no window the focus.
    Program m_keyboard{ QStringLiteral("/usr/bin/python3"),
        { QStringLiteral("-c"),
            QStringLiteral("import sys; sys.path.insert(0, '%1'); from lib import hands;"
                           " hands.plug_in(); sys.stdin.read()")
                .arg(QStringLiteral(VESKO_HANDS)) } };
    QtClock m_clock;
    AtspiFocusedField m_field{ m_clock, AtspiFocusedField::Windows::accessibility };
};

TEST_F(AtspiFrontmostTest, isUnknownWithoutAWindow)
{
    EXPECT_TRUE(until([&] { return read().trusted; }));
    EXPECT_FALSE(read().frontmost);
    EXPECT_FALSE(read().seesFrontmost);
}

TEST_F(AtspiFrontmostTest, followsTheUserFromWindowToWindow)
{
    const Program gtk(QStringLiteral("mousepad"),
        { QStringLiteral("--disable-server"), fileWith(QStringLiteral("one")) });
    EXPECT_TRUE(comesToFront(gtk));
    Program qt(QStringLiteral("featherpad"),
        { QStringLiteral("--standalone"), fileWith(QStringLiteral("two")) });
    EXPECT_TRUE(comesToFront(qt));
    raise(gtk);
    EXPECT_TRUE(comesToFront(gtk));
    raise(qt);
    EXPECT_TRUE(comesToFront(qt));
    qt.end();
    EXPECT_TRUE(comesToFront(gtk));
}

TEST_F(AtspiFrontmostTest, isFoundIfItWasThereBefore)
{
    const Program editor(QStringLiteral("mousepad"),
        { QStringLiteral("--disable-server"), fileWith(QStringLiteral("one")) });
    EXPECT_TRUE(comesToFront(editor));
    AtspiFocusedField later{ m_clock, AtspiFocusedField::Windows::accessibility };
    EXPECT_TRUE(until([&] {
        const auto reading = valueOf(later.read({}));
        return reading.frontmost == editor.pid() && reading.element;
    }));
}

TEST_F(AtspiFrontmostTest, aWindowThatWentWithoutAWordIsNotInFront)
{
    const Program editor(QStringLiteral("mousepad"),
        { QStringLiteral("--disable-server"), fileWith(QStringLiteral("one")) });
    EXPECT_TRUE(comesToFront(editor));
    const Program passing(QStringLiteral("/usr/bin/python3"),
        { QStringLiteral(VESKO_HANDS "/services/gtk4_passing_window.py") });
    EXPECT_TRUE(comesToFront(passing));
    kill(passing.pid(), SIGUSR1);
    EXPECT_TRUE(comesToFront(editor));
}

TEST_F(AtspiFrontmostTest, isUnknownWhileTwoProgramsSayThatItIsThem)
{
    const Program editor(QStringLiteral("mousepad"),
        { QStringLiteral("--disable-server"), fileWith(QStringLiteral("one")) });
    EXPECT_TRUE(comesToFront(editor));
    // A window that hangs can't say that it is no longer in front.
    kill(editor.pid(), SIGSTOP);
    const Program other(QStringLiteral("featherpad"),
        { QStringLiteral("--standalone"), fileWith(QStringLiteral("two")) });
    EXPECT_TRUE(until([&] { return !read().seesFrontmost; }));
    EXPECT_FALSE(read().frontmost);
    kill(editor.pid(), SIGCONT);
    EXPECT_TRUE(comesToFront(other));
}

} // namespace
} // namespace vesko
