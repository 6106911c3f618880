// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/ostrelfw/OutputRouter.h"

#include "host/ostrelfw/OutputHandler.h"

#include <utility>

OutputRouter& OutputRouter::instance()
{
    static OutputRouter router;
    return router;
}

void OutputRouter::set_window(OutputHandler* window)
{
    mWindow = window;
    if (mListener)
        mListener(window);
    if (mWindow && !mWaiting.isEmpty())
        mWindow->print_data(std::exchange(mWaiting, {}));
}

void OutputRouter::set_window_listener(std::function<void(OutputHandler*)> listener)
{
    mListener = std::move(listener);
}

void OutputRouter::set_fallback(std::function<void(const QString&)> fallback)
{
    mFallback = std::move(fallback);
}

void OutputRouter::print(const QString& text)
{
    if (mWindow)
        mWindow->print_data(text);
    else if (mFallback)
        mFallback(text);
    else
        mWaiting += text;
}
