// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <QEvent>
#include <QIcon>
#include <QList>
#include <QMainWindow>
#include <QPointer>
#include <QStringList>

#include <memory>

class JournalDocument;
class QAction;
class QPlainTextEdit;
class RecentFiles;

/**
 * The window in which the user edits journals: a tab for each document, menus and a tool bar of its own, the
 * recent journals, and an import menu.
 *
 * The main window creates and owns the one instance; Ostrel::journal_editor() hands it out. Closing hides it
 * only. There is always at least one document; the last one stays behind when the window closes and is there
 * when it is shown again.
 *
 * Components add to the import menu and to the context menu of the documents, and take away what they added
 * before they go. Whoever plays journals connects to the two signals: the window itself runs nothing.
 *
 * GUI thread only; reading and writing of files blocks it.
 */
class OSTRELGUI_EXPORT JournalEditor : public QMainWindow
{
    Q_OBJECT

public:
    /**
     * The type of the event that a document gets before it is written to its file, whoever asks for that. A
     * filter on the document that calls ignore() on it and swallows it keeps the document from being written;
     * the user then hears of that from the filter alone.
     */
    static constexpr auto document_is_saved = QEvent::Type(1001);

    /** Builds the window with one empty document and restores what was saved of it; nothing is shown yet. */
    explicit JournalEditor(QWidget* parent = nullptr);
    ~JournalEditor() override;

    /**
     * Opens @p text as a document without a file. It counts as modified unless it is blank.
     */
    void add_document(const QString& text);

    /**
     * Adds an item to the import menu that opens the text of @p source as a document: the commands of a
     * CommandWidget, the whole text of any other page.
     *
     * @param name    the owner mark for remove_import_items(), in UTF-8; null counts as empty.
     * @param label   the item's text.
     * @param source  stays the caller's, who removes the item before the page goes. Null, or a page that has
     * gone, makes an item that does nothing.
     */
    void add_import(const char* name, const QString& label, QPlainTextEdit* source);
    /** Removes every item that add_import() added under exactly @p name; null counts as empty. */
    void remove_import_items(const char* name);
    /** Adds @p action, which stays the caller's, to the import menu. Deleting it takes it away again; null is
     * ignored. */
    void add_action_to_import_menu(QAction* action);

    /** Adds @p action, which stays the caller's, to the context menu of all documents, present and to come.
     * Null is ignored. */
    void add_context_menu_item(QAction* action);
    /** Takes @p action out of the context menus. An action that is deleted leaves them by itself. */
    void remove_context_menu_items(QAction* action);

    /** The font of the first document. */
    QFont get_editor_font() const;
    /** Sets the font of all open documents. Documents to come take that of the first one. */
    void set_editor_font(const QFont& font);

    /** The document of the current tab; null if that is none. */
    JournalDocument* returnCurrentDocument() const;

    /** Whether the user is asked before unsaved changes are dropped. The same for all editors; true at
     * first. */
    static bool do_save_prompt();
    /** Sets whether the user is asked before unsaved changes are dropped. */
    static void set_save_prompt(bool prompt);

signals:
    /** The user plays a whole document: the lines stand for a journal file and are to be run as one. */
    void processCommandsAsFile(QStringList cmds);
    /**
     * The user plays the selected lines: they are to be run one after the other.
     *
     * Unless the selection starts in the first line of the document, the first element is empty.
     */
    void processCommands(QStringList cmds);

public slots:
    /** Opens an empty document. */
    void fileNew();
    /** Asks for a file and opens it. */
    void fileOpen();
    /** Closes the current document, and with the last one the window, if the user agrees to lose unsaved
     * changes. */
    void fileClose();
    /** Saves the current document; without a file as fileSaveAs() does. */
    void fileSave();
    /** Asks for a file and saves the current document in it. */
    void fileSaveAs();
    /** Saves each modified document, and stops at the first that stays unsaved. */
    void fileSaveAll();
    /** Does nothing: it holds the place of printing. */
    void filePrint();
    /** Undoes the last edit of the current document. */
    void editUndo();
    /** Does again what was undone last in the current document. */
    void editRedo();
    /** Moves the selection of the current document to the clipboard. */
    void editCut();
    /** Copies the selection of the current document to the clipboard. */
    void editCopy();
    /** Puts the clipboard's text into the current document. */
    void editPaste();
    /** Runs the find dialog. */
    void editFind();
    /** Hands the current document out with processCommandsAsFile(). */
    void playFile();
    /** Hands the selected lines, always whole lines, out with processCommands(). Does nothing without a
     * selection. */
    void playSelected();
    /** Rewrites the current document as a Python script, under a first line that says so. */
    void pythonizeFile();
    /** Rewrites the selected lines as lines of a Python script. Does nothing without a selection. */
    void pythonizeSelected();
    /** Puts "#" before each line that the selection touches; without a selection, before the caret's line. */
    void commentSelected();
    /** Takes one "#" from the start of each line that the selection touches. */
    void uncommentSelected();
    /** Does one of the two: uncomments if the first line begins with "#". */
    void commentOrUncommentSelected();
    /** As editFind(). */
    void findText();
    /**
     * Takes a tab away, or closes the window if it is the only one, if the user agrees to lose unsaved
     * changes.
     *
     * The document itself is not deleted (docs/surprises.md): it goes with the window.
     */
    void close_tab(int index);
    /** Writes the window's title for the tab at @p index; -1 stands for the current one. */
    void update_title(int index = -1);
    /** Opens the file in a tab; if it cannot be read, says so and opens none. */
    void open_file(const QString& name);
    /** Makes tab and title show the name of @p doc's file. Null is ignored. */
    void change_file_name(JournalDocument* doc);

protected:
    /** Asks for each modified document; if the user refuses one, the window stays. */
    void closeEvent(QCloseEvent* e) override;

private:
    struct Form;

    JournalDocument* document(int index) const;
    QList<QPointer<JournalDocument>> documents() const;
    JournalDocument* create_document(const QString& name);
    void remove_document(JournalDocument* doc);

    std::unique_ptr<Form> mUi;
    std::unique_ptr<RecentFiles> mRecentFiles;
    QIcon mAppIcon;

    static bool mDoPrompt;
};
