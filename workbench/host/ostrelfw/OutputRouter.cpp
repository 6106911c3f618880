// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/ostrelfw/OutputRouter.h"

#include "host/ostrelfw/OutputHandler.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** Painting may take this part of the time in the long run. */
constexpr qint64 refill_divisor = 10;

} // namespace

OutputRouter::OutputRouter()
{
    mTimer.setSingleShot(true);
    mTimer.setInterval(gather_interval);
    QObject::connect(&mTimer, &QTimer::timeout, &mTimer, [this] { flush(); });
}

OutputRouter& OutputRouter::instance()
{
    static OutputRouter router;
    return router;
}

void OutputRouter::set_window(OutputHandler* window)
{
    flush();
    end_folded_line();
    mWindow = window;
    if (mListener)
        mListener(window);
    if (mWindow && !mWaiting.isEmpty())
        mWindow->print_data(mFolder.fold(std::exchange(mWaiting, {})));
}

void OutputRouter::print(const QString& printed)
{
    if (!printed.isEmpty())
        mLineOpen = !printed.endsWith(u'\n');
    if (!mWindow) {
        if (mFallback)
            mFallback(printed);
        else
            mWaiting += printed;
        return;
    }
    const QString text = mFolder.fold(printed);
    // All of it may have been folded.
    if (text.isEmpty() && !printed.isEmpty())
        return;
    if (!mGathering) {
        mWindow->print_data(text);
        return;
    }
    const Time at = now();
    mBudget =
        std::min<std::chrono::nanoseconds>(painting_budget, mBudget + (at - mRefilled) / refill_divisor);
    mRefilled = at;
    if (mGathered.isEmpty() && mBudget.count() > 0) {
        hand_over(text);
        return;
    }
    if (mGathered.isEmpty()) {
        mFirst = at;
        mTimer.start();
    }
    mGathered += text;
    if (mGathered.size() >= gather_size || at - mFirst >= gather_interval)
        flush();
}

void OutputRouter::print_line(const QString& line)
{
    print((mLineOpen ? u"\n"_s : QString()) + line + u'\n');
}

void OutputRouter::set_gathering(bool gather)
{
    flush();
    mGathering = gather;
    // A prompt follows on what has run, and closes the line.
    if (!gather) {
        end_folded_line();
        mLineOpen = false;
    }
    mBudget = painting_budget;
    mRefilled = now();
}

void OutputRouter::set_clock(std::function<Time()> clock)
{
    mClock = std::move(clock);
    mRefilled = now();
    mFirst = now();
}

void OutputRouter::flush()
{
    mTimer.stop();
    if (mGathered.isEmpty())
        return;
    const QString text = std::exchange(mGathered, {});
    if (mWindow)
        hand_over(text);
    else
        mWaiting += text;
}

void OutputRouter::hand_over(const QString& text)
{
    const Time begin = now();
    mWindow->print_data(text);
    mBudget -= now() - begin;
}

void OutputRouter::end_folded_line()
{
    const QString mark = mFolder.end_line();
    if (mWindow && !mark.isEmpty())
        mWindow->print_data(mark);
}

} // namespace fennar
