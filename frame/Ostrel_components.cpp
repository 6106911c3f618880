// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// What components add to the main window, and how it goes again.

#include "frame/Ostrel.h"
#include "frame/Ostrel_sections.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/OstrelToolsMenu.h"
#include "menus/OstrelViewMenu.h"
#include "menus/PyAction.h"

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// A toolbar with so few tool buttons counts as empty. It is not 0, which is intended.
constexpr int buttons_of_an_empty_toolbar = 3;

} // namespace

void Ostrel::add_to_menu(const QString& title, std::vector<QAction*>& actions, const char* component)
{
    if (!component || !mSections)
        return;
    // The file and the window menu take nothing this way, which is intended.
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

    MenuSections*& sections = mSections->menus[title];
    if (!sections) {
        sections = new MenuSections(title);
        auto* menu = new QMenu(this);
        menu->setTitle(title);
        // Behind the file menu, or before the tools menu, which is the last but one.
        const QList<QAction*> bar = mMenuBar->actions();
        const qsizetype place = title == tr("&Edit") ? 1 : bar.size() - 2;
        sections->set_menu(menu, mMenuBar->insertMenu(bar.value(place), menu));
    }
    sections->add_items(actions, component, nullptr);
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
    MenuSections*& sections = mSections->toolbars[key];
    if (!sections) {
        sections = new MenuSections(key);
        auto* toolbar = new QToolBar(this);
        toolbar->setObjectName(key);
        sections->set_toolbar(toolbar);
        toolbar->setWindowTitle(title);
        addToolBar(area, toolbar);
        if (mViewMenu)
            mViewMenu->get_toolbar_menu()->addAction(toolbar->toggleViewAction());
    }
    sections->add_items(actions, component, nullptr);
}

void Ostrel::remove_menu_items(const char* component)
{
    if (!component)
        return;
    if (mViewMenu)
        mViewMenu->remove_component_items(component);
    if (mToolsMenu)
        mToolsMenu->remove_component_items(component);
    if (mHelpMenu)
        mHelpMenu->remove_component_items(component);
    if (!mSections)
        return;
    for (auto entry = mSections->menus.begin(); entry != mSections->menus.end();) {
        MenuSections* const sections = entry.value();
        sections->remove_items(component);
        if (!sections->menu->actions().isEmpty() || !sections->menu_action) {
            ++entry;
            continue;
        }
        mMenuBar->removeAction(sections->menu_action);
        delete sections->menu;
        entry = mSections->menus.erase(entry);
        delete sections;
    }
}

void Ostrel::remove_toolbar_items(const char* component)
{
    // The window menu has nothing to do with toolbars; that it must exist is intended.
    if (!mSections || !component || !mWindowMenu)
        return;
    for (auto entry = mSections->toolbars.begin(); entry != mSections->toolbars.end();) {
        MenuSections* const sections = entry.value();
        sections->remove_items(component);
        // Whatever is below the toolbar; see the header.
        if (sections->toolbar->findChildren<QToolButton*>().size() > buttons_of_an_empty_toolbar) {
            ++entry;
            continue;
        }
        delete sections->toolbar;
        entry = mSections->toolbars.erase(entry);
        delete sections;
    }
}

void Ostrel::push_tool_button(const char* toolbar, const char* button, bool on)
{
    if (!toolbar || !button || !mSections)
        return;
    const MenuSections* const sections = mSections->toolbars.value(QString::fromUtf8(toolbar));
    if (!sections)
        return;
    const QString name = QString::fromUtf8(button) + u"_action_button"_s;
    auto* const found = sections->toolbar->findChild<QToolButton*>(name);
    if (!found)
        return;
    if (found->isCheckable())
        found->setChecked(on);
    else
        found->animateClick();
}

bool Ostrel::add_dock_window(QDockWidget* dock, const char* component, Qt::DockWidgetArea area,
                             Qt::DockWidgetAreas allowed)
{
    if (!dock || !mSections || dock->objectName().isEmpty() || !(allowed & area))
        return false;
    addDockWidget(area, dock);
    dock->setAllowedAreas(allowed);
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
