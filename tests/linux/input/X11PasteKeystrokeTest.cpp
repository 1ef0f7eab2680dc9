#include "VeskoLinux/input/X11PasteKeystroke.h"

#include "VeskoApp/async/QtClock.h"
#include "VeskoLinux/accessibility/AtspiFocusedField.h"
#include "VeskoLinux/input/X11KeyMonitor.h"
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
    void expectPaste(const FieldReading& field)
    {
        const int before = timesPasted();
        EXPECT_TRUE(valueOf(m_keystroke.send(*field.element)));
        EXPECT_TRUE(until([&] { return timesPasted() == before + 1; }));
    }

    QtClock m_clock;
    SentKeys m_sent{ m_clock };
    Hands m_hands;
    AtspiFocusedField m_field;
    X11PasteKeystroke m_keystroke{ m_sent, m_clock };
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

TEST_F(X11PasteKeystrokeTest, aHeldKeyDoesNotMakeItAnotherShortcut)
{
    const Program program(QStringLiteral("mousepad"), {});
    const auto field = fieldOf(program);
    for (const char* name : { "Super_L", "Shift_L", "Control_L", "Alt_L", "space" }) {
        SCOPED_TRACE(name);
        m_hands.down(m_hands.key(name));
        expectPaste(field);
        EXPECT_FALSE(m_hands.isDown(m_hands.key(name))) << "let go, and not pressed again";
        m_hands.up(m_hands.key(name));
    }
}

TEST_F(X11PasteKeystrokeTest, aHeldShortcutGivesTheKeysBackToTheField)
{
    const Grab shortcut(m_hands.key("space"), desktop::shift | desktop::super);
    const Program program(QStringLiteral("mousepad"), {});
    const auto field = fieldOf(program);
    for (const char* name : { "Super_L", "Shift_L", "space" })
        m_hands.down(m_hands.key(name));
    EXPECT_TRUE(shortcut.pressed());
    expectPaste(field);
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
    const auto sent = m_keystroke.send(*field.element);
    std::printf(
        "[ measured ] the caller of send waits %.2f ms\n", double(time.nsecsElapsed()) / 1e6);
    EXPECT_TRUE(valueOf(sent));
    EXPECT_TRUE(until([&] { return timesPasted() == 1; }));
}

} // namespace
} // namespace vesko
