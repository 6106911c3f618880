// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QMap>
#include <QString>

#include <vector>

class MenuSections;
class Ostrel;
class QAction;

/** The menus and toolbars that components have made in the main window. Owns the lists, not the widgets. */
struct ComponentBars
{
    ComponentBars() = default;
    ~ComponentBars();
    Q_DISABLE_COPY_MOVE(ComponentBars)

    /** By object name. */
    QMap<QString, MenuSections*> toolbars;
    /** By title. */
    QMap<QString, MenuSections*> menus;
};

// These are what the functions of Ostrel with such names do with component menus and toolbars. The owner mark
// is not null. The window owns the lists; whoever is told of a change may delete it.

/** Adds to the component menu of that title, which is made if there is none; see Ostrel::add_to_menu(). */
void add_to_component_menu(Ostrel& window, ComponentBars& bars, const QString& title,
                           const std::vector<QAction*>& actions, const char* component);
/** Adds to the toolbar of that name, which is made if there is none; see Ostrel::add_to_toolbar(). */
void add_to_component_toolbar(Ostrel& window, ComponentBars& bars, const QString& name, const QString& title,
                              const std::vector<QAction*>& actions, const char* component,
                              Qt::ToolBarArea area);
/** Takes what @p component has out of the component menus; see Ostrel::remove_menu_items(). */
void remove_component_menu_items(const Ostrel& window, ComponentBars& bars, const char* component);
/** Takes what @p component has off the toolbars; see Ostrel::remove_toolbar_items(). */
void remove_component_toolbar_items(const Ostrel& window, ComponentBars& bars, const char* component);
/** Presses a button of a toolbar; see Ostrel::push_tool_button(). */
void push_component_button(ComponentBars& bars, const QString& toolbar, const QString& button, bool on);
