// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <utility>
#include <vector>

/** What the benchmarks share: timing, and the rows that ./bench makes a table of. */
namespace bench {

/** How long @p work takes, in seconds. */
template <typename Work>
double seconds(Work&& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/** Keeps what the offscreen platform says of each window off the screen. */
inline void ignore_platform_warnings()
{
    static QtMessageHandler shown = nullptr;
    shown =
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& context, const QString& text) {
            if (text != QLatin1String("This plugin does not support propagateSizeHints()"))
                shown(type, context, text);
        });
}

inline double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/** The medians of what two functions return. They are run in turns: a machine that slows down slows both. */
template <typename First, typename Second>
std::pair<double, double> medians(First&& first, Second&& second, int rounds)
{
    std::vector<double> firsts;
    std::vector<double> seconds;
    first();
    second();
    for (int round = 0; round < rounds; ++round) {
        firsts.push_back(first());
        seconds.push_back(second());
    }
    return {median(firsts), median(seconds)};
}

/**
 * Prints one row: how long something takes in comparison with a yardstick, by the medians().
 *
 * @param yardstick, subject  functions that prepare what they need and return how long the work itself took,
 *                            in seconds: see seconds().
 * @param aim     the largest ratio that is well.
 * @param rounds  how many times each is run, after one run of each that does not count.
 */
template <typename Yardstick, typename Subject>
void compare(const char* work, double aim, Yardstick&& yardstick, Subject&& subject, int rounds = 5)
{
    const auto [yard, time] = medians(yardstick, subject, rounds);
    std::printf("%s\t%.2f ms\t%.2f ms\t%.3f x\t%g x\n", work, time * 1e3, yard * 1e3, time / yard, aim);
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
    times.reserve(size_t(rounds));
    calls();
    for (int round = 0; round < rounds; ++round)
        times.push_back(calls());
    const double time = median(times) * 1e9;
    std::printf("%s\t%.1f ns\t\t%.1f ns\t%g ns\n", work, time, time, aim);
    std::fflush(stdout);
}

} // namespace bench
