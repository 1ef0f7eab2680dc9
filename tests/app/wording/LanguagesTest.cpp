// Each language other than the sources' has everything that the program says, in all its forms.

#include "VeskoApp/wording/InterfaceLanguage.h"
#include "VeskoApp/wording/Translated.h"
#include "tests/app/wording/CatalogueFile.h"
#include "tests/app/wording/SourceTexts.h"

#include <QTranslator>

#include <gtest/gtest.h>

namespace vesko {
namespace {

struct Language {
    const char* code;
    qsizetype forms; // of what is counted
    const char* counted[3]; // no, one and two terms
};

class Languages : public testing::TestWithParam<Language> {
protected:
    Languages()
    {
        EXPECT_TRUE(m_translator.load(catalogueOf(GetParam().code)));
        EXPECT_TRUE(QCoreApplication::installTranslator(&m_translator));
    }
    ~Languages() override { QCoreApplication::removeTranslator(&m_translator); }

    static std::vector<CatalogueMessage> messages()
    {
        return catalogueMessages(
            QStringLiteral("vesko_%1.ts").arg(QString::fromUtf8(GetParam().code)));
    }

private:
    QTranslator m_translator;
};

INSTANTIATE_TEST_SUITE_P(All, Languages,
    testing::Values( //
        Language{ "de", 2, { "0 Begriffe", "1 Begriff", "2 Begriffe" } },
        Language{ "es", 2, { "0 términos", "1 término", "2 términos" } },
        Language{ "fr", 2, { "0 terme", "1 terme", "2 termes" } },
        Language{ "ru", 3, { "0 терминов", "1 термин", "2 термина" } }),
    [](const auto& language) { return std::string(language.param.code); });

TEST_P(Languages, haveEveryText)
{
    QStringList known;
    for (const auto& message : messages())
        known << message.key;
    for (const auto& key : allKeys())
        EXPECT_TRUE(known.contains(key)) << key.toStdString();
}

TEST_P(Languages, countInTheirForms)
{
    for (std::size_t count = 0; count < std::size(GetParam().counted); ++count)
        EXPECT_EQ(translated("%1 terms", count), QString::fromUtf8(GetParam().counted[count]));
    for (const auto& message : messages())
        EXPECT_EQ(message.translations.size(), message.countsThings ? GetParam().forms : 1)
            << message.key.toStdString();
}

} // namespace
} // namespace vesko
