// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// What components add to the main window, and how it goes again.

#include "frame/Alive.h"
#include "frame/Ostrel.h"
#include "frame/Ostrel_sections.h"
#include "frame/RemovableWidget.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/OstrelToolsMenu.h"
#include "menus/OstrelViewMenu.h"
#include "menus/PyAction.h"

#include <QAction>
#include <QDockWidget>
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

// Qt takes no other.
bool is_one_area(Qt::DockWidgetArea area)
{
    switch (area) {
    case Qt::LeftDockWidgetArea:
    case Qt::RightDockWidgetArea:
    case Qt::TopDockWidgetArea:
    case Qt::BottomDockWidgetArea:
        return true;
    default:
        return false;
    }
}

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

} // namespace

void Ostrel::Sections::drop_empty_menu(const QString& title, QMenuBar* bar)
{
    const MenuSections* const left = find_list(menus, title);
    if (!left || left->is_changing() || !left->menu->actions().isEmpty() || !left->menu_action)
        return;
    // Out of the list first: what is told of the end of the menu may look there, or end the window.
    const std::unique_ptr<MenuSections> taken(menus.take(title));
    const QPointer<ComponentMenu> menu = dynamic_cast<ComponentMenu*>(taken->menu);
    bar->removeAction(taken->menu_action);
    if (menu)
        menu->remove();
}

void Ostrel::Sections::drop_empty_toolbar(const QString& name, const OstrelViewMenu* view_menu)
{
    const MenuSections* const left = find_list(toolbars, name);
    // Whatever is below the toolbar; see the header.
    if (!left || left->is_changing() ||
        left->toolbar->findChildren<QToolButton*>().size() > buttons_of_an_empty_toolbar)
        return;
    const std::unique_ptr<MenuSections> taken(toolbars.take(name));
    const QPointer<ComponentToolBar> toolbar = dynamic_cast<ComponentToolBar*>(taken->toolbar);
    if (toolbar && view_menu)
        view_menu->get_toolbar_menu()->removeAction(toolbar->toggleViewAction());
    if (toolbar)
        toolbar->remove();
}

void Ostrel::add_to_menu(const QString& title, std::vector<QAction*>& actions, const char* component)
{
    if (!component || !mSections)
        return;
    // The file and the window menu take nothing this way (docs/surprises.md).
    if (title == tr("&File"))
        return;
    if (title == tr("&View")) {
        if (mViewMenu)
            mViewMenu->add_items(actions, component);
        return;
    }
    if (title == tr("&Tools")) {
        if (mToolsMenu)
            mToolsMenu->add_items(actions, component);
        return;
    }
    if (title == tr("&Window"))
        return;
    if (title == tr("&Help")) {
        if (mHelpMenu)
            mHelpMenu->add_items(actions, component);
        return;
    }

    const HandedIn handed_in(actions);
    MenuSections* sections = find_list(mSections->menus, title);
    std::unique_ptr<ComponentMenu> new_menu;
    if (!sections) {
        const Alive alive(this);
        new_menu = std::make_unique<ComponentMenu>();
        new_menu->setTitle(title);
        if (!alive)
            return;
        // Filters on the application hear of it while it is made, and may have added to another.
        sections = find_list(mSections->menus, title);
    }
    std::vector<QAction*> left = handed_in.left();
    if (!sections) {
        ComponentMenu* const menu = new_menu.release();
        sections = new MenuSections(title);
        sections->set_menu(menu, menu->menuAction());
        mSections->menus.insert(title, sections);
        const ComponentMenu::Use use(menu);
        const QPointer<QMenu> made = menu;
        const Alive alive(this, menu);
        // Filled before it is shown, so that nobody who is told of it takes it for an empty one.
        sections->add_items(left, component, nullptr);
        if (alive && sections->was_removed_from())
            mSections->drop_empty_menu(title, mMenuBar);
        if (alive && mSections->menus.value(title) == sections)
            menu->setParent(this, menu->windowFlags());
        if (!alive)
            delete made;
        if (!alive || mSections->menus.value(title) != sections)
            return;
        // Behind the file menu, or before the tools menu, which is the last but one.
        const QList<QAction*> bar = mMenuBar->actions();
        const qsizetype place = title == tr("&Edit") ? 1 : bar.size() - 2;
        mMenuBar->insertMenu(bar.value(place), menu);
        return;
    }
    const Alive alive(this, sections->menu);
    sections->add_items(left, component, nullptr);
    // Who was told of it may have taken the component out again, when the menu could not go.
    if (alive && sections->was_removed_from())
        mSections->drop_empty_menu(title, mMenuBar);
}

void Ostrel::add_to_menu(const char* title, std::vector<PyAction*>& actions, const char* component)
{
    if (!title)
        return;
    std::vector<QAction*> list;
    list.reserve(actions.size());
    for (const PyAction* action : actions)
        list.push_back(action ? action->getAction() : nullptr);
    add_to_menu(QString::fromUtf8(title), list, component);
}

void Ostrel::add_to_toolbar(const char* name, const QString& title, std::vector<QAction*>& actions,
                            const char* component, Qt::ToolBarArea area)
{
    if (!component || !name || !mSections)
        return;
    const QString key = QString::fromUtf8(name);
    const HandedIn handed_in(actions);
    MenuSections* sections = find_list(mSections->toolbars, key);
    std::unique_ptr<ComponentToolBar> new_toolbar;
    if (!sections) {
        const Alive alive(this);
        new_toolbar = std::make_unique<ComponentToolBar>();
        new_toolbar->setObjectName(key);
        new_toolbar->setWindowTitle(title);
        if (!alive)
            return;
        // As for menus.
        sections = find_list(mSections->toolbars, key);
    }
    if (!sections) {
        ComponentToolBar* const toolbar = new_toolbar.release();
        sections = new MenuSections(key);
        sections->set_toolbar(toolbar);
        mSections->toolbars.insert(key, sections);
        const ComponentToolBar::Use use(toolbar);
        const Alive alive(this, toolbar);
        toolbar->setParent(this);
        if (alive)
            addToolBar(area, toolbar);
        if (alive && mViewMenu)
            mViewMenu->get_toolbar_menu()->addAction(toolbar->toggleViewAction());
        if (!alive || mSections->toolbars.value(key) != sections)
            return;
    }
    std::vector<QAction*> left = handed_in.left();
    const Alive alive(this, sections->toolbar);
    sections->add_items(left, component, nullptr);
    // As for menus.
    if (alive && sections->was_removed_from())
        mSections->drop_empty_toolbar(key, mViewMenu);
}

void Ostrel::remove_menu_items(const char* component)
{
    if (!component)
        return;
    const Alive alive(this);
    if (mViewMenu)
        mViewMenu->remove_component_items(component);
    if (alive && mToolsMenu)
        mToolsMenu->remove_component_items(component);
    if (alive && mHelpMenu)
        mHelpMenu->remove_component_items(component);
    if (!alive || !mSections)
        return;
    const QStringList titles = mSections->menus.keys();
    for (const QString& title : titles) {
        if (MenuSections* const sections = find_list(mSections->menus, title))
            sections->remove_items(component);
        if (!alive)
            return;
        mSections->drop_empty_menu(title, mMenuBar);
        if (!alive)
            return;
    }
}

void Ostrel::remove_toolbar_items(const char* component)
{
    // The window menu has nothing to do with toolbars; without it the window is being built or taken down.
    if (!mSections || !component || !mWindowMenu)
        return;
    const Alive alive(this);
    const QStringList names = mSections->toolbars.keys();
    for (const QString& name : names) {
        if (MenuSections* const sections = find_list(mSections->toolbars, name))
            sections->remove_items(component);
        if (!alive)
            return;
        mSections->drop_empty_toolbar(name, mViewMenu);
        if (!alive)
            return;
    }
}

void Ostrel::push_tool_button(const char* toolbar, const char* button, bool on)
{
    if (!toolbar || !button || !mSections)
        return;
    const MenuSections* const sections = find_list(mSections->toolbars, QString::fromUtf8(toolbar));
    if (!sections)
        return;
    const QString name = QString::fromUtf8(button) + u"_action_button"_s;
    auto* const found = sections->toolbar->findChild<QToolButton*>(name);
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

bool Ostrel::add_dock_window(QDockWidget* dock, const char* component, Qt::DockWidgetArea area,
                             Qt::DockWidgetAreas allowed)
{
    if (!dock || !mSections || dock->objectName().isEmpty() || !is_one_area(area) || !(allowed & area))
        return false;
    // A dock tells of its move, which may be the end of it.
    const Alive alive(this, dock);
    addDockWidget(area, dock);
    if (alive)
        dock->setAllowedAreas(allowed);
    if (!alive)
        return false;
    if (mViewMenu) {
        const QByteArray own_name = dock->objectName().toUtf8();
        mViewMenu->add_dock_item(dock->toggleViewAction(), component ? component : own_name.constData());
    }
    return true;
}

void Ostrel::remove_dock_window(const char* component)
{
    if (mViewMenu)
        mViewMenu->remove_component_items(component);
}

void Ostrel::remove_dock_windows(const char* component)
{
    remove_dock_window(component);
}
