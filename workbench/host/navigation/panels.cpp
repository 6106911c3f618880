// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/BreadcrumbsPanel.h"
#include "host/navigation/CommandButtonPanel.h"
#include "host/navigation/CommandButtons.h"
#include "host/navigation/NavigationModel.h"
#include "workbench/host/navigation/ButtonRows.h"
#include "workbench/host/navigation/LevelView.h"

using namespace fennar;

TaskPanel::TaskPanel(QWidget* parent) : QWidget(parent) {}

TaskPanel::~TaskPanel() = default;

struct BreadcrumbsPanel::Private
{
    LevelView* view; // a child of the panel
};

BreadcrumbsPanel::BreadcrumbsPanel(QWidget* parent)
    : TaskPanel(parent), mPrivate(std::make_unique<Private>(Private{new LevelView(this)}))
{}

BreadcrumbsPanel::~BreadcrumbsPanel() = default;

void BreadcrumbsPanel::set_model(NavigationModel* model, const QModelIndex& root)
{
    mPrivate->view->cursor().set_model(model, root);
}

QModelIndex BreadcrumbsPanel::root_index() const
{
    return mPrivate->view->cursor().root();
}

QModelIndex BreadcrumbsPanel::current_index() const
{
    return mPrivate->view->cursor().current();
}

void BreadcrumbsPanel::set_current_index(const QModelIndex& index)
{
    mPrivate->view->cursor().go_to(index);
}

void BreadcrumbsPanel::setUsingLargeIcons(bool large)
{
    usingLargeIcons = large;
    mPrivate->view->set_large_icons(large);
}

int CommandButtons::mPanelButtonWidth = 36;

struct CommandButtonPanel::Private
{
    explicit Private(CommandButtonPanel* panel)
        : view(new ButtonRows(CommandButtons::mPanelButtonWidth, panel))
    {}

    ButtonRows* view; // a child of the panel
};

CommandButtonPanel::CommandButtonPanel(QWidget* parent)
    : TaskPanel(parent), mPrivate(std::make_unique<Private>(this))
{}

CommandButtonPanel::~CommandButtonPanel() = default;

void CommandButtonPanel::set_model(NavigationModel* model, const QModelIndex& root)
{
    mPrivate->view->cursor().set_model(model, root);
}

QModelIndex CommandButtonPanel::root_index() const
{
    return mPrivate->view->cursor().root();
}

QModelIndex CommandButtonPanel::current_index() const
{
    return mPrivate->view->cursor().current();
}

void CommandButtonPanel::set_current_index(const QModelIndex& index)
{
    mPrivate->view->cursor().go_to(index);
}
