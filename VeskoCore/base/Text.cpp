#include "VeskoCore/base/Text.h"

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <unicode/brkiter.h>
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

std::string_view firstCharacters(std::string_view text, int count)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<UText, decltype(&utext_close)> units(
        utext_openUTF8(nullptr, text.data(), static_cast<std::int64_t>(text.size()), &status),
        &utext_close);
    const std::unique_ptr<icu::BreakIterator> characters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    if (U_SUCCESS(status))
        characters->setText(units.get(), status);
    if (U_FAILURE(status))
        throw std::runtime_error("ICU has no character boundaries");
    characters->first();
    const std::int32_t end = characters->next(count);
    return end == icu::BreakIterator::DONE ? text : text.substr(0, static_cast<std::size_t>(end));
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
