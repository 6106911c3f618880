// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "options/LayoutOptionsModel.h"

#include "frame/Alive.h"

#include <QAction>

#include <algorithm>

using namespace Qt::StringLiterals;

void LayoutOptionsModel::set_actions(const std::vector<QAction*>& actions)
{
    for (QAction* action : std::as_const(mActions)) {
        // Null is one that dies while views are told of it.
        if (action)
            action->disconnect(this);
    }
    mActions.clear();
    for (QAction* action : actions) {
        if (!action)
            continue;
        mActions.append(action);
        connect(action, &QObject::destroyed, this, &LayoutOptionsModel::forget);
    }
    std::stable_sort(mActions.begin(), mActions.end(),
                     [](const QAction* a, const QAction* b) { return a->text() < b->text(); });
}

QModelIndex LayoutOptionsModel::index(int row, int column, const QModelIndex& parent) const
{
    return row >= 0 && row < mActions.size() && column == 0 && !parent.isValid() ? createIndex(row, column)
                                                                                 : QModelIndex();
}

QModelIndex LayoutOptionsModel::parent(const QModelIndex&) const
{
    return {};
}

int LayoutOptionsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(mActions.size());
}

int LayoutOptionsModel::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant LayoutOptionsModel::data(const QModelIndex& index, int role) const
{
    const QAction* const shown = action(index);
    if (!shown)
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return shown->text();
    case Qt::CheckStateRole:
        return static_cast<int>(shown->isChecked() ? Qt::Checked : Qt::Unchecked);
    default:
        return {};
    }
}

bool LayoutOptionsModel::setData(const QModelIndex& index, const QVariant&, int role)
{
    QAction* const clicked = action(index);
    if (!clicked || role != Qt::CheckStateRole)
        return false;
    clicked->activate(QAction::Trigger);
    return true;
}

QVariant LayoutOptionsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section == 0 && orientation == Qt::Horizontal && (role == Qt::DisplayRole || role == Qt::EditRole))
        return u"Name"_s;
    return {};
}

Qt::ItemFlags LayoutOptionsModel::flags(const QModelIndex& index) const
{
    const Qt::ItemFlags flags = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    return action(index) ? flags | Qt::ItemIsUserCheckable : flags;
}

/** The action of an index of this model; null for any other. */
QAction* LayoutOptionsModel::action(const QModelIndex& index) const
{
    // No signal tells of lists that are set, so that an index may be out of date.
    const bool known =
        index.isValid() && index.model() == this && index.column() == 0 && index.row() < mActions.size();
    return known ? mActions[index.row()] : nullptr;
}

void LayoutOptionsModel::forget(const QObject* action)
{
    const Alive alive(this);
    for (int row = 0; alive && row < mActions.size();) {
        if (static_cast<const QObject*>(mActions[row]) != action) {
            ++row;
            continue;
        }
        // Views may still ask for the row while they are told, and there is nothing left to read of the
        // action.
        mActions[row] = nullptr;
        beginRemoveRows({}, row, row);
        // Not by its row: whoever is told may have set other actions.
        mActions.removeOne(nullptr);
        endRemoveRows();
    }
}
