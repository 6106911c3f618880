// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

class OutputHandler;

/** The framework's text stream, as Broker::command. GUI thread only. */
class BrokerCommand
{
public:
    /**
     * Tells the framework where to print.
     *
     * MainFrame::load_gui() passes the console once the main window exists, MainFrame::unload_gui() passes
     * null before the window is deleted.
     *
     * @param window  the console's output end, or null for none. Not owned.
     */
    void set_command_window(OutputHandler* window);

    /**
     * Appends @p text to the stream. No line end is added.
     *
     * @return the stream itself, so that calls can be chained.
     */
    BrokerCommand& operator<<(const QString& text);
};
