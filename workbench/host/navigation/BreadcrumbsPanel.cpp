// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/BreadcrumbsPanel.h"

#include "host/navigation/NavigationModel.h"
#include "workbench/host/navigation/LevelView.h"

using namespace fennar;

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
