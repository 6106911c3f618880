// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "files/OpenSaveHandler.h"
#include "workbench/components/geometry/window/SaveQuestion.h"

#include <QCoreApplication>
#include <QString>

#include <functional>

class Ostrel;
class OstrelFileMenu;

namespace fennar::geometry {

class GeometryDocument;

/**
 * Opens and saves the model through the file menu, and for commands in the same way.
 *
 * Saving is sent to the console as a command, as import and export are, so that history and notes have it.
 * What fails is told on the console. Neither a file that cannot be read nor one that cannot be written
 * becomes the current file, whatever the file menu has noted by then; and unsaved data that the user has
 * agreed to lose counts as unsaved again if it was not lost after all.
 */
class GeometryFileHandler : public OpenSaveHandler
{
    Q_DECLARE_TR_FUNCTIONS(fennar::geometry::GeometryFileHandler)

public:
    /** @param window  null if there is none. Both must outlive it. It is for the caller to plug in. */
    GeometryFileHandler(Ostrel* window, GeometryDocument& document);

    void get_filters(QString& filters, bool saving) override;
    void get_save_location(QString& path, QString& name) override;
    bool is_modified() override;
    void set_modified(bool modified) override;
    void new_file() override;
    void open_file(const QString& file) override;
    void import_recent(const QString& command) override;
    void save_file(const QString& file) override;
    void save_file_as(const QString& file, const QString& selectedFilter) override;
    void set_directory() override;

    // For commands: as the entries of the file menu if this is plugged in, but without a file dialog, and
    // what fails throws a GeometryError.

    /** @param discard  without the question about unsaved changes. */
    void start_new(bool discard);
    void open(const QString& file);
    /** @param file  empty for the current one. */
    void save(const QString& file);

    /** Opens a model as GeometryDocument::recover() does, and throws as that. */
    void recover(const QByteArray& contents, const QString& file);

private:
    OstrelFileMenu* menu() const;
    bool is_plugged_in() const;
    void ask_about_changes();
    /** Runs work on the document and tells what fails. Returns whether it has succeeded. */
    bool attempt(const std::function<void()>& work);
    /** Shows the document's own file as the current one: takes back what the file menu has noted of a file
     * that was not opened or saved after all. */
    void show_file();
    /** Runs a flow of the file menu; what is told meanwhile is thrown at its end. */
    void run_for_command(const std::function<void()>& flow);

    Ostrel* mWindow;
    GeometryDocument& mDocument;
    /** The change of the document up to which the user has agreed to lose what is unsaved; -1 for none. */
    qint64 mDiscarded = -1;
    /** The file menu clears the modified state behind each saving, and must not after one that has failed. */
    bool mSaveFailed = false;
    /** None without a window: it follows the dialogs of the whole program. */
    std::optional<SaveQuestion> mQuestion;
    bool mForCommand = false;
    QString mFailure;
};

} // namespace fennar::geometry
