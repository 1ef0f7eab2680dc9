#include "VeskoApp/wording/Translated.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QTranslator>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <vector>

namespace vesko {
namespace {

struct Message {
    QString key;
    QString translation;
    bool finished = true;
};

QString contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

const QString sources = QStringLiteral(VESKO_SOURCES "/");

std::vector<Message> messages()
{
    std::vector<Message> found;
    QXmlStreamReader xml(contentOf(sources + QStringLiteral("VeskoApp/wording/vesko_linux_en.ts")));
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QStringLiteral("message"))
            found.emplace_back();
        else if (xml.name() == QStringLiteral("source"))
            found.back().key = xml.readElementText();
        else if (xml.name() == QStringLiteral("translation")) {
            found.back().finished = xml.attributes().isEmpty();
            found.back().translation = xml.readElementText();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return found;
}

// What no user of a Linux desktop has. An account with Apple, though, anybody may have.
const QRegularExpression foreign(QStringLiteral(
    R"(\b(Mac|macOS|Command|System Settings|Keychain|Apple on-device|Apple speech|Login Items|Input Monitoring|Finder)\b)"
    R"(|Vesko\.app|Privacy & Security|Globe|menu bar|private sign-in window|⌘|⇧|\bFn\b)"));

// The texts of a source file: its string literals, adjacent ones as one, without those of
// #include lines.
QStringList literals(QString source)
{
    static const QRegularExpression includes(
        QStringLiteral("^\\s*#include.*$"), QRegularExpression::MultilineOption);
    static const QRegularExpression comments(
        QStringLiteral("^\\s*//.*$"), QRegularExpression::MultilineOption);
    static const QRegularExpression seam(QStringLiteral("(?<!\\\\)\"\\s*\""));
    static const QRegularExpression literal(QStringLiteral("\"((?:[^\"\\\\\\n]|\\\\.)*)\""));
    source.remove(includes).remove(comments).remove(seam);
    QStringList found;
    for (auto i = literal.globalMatch(source); i.hasNext();)
        found << i.next().captured(1);
    return found;
}

TEST(Wording, isInTheProgram)
{
    QTranslator translator;
    ASSERT_TRUE(translator.load(QStringLiteral(":/i18n/vesko_linux_en.qm")));
    int count = 1;
    char name[] = "test";
    char* arguments[] = { name, nullptr };
    const QCoreApplication application(count, arguments);
    ASSERT_TRUE(QCoreApplication::installTranslator(&translator));
    ASSERT_FALSE(messages().empty());
    for (const auto& message : messages())
        EXPECT_EQ(translated(message.key.toStdString()), message.translation)
            << message.key.toStdString();
    EXPECT_EQ(translated("Ready to capture"), QStringLiteral("Ready to capture"));
}

TEST(Wording, saysNothingThatOnlyAMacHas)
{
    for (const auto& message : messages()) {
        EXPECT_TRUE(message.finished) << message.key.toStdString();
        EXPECT_FALSE(message.translation.trimmed().isEmpty()) << message.key.toStdString();
        EXPECT_FALSE(foreign.match(message.translation).hasMatch())
            << message.translation.toStdString();
    }
}

TEST(Wording, rewordsOnlyWhatNamesAMacAndEachTextOnce)
{
    QSet<QString> keys;
    for (const auto& message : messages()) {
        EXPECT_TRUE(foreign.match(message.key).hasMatch()) << message.key.toStdString();
        EXPECT_FALSE(keys.contains(message.key)) << message.key.toStdString();
        keys.insert(message.key);
    }
}

TEST(Wording, keepsNumbersPlaceholdersAndTheEndOfASentence)
{
    static const QRegularExpression value(QStringLiteral("%L?n|%L?\\d+|\\d+(\\.\\d+)?"));
    const auto values = [](const QString& text) {
        QStringList found;
        for (auto i = value.globalMatch(text); i.hasNext();)
            found << i.next().captured();
        found.sort();
        return found;
    };
    for (const auto& message : messages()) {
        EXPECT_EQ(values(message.key), values(message.translation)) << message.key.toStdString();
        EXPECT_EQ(message.key.endsWith(u'.'), message.translation.endsWith(u'.'))
            << message.key.toStdString();
    }
}

TEST(Wording, hasEveryTextOfTheProgramThatNamesAMac)
{
    // The key installer speaks to scripts, which know these two lines; the last is a word of the
    // analytics service.
    QSet<QString> known{ QStringLiteral("Vesko could not configure its Keychain key.\\n"),
        QStringLiteral("Vesko personal key configured in Keychain. No value returned.\\n"),
        QStringLiteral("macOS") };
    for (const auto& message : messages())
        known.insert(message.key);
    for (const auto* module : { "VeskoCore", "VeskoApp", "VeskoLinux" }) {
        QDirIterator files(sources + QString::fromLatin1(module),
            { QStringLiteral("*.cpp"), QStringLiteral("*.h"), QStringLiteral("*.qml") },
            QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const auto path = files.next();
            for (const auto& text : literals(contentOf(path)))
                EXPECT_TRUE(known.contains(text) || !foreign.match(text).hasMatch())
                    << path.toStdString() << ": " << text.toStdString();
        }
    }
}

} // namespace
} // namespace vesko
