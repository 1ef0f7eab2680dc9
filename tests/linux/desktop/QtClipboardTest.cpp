#include "VeskoLinux/desktop/QtClipboard.h"

#include "tests/linux/Desktop.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

using namespace desktop;

TEST(QtClipboard, anotherProgramPastesWhatWasCopied)
{
    std::string longText;
    while (longText.size() < 2'000'000)
        longText += "a line of dictation, שלום 😀\n";
    const std::string texts[]
        = { "plain", "e\u0301 👩‍👩‍👧 שלום\r\nnext\ttab", longText };
    QtClipboard clipboard;
    for (const std::string& text : texts) {
        EXPECT_TRUE(clipboard.setText(text));
        Program other(QStringLiteral("xclip"),
            { QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-o") });
        EXPECT_TRUE(until([&] { return other.ended(); }));
        EXPECT_TRUE(other.output() == text) << "of " << text.size() << " bytes";
    }
}

TEST(QtClipboard, takesTheClipboardFromWhoeverHadIt)
{
    QtClipboard clipboard;
    EXPECT_TRUE(clipboard.setText("mine"));
    QProcess other;
    other.start(
        QStringLiteral("xclip"), { QStringLiteral("-selection"), QStringLiteral("clipboard") });
    other.write("theirs");
    other.closeWriteChannel();
    const auto content = [] {
        Program reader(QStringLiteral("xclip"),
            { QStringLiteral("-selection"), QStringLiteral("clipboard"), QStringLiteral("-o") });
        EXPECT_TRUE(until([&] { return reader.ended(); }));
        return reader.output();
    };
    EXPECT_TRUE(until([&] { return content() == "theirs"; }));
    EXPECT_TRUE(clipboard.setText("mine again"));
    EXPECT_EQ(content(), "mine again");
}

} // namespace
} // namespace vesko
