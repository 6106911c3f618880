// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "menus/OstrelToolsMenu.h"

#include "frame/Alive.h"
#include "frame/InUse.h"
#include "frame/MenuSections.h"
#include "frame/Ostrel.h"
#include "host/fennari19/FennarInterface.h"
#include "journal/JournalEditor.h"
#include "menus/raise_open_dialog.h"
#include "options/ComponentTool.h"
#include "options/OptionsPanel.h"
#include "resources/load_icon.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>

using namespace Qt::StringLiterals;

OstrelToolsMenu::OstrelToolsMenu(Ostrel* parent) : QObject(parent), mMainWindow(parent)
{
    setObjectName(u"OstrelToolsMenu"_s);
    mSections = std::make_unique<MenuSections>(tr("&Tools"));
    mMenu = new QMenu(tr("&Tools"), mMainWindow);
    mMenu->setObjectName(u"Tools"_s);

    mScriptAction = new QAction(this);
    mScriptAction->setObjectName(u"mScriptAction"_s);
    mScriptAction->setText(tr("&Journal Editor"));
    mScriptAction->setToolTip(tr("Journal Editor"));
    mScriptAction->setIcon(load_icon("script.svg"));

    mPlayAction = new QAction(this);
    mPlayAction->setObjectName(u"mPlayAction"_s);
    mPlayAction->setText(tr("&Play Journal File"));
    mPlayAction->setToolTip(tr("Play Journal File"));
    mPlayAction->setIcon(load_icon("scriptplay_ot.svg"));

    mPlayFennarAction = new QAction(this);
    mPlayFennarAction->setObjectName(u"mPlayFennarAction"_s);
    mPlayFennarAction->setText(tr("Play ID-less Fennar Journal File"));
    mPlayFennarAction->setIcon(load_icon("scriptplayfennar_ot.svg"));
    mPlayFennarAction->setVisible(false);

    mPauseAction = new QAction(this);
    mPauseAction->setObjectName(u"mPauseAction"_s);
    mPauseAction->setText(tr("Pause Script"));
    mPauseAction->setToolTip(tr("Pause Script Playback (Ctrl+I)"));
    mPauseAction->setIcon(load_icon("pause_ot.svg"));
    mPauseAction->setCheckable(true);
    // Not translated, although the tool tip that spells it is.
    mPauseAction->setShortcut(QKeySequence(u"Ctrl+I"_s));

    mComponentAction = new QAction(this);
    mComponentAction->setObjectName(u"mComponentAction"_s);
    mComponentAction->setText(tr("Plu&gins..."));
    mComponentAction->setToolTip(tr("Plugin Tool"));

    mOptionsAction = new QAction(this);
    mOptionsAction->setObjectName(u"mOptionsAction"_s);
    mOptionsAction->setText(tr("&Options..."));
    mOptionsAction->setToolTip(tr("Set program options"));

    QAction* const bar_action = mMainWindow->menuBar()->addMenu(mMenu);

    connect(mScriptAction, &QAction::triggered, this, &OstrelToolsMenu::show_journal_editor);
    connect(mPauseAction, &QAction::toggled, this, &OstrelToolsMenu::pause_playback);
    connect(mComponentAction, &QAction::triggered, this, &OstrelToolsMenu::show_component_tool);
    connect(mOptionsAction, &QAction::triggered, this, &OstrelToolsMenu::run_options);

    mSections->set_menu(mMenu, bar_action);
    std::vector<QAction*> general{mScriptAction, mPlayAction};
    mSections->add_items(general, "toolsGeneral", "toolsGeneral");
    std::vector<QAction*> special{mComponentAction, mOptionsAction};
    mSections->add_items(special, "toolsSpecial", "toolsSpecial");
}

OstrelToolsMenu::~OstrelToolsMenu()
{
    mSections.reset();
    if (!InUse::spare(mComponentTool))
        delete mComponentTool;
    delete mMenu;
}

void OstrelToolsMenu::add_item(QAction* action, const char* component)
{
    if (mSections)
        mSections->add_item(action, component, "toolsGeneral");
}

void OstrelToolsMenu::add_items(std::vector<QAction*>& actions, const char* component)
{
    if (mSections)
        mSections->add_items(actions, component, "toolsGeneral");
}

void OstrelToolsMenu::remove_component_items(const char* component)
{
    if (mSections)
        mSections->remove_items(component);
}

void OstrelToolsMenu::get_items_for_toolbar(std::vector<QAction*>& items)
{
    for (QAction* action : {mScriptAction, mPlayAction, mPlayFennarAction, mPauseAction})
        if (action)
            items.push_back(action);
}

QAction* OstrelToolsMenu::play_action()
{
    return mPlayAction;
}

QAction* OstrelToolsMenu::pause_action()
{
    return mPauseAction;
}

void OstrelToolsMenu::show_journal_editor()
{
    JournalEditor* const editor = mMainWindow->journal_editor();
    if (!editor)
        return;
    const Alive alive(editor);
    if (editor->isMinimized())
        editor->showNormal();
    else
        editor->show();
    if (alive)
        editor->activateWindow();
}

void OstrelToolsMenu::pause_playback(bool on)
{
    if (on) {
        FennarInterface::pause_playback();
        return;
    }
    FennarInterface::resume_playback();
    // The action of the main window's menu, which is not always this one. If playback stays paused this
    // toggles it, and the pause is asked for once more (docs/surprises.md).
    const Ostrel* const window = Ostrel::instance();
    if (!window || !window->tools_menu())
        return;
    const QPointer<QAction> action = window->tools_menu()->pause_action();
    const bool paused = FennarInterface::is_playback_paused();
    if (action)
        action->setChecked(paused);
}

void OstrelToolsMenu::show_component_tool()
{
    if (!mComponentTool) {
        mComponentTool = new ComponentTool(mMainWindow);
        connect(mComponentTool, &QObject::destroyed, this, [this] { mComponentTool = nullptr; });
    }
    mComponentTool->show();
}

void OstrelToolsMenu::run_options()
{
    OptionsPanel* const panel = mMainWindow->options();
    if (!panel)
        return;
    // What the user has set in it so far stays.
    if (raise_open_dialog(panel))
        return;
    const Alive alive(panel);
    panel->refresh_settings();
    if (alive)
        panel->select_first();
    if (alive)
        panel->exec();
}
