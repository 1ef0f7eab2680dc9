#include "VeskoCore/insertion/PersonalDictionary.h"
#include "tests/core/insertion/LiteralDictionary.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace vesko {
namespace {

struct Rule {
    std::string original, replacement;
    bool enabled = true;
    DictionaryEntry::Source source = DictionaryEntry::Source::manual;
};

SharedArray<DictionaryEntry> dictionaryOf(const std::vector<Rule>& rules)
{
    std::vector<DictionaryEntry> entries;
    for (const auto& rule : rules) {
        DictionaryEntry entry;
        entry.original = rule.original;
        entry.replacement = rule.replacement;
        entry.enabled = rule.enabled;
        entry.source = rule.source;
        entries.push_back(entry);
    }
    return SharedArray(entries);
}

struct Case {
    const char* name;
    std::vector<Rule> rules;
    std::string text, expected;
};

void check(const std::vector<Case>& cases)
{
    for (const auto& row : cases)
        EXPECT_EQ(PersonalDictionary::apply(dictionaryOf(row.rules), row.text), row.expected)
            << row.name;
}

TEST(PersonalDictionaryApply, WhatTakesPart)
{
    using Source = DictionaryEntry::Source;
    check({
        { "no entry", {}, "the cat", "the cat" },
        { "a disabled one", { { "cat", "dog", false } }, "the cat", "the cat" },
        { "an empty term", { { "", "dog" } }, "the cat", "the cat" },
        { "an empty text", { { "cat", "dog" } }, "", "" },
        { "a learned one", { { "cat", "dog", true, Source::learned } }, "the cat", "the dog" },
        { "a suggested one", { { "cat", "dog", true, Source::suggestion } }, "the cat", "the dog" },
        { "a learned one that waits", { { "cat", "dog", false, Source::learned } }, "cat", "cat" },
        { "the first of two that differ in case", { { "Foo", "one" }, { "foo", "two" } },
            "foo Foo FOO", "one one one" },
        { "the first enabled of two", { { "Foo", "one", false }, { "foo", "two" } }, "Foo", "two" },
        { "a term is not trimmed", { { " cat", "dog" } }, "a  cat", "a dog" },
        { "and so needs its blank", { { " cat", "dog" } }, "cat a cat", "cat a cat" },
    });
}

TEST(PersonalDictionaryApply, ATermMatchesOnlyWhole)
{
    const std::vector<Rule> cat{ { "cat", "dog" } };
    check({
        { "inside a word", cat, "concatenate", "concatenate" },
        { "before an underscore", cat, "cat_food", "cat_food" },
        { "behind an underscore", cat, "_cat", "_cat" },
        { "before a digit", cat, "cat2", "cat2" },
        { "behind a digit", cat, "2cat", "2cat" },
        { "beside other numbers", cat, "cat² Ⅷcat cat٣", "cat² Ⅷcat cat٣" },
        { "beside letters of other scripts", cat, "жcat cat漢 אcat 𐐨cat catʰ",
            "жcat cat漢 אcat 𐐨cat catʰ" },
        { "beside the mark that iota is folded from", cat, "cat\u0345", "cat\u0345" },
        { "beside another mark", cat, "cat\u0301 \u0301cat", "dog\u0301 \u0301dog" },
        { "in brackets", cat, "(cat)", "(dog)" },
        { "at the end of a sentence", cat, "cat.", "dog." },
        { "before an apostrophe", cat, "cat's", "dog's" },
        { "beside a hyphen, a dash, an emoji", cat, "cat-cat—cat😀cat", "dog-dog—dog😀dog" },
        { "as the whole text", cat, "cat", "dog" },
        { "several times", cat, "cat cat,cat\ncat", "dog dog,dog\ndog" },
        { "a script without blanks", { { "東京", "Tokyo" } }, "東京。東京都、「東京」",
            "Tokyo。東京都、「Tokyo」" },
    });
}

TEST(PersonalDictionaryApply, TheLongestTermWins)
{
    check({
        { "new york", { { "new", "neu" }, { "new york", "NY" } }, "new york, new", "NY, neu" },
        { "whatever the order", { { "new york", "NY" }, { "new", "neu" } }, "New York, new",
            "NY, neu" },
        { "the shorter if the longer isn't whole", { { "new", "neu" }, { "new york", "NY" } },
            "new yorker", "neu yorker" },
        { "from the left, not the longest anywhere", { { "a b", "1" }, { "b c d", "2" } },
            "a b c d", "1 c d" },
        { "no overlap", { { "a b a", "1" } }, "a b a b a", "1 b a" },
        // "ﬁ́" is one character and folds to more than the two of "fi".
        { "most characters, not most letters", { { "\uFB01\u0301", "1" }, { "fi", "2" } },
            "fi\u0301", "2\u0301" },
        { "of as many characters the one that reaches further",
            { { "e", "1" }, { "e\u0301", "2" } }, "e e\u0301", "1 2" },
    });
}

TEST(PersonalDictionaryApply, TermsAreLiteral)
{
    check({
        { "a plus", { { "a+b", "sum" } }, "a+b aab", "sum aab" },
        { "a dot", { { "a.b", "it" } }, "a.b acb", "it acb" },
        { "every sign of a regular expression", { { "\\^$.|?*+()[]{}", "signs" } },
            "so \\^$.|?*+()[]{} so", "so signs so" },
        { "an end of quoting", { { "a\\Eb", "1" } }, "a\\Eb", "1" },
        { "a class", { { "\\w", "1" } }, "a \\w", "a 1" },
        { "a sign at the end, before a letter", { { "a+", "plus" } }, "a+x a+ a++",
            "a+x plus plus+" },
        { "a sign at the beginning, behind a letter", { { ".net", "NET" } }, "asp.net .net",
            "asp.net NET" },
        { "signs alone", { { "->", "→" } }, "a -> b->c", "a → b->c" },
        { "a NUL", { { std::string("a\0b", 3), "1" }, { "a", "2" } }, std::string("a\0b a", 5),
            "1 2" },
        { "only the start of another with a NUL", { { std::string("a\0\0", 3), "1" } }, "a", "a" },
    });
}

TEST(PersonalDictionaryApply, ReplacementsAreWrittenAsStored)
{
    check({
        { "in their own case", { { "foo", "Bar" } }, "FOO", "Bar" },
        { "without being searched again", { { "a", "b" }, { "b", "c" } }, "a b", "b c" },
        { "even into themselves", { { "a", "a a" } }, "a", "a a" },
        { "with the signs of a regular expression's replacement", { { "a", "$0\\1&" } }, "a",
            "$0\\1&" },
        { "empty", { { "cat", "" } }, "a cat.", "a ." },
        { "behind characters of four bytes and several code points", { { "cat", "dog" } },
            "😀 cat 👩\u200D👩\u200D👧 cat 🇩🇪 cat", "😀 dog 👩\u200D👩\u200D👧 dog 🇩🇪 dog" },
    });
}

TEST(PersonalDictionaryApply, CaseIsFoldedToFindAndLoweredToReplace)
{
    check({
        { "Cyrillic", { { "жук", "Жук" } }, "ЖУК Жук", "Жук Жук" },
        { "beyond the basic plane", { { "𐐨𐐩", "1" } }, "𐐀𐐁", "1" },
        { "capital ẞ becomes ß", { { "straße", "1" } }, "STRAẞE", "1" },
        { "SS only folds to ß and stays", { { "straße", "1" } }, "STRASSE strasse",
            "STRASSE strasse" },
        { "ß only folds to ss and stays", { { "strasse", "1" } }, "Straße", "Straße" },
        { "unless both are terms", { { "straße", "1" }, { "strasse", "2" } }, "Straße STRASSE",
            "1 2" },
        { "what stays is behind us", { { "straße a", "1" }, { "a b", "2" } }, "strasse a b",
            "strasse a b" },
        { "no half of a ß", { { "s", "1" } }, "ß s", "ß 1" },
        { "no half of a ligature", { { "f", "1" }, { "fi", "2" } }, "ﬁ f", "ﬁ 1" },
        { "a ligature is a term", { { "ﬁ", "1" } }, "ﬁ fi", "1 fi" },
        { "İ is i with a dot", { { "i\u0307", "1" } }, "İ i\u0307 I", "1 1 I" },
        { "the dotless i is another letter", { { "i", "1" } }, "ı I", "ı 1" },
        { "a final sigma at the end", { { "οδος", "1" } }, "ΟΔΟΣ οδος", "1 1" },
        { "another sigma there only folds to it", { { "οδος", "1" } }, "οδοσ", "οδοσ" },
        { "the Kelvin sign", { { "k", "1" } }, "\u212A K", "1 1" },
        { "as a term", { { "\u212A", "1" } }, "k", "1" },
        { "the Ångström sign", { { "å", "1" } }, "\u212B Å", "1 1" },
        { "but not in two code points", { { "å", "1" } }, "a\u030A", "a\u030A" },
        { "a long s only folds to s", { { "s", "1" } }, "ſ", "ſ" },
        { "Cherokee folds to capitals", { { "ꭰ", "1" } }, "Ꭰ ꭰ", "1 1" },
        { "iota below", { { "ᾳ", "1" } }, "ᾼ ᾳ αι", "1 1 αι" },
    });
}

TEST(PersonalDictionaryApply, BytesThatAreNotUtf8Stay)
{
    check({
        { "beside a term", { { "cat", "dog" } },
            "\xff"
            "cat\xc3",
            "\xff"
            "dog\xc3" },
        { "inside one", { { "cat", "dog" } },
            "c\x80"
            "at cat",
            "c\x80"
            "at dog" },
    });
}

TEST(PersonalDictionaryApply, ALongTextOfLongWords)
{
    std::string text, expected;
    for (int number = 0; number < 2'000; ++number) {
        text += "Donaudampfschifffahrtsgesellschaftskapitänsmütze ";
        text += number % 2 == 0 ? "STRASSENBAHN " : "Straßenbahn ";
        expected += "Donaudampfschifffahrtsgesellschaftskapitänsmütze ";
        expected += number % 2 == 0 ? "STRASSENBAHN " : "Tram ";
    }
    EXPECT_EQ(PersonalDictionary::apply(
                  dictionaryOf({ { "straßenbahn", "Tram" }, { "kapitän", "Käpt'n" } }), text),
        expected);
}

// The terms are not lower-cased before they are folded, since that changes nothing.
TEST(PersonalDictionaryApply, LoweringACharacterDoesNotChangeWhatItFoldsTo)
{
    for (UChar32 character = 0; character <= UCHAR_MAX_VALUE; ++character) {
        icu::UnicodeString text(character), lower(character);
        lower.toLower(icu::Locale::getRoot());
        ASSERT_EQ(text.foldCase(), lower.foldCase()) << character;
    }
}

// Such a match may stay as it is, but then nothing else is found in it.
TEST(PersonalDictionaryApply, EveryCharacterMatchesWhatItFoldsTo)
{
    int folding = 0;
    for (UChar32 character = 0; character <= UCHAR_MAX_VALUE; ++character) {
        const icu::UnicodeString text(character);
        const auto folded = icu::UnicodeString(text).foldCase();
        if (folded == text)
            continue;
        ++folding;
        std::string term, rest;
        (folded + u" b").toUTF8String(term);
        (text + u" b c").toUTF8String(rest);
        const auto dictionary = dictionaryOf({ { term, "folded" }, { "b c", "missed" } });
        ASSERT_FALSE(PersonalDictionary::apply(dictionary, rest).contains("missed")) << term;
    }
    EXPECT_GT(folding, 1'000);
}

TEST(PersonalDictionaryApply, EveryCharacterKeepsATermOutOrNotAsInARegularExpression)
{
    const auto dictionary = dictionaryOf({ { "cat", "dog" } });
    LiteralDictionary literal(dictionary);
    for (UChar32 character = 0; character <= UCHAR_MAX_VALUE;) {
        std::string text;
        for (int count = 0; count < 0x800; ++count, ++character) {
            const icu::UnicodeString beside(U_IS_SURROGATE(character) ? ' ' : character);
            (u" cat" + beside).toUTF8String(text);
            (u" " + beside + u"cat").toUTF8String(text);
        }
        ASSERT_EQ(PersonalDictionary::apply(dictionary, text), literal.apply(text));
    }
}

} // namespace
} // namespace vesko
