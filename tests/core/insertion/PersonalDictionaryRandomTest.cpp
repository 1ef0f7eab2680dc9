// What the dictionary does quickly, against the same in its plainest form, on random texts.

#include "VeskoCore/insertion/PersonalDictionary.h"
#include "tests/core/insertion/LiteralDictionary.h"
#include "tests/core/insertion/RandomText.h"

#include <gtest/gtest.h>
#include <unicode/unistr.h>

namespace vesko {
namespace {

// As the plain form hands a text back: what isn't UTF-8 has become U+FFFD.
std::string wellFormed(const std::string& text)
{
    std::string result;
    return icu::UnicodeString::fromUTF8(text).toUTF8String(result);
}

const std::vector<std::pair<std::string, std::string>> foldingToSeveral{ { "ﬁ", "fi" },
    { "ﬃ", "ffi" }, { "ß", "ss" }, { "ŉ", "ʼn" }, { "և", "եւ" } };
const std::vector<std::string> marks{ "\u0301", "\u0323", "\u20E3" };

// Terms that overlap, begin alike, and differ by case or encoding.
std::vector<DictionaryEntry> someEntries(RandomText& random)
{
    std::vector<DictionaryEntry> entries;
    const auto count = 1 + random.number(12);
    while (entries.size() < count) {
        DictionaryEntry entry;
        entry.original = random.pieces(1, 4);
        if (!entries.empty() && random.oneIn(3))
            entry.original = random.varied(random.oneOf(entries).original);
        if (!entries.empty() && random.oneIn(3))
            entry.original = random.oneOf(entries).original + random.pieces(0, 2);
        // A character of several folded letters, and these letters, which are more characters.
        if (entries.size() + 1 < count && random.oneIn(6)) {
            const auto [one, several] = random.oneOf(foldingToSeveral);
            entry.original = several;
            entry.replacement = "<several>";
            entries.push_back(entry);
            entry.original = one + random.oneOf(marks);
        }
        entry.replacement = "<" + std::to_string(entries.size()) + ">";
        if (random.oneIn(6))
            entry.replacement = random.pieces(0, 3);
        entry.enabled = !random.oneIn(8);
        if (random.oneIn(30))
            entry.original.clear();
        entries.push_back(entry);
    }
    return entries;
}

std::string someText(RandomText& random, const std::vector<DictionaryEntry>& entries)
{
    std::string text = random.pieces(0, 12);
    for (auto left = random.number(6); left > 0; --left) {
        if (random.oneIn(2))
            text += " ";
        text += random.varied(random.oneOf(entries).original);
        text += random.pieces(0, 2);
    }
    if (random.oneIn(20)) // no longer UTF-8
        text.insert(
            random.number(text.size() + 1), 1, static_cast<char>(0x80 + random.number(0x80)));
    return text;
}

TEST(PersonalDictionaryRandom, ATextBecomesWhatOneRegularExpressionMakesOfIt)
{
    RandomText random(1);
    int replaced = 0, leftAlone = 0;
    for (int dictionary = 0; dictionary < 1'000; ++dictionary) {
        random.chooseAlphabet();
        const auto entries = someEntries(random);
        const SharedArray terms(entries);
        LiteralDictionary literal(terms);
        for (int number = 0; number < 100; ++number) {
            const auto text = someText(random, entries);
            const auto expected = literal.apply(text);
            ASSERT_EQ(wellFormed(PersonalDictionary::apply(terms, text)), wellFormed(expected))
                << "dictionary " << dictionary << ", text " << number << ": " << text;
            replaced += literal.replacedMatches();
            leftAlone += literal.matchesLeftAlone();
        }
    }
    // The texts tell something only while they hold terms, and some that only fold to one.
    EXPECT_GT(replaced, 80'000);
    EXPECT_GT(leftAlone, 5'000);
}

// Words of a few pieces, so that many of them are alike, with all kinds of things between them.
std::vector<std::string> someWords(RandomText& random)
{
    std::vector<std::string> words{ "the", "wrld", "tomorrow", "это", "Donaudampfschifffahrt" };
    while (words.size() < 12)
        words.push_back(random.pieces(1, 5));
    return words;
}

// The words of a text that someone has worked on.
std::vector<std::string> edited(
    std::vector<std::string> text, RandomText& random, const std::vector<std::string>& words)
{
    for (auto left = random.number(5); left > 0 && !text.empty(); --left) {
        const auto at = random.number(text.size());
        switch (random.number(5)) {
        case 0:
            text[at] = random.oneOf(words);
            break;
        case 1:
            text[at] = random.varied(text[at]);
            break;
        case 2:
            text[at] += random.pieces(1, 2);
            break;
        case 3:
            text.erase(text.begin() + static_cast<std::ptrdiff_t>(at));
            break;
        default:
            text.insert(text.begin() + static_cast<std::ptrdiff_t>(at), random.oneOf(words));
        }
    }
    return text;
}

std::string joined(const std::vector<std::string>& words, const std::string& between)
{
    std::string text;
    for (const auto& word : words)
        text += (text.empty() ? "" : between) + word;
    return text;
}

TEST(PersonalDictionaryRandom, CorrectionsAreThoseOfTheRules)
{
    RandomText random(2);
    std::size_t found = 0, unsure = 0;
    for (int number = 0; number < 20'000; ++number) {
        random.chooseAlphabet();
        const auto words = someWords(random);
        std::vector<std::string> text;
        for (auto left = random.number(12); left > 0; --left)
            text.push_back(random.oneOf(words));
        const auto between = random.oneIn(5) ? random.pieces(1, 1) : " ";
        const auto before = joined(text, between);
        const auto after = joined(edited(text, random, words), between);
        const auto expected = literalCorrections(before, after);
        ASSERT_EQ(PersonalDictionary::corrections(before, after), expected)
            << "number " << number << ": " << before << " | " << after;
        found += expected.size();
        for (const auto& suggestion : expected)
            unsure += suggestion.automatic ? 0 : 1;
    }
    EXPECT_GT(found, 3'000U);
    EXPECT_GT(unsure, 1'000U);
}

} // namespace
} // namespace vesko
