// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/application/editor/DocumentMarks.h"
#include "workbench/sdk/core/commands/LineCompletion.h"

#include <QObject>
#include <QPointer>
#include <QTimer>

class JournalEditor;
class QPlainTextEdit;
class QTabWidget;
class QTextCursor;

namespace fennar {

class CommandInterpreter;

/**
 * Makes the journal editor know the languages of its documents: their words are colored, those of commands
 * by the commands that there are, and Tab completes. The current line gets a color by the document's palette,
 * on which its words can be read.
 *
 * A file "*.py", and a text whose first line that is not blank is "#!python", is a Python script; all else is
 * a journal. Documents above DocumentMarks::most_characters are not colored. GUI thread only.
 */
class EditorLanguage : public QObject
{
    Q_OBJECT

public:
    /**
     * @param editor       stays the caller's, and may go earlier.
     * @param interpreter  has the commands and variables. Not owned; outlives the object.
     */
    EditorLanguage(JournalEditor* editor, CommandInterpreter& interpreter);
    /** Takes the colors and the key away; marks of wrong lines stay, and the current line's color until the
     * caret moves. */
    ~EditorLanguage() override;

    bool eventFilter(QObject* object, QEvent* event) override;

public slots:
    /** Takes over what editor_colors() and editor_completes() say. */
    void read_settings();

private slots:
    /** Looks at the sender later if it is of another language or size now. */
    void text_changed();
    /** Colors the current line of the sender. */
    void caret_moved();

private:
    using Language = DocumentMarks::Language;

    void look_at_all();
    void look_at(QPlainTextEdit* document);
    /** In which its words are to be colored. */
    Language colored_language(const QPlainTextEdit* document) const;
    void color_commands_again();
    LineCompletion complete(const QPlainTextEdit* document, const QTextCursor& caret) const;

    QPointer<JournalEditor> mEditor;
    /** The editor's. */
    QPointer<QTabWidget> mTabs;
    CommandInterpreter& mInterpreter;
    bool mColors = true;
    bool mCompletes = true;
    /** When a document may have become one of another language or size. */
    QTimer mLook;
    /** When the commands have changed, of which many may come at a time. */
    QTimer mCommandsChanged;
};

} // namespace fennar
