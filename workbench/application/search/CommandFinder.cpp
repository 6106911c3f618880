// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/search/CommandFinder.h"

#include "frame/Ostrel.h"
#include "host/navigation/NavigationModel.h"
#include "host/navigation/TaskPanel.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "options/OptionsPanel.h"
#include "workbench/application/search/CommandSearch.h"
#include "workbench/application/windows/command_panel.h"
#include "workbench/host/navigation/CommandForm.h"
#include "workbench/sdk/component/disabled_reason.h"
#include "workbench/sdk/component/shell_access.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>

#include <utility>

using namespace Qt::StringLiterals;

namespace fennar {

namespace {

/** The owner mark of the entry in the menu. */
constexpr auto owner = "search";
constexpr auto recent_key = "/fennar/search/recent"_L1;
/** How many of those used last are kept. */
constexpr qsizetype most_recent = 20;

QStringList recent()
{
    return QSettings().value(recent_key).toStringList();
}

void remember(const SearchEntry& entry)
{
    QStringList ids = recent();
    ids.removeAll(search_id(entry));
    ids.prepend(search_id(entry));
    QSettings().setValue(recent_key, ids.mid(0, most_recent));
}

} // namespace

CommandFinder::CommandFinder(Ostrel* window, const CommandRegistry& registry, const Services& services)
    : mWindow(window),
      mRegistry(registry),
      mServices(services),
      mAction(new QAction(tr("&Find Command..."), this))
{
    mAction->setObjectName(u"findCommand"_s);
    mAction->setShortcut(QKeySequence(u"Ctrl+Shift+P"_s));
    connect(mAction, &QAction::triggered, this, &CommandFinder::open);
    window->tools_menu()->add_item(mAction, owner);
    window->journal_editor()->addAction(mAction);
    for (QAction* action : file_actions(window))
        set_disabled_reason(action, tr("No loaded component does this."));
    // Any number of changes in one turn are one for the list.
    mRefresh.setSingleShot(true);
    connect(&mRefresh, &QTimer::timeout, this, &CommandFinder::refresh);
    connect(&registry.entities(), &CommandEntities::changed, this, [this] {
        if (mSearch)
            mRefresh.start();
    });
}

CommandFinder::~CommandFinder()
{
    unwatch();
    delete mSearch;
    if (mWindow)
        mWindow->tools_menu()->remove_component_items(owner);
}

void CommandFinder::set_busy(bool busy)
{
    mBusy = busy;
    if (mSearch)
        mRefresh.start();
}

void CommandFinder::open()
{
    if (!mWindow)
        return;
    QMainWindow* editor = mWindow->journal_editor();
    QMainWindow* window = editor && editor->isActiveWindow() ? editor : mWindow;
    if (mSearch && (mSearch->isHidden() || mSearch->window() != window))
        delete mSearch;
    if (!mSearch) {
        mSearch = new CommandSearch(window, recent());
        connect(mSearch, &CommandSearch::chosen, this, &CommandFinder::run_later);
        connect(mSearch, &QObject::destroyed, this, &CommandFinder::unwatch);
    }
    mSearch->set_entries(gather());
    mSearch->activate();
}

bool CommandFinder::eventFilter(QObject*, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::ActionAdded || type == QEvent::ActionChanged || type == QEvent::ActionRemoved)
        mRefresh.start();
    return false;
}

/** All that there is to find now. */
QList<SearchEntry> CommandFinder::gather()
{
    const auto files = recent_file_actions(mWindow);
    QList<QAction*> elsewhere = {mAction};
    for (const auto& file : files)
        elsewhere << file.second;

    QList<SearchEntry> entries;
    QList<QPointer<QMenu>> menus;
    const auto add = [&](const MenuEntries& found) {
        entries << found.entries;
        menus << found.menus;
    };
    QMainWindow* editor = mWindow->journal_editor();
    if (mSearch->window() == editor)
        add(gather_menus(editor->menuBar(), tr("Journal Editor"), elsewhere));
    add(gather_menus(mWindow->menuBar(), {}, elsewhere));
    watch(menus);
    entries << gather_commands(mRegistry, navigation_entries(*mWindow->navigation_model()),
                               [this](const QString& name) { use_command(name); });
    QStringList pages = option_pages(mWindow->options());
    pages.removeAll(QCoreApplication::translate("Workbench", "Plugins")); // a group, even without pages
    entries << gather_pages(pages, [this](const QString& page) {
        if (option_pages(mWindow->options()).contains(page))
            mWindow->options()->show_panel(page);
    });
    entries << gather_recent_files(files);
    if (mBusy) {
        for (SearchEntry& entry : entries)
            entry.refusal = tr("Not while a command is running.");
    }
    return entries;
}

void CommandFinder::watch(const QList<QPointer<QMenu>>& menus)
{
    unwatch();
    const auto add = [this](QObject* object) {
        object->installEventFilter(this);
        mWatched << object;
    };
    add(mWindow->menuBar());
    for (const QPointer<QMenu>& menu : menus)
        add(menu);
}

void CommandFinder::unwatch()
{
    for (const QPointer<QObject>& object : std::exchange(mWatched, {})) {
        if (object)
            object->removeEventFilter(this);
    }
}

void CommandFinder::refresh()
{
    if (mSearch && mSearch->isVisible() && mWindow)
        mSearch->set_entries(gather());
}

/** What runs may do anything, also unload what holds it or close the window. So nothing of the search is left
 * to be done by then. */
void CommandFinder::run_later(const SearchEntry& entry)
{
    remember(entry);
    const auto run = [this, run = entry.run] {
        // What has begun meanwhile would have kept the user from choosing.
        if (!mBusy && !QApplication::activeModalWidget())
            run();
    };
    QMetaObject::invokeMethod(this, run, Qt::QueuedConnection);
}

void CommandFinder::use_command(const QString& name)
{
    const auto command = mRegistry.find(name);
    if (!command)
        return;
    if (runs_without_arguments(*command)) {
        mServices.run(name);
        return;
    }
    const QPersistentModelIndex entry = navigation_entries(*mWindow->navigation_model()).value(name);
    if (entry.isValid())
        show_form(entry);
    else
        mServices.write(name);
}

void CommandFinder::show_form(const QModelIndex& entry)
{
    show_in_panel(*mWindow, entry);
    TaskPanel* panel = mWindow->command_buttons();
    panel->activateWindow();
    if (auto* form = panel->findChild<CommandForm*>())
        form->focus_first();
}

} // namespace fennar
