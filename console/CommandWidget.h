// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <QList>
#include <QPlainTextEdit>
#include <QString>

/**
 * One page of the console: output, finished commands and, on the last line, the prompt with the command being
 * typed, all in one document.
 *
 * The console owner (a component outside the shell) creates it, sets its prompts, adds it with
 * CommandWindow::add_command_tab(), connects the window's signals to its slots and takes its signals. The
 * page knows nothing of commands: it keeps no history and runs nothing.
 *
 * The last block is the command line: the prompt, when shown, and behind it the command. The command starts
 * as many characters behind the start of that line as the primary prompt is long, also behind a continuation
 * prompt of another length (docs/surprises.md). CommandWindow::set_python_mode() keeps the two equal.
 *
 * Typing, input methods included, alters neither output nor prompt. The context menu's Cut may, and so may
 * keys that edit without carrying text, as Shift+Insert does, and the slots that the base class has for a
 * program. There is no undo. GUI thread only.
 */
class OSTRELGUI_EXPORT CommandWidget : public QPlainTextEdit
{
    Q_OBJECT

public:
    /** Makes an empty page without a prompt, with a limit of 1000 lines, in the console font at 10 points if
     * it is there. */
    explicit CommandWidget(QWidget* parent = nullptr);
    ~CommandWidget() override;

    /**
     * All commands in the document, oldest first, without their prompts.
     *
     * A line counts as a command if it starts with either prompt, so the line being edited is the last
     * element, empty if nothing is typed, and with an empty continuation prompt every line is a command.
     */
    QList<QString> getCommands() const;

    /** Whether the page takes the focus when the mouse enters it. Off at first. */
    void setFocusFollowsCursor(bool follows);
    /** What setFocusFollowsCursor() has set. */
    bool focusFollowsCursor() const;

    /**
     * Sets both prompts to @p prompt. If a prompt is shown, the new one replaces the whole last line: what
     * was typed there is lost.
     */
    void setPrompt(const QString& prompt);
    /** Sets the two prompts for the next time that one is printed; the text on the screen stays. */
    void setPrompt(const QString& prompt, const QString& continuation);
    /** The primary prompt; "$ " at first. */
    QString prompt() const;

    /**
     * The caret's position, in characters from the start of the command: 0 there, negative in the prompt and
     * on every earlier line.
     */
    int cursorIndex() const;
    /** The text from the start of the command to the end of the last line. */
    QString currentCommand() const;

public slots:
    /**
     * Inserts @p output above the command line.
     *
     * Output that does not end in a newline leaves its line open: the next output continues it, unless a
     * prompt is printed in between.
     */
    void printOutput(const QString& output);
    /** Empties the document, prints the prompt, and emits contentsCleared(). */
    void clearToPrompt();
    /** Shows @p command as though it had been typed and entered. Nothing is emitted. One final newline is
     * dropped. */
    void addExternalCommand(const QString& command);
    /** Replaces the command being typed. One final newline is dropped. */
    void setCurrentCommand(const QString& command);
    /** Adds @p command at the end of the last line, wherever the caret is. */
    void appendToCommand(const QString& command);
    /** Inserts @p command at the caret, in place of any selection; at the end of the last line if the caret
     * is before the command. */
    void insertInCommand(const QString& command);
    /**
     * Prints a prompt before whatever the last line holds, unless one is shown. Closes an open output line in
     * any case.
     *
     * @param continuation  whether to print the continuation prompt.
     * @param indent        text, in UTF-8, put behind the prompt as the beginning of the command; may be null
     * or empty.
     */
    void printPrompt(bool continuation = false, const char* indent = nullptr);
    /** Makes the page read-only or editable. */
    void setReadOnly(bool readOnly);

signals:
    /** A command was entered; it may be empty. */
    void commandEntered(const QString& command);
    /** Text with line ends was pasted or dropped: one element a line, the last one empty if the text ended in
     * a newline. */
    void commandsEntered(const QList<QString>& commands);
    /** Up was pressed in the command. */
    void historyUpEvent();
    /** Down was pressed in the command. */
    void historyDownEvent();
    /** Comes just before each commandEntered(): the history's index returns to the newest position. */
    void resetHistoryIndex();
    /** clearToPrompt() is done. */
    void contentsCleared();

protected:
    /** Keeps input methods off output and prompt, and takes the focus when the mouse enters. */
    bool event(QEvent* e) override;
    /**
     * Enters the command on Return, asks for history on Up and Down, and keeps the keys off output and
     * prompt.
     */
    void keyPressEvent(QKeyEvent* e) override;
    /** Shows the menu of the page. */
    void contextMenuEvent(QContextMenuEvent* e) override;
    /** Inserts dropped text as a paste does. Output dragged within the page is copied, not moved. */
    void dropEvent(QDropEvent* e) override;
    /** Pastes into the command; text with line ends goes out with commandsEntered(). */
    void insertFromMimeData(const QMimeData* source) override;

    /** Scrolls to the last line. */
    void scroll_to_end();
    /** Whether any of the selected text lies before the start of the command. */
    bool hasSelectionOutsideCommand() const;
    /** Enters @p command as Return does once the text is in place. For the console owner and for derived
     * classes. */
    void new_command(const QString& command);

private:
    /** Where the command starts: behind the prompt, or at the end of a last line that is shorter. */
    QTextCursor command_start() const;
    /** The end of the last line, and so of the document. */
    QTextCursor command_end() const;
    /** Moves the caret, found at @p index, to where text may be typed: to the start of the command if it was
     * in the prompt, else to its end. */
    void bring_caret_home(int index);
    /** Selects what the base class is to delete of the last word, if that would reach into the prompt. */
    void keep_word_in_command();
    /** Does for @p input what keyPressEvent() does for typed text, so that it alters neither output nor
     * prompt. */
    void keep_input_in_command(QInputMethodEvent* input);

    QString mPrompt;
    QString mContinuationPrompt;
    bool mFocusFollowsCursor;
    bool mOutputLineOpen;
    bool mPromptShown;
};
