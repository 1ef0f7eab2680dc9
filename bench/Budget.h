#pragma once

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <map>
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

// The seconds that each of the two took, in every round.
class Rounds : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Iteration)
                m_taken[run.run_name.function_name].push_back(run.real_accumulated_time);
    }
    double medianOf(const std::string& name) { return median(m_taken.at(name)); }

private:
    std::map<std::string, std::vector<double>> m_taken;
};

// Ours against a yardstick of the same run, each a function that gives the seconds it took. Their
// rounds are shuffled, so that whatever else the machine does meets both; a first round of each
// warms up and doesn't count.
template <class Ours, class Yardstick>
void compare(const std::string& name, Ours ours, Yardstick yardstick, double aim)
{
    ours();
    yardstick();
    char program[] = "bench", shuffled[] = "--benchmark_enable_random_interleaving=true";
    std::array arguments{ program, shuffled };
    int count = arguments.size();
    benchmark::Initialize(&count, arguments.data());
    benchmark::ClearRegisteredBenchmarks();
    const auto measure = [](const char* which, auto& work) {
        benchmark::RegisterBenchmark(which,
            [&work](benchmark::State& state) {
                for ([[maybe_unused]] const auto turn : state)
                    state.SetIterationTime(work());
            })
            ->UseManualTime()
            ->Iterations(1)
            ->Repetitions(rounds);
    };
    measure("ours", ours);
    measure("yardstick", yardstick);
    benchmark::SetBenchmarkFilter("all");
    Rounds taken;
    benchmark::RunSpecifiedBenchmarks(&taken);
    report(name, taken.medianOf("ours"), taken.medianOf("yardstick"), aim);
}

} // namespace vesko::bench
