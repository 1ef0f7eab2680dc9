#include "VeskoLinux/gnome/GnomeShortcut.h"

#include "tests/linux/Desktop.h"

#include <QProcess>

#include <gtest/gtest.h>

namespace vesko {
namespace {

const auto schema = QStringLiteral("org.gnome.settings-daemon.plugins.media-keys");
const auto folder
    = QStringLiteral("/org/gnome/settings-daemon/plugins/media-keys/custom-keybindings/");

// What other programs read and write there.
QString gsettings(const QStringList& arguments)
{
    QProcess tool;
    tool.start(QStringLiteral("gsettings"), arguments);
    EXPECT_TRUE(tool.waitForFinished());
    EXPECT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().toStdString();
    return QString::fromUtf8(tool.readAllStandardOutput()).trimmed();
}

QString list()
{
    return gsettings({ QStringLiteral("get"), schema, QStringLiteral("custom-keybindings") });
}

QString ours(const char* key)
{
    return gsettings({ QStringLiteral("get"),
        schema + QStringLiteral(".custom-keybinding:") + folder + QStringLiteral("vesko/"),
        QString::fromLatin1(key) });
}

void makeUsersOwn(const char* keys, const char* command)
{
    const auto path = folder + QStringLiteral("custom0/");
    const auto at = schema + QStringLiteral(".custom-keybinding:") + path;
    const auto set = QStringLiteral("set");
    gsettings({ set, at, QStringLiteral("binding"), QString::fromLatin1(keys) });
    gsettings({ set, at, QStringLiteral("command"), QString::fromLatin1(command) });
    gsettings(
        { set, schema, QStringLiteral("custom-keybindings"), QStringLiteral("['%1']").arg(path) });
}

class GnomeShortcutTest : public testing::Test {
protected:
    GnomeShortcutTest() { qputenv("GSETTINGS_BACKEND", "keyfile"); } // which others see
    ~GnomeShortcutTest() override
    {
        m_shortcut.remove();
        gsettings({ QStringLiteral("reset"), schema, QStringLiteral("custom-keybindings") });
        EXPECT_TRUE(comesToBe(""));
    }

    // Another program's change is heard of a little later.
    static bool comesToBe(const std::string& keys)
    {
        return desktop::until([&] { return GnomeShortcut::boundKeys() == keys; });
    }

    GnomeShortcut m_shortcut{ "/opt/the program/vesko" };
};

TEST_F(GnomeShortcutTest, isThereOnceItIsAddedAndGoneOnceItIsRemoved)
{
    EXPECT_EQ(m_shortcut.keys(), "");
    EXPECT_EQ(m_shortcut.suggestion(), "Super+Alt+Space");

    EXPECT_TRUE(m_shortcut.add());
    EXPECT_EQ(m_shortcut.keys(), "Super+Alt+Space");
    EXPECT_EQ(GnomeShortcut::boundKeys(), "Super+Alt+Space");
    EXPECT_EQ(list().toStdString(), "['" + folder.toStdString() + "vesko/']");
    EXPECT_EQ(ours("binding").toStdString(), "'<Super><Alt>space'");
    EXPECT_EQ(ours("command").toStdString(), "\"'/opt/the program/vesko' --toggle\"");

    m_shortcut.remove();
    EXPECT_EQ(m_shortcut.keys(), "");
    EXPECT_EQ(list().toStdString(), "@as []");
    EXPECT_EQ(ours("command").toStdString(), "''");
}

TEST_F(GnomeShortcutTest, leavesTheUsersOwnAlone)
{
    makeUsersOwn("<Primary>F9", "vesko --press");
    EXPECT_TRUE(comesToBe("Ctrl+F9"));
    EXPECT_TRUE(m_shortcut.add());
    EXPECT_TRUE(m_shortcut.add()); // again is no second one
    EXPECT_EQ(list().toStdString(),
        "['" + folder.toStdString() + "custom0/', '" + folder.toStdString() + "vesko/']");
    m_shortcut.remove();
    EXPECT_EQ(list().toStdString(), "['" + folder.toStdString() + "custom0/']");
}

TEST_F(GnomeShortcutTest, takesNoKeysOfTheUsersOwn)
{
    makeUsersOwn("<Super><Alt>space", "vesko --start");
    EXPECT_TRUE(comesToBe("Super+Alt+Space"));
    EXPECT_FALSE(m_shortcut.add());
    EXPECT_EQ(m_shortcut.keys(), "");
}

TEST_F(GnomeShortcutTest, knowsOneThatTheUserHasMade)
{
    makeUsersOwn("<Primary>F9", "vesko --toggle");
    EXPECT_TRUE(comesToBe("Ctrl+F9"));
    EXPECT_EQ(m_shortcut.keys(), "");
}

} // namespace
} // namespace vesko
