#include "VeskoCore/base/Text.h"
#include "VeskoCore/insertion/PersonalDictionary.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>
#include <set>
#include <tuple>
#include <unicode/uchar.h>
#include <unordered_map>

namespace vesko::PersonalDictionary {

namespace {

constexpr std::size_t mostCharacters = 8'000; // of a text
constexpr std::size_t mostWords = 256; // of a text
constexpr std::size_t longestWord = 40; // code points; a longer one is cut
constexpr std::size_t shortestCorrected = 3; // characters

constexpr auto commonWords = std::to_array<std::string_view>({ "the", "and", "for", "not", "you",
    "your", "our", "his", "her", "was", "are", "will", "can", "may", "today", "tomorrow",
    "yesterday", "это", "как", "для", "что", "его", "она", "они", "нас", "нам", "мне", "тебя",
    "тебе", "был", "была", "будет", "сегодня", "завтра", "вчера" });

bool isCommon(std::string_view lowercasedWord)
{
    return std::ranges::find(commonWords, lowercasedWord) != commonWords.end();
}

// Something of the form of an address: "http://", "https://", or a @ amid what isn't white space.
bool holdsAddress(std::string_view text)
{
    if (text.contains("http://") || text.contains("https://"))
        return true;
    bool behindSolid = false;
    bool behindAt = false; // one with something solid before it
    for (std::size_t at = 0; at < text.size();) {
        const char32_t character = nextCodePoint(text, at);
        const bool solid = !u_isUWhiteSpace(static_cast<UChar32>(character));
        if (behindAt && solid)
            return true;
        behindAt = behindSolid && character == U'@';
        behindSolid = solid;
    }
    return false;
}

bool isOf(std::uint32_t categories, char32_t character)
{
    return (U_GET_GC_MASK(static_cast<UChar32>(character)) & categories) != 0;
}

bool beginsWord(char32_t character)
{
    return isOf(U_GC_L_MASK, character);
}

bool continuesWord(char32_t character)
{
    return isOf(U_GC_L_MASK | U_GC_M_MASK, character) || character == U'\'' || character == U'’'
        || character == U'-';
}

// The words of the text in order, as many as are needed to see that there are too many.
std::vector<std::string_view> wordsOf(std::string_view text)
{
    std::vector<std::string_view> words;
    for (std::size_t at = 0; at < text.size() && words.size() <= mostWords;) {
        const auto from = at;
        if (!beginsWord(nextCodePoint(text, at)))
            continue;
        std::size_t length = 1;
        for (auto next = at; next < text.size() && length < longestWord; ++length) {
            if (!continuesWord(nextCodePoint(text, next)))
                break;
            at = next;
        }
        if (length > 1)
            words.push_back(text.substr(from, at - from));
    }
    return words;
}

// Numbers in the place of texts: equal for texts that are canonically equivalent.
class Numbers {
public:
    std::vector<int> of(const std::vector<std::string_view>& texts)
    {
        std::vector<int> numbers;
        numbers.reserve(texts.size());
        for (const auto text : texts)
            numbers.push_back(ofCanonical(canonical(text)));
        return numbers;
    }

    std::vector<int> ofCharacters(std::string_view word)
    {
        const auto form = canonical(word);
        std::vector<int> numbers;
        for (const auto character : characters(form))
            numbers.push_back(ofCanonical(character));
        return numbers;
    }

private:
    // A code point is its own number; longer texts are counted from behind the last one.
    int ofCanonical(std::string_view text)
    {
        std::size_t end = 0;
        const auto first = static_cast<int>(nextCodePoint(text, end));
        if (end == text.size())
            return first;
        return m_longer.try_emplace(std::string(text), static_cast<int>(0x110000 + m_longer.size()))
            .first->second;
    }

    std::unordered_map<std::string, int> m_longer;
};

// A row of the table of Levenshtein's distances between the beginnings of two lists: how many
// insertions, removals and substitutions lead from a beginning of the one to each of the other.
using Row = std::vector<std::size_t>;

Row firstRow(std::size_t length)
{
    Row row(length + 1);
    std::iota(row.begin(), row.end(), 0U);
    return row;
}

// Fills the row for a beginning that is longer by `item` than that of the row above.
void fill(Row& row, const Row& above, int item, const std::vector<int>& others)
{
    row[0] = above[0] + 1;
    for (std::size_t j = 1; j < row.size(); ++j)
        row[j] = std::min(
            { above[j - 1] + (item == others[j - 1] ? 0 : 1), above[j] + 1, row[j - 1] + 1 });
}

std::size_t distance(const std::vector<int>& from, const std::vector<int>& to)
{
    auto row = firstRow(to.size());
    auto above = row;
    for (const int item : from) {
        row.swap(above);
        fill(row, above, item, to);
    }
    return row.back();
}

// What a word put in the place of another offers to the dictionary, if anything.
std::optional<DictionarySuggestion> judge(
    std::string_view word, std::string_view replacement, Numbers& numbers)
{
    if (characterCount(word) < shortestCorrected || characterCount(replacement) < shortestCorrected)
        return std::nullopt;
    const auto before = lowercased(word);
    const auto after = lowercased(replacement);
    if (isCommon(before) || isCommon(after))
        return std::nullopt;
    const auto from = numbers.ofCharacters(before);
    const auto to = numbers.ofCharacters(after);
    const auto allowance = std::max(std::max(from.size(), to.size()) / 3, std::size_t{ 1 });
    return DictionarySuggestion{ .original = std::string(word),
        .replacement = std::string(replacement),
        .automatic = distance(from, to) <= allowance };
}

} // namespace

std::vector<DictionarySuggestion> corrections(std::string_view original, std::string_view edited)
{
    if (sameText(original, edited) || hasMoreCharacters(original, mostCharacters)
        || hasMoreCharacters(edited, mostCharacters) || holdsAddress(original)
        || holdsAddress(edited))
        return {};
    const auto words = wordsOf(original);
    const auto editedWords = wordsOf(edited);
    const auto fits = [](std::size_t count) { return count >= 1 && count <= mostWords; };
    if (!fits(words.size()) || !fits(editedWords.size()))
        return {};

    Numbers numbers;
    const auto a = numbers.of(words);
    const auto b = numbers.of(editedWords);
    std::vector<Row> d(a.size() + 1, firstRow(b.size()));
    for (std::size_t i = 1; i <= a.size(); ++i)
        fill(d[i], d[i - 1], a[i - 1], b);

    // Back along the shortest way, a substitution before a removal before an insertion.
    std::vector<DictionarySuggestion> found;
    std::set<std::tuple<int, int, bool>> seen;
    auto i = a.size(), j = b.size();
    while (i > 0 && j > 0) {
        const bool same = a[i - 1] == b[j - 1];
        if (d[i][j] == d[i - 1][j - 1] + (same ? 0 : 1)) {
            --i;
            --j;
            if (same)
                continue;
            auto suggestion = judge(words[i], editedWords[j], numbers);
            if (suggestion && seen.emplace(a[i], b[j], suggestion->automatic).second)
                found.push_back(std::move(*suggestion));
        } else if (d[i][j] == d[i - 1][j] + 1) {
            --i;
        } else {
            --j;
        }
    }
    std::ranges::reverse(found);
    return found;
}

} // namespace vesko::PersonalDictionary
