// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

/** What the benchmarks share: timing, and rows of the table that ./bench prints. */
namespace bench {

/** How long @p work takes, in seconds. */
template <typename Work>
double seconds(Work&& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

inline void header()
{
    std::printf("%-58s | %10s | %10s | %7s | %8s |\n", "work", "yardstick", "time", "ratio", "aim");
}

/**
 * Prints one row: how long something takes in comparison with a yardstick.
 *
 * Both are run in turns, so that a machine that slows down slows both, and the medians are compared.
 *
 * @param yardstick, subject  functions that prepare what they need and return how long the work itself took,
 *                            in seconds: see seconds().
 * @param aim     the largest ratio that is well.
 * @param rounds  how many times each is run, after one run of each that does not count.
 */
template <typename Yardstick, typename Subject>
void compare(const char* work, double aim, Yardstick&& yardstick, Subject&& subject, int rounds = 5)
{
    std::vector<double> yardsticks;
    std::vector<double> subjects;
    yardstick();
    subject();
    for (int round = 0; round < rounds; ++round) {
        yardsticks.push_back(yardstick());
        subjects.push_back(subject());
    }
    const double yard = median(yardsticks);
    const double time = median(subjects);
    std::printf("%-58s | %7.1f ms | %7.1f ms | %7.3f | <= %5g | %s\n", work, yard * 1e3, time * 1e3,
                time / yard, aim, time <= aim * yard ? "ok" : "over");
    std::fflush(stdout);
}

/**
 * Prints one row: how long one call takes.
 *
 * @param calls  makes many calls and returns the seconds for each of them.
 * @param aim    the most nanoseconds that are well.
 */
template <typename Calls>
void measure(const char* work, double aim, Calls&& calls, int rounds = 9)
{
    std::vector<double> times;
    calls();
    for (int round = 0; round < rounds; ++round)
        times.push_back(calls());
    const double time = median(times) * 1e9;
    std::printf("%-58s | %10s | %7.1f ns | %7s | <= %5g | %s\n", work, "-", time, "-", aim,
                time <= aim ? "ok" : "over");
    std::fflush(stdout);
}

} // namespace bench
