// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// What a component adds to the window's menus, toolbars, docks and console.

#include "acts.h"
#include "component_helpers.h"
#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "frame/Ostrel.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/OstrelToolsMenu.h"
#include "menus/OstrelViewMenu.h"
#include "menus/PyAction.h"
#include "menus/PyOstrel.h"

#include <QAction>
#include <QDockWidget>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>

#include <string>

using namespace Qt::StringLiterals;

namespace {

/** New actions, and perhaps separators. */
std::vector<QAction*> make_actions(Monkey& monkey, Component& owner)
{
    std::vector<QAction*> actions(static_cast<std::size_t>(1 + monkey.below(5)));
    for (QAction*& action : actions)
        action = monkey.one_in(4) ? nullptr : make_action(monkey, owner);
    return actions;
}

// --- Menus

void adds_to_a_menu(Monkey& monkey)
{
    static const std::vector<QString> titles{u"&Edit"_s,  u"&View"_s,  u"&Tools"_s, u"&Help"_s,
                                             u"own &1"_s, u"own &2"_s, u"own &1"_s, u"&File"_s};
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    Component& owner = monkey.component();
    const QString title = monkey.one_of(titles);
    std::vector<QAction*> actions = make_actions(monkey, owner);
    for (QAction* const action : actions)
        if (action && title != u"&File"_s)
            monkey.world().rows << MenuRow{title, owner.name, action};
    monkey.note(title);
    window->add_to_menu(title, actions, owner.name);
}

void adds_a_manual(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    Component& owner = monkey.component();
    QAction* const action = make_action(monkey, owner);
    monkey.world().rows << MenuRow{u"&Help"_s, owner.name, action};
    if (monkey.one_in(2))
        window->help_menu()->add_manual(action, owner.name);
    else
        window->help_menu()->add_item(action, owner.name);
}

void takes_its_items_out_of_the_menus(Monkey& monkey)
{
    const Component& owner = monkey.component();
    monkey.world().forget_rows(owner.name);
    if (Ostrel* const window = monkey.window())
        window->remove_menu_items(owner.name);
    // Those that have come meanwhile may be gone or not.
    monkey.world().forget_rows(owner.name);
}

void takes_its_items_out_of_one_menu(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    const Component& owner = monkey.component();
    switch (monkey.below(3)) {
    case 0:
        monkey.world().forget_rows(owner.name, u"&View"_s);
        window->view_menu()->remove_component_items(owner.name);
        break;
    case 1:
        monkey.world().forget_rows(owner.name, u"&Tools"_s);
        window->tools_menu()->remove_component_items(owner.name);
        break;
    default:
        monkey.world().forget_rows(owner.name, u"&Help"_s);
        window->help_menu()->remove_component_items(owner.name);
        break;
    }
}

void deletes_an_action(Monkey& monkey)
{
    Busy::let_go(take_any(monkey, monkey.component().actions));
}

void renames_an_action(Monkey& monkey)
{
    Component& owner = monkey.component();
    owner.actions.removeAll(nullptr);
    if (const QPointer<QAction> action = monkey.one_of(owner.actions)) {
        action->setText(monkey.fresh_text());
        if (action)
            action->setEnabled(!monkey.one_in(4));
        if (action)
            action->setVisible(!monkey.one_in(4));
    }
}

void adds_scripts(Monkey& monkey)
{
    if (!monkey.window())
        return;
    Component& owner = monkey.component();
    auto* const script = new PyAction;
    script->setText(qPrintable(monkey.fresh_text()));
    script->setActivateMethod("activate");
    script->setToggleMethod("toggle");
    script->setToggleAction(monkey.one_in(2));
    owner.scripts << script;
    monkey.watch(script);
    monkey.world().rows << MenuRow{u"own &3"_s, owner.name, script->getAction()};
    PyOstrel::add_to_menu("own &3", {script}, owner.name);
}

void deletes_a_script(Monkey& monkey)
{
    Component& owner = monkey.component();
    const QPointer<PyAction> script = take_any(monkey, owner.scripts);
    monkey.world().forget_rows(owner.name);
    PyOstrel::remove_menu_items(owner.name);
    monkey.world().forget_rows(owner.name);
    Busy::let_go(script);
}

// --- Toolbars and docks

void adds_to_a_toolbar(Monkey& monkey)
{
    static const std::vector<std::string> names{"bar 1", "bar 2", "FileTools"};
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    Component& owner = monkey.component();
    std::vector<QAction*> actions = make_actions(monkey, owner);
    // An action may stand on several toolbars.
    if (QAction* const known = monkey.one_of(owner.actions))
        actions.push_back(known);
    const std::string name = monkey.one_of(names);
    window->add_to_toolbar(name.c_str(), u"own bar"_s, actions, owner.name,
                           monkey.one_in(2) ? Qt::TopToolBarArea : Qt::LeftToolBarArea);
}

void takes_its_items_off_the_toolbars(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window())
        window->remove_toolbar_items(monkey.component().name);
}

void names_its_buttons(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    const QToolBar* const bar = window ? window->findChild<QToolBar*>(u"bar 1"_s) : nullptr;
    if (!bar)
        return;
    for (QAction* const action : bar->actions()) {
        if (QWidget* const button = bar->widgetForAction(action); button && action->isCheckable())
            button->setObjectName(u"its_action_button"_s);
    }
}

void pushes_a_button(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window())
        window->push_tool_button("bar 1", "its", monkey.one_in(2));
}

void shows_or_hides_a_toolbar(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    std::vector<QString> labels;
    window->view_menu()->get_toolbar_labels(labels);
    const QString label = monkey.one_of(labels);
    if (monkey.one_in(2))
        window->view_menu()->show_toolbar(label);
    else
        window->view_menu()->hide_toolbar(label);
}

void adds_a_dock(Monkey& monkey)
{
    Component& owner = monkey.component();
    const QPointer<QDockWidget> dock = new Own<QDockWidget>(monkey.fresh_text());
    dock->setObjectName(dock->windowTitle());
    dock->setWidget(new QPlainTextEdit);
    owner.docks << dock;
    monkey.watch(dock);
    const Qt::DockWidgetArea area = monkey.one_in(2) ? Qt::LeftDockWidgetArea : Qt::BottomDockWidgetArea;
    const Qt::DockWidgetAreas allowed = monkey.one_in(4) ? Qt::LeftDockWidgetArea : Qt::AllDockWidgetAreas;
    const char* const mark = monkey.one_in(4) ? nullptr : owner.name;
    if (Ostrel* const window = monkey.window();
        !window || !window->add_dock_window(dock, mark, area, allowed))
        Busy::let_go(dock);
}

void takes_its_docks_out_of_the_menu(Monkey& monkey)
{
    const Component& owner = monkey.component();
    monkey.world().forget_rows(owner.name, u"&View"_s);
    if (Ostrel* const window = monkey.window())
        window->remove_dock_windows(owner.name);
    monkey.world().forget_rows(owner.name, u"&View"_s);
}

void deletes_a_dock(Monkey& monkey)
{
    Busy::let_go(take_any(monkey, monkey.component().docks));
}

void shows_or_hides_a_dock(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    if (!window)
        return;
    std::vector<QString> labels;
    window->view_menu()->get_dock_labels(labels);
    const QString label = monkey.one_of(labels);
    if (monkey.one_in(2))
        window->view_menu()->show_dock_window(label);
    else
        window->view_menu()->hide_dock_window(label);
}

// --- The console

/** Puts @p page into the console. Whether one that is taken out meanwhile stays out depends on how far Qt has
 * come with it. */
void put_into_console(Monkey& monkey, const QPointer<QWidget>& page)
{
    const QPointer<Ostrel> window = monkey.window();
    if (!window || !page || Busy::with(window->command_line()))
        return;
    monkey.world().tabs << page;
    window->command_line()->add_command_tab(monkey.fresh_text(), page);
    if (!page || !window || monkey.window() != window)
        return;
    monkey.world().tabs.removeAll(page);
    if (window->command_line()->findChild<QTabWidget*>(u"mCommandTab"_s)->indexOf(page) != -1)
        monkey.world().tabs << page;
}

QPlainTextEdit* make_page(Monkey& monkey)
{
    if (monkey.one_in(3))
        return new Own<QPlainTextEdit>;
    auto* const page = new Own<CommandWidget>;
    if (Ostrel* const window = monkey.window()) {
        CommandWindow* const console = window->command_line();
        QObject::connect(console, &CommandWindow::readOnlyChanged, page, &CommandWidget::setReadOnly);
        QObject::connect(console, &CommandWindow::readyForPrompt, page, &CommandWidget::printPrompt);
        QObject::connect(console, &CommandWindow::dataToPrint, page, &CommandWidget::printOutput);
        QObject::connect(console, &CommandWindow::commandToPrint, page, &CommandWidget::addExternalCommand);
    }
    return page;
}

void adds_a_page(Monkey& monkey)
{
    if (!monkey.window() || monkey.world().tabs.size() > 6)
        return;
    QPlainTextEdit* const page = make_page(monkey);
    monkey.watch(page);
    monkey.component().console_pages << page;
    put_into_console(monkey, page);
}

void takes_a_page_out(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    const QPointer<QWidget> page = monkey.one_of(monkey.component().console_pages);
    if (!window || !page || Busy::with(window->command_line()))
        return;
    monkey.world().tabs.removeAll(page);
    window->command_line()->remove_command_tab(page);
    if (page && monkey.one_in(2))
        page->setParent(nullptr);
}

void puts_a_page_in_again(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    const QPointer<QWidget> page = monkey.one_of(monkey.component().console_pages);
    if (!window || !page || monkey.world().tabs.contains(page) || Busy::with(page))
        return;
    put_into_console(monkey, page);
}

void deletes_a_page(Monkey& monkey)
{
    Busy::let_go(take_any(monkey, monkey.component().console_pages));
}

void brings_a_page_to_the_front(Monkey& monkey)
{
    if (Ostrel* const window = monkey.window())
        window->command_line()->switchTab(monkey.one_of(monkey.world().tabs));
}

void warns_on_a_page(Monkey& monkey)
{
    Ostrel* const window = monkey.window();
    QWidget* const page = monkey.one_of(monkey.world().tabs);
    if (!window)
        return;
    if (monkey.one_in(2))
        window->command_line()->set_tab_warning(page);
    else
        window->command_line()->clear_tab_warning(page);
}

} // namespace

const std::vector<Act>& component_window_acts()
{
    static const std::vector<Act> acts{
        {"adds to a menu", adds_to_a_menu},
        {"adds a manual", adds_a_manual},
        {"takes its items out of the menus", takes_its_items_out_of_the_menus},
        {"takes its items out of one menu", takes_its_items_out_of_one_menu},
        {"deletes an action", deletes_an_action},
        {"renames an action", renames_an_action},
        {"adds scripts", adds_scripts},
        {"deletes a script", deletes_a_script},
        {"adds to a toolbar", adds_to_a_toolbar},
        {"takes its items off the toolbars", takes_its_items_off_the_toolbars},
        {"names its buttons", names_its_buttons},
        {"pushes a button", pushes_a_button},
        {"shows or hides a toolbar", shows_or_hides_a_toolbar, true},
        {"adds a dock", adds_a_dock},
        {"takes its docks out of the menu", takes_its_docks_out_of_the_menu},
        {"deletes a dock", deletes_a_dock},
        {"shows or hides a dock", shows_or_hides_a_dock},
        {"adds a page", adds_a_page},
        {"adds a page", adds_a_page},
        {"takes a page out", takes_a_page_out},
        {"puts a page in again", puts_a_page_in_again},
        {"deletes a page", deletes_a_page},
        {"brings a page to the front", brings_a_page_to_the_front},
        {"warns on a page", warns_on_a_page},
    };
    return acts;
}
