#include "VeskoCore/base/Text.h"

#include <gmock/gmock.h>

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

TEST(Text, GivesCodePointsOneByOne)
{
    constexpr auto text = "aé漢😀\xff"sv;
    std::size_t at = 0;
    std::u32string all;
    while (at < text.size())
        all += nextCodePoint(text, at);
    EXPECT_EQ(all, U"aé漢😀\uFFFD");
}

TEST(Text, LowersByTheRulesOfNoLanguage)
{
    EXPECT_EQ(lowercased("ABC ÄÖÜ ЖЩ"), "abc äöü жщ");
    EXPECT_EQ(lowercased("İ"), "i\u0307");
    EXPECT_EQ(lowercased("ΟΔΟΣ ΣΑΣ"), "οδος σας");
    EXPECT_EQ(lowercased("ẞ"), "ß");
}

TEST(Text, HasOneFormForWhatIsCanonicallyEquivalent)
{
    EXPECT_EQ(canonical("e\u0301"), "\u00E9");
    EXPECT_EQ(canonical("\u212B"), canonical("A\u030A"));
    EXPECT_EQ(canonical("a\u0323\u0307"), canonical("a\u0307\u0323"));
    EXPECT_NE(canonical("ﬁ"), canonical("fi"));
}

TEST(Text, CharactersAreWhatAUserTakesForOne)
{
    using testing::ElementsAre;
    EXPECT_THAT(characters(""), ElementsAre());
    EXPECT_THAT(characters("aé漢"), ElementsAre("a", "é", "漢"));
    EXPECT_THAT(characters("e\u0301x"), ElementsAre("e\u0301", "x"));
    EXPECT_THAT(characters("a\r\nb\n\r"), ElementsAre("a", "\r\n", "b", "\n", "\r"));
    EXPECT_THAT(characters("👩\u200D👩\u200D👧👍🏽🇩🇪🇫🇷"),
        ElementsAre("👩\u200D👩\u200D👧", "👍🏽", "🇩🇪", "🇫🇷"));
    EXPECT_THAT(characters("\u1112\u1161\u11AB한"), ElementsAre("\u1112\u1161\u11AB", "한"));
    EXPECT_THAT(characters("a\xff"), ElementsAre("a", "\xff"));
    EXPECT_EQ(characterCount("👩\u200D👩\u200D👧!"), 2U);
    EXPECT_EQ(characterCount("abc"), 3U);
}

TEST(Text, TellsWhetherThereAreMoreCharactersThanSo)
{
    EXPECT_FALSE(hasMoreCharacters("", 0));
    EXPECT_TRUE(hasMoreCharacters("a", 0));
    EXPECT_FALSE(hasMoreCharacters("äöü", 3));
    EXPECT_TRUE(hasMoreCharacters("äöüß", 3));
    EXPECT_FALSE(hasMoreCharacters("👩\u200D👩\u200D👧👍🏽", 2));
    EXPECT_TRUE(hasMoreCharacters("👩\u200D👩\u200D👧👍🏽!", 2));
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
