// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/window/GeometryFileHandler.h"

#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "workbench/components/geometry/model/GeometryDocument.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/sdk/component/modal_dialogs.h"
#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/CommandSink.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>
#include <QScopeGuard>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

GeometryFileHandler::GeometryFileHandler(Ostrel* window, GeometryDocument& document)
    : mWindow(window), mDocument(document)
{
    if (mWindow)
        mQuestion.emplace();
}

OstrelFileMenu* GeometryFileHandler::menu() const
{
    return mWindow->file_menu();
}

bool GeometryFileHandler::is_plugged_in() const
{
    return mWindow && menu()->get_open_save_handler() == this;
}

void GeometryFileHandler::get_filters(QString& filters, bool saving)
{
    // The dialog of "Open" is about to come, and the user may still cancel it.
    if (!saving)
        mDiscarded = -1;
    filters = tr("Model Files (*.mdl)") + u";;"_s + tr("All Files (*)");
}

void GeometryFileHandler::get_save_location(QString& path, QString& name)
{
    const QString known = mDocument.file().isEmpty() ? mDocument.earlier_file() : mDocument.file();
    const QFileInfo file(known);
    if (!known.isEmpty()) {
        path = file.path();
        name = file.fileName();
    }
}

bool GeometryFileHandler::is_modified()
{
    return mDocument.is_modified() && mDocument.changes() != mDiscarded;
}

void GeometryFileHandler::set_modified(bool modified)
{
    if (modified)
        mDocument.touch();
    else if (!mSaveFailed)
        mDiscarded = mDocument.changes();
    mSaveFailed = false;
}

void GeometryFileHandler::new_file()
{
    attempt([this] { mDocument.clear(); });
}

void GeometryFileHandler::open_file(const QString& file)
{
    attempt([&] { mDocument.open(file); });
}

void GeometryFileHandler::import_recent(const QString& command)
{
    send_command(command);
}

void GeometryFileHandler::save_file(const QString& file)
{
    // A command that runs has asked for it, or asks about unsaved changes: another one would have to wait.
    if (!mForCommand && !Fennar::instance().interpreter().is_running()) {
        const QPointer<SaveQuestion> self = &*mQuestion;
        send_command(file == mDocument.file() ? u"save"_s : u"save "_s + quote_word(file));
        // Whatever else has waited for the console has run by now, too.
        if (self)
            mSaveFailed = mDocument.is_modified();
        return;
    }
    mSaveFailed = !attempt([&] { mDocument.save(file); });
    // What is said to be saved is to be found again, whatever becomes of the program now.
    if (!mSaveFailed)
        mWindow->save_settings();
}

void GeometryFileHandler::save_file_as(const QString& file, const QString&)
{
    const QPointer<SaveQuestion> self = &*mQuestion;
    if (mQuestion->may_write(mWindow, file)) {
        save_file(file);
    } else if (self && Ostrel::instance()) {
        mSaveFailed = true;
        show_file();
    }
}

void GeometryFileHandler::set_directory()
{
    QString start;
    OstrelFileMenu::get_path(start);
    const QPointer<SaveQuestion> self = &*mQuestion;
    const QString directory = modal_dialogs::ask_directory(mWindow, tr("Set Directory"), start);
    if (directory.isEmpty() || !self || !Ostrel::instance())
        return;
    if (!QDir::setCurrent(directory)) {
        Fennar::instance().interpreter().report(
            u"%1 cannot be made the working directory"_s.arg(CommandError::shown(directory)));
        return;
    }
    Ostrel::instance()->file_menu()->user_changed_directory(directory);
}

void GeometryFileHandler::start_new(bool discard)
{
    if (!is_plugged_in()) {
        mDocument.clear();
        return;
    }
    if (discard)
        mDiscarded = mDocument.changes();
    else
        ask_about_changes();
    run_for_command([this] { menu()->file_new(); });
}

void GeometryFileHandler::open(const QString& file)
{
    if (!is_plugged_in()) {
        mDocument.open(file);
        return;
    }
    ask_about_changes();
    run_for_command([&] {
        OstrelFileMenu::set_path_from_file(file);
        menu()->recent_file(file);
        mWindow->save_settings();
        menu()->open_recent_file(file);
    });
}

void GeometryFileHandler::save(const QString& file)
{
    const QString target = file.isEmpty() ? mDocument.file() : file;
    if (target.isEmpty() || !is_plugged_in()) {
        mDocument.save(target);
        return;
    }
    run_for_command([&] {
        if (!file.isEmpty()) {
            OstrelFileMenu::set_path_from_file(file);
            menu()->recent_file(file);
        }
        OstrelFileMenu::set_file_name(target);
        mWindow->update_title();
        menu()->file_save();
    });
}

void GeometryFileHandler::ask_about_changes()
{
    if (!menu()->check_modified())
        throw GeometryError(u"cancelled; the model is as it was"_s);
}

bool GeometryFileHandler::attempt(const std::function<void()>& work)
{
    bool done = false;
    try {
        work();
        done = true;
    } catch (const GeometryError& error) {
        if (mForCommand)
            mFailure = error.message();
        else
            Fennar::instance().interpreter().report(error.message());
    }
    mDiscarded = -1;
    // After a failure the file menu has a name that is not the document's.
    show_file();
    return done;
}

void GeometryFileHandler::recover(const QByteArray& contents, const QString& file)
{
    mDocument.recover(contents, file);
    mDiscarded = -1;
    if (mWindow)
        show_file();
}

void GeometryFileHandler::show_file()
{
    OstrelFileMenu::set_file_name(mDocument.file());
    mWindow->update_title();
}

void GeometryFileHandler::run_for_command(const std::function<void()>& flow)
{
    mFailure.clear();
    mForCommand = true;
    const auto end = qScopeGuard([this] { mForCommand = false; });
    flow();
    if (!mFailure.isEmpty())
        throw GeometryError(mFailure);
}

} // namespace fennar::geometry
