#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace rovanta::bench {

using Clock = std::chrono::steady_clock;

/// Runs the work once and tells how many milliseconds it took.
template <class Work>
double MillisecondsOf(Work work)
{
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

inline double Median(std::vector<double> figures)
{
    std::sort(figures.begin(), figures.end());
    const std::size_t middle = figures.size() / 2;
    return figures.size() % 2 == 1 ? figures[middle] : (figures[middle - 1] + figures[middle]) / 2;
}

struct Pair {
    double program = 0; ///< milliseconds
    double bare = 0;
};

/// Medians of both works, run in turn so that the machine's moods meet both alike. The first runs warm up and do not
/// count.
template <class Program, class Bare>
Pair MediansOf(int repetitions, Program program, Bare bare)
{
    std::vector<double> programTimes;
    std::vector<double> bareTimes;
    constexpr int warmUps = 2;
    for (int i = 0; i < warmUps + repetitions; ++i) {
        const double programTime = MillisecondsOf(program);
        const double bareTime = MillisecondsOf(bare);
        if (i < warmUps)
            continue;
        programTimes.push_back(programTime);
        bareTimes.push_back(bareTime);
    }
    return {Median(programTimes), Median(bareTimes)};
}

}
