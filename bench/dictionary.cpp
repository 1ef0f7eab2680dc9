// What the personal dictionary costs a transcript, and finding what the user corrected in one.

#include "VeskoCore/base/Text.h"
#include "VeskoCore/insertion/PersonalDictionary.h"
#include "bench/Budget.h"
#include "tests/core/insertion/LiteralDictionary.h"

#include <cstdlib>
#include <random>
#include <unicode/unistr.h>
#include <utility>

using namespace vesko;

namespace {

// Words of letters of one script each, from ten scripts.
class Words {
public:
    std::string word(std::size_t fewest, std::size_t most)
    {
        constexpr std::pair<unsigned, unsigned> scripts[] = { { 'a', 'z' }, { 0xE0, 0xF6 },
            { 0x3B1, 0x3C9 }, { 0x430, 0x44F }, { 0x5D0, 0x5EA }, { 0x627, 0x64A },
            { 0x915, 0x939 }, { 0x4E00, 0x9FA5 }, { 0xAC00, 0xD7A3 }, { 0x10428, 0x1044F } };
        const auto [first, last] = scripts[number(std::size(scripts))];
        std::string letters;
        for (auto left = fewest + number(most - fewest + 1); left > 0; --left)
            icu::UnicodeString(static_cast<UChar32>(first + number(last - first + 1)))
                .toUTF8String(letters);
        return letters;
    }
    std::size_t number(std::size_t end) { return m_random() % end; }

private:
    std::mt19937 m_random{ 1 };
};

SharedArray<DictionaryEntry> thousandTerms(Words& words)
{
    std::vector<DictionaryEntry> entries;
    while (entries.size() < 1'000) {
        DictionaryEntry entry;
        entry.original = words.word(4, 13);
        if (words.number(3) == 0)
            entry.original += " " + words.word(3, 10);
        entry.replacement = "Replaced";
        entries.push_back(entry);
    }
    return SharedArray(entries);
}

std::string transcript(Words& words, const SharedArray<DictionaryEntry>& terms)
{
    std::string text;
    for (std::size_t count = 0; count < 8'000;) {
        const auto word
            = words.number(300) == 0 ? terms[words.number(1'000)].original : words.word(1, 9);
        text += word + (words.number(8) == 0 ? ", " : " ");
        count += characterCount(word) + 1;
    }
    return text;
}

std::string replacedLetters(std::string word)
{
    return word.replace(word.size() / 2, 2, "XY");
}

} // namespace

int main()
{
    Words words;
    const auto terms = thousandTerms(words);
    const auto text = transcript(words, terms);
    std::vector<double> times;
    bench::compare(
        "1,000 terms in 8,000 characters, vs one regular expression",
        [&] {
            times.push_back(bench::seconds([&] {
                if (PersonalDictionary::apply(terms, text) == text)
                    std::abort();
            }));
            return times.back();
        },
        [&] {
            return bench::seconds([&] {
                if (LiteralDictionary(terms).apply(text) == text)
                    std::abort();
            });
        },
        0.05);
    bench::report("the same, vs 1 ms", bench::median(times), 0.001, 1);

    // As many words as are looked at, as long as the limit of 8,000 characters lets them be, and
    // every one of them changed.
    std::string original, edited;
    for (int number = 0; number < 256; ++number) {
        std::string word;
        while (word.size() < 30)
            word += static_cast<char>('a' + words.number(26));
        original += word + " ";
        edited += replacedLetters(word) + " ";
    }
    times.clear();
    for (int round = 0; round < bench::rounds; ++round)
        times.push_back(bench::seconds([&] {
            if (PersonalDictionary::corrections(original, edited).size() != 256)
                std::abort();
        }));
    bench::report("corrections among 256 by 256 words, vs 2 ms", bench::median(times), 0.002, 1);
}
