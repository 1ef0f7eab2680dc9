// A language other than the sources' reaches the user with everything that the program says.

#include "VeskoApp/notes/NoteWords.h"
#include "VeskoApp/shell/MenuRows.h"
#include "VeskoApp/status/CaptureFailure.h"
#include "VeskoApp/status/SafeMessage.h"
#include "VeskoApp/wording/InterfaceLanguage.h"
#include "VeskoApp/wording/Translated.h"
#include "VeskoCore/library/VeskoError.h"
#include "tests/app/wording/CatalogueFile.h"
#include "tests/app/wording/SourceTexts.h"

#include <QRegularExpression>
#include <QTranslator>

#include <gtest/gtest.h>

namespace vesko {
namespace {

TEST(InterfaceLanguage, isTheFirstOfTheUsersThatHasACatalogue)
{
    const struct {
        const char* described;
        std::vector<std::string> preferred;
        std::string language;
    } rows[] = {
        { "no language at all", {}, "en" },
        { "Russian", { "ru" }, "ru" },
        { "Russian of a country", { "ru-UA" }, "ru" },
        { "English before Russian", { "en-GB", "ru-RU" }, "en" },
        { "Russian before English", { "ru-RU", "en-US" }, "ru" },
        { "German of a country", { "de-AT" }, "de" },
        { "Spanish before French", { "es-MX", "fr-CA" }, "es" },
        { "French", { "fr" }, "fr" },
        { "a language without a catalogue", { "la-VA" }, "en" },
        { "a language without a catalogue before Russian", { "la", "ru" }, "ru" },
        { "a language that begins alike", { "rue" }, "en" },
    };
    for (const auto& row : rows)
        EXPECT_EQ(interfaceLanguage(row.preferred), row.language) << row.described;
}

TEST(InterfaceLanguage, namesLanguages)
{
    EXPECT_EQ(shownLanguage("de", { "en-US" }), QStringLiteral("German"));
    EXPECT_EQ(shownLanguage("de", { "la" }), QStringLiteral("German"));
    EXPECT_EQ(shownLanguage("de", { "fr" }), QStringLiteral("Allemand"));
    EXPECT_EQ(shownLanguage("pt-BR", { "ru-RU" }), QStringLiteral("Португальский"));
}

class Russian : public testing::Test {
protected:
    Russian()
    {
        EXPECT_TRUE(m_translator.load(catalogueOf("ru")));
        EXPECT_TRUE(QCoreApplication::installTranslator(&m_translator));
    }
    ~Russian() override { QCoreApplication::removeTranslator(&m_translator); }

private:
    QTranslator m_translator;
};

TEST_F(Russian, tellsOfFailures)
{
    const auto message
        = [](const auto& error) { return translated(safeMessage(std::make_exception_ptr(error))); };
    EXPECT_EQ(message(VeskoError(VeskoError::missingKey)),
        QStringLiteral("Добавьте ключ OpenRouter в настройках. Звук остаётся сохранённым."));
    EXPECT_EQ(message(std::runtime_error("anything")),
        QStringLiteral("Не удалось выполнить это действие. Ваши сохранённые файлы целы. Проверьте "
                       "папку данных и попробуйте ещё раз."));
}

TEST_F(Russian, isInTheMenu)
{
    static const QRegularExpression cyrillic(QStringLiteral("\\p{Cyrillic}"));
    for (const auto& row : menuRows())
        if (*row.title)
            EXPECT_TRUE(translated(row.title).contains(cyrillic)) << row.title;
}

TEST_F(Russian, countsInItsThreeForms)
{
    const struct {
        std::size_t count;
        const char* text;
    } rows[] = {
        { 0, "0 терминов" },
        { 1, "1 термин" },
        { 2, "2 термина" },
        { 4, "4 термина" },
        { 5, "5 терминов" },
        { 11, "11 терминов" },
        { 21, "21 термин" },
        { 112, "112 терминов" },
        { 1000, "1000 терминов" },
    };
    for (const auto& row : rows)
        EXPECT_EQ(translated("%1 terms", row.count), QString::fromUtf8(row.text));
}

TEST_F(Russian, writesDatesAndCostsAsIsUsualThere)
{
    const QLocale locale(QStringLiteral("ru_RU"));
    const QDateTime noon(QDate(2026, 5, 9), QTime(12, 0)); // wherever this test runs
    const auto may = Date::parse(noon.toUTC().toString(Qt::ISODate).toStdString());
    ASSERT_TRUE(may);
    EXPECT_EQ(shownMoment(*may, locale, QDate(2026, 11, 21)), QStringLiteral("09.05.2026 12:00"));
    EXPECT_EQ(shownMoment(*may, locale, QDate(2026, 5, 10)), QStringLiteral("Вчера 12:00"));
    EXPECT_EQ(shownCost(0.000412, locale),
        QStringLiteral("Стоимость по данным сервиса: 0,000412\u00a0$"));
}

TEST(English, countsWithoutACatalogue)
{
    EXPECT_EQ(translated("%1 terms", 5), QStringLiteral("5 terms"));
}

} // namespace
} // namespace vesko
