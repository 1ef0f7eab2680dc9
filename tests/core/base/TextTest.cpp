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

TEST(Text, FindsTheFirstLineThatIsNotEmpty)
{
    struct Case {
        const char* name;
        std::string_view text, expected;
    };
    for (const auto& [name, text, expected] : {
             Case{ "empty", ""sv, ""sv },
             Case{ "one line", "a b"sv, "a b"sv },
             Case{ "several", "a\nb\nc"sv, "a"sv },
             Case{ "empty lines before it", "\n\r\n\ra"sv, "a"sv },
             Case{ "nothing but line ends", "\n\n"sv, ""sv },
             Case{ "a line of blanks is not empty", "\n \na"sv, " "sv },
             Case{ "carriage return and line feed", "a\r\nb"sv, "a"sv },
             Case{ "vertical tab", "a\vb"sv, "a"sv },
             Case{ "form feed", "a\fb"sv, "a"sv },
             Case{ "next line", "a\u0085b"sv, "a"sv },
             Case{ "line separator", "a\u2028b"sv, "a"sv },
             Case{ "paragraph separator", "\u2029a\u2029b"sv, "a"sv },
             Case{ "a tab is no line end", "a\tb"sv, "a\tb"sv },
             Case{ "bytes that are not UTF-8 stay", "\xff\x80\n"sv, "\xff\x80"sv },
         })
        EXPECT_EQ(firstLine(text), expected) << name;
}

TEST(Text, CountsAndCutsByCharacters)
{
    struct Case {
        const char* name;
        std::string_view text;
        std::size_t count;
        std::string_view firstTwo;
    };
    for (const auto& [name, text, count, firstTwo] : {
             Case{ "empty", ""sv, 0, ""sv },
             Case{ "one", "a"sv, 1, "a"sv },
             Case{ "ASCII", "abc"sv, 3, "ab"sv },
             Case{ "an accent of its own", "e\u0301e\u0301x"sv, 3, "e\u0301e\u0301"sv },
             Case{ "carriage return and line feed", "a\r\nb"sv, 3, "a\r\n"sv },
             Case{ "a family and a tone of skin", "👩‍👩‍👧👍🏽x"sv, 3,
                 "👩‍👩‍👧👍🏽"sv },
             Case{ "flags", "🇩🇪🇫🇷🇮🇹"sv, 3, "🇩🇪🇫🇷"sv },
             Case{ "Hangul in parts", "\u1112\u1161\u11abx y"sv, 4, "\u1112\u1161\u11abx"sv },
             Case{ "Hebrew with points", "שָׁלוֹם"sv, 4, "שָׁל"sv },
         }) {
        EXPECT_EQ(characterCount(text), count) << name;
        EXPECT_EQ(firstCharacters(text, 2), firstTwo) << name;
        EXPECT_EQ(firstCharacters(text, count), text) << name;
        EXPECT_EQ(firstCharacters(text, 0), ""sv) << name;
    }
}

TEST(Text, ComparesWhateverTheEncodingAndOnWishTheCase)
{
    struct Case {
        const char* name;
        std::string_view a, b;
        bool same, sameIgnoringCase;
    };
    for (const auto& [name, a, b, same, ignoringCase] : {
             Case{ "equal", "ab"sv, "ab"sv, true, true },
             Case{ "different", "ab"sv, "ac"sv, false, false },
             Case{ "one is longer", "ab"sv, "a"sv, false, false },
             Case{ "empty", ""sv, ""sv, true, true },
             Case{ "case", "Ab"sv, "aB"sv, false, true },
             Case{ "accent", "e"sv, "é"sv, false, false },
             Case{ "canonically equivalent", "caf\u00e9"sv, "cafe\u0301"sv, true, true },
             Case{ "and in another case", "CAF\u00c9"sv, "cafe\u0301"sv, false, true },
             Case{ "order of marks", "a\u0323\u0302"sv, "a\u0302\u0323"sv, true, true },
             Case{ "Hangul", "한"sv, "\u1112\u1161\u11ab"sv, true, true },
             Case{ "Angstrom", "\u212b"sv, "Å"sv, true, true },
             Case{ "a case of two letters", "Straße"sv, "STRASSE"sv, false, true },
             Case{ "final sigma", "ΟΔΟΣ"sv, "οδος"sv, false, true },
             Case{ "only compatible", "ﬁ"sv, "fi"sv, false, true },
             Case{ "a dotless i is a letter of its own", "ı"sv, "I"sv, false, false },
         }) {
        EXPECT_EQ(sameText(a, b), same) << name;
        EXPECT_EQ(sameIgnoringCase(a, b), ignoringCase) << name;
    }
}

} // namespace
} // namespace vesko
