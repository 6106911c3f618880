// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

/**
 * Takes @p step again and again until @p done, which it asks first, and gives up after ten seconds. Returns
 * whether it is done: to be verified.
 */
template <class Done, class Step>
[[nodiscard]] bool repeat_until(Done done, Step step)
{
    const QDeadlineTimer give_up(10'000);
    while (!done() && !give_up.hasExpired())
        step();
    return done();
}

/** Lets the event loop go round @p count times, in which what is due is done. */
inline void take_turns(int count)
{
    for (int turn = 0; turn < count; ++turn) {
        QEventLoop loop;
        QTimer::singleShot(0, &loop, &QEventLoop::quit);
        loop.exec();
    }
}
