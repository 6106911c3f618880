// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/component_bars.h"

#include "frame/Alive.h"
#include "frame/MenuSections.h"
#include "frame/Ostrel.h"
#include "frame/RemovableWidget.h"
#include "menus/OstrelViewMenu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QToolBar>
#include <QToolButton>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

// A toolbar with so few tool buttons counts as empty (docs/surprises.md).
constexpr int buttons_of_an_empty_toolbar = 3;

using ComponentMenu = RemovableWidget<QMenu>;
using ComponentToolBar = RemovableWidget<QToolBar>;

/** Actions that a component has handed in. Whoever is told of something meanwhile may delete some. */
class HandedIn
{
public:
    explicit HandedIn(const std::vector<QAction*>& actions)
    {
        for (QAction* action : actions)
            mActions.push_back(action ? std::optional<QPointer<QAction>>(action) : std::nullopt);
    }

    /** Those that still exist, and null for each separator. */
    std::vector<QAction*> left() const
    {
        std::vector<QAction*> actions;
        for (const std::optional<QPointer<QAction>>& action : mActions)
            if (!action || *action)
                actions.push_back(action ? action->data() : nullptr);
        return actions;
    }

private:
    /** Nothing for a separator. */
    std::vector<std::optional<QPointer<QAction>>> mActions;
};

/** The list of that name; one whose widget has been deleted by someone else is forgotten. */
MenuSections* find_list(QMap<QString, MenuSections*>& lists, const QString& name)
{
    MenuSections* const found = lists.value(name);
    if (!found || found->widget())
        return found;
    delete lists.take(name);
    return nullptr;
}

/** Takes a menu out of the menu bar and the list, and removes it, if it is empty and nobody is changing it.
 */
void drop_empty_menu(const Ostrel& window, ComponentBars& bars, const QString& title)
{
    const MenuSections* const left = find_list(bars.menus, title);
    if (!left || left->is_changing() || !left->menu->actions().isEmpty() || !left->menu_action)
        return;
    // Out of the list first: what is told of the end of the menu may look there, or end the window.
    const std::unique_ptr<MenuSections> taken(bars.menus.take(title));
    const QPointer<ComponentMenu> menu = dynamic_cast<ComponentMenu*>(taken->menu);
    window.menuBar()->removeAction(taken->menu_action);
    if (menu)
        menu->remove();
}

/** The same for a toolbar that counts as empty. */
void drop_empty_toolbar(const Ostrel& window, ComponentBars& bars, const QString& name)
{
    const MenuSections* const left = find_list(bars.toolbars, name);
    // Whatever is below the toolbar; see Ostrel::remove_toolbar_items().
    if (!left || left->is_changing() ||
        left->toolbar->findChildren<QToolButton*>().size() > buttons_of_an_empty_toolbar)
        return;
    const std::unique_ptr<MenuSections> taken(bars.toolbars.take(name));
    const QPointer<ComponentToolBar> toolbar = dynamic_cast<ComponentToolBar*>(taken->toolbar);
    const OstrelViewMenu* const view_menu = window.view_menu();
    if (toolbar && view_menu)
        view_menu->get_toolbar_menu()->removeAction(toolbar->toggleViewAction());
    if (toolbar)
        toolbar->remove();
}

} // namespace

ComponentBars::~ComponentBars()
{
    qDeleteAll(menus);
    qDeleteAll(toolbars);
}

void add_to_component_menu(Ostrel& window, ComponentBars& bars, const QString& title,
                           const std::vector<QAction*>& actions, const char* component)
{
    const HandedIn handed_in(actions);
    MenuSections* sections = find_list(bars.menus, title);
    std::unique_ptr<ComponentMenu> new_menu;
    if (!sections) {
        const Alive alive(&window);
        new_menu = std::make_unique<ComponentMenu>();
        new_menu->setTitle(title);
        if (!alive)
            return;
        // Filters on the application hear of it while it is made, and may have added to another.
        sections = find_list(bars.menus, title);
    }
    std::vector<QAction*> left = handed_in.left();
    if (!sections) {
        ComponentMenu* const menu = new_menu.release();
        sections = new MenuSections(title);
        sections->set_menu(menu, menu->menuAction());
        bars.menus.insert(title, sections);
        const ComponentMenu::Use use(menu);
        const QPointer<QMenu> made = menu;
        const Alive alive(&window, menu);
        // Filled before it is shown, so that nobody who is told of it takes it for an empty one.
        sections->add_items(left, component, nullptr);
        if (alive && sections->was_removed_from())
            drop_empty_menu(window, bars, title);
        if (alive && bars.menus.value(title) == sections)
            menu->setParent(&window, menu->windowFlags());
        if (!alive)
            delete made;
        if (!alive || bars.menus.value(title) != sections)
            return;
        // Behind the file menu, or before the tools menu, which is the last but one.
        QMenuBar* const menu_bar = window.menuBar();
        const QList<QAction*> bar = menu_bar->actions();
        const qsizetype place = title == Ostrel::tr("&Edit") ? 1 : bar.size() - 2;
        menu_bar->insertMenu(bar.value(place), menu);
        return;
    }
    const Alive alive(&window, sections->menu);
    sections->add_items(left, component, nullptr);
    // Who was told of it may have taken the component out again, when the menu could not go.
    if (alive && sections->was_removed_from())
        drop_empty_menu(window, bars, title);
}

void add_to_component_toolbar(Ostrel& window, ComponentBars& bars, const QString& name, const QString& title,
                              const std::vector<QAction*>& actions, const char* component,
                              Qt::ToolBarArea area)
{
    const HandedIn handed_in(actions);
    MenuSections* sections = find_list(bars.toolbars, name);
    std::unique_ptr<ComponentToolBar> new_toolbar;
    if (!sections) {
        const Alive alive(&window);
        new_toolbar = std::make_unique<ComponentToolBar>();
        new_toolbar->setObjectName(name);
        new_toolbar->setWindowTitle(title);
        if (!alive)
            return;
        // As for menus.
        sections = find_list(bars.toolbars, name);
    }
    if (!sections) {
        ComponentToolBar* const toolbar = new_toolbar.release();
        sections = new MenuSections(name);
        sections->set_toolbar(toolbar);
        bars.toolbars.insert(name, sections);
        const ComponentToolBar::Use use(toolbar);
        const Alive alive(&window, toolbar);
        toolbar->setParent(&window);
        if (alive)
            window.addToolBar(area, toolbar);
        if (const OstrelViewMenu* const view_menu = alive ? window.view_menu() : nullptr)
            view_menu->get_toolbar_menu()->addAction(toolbar->toggleViewAction());
        if (!alive || bars.toolbars.value(name) != sections)
            return;
    }
    std::vector<QAction*> left = handed_in.left();
    const Alive alive(&window, sections->toolbar);
    sections->add_items(left, component, nullptr);
    // As for menus.
    if (alive && sections->was_removed_from())
        drop_empty_toolbar(window, bars, name);
}

void remove_component_menu_items(const Ostrel& window, ComponentBars& bars, const char* component)
{
    const Alive alive(&window);
    const QStringList titles = bars.menus.keys();
    for (const QString& title : titles) {
        if (MenuSections* const sections = find_list(bars.menus, title))
            sections->remove_items(component);
        if (!alive)
            return;
        drop_empty_menu(window, bars, title);
        if (!alive)
            return;
    }
}

void remove_component_toolbar_items(const Ostrel& window, ComponentBars& bars, const char* component)
{
    const Alive alive(&window);
    const QStringList names = bars.toolbars.keys();
    for (const QString& name : names) {
        if (MenuSections* const sections = find_list(bars.toolbars, name))
            sections->remove_items(component);
        if (!alive)
            return;
        drop_empty_toolbar(window, bars, name);
        if (!alive)
            return;
    }
}

void push_component_button(ComponentBars& bars, const QString& toolbar, const QString& button, bool on)
{
    const MenuSections* const sections = find_list(bars.toolbars, toolbar);
    if (!sections)
        return;
    auto* const found = sections->toolbar->findChild<QToolButton*>(button + u"_action_button"_s);
    if (!found)
        return;
    if (!found->isCheckable())
        found->animateClick();
    else if (QAction* const action = found->defaultAction())
        // Whoever hears of that may delete the window: the button would go on with itself, the action does
        // not.
        action->setChecked(on);
    else
        found->setChecked(on);
}
