// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

#include <functional>

class OutputHandler;

/**
 * Takes the framework's text to where the user reads it: to the console while the shell shows one, else to
 * the fallback. Behind Broker::command. GUI thread only.
 */
class OutputRouter
{
public:
    static OutputRouter& instance();

    /**
     * Sets the console's output end, or null for none. Not owned.
     *
     * The listener is told first, so that there is a page for the text; then what has waited is printed.
     */
    void set_window(OutputHandler* window);
    OutputHandler* window() const { return mWindow; }

    /** Is told of each console that comes, and with null that it is about to go. Null for none. */
    void set_window_listener(std::function<void(OutputHandler*)> listener);

    /** Takes text while there is no console. Null, as at first, keeps the text for the next console. */
    void set_fallback(std::function<void(const QString&)> fallback);

    /** Prints @p text as it is. */
    void print(const QString& text);

private:
    OutputHandler* mWindow = nullptr;
    std::function<void(OutputHandler*)> mListener;
    std::function<void(const QString&)> mFallback;
    QString mWaiting;
};
