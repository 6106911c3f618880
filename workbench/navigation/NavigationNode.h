// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/navigation/NavigationRoles.h"

#include <QStandardItem>

/**
 * An entry that was read from a navigation file: a page, a group or a command.
 *
 * Users cannot edit it. The model, or the node above, owns it.
 */
class NavigationNode : public QStandardItem
{
public:
    NavigationNode(NavigationKind kind, const QString& title);

    int type() const override;

    NavigationKind kind() const;
};

/**
 * Decides again whether @p entry and all entries below it wait for a component: an entry is enabled exactly
 * when it names no component or one that is loaded. Null does nothing.
 */
void recheck_components(QStandardItem* entry);
