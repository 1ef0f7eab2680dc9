// What a field makes of a pasted text, and what it shows when nothing came.

#include "VeskoCore/insertion/PasteTrace.h"

#include <gtest/gtest.h>

namespace vesko {

namespace {

TEST(PasteTrace, IsTheLettersOfTheLastLine)
{
    struct Case {
        const char* name;
        const char* value;
        const char* text;
        bool shown;
    };
    constexpr Case cases[] = {
        { "as it is", "Dear John, how are you?", "how are you?", true },
        { "not there", "Dear John,", "how are you?", false },
        { "an empty field", "", "how are you?", false },
        { "only its beginning", "how are", "how are you?", false },
        { "other quotes", "“It’s” – fine", "\"It's\" - fine", true },
        { "blanks that don't break, other capitals", "How\u00A0are you", "how are you", true },
        { "line ends taken out", "one two three", "one\r\ntwo\nthree", true },
        { "a line of the terminal's width", "$ how are\n you?", "how are you?", true },
        { "the last paragraph alone", "three", "one\ntwo\nthree", true },
        { "an end of line behind it", "two", "one\ntwo\n", true },
        { "the first paragraph alone", "one", "one\ntwo", false },
        { "other scripts", "шалом שלום 日本語", "שלום 日本語", true },
        { "nothing to look for", "", "…!", true },
        { "no text", "x", "", true },
    };
    for (const auto& [name, value, text, shown] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(showsPasted(value, text), shown);
    }
}

} // namespace

} // namespace vesko
