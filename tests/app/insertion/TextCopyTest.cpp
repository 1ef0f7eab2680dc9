// What the clipboard is given, and what is said of it.

#include "VeskoApp/insertion/TextCopy.h"
#include "tests/fakes/FakeClipboard.h"
#include "tests/fakes/FakeSettingsStore.h"
#include "tests/fakes/TestClock.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

class TextCopyTest : public testing::Test {
protected:
    FakeClipboard clipboard;
    FakeSettingsStore settings;
    TestClock clock;
    Analytics analytics{ settings, clock, {} };
    StatusLine status;
    TextCopy copier{ clipboard, analytics, status };
};

TEST_F(TextCopyTest, ATextIsCopiedAsItStandsAndTold)
{
    const std::string text = "  First line\r\nсловa \xF0\x9F\x8C\xBF\n";
    EXPECT_TRUE(copier.copy(text));
    EXPECT_EQ(clipboard.text, text);
    EXPECT_EQ(status.message(), "Copied to clipboard");
    EXPECT_EQ(status.errorMessage(), "");
}

TEST_F(TextCopyTest, AClipboardThatTakesNothingIsToldAndNothingIsClaimed)
{
    const auto before = status.message();
    clipboard.works = false;
    EXPECT_FALSE(copier.copy("words"));
    EXPECT_FALSE(clipboard.text);
    EXPECT_EQ(status.message(), before);
    EXPECT_EQ(status.errorMessage(),
        "The text is saved, but the clipboard could not be updated. Copy it from your note.");
}

} // namespace
} // namespace vesko
