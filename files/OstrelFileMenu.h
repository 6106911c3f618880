// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

class ImportExportHandler;
class OpenSaveHandler;
class Ostrel;
class QAction;
class QLabel;
class QMenu;
class RecentFiles;

/**
 * The "File" menu of the main window and what its entries do: the dialogs, the question about unsaved data,
 * the current file's name, the directory of the dialogs, the recent lists, and the formats for import and
 * export.
 *
 * Nothing here reads or writes a document: one component plugs in an OpenSaveHandler, and any component adds
 * ImportExportHandlers. The main window creates and owns the one instance; Ostrel::file_menu() hands it out.
 * The current file, the directory and the flag of the question are static, so that they can be had without
 * the instance, and outlive it. GUI thread only.
 */
class OSTRELGUI_EXPORT OstrelFileMenu : public QObject
{
    Q_OBJECT

public:
    /** @param main  gets the menu, a label in its status bar, and the dialogs; must not be null. */
    explicit OstrelFileMenu(Ostrel* main);
    /** Deletes the handlers that are still in the two lists; the OpenSaveHandler stays its owner's. */
    ~OstrelFileMenu() override;

    /** Plugs in what opens and saves; null takes it out. Not owned. New, Open, Save and Save As follow it. */
    void set_open_save_handler(OpenSaveHandler* handler);
    /** Null if there is none. */
    OpenSaveHandler* get_open_save_handler() const;

    /** The current file; @p name becomes empty while the document has no name. */
    static void get_file_name(QString& name);
    /** Sets the current file. The window's title follows at its next Ostrel::update_title(). */
    static void set_file_name(const QString& name);
    /** The directory in which file dialogs start. */
    static void get_path(QString& path);
    /** Sets the directory in which file dialogs start, as it is. */
    static void set_path(const QString& path);
    /**
     * Sets the directory in which file dialogs start to that of @p file, with the separator at its end.
     *
     * The last slash counts, and the last backslash only where there is no slash. A name with neither is
     * taken whole.
     */
    static void set_path_from_file(const QString& file);
    /** Whether the user is asked about unsaved data. */
    static bool do_save_prompt();
    /** Sets whether the user is asked about unsaved data. */
    static void set_save_prompt(bool prompt);

    /**
     * Takes note of a new working directory: it becomes the directory of the dialogs, as it is, and shows in
     * the status bar. The process's current directory is not touched.
     */
    void user_changed_directory(const QString& dir);
    /**
     * Whether the document may be discarded, after asking the user if it is modified. Saves it if the user
     * wishes so.
     *
     * @return false if the user wants to keep it, or wanted to save it and that failed, and if the window, or
     * the document with its handler, has given way to another meanwhile. After true the document counts as
     * unmodified.
     */
    bool check_modified();
    /** Puts a file at the top of the recent files. */
    void recent_file(const QString& file);
    /**
     * Puts an import at the top of the recent imports.
     *
     * @param command  what OpenSaveHandler::import_recent() needs to run it again, with the file's name in
     * quotes.
     */
    void recent_import(const QString& command);
    /** Appends the recent files, newest first. */
    void get_recent_files(std::vector<QString>& files) const;
    /** Appends the recent imports, newest first. */
    void get_recent_imports(std::vector<QString>& commands) const;

    /**
     * Adds a format to the list for import. The file menu then owns the handler.
     *
     * @return false, with nothing done, if @p handler is null, has no filters, or brings no filter that the
     * list does not have. Case does not count for that, and an all-files entry ("*.*") is new only to an
     * empty list.
     */
    bool add_import(ImportExportHandler* handler);
    /** The same for export. */
    bool add_export(ImportExportHandler* handler);
    /**
     * Takes the filters of @p handler, compared without case, out of the list for import, and with them each
     * handler that has no other. Handlers taken out are not deleted: the caller owns them again.
     *
     * It goes by filter alone (docs/surprises.md): another handler with the same filters loses them too,
     * except that the one right behind a handler taken out is passed over. Null and a handler without
     * filters do nothing.
     */
    void remove_import(ImportExportHandler* handler);
    /** The same for export. */
    void remove_export(ImportExportHandler* handler);
    /**
     * Takes all handlers of @p component out of both lists, without deleting them. To be called by a
     * component before it is unloaded. Null takes out nothing.
     */
    void remove_component_items(const char* component);
    /** Appends the filters of all handlers for import, with ";;" between the handlers. */
    void get_import_filters(QString& filters) const;
    /** The same for export. */
    void get_export_filters(QString& filters) const;
    /** Sets the filter with which the dialogs for import open next; empty stands for the saved one. */
    void set_active_import_filter(QString filter);
    /**
     * Imports @p file with the first handler whose filters contain @p filter, in the same case, an empty one
     * being contained in all. Does nothing if there is none.
     */
    void execute_import(const QString& file, const QString& filter);
    /** The same for export. */
    void execute_export(const QString& file, const QString& filter);
    /** Appends New, Open, Save, Import and Export. The actions stay this object's. */
    void get_items_for_toolbar(std::vector<QAction*>& items) const;

    /** The current file; empty while the document has no name. */
    static QString mFileName;
    /** The directory in which file dialogs start; ends with a separator where it comes from a file. */
    static QString mPath;
    /** The filter of the last import of this run, or the one set for the next; may be empty. */
    static QString mActiveImportFilter;
    /** Whether the user is asked about unsaved data. */
    static bool mDoPrompt;

public slots:
    /** Starts an empty document. Like all slots that need an OpenSaveHandler it prints an error on the
     * console, and does nothing else, if there is none. */
    void file_new();
    /** Asks for a file and opens it. */
    void file_open();
    /** Saves under the current name, or asks for one if there is none. */
    void file_save();
    /** Asks for a name and saves. */
    void file_save_as();
    /** Asks for one or more files and imports them. */
    void file_import();
    /** Asks for one or more Genesis/Exodus files and imports them. In no menu: for components. */
    void file_import_exodus_only();
    /**
     * Asks for a name and exports.
     *
     * @param filter  the filter with which the dialog opens; empty stands for the one of the last export.
     */
    void file_export(QString filter = QString());
    /** Lets the handler change the working directory. */
    void file_directory();
    /** Opens @p name, as its entry in the list of recent files does. */
    void open_recent_file(const QString& name);
    /** Runs an import again, as its entry in the list of recent imports does. Unsaved data is not asked
     * about. */
    void import_recent_file(const QString& command);

private:
    struct Handlers;
    class Flow;

    QString get_working_directory() const;
    QString get_saved_import_filter() const;
    void save_import_filter(const QString& filter);
    QString get_saved_export_filter() const;
    void save_export_filter(const QString& filter);

    Ostrel* mMain;
    OpenSaveHandler* mOpenSaveHandler = nullptr;
    std::unique_ptr<Handlers> mHandlers;
    std::unique_ptr<RecentFiles> mRecentImports;
    std::unique_ptr<RecentFiles> mRecentFiles;
    QLabel* mDirectoryLabel;
    QMenu* mFileMenu;
    QMenu* mRecentImportsMenu;
    QAction* mFileNewAction;
    QAction* mFileOpenAction;
    QAction* mFileSaveAction;
    QAction* mFileSaveAsAction;
    QAction* mFileImportAction;
    QAction* mFileExportAction;
    QAction* mFileSetDirectory;
    QAction* mFileExitAction;
};
