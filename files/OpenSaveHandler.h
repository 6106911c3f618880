// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <QtGlobal>

class QString;

/**
 * What the file menu knows of documents: the one component that owns them derives from this class and plugs
 * its object in with OstrelFileMenu::set_open_save_handler().
 *
 * The file menu shows the dialogs, keeps the file name and asks about unsaved data; the handler reads, writes
 * and knows whether anything is unsaved. It reports errors to the user by itself. The object stays the
 * component's, which takes it out, by plugging in null, before it deletes it. It may do so, plug in another
 * one, and even close the window from any operation and while any dialog is open: what the user has begun
 * then ends there. All calls come on the GUI thread, and none may throw.
 */
class OSTRELGUI_EXPORT OpenSaveHandler
{
public:
    OpenSaveHandler() = default;
    virtual ~OpenSaveHandler();

    /**
     * Fills in the filters of the dialog that is about to open.
     *
     * @param filters  comes in empty; takes entries such as "Model Files (*.mdl)", with ";;" between them.
     * The first one's first pattern is the extension of a file saved under a name without a dot.
     * @param saving   true for "Save As", false for "Open".
     */
    virtual void get_filters(QString& filters, bool saving) = 0;
    /**
     * Proposes where to save, before the dialog of "Save As" opens.
     *
     * @param path  comes in as the directory last used and may be replaced.
     * @param name  comes in empty; if it is set, the dialog starts with that name.
     */
    virtual void get_save_location(QString& path, QString& name) = 0;
    /** Whether there is unsaved data. Still true after save_file() means that saving failed. */
    virtual bool is_modified() = 0;
    /** Sets the modified state. The file menu calls it with false only. */
    virtual void set_modified(bool modified) = 0;
    /** Starts an empty document. */
    virtual void new_file() = 0;
    /** Loads @p file, which may be missing or unreadable: the file menu does not look. */
    virtual void open_file(const QString& file) = 0;
    /** Runs an import again. @p command is a text given to OstrelFileMenu::recent_import(). */
    virtual void import_recent(const QString& command) = 0;
    /** Writes to @p file, the one opened or saved last. */
    virtual void save_file(const QString& file) = 0;
    /** Writes to @p file in the form that the filter chosen in the dialog names. */
    virtual void save_file_as(const QString& file, const QString& selectedFilter) = 0;
    /**
     * Lets the user choose the working directory. A handler that changes it says so with
     * OstrelFileMenu::user_changed_directory().
     */
    virtual void set_directory() = 0;

private:
    Q_DISABLE_COPY_MOVE(OpenSaveHandler)
};
