#pragma once

#include <string>
#include <string_view>
#include <unicode/unistr.h>

namespace vesko {

inline icu::UnicodeString units(std::string_view text)
{
    return icu::UnicodeString::fromUTF8({ text.data(), static_cast<std::int32_t>(text.size()) });
}

inline std::string utf8(const icu::UnicodeString& text)
{
    std::string result;
    return text.toUTF8String(result);
}

} // namespace vesko
