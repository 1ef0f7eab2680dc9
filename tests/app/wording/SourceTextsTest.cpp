#include "tests/app/wording/SourceTexts.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace vesko {
namespace {

SourceFile cpp(const char* content)
{
    return { QStringLiteral("VeskoApp/any.cpp"), QString::fromUtf8(content) };
}

SourceFile qml(const char* content)
{
    return { QStringLiteral("VeskoApp/any.qml"), QString::fromUtf8(content) };
}

QStringList texts(std::initializer_list<const char*> all)
{
    QStringList list;
    for (const auto* text : all)
        list << QString::fromUtf8(text);
    return list;
}

TEST(SourceTexts, findTheKeysOfCpp)
{
    EXPECT_EQ(
        keysIn(cpp(
            "f(L10N_KEY(\"Vesko\",\n  \"One \"\n  \"sentence.\"), L10N_KEY(\"Vesko\", \"Two\"))")),
        texts({ "One sentence.", "Two" }));
    EXPECT_EQ(keysIn(cpp("QCoreApplication::translate(\"Vesko\", \"Open Vesko\")")),
        texts({ "Open Vesko" }));
}

TEST(SourceTexts, findTheKeysOfQml)
{
    EXPECT_EQ(keysIn(qml("text: a ? qsTranslate(\"Vesko\", \"Yes\") : qsTranslate(\"Vesko\", \"No "
                         "%1\").arg(b)")),
        texts({ "Yes", "No %1" }));
}

TEST(SourceTexts, knowAMarkThatHoldsNoKey)
{
    const auto source = qml("text: qsTranslate(\"Vesko\", model.name)");
    EXPECT_TRUE(keysIn(source).isEmpty());
    EXPECT_EQ(marksIn(source), 1);
    EXPECT_TRUE(keysIn(cpp("L10N_KEY(\"Other\", \"Text\")")).isEmpty());
}

TEST(SourceTexts, findWhatIsNotMarked)
{
    EXPECT_EQ(unmarkedIn(qml("text: \"Save\"")), texts({ "Save" }));
    EXPECT_EQ(unmarkedIn(qml("text: \"save\"")), texts({ "save" }));
    EXPECT_EQ(unmarkedIn(qml("text: open ? \"\" : \"Сохранить\"")), texts({ "Сохранить" }));
    EXPECT_EQ(unmarkedIn(qml("Accessible.name: \"close\"")), texts({ "close" }));
    EXPECT_EQ(unmarkedIn(qml("property string any: \"Two words\"")), texts({ "Two words" }));
    EXPECT_EQ(unmarkedIn(qml("title: qsTr(\"Save\")")), texts({ "Save" }));
    EXPECT_EQ(unmarkedIn(cpp("show(\"Saved.\")")), texts({ "Saved." }));
    EXPECT_EQ(unmarkedIn(cpp("show(\"The note \"\n\"is saved\")")), texts({ "The note is saved" }));
    EXPECT_EQ(unmarkedIn(cpp("show(\"it is saved now.\")")), texts({ "it is saved now." }));
}

TEST(SourceTexts, leaveOutWhatNobodyReads)
{
    EXPECT_TRUE(unmarkedIn(
        qml("// \"Save\"\nicon: \"check-circle\"; color: \"#ffffff\"; sequence: \"Ctrl+F\""))
            .isEmpty());
    EXPECT_TRUE(unmarkedIn(qml("text: qsTranslate(\"Vesko\", \"Save\") + \"\\n\"")).isEmpty());
    EXPECT_TRUE(unmarkedIn(
        cpp("#include \"Any File.h\"\nlog(\"sign_in_failed reason=%s\"); key(\"noteID\")"))
            .isEmpty());
}

// What looks like a text for a user and is none, or must not be translated, and why.
const struct {
    const char* path; // that it begins with
    const char* text; // all of it, as an expression
    const char* reason;
} exceptions[] = {
    { "", "Vesko(: )?", "the name of the program, in every language" },
    { "VeskoApp/views/Theme.qml", "Inter", "the name of a font" },
    { "VeskoApp/views/Windows.cpp", "(Inter|Noto Color Emoji)", "the name of a font" },
    { "VeskoApp/notes/LibraryWindow.cpp", "Markdown", "the name of a format" },
    { "VeskoApp/views/library/", "f", "how a number is written out" },
    { "VeskoApp/views/library/LibrarySidebar.qml", "application/.*", "the name of a format" },
    { "VeskoApp/views/", "(Ctrl\\+Shift\\+Z|Del)", "keys, as the other menus name them" },
    { "VeskoCore/", "(Content-Type:?|Authorization(: Bearer )?|Expect:)", "words of a protocol" },
    { "VeskoCore/analytics/UsageEnvelope.h", "Linux", "said to a service" },
    { "VeskoCore/speech/TextTransform.cpp", ".*", "said to a language model" },
    { "VeskoCore/base/", ".*", "of an exception; a user reads what safeMessage says of it" },
    { "VeskoCore/", "ICU .*", "of an exception; a user reads what safeMessage says of it" },
    { "VeskoLinux/audio/", ".*", "of an exception; a user reads what safeMessage says of it" },
    { "VeskoLinux/media/", ".*", "of an exception; a user reads what safeMessage says of it" },
    { "VeskoApp/shell/KeyInstaller.cpp", ".*", "said to a script, which knows the line" },
    { "VeskoApp/shell/MenuRows.cpp", "(File|Edit)", "which menu a row belongs to" },
    { "VeskoApp/views/library/NoteList.qml", "<.*", "HTML around what is found" },
    { "VeskoApp/views/library/MatchBar.qml", ".*F3\\)?", "a key" },
    { "VeskoLinux/command/", ".*", "said on a terminal" },
    { "VeskoLinux/doctor/", ".*", "said on a terminal, and pasted into reports" },
    { "VeskoLinux/main.cpp", "(Status icon|Data folder|Other engines)", "said on a terminal" },
    { "VeskoLinux/desktop/XdgFolders.cpp", ".*", "said on a terminal" },
    { "VeskoLinux/desktop/DBus", ".*", "said on a terminal, or on the bus" },
};

bool covers(const auto& exception, const QString& path, const QString& text)
{
    static const auto whole = [](const char* expression) {
        return QRegularExpression(
            QRegularExpression::anchoredPattern(QString::fromLatin1(expression)));
    };
    return path.startsWith(QString::fromLatin1(exception.path))
        && whole(exception.text).match(text).hasMatch();
}

TEST(SourceTexts, areAllMarkedAsTextsForAUser)
{
    const auto keys = allKeys();
    EXPECT_GT(keys.size(), 350);
    std::array<bool, std::size(exceptions)> used{};
    for (const auto& source : sourceFiles()) {
        for (const auto& text : unmarkedIn(source)) {
            const auto* const exception = std::ranges::find_if(
                exceptions, [&](const auto& each) { return covers(each, source.path, text); });
            if (exception != std::end(exceptions))
                used.at(exception - std::begin(exceptions)) = true;
            else
                EXPECT_TRUE(keys.contains(text))
                    << source.path.toStdString()
                    << " says without translation: " << text.toStdString();
        }
    }
    for (std::size_t row = 0; row < used.size(); ++row)
        EXPECT_TRUE(used.at(row)) << "no longer needed: " << exceptions[row].path << " "
                                  << exceptions[row].text << ", " << exceptions[row].reason;
}

TEST(SourceTexts, areAllPlainKeysOfTheOneContext)
{
    for (const auto& source : sourceFiles()) {
        // Where a key is handed on, it was marked before.
        if (source.path != QStringLiteral("VeskoApp/wording/Translated.h"))
            EXPECT_EQ(keysIn(source).size(), marksIn(source)) << source.path.toStdString();
    }
}

} // namespace
} // namespace vesko
