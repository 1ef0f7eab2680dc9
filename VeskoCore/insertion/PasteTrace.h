#pragma once

#include <string_view>

namespace vesko {

// Whether a field that holds `value` shows that this text was pasted into it: the letters and
// digits of its last line stand there, whatever the field makes of the rest (quotes, dashes,
// blanks, line ends, capitals). True of a text without any. Of several lines a field may show each
// as a paragraph of its own. Pure; both are UTF-8.
bool showsPasted(std::string_view value, std::string_view text);

} // namespace vesko
