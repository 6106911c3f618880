// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <QObject>

#include <memory>
#include <vector>

class HelpAboutOstrel;
class MenuSections;
class Ostrel;
class QAction;
class QMenu;
class QWidget;

/**
 * The "Help" menu. Its last entry shows the about dialog; the manuals and help before it are the components'.
 *
 * The main window creates and owns it; components reach it through Ostrel::help_menu(). GUI thread only.
 */
class OSTRELGUI_EXPORT OstrelHelpMenu : public QObject
{
    Q_OBJECT

public:
    /**
     * Makes the about dialog and adds the menu to the menu bar of @p parent, which must not be null. The
     * framework's Python interpreter must exist.
     */
    explicit OstrelHelpMenu(Ostrel* parent);
    /** Leaves the dialog and the menu to the main window. */
    ~OstrelHelpMenu() override;

    /** As HelpAboutOstrel::add_about(). */
    void add_about(QWidget* widget);
    /** As HelpAboutOstrel::remove_about(). */
    void remove_about(QWidget* widget);

    /**
     * Adds a manual, in front of all other entries but earlier manuals.
     *
     * @param action     stays the caller's; null asks for a separator.
     * @param component  the owner mark for remove_component_items(); with null nothing is added.
     */
    void add_manual(QAction* action, const char* component);
    /** Adds an action between the manuals and "About"; otherwise as add_manual(). */
    void add_item(QAction* action, const char* component);
    /** Adds several actions, as add_item() does. A null element asks for a separator. */
    void add_items(std::vector<QAction*>& actions, const char* component);
    /** Removes what was added under that name, and nothing else. Null removes nothing. */
    void remove_component_items(const char* component);

    /** The about dialog, for the host to fill in. Belongs to the main window. */
    HelpAboutOstrel* get_help_about_dialog();

public slots:
    /** Does nothing and is connected to nothing; it keeps a place. */
    void help_tip_of_day();
    /** Shows the about dialog, modal, with what was set last. One that is open comes to the front. */
    void help_about();

private:
    HelpAboutOstrel* mAboutDialog;
    std::unique_ptr<MenuSections> mSections;
    QMenu* mMenu = nullptr;
    QAction* mAboutAction = nullptr;
};
