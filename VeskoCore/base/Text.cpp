#include "VeskoCore/base/Text.h"

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/normalizer2.h>
#include <unicode/normlzr.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>
#include <unicode/utf8.h>

namespace vesko {

namespace {

const std::uint8_t* bytes(std::string_view text)
{
    return reinterpret_cast<const std::uint8_t*>(text.data());
}

bool isWhite(UChar32 character)
{
    return character >= 0 && u_isUWhiteSpace(character);
}

bool isLineEnd(UChar32 character)
{
    constexpr UChar32 nextLine = 0x85, lineSeparator = 0x2028, paragraphSeparator = 0x2029;
    return (character >= '\n' && character <= '\r') || character == nextLine
        || character == lineSeparator || character == paragraphSeparator;
}

// Whether the code point never shares a character with another of its kind.
bool standsAlone(std::string_view text, std::size_t at)
{
    return u_getIntPropertyValue(
               static_cast<UChar32>(nextCodePoint(text, at)), UCHAR_GRAPHEME_CLUSTER_BREAK)
        == U_GCB_OTHER;
}

// Hands the characters of the text to `visit` until that returns false.
template <class Visit>
void eachCharacter(std::string_view text, Visit visit)
{
    // Most texts are made of nothing but code points that stand alone.
    bool alone = !text.empty() && standsAlone(text, 0);
    while (alone) {
        std::size_t end = 0;
        nextCodePoint(text, end);
        alone = end < text.size() && standsAlone(text, end);
        if (!alone && end < text.size())
            break;
        if (!visit(text.substr(0, end)))
            return;
        text.remove_prefix(end);
    }
    if (text.empty())
        return;
    UErrorCode status = U_ZERO_ERROR;
    // Making one takes longer than going through a word or two.
    static thread_local const std::unique_ptr<icu::BreakIterator> boundaries(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    const std::unique_ptr<UText, decltype(&utext_close)> units(
        utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status),
        &utext_close);
    if (U_SUCCESS(status) && boundaries)
        boundaries->setText(units.get(), status);
    if (U_FAILURE(status) || !boundaries)
        throw std::runtime_error("ICU has no character boundaries");
    std::int32_t from = boundaries->first();
    for (auto to = boundaries->next(); to != icu::BreakIterator::DONE; to = boundaries->next()) {
        if (!visit(
                text.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from))))
            return;
        from = to;
    }
}

bool same(std::string_view a, std::string_view b, std::uint32_t options)
{
    if (a == b)
        return true;
    const auto units = [](std::string_view text) {
        return icu::UnicodeString::fromUTF8(
            { text.data(), static_cast<std::int32_t>(text.size()) });
    };
    UErrorCode status = U_ZERO_ERROR;
    const bool same = icu::Normalizer::compare(units(a), units(b), options, status) == 0;
    if (U_FAILURE(status))
        throw std::runtime_error("ICU can't compare");
    return same;
}

} // namespace

std::string_view trimmed(std::string_view text)
{
    const auto* data = bytes(text);
    const auto size = static_cast<std::int32_t>(text.size());
    std::int32_t first = 0;
    while (first < size) {
        std::int32_t next = first;
        UChar32 character;
        U8_NEXT(data, next, size, character);
        if (!isWhite(character))
            break;
        first = next;
    }
    std::int32_t last = size;
    while (last > first) {
        std::int32_t previous = last;
        UChar32 character;
        U8_PREV(data, first, previous, character);
        if (!isWhite(character))
            break;
        last = previous;
    }
    return text.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(last - first));
}

std::string_view firstLine(std::string_view text)
{
    const auto* data = bytes(text);
    const auto size = static_cast<std::int32_t>(text.size());
    std::int32_t first = 0;
    for (std::int32_t at = 0; at < size;) {
        const std::int32_t end = at;
        UChar32 character;
        U8_NEXT(data, at, size, character);
        if (!isLineEnd(character))
            continue;
        if (end > first)
            return text.substr(
                static_cast<std::size_t>(first), static_cast<std::size_t>(end - first));
        first = at;
    }
    return text.substr(static_cast<std::size_t>(first));
}

std::string_view firstCharacters(std::string_view text, std::size_t count)
{
    std::size_t end = 0;
    eachCharacter(text, [&](std::string_view character) {
        if (count == 0)
            return false;
        --count;
        end += character.size();
        return true;
    });
    return text.substr(0, end);
}

bool sameText(std::string_view a, std::string_view b)
{
    return same(a, b, 0);
}

bool sameIgnoringCase(std::string_view a, std::string_view b)
{
    return same(a, b, U_COMPARE_IGNORE_CASE);
}

std::size_t utf16Length(std::string_view text)
{
    std::size_t units = 0;
    const auto* data = bytes(text);
    const auto size = static_cast<std::int32_t>(text.size());
    for (std::int32_t at = 0; at < size;) {
        UChar32 character;
        U8_NEXT(data, at, size, character);
        units += character > 0xFFFF ? 2 : 1;
    }
    return units;
}

char32_t nextCodePoint(std::string_view text, std::size_t& at)
{
    UChar32 character;
    U8_NEXT_OR_FFFD(bytes(text), at, text.size(), character);
    return static_cast<char32_t>(character);
}

std::string lowercased(std::string_view text)
{
    std::string result;
    icu::StringByteSink<std::string> sink(&result);
    UErrorCode status = U_ZERO_ERROR;
    icu::CaseMap::utf8ToLower("", 0, text, sink, nullptr, status);
    return result;
}

std::string canonical(std::string_view text)
{
    std::string result;
    icu::StringByteSink<std::string> sink(&result);
    UErrorCode status = U_ZERO_ERROR;
    const auto* form = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status))
        throw std::runtime_error("ICU has no canonical form");
    form->normalizeUTF8(0, text, sink, nullptr, status);
    return result;
}

std::vector<std::string_view> characters(std::string_view text)
{
    std::vector<std::string_view> all;
    eachCharacter(text, [&](std::string_view character) {
        all.push_back(character);
        return true;
    });
    return all;
}

std::size_t characterCount(std::string_view text)
{
    std::size_t count = 0;
    eachCharacter(text, [&](std::string_view) {
        ++count;
        return true;
    });
    return count;
}

bool hasMoreCharacters(std::string_view text, std::size_t limit)
{
    std::size_t codePoints = 0; // at least as many as characters
    for (std::size_t at = 0; at < text.size() && codePoints <= limit; ++codePoints)
        nextCodePoint(text, at);
    return codePoints > limit && firstCharacters(text, limit).size() < text.size();
}

} // namespace vesko
