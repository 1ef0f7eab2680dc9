#include "VeskoCore/base/JsonWriter.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstring>
#include <simdjson.h>

namespace vesko {

namespace {

// Most values are short; of a long document a few large pieces are written faster than many.
constexpr std::size_t firstPiece = 131'072;
constexpr std::size_t laterPieces = 1'048'576;
// What is escaped at one go; each of its bytes may become the six of "\u00xx".
constexpr std::size_t escapeStep = 16'384;
constexpr std::size_t longestEscape = 6;

constexpr Date firstDate{ std::chrono::sys_days{ std::chrono::year{ 0 } / 1 / 1 } };
constexpr Date afterLastDate{ std::chrono::sys_days{ std::chrono::year{ 10000 } / 1 / 1 } };

// What stands for a character in the text: itself or its escape.
struct Escape {
    std::array<char, 8> text{};
    std::uint8_t length = 0; // 0 for a character that stands for itself
};

constexpr auto escapes = [] {
    std::array<Escape, 256> all{};
    const auto set = [&](unsigned char character, std::string_view text) {
        std::ranges::copy(text, all[character].text.begin());
        all[character].length = static_cast<std::uint8_t>(text.size());
    };
    for (unsigned char control = 0; control < 0x20; ++control) {
        const std::array text{ '\\', 'u', '0', '0', static_cast<char>('0' + (control >> 4)),
            "0123456789abcdef"[control & 0x0F] };
        set(control, { text.data(), text.size() });
    }
    set('\b', "\\b");
    set('\f', "\\f");
    set('\n', "\\n");
    set('\r', "\\r");
    set('\t', "\\t");
    set('"', "\\\"");
    set('\\', "\\\\");
    set('/', "\\/");
    return all;
}();

const Escape& escapeFor(char character)
{
    return escapes[static_cast<unsigned char>(character)];
}

char* writeEscape(char* to, char character)
{
    const auto& escape = escapeFor(character);
    std::memcpy(to, escape.text.data(), escape.text.size());
    return to + escape.length;
}

// Sixteen characters at once; compilers turn this into the machine's vectors.
using Block = unsigned char __attribute__((vector_size(16)));

// How many of the block's characters, from the first, stand for themselves.
std::size_t plainCharacters(Block block)
{
    const auto marks = (block < 0x20) | (block == '"') | (block == '\\') | (block == '/');
    const auto halves = std::bit_cast<std::array<std::uint64_t, 2>>(marks);
    return static_cast<std::size_t>(
        halves[0] != 0 ? std::countr_zero(halves[0]) / 8 : 8 + std::countr_zero(halves[1]) / 8);
}

// Nearly all of a document's time is spent here. Writes up to a block beyond the end that it
// returns.
char* writeEscaped(char* to, std::string_view text)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    if constexpr (std::endian::native == std::endian::little) {
        while (end - at >= static_cast<std::ptrdiff_t>(sizeof(Block))) {
            Block block;
            std::memcpy(&block, at, sizeof block);
            std::memcpy(to, &block, sizeof block);
            const auto plain = plainCharacters(block);
            at += plain;
            to += plain;
            if (plain < sizeof block)
                to = writeEscape(to, *at++);
        }
    }
    for (; at != end; ++at) {
        if (escapeFor(*at).length > 0)
            to = writeEscape(to, *at);
        else
            *to++ = *at;
    }
    return to;
}

// The text's beginning, up to so many bytes, that does not end within a character.
std::string_view wholeCharacters(std::string_view text, std::size_t limit)
{
    if (text.size() <= limit)
        return text;
    const auto isContinuation = [](char byte) { return (byte & 0xC0) == 0x80; };
    constexpr std::size_t mostContinuations = 3;
    std::size_t size = limit;
    while (size > limit - mostContinuations && isContinuation(text[size]))
        --size;
    return text.substr(0, size);
}

} // namespace

JsonWriter::JsonWriter(Form form, Output output, JsonCache* cache)
    : m_pretty(form == Form::pretty)
    , m_output(std::move(output))
    , m_cache(cache)
{
    startPieces(firstPiece);
}

void JsonWriter::put(std::int64_t value)
{
    m_at = std::to_chars(m_at, m_at + shortText, value).ptr;
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
    const auto form = plain ? std::chars_format::fixed : std::chars_format::scientific;
    m_at = std::to_chars(m_at, m_at + shortText, value, form).ptr;
}

void JsonWriter::put(const std::string& value)
{
    *m_at++ = '"';
    for (std::string_view rest = value; !rest.empty();) {
        const auto step = wholeCharacters(rest, escapeStep);
        makeRoom(step.size() * longestEscape + sizeof(Block));
        m_at = writeEscaped(m_at, step);
        rest.remove_prefix(step.size());
    }
    *m_at++ = '"';
}

// The whole base64 of a long recording never stands in memory, nor is it looked at whether it is
// UTF-8.
void JsonWriter::put(const Base64& value)
{
    constexpr auto step = escapeStep / 4 * 3; // no padding but at the end
    check();
    *m_at++ = '"';
    for (auto rest = value.bytes; !rest.empty();) {
        const auto text = base64(rest.substr(0, step));
        makeRoom(2 * text.size() + sizeof(Block));
        m_at = writeEscaped(m_at, text);
        m_unchecked = m_at;
        rest.remove_prefix(std::min(step, rest.size()));
    }
    *m_at++ = '"';
}

void JsonWriter::put(const Uuid& value)
{
    *m_at++ = '"';
    value.writeTo(m_at);
    m_at += Uuid::textLength;
    *m_at++ = '"';
}

void JsonWriter::put(const Date& value)
{
    if (value < firstDate || value >= afterLastDate)
        throw JsonError();
    *m_at++ = '"';
    value.writeTo(m_at);
    m_at += Date::textLength;
    *m_at++ = '"';
}

void JsonWriter::appendChecked(std::string_view text)
{
    check();
    for (; !text.empty(); m_unchecked = m_at) {
        makeRoom(1);
        const auto room = static_cast<std::size_t>(m_end - m_at);
        const auto part = text.substr(0, room);
        append(part);
        text.remove_prefix(part.size());
    }
}

void JsonWriter::check()
{
    // Texts are appended by whole characters, so what lies between two checks can be judged alone.
    if (!simdjson::validate_utf8(m_unchecked, static_cast<std::size_t>(m_at - m_unchecked)))
        throw JsonError();
    m_unchecked = m_at;
}

void JsonWriter::startPieces(std::size_t size)
{
    m_piece = std::make_unique_for_overwrite<char[]>(size);
    m_size = size;
    m_at = m_piece.get();
    m_end = m_at + size - roomAfterEnd;
    m_unchecked = m_at;
}

void JsonWriter::nextPiece()
{
    flush();
    if (m_size < laterPieces)
        startPieces(laterPieces);
}

void JsonWriter::flush()
{
    check();
    m_output({ m_piece.get(), m_at });
    m_at = m_piece.get();
    m_unchecked = m_at;
}

} // namespace vesko
