// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>
#include <QPlainTextEdit>
#include <QString>

class JournalEditor;
class LineNumberArea;
class QAction;
class QTabWidget;

/**
 * One tab of the journal editor: the text of one script, with line numbers, a mark on the tab while it has
 * unsaved changes, and a context menu to play, translate and comment lines.
 *
 * JournalEditor::returnCurrentDocument() hands it out. The class is not exported: outside of the shell it is
 * a QPlainTextEdit, and what it adds cannot be linked.
 *
 * JournalEditor creates and deletes it, reads and writes its file and sets font and line wrap; the tab widget
 * is its parent. Whether it is modified is told by its QTextDocument alone. Block numbers count from 0; the
 * caller takes them from the document, they are not checked.
 */
class JournalDocument : public QPlainTextEdit
{
    Q_OBJECT

public:
    /**
     * @param editor  what commands that concern more than this document go to. Not owned, never null, lives
     *                longer.
     * @param parent  the tab widget that the document will be put into; never null.
     * @param name    the object name; null gives none.
     */
    JournalDocument(JournalEditor* editor, QTabWidget* parent, const char* name);
    ~JournalDocument() override;

    /** The full path of the document's file; empty if it has none yet. */
    const QString& file_name() const { return mFileName; }
    /** Emits fileNameChanged() unless @p name is the present one. An empty one makes the document untitled.
     */
    void set_file_name(const QString& name);

    /**
     * Adds @p action behind those added before; adding it twice shows it twice. Never null; it stays its
     * owner's, and leaves the menu when it is deleted.
     */
    void add_context_menu_item(QAction* action);
    /** Removes every occurrence of @p action, if there is one. */
    void remove_context_menu_item(QAction* action);

    /**
     * Puts "#" in front of each line from block @p first to @p last, whatever it holds. Each line is an edit
     * of its own.
     *
     * @param last  below 0 means the last block of the document.
     */
    void comment_lines(int first, int last);
    /**
     * Takes one "#" from the first column of each line from block @p first to @p last, if there is one. Each
     * line is an edit of its own, and is written back even if nothing was taken.
     *
     * @param last  below 0 means the last block of the document.
     */
    void uncomment_lines(int first, int last);

    /**
     * Brings the main window to the front and emits the lines of block @p first to @p last through the
     * editor: JournalEditor::processCommands(), or JournalEditor::processCommandsAsFile() if @p last is -1.
     *
     * @param last  below 0 means the last block of the document.
     */
    void play_lines(int first, int last);
    /** Translates block @p first to @p last to Python, in place and as one edit: see pythonize_text(). */
    void pythonize_lines(int first, int last);
    /**
     * The text of block @p first to @p last: each block's with a line feed ahead of it, save that block 0
     * has none unless it is empty.
     *
     * Text from the middle of a document so begins with a line feed, and a document whose first line is empty
     * gives one line feed too many. The receivers of played lines and pythonize_lines() count on
     * it.
     */
    QString collect_lines(int first, int last) const;

    /** The width of the strip of line numbers, in pixels. */
    int lineNumberAreaWidth() const;
    /** Paints that strip; for LineNumberArea only. */
    void lineNumberAreaPaintEvent(QPaintEvent* event);

signals:
    /** The file of @p document, which is this one, has another name. */
    void fileNameChanged(JournalDocument* document);

protected:
    /** Gives the strip of line numbers its place. */
    void resizeEvent(QResizeEvent* event) override;
    /** Runs the context menu, which is made anew for each event. */
    void contextMenuEvent(QContextMenuEvent* event) override;

private slots:
    void updateLineNumberAreaWidth(int newBlockCount);
    void highlightCurrentLine();
    void updateLineNumberArea(const QRect& rect, int dy);
    void doc_modified(bool modified);

private:
    QString mFileName;
    JournalEditor* mEditor;
    QList<QAction*> mContextMenuItems;
    LineNumberArea* mLineNumberArea;
    QTabWidget* mTabWidget;
};
