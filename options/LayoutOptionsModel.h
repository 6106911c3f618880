// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QAbstractItemModel>
#include <QList>

#include <vector>

class QAction;

/**
 * A flat list of checkable actions: the text of each, with a box that shows whether it is checked and
 * triggers it when clicked. GUI thread only.
 */
class LayoutOptionsModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    using QAbstractItemModel::QAbstractItemModel;

    /**
     * Shows @p actions, sorted by their texts with capitals before small letters.
     *
     * No signal tells views of it: whoever sets the actions renews the view. The actions
     * are not owned; one that is deleted meanwhile leaves the list, of which views are told. Null is passed
     * over.
     */
    void set_actions(const std::vector<QAction*>& actions);

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    /** Triggers the action when @p role is Qt::CheckStateRole, whatever @p value is. */
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    QAction* action(const QModelIndex& index) const;
    void forget(const QObject* action);

    QList<QAction*> mActions;
};
