// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/navigation/NavigationNode.h"

#include "workbench/navigation/NavigationComponents.h"

NavigationNode::NavigationNode(NavigationKind kind, const QString& title) : QStandardItem(title)
{
    setData(static_cast<int>(kind), NavigationRole::Kind);
    setEditable(false);
}

int NavigationNode::type() const
{
    return UserType;
}

NavigationKind NavigationNode::kind() const
{
    return static_cast<NavigationKind>(data(NavigationRole::Kind).toInt());
}

void recheck_components(QStandardItem* entry)
{
    if (!entry)
        return;
    const QString component = entry->data(NavigationRole::Component).toString();
    entry->setEnabled(component.isEmpty() || is_component_loaded(component));
    for (int row = 0; row < entry->rowCount(); ++row)
        recheck_components(entry->child(row));
}
