#include "VeskoLinux/accessibility/FieldFacts.h"

#include <atspi/atspi-constants.h>
#include <gtest/gtest.h>

#include <vector>

namespace vesko {
namespace {

std::uint64_t states(std::initializer_list<int> set)
{
    std::uint64_t bits = 0;
    for (const int state : set)
        bits |= std::uint64_t(1) << state;
    return bits;
}

TEST(FieldFacts, roleTellsWhetherAndHowTheUserWritesThere)
{
    struct Case {
        const char* name;
        std::uint32_t role;
        std::uint64_t states;
        bool search;
        std::optional<std::string> expected;
    };
    const auto editable = states({ ATSPI_STATE_EDITABLE });
    const auto lines = states({ ATSPI_STATE_EDITABLE, ATSPI_STATE_MULTI_LINE });
    const auto line = states({ ATSPI_STATE_EDITABLE, ATSPI_STATE_SINGLE_LINE });
    const Case cases[] = {
        { "GTK entry", ATSPI_ROLE_TEXT, line, false, "AXTextField" },
        { "GTK editor", ATSPI_ROLE_TEXT, lines, false, "AXTextArea" },
        { "Qt line", ATSPI_ROLE_ENTRY, line, false, "AXTextField" },
        { "Qt editor", ATSPI_ROLE_TEXT, lines, false, "AXTextArea" },
        { "input of a page", ATSPI_ROLE_ENTRY, line, false, "AXTextField" },
        { "text area of a page", ATSPI_ROLE_ENTRY, lines, false, "AXTextArea" },
        { "search input of a page", ATSPI_ROLE_ENTRY, line, true, "AXSearchField" },
        { "editable part of a page", ATSPI_ROLE_SECTION, editable, false, "AXTextArea" },
        { "paragraph of an office document", ATSPI_ROLE_PARAGRAPH, editable, false, "AXTextArea" },
        { "editable combo box", ATSPI_ROLE_COMBO_BOX, editable, false, "AXComboBox" },
        { "closed combo box", ATSPI_ROLE_COMBO_BOX, 0, false, {} },
        { "terminal", ATSPI_ROLE_TERMINAL, 0, false, "AXTextArea" },
        { "password", ATSPI_ROLE_PASSWORD_TEXT, line, false, "AXTextField" },
        { "text to read only", ATSPI_ROLE_TEXT, states({ ATSPI_STATE_MULTI_LINE }), false, {} },
        { "entry to read only", ATSPI_ROLE_ENTRY, 0, false, {} },
        { "part of a page", ATSPI_ROLE_SECTION, 0, false, {} },
        { "number with arrows", ATSPI_ROLE_SPIN_BUTTON, editable, false, {} },
        { "button", ATSPI_ROLE_PUSH_BUTTON, 0, false, {} },
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        EXPECT_EQ(fieldRole({ one.role, one.states }, one.search), one.expected);
    }
}

TEST(FieldFacts, placesAreInUtf16UnitsHoweverTheProgramCounts)
{
    struct Case {
        const char* name;
        QString text;
        std::int64_t asked; // the program's own length of it
        std::int64_t start, end;
        TextRange expected;
    };
    const auto faces = QStringLiteral(u"a😀b😀c");
    const Case cases[] = {
        { "characters, before the first face", faces, 5, 1, 1, { 1, 0 } },
        { "characters, behind the first face", faces, 5, 2, 2, { 3, 0 } },
        { "characters, both faces", faces, 5, 1, 4, { 1, 5 } },
        { "characters, the end", faces, 5, 5, 5, { 7, 0 } },
        { "units, behind the first face", faces, 7, 3, 3, { 3, 0 } },
        { "units, the end", faces, 7, 7, 7, { 7, 0 } },
        { "a selection made backwards", faces, 5, 4, 1, { 1, 5 } },
        { "behind what was read", faces, 5, 8, 8, { 10, 0 } },
        { "an empty text", QString(), 0, 0, 0, { 0, 0 } },
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        EXPECT_EQ(FieldText(one.text, one.asked).range(one.start, one.end), one.expected);
    }
}

TEST(FieldFacts, longTextEndsOneUnitBehindTheLimitOfWatchedTexts)
{
    const QString letters(40'000, QLatin1Char('x'));
    EXPECT_EQ(FieldText(letters.left(32'768), 32'768).value().size(), 32'768U);
    EXPECT_EQ(FieldText(letters.left(32'769), 32'769).value().size(), 32'769U);
    // A program that counts characters gives up to twice as many units.
    QString faces;
    for (int count = 0; count < 32'769; ++count)
        faces += QStringLiteral(u"😀");
    const auto value = QString::fromStdString(FieldText(faces, 32'769).value());
    EXPECT_EQ(value.size(), 32'770) << "no half character";
    EXPECT_TRUE(value.endsWith(QStringLiteral(u"😀")));
}

TEST(FieldFacts, weighsWhatToldThatItGotTheFocus)
{
    const auto can = states({ ATSPI_STATE_FOCUSABLE });
    const auto has = can | states({ ATSPI_STATE_FOCUSED });
    const auto writable = states({ ATSPI_STATE_EDITABLE });
    const AtspiKind field{ ATSPI_ROLE_TEXT, has | writable };
    const AtspiKind left{ ATSPI_ROLE_TEXT, can | writable };
    const AtspiKind button{ ATSPI_ROLE_PUSH_BUTTON, has };
    const AtspiKind buttonLeft{ ATSPI_ROLE_PUSH_BUTTON, can };
    const AtspiKind row{ ATSPI_ROLE_TABLE_CELL, has };
    const AtspiKind frame{ ATSPI_ROLE_ROOT_PANE, 0 };
    const AtspiKind gone{ ATSPI_ROLE_TEXT, has | writable | states({ ATSPI_STATE_DEFUNCT }) };
    struct Case {
        const char* name;
        std::vector<std::optional<AtspiKind>> heard;
        std::optional<std::size_t> counts;
    };
    const Case cases[] = {
        { "nothing", {}, {} },
        { "the field", { field }, 0 },
        { "of two fields the latest", { field, field }, 1 },
        { "a field that lost it to a button", { left, button }, 1 },
        { "a row that follows the text", { field, row }, 0 },
        { "the frame around the document", { field, frame }, 0 },
        { "the frame alone", { frame }, {} },
        { "one that is gone", { field, gone }, 0 },
        { "one that doesn't answer", { field, std::nullopt }, 0 },
        { "while a shortcut is held, the latest", { left, buttonLeft }, 1 },
        { "while a shortcut is held, not the frame", { left, frame }, 0 },
    };
    for (const auto& [name, heard, counts] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(strongestFocus(heard), counts);
    }
}

TEST(FieldFacts, knowsAFrameWithoutWhatIsInside)
{
    const auto editable = states({ ATSPI_STATE_EDITABLE });
    EXPECT_TRUE((AtspiKind{ ATSPI_ROLE_PANEL, 0 }.frameOnly()));
    EXPECT_TRUE((AtspiKind{ ATSPI_ROLE_FILLER, 0 }.frameOnly()));
    EXPECT_FALSE((AtspiKind{ ATSPI_ROLE_PANEL, editable }.frameOnly())) << "a page may write in it";
    EXPECT_FALSE((AtspiKind{ ATSPI_ROLE_PUSH_BUTTON, 0 }.frameOnly()));
    EXPECT_FALSE((AtspiKind{ ATSPI_ROLE_TEXT, editable }.frameOnly()));
}

TEST(FieldFacts, knowsLettersThatAreHidden)
{
    for (const char* hidden : { "●", "●●●", "••", "****" })
        EXPECT_TRUE(hidesLetters(QString::fromUtf8(hidden))) << hidden;
    for (const char* shown : { "", "a", "aaa", "● one", "•*", "1000" })
        EXPECT_FALSE(hidesLetters(QString::fromUtf8(shown))) << shown;
}

} // namespace
} // namespace vesko
