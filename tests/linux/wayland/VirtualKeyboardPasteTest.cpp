#include "VeskoLinux/wayland/VirtualKeyboardPaste.h"

#include "tests/fakes/FakeSessionState.h"
#include "tests/linux/Desktop.h"

#include <QFile>

#include <gtest/gtest.h>

namespace vesko {
namespace {

using namespace desktop;

class Field final : public FieldElement {
public:
    explicit Field(bool terminal)
        : m_terminal(terminal)
    {
    }
    bool equals(const FieldElement&) const override { return true; }
    bool isTerminal() const override { return m_terminal; }

private:
    bool m_terminal;
};

// What the compositor makes of the keys is noted in a file, a letter a time.
class Noted {
public:
    Noted(const QString& keys, const QString& letter)
    {
        Program tool(QStringLiteral("swaymsg"),
            { QStringLiteral("bindsym %1 exec printf %2 >>%3").arg(keys, letter, m_file) });
        EXPECT_TRUE(until([&] { return tool.ended(); }));
    }
    QByteArray letters() const
    {
        QFile file(m_file);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QString m_file = fileWith(QString());
};

TEST(VirtualKeyboardPaste, typesNothingWhereNobodyHasAKeyboard)
{
    WaylandConnection connection;
    FakeSessionState session;
    ASSERT_TRUE(VirtualKeyboardPaste::offered(connection));
    VirtualKeyboardPaste paste(connection, session);
    EXPECT_TRUE(valueOf(connection.done()));
    EXPECT_EQ(valueOf(paste.send(Field(false))), "event_failed");
}

TEST(VirtualKeyboardPaste, typesTheShortcutOnceBesideTheKeysThatTheUserHolds)
{
    const Noted plain(QStringLiteral("Control+v"), QStringLiteral("v"));
    const Noted shifted(QStringLiteral("Control+Shift+v"), QStringLiteral("V"));
    const Program users(QStringLiteral("/usr/bin/python3"),
        { QStringLiteral("-c"),
            QStringLiteral("import sys; sys.path.insert(0, '%1'); from lib import hands;"
                           " hands.press('super'); hands.press('left alt'); sys.stdin.read()")
                .arg(QStringLiteral(VESKO_HANDS)) });
    WaylandConnection connection;
    FakeSessionState session;
    VirtualKeyboardPaste paste(connection, session);
    EXPECT_TRUE(until([&] { return !valueOf(paste.send(Field(false))); }));
    EXPECT_TRUE(until([&] { return plain.letters() == "v"; }));
    EXPECT_EQ(valueOf(paste.send(Field(true))), std::nullopt);
    EXPECT_TRUE(until([&] { return shifted.letters() == "V"; }));
    session.isLocked = true;
    EXPECT_EQ(paste.keyboardTaken(), "session_locked");
    EXPECT_EQ(valueOf(paste.send(Field(false))), "session_locked");
    session.isLocked = false;
    EXPECT_EQ(paste.keyboardTaken(), std::nullopt);
    EXPECT_EQ(valueOf(paste.send(Field(false))), std::nullopt);
    EXPECT_TRUE(until([&] { return plain.letters() == "vv"; }));
    EXPECT_EQ(shifted.letters(), "V");
}

} // namespace
} // namespace vesko
