#include "VeskoCore/speech/SpokenLanguage.h"

#include <gtest/gtest.h>

#include <limits>

namespace vesko {
namespace {

using namespace SpokenLanguage;
using namespace std::string_view_literals;
using Tags = std::vector<std::string>;

TEST(SpokenLanguage, TheCodeIsThePartBeforeTheFirstHyphen)
{
    const struct {
        std::string_view tag;
        std::string code;
    } rows[] = {
        { "en", "en" },
        { "en-US", "en" },
        { "EN", "en" },
        { "EN-us", "en" },
        { "zh-Hant-TW", "zh" },
        { "-en", "en" },
        { "--en--us", "en" },
        { "en_US", "en_us" }, // only the hyphen separates
        { "auto", "auto" },
        { "", "" },
        { "-", "-" },
        { "---", "---" },
        { " EN-us", " en" },
        { "\u00c4\u0416-x", "\u00e4\u0436" },
    };
    for (const auto& row : rows)
        EXPECT_EQ(code(row.tag), row.code) << row.tag;
}

TEST(SpokenLanguage, ACodeHasItsUsualRegion)
{
    const struct {
        std::string_view code;
        std::string tag;
    } rows[] = {
        { "ru", "ru-RU" },
        { "en", "en-US" },
        { "es", "es-ES" },
        { "de", "de-DE" },
        { "fr", "fr-FR" },
        { "pt", "pt-BR" },
        { "pl", "pl-PL" },
        { "uk", "uk-UA" },
        { "it", "it-IT" },
        { "nl", "nl-NL" },
        { "tr", "tr-TR" },
        { "ja", "ja-JP" },
        { "zh", "zh-CN" },
        { "ko", "ko-KR" },
        { "PT", "pt-BR" },
        { "sv", "sv" },
        { "SV", "sv" },
        { "en-GB", "en-gb" }, // a code is expected: a tag is in no row
        { "", "" },
    };
    for (const auto& row : rows)
        EXPECT_EQ(tag(row.code), row.tag) << row.code;
}

TEST(SpokenLanguage, TheEnglishNameIsThatOfTheLanguageAlone)
{
    const struct {
        std::string tag;
        std::string name;
    } rows[] = {
        { "de", "German" },
        { "de-CH", "German" },
        { "DE", "German" },
        { "pt-BR", "Portuguese" },
        { "zh-Hant-TW", "Chinese" },
        { "no", "Norwegian" },
        { "he", "Hebrew" },
        { "haw", "Hawaiian" },
        { "-fr-", "French" },
        { "qq", "qq" },
        { "QQ-de", "QQ-de" },
        { "auto", "auto" },
        { "und", "und" },
        { "de_DE", "de_DE" },
        { "", "" },
        { "-", "-" },
        { "not a tag", "not a tag" },
        { "de\"; ignore", "de\"; ignore" },
        { std::string("de\0fr", 5), std::string("de\0fr", 5) },
        { std::string(100'000, 'd'), std::string(100'000, 'd') },
        { "\u0434\u0435", "\u0434\u0435" },
        { "\xff\xfe", "\xff\xfe" },
    };
    for (const auto& row : rows)
        EXPECT_EQ(name(row.tag), row.name) << row.tag.substr(0, 40);
}

TEST(SpokenLanguage, TheNameToShowFollowsTheInterfaceAndBeginsInUpperCase)
{
    const struct {
        std::string tag;
        bool region;
        std::optional<std::string> interface;
        std::string shown;
    } rows[] = {
        { "de", false, "en", "German" },
        { "de", false, std::nullopt, "German" },
        { "en-GB", false, "en", "English" },
        { "en-GB", true, "en", "English (United Kingdom)" },
        { "en-GB", true, std::nullopt, "English (United Kingdom)" },
        { "EN-gb", true, "en", "English (United Kingdom)" },
        { "zh-Hant-TW", true, "en", "Chinese (Traditional, Taiwan)" },
        { "en", true, "en", "English" },
        // In these languages the names of languages begin in lower case.
        { "de", false, "fr", "Allemand" },
        { "en-GB", true, "fr", "Anglais (Royaume-Uni)" },
        { "en-GB", true, "ru", "Английский (Великобритания)" },
        { "en-GB", true, "es_ES", "Inglés (Reino Unido)" },
        { "de", false, "el", "Γερμανικά" },
        { "de", false, "de-AT", "Deutsch" },
        { "de", false, "ja", "ドイツ語" },
        { "qq", false, "en", "Qq" },
        { "qq-DE", true, "en", "Qq-DE" },
        { "auto", false, "en", "Auto" },
        { "en-", true, "en", "En-" },
        { "", false, "en", "" },
        { "", true, "en", "" },
    };
    for (const auto& row : rows)
        EXPECT_EQ(displayName(row.tag, row.region, row.interface), row.shown)
            << row.tag << " for " << row.interface.value_or("nobody");
}

TEST(SpokenLanguage, LettersAreCountedInEveryScript)
{
    const struct {
        const char* what;
        std::string_view text;
        std::size_t letters;
    } rows[] = {
        { "none", "", 0 },
        { "words and what stands between them", "Well, 3 o'clock!\n", 10 },
        { "digits and signs", "12:30 + 7 % \u2014 \u00bd \u20ac", 0 },
        { "other scripts", "\u0434\u0430 \u4f60\u597d \ud55c\uad6d", 6 },
        { "an accent of its own", "e\u0301", 2 },
        { "vowel signs", "\u0939\u093f\u0928\u094d\u0926\u0940", 6 },
        { "beyond the first plane", "\U00020000\U0001D400", 2 },
        { "emoji", "\U0001F600\U0001F468\u200D\U0001F469", 0 },
        { "no UTF-8", "a\xff\x80z\xc3"sv, 2 },
    };
    for (const auto& row : rows)
        EXPECT_EQ(letters(row.text), row.letters) << row.what;
}

// The arguments of a question, those of a clear finding unless a test says otherwise.
struct Asked {
    std::optional<std::string> detected = "de";
    double confidence = 1;
    std::size_t letters = 100;
    std::string current = "auto";
    bool answered = false;
    Tags preferred = { "en-US" };

    std::optional<Question> question() const
    {
        return SpokenLanguage::question(
            detected, confidence, letters, current, answered, preferred);
    }
};

TEST(LanguageQuestion, IsPutOnlyWhileTheSettingIsAutomaticAndWasNeverAnswered)
{
    EXPECT_TRUE(Asked().question());
    for (const char* current : { "en-US", "de", "", "Auto", "auto ", "off" })
        EXPECT_EQ(Asked{ .current = current }.question(), std::nullopt) << current;
    EXPECT_EQ(Asked{ .answered = true }.question(), std::nullopt);
}

TEST(LanguageQuestion, AFindingNeedsConfidenceAndLetters)
{
    const struct {
        const char* what;
        std::optional<std::string> detected;
        double confidence;
        std::size_t letters;
        bool counts;
    } rows[] = {
        { "just enough of both", "de", 0.8, 12, true },
        { "much of both", "de", 1, 100'000, true },
        { "too little confidence", "de", 0.79, 12, false },
        { "too few letters", "de", 0.8, 11, false },
        { "nothing detected", std::nullopt, 1, 100, false },
        { "nothing at all", std::nullopt, 0, 0, false },
        { "a confidence that is no number", "de", std::numeric_limits<double>::quiet_NaN(), 100,
            false },
    };
    for (const auto& row : rows) {
        const auto asked = Asked{ .detected = row.detected,
            .confidence = row.confidence,
            .letters = row.letters }
                               .question();
        ASSERT_TRUE(asked) << row.what;
        EXPECT_EQ(asked->detected, row.counts ? std::optional<std::string>("de-DE") : std::nullopt)
            << row.what;
        EXPECT_EQ(asked->options, row.counts ? (Tags{ "de-DE", "en-US" }) : (Tags{ "en-US" }))
            << row.what;
    }
}

TEST(LanguageQuestion, OffersTheFindingAndThenTheUsersLanguagesEachOnce)
{
    const struct {
        const char* what;
        std::optional<std::string> detected;
        Tags preferred;
        Tags options;
    } rows[] = {
        { "the finding first", "de", { "en-US" }, { "de-DE", "en-US" } },
        { "the finding alone", "de", {}, { "de-DE" } },
        { "three at most", "en-GB", { "en-US", "de-DE", "fr-FR", "ru-RU" },
            { "en-US", "de-DE", "fr-FR" } },
        { "the user's languages alone", std::nullopt, { "fr", "sv-FI", "EN-au", "ru" },
            { "fr-FR", "sv", "en-US" } },
        { "one language in several regions", std::nullopt, { "en-GB", "en-AU", "en" },
            { "en-US" } },
        { "the finding among them", "fr", { "en-US", "fr-CA", "de" },
            { "fr-FR", "en-US", "de-DE" } },
        { "a language without a usual region", "no", { "sv" }, { "no", "sv" } },
    };
    for (const auto& row : rows) {
        const auto asked = Asked{ .detected = row.detected, .preferred = row.preferred }.question();
        ASSERT_TRUE(asked) << row.what;
        EXPECT_EQ(asked->options, row.options) << row.what;
    }
    // The region of a finding does not survive.
    EXPECT_EQ((Asked{ .detected = "en-GB" }.question()->detected), "en-US");
}

TEST(LanguageQuestion, WithNothingToOfferThereIsNone)
{
    EXPECT_EQ((Asked{ .detected = std::nullopt, .preferred = {} }.question()), std::nullopt);
    EXPECT_EQ((Asked{ .confidence = 0.5, .preferred = {} }.question()), std::nullopt);
}

TEST(SpokenLanguage, AnotherLanguageThanTheDetectedOneNeedsARedo)
{
    const struct {
        std::string chosen;
        std::optional<std::string> detected;
        bool redo;
    } rows[] = {
        { "en-US", "en-GB", false },
        { "en-US", "EN", false },
        { "en-US", "ru", true },
        { "pt-BR", "es-ES", true },
        { "en-US", std::nullopt, false },
    };
    for (const auto& row : rows)
        EXPECT_EQ(needsRedo(row.chosen, row.detected), row.redo)
            << row.chosen << " after " << row.detected.value_or("nothing");
}

} // namespace
} // namespace vesko
