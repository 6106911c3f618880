// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "checks.h"

#include "World.h"
#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "frame/OstrelSplitter.h"
#include "host/navigation/TaskPanel.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelViewMenu.h"
#include "options/OptionsPanel.h"
#include "support/describe_window.h"

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>
#include <QToolBar>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

HostDouble& host()
{
    return HostDouble::instance();
}

QMenu* bar_menu(const Ostrel& window, const QString& title)
{
    for (const QAction* action : window.menuWidget()->actions())
        if (action->text() == title)
            return action->menu<QMenu*>();
    return nullptr;
}

/** Whether @p some stand in @p all, in their order. */
template <class Element>
bool in_order(const QList<Element>& some, const QList<Element>& all)
{
    qsizetype found = 0;
    for (const Element& element : all)
        if (found < some.size() && element == some.at(found))
            ++found;
    return found == some.size();
}

QStringList object_names(const QList<QAction*>& actions)
{
    QStringList names;
    for (const QAction* action : actions)
        names << action->objectName();
    return names;
}

QStringList texts(const QList<QAction*>& actions)
{
    QStringList all;
    for (const QAction* action : actions)
        all << action->text();
    return all;
}

QString wrong_with_menu_bar(const Ostrel& window)
{
    const QStringList bar = texts(window.menuWidget()->actions());
    if (bar.constFirst() != u"&File"_s || bar.constLast() != u"&Help"_s ||
        bar.at(bar.size() - 2) != u"&Tools"_s)
        return u"the menu bar: "_s + bar.join(u' ');
    if (bar.contains(u"&Edit"_s) && bar.at(1) != u"&Edit"_s)
        return u"the place of the menu Edit: "_s + bar.join(u' ');
    return in_order({u"&File"_s, u"&View"_s, u"&Tools"_s, u"&Help"_s}, bar) ? QString()
                                                                            : u"the shell's menus"_s;
}

QString wrong_with_own_rows(const Ostrel& window)
{
    const QStringList tools = object_names(bar_menu(window, u"&Tools"_s)->actions());
    if (!in_order({u"mScriptAction"_s, u"mPlayAction"_s, u"mComponentAction"_s, u"mOptionsAction"_s}, tools))
        return u"the rows of the menu Tools: "_s + tools.join(u' ');
    const QMenu* const help = bar_menu(window, u"&Help"_s);
    if (!help->actions().constLast()->text().startsWith(u"&About"_s))
        return u"the rows of the menu Help: "_s + texts(help->actions()).join(u' ');
    return {};
}

QString wrong_with_rows(const Ostrel& window, const QList<MenuRow>& rows)
{
    for (const MenuRow& row : rows) {
        const QMenu* const menu = bar_menu(window, row.title);
        if (row.action && (!menu || menu->actions().count(row.action) != 1))
            return u"%1 of %2 is not in the menu %3"_s.arg(row.action->text(),
                                                           QString::fromUtf8(row.component), row.title);
    }
    return {};
}

QString wrong_with_graphics(const Ostrel& window, const QWidget* expected)
{
    if (window.graphics_widget() != expected)
        return u"the graphics widget"_s;
    const OstrelSplitter* const area = window.graphics_area();
    const auto* const shown = expected ? expected : area->findChild<const QWidget*>(u"mDefaultWidget"_s);
    return area->count() == 1 && area->widget(0) == shown ? QString() : u"what the graphics area shows"_s;
}

QString wrong_with_console(const CommandWindow& console, QList<QPointer<QWidget>>& expected)
{
    expected.removeAll(nullptr);
    const auto* const tabs = console.findChild<QTabWidget*>(u"mCommandTab"_s);
    QList<QPointer<QWidget>> pages;
    for (int index = 0; index < tabs->count(); ++index)
        pages << tabs->widget(index);
    const bool are_those =
        std::all_of(pages.begin(), pages.end(), [&](const auto& page) { return expected.count(page) == 1; });
    if (pages.size() != expected.size() || !are_those)
        return u"%1 console pages instead of %2, or others"_s.arg(pages.size()).arg(expected.size());
    QString command;
    int index = 0;
    console.current_command_and_index(command, index);
    return pages.isEmpty() && !(command.isEmpty() && index == 0) ? u"a command without a page"_s : QString();
}

QString wrong_with_editor(const JournalEditor& editor)
{
    const auto* const tabs = editor.findChild<QTabWidget*>(u"mDocTab"_s);
    if (tabs->count() < 1 || !editor.returnCurrentDocument())
        return u"no journal"_s;
    return tabs->signalsBlocked() ? u"the journals' tabs are silent"_s : QString();
}

QString wrong_with_formats(const QList<QPointer<Format>>& expected, const QString& filters)
{
    QStringList wanted;
    for (const QPointer<Format>& format : expected)
        wanted << format->mFilters;
    return filters == wanted.join(u";;"_s) ? QString() : u"the formats: "_s + filters;
}

QString wrong_with_files(const OstrelFileMenu& menu, const World& world)
{
    if (menu.get_open_save_handler() != world.plugged)
        return u"the handler of documents"_s;
    std::vector<QAction*> items;
    menu.get_items_for_toolbar(items);
    // New, Open and Save.
    for (std::size_t item = 0; item < 3; ++item)
        if (items.at(item)->isEnabled() != (world.plugged != nullptr))
            return u"the action "_s + items.at(item)->objectName();
    QString imports;
    QString exports;
    menu.get_import_filters(imports);
    menu.get_export_filters(exports);
    const QString wrong = wrong_with_formats(world.imports, imports);
    return wrong.isEmpty() ? wrong_with_formats(world.exports, exports) : wrong;
}

QString wrong_with_command_panel(const Ostrel& window)
{
    const auto* const dock = window.findChild<QDockWidget*>(u"FennarCommandPanel"_s);
    return dock->widget() == window.command_buttons() ? QString() : u"the command panel"_s;
}

QString wrong_with_toggles(OstrelViewMenu& menu)
{
    std::vector<QAction*> toggles;
    menu.get_dock_items(toggles);
    menu.get_toolbar_items(toggles);
    for (const QAction* toggle : toggles)
        if (!toggle->parent() || !toggle->isCheckable())
            return u"a toggle of nothing: "_s + toggle->text();
    return {};
}

QString wrong_with_options(const OptionsPanel& panel, const std::array<Component, 3>& components)
{
    for (const Component& component : components)
        for (const QPointer<QWidget>& page : component.option_pages)
            if (page && page->window() != &panel)
                return u"an option page is not in the dialog"_s;
    return {};
}

} // namespace

QString wrong_with(World& world)
{
    const Ostrel* const window = world.window();
    if (world.frame().is_loaded() != (window != nullptr))
        return u"a window without a frame, or a frame without a window"_s;
    if (host().command_window != (window ? window->command_line() : nullptr))
        return u"the framework prints elsewhere"_s;
    if (!window)
        return host().trackers.empty() ? QString() : u"a tracker is left"_s;
    for (const QString& wrong :
         {wrong_with_menu_bar(*window), wrong_with_own_rows(*window), wrong_with_rows(*window, world.rows),
          wrong_with_graphics(*window, world.graphics),
          wrong_with_console(*window->command_line(), world.tabs),
          wrong_with_editor(*window->journal_editor()), wrong_with_files(*window->file_menu(), world),
          wrong_with_command_panel(*window), wrong_with_toggles(*window->view_menu()),
          wrong_with_options(*window->options(), world.components)}) {
        if (!wrong.isEmpty())
            return wrong;
    }
    return describe_window(*window).isEmpty() ? u"nothing in the window"_s : QString();
}

QString left_in(const Ostrel& window)
{
    const QStringList left =
        (describe_window(window) + describe_window(*window.journal_editor())).filter(u"own "_s);
    return left.isEmpty() ? QString() : u"left behind: "_s + left.join(u'\n');
}
