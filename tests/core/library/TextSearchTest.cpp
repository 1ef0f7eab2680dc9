#include "VeskoCore/library/TextSearch.h"
#include "tests/core/library/LiteralSearch.h"

#include <gtest/gtest.h>
#include <random>
#include <unicode/stsearch.h>
#include <unicode/tblcoll.h>

namespace vesko {
namespace {

bool isFound(std::string_view query, std::string_view text, std::string_view language = "en")
{
    return TextSearch(query, language).foundIn(text);
}

struct SearchCase {
    const char* name;
    std::string_view query, text;
    bool found = true;
};

class TextSearchTest : public testing::TestWithParam<SearchCase> { };

TEST_P(TextSearchTest, IgnoresCaseAndDiacritics)
{
    const auto& [name, query, text, found] = GetParam();
    TextSearch search(query, "en");
    // Wherever in the text, whatever is around it.
    for (const std::size_t blanks : { 0, 1, 15, 16, 17, 40 }) {
        const std::string around(blanks, '.');
        EXPECT_EQ(search.foundIn(around + std::string(text)), found) << blanks;
        EXPECT_EQ(search.foundIn(around + std::string(text) + around), found) << blanks;
        EXPECT_EQ(search.foundIn("会" + around + std::string(text) + "会"), found) << blanks;
    }
}

INSTANTIATE_TEST_SUITE_P(Texts, TextSearchTest,
    testing::Values(SearchCase{ "TheSame", "note", "a note" },
        SearchCase{ "SearchCase", "NoTe", "a nOtE" }, SearchCase{ "Other", "note", "a not", false },
        SearchCase{ "OneLetter", "z", "az" }, SearchCase{ "NotOneLetter", "z", "ay", false },
        SearchCase{ "ABlank", " ", "a b" }, SearchCase{ "NoBlank", " ", "ab", false },
        SearchCase{ "BlanksCount", "a  b", "a b", false },
        SearchCase{ "ALineEndIsNoBlank", "a b", "a\nb", false },
        SearchCase{ "Marks", "c++", "in C++23" },
        SearchCase{ "OtherMarks", "c++", "in c--", false },
        SearchCase{ "RepeatedBeginning", "aab", "aaab" },
        SearchCase{ "AccentInTheText", "uberall", "Überall" },
        SearchCase{ "AccentInTheQuery", "ÜBERALL", "uberall" },
        SearchCase{ "AccentOfItsOwn", "cafe", "cafe\u0301" },
        SearchCase{ "AccentWithinTheWord", "naive", "nai\u0308ve" },
        SearchCase{ "TwoAccents", "viet", "Vi\u1ec7t" },
        SearchCase{ "TwoAccentsOfTheirOwn", "việt", "Vie\u0302\u0323t" },
        SearchCase{ "Stroke", "lodz", "Łódź" }, SearchCase{ "SharpS", "strasse", "STRAẞE" },
        SearchCase{ "SharpSInTheQuery", "straße", "strasse" },
        SearchCase{ "WithinASharpS", "stras", "straße" },
        SearchCase{ "FromWithinASharpS", "se", "straße" }, SearchCase{ "Ligature", "fish", "ﬁsh" },
        SearchCase{ "Ae", "aero", "Ærø" }, SearchCase{ "FullWidth", "abc", "ＡＢＣ" },
        SearchCase{ "DottedCapitalI", "istanbul", "İstanbul" },
        SearchCase{ "DotlessI", "isparta", "ısparta", false },
        SearchCase{ "KelvinSign", "5 k", "5 \u212a" }, SearchCase{ "Greek", "οδος", "ΟΔΌΣ" },
        SearchCase{ "Cyrillic", "ёлка", "ЕЛКА" }, SearchCase{ "ShortIIsALetter", "и", "й", false },
        SearchCase{ "ShortIIsALetterHoweverEncoded", "и", "и\u0306", false },
        SearchCase{ "ShortIIsFoundHoweverEncoded", "й", "и\u0306" },
        SearchCase{ "Hebrew", "שלום", "שָׁלוֹם" }, SearchCase{ "Arabic", "سلام", "سَلَام" },
        SearchCase{ "Thai", "กน", "ก่น" }, SearchCase{ "ThaiVowelsAreLetters", "กน", "กุน", false },
        SearchCase{ "Devanagari", "हिन्दी", "हिन्दी" },
        SearchCase{ "DevanagariVowelsAreLetters", "हन", "हिन", false },
        SearchCase{ "KanaOfEitherKind", "ひらがな", "ヒラカ\u3099ナ" },
        SearchCase{ "HalfWidthKana", "カタカナ", "ｶﾀｶﾅ" }, SearchCase{ "Han", "議", "会議" },
        SearchCase{ "OtherHan", "儀", "会議", false },
        SearchCase{ "Hangul", "한국", "\u1112\u1161\u11ab국" },
        SearchCase{ "HangulInParts", "\u1112\u1161\u11ab국", "한국" },
        SearchCase{ "HangulWhileTyped", "하", "한국" }, SearchCase{ "Emoji", "👍", "great 👍🏽!" },
        SearchCase{ "OtherEmoji", "👍", "👎", false },
        SearchCase{ "EmojiWithJoiners", "👩👧", "👩‍👧" },
        SearchCase{ "SoftHyphen", "cooperate", "co\u00adoperate" },
        SearchCase{ "JoinerBehindTheFirst", "ab", "a\u200db" },
        SearchCase{ "ControlCharacterBetween", "ab", std::string_view("a\1b") },
        SearchCase{ "ZeroBetween", "ab", std::string_view("a\0b", 3) },
        SearchCase{ "NothingThatIsALetter", "\u0301", "abc" },
        SearchCase{ "LongerThanTheText", "abcdefghijklmnopqrstuvwxyz", "abc", false }),
    [](const auto& info) { return info.param.name; });

TEST(TextSearch, TellsTheDotlessIInTheLanguagesThatDo)
{
    for (const auto* language : { "tr", "az" }) {
        EXPECT_TRUE(isFound("ISPARTA", "ısparta", language));
        EXPECT_TRUE(isFound("istanbul", "İSTANBUL", language));
        EXPECT_TRUE(isFound("istanbul", "I\u0307stanbul", language));
        EXPECT_FALSE(isFound("i", "I", language));
        EXPECT_FALSE(isFound("ı", "i", language));
    }
    EXPECT_TRUE(isFound("i", "I"));
    EXPECT_TRUE(isFound("malmo", "Malmö", "sv")) << "an accent counts in no language";
}

TEST(TextSearch, FindsEachMatchOfAText)
{
    const struct {
        const char* what;
        std::string_view query, text;
        std::vector<std::string> found;
    } cases[] = {
        { "none", "fern", "a tree", {} },
        { "several, one behind the other", "an", "Banana", { "an", "an" } },
        { "none within another", "aa", "aaaaa", { "aa", "aa" } },
        { "case and accents", "uber", "Über uber", { "Über", "uber" } },
        { "an accent of its own", "cafe", "a cafe\u0301.", { "cafe\u0301" } },
        { "whole characters", "se", "Straße", { "ße" } },
        { "no query", "", "a tree", {} },
    };
    for (const auto& [what, query, text, found] : cases) {
        SCOPED_TRACE(what);
        TextSearch search(query, "en");
        std::vector<std::string> got;
        std::size_t behind = 0;
        while (const auto match = search.next(text, behind)) {
            ASSERT_GE(match->begin, behind);
            ASSERT_GT(match->end, match->begin);
            got.emplace_back(text.substr(match->begin, match->end - match->begin));
            behind = match->end;
        }
        EXPECT_EQ(got, found);
    }
}

TEST(TextSearch, StaysWithinTextsThatAreNotUtf8)
{
    for (const auto* text :
        { "\xc3", "a\xff\xc3", "\x80\x80\x80", "\xf0\x9f", "e\xcc", "a\xe4\xbc" })
        for (const auto* query : { "a", "e", "\xc3", "會", "é" })
            isFound(query, text);
}

TEST(TextSearch, IsInTimeWithAMillionMarks)
{
    std::string marks;
    for (int count = 0; count < 500'000; ++count)
        marks += "\u0301";
    EXPECT_FALSE(isFound("x", "a" + marks));
    EXPECT_TRUE(isFound("ab", "a" + marks + "b"));
}

// Pieces of which random texts are made: what changes its length or its neighbours.
const std::vector<std::string> pieces{ "a", "A", "b", "e", "i", "I", "s", "S", "o", "n", "f", " ",
    ".", "\n", "\1", "ß", "ẞ", "ſ", "ﬁ", "ﬀ", "İ", "ı", "é", "E\u0301", "\u0301", "\u0323",
    "\u0302", "ệ", "ậ", "Å", "\u212b", "\u212a", "k", "æ", "ø", "ł", "й", "и", "\u0306", "ё", "е",
    "σ", "ς", "Σ", "ά", "한", "하", "\u1112", "\u1161", "\u11ab", "ㅎ", "か", "が", "カ", "\u3099",
    "ｶ", "会", "議", "㊊", "月", "\uf900", "👩", "\u200d", "👧", "🏽", "👍", "❤", "\ufe0f", "ש",
    "\u05c1", "ב", "א", "ا", "أ", "\u0654", "\u064e", "ก", "เ", "ุ", "่", "क", "\u093c", "क़", "ि", "্",
    "\u09c7", "\u09be", "ো", "①", "1", "٣", "Ａ", "\u00ad", "\u0344", "\u0340", "\u0f71", "\u0f72",
    "\u0f73", "\U0001d5ba", "\u0345" };

TEST(TextSearch, IsTheDefinitionOnRandomTextsOfManyScripts)
{
    std::mt19937 random(20261121);
    const auto text = [&](std::size_t most, std::size_t alphabet, std::size_t first) {
        std::string text;
        for (auto count = random() % (most + 1); count > 0; --count)
            text += pieces[(first + random() % alphabet) % pieces.size()];
        return text;
    };
    constexpr int queries = 600, textsOfEach = 100;
    int found = 0;
    for (int round = 0; round < queries; ++round) {
        // Few different pieces, so that queries are found now and then.
        const auto alphabet = 2 + random() % 12;
        const auto first = random() % pieces.size();
        const auto query = text(4, alphabet, first);
        TextSearch search(query, "en");
        for (int count = 0; count < textsOfEach; ++count) {
            const auto searched = text(40, alphabet, first);
            const bool expected = LiteralSearch::isFound(query, searched);
            ASSERT_EQ(search.foundIn(searched), expected)
                << '[' << query << "] in [" << searched << ']';
            found += expected;
        }
    }
    EXPECT_GT(found, 10'000);
    EXPECT_LT(found, 50'000);
}

// In scripts where a query doesn't begin or end within a character, ICU's own search agrees.
TEST(TextSearch, FindsWhatTheCollationFindsInWordsOfManyScripts)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::Collator> root(
        icu::Collator::createInstance(icu::Locale::getRoot(), status));
    root->setStrength(icu::Collator::PRIMARY);
    static const std::vector<std::string> words{ "Müller", "MULLER", "cafe", "café", "CAFE\u0301",
        "naïve", "Łódź", "lodz", "ёлка", "ЕЛКА", "йод", "иод", "Ωmega", "ωΜΕΓΑ", "שָׁלוֹם", "שלום",
        "会議", "会", "かな", "カナ", "한국", "मराठी", "the", "meeting", "٣", "ﬁsh", "fish",
        "Straße", "STRASSE", "👍" };
    std::mt19937 random(20261122);
    constexpr int textsOfEach = 100;
    int found = 0;
    for (const auto& query : words) {
        TextSearch fast(query, "en");
        for (int round = 0; round < textsOfEach; ++round) {
            std::string text = " ";
            for (auto count = random() % 20; count > 0; --count)
                text += words[random() % words.size()] + ' ';
            icu::StringSearch slow(icu::UnicodeString::fromUTF8(query),
                icu::UnicodeString::fromUTF8(text),
                dynamic_cast<icu::RuleBasedCollator*>(root.get()), nullptr, status);
            ASSERT_TRUE(U_SUCCESS(status));
            const bool expected = slow.first(status) != USEARCH_DONE;
            ASSERT_EQ(fast.foundIn(text), expected) << '[' << query << "] in [" << text << ']';
            found += expected;
        }
    }
    EXPECT_GT(found, 500);
}

} // namespace
} // namespace vesko
