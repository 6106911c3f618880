// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/NavigationModel.h"

#include "host/navigation/NavigationResourcesDelay.h"
#include "workbench/host/navigation/NavigationNode.h"

using namespace fennar;

NavigationModel::NavigationModel(QObject* parent) : QStandardItemModel(parent) {}

NavigationModel::~NavigationModel() = default;

NavigationResources::~NavigationResources() = default;

NavigationResourcesDelay::NavigationResourcesDelay() = default;

NavigationResourcesDelay::~NavigationResourcesDelay() = default;

void NavigationResourcesDelay::recheckResources()
{
    if (!model)
        return;
    for (int row = 0; row < model->rowCount(); ++row)
        recheck_components(model->item(row));
}
