// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/OstrelFileMenu.h"

#include "console/CommandWindow.h"
#include "files/ImportExportHandler.h"
#include "files/OpenSaveHandler.h"
#include "files/OstrelMessageBox.h"
#include "files/RecentFiles.h"
#include "files/file_names.h"
#include "files/modal_dialogs.h"
#include "frame/Alive.h"
#include "frame/Ostrel.h"
#include "frame/read_setting.h"
#include "frame/settings_keys.h"
#include "host/ostrelfw/Broker.h"
#include "resources/load_icon.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QSettings>
#include <QStatusBar>

#include <algorithm>

using namespace Qt::StringLiterals;

struct OstrelFileMenu::Handlers
{
    std::vector<ImportExportHandler*> imports;
    std::vector<ImportExportHandler*> exports;
    /** How often the OpenSaveHandler has changed. The address of a handler tells less: a new one may have
     * that of one deleted before. */
    unsigned changes = 0;
};

/**
 * What goes on between a click and the end of what it starts, with the handler that was plugged in then.
 *
 * Handlers, the console, a dialog and whoever listens to the window may delete the window, and may plug in
 * another handler or none. So the flow looks after each of them whether it may go on: what the user has
 * answered was about the document of that one handler.
 */
class OstrelFileMenu::Flow
{
public:
    explicit Flow(OstrelFileMenu* menu)
        : mMenu(menu), mAlive(menu, menu->mMain), mChanges(menu->mHandlers->changes)
    {}

    /** Whether the window is still there. */
    bool has_window() const { return static_cast<bool>(mAlive); }
    /** Whether the window and the handler are still there. */
    bool goes_on() const { return has_window() && mMenu->mOpenSaveHandler && is_same(); }
    /** The same; tells the user on the console if it ends for want of the handler. */
    bool is_over() const
    {
        if (has_window() && !goes_on())
            Broker::command << OstrelFileMenu::tr("ERROR: Missing open/save handler.\n");
        return !goes_on();
    }
    /**
     * Asks the user about the document if it is modified, and saves it if so wished. There must be a handler.
     *
     * @return false if the user wants to keep it, or wanted to save it and that failed. Otherwise the caller
     * looks whether there still are a window and this document.
     */
    bool may_discard() const;

private:
    bool is_same() const { return mMenu->mHandlers->changes == mChanges; }

    OstrelFileMenu* mMenu;
    Alive<2> mAlive;
    unsigned mChanges;
};

namespace {

using HandlerList = std::vector<ImportExportHandler*>;

const auto filter_separator = u";;"_s;
// Recent files stand just above "Exit".
constexpr int recent_files_position = 11;

QString default_directory()
{
    const QString home = QDir::homePath();
    for (const auto& documents : {u"/Documents"_s, u"/My Documents"_s}) {
        if (QDir(home + documents).exists())
            return home + documents;
    }
    return home;
}

// Whether a handler offers a filter that the list does not have yet. An all-files entry counts as known as
// soon as there is any handler, so that no component is let in by that alone.
bool brings_something_new(const HandlerList& list, const ImportExportHandler& handler)
{
    QStringList parts = handler.mFilters.split(filter_separator);
    for (const ImportExportHandler* other : list) {
        parts.removeIf([other](const QString& part) {
            return other->mFilters.contains(part, Qt::CaseInsensitive) || part.contains(u"*.*"_s);
        });
    }
    return !parts.isEmpty();
}

bool add_handler(HandlerList& list, QAction* action, ImportExportHandler* handler)
{
    if (!handler || handler->mFilters.isEmpty() || !brings_something_new(list, *handler))
        return false;
    list.push_back(handler);
    action->setEnabled(true);
    return true;
}

void remove_filters(HandlerList& list, QAction* action, const ImportExportHandler* handler)
{
    if (!handler || handler->mFilters.isEmpty())
        return;
    // The handler that moves into the place of one taken out is passed over (docs/surprises.md).
    for (size_t i = 0; i < list.size(); ++i) {
        QStringList parts = list[i]->mFilters.split(filter_separator);
        parts.removeIf(
            [handler](const QString& part) { return handler->mFilters.contains(part, Qt::CaseInsensitive); });
        if (parts.isEmpty())
            list.erase(list.begin() + static_cast<HandlerList::difference_type>(i));
        else
            list[i]->mFilters = parts.join(filter_separator);
    }
    if (list.empty())
        action->setEnabled(false);
}

void remove_of_component(HandlerList& list, const QString& component)
{
    std::erase_if(
        list, [&component](const ImportExportHandler* handler) { return handler->mComponent == component; });
}

void append_filters(const HandlerList& list, QString& filters)
{
    QStringList all;
    for (const ImportExportHandler* handler : list)
        all += handler->mFilters;
    filters += all.join(filter_separator);
}

// Looks for the whole filter inside each handler's, so that a part of an entry finds its handler, too
// (docs/surprises.md). The texts are copies: a handler may set those of the menu.
void execute_first(const HandlerList& list, const QString file, const QString filter)
{
    const auto found = std::find_if(list.begin(), list.end(), [&filter](const ImportExportHandler* handler) {
        return handler->mFilters.contains(filter);
    });
    if (found != list.end())
        (*found)->execute(file, filter);
}

} // namespace

QString OstrelFileMenu::mFileName;
QString OstrelFileMenu::mPath;
QString OstrelFileMenu::mActiveImportFilter;
bool OstrelFileMenu::mDoPrompt = true;

OstrelFileMenu::OstrelFileMenu(Ostrel* main)
    : QObject(main), mMain(main), mHandlers(std::make_unique<Handlers>())
{
    setObjectName(u"OstrelFileMenu"_s);

    mDirectoryLabel = new QLabel;
    // The name of a directory may look like markup.
    mDirectoryLabel->setTextFormat(Qt::PlainText);
    mMain->statusBar()->addWidget(mDirectoryLabel, 0);

    const auto make_action = [this](const QString& name, const QString& text, const QString& shortcut = {},
                                    const char* icon = nullptr) {
        auto* action = new QAction(this);
        action->setObjectName(name);
        action->setText(text);
        if (!shortcut.isEmpty())
            action->setShortcut(QKeySequence(shortcut));
        if (icon)
            action->setIcon(load_icon(icon));
        return action;
    };
    mFileNewAction = make_action(u"mFileNewAction"_s, tr("&New"), u"Ctrl+N"_s, "filenew_ot.svg");
    mFileOpenAction = make_action(u"mFileOpenAction"_s, tr("&Open..."), u"Ctrl+O"_s, "fileopen_ot.svg");
    mFileSaveAction = make_action(u"mFileSaveAction"_s, tr("&Save"), u"Ctrl+S"_s, "filesave_ot.svg");
    mFileSaveAsAction = make_action(u"mFileSaveAsAction"_s, tr("Save &As..."));
    mFileImportAction = make_action(u"mFileImportAction"_s, tr("&Import..."), {}, "Import22.svg");
    mFileExportAction = make_action(u"mFileExportAction"_s, tr("&Export..."), {}, "Export22.svg");
    mFileSetDirectory = make_action(u"mFileSetDirectory"_s, tr("Set &Directory"));
    mFileSetDirectory->setToolTip(tr("Sets the current working directory"));
    mFileExitAction = make_action(u"mFileExitAction"_s, tr("E&xit"));
    for (QAction* action : {mFileNewAction, mFileOpenAction, mFileSaveAction, mFileSaveAsAction,
                            mFileImportAction, mFileExportAction})
        action->setEnabled(false);

    mFileMenu = new QMenu(tr("&File"), mMain);
    mMain->menuBar()->addMenu(mFileMenu);
    mFileMenu->addAction(mFileNewAction);
    mFileMenu->addAction(mFileOpenAction);
    mFileMenu->addAction(mFileSaveAction);
    mFileMenu->addAction(mFileSaveAsAction);
    mFileMenu->addSeparator();
    mRecentImportsMenu = mFileMenu->addMenu(tr("&Recent Imports"));
    mFileMenu->addAction(mFileImportAction);
    mFileMenu->addAction(mFileExportAction);
    mFileMenu->addSeparator();
    mFileMenu->addAction(mFileSetDirectory);
    mFileMenu->addSeparator();
    mFileMenu->addAction(mFileExitAction);

    mRecentImports = std::make_unique<RecentFiles>(mRecentImportsMenu, 0, true);
    mRecentFiles = std::make_unique<RecentFiles>(mFileMenu, recent_files_position, false);
    mRecentImports->mParent = mMain;
    mRecentFiles->mParent = mMain;
    connect(mRecentImports.get(), &RecentFiles::recent_file_selected, this,
            &OstrelFileMenu::import_recent_file);
    connect(mRecentFiles.get(), &RecentFiles::recent_file_selected, this, &OstrelFileMenu::open_recent_file);

    connect(mFileNewAction, &QAction::triggered, this, &OstrelFileMenu::file_new);
    connect(mFileOpenAction, &QAction::triggered, this, &OstrelFileMenu::file_open);
    connect(mFileSaveAction, &QAction::triggered, this, &OstrelFileMenu::file_save);
    connect(mFileSaveAsAction, &QAction::triggered, this, &OstrelFileMenu::file_save_as);
    connect(mFileImportAction, &QAction::triggered, this, &OstrelFileMenu::file_import);
    connect(mFileExportAction, &QAction::triggered, this, [this] { file_export(); });
    connect(mFileSetDirectory, &QAction::triggered, this, &OstrelFileMenu::file_directory);
    connect(mFileExitAction, &QAction::triggered, mMain, &QWidget::close);

    if (mPath.isEmpty())
        mPath = default_directory();
}

OstrelFileMenu::~OstrelFileMenu()
{
    HandlerList& imports = mHandlers->imports;
    HandlerList& exports = mHandlers->exports;
    while (!imports.empty() || !exports.empty()) {
        ImportExportHandler* const handler = imports.empty() ? exports.back() : imports.back();
        // Off both lists, one object may serve both, and before its destructor calls back: that may take
        // others out, which are the component's then, and put some in.
        std::erase(imports, handler);
        std::erase(exports, handler);
        delete handler;
    }
    // Before the menu, from which they remove their actions.
    mRecentImports.reset();
    mRecentFiles.reset();
    delete mFileMenu;
    delete mDirectoryLabel;
}

void OstrelFileMenu::set_open_save_handler(OpenSaveHandler* handler)
{
    if (handler != mOpenSaveHandler)
        ++mHandlers->changes;
    mOpenSaveHandler = handler;
    const Alive alive(this);
    for (QAction* action : {mFileNewAction, mFileOpenAction, mFileSaveAction, mFileSaveAsAction}) {
        // Whoever listens to an action may plug in another handler.
        if (alive)
            action->setEnabled(mOpenSaveHandler != nullptr);
    }
}

OpenSaveHandler* OstrelFileMenu::get_open_save_handler() const
{
    return mOpenSaveHandler;
}

void OstrelFileMenu::get_file_name(QString& name)
{
    name = mFileName;
}

void OstrelFileMenu::set_file_name(const QString& name)
{
    mFileName = name;
}

void OstrelFileMenu::get_path(QString& path)
{
    path = mPath;
}

void OstrelFileMenu::set_path(const QString& path)
{
    mPath = path;
}

void OstrelFileMenu::set_path_from_file(const QString& file)
{
    mPath = directory_of(file);
}

bool OstrelFileMenu::do_save_prompt()
{
    return mDoPrompt;
}

void OstrelFileMenu::set_save_prompt(bool prompt)
{
    mDoPrompt = prompt;
}

void OstrelFileMenu::user_changed_directory(const QString& dir)
{
    mPath = dir;
    mDirectoryLabel->setText(tr("Working Directory: ") + dir);
}

bool OstrelFileMenu::check_modified()
{
    if (!mOpenSaveHandler)
        return true;
    const Flow flow(this);
    if (!flow.may_discard())
        return false;
    // A document that has gone with its handler needs no consent; one that came meanwhile has none.
    return flow.has_window() && (!mOpenSaveHandler || !flow.is_over());
}

void OstrelFileMenu::recent_file(const QString& file)
{
    if (mRecentFiles)
        mRecentFiles->add(file);
}

void OstrelFileMenu::recent_import(const QString& command)
{
    if (mRecentImports)
        mRecentImports->add(command);
}

void OstrelFileMenu::get_recent_files(std::vector<QString>& files) const
{
    if (mRecentFiles)
        mRecentFiles->get_entries(files);
}

void OstrelFileMenu::get_recent_imports(std::vector<QString>& commands) const
{
    if (mRecentImports)
        mRecentImports->get_entries(commands);
}

bool OstrelFileMenu::add_import(ImportExportHandler* handler)
{
    return add_handler(mHandlers->imports, mFileImportAction, handler);
}

bool OstrelFileMenu::add_export(ImportExportHandler* handler)
{
    return add_handler(mHandlers->exports, mFileExportAction, handler);
}

void OstrelFileMenu::remove_import(ImportExportHandler* handler)
{
    remove_filters(mHandlers->imports, mFileImportAction, handler);
}

void OstrelFileMenu::remove_export(ImportExportHandler* handler)
{
    remove_filters(mHandlers->exports, mFileExportAction, handler);
}

void OstrelFileMenu::remove_component_items(const char* component)
{
    if (!component)
        return;
    const QString name = QString::fromUtf8(component);
    remove_of_component(mHandlers->imports, name);
    remove_of_component(mHandlers->exports, name);
    const Alive alive(this);
    if (mHandlers->imports.empty())
        mFileImportAction->setEnabled(false);
    if (alive && mHandlers->exports.empty())
        mFileExportAction->setEnabled(false);
}

void OstrelFileMenu::get_import_filters(QString& filters) const
{
    append_filters(mHandlers->imports, filters);
}

void OstrelFileMenu::get_export_filters(QString& filters) const
{
    append_filters(mHandlers->exports, filters);
}

void OstrelFileMenu::set_active_import_filter(QString filter)
{
    mActiveImportFilter = filter;
}

void OstrelFileMenu::execute_import(const QString& file, const QString& filter)
{
    execute_first(mHandlers->imports, file, filter);
}

void OstrelFileMenu::execute_export(const QString& file, const QString& filter)
{
    execute_first(mHandlers->exports, file, filter);
}

void OstrelFileMenu::get_items_for_toolbar(std::vector<QAction*>& items) const
{
    for (QAction* action :
         {mFileNewAction, mFileOpenAction, mFileSaveAction, mFileImportAction, mFileExportAction}) {
        if (action)
            items.push_back(action);
    }
}

bool OstrelFileMenu::Flow::may_discard() const
{
    if (!mMenu->mOpenSaveHandler->is_modified() || !goes_on())
        return true;
    if (mDoPrompt) {
        bool never_again = false;
        const int answer = OstrelMessageBox::warning(
            mMenu->mMain, mMenu->mMain->get_title(),
            OstrelFileMenu::tr("The data has been modified.\nDo you wish to save the changes?"), never_again,
            QMessageBox::Yes, QMessageBox::No, QMessageBox::Cancel,
            OstrelFileMenu::tr("Never prompt me when there is unsaved data."));
        if (answer == QMessageBox::Cancel || answer == 0)
            return false;
        const bool meant_for_another = has_window() && mMenu->mOpenSaveHandler && !is_same();
        if (!has_window() || meant_for_another)
            return true;
        if (answer == QMessageBox::Yes) {
            // The check box is ignored here (docs/surprises.md).
            mMenu->file_save();
            if (goes_on() && mMenu->mOpenSaveHandler->is_modified())
                return false;
        } else {
            mDoPrompt = !never_again;
        }
    }
    if (goes_on())
        mMenu->mOpenSaveHandler->set_modified(false);
    return true;
}

void OstrelFileMenu::file_new()
{
    const Flow flow(this);
    if (flow.is_over() || !check_modified() || flow.is_over())
        return;
    mFileName.clear();
    mMain->update_title();
    if (flow.is_over())
        return;
    if (CommandWindow* console = mMain->command_line())
        console->clear_contents();
    if (!flow.is_over())
        mOpenSaveHandler->new_file();
}

void OstrelFileMenu::file_open()
{
    const Flow flow(this);
    if (flow.is_over() || !check_modified() || flow.is_over())
        return;
    // Lives from call to call, so that the dialog comes up with the filter used last.
    static QString last_filter;
    QString filters;
    mOpenSaveHandler->get_filters(filters, false);
    if (flow.is_over())
        return;
    QString filter = last_filter;
    const QString name = ask_open_file(mMain, tr("Open"), mPath, filters, &filter);
    last_filter = filter;
    if (name.isEmpty() || flow.is_over())
        return;
    Broker::command << tr("selected filter: ") << filter << u"\n"_s;
    if (flow.is_over())
        return;
    set_path_from_file(name);
    mFileName = name;
    mMain->update_title();
    if (flow.has_window() && mRecentFiles) {
        mRecentFiles->add(name);
        // Before the handler is called: what it does may end the program.
        if (Ostrel* const window = Ostrel::instance())
            window->save_settings();
    }
    if (!flow.is_over())
        mOpenSaveHandler->open_file(name);
}

void OstrelFileMenu::file_save()
{
    const Flow flow(this);
    if (flow.is_over())
        return;
    // What the handler gets stays what it is when the handler sets the name of the file.
    const QString name = mFileName;
    if (name.isEmpty()) {
        file_save_as();
        return;
    }
    mOpenSaveHandler->save_file(name);
    // Whatever came of it (docs/surprises.md).
    if (flow.goes_on())
        mOpenSaveHandler->set_modified(false);
}

void OstrelFileMenu::file_save_as()
{
    const Flow flow(this);
    if (flow.is_over())
        return;
    QString path = mPath;
    QString proposal;
    mOpenSaveHandler->get_save_location(path, proposal);
    if (flow.is_over())
        return;
    if (!proposal.isEmpty())
        path += u'/' + proposal;
    QString filters;
    mOpenSaveHandler->get_filters(filters, true);
    if (flow.is_over())
        return;
    QString filter;
    QString name = ask_save_file(mMain, tr("Save As"), path, filters, &filter);
    if (name.isEmpty() || flow.is_over())
        return;
    // Of the first filter, not of the selected one (docs/surprises.md).
    if (lacks_extension(name))
        name += extension_of_filters(filters);
    set_path_from_file(name);
    mFileName = name;
    mMain->update_title();
    if (flow.has_window())
        recent_file(name);
    if (flow.is_over())
        return;
    mOpenSaveHandler->save_file_as(name, filter);
    if (flow.goes_on())
        mOpenSaveHandler->set_modified(false);
}

void OstrelFileMenu::file_import()
{
    QString filters;
    get_import_filters(filters);
    if (filters.isEmpty())
        return;
    const Alive alive(this);
    QString filter = mActiveImportFilter.isEmpty() ? get_saved_import_filter() : mActiveImportFilter;
    const QStringList files = ask_open_files(mMain, tr("Import File"), mPath, filters, &filter);
    if (!files.isEmpty())
        mActiveImportFilter = filter;
    for (const QString& file : files) {
        // Whoever imports may close the program.
        if (!alive)
            return;
        if (file.isEmpty())
            continue;
        save_import_filter(filter);
        set_path_from_file(file);
        execute_import(file, filter);
    }
}

void OstrelFileMenu::file_import_exodus_only()
{
    const Alive alive(this);
    QString filter = mActiveImportFilter;
    const QStringList files =
        ask_open_files(mMain, tr("Import File"), mPath, tr("Genesis/Exodus (*.g *.gen *.e* *.exo)"), &filter);
    for (const QString& file : files) {
        if (!alive)
            return;
        if (file.isEmpty())
            continue;
        set_path_from_file(file);
        execute_import(file, filter);
    }
}

void OstrelFileMenu::file_export(QString filter)
{
    QString filters;
    get_export_filters(filters);
    if (filters.isEmpty())
        return;
    const Alive alive(this);
    if (filter.isEmpty())
        filter = get_saved_export_filter();
    QString name = ask_save_file(mMain, tr("Export File"), mPath, filters, &filter);
    if (name.isEmpty() || !alive)
        return;
    // Of the selected filter, unlike the name of a saved document.
    if (lacks_extension(name))
        name += extension_of_filter(filter);
    save_export_filter(filter);
    set_path_from_file(name);
    execute_export(name, filter);
}

void OstrelFileMenu::file_directory()
{
    const Flow flow(this);
    if (!flow.is_over())
        mOpenSaveHandler->set_directory();
}

void OstrelFileMenu::open_recent_file(const QString& name)
{
    // A copy, since the name may be the current one, which changes when the user saves under another.
    const QString file = name;
    const Flow flow(this);
    if (flow.is_over() || !check_modified() || flow.is_over())
        return;
    mFileName = file;
    mMain->update_title();
    if (!flow.is_over())
        mOpenSaveHandler->open_file(file);
}

void OstrelFileMenu::import_recent_file(const QString& command)
{
    const QString import = command;
    const Flow flow(this);
    if (!flow.is_over())
        mOpenSaveHandler->import_recent(import);
}

QString OstrelFileMenu::get_working_directory() const
{
    return read_setting(QSettings(), settings_keys::working_directory, QString());
}

QString OstrelFileMenu::get_saved_import_filter() const
{
    return read_setting(QSettings(), settings_keys::import_filter, QString());
}

void OstrelFileMenu::save_import_filter(const QString& filter)
{
    QSettings().setValue(settings_keys::import_filter, filter);
}

QString OstrelFileMenu::get_saved_export_filter() const
{
    return read_setting(QSettings(), settings_keys::export_filter, QString());
}

void OstrelFileMenu::save_export_filter(const QString& filter)
{
    QSettings().setValue(settings_keys::export_filter, filter);
}
