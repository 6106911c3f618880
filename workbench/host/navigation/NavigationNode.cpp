// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/NavigationNode.h"

#include "workbench/host/navigation/NavigationComponents.h"

#include <utility>

NavigationPicture::NavigationPicture(const QString& file) : mFile(file) {}

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

int NavigationNode::type() const
{
    return UserType;
}

QVariant NavigationNode::data(int role) const
{
    QVariant value = QStandardItem::data(role);
    if (role == Qt::DecorationRole && mPicture && !value.isValid())
        value = mPicture->icon();
    return value;
}

void NavigationNode::set_picture(std::shared_ptr<NavigationPicture> picture)
{
    mPicture = std::move(picture);
    emitDataChanged();
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
