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
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::array<char, textLength> text{};
    std::size_t at = 0;
    for (const auto byte : m_bytes) {
        if (isDash(at))
            text[at++] = '-';
        text[at++] = digits[byte >> 4];
        text[at++] = digits[byte & 0x0F];
    }
    return text;
}

} // namespace vesko
