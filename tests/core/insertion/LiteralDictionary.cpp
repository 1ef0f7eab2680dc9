#include "tests/core/insertion/LiteralDictionary.h"

#include "tests/core/insertion/IcuText.h"

#include <algorithm>
#include <optional>
#include <set>
#include <stdexcept>
#include <tuple>
#include <unicode/brkiter.h>
#include <unicode/normalizer2.h>

namespace vesko {

namespace {

using icu::UnicodeString;

UnicodeString lowercased(UnicodeString text)
{
    return text.toLower(icu::Locale::getRoot());
}

void require(UErrorCode status)
{
    if (U_FAILURE(status))
        throw std::runtime_error(u_errorName(status));
}

std::unique_ptr<icu::RegexMatcher> matcher(const UnicodeString& pattern, std::uint32_t options)
{
    UErrorCode status = U_ZERO_ERROR;
    auto made = std::make_unique<icu::RegexMatcher>(pattern, options, status);
    require(status);
    return made;
}

bool find(icu::RegexMatcher& matcher)
{
    UErrorCode status = U_ZERO_ERROR;
    const bool found = matcher.find(status);
    require(status);
    return found;
}

std::vector<UnicodeString> characters(const UnicodeString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    static const std::unique_ptr<icu::BreakIterator> boundaries(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    require(status);
    boundaries->setText(text);
    std::vector<UnicodeString> all;
    std::int32_t from = 0;
    for (auto to = boundaries->next(); to != icu::BreakIterator::DONE; to = boundaries->next()) {
        all.emplace_back(text, from, to - from);
        from = to;
    }
    return all;
}

UnicodeString escaped(const UnicodeString& term)
{
    UnicodeString pattern;
    for (std::int32_t at = 0; at < term.length(); ++at) {
        if (term[at] < 0x80 && !u_isalnum(term[at]))
            pattern.append(u'\\');
        pattern.append(term[at]);
    }
    return pattern;
}

std::int32_t foldedLength(UnicodeString term)
{
    return term.foldCase().length();
}

} // namespace

LiteralDictionary::LiteralDictionary(const SharedArray<DictionaryEntry>& dictionary)
{
    for (const auto& entry : dictionary)
        if (entry.enabled && !entry.original.empty())
            m_replacements.emplace(lowercased(units(entry.original)), units(entry.replacement));
    if (m_replacements.empty())
        return;
    struct Key {
        std::size_t characters;
        std::int32_t reach; // any order would do among keys of as many characters
        UnicodeString text;
    };
    std::vector<Key> keys;
    for (const auto& [key, replacement] : m_replacements)
        keys.push_back({ characters(key).size(), foldedLength(key), key });
    std::ranges::sort(keys, [](const Key& a, const Key& b) {
        return std::tie(a.characters, a.reach) > std::tie(b.characters, b.reach);
    });
    UnicodeString pattern(u"(?<![\\p{L}\\p{N}_])(?:");
    for (const auto& key : keys)
        pattern.append(&key == keys.data() ? u"" : u"|").append(escaped(key.text));
    m_matcher = matcher(pattern.append(u")(?![\\p{L}\\p{N}_])"), UREGEX_CASE_INSENSITIVE);
}

std::string LiteralDictionary::apply(std::string_view text)
{
    m_replaced = m_leftAlone = 0;
    if (!m_matcher)
        return std::string(text);
    struct Range {
        std::int32_t start, end;
    };
    const UnicodeString input = units(text);
    m_matcher->reset(input);
    std::vector<Range> matches;
    while (find(*m_matcher)) {
        UErrorCode status = U_ZERO_ERROR;
        matches.push_back({ m_matcher->start(status), m_matcher->end(status) });
        require(status);
    }
    UnicodeString working = input;
    for (auto match = matches.rbegin(); match != matches.rend(); ++match) {
        const auto length = match->end - match->start;
        const auto entry = m_replacements.find(lowercased({ input, match->start, length }));
        if (entry == m_replacements.end()) {
            ++m_leftAlone;
            continue;
        }
        working.replace(match->start, length, entry->second);
        ++m_replaced;
    }
    return utf8(working);
}

namespace {

bool same(const UnicodeString& a, const UnicodeString& b)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto* form = icu::Normalizer2::getNFDInstance(status);
    const bool equal = form->normalize(a, status) == form->normalize(b, status);
    require(status);
    return equal;
}

std::vector<UnicodeString> wordsOf(const UnicodeString& text)
{
    static const auto words = matcher(u"[\\p{L}][\\p{L}\\p{M}'’-]{1,39}", 0);
    words->reset(text);
    std::vector<UnicodeString> found;
    while (find(*words)) {
        UErrorCode status = U_ZERO_ERROR;
        found.push_back(words->group(status));
        require(status);
    }
    return found;
}

bool disablesLearning(const UnicodeString& text)
{
    static const auto addresses = matcher(u"https?://|\\S+@\\S+", 0);
    addresses->reset(text);
    return find(*addresses);
}

std::vector<std::vector<int>> distances(
    const std::vector<UnicodeString>& a, const std::vector<UnicodeString>& b)
{
    std::vector d(a.size() + 1, std::vector<int>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i)
        d[i][0] = static_cast<int>(i);
    for (std::size_t j = 0; j <= b.size(); ++j)
        d[0][j] = static_cast<int>(j);
    for (std::size_t i = 1; i <= a.size(); ++i)
        for (std::size_t j = 1; j <= b.size(); ++j)
            d[i][j] = std::min({ d[i - 1][j - 1] + (same(a[i - 1], b[j - 1]) ? 0 : 1),
                d[i - 1][j] + 1, d[i][j - 1] + 1 });
    return d;
}

struct Pair {
    UnicodeString original, replacement;
    bool automatic;
};

std::optional<Pair> judged(const UnicodeString& a, const UnicodeString& b)
{
    static const std::set<UnicodeString> common{ u"the", u"and", u"for", u"not", u"you", u"your",
        u"our", u"his", u"her", u"was", u"are", u"will", u"can", u"may", u"today", u"tomorrow",
        u"yesterday", u"это", u"как", u"для", u"что", u"его", u"она", u"они", u"нас", u"нам",
        u"мне", u"тебя", u"тебе", u"был", u"была", u"будет", u"сегодня", u"завтра", u"вчера" };
    if (characters(a).size() < 3 || characters(b).size() < 3)
        return std::nullopt;
    const auto before = lowercased(a), after = lowercased(b);
    if (common.contains(before) || common.contains(after))
        return std::nullopt;
    const auto from = characters(before), to = characters(after);
    const auto longest = static_cast<int>(std::max(from.size(), to.size()));
    const int allowance = longest >= 3 ? longest / 3 : 1;
    return Pair{ a, b, distances(from, to).back().back() <= allowance };
}

} // namespace

std::vector<DictionarySuggestion> literalCorrections(
    std::string_view original, std::string_view edited)
{
    const auto before = units(original), after = units(edited);
    if (same(before, after) || characters(before).size() > 8'000 || characters(after).size() > 8'000
        || disablesLearning(before) || disablesLearning(after))
        return {};
    const auto a = wordsOf(before), b = wordsOf(after);
    if (a.empty() || b.empty() || a.size() > 256 || b.size() > 256)
        return {};
    const auto d = distances(a, b);
    std::vector<Pair> pairs;
    for (auto i = a.size(), j = b.size(); i > 0 || j > 0;) {
        if (i == 0) {
            --j;
            continue;
        }
        if (j > 0 && d[i][j] == d[i - 1][j - 1] + (same(a[i - 1], b[j - 1]) ? 0 : 1)) {
            --i;
            --j;
            if (same(a[i], b[j]))
                continue;
            const auto pair = judged(a[i], b[j]);
            const auto held = [&](const Pair& other) {
                return same(other.original, pair->original)
                    && same(other.replacement, pair->replacement)
                    && other.automatic == pair->automatic;
            };
            if (pair && std::ranges::none_of(pairs, held))
                pairs.push_back(*pair);
        } else if (d[i][j] == d[i - 1][j] + 1) {
            --i;
        } else {
            --j;
        }
    }
    std::vector<DictionarySuggestion> found;
    for (auto pair = pairs.rbegin(); pair != pairs.rend(); ++pair)
        found.push_back({ utf8(pair->original), utf8(pair->replacement), pair->automatic });
    return found;
}

} // namespace vesko
