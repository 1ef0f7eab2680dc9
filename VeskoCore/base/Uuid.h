#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vesko {

// A universally unique identifier (RFC 4122). Its text is 8-4-4-4-12 in upper-case hexadecimal;
// reading accepts either case.
class Uuid {
public:
    // All zeros; stands for no particular thing.
    constexpr Uuid() = default;

    // A random (version 4) identifier from the system's generator.
    static Uuid random();
    // Nothing if the text is not exactly the 36 characters of the form above.
    static std::optional<Uuid> parse(std::string_view text);

    std::string text() const;
    static constexpr std::size_t textLength = 36;
    // The same to a place that has so much room.
    void writeTo(char* place) const;

    friend constexpr auto operator<=>(const Uuid&, const Uuid&) = default;

private:
    friend struct std::hash<Uuid>;
    std::array<std::uint8_t, 16> m_bytes{};
};

} // namespace vesko

template <>
struct std::hash<vesko::Uuid> {
    std::size_t operator()(const vesko::Uuid& id) const noexcept
    {
        return std::hash<std::string_view>{}(
            { reinterpret_cast<const char*>(id.m_bytes.data()), id.m_bytes.size() });
    }
};
