#include "VeskoCore/base/Uuid.h"

#include <cstring>
#include <random>

namespace vesko {

namespace {

// Where the digits of each byte stand in the text.
constexpr std::array<std::uint8_t, 16> places{ 0, 2, 4, 6, 9, 11, 14, 16, 19, 21, 24, 26, 28, 30,
    32, 34 };

constexpr std::uint8_t noDigit = 0xFF;

// The value of each hexadecimal digit. A large library holds a hundred thousand of them.
constexpr auto digitValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(noDigit);
    for (std::uint8_t value = 0; value < 16; ++value) {
        values[static_cast<unsigned char>("0123456789ABCDEF"[value])] = value;
        values[static_cast<unsigned char>("0123456789abcdef"[value])] = value;
    }
    return values;
}();

// All bytes at once; compilers turn this into the machine's vectors.
using Block = unsigned char __attribute__((vector_size(16)));

Block digitsOf(Block values)
{
    constexpr unsigned char fromNineToA = 'A' - '9' - 1;
    return values + '0' + ((values > 9) & fromNineToA);
}

} // namespace

Uuid Uuid::random()
{
    std::random_device device;
    Uuid id;
    for (std::size_t at = 0; at < id.m_bytes.size(); at += sizeof(std::uint32_t)) {
        const std::uint32_t word = device();
        std::memcpy(id.m_bytes.data() + at, &word, sizeof word);
    }
    id.m_bytes[6] = static_cast<std::uint8_t>((id.m_bytes[6] & 0x0F) | 0x40);
    id.m_bytes[8] = static_cast<std::uint8_t>((id.m_bytes[8] & 0x3F) | 0x80);
    return id;
}

std::optional<Uuid> Uuid::parse(std::string_view text)
{
    if (text.size() != textLength || text[8] != '-' || text[13] != '-' || text[18] != '-'
        || text[23] != '-')
        return std::nullopt;
    const auto valueAt
        = [&](std::size_t place) { return digitValues[static_cast<unsigned char>(text[place])]; };
    Uuid id;
    std::uint8_t all = 0;
    for (std::size_t at = 0; at < places.size(); ++at) {
        const auto high = valueAt(places[at]), low = valueAt(places[at] + 1U);
        all |= high | low;
        id.m_bytes[at] = static_cast<std::uint8_t>(high << 4 | low);
    }
    return all <= 0x0F ? std::optional(id) : std::nullopt;
}

std::string Uuid::text() const
{
    std::string text(textLength, '-');
    writeTo(text.data());
    return text;
}

void Uuid::writeTo(char* place) const
{
    Block bytes;
    std::memcpy(&bytes, m_bytes.data(), sizeof bytes);
    const Block high = digitsOf(bytes >> 4), low = digitsOf(bytes & 0x0F);
    const std::array<Block, 2> digits{
        __builtin_shufflevector(high, low, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23),
        __builtin_shufflevector(
            high, low, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15, 31),
    };
    const auto* from = reinterpret_cast<const char*>(digits.data());
    std::memcpy(place, from, 8);
    std::memcpy(place + 9, from + 8, 4);
    std::memcpy(place + 14, from + 12, 4);
    std::memcpy(place + 19, from + 16, 4);
    std::memcpy(place + 24, from + 20, 12);
    place[8] = place[13] = place[18] = place[23] = '-';
}

} // namespace vesko
