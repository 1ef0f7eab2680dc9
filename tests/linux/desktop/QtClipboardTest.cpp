#include "VeskoLinux/desktop/QtClipboard.h"

#include "tests/fakes/EventLoop.h"
#include "tests/linux/Desktop.h"

#include <gtest/gtest.h>

#include <signal.h>

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

// Another program that has copied something.
class Owner {
public:
    Owner(const char* form, const std::string& content)
    {
        m_program.start(QStringLiteral("xclip"),
            { QStringLiteral("-quiet"), QStringLiteral("-selection"), QStringLiteral("clipboard"),
                QStringLiteral("-target"), QString::fromLatin1(form) });
        m_program.write(content.data(), qint64(content.size()));
        m_program.closeWriteChannel();
    }
    ~Owner()
    {
        m_program.kill();
        m_program.waitForFinished();
    }
    pid_t pid() const { return pid_t(m_program.processId()); }

private:
    QProcess m_program;
};

TEST(QtClipboard, whatAnotherProgramHasCopiedIsGivenBack)
{
    std::string picture = "\x89PNG";
    picture.resize(1'000'000, 'x');
    const std::pair<const char*, std::string> cases[] = { { "UTF8_STRING", "text, שלום 😀" },
        { "text/html", "<b>rich</b>" }, { "image/png", picture },
        { "x-special/gnome-copied-files", "copy\nfile:///tmp/one" } };
    QtClipboard clipboard;
    for (const auto& [form, bytes] : cases) {
        SCOPED_TRACE(form);
        const ClipboardContent expected{ { form == std::string("UTF8_STRING") ? "text/plain" : form,
            bytes } };
        const Owner other(form, bytes);
        ASSERT_TRUE(until([&] { return awaited(clipboard.content()) == expected; }));
        EXPECT_FALSE(clipboard.giveBack(expected, "mine")) << "the other one still has it";
        EXPECT_TRUE(clipboard.setText("mine"));
        EXPECT_FALSE(clipboard.giveBack(expected, "something that was copied before"));
        EXPECT_TRUE(clipboard.giveBack(expected, "mine"));
        EXPECT_EQ(awaited(clipboard.content()), expected);
    }
}

TEST(QtClipboard, whatIsTooLargeOrNeverComesIsNothing)
{
    QtClipboard clipboard;
    EXPECT_TRUE(clipboard.setText("mine"));
    EXPECT_FALSE(awaited(clipboard.content()).empty());
    {
        const Owner other("image/png", std::string(Clipboard::largestContent + 1, 'x'));
        EXPECT_TRUE(until([&] { return awaited(clipboard.content()).empty(); }));
    }
    const Owner silent("UTF8_STRING", "silent");
    ASSERT_TRUE(until([&] { return !awaited(clipboard.content()).empty(); }));
    ASSERT_EQ(kill(silent.pid(), SIGSTOP), 0);
    EXPECT_TRUE(awaited(clipboard.content()).empty());
    kill(silent.pid(), SIGCONT);
}

} // namespace
} // namespace vesko
