#include "VeskoLinux/speech/Cld2LanguageRecognizer.h"

#include "VeskoCore/speech/SpokenLanguage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <map>

namespace vesko {
namespace {

using testing::Each;
using testing::Ge;
using testing::Pair;

// What somebody might dictate. The kinds: clear sentences; sentences in further languages, related
// to one another; short ones; several languages in one; none at all.
struct Sample {
    std::string kind;
    std::string language; // "-" for none
    std::string text;
};

std::vector<Sample> samples()
{
    std::ifstream file(VESKO_TEST_DATA "/language/texts.tsv");
    std::vector<Sample> all;
    Sample sample;
    while (std::getline(file, sample.kind, '\t') && std::getline(file, sample.language, '\t')
        && std::getline(file, sample.text))
        all.push_back(sample);
    return all;
}

// The clear sentences two by two, as one text.
std::vector<Sample> pairs()
{
    std::vector<Sample> all;
    bool open = false;
    for (const auto& sample : samples()) {
        if (sample.kind != "clear")
            continue;
        if (open)
            all.back().text += " " + sample.text;
        else
            all.push_back(sample);
        open = !open;
    }
    return all;
}

double confidence(const std::string& text)
{
    const auto finding = Cld2LanguageRecognizer().recognize(text);
    return finding ? finding->confidence : 0;
}

// The code of the language that would be put to the user as found; empty for none.
std::string found(const std::string& text)
{
    const auto finding = Cld2LanguageRecognizer().recognize(text);
    if (!finding)
        return "";
    EXPECT_GE(finding->confidence, 0) << text;
    EXPECT_LE(finding->confidence, 1) << text;
    const auto question = SpokenLanguage::question(
        finding->language, finding->confidence, SpokenLanguage::letters(text), "auto", false, {});
    return question ? SpokenLanguage::code(question->detected.value()) : "";
}

// Of every hundred samples of a kind, how many are found.
template <class Key>
std::map<std::string, int> ratesBy(const std::vector<Sample>& of, Key key)
{
    std::map<std::string, int> all, right;
    for (const auto& sample : of) {
        ++all[key(sample)];
        right[key(sample)] += found(sample.text) == sample.language ? 1 : 0;
    }
    for (auto& [name, count] : right)
        count = count * 100 / all[name];
    return right;
}

TEST(Cld2LanguageRecognizer, FindsNoWrongLanguageInAnyText)
{
    ASSERT_GE(samples().size(), 200U);
    for (const auto& sample : samples()) {
        const auto language = found(sample.text);
        EXPECT_TRUE(language.empty() || language == sample.language)
            << language << " in " << sample.kind << " text: " << sample.text;
    }
    for (const auto& pair : pairs()) {
        const auto language = found(pair.text);
        EXPECT_TRUE(language.empty() || language == pair.language) << language << ": " << pair.text;
    }
}

TEST(Cld2LanguageRecognizer, FindsMostClearSentences)
{
    const auto rates = ratesBy(samples(), [](const Sample& sample) { return sample.kind; });
    EXPECT_GE(rates.at("clear"), 75);
    EXPECT_GE(rates.at("related"), 60);
    auto clear = samples();
    std::erase_if(clear, [](const Sample& sample) { return sample.kind != "clear"; });
    const auto each = ratesBy(clear, [](const Sample& sample) { return sample.language; });
    EXPECT_EQ(each.size(), 12U);
    EXPECT_THAT(each, Each(Pair(testing::_, Ge(50))));
}

TEST(Cld2LanguageRecognizer, FindsAlmostEveryPairOfSentences)
{
    const auto rates = ratesBy(pairs(), [](const Sample&) { return "pair"; });
    EXPECT_GE(rates.at("pair"), 95);
}

TEST(Cld2LanguageRecognizer, FindsNothingWhereNothingIsWritten)
{
    for (const std::string text : { "", " ", "\n\t ", "12:30", "?!", "\U0001F600\U0001F468", "x",
             "a\xff", "\xff\xfe\xfd", "The results are better than we \xc3 expected.", "\xc3" })
        EXPECT_EQ(Cld2LanguageRecognizer().recognize(text), std::nullopt) << text;
    const std::string zero("\0\0\0\0", 4);
    EXPECT_EQ(Cld2LanguageRecognizer().recognize(zero), std::nullopt);
}

TEST(Cld2LanguageRecognizer, IsSureOnlyIfThePartsOfATextAgree)
{
    const struct {
        const char* what;
        std::string text;
        double least, most;
    } rows[] = {
        { "one language throughout",
            "The results are better than we expected, and everybody was happy about it.", 0.9, 1 },
        { "another language in one part",
            "Grazie mille per tutto, thank you very much for everything you did.", 0.1, 0.79 },
        { "another script in one part", "明日は会議があります。 The meeting starts at nine.", 0,
            0.6 },
        { "a reliable finding that rests on nothing", "Hotel Barcelona", 0, 0 },
    };
    for (const auto& row : rows) {
        EXPECT_GE(confidence(row.text), row.least) << row.what;
        EXPECT_LE(confidence(row.text), row.most) << row.what;
    }
}

TEST(Cld2LanguageRecognizer, TagsAreThoseInUse)
{
    const struct {
        const char* text;
        const char* tag;
    } rows[] = {
        { "אני חושב שכדאי לחכות עד שכולם יקראו את המסמך הזה עד הסוף.", "he" },
        { "Kan du hente barna på skolen klokka fire? Jeg er ikke hjemme før klokka seks i kveld, "
          "og det blir ikke lett å rekke det.",
            "no" },
        { "請提醒我明天早上十點以前給牙醫打電話，還有買牛奶和麵包。", "zh-Hant" },
    };
    for (const auto& row : rows) {
        const auto finding = Cld2LanguageRecognizer().recognize(row.text);
        ASSERT_TRUE(finding) << row.tag;
        EXPECT_EQ(finding->language, row.tag);
    }
}

TEST(Cld2LanguageRecognizer, ALongTextIsJudgedByItsBeginning)
{
    // The end of what is looked at falls on each byte of a letter.
    for (std::string text : { "", "x", "xx" }) {
        while (text.size() < 10'000)
            text += "弟は川の近くの小さな家に住んでいます。";
        text.append(1'000'000, '\xff');
        EXPECT_EQ(found(text), "ja");
    }
    EXPECT_EQ(found(std::string(1'000'000, 'x')), "");
}

TEST(Cld2LanguageRecognizer, MarkupIsText)
{
    EXPECT_EQ(
        found("<The results are better than we expected, and everybody was happy about it>"), "en");
}

} // namespace
} // namespace vesko
