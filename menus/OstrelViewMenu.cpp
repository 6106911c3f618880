// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "menus/OstrelViewMenu.h"

#include "frame/MenuSections.h"
#include "frame/Ostrel.h"

#include <QAction>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QToolBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QMenu* make_toolbar_menu(const QString& title)
{
    auto* menu = new QMenu;
    menu->setObjectName(u"ViewToolbarsActionGroup"_s);
    menu->setTitle(title);
    return menu;
}

QToolBar* find_toolbar(const QWidget* window, const QString& label)
{
    const QList<QToolBar*> toolbars = window->findChildren<QToolBar*>();
    const auto found = std::find_if(toolbars.begin(), toolbars.end(), [&label](const QToolBar* toolbar) {
        return toolbar->windowTitle() == label;
    });
    return found == toolbars.end() ? nullptr : *found;
}

void set_first_checked(const std::vector<QAction*>& actions, const QString& label, bool checked)
{
    const auto found = std::find_if(actions.begin(), actions.end(),
                                    [&label](const QAction* action) { return action->text() == label; });
    if (found == actions.end())
        return;
    const QPointer<QAction> toggle = *found;
    const auto* dock = qobject_cast<const QDockWidget*>(toggle->parent());
    if (dock && dock->toggleViewAction() != toggle)
        dock = nullptr;
    const bool changes = toggle->isChecked() != checked;
    toggle->setChecked(checked);
    // Who is told of that may have deleted the dock with its action, or have thought better of it.
    if (!toggle || !dock || toggle->isChecked() != checked)
        return;
    // A dock follows its action only when that is triggered. Before its window is shown it may have to follow
    // an action that shows the state already.
    if (changes || dock->isHidden() == checked)
        emit toggle->triggered(checked);
}

} // namespace

OstrelViewMenu::OstrelViewMenu(Ostrel* parent) : QObject(parent), mMainWindow(parent)
{
    setObjectName(u"OstrelViewMenu"_s);
    mSections = std::make_unique<MenuSections>(tr("&View"));
    mMenu = new QMenu(tr("&View"), mMainWindow);
    // Without a parent and never deleted: it is handed out, and components may show it elsewhere.
    mToolbarMenu = make_toolbar_menu(tr("Toolbars"));

    QAction* const bar_action = mMainWindow->menuBar()->addMenu(mMenu);
    QAction* const toolbars_action = mMenu->addMenu(mToolbarMenu);
    mSections->set_menu(mMenu, bar_action);
    mSections->add_item(toolbars_action, "viewToolbars", "viewToolbars");
    mSections->add_section("viewDocks", -1);
    mSections->add_section("viewGeneral", -1);
}

OstrelViewMenu::~OstrelViewMenu()
{
    mSections.reset();
    delete mMenu;
}

void OstrelViewMenu::add_item(QAction* action, const char* component)
{
    if (mSections)
        mSections->add_item(action, component, "viewGeneral");
}

void OstrelViewMenu::add_items(std::vector<QAction*>& actions, const char* component)
{
    if (mSections)
        mSections->add_items(actions, component, "viewGeneral");
}

void OstrelViewMenu::add_dock_item(QAction* action, const char* component)
{
    if (mSections)
        mSections->add_item(action, component, "viewDocks");
}

void OstrelViewMenu::remove_component_items(const char* component)
{
    if (mSections)
        mSections->remove_items(component);
}

void OstrelViewMenu::get_dock_items(std::vector<QAction*>& items)
{
    if (mSections)
        mSections->get_items(items, "viewDocks");
}

void OstrelViewMenu::get_toolbar_items(std::vector<QAction*>& items)
{
    const QList<QAction*> actions = mToolbarMenu->actions();
    items.insert(items.end(), actions.begin(), actions.end());
}

void OstrelViewMenu::get_toolbar_labels(std::vector<QString>& labels)
{
    const QList<QToolBar*> toolbars = mMainWindow->findChildren<QToolBar*>();
    for (const QToolBar* toolbar : toolbars)
        labels.push_back(toolbar->windowTitle());
}

void OstrelViewMenu::get_dock_labels(std::vector<QString>& labels)
{
    std::vector<QAction*> items;
    get_dock_items(items);
    for (const QAction* item : items)
        labels.push_back(item->text());
}

void OstrelViewMenu::show_toolbar(const QString& label)
{
    if (QToolBar* toolbar = find_toolbar(mMainWindow, label))
        toolbar->show();
}

void OstrelViewMenu::hide_toolbar(const QString& label)
{
    if (QToolBar* toolbar = find_toolbar(mMainWindow, label))
        toolbar->hide();
}

void OstrelViewMenu::show_dock_window(const QString& label)
{
    std::vector<QAction*> items;
    get_dock_items(items);
    set_first_checked(items, label, true);
}

void OstrelViewMenu::hide_dock_window(const QString& label)
{
    std::vector<QAction*> items;
    get_dock_items(items);
    set_first_checked(items, label, false);
}

QMenu* OstrelViewMenu::get_toolbar_menu() const
{
    return mToolbarMenu;
}

void OstrelViewMenu::view_command(bool visible)
{
    QDockWidget* const dock = mMainWindow->mCommandLineDock;
    if (!dock)
        return;
    if (visible)
        dock->show();
    else
        dock->hide();
}

void OstrelViewMenu::lineup_tools() {}
