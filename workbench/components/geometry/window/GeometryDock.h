// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QDockWidget>
#include <QHash>
#include <QStringList>
#include <QTimer>

#include <set>

class QMenu;
class QTreeWidget;
class QTreeWidgetItem;

namespace fennar::geometry {

class GeometryModel;

/**
 * The dock "Model": a tree of the solids with their volumes, and of the mesh.
 *
 * It follows the model, once for all changes that come together. Solids can be selected, and then are in the
 * scene, too, by the command "select"; what is selected there is selected here. The menu of the tree is the
 * owner's to fill.
 */
class GeometryDock : public QDockWidget
{
    Q_OBJECT

public:
    /** @param model  must outlive the dock. */
    GeometryDock(const GeometryModel& model, QWidget* parent);

    /** The names of the selected solids, from top to bottom. */
    QStringList selection() const;
    /** The menu that the tree opens; empty at first. */
    QMenu* context_menu() { return mMenu; }

signals:
    void selection_changed();

private:
    void mark(int id);
    void update_tree();
    void update_solid(int id);
    void update_mesh();
    void send_selection();
    void take_selection();

    const GeometryModel& mModel;
    QTreeWidget* mTree;
    QTreeWidgetItem* mSolids;
    QTreeWidgetItem* mMesh;
    QMenu* mMenu;
    QHash<int, QTreeWidgetItem*> mItems;
    /** The solids that have changed since the last update. */
    std::set<int> mChanged;
    bool mMeshChanged = true;
    QTimer mUpdate;
    /** One command for all that is selected at once. */
    QTimer mSend;
};

} // namespace fennar::geometry
