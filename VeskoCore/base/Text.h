#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vesko {

// The text without the white space and line ends (Unicode's White_Space) at both of its ends.
// Bytes that are not UTF-8 count as characters that are not white space.
std::string_view trimmed(std::string_view text);

// The first piece of the text that is not empty when it is cut at line ends of every kind: LF, CR,
// CR LF, vertical tab, form feed, next line, line and paragraph separator. Empty if there is none.
std::string_view firstLine(std::string_view text);

// The user-perceived characters of the text, that is its extended grapheme clusters.
std::vector<std::string_view> characters(std::string_view text);
std::size_t characterCount(std::string_view text);
// Whether there are more than so many; a text that plainly has fewer is not counted.
bool hasMoreCharacters(std::string_view text, std::size_t limit);
// The text's beginning of up to so many characters.
std::string_view firstCharacters(std::string_view text, std::size_t count);

// Whether the two show the same text: a letter with its accent may be encoded as one code point or
// as two (canonical equivalence).
bool sameText(std::string_view a, std::string_view b);
// The same, and upper and lower case count as one, also where a letter's other case is two ("ß" and
// "SS"). Independent of the language.
bool sameIgnoringCase(std::string_view a, std::string_view b);

// How many UTF-16 code units the text takes; accessibility offsets count in these.
std::size_t utf16Length(std::string_view text);

// The code point at the offset `at`, which is below the text's size; moves `at` behind it. Bytes
// that are not UTF-8 give U+FFFD.
char32_t nextCodePoint(std::string_view text, std::size_t& at);

// The text in lower case, by Unicode's full rules and those of no language.
std::string lowercased(std::string_view text);

// The one form (NFC) that all canonically equivalent texts have in common.
std::string canonical(std::string_view text);

} // namespace vesko
