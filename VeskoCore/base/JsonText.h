#pragma once

#include <simdjson.h>
#include <string>
#include <string_view>

namespace vesko {

// The bytes behind a text that the parser may look at.
inline constexpr std::size_t spareForJson = simdjson::SIMDJSON_PADDING;

// Parses a text as JSON by the letter of the standard, which sets numbers no bounds: one that 64
// bits don't hold is no fault of a text in which nobody asks for it. Whoever does finds a double in
// place of a whole number, or, of one that no double holds either, nothing that is a number, a
// text, null or a record. The value is valid as long as the parser is, and parses nothing else.
// The spare bytes behind the text must be readable.
simdjson::simdjson_result<simdjson::dom::element> parseJson(
    simdjson::dom::parser& parser, std::string_view text);
// A text without spare capacity is copied.
simdjson::simdjson_result<simdjson::dom::element> parseJson(
    simdjson::dom::parser& parser, const std::string& text);

} // namespace vesko
