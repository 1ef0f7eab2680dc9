#include "VeskoLinux/accessibility/AtspiFocusedField.h"

#include "VeskoApp/async/QtClock.h"
#include "tests/linux/Desktop.h"
#include "tests/linux/accessibility/ToldProgram.h"

#include <QCoreApplication>

#include <atspi/atspi-constants.h>
#include <gtest/gtest.h>

namespace vesko {
namespace {

using namespace desktop;

// In front is a program with three fields. It answers some questions and not others, as programs do
// on a busy machine.
class BusyProgramTest : public testing::Test {
protected:
    BusyProgramTest()
    {
        m_program.join();
        m_program.focused = 1;
        EXPECT_TRUE(until([this] {
            const auto now = read();
            return now.frontmost == pid && now.element && now.focused && now.value;
        }));
    }

    FieldReading read(std::optional<std::int32_t> process = {})
    {
        return valueOf(m_field.read(process));
    }
    // What has the focus now, with no answer to these questions.
    FieldReading readWithout(std::function<bool(const QDBusMessage&)> question)
    {
        m_program.silent = std::move(question);
        const auto reading = read(pid);
        EXPECT_EQ(reading.frontmost, pid);
        return reading;
    }

    const std::int32_t pid = std::int32_t(QCoreApplication::applicationPid());
    QtClock m_clock;
    ToldProgram m_program;
    AtspiFocusedField m_field{ m_clock, AtspiFocusedField::Windows::accessibility };
};

bool asks(const QDBusMessage& call, const char* member, const char* end = "")
{
    return call.member() == QString::fromLatin1(member) && call.path().endsWith(QLatin1String(end));
}

bool asksFor(const QDBusMessage& call, const char* property)
{
    return call.member() == QStringLiteral("Get")
        && call.arguments().value(1) == QString::fromLatin1(property);
}

TEST_F(BusyProgramTest, aFieldThatLostTheFocusIsLeftWhereAllAnswer)
{
    m_program.focused = -1;
    const auto reading = readWithout([](const auto&) { return false; });
    EXPECT_EQ(reading.element, nullptr);
    EXPECT_TRUE(reading.elements);
}

TEST_F(BusyProgramTest, whatIsAnsweredByHalfIsNoFieldThatIsLeft)
{
    const std::pair<const char*, std::function<bool(const QDBusMessage&)>> cases[]{
        { "what the field is", [](const auto& call) { return asks(call, "GetState", "field1"); } },
        { "what its kind is", [](const auto& call) { return asks(call, "GetRole", "field1"); } },
        { "what any field is", [](const auto& call) { return call.path().contains(u"field"); } },
        { "which fields there are",
            [](const auto& call) {
                return call.path().endsWith(u"form") || asks(call, "GetState", "field1");
            } },
    };
    for (const auto& [name, question] : cases) {
        SCOPED_TRACE(name);
        const auto reading = readWithout(question);
        EXPECT_EQ(reading.element, nullptr);
        EXPECT_FALSE(reading.elements);
    }
    const auto after = readWithout([](const auto&) { return false; });
    EXPECT_TRUE(after.elements);
    EXPECT_EQ(after.value, "written");
}

TEST_F(BusyProgramTest, aFieldWhoseTextIsNotToldInTimeIsNotLeft)
{
    const std::pair<const char*, std::function<bool(const QDBusMessage&)>> cases[]{
        { "how long it is", [](const auto& call) { return asksFor(call, "CharacterCount"); } },
        { "what it is", [](const auto& call) { return asks(call, "GetText"); } },
    };
    for (const auto& [name, question] : cases) {
        SCOPED_TRACE(name);
        const auto reading = readWithout(question);
        EXPECT_NE(reading.element, nullptr);
        EXPECT_EQ(reading.value, std::nullopt);
        EXPECT_EQ(reading.subrole, std::nullopt);
        EXPECT_FALSE(reading.elements);
    }
}

TEST_F(BusyProgramTest, aFieldThatDoesNotTellInTimeWhetherItHidesLettersIsNotTakenForOneThatDoesNot)
{
    const auto reading
        = readWithout([](const auto& call) { return asks(call, "GetStringAtOffset"); });
    EXPECT_EQ(reading.element, nullptr);
    EXPECT_EQ(reading.value, std::nullopt);
    EXPECT_FALSE(reading.elements);
}

// Two paragraphs of one document are one field.
TEST_F(BusyProgramTest, aParagraphWhoseDocumentIsNotToldInTimeIsNoOtherField)
{
    m_program.role = ATSPI_ROLE_PARAGRAPH;
    const auto reading = readWithout([](const auto& call) { return asksFor(call, "Parent"); });
    EXPECT_EQ(reading.element, nullptr);
    EXPECT_FALSE(reading.elements);
}

// The text of each paragraph stands in an element of its own.
TEST_F(BusyProgramTest, aTextOfWhichAPartIsNotToldInTimeIsNotWhole)
{
    m_program.written = QString(QChar::ObjectReplacementCharacter);
    const auto reading
        = readWithout([](const auto& call) { return asks(call, "GetChildren", "field1"); });
    EXPECT_NE(reading.element, nullptr);
    EXPECT_FALSE(reading.elements);
}

} // namespace
} // namespace vesko
