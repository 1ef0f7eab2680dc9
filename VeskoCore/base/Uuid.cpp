#include "VeskoCore/base/Uuid.h"

#include <cstring>
#include <random>

namespace vesko {

namespace {

constexpr std::size_t textLength = 36;

constexpr bool isDash(std::size_t position)
{
    return position == 8 || position == 13 || position == 18 || position == 23;
}

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

// The two digits of each byte.
constexpr auto digitPairs = [] {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::array<std::array<char, 2>, 256> pairs{};
    for (std::size_t byte = 0; byte < pairs.size(); ++byte)
        pairs[byte] = { digits[byte >> 4], digits[byte & 0x0F] };
    return pairs;
}();

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
    if (text.size() != textLength)
        return std::nullopt;
    Uuid id;
    std::size_t half = 0;
    for (std::size_t at = 0; at < textLength; ++at) {
        if (isDash(at)) {
            if (text[at] != '-')
                return std::nullopt;
            continue;
        }
        const auto value = digitValues[static_cast<unsigned char>(text[at])];
        if (value == noDigit)
            return std::nullopt;
        auto& byte = id.m_bytes[half / 2];
        byte = static_cast<std::uint8_t>(byte << 4 | value);
        ++half;
    }
    return id;
}

std::string Uuid::text() const
{
    const auto text = characters();
    return { text.data(), text.size() };
}

std::array<char, 36> Uuid::characters() const
{
    std::array<char, textLength> text; // NOLINT: every character is set
    char* to = text.data();
    for (std::size_t at = 0; at < m_bytes.size(); ++at) {
        if (at == 4 || at == 6 || at == 8 || at == 10)
            *to++ = '-';
        std::memcpy(to, digitPairs[m_bytes[at]].data(), 2);
        to += 2;
    }
    return text;
}

} // namespace vesko
