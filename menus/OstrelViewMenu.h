// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

class MenuSections;
class Ostrel;
class QAction;
class QMenu;

/**
 * The "View" menu, where toolbars and docks are switched on and off, and the way to find them by their
 * labels.
 *
 * The main window creates and owns it; components reach it through Ostrel::view_menu(). It keeps no state of
 * what is visible: its entries are the toggle actions of the docks and toolbars themselves.
 *
 * Labels are compared whole and case-sensitively. GUI thread only.
 */
class OSTRELGUI_EXPORT OstrelViewMenu : public QObject
{
    Q_OBJECT

public:
    /** Adds the menu to the menu bar of @p parent, which must not be null. */
    explicit OstrelViewMenu(Ostrel* parent);
    /** Takes the menu along, but not the submenu of the toolbars. */
    ~OstrelViewMenu() override;

    /**
     * Adds an action behind the toolbars and docks.
     *
     * @param action     stays the caller's; null asks for a separator.
     * @param component  the owner mark for remove_component_items(); with null nothing is added.
     */
    void add_item(QAction* action, const char* component);
    /** Adds several actions, as add_item() does. A null element asks for a separator. */
    void add_items(std::vector<QAction*>& actions, const char* component);
    /** Adds the toggle action of a dock behind those of the other docks; otherwise as add_item(). */
    void add_dock_item(QAction* action, const char* component);
    /** Removes what was added under that name, and nothing of the toolbars' submenu. Null removes nothing. */
    void remove_component_items(const char* component);

    /** Appends the actions of the docks, without separators. */
    void get_dock_items(std::vector<QAction*>& items);
    /** Appends the actions of the toolbars' submenu. */
    void get_toolbar_items(std::vector<QAction*>& items);
    /** Appends the titles of all toolbars inside the main window; two of the same title appear twice. */
    void get_toolbar_labels(std::vector<QString>& labels);
    /** Appends the present texts of the docks' actions, which need not be the docks' titles. */
    void get_dock_labels(std::vector<QString>& labels);

    /** Shows the first toolbar of that title. Does nothing if there is none. */
    void show_toolbar(const QString& label);
    /** Hides the first toolbar of that title. Does nothing if there is none. */
    void hide_toolbar(const QString& label);
    /** Checks the first dock action of that text, as get_dock_labels() gives it. Does nothing if there is
     * none.
     */
    void show_dock_window(const QString& label);
    /** Unchecks the first dock action of that text. Does nothing if there is none. */
    void hide_dock_window(const QString& label);

    /** The submenu of the toolbars. It outlives this object: nobody deletes it. */
    QMenu* get_toolbar_menu() const;

public slots:
    /** Shows or hides the dock of the console. Does nothing if there is none. */
    void view_command(bool visible);
    /** Does nothing: keeps the place of what "Line up" of the main window is to do (docs/surprises.md). */
    void lineup_tools();

private:
    Ostrel* mMainWindow;
    std::unique_ptr<MenuSections> mSections;
    QMenu* mMenu = nullptr;
    QMenu* mToolbarMenu = nullptr;
};
