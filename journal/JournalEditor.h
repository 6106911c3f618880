// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QMainWindow>
#include <QStringList>

class JournalDocument;
class QTabWidget;

/** The window in which journals are edited, one JournalDocument a tab. */
class JournalEditor : public QMainWindow
{
    Q_OBJECT

public:
    explicit JournalEditor(QWidget* parent = nullptr);

    /** Opens @p text as an untitled document. */
    void add_document(const QString& text);
    /** The current tab's document; null if the tab holds something else. */
    JournalDocument* returnCurrentDocument() const;

signals:
    /** The lines of a whole document, to be run as a journal file. */
    void processCommandsAsFile(QStringList cmds);
    /** Lines to be run one after the other. */
    void processCommands(QStringList cmds);

public slots:
    void editFind();
    /** Plays the whole current document. */
    void playFile();
    /** Plays the lines that the selection touches; none without a selection. */
    void playSelected();
    /** Translates the current document to Python and puts "#!python" on top, in two edits. */
    void pythonizeFile();
    /** Translates the lines that playSelected() would play. */
    void pythonizeSelected();
    /** Comments the lines that the selection touches, or that of the cursor:
     * JournalDocument::comment_lines(). */
    void commentSelected();
    /** The counterpart: JournalDocument::uncomment_lines(). */
    void uncommentSelected();
    /** Un-comments if the first of these lines begins with "#", otherwise comments. */
    void commentOrUncommentSelected();

private:
    QTabWidget* mDocTab;
};
