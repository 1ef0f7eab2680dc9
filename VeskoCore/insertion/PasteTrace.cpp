#include "VeskoCore/insertion/PasteTrace.h"

#include "VeskoCore/base/Text.h"

#include <string>
#include <unicode/uchar.h>

namespace vesko {

namespace {

std::u32string lettersAndDigits(std::string_view text)
{
    std::u32string found;
    for (std::size_t at = 0; at < text.size();) {
        const auto character = static_cast<UChar32>(nextCodePoint(text, at));
        if (u_isalnum(character))
            found += static_cast<char32_t>(u_foldCase(character, U_FOLD_CASE_DEFAULT));
    }
    return found;
}

} // namespace

bool showsPasted(std::string_view value, std::string_view text)
{
    std::u32string wanted;
    while (wanted.empty() && !text.empty()) {
        const auto end = text.find_last_of("\r\n");
        wanted = lettersAndDigits(end == text.npos ? text : text.substr(end + 1));
        text = text.substr(0, end == text.npos ? 0 : end);
    }
    return lettersAndDigits(value).contains(wanted);
}

} // namespace vesko
