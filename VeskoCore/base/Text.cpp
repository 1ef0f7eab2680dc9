#include "VeskoCore/base/Text.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <stdexcept>
#include <unicode/brkiter.h>
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

struct Beginning {
    std::string_view text;
    std::size_t characters;
};

Beginning beginning(std::string_view text, std::size_t mostCharacters)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UText, decltype(&utext_close)> units(
        utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status),
        &utext_close);
    // Making one takes longer than going through a title.
    static thread_local const std::unique_ptr<icu::BreakIterator> breaks(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    if (U_SUCCESS(status) && breaks)
        breaks->setText(units.get(), status);
    if (U_FAILURE(status) || !breaks)
        throw std::runtime_error("ICU has no character boundaries");
    std::size_t characters = 0;
    std::int32_t end = breaks->first();
    while (characters < mostCharacters) {
        const std::int32_t next = breaks->next();
        if (next == icu::BreakIterator::DONE)
            break;
        end = next;
        ++characters;
    }
    return { text.substr(0, static_cast<std::size_t>(end)), characters };
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
    return beginning(text, count).text;
}

std::size_t characterCount(std::string_view text)
{
    return beginning(text, std::numeric_limits<std::size_t>::max()).characters;
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

} // namespace vesko
