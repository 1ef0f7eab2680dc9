#pragma once

#include <string>
#include <string_view>

namespace vesko {

// The text without the white space and line ends (Unicode's White_Space) at both of its ends.
// Bytes that are not UTF-8 count as characters that are not white space.
std::string_view trimmed(std::string_view text);

// The first `count` extended grapheme clusters, what a user calls characters, or the whole text if
// it has no more.
std::string_view firstCharacters(std::string_view text, int count);

// How many UTF-16 code units the text takes; accessibility offsets count in these.
std::size_t utf16Length(std::string_view text);

} // namespace vesko
