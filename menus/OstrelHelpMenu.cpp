// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "menus/OstrelHelpMenu.h"

#include "frame/MenuSections.h"
#include "frame/Ostrel.h"
#include "menus/HelpAboutOstrel.h"
#include "menus/raise_open_dialog.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

OstrelHelpMenu::OstrelHelpMenu(Ostrel* parent) : QObject(parent), mAboutDialog(new HelpAboutOstrel(parent))
{
    mSections = std::make_unique<MenuSections>(tr("&Help"));
    setObjectName(u"OstrelHelpMenu"_s);
    mMenu = parent->menuBar()->addMenu(tr("&Help"));

    mAboutAction = new QAction(this);
    mAboutAction->setObjectName(u"mAboutAction"_s);
    mAboutAction->setText(tr("&About"));
    connect(mAboutAction, &QAction::triggered, this, &OstrelHelpMenu::help_about);

    mSections->set_menu(mMenu, nullptr);
    mSections->add_section("helpManual", -1);
    mSections->add_section("helpGeneral", -1);
    mSections->add_item(mAboutAction, "helpAbout", "helpAbout");
}

OstrelHelpMenu::~OstrelHelpMenu() = default;

void OstrelHelpMenu::add_about(QWidget* widget)
{
    mAboutDialog->add_about(widget);
}

void OstrelHelpMenu::remove_about(QWidget* widget)
{
    mAboutDialog->remove_about(widget);
}

void OstrelHelpMenu::add_manual(QAction* action, const char* component)
{
    if (mSections)
        mSections->add_item(action, component, "helpManual");
}

void OstrelHelpMenu::add_item(QAction* action, const char* component)
{
    if (mSections)
        mSections->add_item(action, component, "helpGeneral");
}

void OstrelHelpMenu::add_items(std::vector<QAction*>& actions, const char* component)
{
    if (mSections)
        mSections->add_items(actions, component, "helpGeneral");
}

void OstrelHelpMenu::remove_component_items(const char* component)
{
    if (mSections)
        mSections->remove_items(component);
}

HelpAboutOstrel* OstrelHelpMenu::get_help_about_dialog()
{
    return mAboutDialog;
}

void OstrelHelpMenu::help_tip_of_day() {}

void OstrelHelpMenu::help_about()
{
    if (!mAboutDialog || raise_open_dialog(mAboutDialog))
        return;
    // It is modal while it runs only: one that has not come up yet, or has just been closed, runs on.
    if (mAboutDialog->isModal())
        return;
    mAboutDialog->finish_populating_dialog();
    mAboutDialog->exec();
}
