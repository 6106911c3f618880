// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "console/CommandWidget.h"

#include <QString>
#include <QStringList>

/**
 * A page for tests: its state can be written and read as one text, and its signals are recorded.
 *
 * In a state "|" stands for the caret and "^" for the other end of a selection: "output\n$ com^man|d".
 */
class Page : public CommandWidget
{
public:
    Page();

    /** Fills a new page: all lines but the last are output, and the last one, if it starts with the prompt,
     * is prompt and command. The caret is at the end of the document if @p state does not say. */
    void set_state(const QString& state);
    QString state() const;
    QString text() const;

    void put_caret(int position) { put_selection(position, position); }
    void put_selection(int anchor, int position);

    /** Where to click for the caret to come to @p position, in the viewport. */
    QPoint middle_of(int position) const;

    /** Sends a key as a keyboard does, with the text that belongs to it. */
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void press(int key, Qt::KeyboardModifiers modifiers, const QString& text);
    /** Presses one key for each character. */
    void type(const QString& text);
    void paste_text(const QString& text);

    /** The signals so far, which are then forgotten: "up", "down", "reset", "entered: ls", "lines: a, b",
     * "cleared". */
    QStringList take_signals();

    using CommandWidget::hasSelectionOutsideCommand;
    using CommandWidget::insertFromMimeData;
    using CommandWidget::new_command;
    using CommandWidget::scroll_to_end;

private:
    QStringList mSignals;
};

/** What a keyboard sends as the text of a key. */
QString key_text(int key, Qt::KeyboardModifiers modifiers);
