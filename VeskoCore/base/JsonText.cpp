#include "VeskoCore/base/JsonText.h"

#include <algorithm>

namespace vesko {

namespace {

// No record, list, text or number can be made of it.
constexpr std::string_view noNumber = "[[[]]]";
constexpr std::string_view asDouble = "e0";

// Drops the digits that the text begins with; whether there were any.
bool dropDigits(std::string_view& text)
{
    const auto digits = std::min(text.find_first_not_of("0123456789"), text.size());
    text.remove_prefix(digits);
    return digits > 0;
}

bool dropIf(std::string_view& text, std::string_view oneOf)
{
    const bool found = !text.empty() && oneOf.contains(text.front());
    text.remove_prefix(found);
    return found;
}

bool isNumber(std::string_view text)
{
    dropIf(text, "-");
    if (!dropIf(text, "0") && !dropDigits(text))
        return false;
    if (dropIf(text, ".") && !dropDigits(text))
        return false;
    if (dropIf(text, "eE")) {
        dropIf(text, "+-");
        if (!dropDigits(text))
            return false;
    }
    return text.empty();
}

// Numbers as the parser takes them.
class FittingNumbers {
public:
    // Of a number, or of what only looks like one: that stays for the parser to refuse.
    std::string fitting(std::string_view number)
    {
        std::string text(number);
        if (parses(text) || !isNumber(number))
            return text;
        text += asDouble; // refused behind another exponent
        return parses(text) ? text : std::string(noNumber);
    }

private:
    bool parses(const std::string& number)
    {
        return m_parser.parse(number).error() == simdjson::SUCCESS;
    }

    simdjson::dom::parser m_parser;
};

// Newer parsers have an error of its own for an integer that is too long.
template <class Code>
bool isOfNumber(Code code)
{
    if constexpr (requires { Code::BIGINT_ERROR; })
        if (code == Code::BIGINT_ERROR)
            return true;
    return code == Code::NUMBER_ERROR;
}

std::size_t endOfString(std::string_view text, std::size_t at)
{
    for (++at; at < text.size() && text[at] != '"'; ++at)
        at += text[at] == '\\';
    return std::min(at + 1, text.size());
}

std::string withFittingNumbers(std::string_view text)
{
    std::string fitting;
    fitting.reserve(text.size() + spareForJson);
    FittingNumbers numbers;
    for (std::size_t at = 0; at < text.size();) {
        // Whatever is neither a string nor a number passes as it is.
        const auto next = std::min(text.find_first_of("\"-0123456789", at), text.size());
        fitting += text.substr(at, next - at);
        at = next;
        if (at == text.size())
            break;
        if (text[at] == '"') {
            const auto end = endOfString(text, at);
            fitting += text.substr(at, end - at);
            at = end;
        } else {
            const auto end = std::min(text.find_first_not_of("+-.0123456789eE", at), text.size());
            fitting += numbers.fitting(text.substr(at, end - at));
            at = end;
        }
    }
    return fitting;
}

} // namespace

simdjson::simdjson_result<simdjson::dom::element> parseJson(
    simdjson::dom::parser& parser, std::string_view text)
{
    // Newer parsers skip it; no document of ours begins so.
    if (text.starts_with("\xef\xbb\xbf"))
        return simdjson::TAPE_ERROR;
    constexpr bool copied = false;
    const auto parsed = parser.parse(text.data(), text.size(), copied);
    if (!isOfNumber(parsed.error()))
        return parsed;
    return parser.parse(withFittingNumbers(text));
}

simdjson::simdjson_result<simdjson::dom::element> parseJson(
    simdjson::dom::parser& parser, const std::string& text)
{
    if (text.capacity() - text.size() >= spareForJson)
        return parseJson(parser, std::string_view(text));
    std::string spacious;
    spacious.reserve(text.size() + spareForJson);
    spacious = text;
    return parseJson(parser, std::string_view(spacious));
}

} // namespace vesko
