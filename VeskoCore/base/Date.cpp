#include "VeskoCore/base/Date.h"

#include <algorithm>

namespace vesko {

namespace {

constexpr std::string_view marks = "    -  -  T  :  :  Z";
static_assert(marks.size() == Date::textLength);

void putTwoDigits(char* place, unsigned value)
{
    place[0] = static_cast<char>('0' + value / 10);
    place[1] = static_cast<char>('0' + value % 10);
}

} // namespace

std::optional<Date> Date::parse(std::string_view text)
{
    using namespace std::chrono;
    if (text.size() != textLength)
        return std::nullopt;
    bool fits = true;
    for (std::size_t at = 0; at < marks.size(); ++at)
        fits = fits && (marks[at] == ' ' || text[at] == marks[at]);
    const auto part = [&](std::size_t at, std::size_t length) {
        int value = 0;
        for (const char character : text.substr(at, length)) {
            const int digit = character - '0';
            fits = fits && digit >= 0 && digit <= 9;
            value = value * 10 + digit;
        }
        return value;
    };
    const year_month_day day{ year{ part(0, 4) }, month{ static_cast<unsigned>(part(5, 2)) },
        std::chrono::day{ static_cast<unsigned>(part(8, 2)) } };
    const int hour = part(11, 2), minute = part(14, 2), second = part(17, 2);
    if (!fits || !day.ok() || hour > 23 || minute > 59 || second > 59)
        return std::nullopt;
    return Date{ sys_days{ day } + hours{ hour } + minutes{ minute } + seconds{ second } };
}

std::optional<Date> Date::parseInternet(std::string_view text)
{
    using namespace std::chrono;
    constexpr std::size_t wholeLength = textLength - 1; // without the zone
    auto date = parse(std::string(text.substr(0, wholeLength)) + 'Z');
    if (!date)
        return std::nullopt;
    text.remove_prefix(wholeLength);
    if (text.starts_with('.')) {
        const auto digits = std::min(text.find_first_not_of("0123456789", 1), text.size()) - 1;
        if (digits == 0)
            return std::nullopt;
        std::string fraction(text.substr(1, digits));
        fraction.resize(6, '0');
        date->time += microseconds(std::stoi(fraction));
        text.remove_prefix(1 + digits);
    }
    if (text == "Z")
        return date;
    // The offset is read as the time of day that it looks like.
    const auto offset = text.size() == 6 && (text[0] == '+' || text[0] == '-')
        ? parse("1970-01-01T" + std::string(text.substr(1)) + ":00Z")
        : std::nullopt;
    if (!offset)
        return std::nullopt;
    const auto east = offset->time.time_since_epoch();
    date->time -= text[0] == '+' ? east : -east;
    return date;
}

std::string Date::text() const
{
    std::string text(textLength, ' ');
    writeTo(text.data());
    return text;
}

void Date::writeTo(char* place) const
{
    using namespace std::chrono;
    const auto whole = floor<seconds>(time);
    const auto midnight = floor<days>(whole);
    const year_month_day day{ midnight };
    const hh_mm_ss clock{ whole - midnight };
    std::ranges::copy(marks, place);
    const auto year = static_cast<unsigned>(static_cast<int>(day.year()));
    putTwoDigits(place, year / 100);
    putTwoDigits(place + 2, year % 100);
    putTwoDigits(place + 5, static_cast<unsigned>(day.month()));
    putTwoDigits(place + 8, static_cast<unsigned>(day.day()));
    putTwoDigits(place + 11, static_cast<unsigned>(clock.hours().count()));
    putTwoDigits(place + 14, static_cast<unsigned>(clock.minutes().count()));
    putTwoDigits(place + 17, static_cast<unsigned>(clock.seconds().count()));
}

} // namespace vesko
