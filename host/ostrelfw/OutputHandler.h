// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

class QString;

/**
 * The console's end of the framework's output; the shell's CommandWindow implements it.
 *
 * The framework learns of it through BrokerCommand::set_command_window(). The order of the virtual functions
 * is part of the interface.
 */
class OutputHandler
{
public:
    // The host's library has the body, and by that the class's type information.
    virtual ~OutputHandler();

    /** Makes the console read-only or editable. */
    virtual void set_read_only(bool readOnly) = 0;
    /**
     * The framework is ready for a command.
     *
     * @param continuation  true if the command so far is not complete and this asks for its next line.
     * @param indent        text put behind the prompt for the user to go on from, in UTF-8; null or empty for
     * none.
     */
    virtual void print_prompt(bool continuation, const char* indent) = 0;
    /** Prints @p data as it is; a final newline must be part of it. */
    virtual void print_data(const QString& data) = 0;
    /** Shows @p command as though the user had typed it. It is not run again. */
    virtual void print_command(const QString& command) = 0;
    /** Adds @p command at the end of the line that the user is typing. Empty does nothing. */
    virtual void append_command(const QString& command) = 0;
    /** Adds @p command at the caret in the line that the user is typing. Empty does nothing. */
    virtual void insert_command(const QString& command) = 0;
};
