#include "VeskoCore/library/TextSearch.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <stdexcept>
#include <string>
#include <unicode/bytestream.h>
#include <unicode/normalizer2.h>
#include <unicode/utf8.h>

namespace vesko {

namespace {

constexpr std::uint8_t firstNonAscii = 0x80;
constexpr std::uint8_t firstLead = 0xC0; // the bytes from here on begin a longer character
constexpr std::uint8_t firstOfThree = 0xE0; // of three bytes at least
constexpr std::uint8_t firstOfFour = 0xF0; // of four

const std::uint8_t* bytes(std::string_view text)
{
    return reinterpret_cast<const std::uint8_t*>(text.data());
}

bool isAscii(std::string_view text, std::size_t at)
{
    return bytes(text)[at] < firstNonAscii;
}

// The code point at the position, which moves behind it.
char32_t read(std::string_view text, std::size_t& at)
{
    const auto* data = bytes(text);
    UChar32 codePoint;
    U8_NEXT_OR_FFFD(data, at, text.size(), codePoint);
    return static_cast<char32_t>(codePoint);
}

bool joins(char32_t codePoint)
{
    return SearchLetters::page(codePoint).joins(codePoint);
}

// Where what the position stands in, and composition looks at as a whole, begins.
std::size_t beginOfUnit(std::string_view text, std::size_t at)
{
    const auto* data = bytes(text);
    auto begin = static_cast<std::int32_t>(at);
    while (begin > 0) {
        auto next = static_cast<std::size_t>(begin);
        if (!joins(read(text, next)))
            break;
        U8_BACK_1(data, 0, begin);
    }
    return static_cast<std::size_t>(begin);
}

using Block = ByteFilter::Block;

[[gnu::always_inline]] inline void load(const char* from, Block& block)
{
    std::memcpy(&block, from, sizeof block);
}

// Which of the two a machine runs is chosen while the program is loaded, before ThreadSanitizer is
// ready for it.
#if defined(__clang__) && defined(__x86_64__)
#if !__has_feature(thread_sanitizer)
#define VESKO_FOR_EACH_WIDTH __attribute__((target_clones("avx2", "default")))
#endif
#endif
#ifndef VESKO_FOR_EACH_WIDTH
#define VESKO_FOR_EACH_WIDTH
#endif

using Judge = bool (*)(const TextSearch&, std::string_view, std::size_t);

// The next position that the filter marks and, unless a glance excludes it, the judge lets pass; or
// the end. Here a search spends its time.
VESKO_FOR_EACH_WIDTH std::size_t nextMark(const ByteFilter& its, std::string_view text,
    std::size_t begin, const TextSearch& search, Judge passes)
{
    constexpr std::uint64_t oneOfEach = 0x8080808080808080;
    const auto filter = its; // in registers, since the compiler can't know that it stays
    for (std::size_t at = begin; at < text.size(); at += sizeof(Block)) {
        std::array<char, 2 * sizeof(Block)> end;
        const char* from = text.data() + at;
        if (const auto left = text.size() - at; left < sizeof(Block) + 2) {
            end = {};
            from = std::copy_n(from, left, end.data()) - left;
        }
        Block first, second, third;
        load(from, first);
        load(from + 1, second);
        load(from + 2, third);
        const auto marks = filter.marks(first, second, third);
        if (!ByteFilter::isAny(marks))
            continue;
        for (std::size_t word = 0; word < marks.size(); ++word) {
            auto left = marks[word] & oneOfEach;
            if constexpr (std::endian::native == std::endian::big)
                left = std::byteswap(left);
            for (; left != 0; left &= left - 1) {
                const auto marked
                    = at + 8 * word + static_cast<std::size_t>(std::countr_zero(left) / 8);
                if (marked >= text.size())
                    return text.size();
                if (text.size() - marked >= sizeof(Block)) {
                    load(text.data() + marked, first);
                    if (filter.excludes(first))
                        continue;
                }
                if (passes(search, text, marked))
                    return marked;
            }
        }
    }
    return text.size();
}

} // namespace

TextSearch::TextSearch(std::string_view query, std::string_view language)
{
    for (char32_t codePoint = 0; codePoint < m_short.size(); ++codePoint) {
        const auto& page = SearchLetters::page(codePoint);
        const auto letters = page.letters(codePoint);
        if (letters.size() == 1 && !page.joins(codePoint))
            m_short[codePoint] = letters.front();
    }
    if (language == "tr" || language == "az")
        m_short['I'] = m_short[U'\u0131'];
    for (std::size_t at = 0; at < query.size();)
        at = appendUnit(query, at);
    m_query = std::move(m_letters);
    if (m_query.empty())
        return;
    std::array<ByteFilter::Set, ByteFilter::mostSets> sets;
    for (std::size_t at = 0; at < sets.size() && at < m_query.size(); ++at)
        sets[at] = asciiForms(m_query[at]);
    m_filter = ByteFilter(sets, leads(query));
}

std::string TextSearch::asciiForms(SearchLetter letter) const
{
    std::string forms;
    for (std::size_t ascii = 0; ascii < firstNonAscii; ++ascii)
        if (m_short[ascii] == letter)
            forms += static_cast<char>(ascii);
    return forms;
}

std::optional<TextSearch::Place> TextSearch::find(std::string_view text, std::size_t from)
{
    if (m_query.empty())
        return Place{ from, 0 };
    for (auto at = from; (at = nextCandidate(text, at)) < text.size();) {
        m_letters.clear();
        // All that stands in the unit is tried at once, so none is looked at twice.
        const auto begin = beginOfUnit(text, at);
        at = appendUnit(text, begin);
        if (const auto skipped = beginsAmongLetters(text, at))
            return Place{ begin, *skipped };
    }
    return std::nullopt;
}

std::optional<TextSearch::Match> TextSearch::next(std::string_view text, std::size_t from)
{
    if (m_query.empty())
        return std::nullopt;
    const auto found = find(text, from);
    if (!found)
        return std::nullopt;
    m_letters.clear();
    auto end = found->begin;
    while (m_letters.size() < found->skipped + m_query.size())
        end = appendUnit(text, end);
    return Match{ found->begin, end };
}

std::optional<std::size_t> TextSearch::beginsAmongLetters(std::string_view text, std::size_t next)
{
    const auto starts = m_letters.size();
    for (std::size_t start = 0; start < starts; ++start) {
        std::size_t same = 0;
        while (same < m_query.size()) {
            if (start + same == m_letters.size()) {
                if (next == text.size())
                    break;
                next = appendUnit(text, next);
            } else if (m_letters[start + same] == m_query[same]) {
                ++same;
            } else {
                break;
            }
        }
        if (same == m_query.size())
            return start;
    }
    return std::nullopt;
}

std::size_t TextSearch::nextCandidate(std::string_view text, std::size_t from) const
{
    return nextMark(m_filter, text, from, *this,
        [](const TextSearch& search, std::string_view its, std::size_t at) {
            return search.isCandidate(its, at);
        });
}

bool TextSearch::isCandidate(std::string_view text, std::size_t at) const
{
    return bytes(text)[at] < firstOfThree ? !isOther(text, at) : mayBeginWith(read(text, at));
}

bool TextSearch::isOther(std::string_view text, std::size_t at) const
{
    // The letter at the position, which moves behind it; 0 where it takes a closer look.
    const auto* data = bytes(text);
    const auto next = [&]() -> SearchLetter {
        if (at < text.size() && data[at] < firstNonAscii)
            return m_short[data[at++]];
        if (at + 1 >= text.size() || data[at] < firstLead || data[at] >= firstOfThree)
            return 0;
        at += 2;
        return m_short[(data[at - 2] & 0x1FU) << 6 | (data[at - 1] & 0x3FU)];
    };
    auto letter = next();
    for (const auto wanted : m_query) {
        if (letter == 0)
            return false;
        // Only when the next is known to join nothing, this one is what it seems.
        const bool isAsciiNext = at < text.size() && isAscii(text, at);
        const auto following = next();
        if (following == 0 && !isAsciiNext)
            return false;
        if (letter != wanted)
            return true;
        letter = following;
    }
    return false;
}

bool TextSearch::mayBeginWith(char32_t codePoint) const
{
    const auto& page = SearchLetters::page(codePoint);
    const auto letters = page.letters(codePoint);
    return page.composes(codePoint) || std::ranges::find(letters, m_query[0]) != letters.end();
}

std::array<bool, 0x100> TextSearch::leads(std::string_view query) const
{
    constexpr char32_t twoBytes = 0x800, fourBytes = 0x10000;
    // The many ideographs, Korean syllables and private characters have no letter of shorter ones.
    const bool isShort = std::ranges::all_of(
        query, [](char byte) { return static_cast<std::uint8_t>(byte) <= firstOfThree; });
    const auto isEastern = [](char32_t codePoint) {
        return (codePoint >= 0x3400 && codePoint < 0xA000)
            || (codePoint >= 0xAC00 && codePoint < 0xF900);
    };
    std::array<bool, 0x100> isLead{};
    std::fill(isLead.begin() + firstOfFour, isLead.end(), true); // too many to ask for each
    for (char32_t codePoint = firstNonAscii; codePoint < fourBytes; ++codePoint)
        if (!(isShort && isEastern(codePoint)) && mayBeginWith(codePoint))
            isLead[codePoint < twoBytes ? firstLead | codePoint >> 6
                                        : firstOfThree | codePoint >> 12]
                = true;
    return isLead;
}

std::size_t TextSearch::appendUnit(std::string_view text, std::size_t from)
{
    auto end = from;
    const auto codePoint = read(text, end);
    bool isAlone = true;
    while (end < text.size() && !isAscii(text, end)) {
        auto next = end;
        if (!joins(read(text, next)))
            break;
        end = next;
        isAlone = false;
    }
    if (isAlone)
        append(codePoint);
    else
        appendComposed(text.substr(from, end - from));
    return end;
}

void TextSearch::appendComposed(std::string_view unit)
{
    UErrorCode status = U_ZERO_ERROR;
    const auto* composition = icu::Normalizer2::getNFCInstance(status);
    const icu::StringPiece piece(unit.data(), static_cast<std::int32_t>(unit.size()));
    std::string composed;
    if (U_SUCCESS(status) && !composition->isNormalizedUTF8(piece, status)) {
        icu::StringByteSink<std::string> sink(&composed);
        composition->normalizeUTF8(0, piece, sink, nullptr, status);
        unit = composed;
    }
    if (U_FAILURE(status))
        throw std::runtime_error("ICU can't compose");
    for (std::size_t at = 0; at < unit.size();)
        append(read(unit, at));
}

void TextSearch::append(char32_t codePoint)
{
    if (codePoint < m_short.size() && m_short[codePoint] != 0) {
        m_letters.push_back(m_short[codePoint]);
        return;
    }
    const auto letters = SearchLetters::page(codePoint).letters(codePoint);
    m_letters.insert(m_letters.end(), letters.begin(), letters.end());
}

} // namespace vesko
