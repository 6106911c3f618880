// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/ostrelfw/LineFolder.h"

#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>

class OutputHandler;

namespace fennar {

/**
 * Takes the framework's text to where the user reads it: to the console while the shell shows one, else to
 * the fallback. Behind Broker::command. GUI thread only.
 *
 * The console paints itself at each text that ends a line, which is right for a few lines and slow for a
 * hundred thousand. While a line runs the router therefore gathers what comes in a flood: once the painting
 * has cost some time, texts are joined and handed over together. They stay in order, and none waits longer
 * than it takes the command to give the shell a turn or to end.
 *
 * Lines that are too long for the console are folded. The fallback gets them whole.
 */
class OutputRouter
{
public:
    using Time = std::chrono::steady_clock::time_point;

    OutputRouter();

    static OutputRouter& instance();

    /**
     * Sets the console's output end, or null for none. Not owned.
     *
     * The listener is told first, so that there is a page for the text; then what has waited is printed.
     */
    void set_window(OutputHandler* window);
    OutputHandler* window() const { return mWindow; }

    /** Is told of each console that comes, and with null that it is about to go. Null for none. */
    void set_window_listener(const std::function<void(OutputHandler*)>& listener) { mListener = listener; }

    /** Takes text while there is no console. Null, as at first, keeps the text for the next console. */
    void set_fallback(const std::function<void(const QString&)>& fallback) { mFallback = fallback; }

    /** How long painting may take at first before texts are gathered. */
    static constexpr std::chrono::milliseconds painting_budget{100};
    /** How long texts are gathered. */
    static constexpr std::chrono::milliseconds gather_interval{40};
    /** How many characters are gathered at most. */
    static constexpr qsizetype gather_size = 1 << 16;

    /** Prints @p text as it is. */
    void print(const QString& text);
    /** Prints @p line as a line of its own, below an output whose line has not ended. */
    void print_line(const QString& line);

    /** Whether a flood of text is gathered. At first it is not; with false, what was gathered is handed over.
     */
    void set_gathering(bool gather);
    /** Takes the time from @p clock, as a test may set it. Null for the steady clock, as at first. */
    void set_clock(std::function<Time()> clock);
    /** Hands over what was gathered: ahead of anything that is put on the console in another way, and before
     * the user is to read or to answer something. */
    void flush();

    /** A line that was folded, by the number in its mark; see LineFolder::line(). */
    std::optional<QString> folded_line(int number) const { return mFolder.line(number); }

private:
    Time now() const { return mClock ? mClock() : std::chrono::steady_clock::now(); }
    void hand_over(const QString& text);
    void end_folded_line();

    std::function<Time()> mClock;
    OutputHandler* mWindow = nullptr;
    std::function<void(OutputHandler*)> mListener;
    std::function<void(const QString&)> mFallback;
    QString mWaiting;
    LineFolder mFolder;
    /** What was gathered. */
    QString mGathered;
    /** How much painting is left of the budget, and since when. */
    std::chrono::nanoseconds mBudget{};
    Time mRefilled;
    /** When the first text was gathered. */
    Time mFirst;
    /** For commands that let the event loop run without the shell's turn, as for a dialog. */
    QTimer mTimer;
    bool mGathering = false;
    /** The last text did not end its line. */
    bool mLineOpen = false;
};

} // namespace fennar
