#include "VeskoCore/base/JsonWriter.h"

#include <array>
#include <charconv>
#include <cmath>
#include <simdjson.h>

namespace vesko {

namespace {

constexpr bool needsEscape(char character)
{
    return static_cast<unsigned char>(character) < 0x20 || character == '"' || character == '\\'
        || character == '/';
}

// Where the next character that needs an escape stands, or the end. Nearly all of a document's
// time is spent here, so it looks at 16 bytes at once (a loop that compilers turn into vectors).
const char* findEscape(const char* at, const char* end)
{
    constexpr int block = 16;
    for (; end - at >= block; at += block) {
        unsigned char any = 0;
        for (int offset = 0; offset < block; ++offset)
            any |= static_cast<unsigned char>(needsEscape(at[offset]));
        if (any)
            break;
    }
    while (at != end && !needsEscape(*at))
        ++at;
    return at;
}

void appendEscape(std::string& text, char character)
{
    switch (character) {
    case '\b':
        text += "\\b";
        return;
    case '\f':
        text += "\\f";
        return;
    case '\n':
        text += "\\n";
        return;
    case '\r':
        text += "\\r";
        return;
    case '\t':
        text += "\\t";
        return;
    case '"':
    case '\\':
    case '/':
        text += '\\';
        text += character;
        return;
    default:
        text += "\\u00";
        text += static_cast<char>('0' + (character >> 4));
        text += "0123456789abcdef"[character & 0x0F];
    }
}

} // namespace

std::string JsonWriter::finished()
{
    if (!simdjson::validate_utf8(m_text))
        throw JsonError();
    return std::move(m_text);
}

void JsonWriter::put(std::int64_t value)
{
    std::array<char, 24> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), value).ptr;
    m_text.append(digits.begin(), end);
}

void JsonWriter::put(double value)
{
    if (!std::isfinite(value))
        throw JsonError();
    // Up to here every whole number is exact, and people read such numbers without an exponent.
    constexpr double largestPlain = 9007199254740992;
    constexpr double smallestPlain = 0.0001;
    const double size = std::abs(value);
    const bool plain = size == 0 || (size >= smallestPlain && size <= largestPlain);
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), value,
        plain ? std::chars_format::fixed : std::chars_format::scientific)
                         .ptr;
    m_text.append(digits.begin(), end);
}

void JsonWriter::put(const std::string& value)
{
    m_text += '"';
    const char* at = value.data();
    const char* const end = at + value.size();
    for (;;) {
        const char* const special = findEscape(at, end);
        m_text.append(at, special);
        if (special == end)
            break;
        appendEscape(m_text, *special);
        at = special + 1;
    }
    m_text += '"';
}

void JsonWriter::put(const Uuid& value)
{
    m_text += '"';
    m_text += value.text();
    m_text += '"';
}

void JsonWriter::put(const Date& value)
{
    const auto text = value.text();
    if (!Date::parse(text))
        throw JsonError();
    m_text += '"';
    m_text += text;
    m_text += '"';
}

void JsonWriter::putKey(std::string_view key)
{
    m_text += '"';
    m_text += key;
    m_text += m_pretty ? "\" : " : "\":";
}

void JsonWriter::open(char bracket)
{
    m_text += bracket;
    m_first = true;
    ++m_depth;
}

void JsonWriter::nextElement()
{
    if (!m_first)
        m_text += ',';
    m_first = false;
    newLine();
}

void JsonWriter::close(char bracket)
{
    --m_depth;
    if (m_first && m_pretty)
        m_text += '\n';
    newLine();
    m_text += bracket;
    m_first = false;
}

void JsonWriter::newLine()
{
    if (!m_pretty)
        return;
    m_text += '\n';
    m_text.append(2 * m_depth, ' ');
}

} // namespace vesko
