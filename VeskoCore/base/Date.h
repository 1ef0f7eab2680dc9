#pragma once

#include <chrono>
#include <compare>
#include <optional>
#include <string>
#include <string_view>

namespace vesko {

// A moment in UTC with microseconds. Its text is the ISO 8601 internet form to whole seconds,
// "2026-11-21T10:52:00Z", which drops the fraction; years 0000 to 9999.
struct Date {
    std::chrono::sys_time<std::chrono::microseconds> time;

    // Nothing for every other form: a fraction, an offset, a lower-case letter, a day that no
    // calendar has.
    static std::optional<Date> parse(std::string_view text);
    // The internet form as services write it (RFC 3339): with or without a fraction of a second,
    // whose digits beyond microseconds are dropped, and with "Z" or an offset such as "+02:00".
    static std::optional<Date> parseInternet(std::string_view text);
    std::string text() const;
    static constexpr std::size_t textLength = 20;
    // The same to a place that has so much room.
    void writeTo(char* place) const;

    // Seconds from the other moment to this one.
    double since(const Date& other) const
    {
        return std::chrono::duration<double>(time - other.time).count();
    }

    friend constexpr auto operator<=>(const Date&, const Date&) = default;
};

} // namespace vesko
