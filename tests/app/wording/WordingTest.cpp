#include "VeskoApp/wording/InterfaceLanguage.h"
#include "VeskoApp/wording/Translated.h"
#include "tests/app/wording/CatalogueFile.h"
#include "tests/app/wording/SourceTexts.h"

#include <QRegularExpression>
#include <QSet>
#include <QTranslator>

#include <gtest/gtest.h>

#include <map>

namespace vesko {
namespace {

// What no user of a Linux desktop has, or has under another name. An account with Apple, though,
// anybody may have.
const QRegularExpression foreign(
    QStringLiteral(
        R"(\b(Mac|macOS|OS X|Finder|Dock|Spotlight|Siri|iCloud|App Store|Command|Option key)\b)"
        R"(|\b(System (Settings|Preferences)|Keychain|Apple on-device|Apple speech|Login Items)\b)"
        R"(|\b(Input Monitoring|Applications folder|Do Nothing|Globe|Fn|camera area)\b)"
        R"(|\b(menu bar|private sign-in window|Quit & Reopen|Privacy & Security)\b|Vesko\.app)"
        R"(|строк[аеиу] меню|Системны[ех] настройк|объект[ыа]х? входа|[⌘⇧⌥⌃])"),
    QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);

// Keys whose translation may name such a thing, and the name.
const std::map<QString, QString> foreignNames{
    // It is printed on the keyboard, and only offered if the keyboard reports it.
    { QStringLiteral("Function key"), QStringLiteral("Fn") },
};

class Wording : public testing::TestWithParam<const char*> {
protected:
    Wording()
    {
        EXPECT_TRUE(m_translator.load(catalogueOf(GetParam())));
        EXPECT_TRUE(QCoreApplication::installTranslator(&m_translator));
    }
    ~Wording() override { QCoreApplication::removeTranslator(&m_translator); }

    static std::vector<CatalogueMessage> messages()
    {
        return catalogueMessages(
            catalogueOf(GetParam()).section(u'/', -1).chopped(2) + QStringLiteral("ts"));
    }

private:
    QTranslator m_translator;
};

INSTANTIATE_TEST_SUITE_P(Catalogues, Wording, testing::Values("de", "en", "es", "fr", "ru"),
    [](const auto& language) { return std::string(language.param); });

TEST_P(Wording, isInTheProgram)
{
    for (const auto& message : messages())
        if (!message.countsThings)
            EXPECT_EQ(translated(message.key.toStdString()), message.translations.value(0))
                << message.key.toStdString();
}

TEST_P(Wording, saysNothingThatOnlyAMacHas)
{
    for (const auto& key : allKeys()) {
        auto shown = translated(key.toStdString());
        if (const auto exception = foreignNames.find(key); exception != foreignNames.end())
            shown.remove(exception->second);
        EXPECT_FALSE(foreign.match(shown).hasMatch())
            << key.toStdString() << " is shown as " << shown.toStdString();
    }
    for (const auto& message : messages())
        for (const auto& text : message.translations)
            EXPECT_TRUE(foreignNames.contains(message.key) || !foreign.match(text).hasMatch())
                << text.toStdString();
}

TEST_P(Wording, isFinishedAndSaysEachTextOnce)
{
    QSet<QString> keys;
    for (const auto& message : messages()) {
        EXPECT_TRUE(message.finished) << message.key.toStdString();
        EXPECT_FALSE(message.translations.isEmpty()) << message.key.toStdString();
        for (const auto& text : message.translations)
            EXPECT_FALSE(text.trimmed().isEmpty()) << message.key.toStdString();
        EXPECT_FALSE(keys.contains(message.key)) << message.key.toStdString();
        keys.insert(message.key);
    }
}

TEST_P(Wording, hasNoTextThatTheProgramNoLongerSays)
{
    const auto keys = allKeys();
    for (const auto& message : messages())
        EXPECT_TRUE(keys.contains(message.key)) << message.key.toStdString();
}

// The placeholders and the numbers of a text, in order, written as in English.
QStringList values(QString text)
{
    static const QRegularExpression fraction(QStringLiteral("(\\d),(\\d{1,2}\\b)"));
    static const QRegularExpression thousands(QStringLiteral("(\\d)[,\u00a0\u202f](\\d{3}\\b)"));
    static const QRegularExpression value(QStringLiteral("%L?n|%L?\\d+|\\d+(\\.\\d+)?"));
    text.replace(thousands, QStringLiteral("\\1\\2")).replace(fraction, QStringLiteral("\\1.\\2"));
    QStringList found;
    for (auto i = value.globalMatch(text); i.hasNext();)
        found << i.next().captured();
    found.sort();
    return found;
}

TEST_P(Wording, keepsNumbersPlaceholdersAndTheEndOfASentence)
{
    for (const auto& message : messages()) {
        for (const auto& text : message.translations) {
            EXPECT_EQ(values(message.key), values(text)) << text.toStdString();
            for (const auto* end : { ".", "?", "…", " " })
                EXPECT_EQ(message.key.endsWith(QString::fromUtf8(end)),
                    text.endsWith(QString::fromUtf8(end)))
                    << text.toStdString();
        }
    }
}

TEST(LinuxEnglish, rewordsOnlyWhatNamesAMac)
{
    for (const auto& message : catalogueMessages(QStringLiteral("vesko_linux_en.ts")))
        EXPECT_TRUE(foreign.match(message.key).hasMatch()) << message.key.toStdString();
}

} // namespace
} // namespace vesko
