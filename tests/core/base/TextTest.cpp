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

TEST(Text, CountsUtf16Units)
{
    EXPECT_EQ(utf16Length(""), 0U);
    EXPECT_EQ(utf16Length("aé会"), 3U);
    EXPECT_EQ(utf16Length("😀"), 2U);
    EXPECT_EQ(utf16Length("e\u0301"), 2U);
}

} // namespace
} // namespace vesko
