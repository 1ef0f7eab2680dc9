#include "VeskoCore/base/Date.h"

#include <array>
#include <cstdio>

namespace vesko {

namespace {

constexpr std::string_view pattern = "dddd-dd-ddTdd:dd:ddZ";

int number(std::string_view digits)
{
    int value = 0;
    for (const char digit : digits)
        value = value * 10 + (digit - '0');
    return value;
}

} // namespace

std::optional<Date> Date::parse(std::string_view text)
{
    using namespace std::chrono;
    if (text.size() != pattern.size())
        return std::nullopt;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool fits
            = pattern[at] == 'd' ? text[at] >= '0' && text[at] <= '9' : text[at] == pattern[at];
        if (!fits)
            return std::nullopt;
    }
    const auto part
        = [&](std::size_t at, std::size_t length) { return number(text.substr(at, length)); };
    const year_month_day day{ year{ part(0, 4) }, month{ static_cast<unsigned>(part(5, 2)) },
        std::chrono::day{ static_cast<unsigned>(part(8, 2)) } };
    const int hour = part(11, 2), minute = part(14, 2), second = part(17, 2);
    if (!day.ok() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return Date{ sys_days{ day } + hours{ hour } + minutes{ minute } + seconds{ second } };
}

std::string Date::text() const
{
    using namespace std::chrono;
    const auto whole = floor<seconds>(time);
    const auto midnight = floor<days>(whole);
    const year_month_day day{ midnight };
    const hh_mm_ss clock{ whole - midnight };
    std::array<char, 32> text{};
    const int length = std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
        static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
        static_cast<unsigned>(day.day()), static_cast<int>(clock.hours().count()),
        static_cast<int>(clock.minutes().count()), static_cast<int>(clock.seconds().count()));
    return { text.data(), static_cast<std::size_t>(length) };
}

} // namespace vesko
