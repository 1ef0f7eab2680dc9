#include "VeskoLinux/accessibility/AtspiFocusedField.h"

#include "VeskoApp/async/QtClock.h"
#include "VeskoLinux/accessibility/AtspiElement.h"
#include "tests/linux/Desktop.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QElapsedTimer>
#include <QFile>

#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace vesko {
namespace {

using namespace desktop;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// GTK 4 doesn't say of a line that it is one.
bool isOfAField(const std::optional<std::string>& role)
{
    return role == "AXTextField" || role == "AXTextArea";
}

// A window of the desktop tests.
QString service(const char* name)
{
    return text(SERVICES "/") + text(name);
}

void switchAccessibility(bool on)
{
    auto request = QDBusMessage::createMethodCall(text("org.a11y.Bus"), text("/org/a11y/bus"),
        text("org.freedesktop.DBus.Properties"), text("Set"));
    request << text("org.a11y.Status") << text("IsEnabled")
            << QVariant::fromValue(QDBusVariant(on));
    EXPECT_EQ(QDBusConnection::sessionBus().call(request).type(), QDBusMessage::ReplyMessage);
}

void endAccessibilityBus()
{
    auto* const session = QDBusConnection::sessionBus().interface();
    const auto process = session->servicePid(text("org.a11y.Bus")).value();
    ASSERT_GT(process, 0U);
    ASSERT_EQ(kill(pid_t(process), SIGKILL), 0);
    ASSERT_TRUE(
        until([&] { return session->servicePid(text("org.a11y.Bus")).value() != process; }));
}

bool accessibilityBusStarts()
{
    const auto asked = QDBusMessage::createMethodCall(
        text("org.a11y.Bus"), text("/org/a11y/bus"), text("org.a11y.Bus"), text("GetAddress"));
    return QDBusConnection::sessionBus().call(asked).type() == QDBusMessage::ReplyMessage;
}

void reloadServices()
{
    QDBusConnection::sessionBus().call(QDBusMessage::createMethodCall(text("org.freedesktop.DBus"),
        text("/org/freedesktop/DBus"), text("org.freedesktop.DBus"), text("ReloadConfig")));
}

class AtspiFocusedFieldTest : public testing::Test {
protected:
    AtspiFocusedFieldTest()
    {
        EXPECT_TRUE(until([this] { return m_field.read(1), read().trusted; }));
    }

    FieldReading read(std::optional<std::int32_t> process = {})
    {
        return valueOf(m_field.read(process));
    }

    // Reads until the program has a field in the active window.
    FieldReading fieldOf(const Program& program)
    {
        FieldReading reading;
        EXPECT_TRUE(until([&] {
            reading = read();
            return reading.frontmost == program.pid() && reading.element && reading.selection;
        }));
        return reading;
    }

    FieldReading readUntil(const std::function<bool(const FieldReading&)>& condition)
    {
        FieldReading reading;
        EXPECT_TRUE(until([&] { return condition(reading = read()); }));
        return reading;
    }

    QtClock m_clock;
    AtspiFocusedField m_field{ m_clock };
    Hands m_hands;
};

bool same(const FieldReading& one, const FieldReading& other)
{
    return one.element && other.element && one.element->equals(*other.element);
}

bool terminal(const FieldReading& reading)
{
    return reading.element->isTerminal();
}

TEST_F(AtspiFocusedFieldTest, readsWhatStandsInAnEditorInUtf16Units)
{
    // Faces outside the first plane, combining marks, right-to-left text and line ends.
    QString written;
    while (written.size() < 8'000)
        written += text("one 😀 line, e\u0301 שלום, 👩‍👩‍👧 and an end\n");
    for (const char* editor : { "mousepad", "featherpad" }) {
        SCOPED_TRACE(editor);
        const Program program(text(editor), { fileWith(written) });
        const auto first = fieldOf(program);
        EXPECT_TRUE(first.trusted);
        EXPECT_EQ(first.role, "AXTextArea");
        EXPECT_EQ(first.subrole, std::nullopt);
        EXPECT_FALSE(terminal(first));
        EXPECT_EQ(first.selection, (TextRange{ 0, 0 }));

        m_hands.chord({ m_hands.key("Control_L"), m_hands.key("End") });
        const auto last = readUntil(
            [&](const auto& reading) { return reading.selection && reading.selection->location; });
        EXPECT_TRUE(same(first, last));
        ASSERT_TRUE(last.value);
        const auto value = QString::fromStdString(*last.value);
        EXPECT_TRUE(value.startsWith(written.trimmed()));
        EXPECT_EQ(last.selection, (TextRange{ value.size(), 0 }));

        m_hands.chord({ m_hands.key("Control_L"), m_hands.key("a") });
        const auto all = readUntil(
            [&](const auto& reading) { return reading.selection && reading.selection->length; });
        EXPECT_EQ(all.selection, (TextRange{ 0, value.size() }));
    }
}

TEST_F(AtspiFocusedFieldTest, readsOfALongTextJustMoreThanIsWatched)
{
    const Program program(text("mousepad"), { fileWith(QString(100'000, QLatin1Char('x'))) });
    EXPECT_EQ(fieldOf(program).value, std::string(32'769, 'x'));
}

TEST_F(AtspiFocusedFieldTest, neverReadsAPassword)
{
    const Program program(text("zenity"), { text("--password") });
    const auto empty = fieldOf(program);
    m_hands.tap(m_hands.key("s"));
    const auto typed
        = readUntil([&](const auto& reading) { return reading.selection != empty.selection; });
    EXPECT_EQ(typed.subrole, "AXSecureTextField");
    EXPECT_TRUE(isOfAField(typed.role));
    EXPECT_EQ(typed.value, std::nullopt);
}

TEST_F(AtspiFocusedFieldTest, neverReadsLettersThatAreHidden)
{
    const Program program(text("/usr/bin/python3"), { service("gtk4_window.py") });
    const auto line = fieldOf(program);
    EXPECT_TRUE(line.focused);
    m_hands.tap(m_hands.key("Tab"));
    readUntil([&](const auto& reading) { return reading.selection && !same(line, reading); });
    m_hands.tap(m_hands.key("s"));
    const auto hidden = readUntil([&](const auto& reading) { return reading.subrole.has_value(); });
    EXPECT_EQ(hidden.subrole, "AXSecureTextField");
    EXPECT_EQ(hidden.value, std::nullopt);
    // A field that tells nothing, in libadwaita 1.2 not even that it has the focus.
    m_hands.tap(m_hands.key("Tab"));
    readUntil([&](const auto& reading) { return reading.trusted && !same(hidden, reading); });
    m_hands.tap(m_hands.key("s"));
    const auto nothing
        = readUntil([&](const auto& reading) { return !reading.element || reading.subrole; });
    EXPECT_TRUE(nothing.elements);
    EXPECT_EQ(nothing.focused, nothing.element != nullptr);
    EXPECT_EQ(nothing.value, std::nullopt);
}

TEST_F(AtspiFocusedFieldTest, aTerminalThatHidesWhatIsTypedIsAPassword)
{
    const Program program(text("xfce4-terminal"),
        { text("--disable-server"), text("--execute"), text("sh"), text("-c"),
            text("read line; stty -echo; read secret; stty echo; read line") });
    const auto before = fieldOf(program);
    EXPECT_EQ(before.subrole, std::nullopt);
    m_hands.tap(m_hands.key("Return"));
    const auto asks
        = readUntil([](const auto& reading) { return reading.subrole == "AXSecureTextField"; });
    EXPECT_EQ(asks.value, std::nullopt);
    m_hands.tap(m_hands.key("Return"));
    readUntil([](const auto& reading) { return reading.element && !reading.subrole; });
}

TEST_F(AtspiFocusedFieldTest, aProgramThatTellsNothingOfItsElementsIsToldApart)
{
    const Program silent(text("xmessage"), { text("nothing is told") });
    const auto reading = readUntil([&](const auto& now) { return now.frontmost == silent.pid(); });
    EXPECT_FALSE(reading.elements);
    EXPECT_EQ(reading.element, nullptr);
}

TEST_F(AtspiFocusedFieldTest, findsAProgramWhoseProcessesAreNumberedApart)
{
    const Program apart(text("unshare"),
        { text("--pid"), text("--fork"), text("--mount-proc"), text("mousepad"),
            text("--disable-server"), fileWith(text("apart")) });
    const auto reading = readUntil([](const auto& now) { return now.value == "apart"; });
    EXPECT_NE(reading.frontmost, apart.pid()) << "the editor is the child";
    EXPECT_TRUE(same(reading, read(reading.frontmost)));
}

TEST_F(AtspiFocusedFieldTest, tellsFieldsOfOneWindowApart)
{
    const Program program(
        text("zenity"), { text("--forms"), text("--add-entry=one"), text("--add-entry=two") });
    const auto first = fieldOf(program);
    EXPECT_TRUE(isOfAField(first.role));
    EXPECT_EQ(first.value, "");
    m_hands.tap(m_hands.key("Tab"));
    const auto second = readUntil(
        [&](const auto& reading) { return reading.selection && !same(first, reading); });
    EXPECT_TRUE(isOfAField(second.role));
    m_hands.chord({ m_hands.key("Shift_L"), m_hands.key("Tab") });
    readUntil([&](const auto& reading) { return same(first, reading); });
}

TEST_F(AtspiFocusedFieldTest, aFocusOutsideFieldsIsNoField)
{
    const Program program(text("zenity"), { text("--forms"), text("--add-entry=one") });
    const auto field = fieldOf(program);
    m_hands.tap(m_hands.key("Tab"));
    const auto button
        = readUntil([&](const auto& reading) { return !same(field, reading) && reading.role; });
    // The newer name is that of AT-SPI 2.54.
    EXPECT_TRUE(button.role == "push button" || button.role == "button") << *button.role;
    EXPECT_EQ(button.value, std::nullopt);
}

TEST_F(AtspiFocusedFieldTest, textToReadIsNotWritable)
{
    const Program program(
        text("zenity"), { text("--text-info"), text("--filename=") + fileWith(text("read me")) });
    auto reading = readUntil([&](const auto& now) {
        if (now.frontmost == program.pid() && now.value != "read me")
            m_hands.tap(m_hands.key("Tab")); // the buttons have the focus first
        return now.value && now.value->starts_with("read me");
    });
    EXPECT_TRUE(reading.role == "text" || reading.role == "text box") << *reading.role; // GTK 4
}

TEST_F(AtspiFocusedFieldTest, knowsATerminal)
{
    const Program program(text("xfce4-terminal"), { text("--disable-server") });
    const auto reading = fieldOf(program);
    EXPECT_EQ(reading.role, "AXTextArea");
    EXPECT_TRUE(terminal(reading));
}

TEST_F(AtspiFocusedFieldTest, readsThePagesOfABrowser)
{
    const auto page = text("<textarea autofocus>area 😀</textarea><input value=line>"
                           "<input type=search value=find><input type=password value=secret>"
                           "<div contenteditable>edit</div>");
    const auto profile = qEnvironmentVariable("SESSION_DIR") + text("/chromium");
    const Program program(text("chromium"),
        { text("--no-sandbox"), text("--force-renderer-accessibility"), text("--no-first-run"),
            text("--disable-gpu"), text("--user-data-dir=") + profile,
            text("data:text/html;charset=utf-8,") + page });
    struct Case {
        const char* name;
        const char* role;
        std::optional<std::string> subrole, value;
    };
    const Case cases[] = {
        { "textarea", "AXTextArea", {}, "area 😀" },
        { "input", "AXTextField", {}, "line" },
        { "search", "AXSearchField", {}, "find" },
        { "password", "AXTextField", "AXSecureTextField", {} },
        { "contenteditable", "AXTextArea", {}, "edit" },
    };
    FieldReading before;
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        const auto reading = readUntil([&](const auto& now) {
            return now.frontmost == program.pid() && now.role == one.role
                && now.subrole == one.subrole && now.value == one.value && now.selection;
        });
        EXPECT_FALSE(same(before, reading));
        before = reading;
        m_hands.tap(m_hands.key("Tab"));
    }
}

TEST_F(AtspiFocusedFieldTest, aHeldShortcutDoesNotTakeTheFieldAway)
{
    const auto space = m_hands.key("space");
    const auto super = m_hands.key("Super_L");
    const auto shift = m_hands.key("Shift_L");
    const Grab grab(space, desktop::shift | desktop::super);
    for (const char* editor : { "mousepad", "featherpad", "gnome-text-editor" }) {
        SCOPED_TRACE(editor);
        const Program program(text(editor), {});
        const auto before = fieldOf(program);
        EXPECT_TRUE(before.focused);
        for (const Key key : { super, shift, space })
            m_hands.down(key);
        // The editor learns of the grab in its own time; the answer must not depend on it.
        for (int time = 0; time < 50; ++time) {
            const auto during = read();
            EXPECT_TRUE(same(before, during));
            EXPECT_EQ(during.selection, before.selection);
            EXPECT_EQ(during.value, before.value);
        }
        for (const Key key : { space, shift, super })
            m_hands.up(key);
        EXPECT_TRUE(same(before, read()));
        EXPECT_TRUE(same(before, fieldOf(program)));
    }
}

TEST_F(AtspiFocusedFieldTest, anotherWindowIsFrontmostAndTheFirstKeepsItsField)
{
    const Program editor(text("mousepad"), {});
    const auto field = fieldOf(editor);
    {
        const Program dialog(text("zenity"), { text("--entry") });
        const auto other = fieldOf(dialog);
        EXPECT_FALSE(same(field, other));
        const auto behind = read(editor.pid());
        EXPECT_EQ(behind.frontmost, dialog.pid());
        EXPECT_TRUE(same(field, behind));
    }
    const auto again = fieldOf(editor);
    EXPECT_TRUE(same(field, again));
}

TEST_F(AtspiFocusedFieldTest, findsAFieldThatHadTheFocusBeforeAnyoneListened)
{
    for (const char* editor : { "mousepad", "featherpad", "gnome-text-editor" }) {
        SCOPED_TRACE(editor);
        const Program program(text(editor), {});
        const auto followed = fieldOf(program);
        AtspiFocusedField later(m_clock);
        FieldReading found;
        EXPECT_TRUE(until([&] { return (found = valueOf(later.read({}))).trusted; }));
        EXPECT_TRUE(same(followed, found));
    }
}

TEST_F(AtspiFocusedFieldTest, aProgramThatEndedHasNoField)
{
    Program program(text("mousepad"), {});
    const auto field = fieldOf(program);
    const auto pid = program.pid();
    program.end();
    const auto reading = read(pid);
    EXPECT_TRUE(reading.trusted);
    EXPECT_EQ(reading.element, nullptr);
    EXPECT_EQ(reading.value, std::nullopt);
}

TEST_F(AtspiFocusedFieldTest, aHungProgramGivesNoFactsAndHoldsNobodyUp)
{
    const Program hung(text("mousepad"), { fileWith(text("hung")) });
    const auto field = fieldOf(hung);
    ASSERT_EQ(kill(hung.pid(), SIGSTOP), 0);
    QElapsedTimer time;
    time.start();
    const auto answer = m_field.read({});
    EXPECT_LT(time.elapsed(), 50) << "asking does not wait";
    const auto reading = valueOf(answer);
    EXPECT_LT(time.elapsed(), 1'500);
    EXPECT_EQ(reading.frontmost, hung.pid());
    EXPECT_EQ(reading.element, nullptr);
    EXPECT_EQ(reading.value, std::nullopt);
    ASSERT_EQ(kill(hung.pid(), SIGCONT), 0);
    EXPECT_TRUE(same(field, fieldOf(hung)));
}

TEST_F(AtspiFocusedFieldTest, isNotTrustedWhileAccessibilityIsOff)
{
    const Program program(text("mousepad"), {});
    const auto before = fieldOf(program);
    switchAccessibility(false);
    readUntil([](const auto& reading) { return !reading.trusted && !reading.element; });
    switchAccessibility(true);
    EXPECT_TRUE(same(before, readUntil([](const auto& reading) { return reading.trusted; })));
}

TEST_F(AtspiFocusedFieldTest, findsTheBusAgainThatEnded)
{
    endAccessibilityBus();
    readUntil([](const auto& reading) { return !reading.trusted; });
    readUntil([](const auto& reading) { return reading.trusted; });
    const Program program(text("mousepad"), {});
    fieldOf(program);
}

TEST_F(AtspiFocusedFieldTest, findsABusThatComesLate)
{
    const QString file
        = qEnvironmentVariable("SESSION_DIR") + text("/services/org.a11y.Bus.service");
    ASSERT_TRUE(QFile::rename(file, file + text(".later")));
    reloadServices();
    endAccessibilityBus();
    AtspiFocusedField early(m_clock);
    EXPECT_FALSE(valueOf(early.read({})).trusted);
    // Nobody can start it: what was asked at the beginning has failed by now.
    EXPECT_FALSE(accessibilityBusStarts());
    EXPECT_FALSE(valueOf(early.read({})).trusted);
    ASSERT_TRUE(QFile::rename(file + text(".later"), file));
    reloadServices();
    EXPECT_TRUE(accessibilityBusStarts());
    EXPECT_TRUE(until([&] { return valueOf(early.read({})).trusted; }));
    const Program program(text("mousepad"), {});
    fieldOf(program);
    EXPECT_TRUE(until([&] { return valueOf(early.read({})).selection.has_value(); }));
}

TEST_F(AtspiFocusedFieldTest, takesLittleTime)
{
    for (const char* editor : { "mousepad", "featherpad" }) {
        const Program program(text(editor), { fileWith(text("a line\n").repeated(50)) });
        fieldOf(program);
        std::vector<double> times, calls;
        for (int count = 0; count < 50; ++count) {
            QElapsedTimer time;
            time.start();
            const auto answer = m_field.read({});
            calls.push_back(double(time.nsecsElapsed()) / 1e6);
            valueOf(answer);
            times.push_back(double(time.nsecsElapsed()) / 1e6);
        }
        std::ranges::sort(times);
        std::ranges::sort(calls);
        std::printf("[ measured ] %s: read %.2f ms (median of 50, longest %.2f), of which the "
                    "caller waits %.2f ms\n",
            editor, times[25], times.back(), calls[25]);
    }
}

} // namespace
} // namespace vesko
