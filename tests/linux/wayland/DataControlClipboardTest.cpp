#include "VeskoLinux/wayland/DataControlClipboard.h"

#include "tests/linux/Desktop.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

using namespace desktop;

class DataControlClipboardTest : public testing::Test {
protected:
    static std::string pasted()
    {
        Program reader(QStringLiteral("wl-paste"), { QStringLiteral("--no-newline") });
        EXPECT_TRUE(until([&] { return reader.ended(); }));
        return reader.output();
    }

    static std::string longText()
    {
        std::string text;
        while (text.size() < 2'000'000)
            text += "a line of dictation, שלום 😀\n";
        return text;
    }

    // What the compositor has on its way belongs to the clipboard.
    ~DataControlClipboardTest() override { EXPECT_TRUE(valueOf(m_connection.done())); }

    WaylandConnection m_connection;
    DataControlClipboard m_clipboard{ m_connection };
};

TEST_F(DataControlClipboardTest, isOfferedHere)
{
    EXPECT_TRUE(DataControlClipboard::offered(m_connection));
}

TEST_F(DataControlClipboardTest, anotherProgramPastesWhatWasCopiedWithoutTheFocus)
{
    for (const std::string& text : { std::string("plain"),
             std::string("e\u0301 👩‍👩‍👧 שלום\r\nnext\ttab"), longText() }) {
        EXPECT_TRUE(m_clipboard.setText(text));
        EXPECT_TRUE(pasted() == text) << "of " << text.size() << " bytes";
    }
}

TEST_F(DataControlClipboardTest, takesTheClipboardFromWhoeverHadIt)
{
    EXPECT_TRUE(m_clipboard.setText("mine"));
    QProcess other;
    other.start(QStringLiteral("wl-copy"), { QStringLiteral("theirs") });
    EXPECT_TRUE(until([] { return pasted() == "theirs"; }));
    EXPECT_TRUE(m_clipboard.setText("mine again"));
    EXPECT_EQ(pasted(), "mine again");
    EXPECT_TRUE(until([&] { return other.state() == QProcess::NotRunning; }));
}

TEST_F(DataControlClipboardTest, aReaderThatGivesUpKeepsNobodyElseFromReading)
{
    const std::string text = longText();
    EXPECT_TRUE(m_clipboard.setText(text));
    for (int times = 0; times < 40; ++times) {
        Program reader(QStringLiteral("sh"),
            { QStringLiteral("-c"), QStringLiteral("wl-paste --no-newline | head -c 10") });
        EXPECT_TRUE(until([&] { return reader.ended(); }));
    }
    EXPECT_TRUE(pasted() == text);
}

} // namespace
} // namespace vesko
