#include "VeskoCore/base/Date.h"

#include <algorithm>

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

void putDigits(std::array<char, 20>& text, std::size_t at, std::size_t length, unsigned value)
{
    for (; length > 0; --length, value /= 10)
        text[at + length - 1] = static_cast<char>('0' + value % 10);
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
    const auto text = characters();
    return { text.data(), text.size() };
}

std::array<char, 20> Date::characters() const
{
    using namespace std::chrono;
    const auto whole = floor<seconds>(time);
    const auto midnight = floor<days>(whole);
    const year_month_day day{ midnight };
    const hh_mm_ss clock{ whole - midnight };
    std::array<char, 20> text{};
    std::ranges::copy(pattern, text.begin());
    putDigits(text, 0, 4, static_cast<unsigned>(static_cast<int>(day.year())));
    putDigits(text, 5, 2, static_cast<unsigned>(day.month()));
    putDigits(text, 8, 2, static_cast<unsigned>(day.day()));
    putDigits(text, 11, 2, static_cast<unsigned>(clock.hours().count()));
    putDigits(text, 14, 2, static_cast<unsigned>(clock.minutes().count()));
    putDigits(text, 17, 2, static_cast<unsigned>(clock.seconds().count()));
    return text;
}

} // namespace vesko
