#include "VeskoCore/base/Text.h"

#include <gtest/gtest.h>

namespace vesko {
namespace {

using namespace std::string_view_literals;

TEST(Text, TrimsWhiteSpaceAndLineEndsAtBothEnds)
{
    struct Case {
        const char* name;
        std::string_view text, expected;
    };
    for (const auto& [name, text, expected] : {
             Case{ "nothing to trim", "a b"sv, "a b"sv },
             Case{ "empty", ""sv, ""sv },
             Case{ "only white space", " \t\r\n\v\f"sv, ""sv },
             Case{ "line ends", "\r\n a\nb \n"sv, "a\nb"sv },
             Case{ "no-break space", "\u00a0a\u00a0"sv, "a"sv },
             Case{ "ideographic space", "\u3000a\u3000"sv, "a"sv },
             Case{ "next line, line and paragraph separator", "\u0085\u2028a\u2029"sv, "a"sv },
             Case{ "zero width space is none", "\u200ba"sv, "\u200ba"sv },
             Case{ "NUL is none", "\0 "sv, "\0"sv },
             Case{ "bytes that are not UTF-8 stay", " \xff \x80 "sv, "\xff \x80"sv },
         })
        EXPECT_EQ(trimmed(text), expected) << name;
}

TEST(Text, TakesTheFirstCharacters)
{
    struct Case {
        const char* name;
        std::string_view text;
        int count;
        std::string_view expected;
    };
    for (const auto& [name, text, count, expected] : {
             Case{ "some of them", "abc"sv, 2, "ab"sv },
             Case{ "all of them", "abc"sv, 3, "abc"sv },
             Case{ "more than there are", "abc"sv, 4, "abc"sv },
             Case{ "of nothing", ""sv, 1, ""sv },
             Case{ "a combining mark belongs to its letter", "e\u0301a"sv, 1, "e\u0301"sv },
             Case{ "a family is one", "\U0001F468\u200D\U0001F469\u200D\U0001F467!"sv, 1,
                 "\U0001F468\u200D\U0001F469\u200D\U0001F467"sv },
             Case{
                 "a flag is one", "\U0001F1E9\U0001F1EA\U0001F1EB"sv, 1, "\U0001F1E9\U0001F1EA"sv },
             Case{ "a line end of two is one", "\r\na"sv, 1, "\r\n"sv },
         })
        EXPECT_EQ(firstCharacters(text, count), expected) << name;
}

TEST(Text, CountsUtf16Units)
{
    EXPECT_EQ(utf16Length(""), 0U);
    EXPECT_EQ(utf16Length("aé会"), 3U);
    EXPECT_EQ(utf16Length("😀"), 2U);
    EXPECT_EQ(utf16Length("e\u0301"), 2U);
}

} // namespace
} // namespace vesko
