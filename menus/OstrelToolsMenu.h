// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <QObject>

#include <memory>
#include <vector>

class ComponentTool;
class MenuSections;
class Ostrel;
class QAction;
class QMenu;

/**
 * The "Tools" menu and the script controls of the toolbar "FileTools".
 *
 * The main window creates and owns it; components reach it through Ostrel::tools_menu(). The menu holds the
 * journal editor, journal playback, the plugin tool and the options, and what components add stands between
 * these two pairs. Pausing and the ID-less playback are on the toolbar only.
 *
 * The two play actions do nothing by themselves: whoever plays journals connects play_action(), and finds
 * the other one by its object name, "mPlayFennarAction". It is hidden until someone shows it.
 *
 * GUI thread only.
 */
class OSTRELGUI_EXPORT OstrelToolsMenu : public QObject
{
    Q_OBJECT

public:
    /** Adds the menu to the menu bar of @p parent, which must not be null. */
    explicit OstrelToolsMenu(Ostrel* parent);
    /** Takes the menu, its actions and the plugin tool along. */
    ~OstrelToolsMenu() override;

    /**
     * Adds an action behind those of the shell's own that play journals, and behind what was added before.
     *
     * @param action     stays the caller's; null asks for a separator.
     * @param component  the owner mark for remove_component_items(); with null nothing is added.
     */
    void add_item(QAction* action, const char* component);
    /** Adds several actions, as add_item() does. A null element asks for a separator. */
    void add_items(std::vector<QAction*>& actions, const char* component);
    /** Removes what was added under that name, and nothing else. Null removes nothing. */
    void remove_component_items(const char* component);

    /** Appends the actions of the toolbar: journal editor, play, play ID-less and pause. */
    void get_items_for_toolbar(std::vector<QAction*>& items);

    /** The action that plays a journal. */
    QAction* play_action();
    /**
     * The checkable action that pauses playback. It is not unchecked when playback ends; whoever wants it to
     * show another state sets it.
     */
    QAction* pause_action();

public slots:
    /** Shows the journal editor and brings it to the front. Does nothing if there is none. */
    void show_journal_editor();
    /**
     * Pauses playback or lets it go on. If it stays paused in spite of the request to go on, the pause action
     * of the main window is checked again, which asks for the pause once more.
     */
    void pause_playback(bool on);
    /** Shows the plugin tool, which is made the first time and is not modal. */
    void show_component_tool();
    /** Opens the options dialog, modal, on its first page. One that is open comes to the front as it is. Does
     * nothing if there is none. */
    void run_options();

private:
    Ostrel* mMainWindow;
    std::unique_ptr<MenuSections> mSections;
    ComponentTool* mComponentTool = nullptr;
    QMenu* mMenu = nullptr;
    QAction* mScriptAction = nullptr;
    QAction* mPlayAction = nullptr;
    QAction* mPauseAction = nullptr;
    QAction* mComponentAction = nullptr;
    QAction* mOptionsAction = nullptr;
    QAction* mPlayFennarAction = nullptr;
};
