#include "tests/app/wording/SourceTexts.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace vesko {

namespace {

const QString repository = QStringLiteral(VESKO_SOURCES "/");

// A text in quotes; in C++ several of them, one behind the other, are one.
const QString quoted = QStringLiteral(R"re("((?:[^"\\\n]|\\.)*)")re");

const QRegularExpression& mark()
{
    static const QRegularExpression is(
        QStringLiteral(R"re(\b(?:L10N_KEY|qsTranslate|QCoreApplication::translate)\(\s*)re"));
    return is;
}

const QRegularExpression& markedText()
{
    static const QRegularExpression is(mark().pattern() + QStringLiteral(R"re("Vesko",\s*)re")
        + quoted + QStringLiteral("\\s*[,)]"));
    return is;
}

// The source as its texts are to be read: without comments, and with the pieces of a text joined.
QString readable(const SourceFile& source)
{
    static const QRegularExpression comment(
        QStringLiteral("^\\s*//.*$"), QRegularExpression::MultilineOption);
    static const QRegularExpression directive(
        QStringLiteral("^\\s*#.*$"), QRegularExpression::MultilineOption);
    static const QRegularExpression seam(QStringLiteral("(?<!\\\\)\"\\s*\""));
    auto text = source.content;
    text.remove(comment);
    if (!source.isQml())
        text.remove(directive).remove(seam);
    return text;
}

QStringList captured(const QRegularExpression& expression, const QString& text)
{
    QStringList found;
    for (auto i = expression.globalMatch(text); i.hasNext();)
        found << i.next().captured(1);
    return found;
}

// In QML each text with a letter that is not the name of something: of an icon, a colour, a key, a
// file or a state. A property that a user reads has no such names.
QStringList unmarkedQml(const QString& text)
{
    static const QRegularExpression read(
        QStringLiteral(R"re(\b(?:text|title|help|hint|label|placeholderText|agreeText|)re"
                       R"re(Accessible\.name|Accessible\.description):[^\n]*?)re")
        + quoted);
    static const QRegularExpression literal(quoted);
    static const QRegularExpression letter(QStringLiteral("\\p{L}"));
    static const QRegularExpression noWord(QStringLiteral(R"re(^(?:#[0-9a-f]{6}|\\n)$)re"));
    static const QRegularExpression name(
        QStringLiteral(R"re(^(?:[a-z][A-Za-z-]*|#[0-9a-f]{6}|Ctrl\+[A-Z]|F\d+|\w+\.qml|\\n)$)re"));
    QStringList found;
    for (const auto& each : captured(read, text))
        if (each.contains(letter) && !each.contains(noWord))
            found << each;
    for (const auto& each : captured(literal, text))
        if (each.contains(letter) && !each.contains(name))
            found << each;
    found.removeDuplicates();
    return found;
}

// In C++ each text that begins as a sentence does, and is a word or several. What the adapters
// hand to the desktop has single words in plenty, so theirs have to be several.
QStringList unmarkedCpp(const QString& text, bool isAdapter)
{
    static const QRegularExpression literal(quoted);
    static const QRegularExpression word(QStringLiteral("^\\p{Lu}\\p{Ll}+[.…:!?]?$"));
    static const QRegularExpression words(QStringLiteral("^\\p{Lu}?[\\p{Ll}'’]+,? .*\\p{L}"));
    static const QRegularExpression sentence(QStringLiteral("^\\p{Lu}[\\p{L}'’-]*,? "));
    QStringList found;
    for (const auto& each : captured(literal, text))
        if (each.contains(sentence) || (each.contains(words) && each.endsWith(u'.'))
            || (!isAdapter && each.contains(word)))
            found << each;
    found.removeDuplicates();
    return found;
}

} // namespace

QString contentOf(const QString& path)
{
    QFile file(repository + path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

std::vector<SourceFile> sourceFiles()
{
    std::vector<SourceFile> all;
    for (const auto* module : { "VeskoCore", "VeskoApp", "VeskoLinux" }) {
        QDirIterator files(repository + QString::fromLatin1(module),
            { QStringLiteral("*.cpp"), QStringLiteral("*.h"), QStringLiteral("*.qml") },
            QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const auto path = files.next().mid(repository.size());
            all.push_back({ path, contentOf(path) });
        }
    }
    return all;
}

QStringList keysIn(const SourceFile& source)
{
    auto keys = captured(markedText(), readable(source));
    for (auto& key : keys)
        key.replace(QStringLiteral("\\\""), QStringLiteral("\""))
            .replace(QStringLiteral("\\n"), QStringLiteral("\n"));
    return keys;
}

qsizetype marksIn(const SourceFile& source)
{
    return readable(source).count(mark());
}

QStringList unmarkedIn(const SourceFile& source)
{
    auto text = readable(source);
    text.remove(markedText());
    return source.isQml()
        ? unmarkedQml(text)
        : unmarkedCpp(text, source.path.startsWith(QStringLiteral("VeskoLinux/")));
}

QStringList allKeys()
{
    QStringList keys;
    for (const auto& source : sourceFiles())
        keys << keysIn(source);
    keys.removeDuplicates();
    return keys;
}

} // namespace vesko
