#include "VeskoCore/base/Text.h"
#include "VeskoCore/insertion/PersonalDictionary.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <unicode/uchar.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

namespace vesko::PersonalDictionary {

namespace {

constexpr std::size_t longestFolding = 3; // code points

// What no term may have beside it: letters, numbers, the underscore, and the one other code point
// that differs from a letter only by case (U+0345, of which iota is the folded form).
bool isWordPart(char32_t character)
{
    constexpr char32_t combiningYpogegrammeni = 0x345;
    return (U_GET_GC_MASK(static_cast<UChar32>(character)) & (U_GC_L_MASK | U_GC_N_MASK)) != 0
        || character == U'_' || character == combiningYpogegrammeni;
}

bool isWordPartAt(std::string_view text, std::size_t at)
{
    return at < text.size() && isWordPart(nextCodePoint(text, at));
}

// Whether the character is among those that may fold to several: every one of status F in Unicode's
// CaseFolding.txt is, and what a character folds to never changes.
bool mayFoldToSeveral(char32_t character)
{
    constexpr std::u32string_view alone = U"\u00DF\u0130\u0149\u01F0\u0390\u03B0\u0587";
    return (character >= 0x1E96 && character <= 0x1FFC)
        || (character >= 0xFB00 && character <= 0xFB17) || alone.contains(character);
}

// Appends the character after Unicode's full case folding.
void appendFolded(std::u32string& text, char32_t character)
{
    if (!mayFoldToSeveral(character)) {
        text += static_cast<char32_t>(
            u_foldCase(static_cast<UChar32>(character), U_FOLD_CASE_DEFAULT));
        return;
    }
    std::array<char16_t, U16_MAX_LENGTH> units{};
    std::int32_t length = 0;
    U16_APPEND_UNSAFE(units, length, character);
    std::array<char16_t, 8> folded{};
    UErrorCode status = U_ZERO_ERROR;
    const auto end = u_strFoldCase(folded.data(), static_cast<std::int32_t>(folded.size()),
        units.data(), length, U_FOLD_CASE_DEFAULT, &status);
    for (std::int32_t at = 0; at < end;) {
        UChar32 next;
        U16_NEXT_UNSAFE(folded, at, next);
        text += static_cast<char32_t>(next);
    }
}

// The enabled terms, sorted by their folded forms, so that those that begin alike stand together.
class Terms {
    struct Term {
        std::u32string_view folded; // lower-casing first would not change it
        std::size_t index; // of its entry

        auto operator<=>(const Term&) const = default;
    };

public:
    // Refers to the dictionary, which must outlive it.
    explicit Terms(const SharedArray<DictionaryEntry>& dictionary)
        : m_dictionary(dictionary)
    {
        std::size_t bytes = 0;
        for (const auto& entry : dictionary)
            bytes += entry.original.size();
        m_folded.reserve(longestFolding * bytes);
        m_terms.reserve(dictionary.size());
        for (std::size_t index = 0; index < dictionary.size(); ++index) {
            const auto& entry = dictionary[index];
            if (!entry.enabled || entry.original.empty())
                continue;
            const auto from = m_folded.size();
            for (std::size_t at = 0; at < entry.original.size();)
                appendFolded(m_folded, nextCodePoint(entry.original, at));
            m_terms.push_back({ std::u32string_view(m_folded).substr(from), index });
        }
        std::ranges::sort(m_terms);
    }
    Terms(const Terms&) = delete;
    Terms& operator=(const Terms&) = delete;

    // The terms of one folded form, in the order of the dictionary, and where in the text it ends.
    struct Match {
        std::span<const Term> terms;
        std::size_t end;
    };

    // What matches at a place in the text that has no word part before it.
    std::optional<Match> matchAt(std::string_view text, std::size_t at) const
    {
        std::optional<Match> best;
        std::span<const Term> left(
            m_terms); // those that begin with the `depth` code points seen so far
        std::size_t depth = 0;
        std::u32string folded;
        while (at < text.size()) {
            appendFolded(folded, nextCodePoint(text, at));
            while (depth < folded.size()) {
                left = goingOn(left, depth, folded[depth]);
                if (left.empty())
                    return best;
                ++depth;
            }
            // Only here may a term end, not amid the folded form of one character: ß holds no s.
            const auto ended = left.first(endedCount(left, depth));
            if (!ended.empty() && !isWordPartAt(text, at)
                && (!best || characters(ended) >= characters(best->terms)))
                best = Match{ ended, at };
        }
        return best;
    }

    // The first of the matching terms that is the found text but for its case.
    const DictionaryEntry* entryFor(const Match& match, std::string_view found) const
    {
        const auto wanted = lowercased(found);
        const auto same = [&](const Term& term) { return lowercased(original(term)) == wanted; };
        const auto term = std::ranges::find_if(match.terms, same);
        return term == match.terms.end() ? nullptr : &m_dictionary[term->index];
    }

private:
    const std::string& original(const Term& term) const
    {
        return m_dictionary[term.index].original;
    }

    // How many of the terms have no code point at `depth`. They come first.
    static std::size_t endedCount(std::span<const Term> terms, std::size_t depth)
    {
        const auto longer = [depth](const Term& term) { return term.folded.size() > depth; };
        return static_cast<std::size_t>(std::ranges::find_if(terms, longer) - terms.begin());
    }

    static std::span<const Term> goingOn(
        std::span<const Term> terms, std::size_t depth, char32_t character)
    {
        return std::ranges::equal_range(terms.subspan(endedCount(terms, depth)), character, {},
            [depth](const Term& term) { return term.folded[depth]; });
    }

    std::size_t characters(std::span<const Term> terms) const
    {
        std::size_t most = 0;
        for (const auto& term : terms)
            most = std::max(most, characterCount(lowercased(original(term))));
        return most;
    }

    const SharedArray<DictionaryEntry>& m_dictionary;
    std::u32string m_folded; // all of them
    std::vector<Term> m_terms;
};

} // namespace

std::string apply(const SharedArray<DictionaryEntry>& dictionary, std::string_view text)
{
    const Terms terms(dictionary);
    std::string result;
    std::size_t copied = 0; // up to where the text stands in the result
    bool behindWord = false;
    for (std::size_t at = 0; at < text.size();) {
        const auto match = behindWord ? std::nullopt : terms.matchAt(text, at);
        if (!match) {
            behindWord = isWordPart(nextCodePoint(text, at));
            continue;
        }
        if (const auto* entry = terms.entryFor(*match, text.substr(at, match->end - at))) {
            result.append(text, copied, at - copied).append(entry->replacement);
            copied = match->end;
        }
        while (at < match->end)
            behindWord = isWordPart(nextCodePoint(text, at));
    }
    return result.append(text, copied);
}

} // namespace vesko::PersonalDictionary
