#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace vesko::bench {

inline constexpr int rounds = 15;

template <class Work>
double seconds(Work work)
{
    using Clock = std::chrono::steady_clock;
    const auto begin = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

inline double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

// Prints one promise as a line of fields parted by tabs: name, ours, yardstick, ratio, aim, and
// "met" or "over". Times are in seconds.
inline void report(const std::string& name, double ours, double yardstick, double aim)
{
    const double ratio = ours / yardstick;
    std::printf("%s\t%.9f\t%.9f\t%.2f\t%.2f\t%s\n", name.c_str(), ours, yardstick, ratio, aim,
        ratio <= aim ? "met" : "over");
    std::fflush(stdout);
}

// Ours against a yardstick of the same run. The two take turns, so that whatever else the machine
// does meets both; the first round warms up and doesn't count.
template <class Ours, class Yardstick>
void compare(const std::string& name, Ours ours, Yardstick yardstick, double aim)
{
    std::vector<double> mine, theirs;
    for (int round = 0; round <= rounds; ++round) {
        const double a = ours();
        const double b = yardstick();
        if (round == 0)
            continue;
        mine.push_back(a);
        theirs.push_back(b);
    }
    report(name, median(mine), median(theirs), aim);
}

} // namespace vesko::bench
