// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/NavigationNode.h"

#include "workbench/host/navigation/FormServices.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

#include <utility>

using namespace fennar;

const QIcon& NavigationPicture::icon()
{
    if (mIcon.isNull())
        mIcon = QIcon(mFile);
    return mIcon;
}

NavigationNode::NavigationNode(NavigationKind kind, const QString& title) : QStandardItem(title)
{
    setData(static_cast<int>(kind), NavigationRole::Kind);
    setEditable(false);
}

QVariant NavigationNode::data(int role) const
{
    QVariant value = QStandardItem::data(role);
    if (role == Qt::DecorationRole && mPicture && !value.isValid())
        value = mPicture->icon();
    const CommandRegistry* const registry = form_services().registry;
    if (role == NavigationRole::Tip && !value.isValid() && registry) {
        const QString line = data(NavigationRole::Command).toString();
        if (const auto command = registry->find(line.section(u' ', 0, 0)))
            value = command->translated_summary();
    }
    return value;
}

void NavigationNode::set_picture(std::shared_ptr<NavigationPicture> picture)
{
    mPicture = std::move(picture);
    emitDataChanged();
}

void fennar::recheck_components(QStandardItem* entry)
{
    if (!entry)
        return;
    const QString component = entry->data(NavigationRole::Component).toString();
    entry->setEnabled(component.isEmpty() || is_component_loaded(component));
    for (int row = 0; row < entry->rowCount(); ++row)
        recheck_components(entry->child(row));
}
