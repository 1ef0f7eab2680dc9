#include "VeskoCore/insertion/PersonalDictionary.h"

#include "tests/core/Repeated.h"

#include <gmock/gmock.h>

namespace vesko {

void PrintTo(const DictionarySuggestion& suggestion, std::ostream* out)
{
    *out << suggestion.original << " -> " << suggestion.replacement
         << (suggestion.automatic ? "" : " ?");
}

namespace {

using PersonalDictionary::corrections;
using testing::IsEmpty;

using Found = std::vector<DictionarySuggestion>;

struct CorrectionsCase {
    const char* name;
    std::string original, edited;
    Found expected;
};

void checkCorrections(const std::vector<CorrectionsCase>& cases)
{
    for (const auto& row : cases)
        EXPECT_EQ(corrections(row.original, row.edited), row.expected) << row.name;
}

TEST(PersonalDictionaryCorrections, SomeTextsTellNothing)
{
    checkCorrections({
        { "equal ones", "my wrld", "my wrld", {} },
        { "canonically equal ones", "caf\u00E9s", "cafe\u0301s", {} },
        { "empty ones", "", "", {} },
        { "a web address in the edited one", "see wrld", "see https://world", {} },
        { "in the original", "see http://wrld", "see world", {} },
        { "within a word", "xhttp://wrld", "world", {} },
        { "a mail address in the edited one only", "mail wrld now", "mail me@world now", {} },
        { "in the original only", "a@wrld", "world", {} },
        { "something like one", "wrld .@.", "world .@.", {} },
        { "only digits", "hello wrld", "12 34", {} },
        { "no word before", "!? 1", "hello world", {} },
        { "other punctuation", "hello, world", "hello world!", {} },
        { "other line ends", "hello\nworld", "hello\r\nworld", {} },
    });
}

TEST(PersonalDictionaryCorrections, WhatOnlyLooksLikeAnAddressIsNone)
{
    const Found world{ { "wrld", "world", true } };
    checkCorrections({
        { "a capital scheme", "HTTP://wrld", "HTTP://world", { { "wrld", "world", true } } },
        { "another scheme", "ftp://wrld", "ftp://world", world },
        { "an @ by itself", "wrld @ home", "world @ home", world },
        { "at the beginning", "@wrld", "@world", world },
        { "at the end", "wrld@", "world@", world },
        { "before a no-break space", "wrld@\u00A0me", "world@\u00A0me", world },
    });
}

TEST(PersonalDictionaryCorrections, TheLimitsOfATextAreInclusive)
{
    const auto filled = [](const char* word, const char* filler, int characters) {
        return std::string(word) + repeated(filler, characters - 4);
    };
    const Found pair{ { "wrld", "wxld", true } };
    checkCorrections({
        { "8,000 characters", filled("wrld", ".", 8'000), filled("wxld", ".", 8'000), pair },
        { "8,001 in the original", filled("wrld", ".", 8'001), filled("wxld", ".", 8'000), {} },
        { "8,001 in the edited one", filled("wrld", ".", 8'000), filled("wxld", ".", 8'001), {} },
        { "8,000 of several code points each", filled("wrld", "👍🏽", 8'000),
            filled("wxld", "👍🏽", 8'000), pair },
        { "8,001 of these", filled("wrld", "👍🏽", 8'001), filled("wxld", "👍🏽", 8'000), {} },
        { "256 words", "wrld" + repeated(" so", 255), "wxld" + repeated(" so", 255), pair },
        { "257 in the original", "wrld" + repeated(" so", 256), "wxld" + repeated(" so", 255), {} },
        { "257 in the edited one", "wrld" + repeated(" so", 255), "wxld" + repeated(" so", 256),
            {} },
        { "letters alone are no words", "wrld" + repeated(" a", 400), "wxld" + repeated(" a", 400),
            pair },
        { "2,000 long words", repeated("Donaudampfschifffahrtsgesellschaft ", 2'000),
            repeated("Donaudampfschiffahrtsgesellschaft ", 2'000), {} },
    });
}

TEST(PersonalDictionaryCorrections, WordsAreLettersMarksApostrophesAndHyphens)
{
    checkCorrections({
        { "digits end one", "abcd123", "abce123", { { "abcd", "abce", true } } },
        { "an underscore ends one", "abcd_efgh", "abcx_efgh", { { "abcd", "abcx", true } } },
        { "both apostrophes are part", "don't won’t", "dom't wom’t",
            { { "don't", "dom't", true }, { "won’t", "wom’t", true } } },
        { "hyphens are part", "well-knwn", "well-known", { { "well-knwn", "well-known", true } } },
        { "but don't begin one", "-wrld 'thng", "-world 'thing",
            { { "wrld", "world", true }, { "thng", "thing", true } } },
        { "marks are part", "नमस्त", "नमस्ते", { { "नमस्त", "नमस्ते", true } } },
        { "a surrogate pair is a letter", "𐐨𐐩𐐪", "𐐨𐐩𐐫", { { "𐐨𐐩𐐪", "𐐨𐐩𐐫", true } } },
        { "40 letters are one", repeated("a", 40), repeated("a", 39) + "b",
            { { repeated("a", 40), repeated("a", 39) + "b", true } } },
        { "the 41st begins another", repeated("a", 40) + "bcde", repeated("a", 40) + "bcdx",
            { { "bcde", "bcdx", true } } },
        { "and is none by itself", repeated("a", 40) + "b", repeated("a", 40) + "c", {} },
        { "a letter alone is none", "a wrld", "b world", { { "wrld", "world", true } } },
    });
}

TEST(PersonalDictionaryCorrections, OnlyOneForOneSubstitutionsPair)
{
    checkCorrections({
        { "a word inserted before", "hello wrld", "oh hello world", { { "wrld", "world", true } } },
        { "a word removed", "hello big wrld", "hello world", { { "wrld", "world", true } } },
        { "a word split is its last part and one inserted", "goodmorning all", "good morning all",
            { { "goodmorning", "morning", false } } },
        { "words merged likewise", "good morning all", "goodmorning all",
            { { "morning", "goodmorning", false } } },
        { "in the order of the text", "onne two thre", "one two three",
            { { "onne", "one", true }, { "thre", "three", true } } },
        { "twice the same", "wrld and wrld", "world and world", { { "wrld", "world", true } } },
        { "the later place counts", "wrld thng wrld", "world thing world",
            { { "thng", "thing", true }, { "wrld", "world", true } } },
        { "two replacements of one word", "wrld and wrld", "world and wild",
            { { "wrld", "world", true }, { "wrld", "wild", true } } },
        { "from the end a substitution before a removal", "cats dogs", "cots",
            { { "dogs", "cots", false } } },
        { "other encodings are the same word", "cafe\u0301 wrld", "caf\u00E9 world",
            { { "wrld", "world", true } } },
    });
}

TEST(PersonalDictionaryCorrections, WhichPairsAreOffered)
{
    checkCorrections({
        { "receive", "recieve", "receive", { { "recieve", "receive", true } } },
        { "a common replacement", "teh", "the", {} },
        { "a common original", "the", "thy", {} },
        { "in capitals", "Teh", "THE", {} },
        { "a common Russian replacement", "севодня", "сегодня", {} },
        { "a Russian pair", "превет мир", "привет мир", { { "превет", "привет", true } } },
        { "something quite different", "cat", "dog", { { "cat", "dog", false } } },
        { "too short an original", "ab", "abc", {} },
        { "too short a replacement", "abc", "ab", {} },
        { "characters count, not code points", "e\u0301e\u0301", "e\u0301e\u0301e", {} },
        { "a change of case", "paris", "Paris", { { "paris", "Paris", true } } },
        { "both keep their case", "PARIS", "Pariss", { { "PARIS", "Pariss", true } } },
    });
}

TEST(PersonalDictionaryCorrections, EveryCommonWordIsDroppedOnEitherSide)
{
    for (const std::string common : { "the", "and", "for", "not", "you", "your", "our", "his",
             "her", "was", "are", "will", "can", "may", "today", "tomorrow", "yesterday", "это",
             "как", "для", "что", "его", "она", "они", "нас", "нам", "мне", "тебя", "тебе", "был",
             "была", "будет", "сегодня", "завтра", "вчера" }) {
        EXPECT_THAT(corrections(common, common + "xy"), IsEmpty()) << common;
        EXPECT_THAT(corrections(common + "xy", common), IsEmpty()) << common;
        EXPECT_EQ(corrections(common + "xy", common + "xz").size(), 1U) << common;
    }
}

TEST(PersonalDictionaryCorrections, OneEditIsAllowedForThreeCharacters)
{
    for (int length = 3; length <= 40; ++length) {
        const int allowance = length / 3;
        const auto word = repeated("a", length);
        const auto changed
            = [&](int edits) { return repeated("b", edits) + repeated("a", length - edits); };
        const auto automatic = [&](const std::string& before, const std::string& after) {
            const auto found = corrections(before, after);
            EXPECT_EQ(found.size(), 1U) << length;
            return !found.empty() && found.front().automatic;
        };
        EXPECT_TRUE(automatic(word, changed(allowance))) << length;
        EXPECT_FALSE(automatic(word, changed(allowance + 1))) << length;
    }
}

TEST(PersonalDictionaryCorrections, TheLongerWordSetsTheAllowance)
{
    checkCorrections({
        { "three characters more make nine", "abcdef", "abcdefghi",
            { { "abcdef", "abcdefghi", true } } },
        { "and the other way", "abcdefghi", "abcdef", { { "abcdefghi", "abcdef", true } } },
        { "two more make five", "abc", "abcde", { { "abc", "abcde", false } } },
        { "clusters count as one each", "x\u0301y\u0301z\u0301", "x\u0302y\u0302z\u0301",
            { { "x\u0301y\u0301z\u0301", "x\u0302y\u0302z\u0301", false } } },
        { "lowered, İ is still one", "abİ", "abi", { { "abİ", "abi", true } } },
    });
}

} // namespace
} // namespace vesko
