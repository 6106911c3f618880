// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"
#include "workbench/sdk/core/scene/SceneShape.h"

#include <QImage>
#include <QList>
#include <QObject>
#include <QSize>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>

namespace fennar {

/**
 * What there is to see and to select, between those who have something to show and those who show it.
 *
 * Neither side knows the other: components that own things add an item for each; a view shows the items; and
 * either may come and go at any time. An item has an id, which is never used again, and a name, which is for
 * its owner to keep unique.
 *
 * What costs much, the shapes, is needed only while somebody looks: see has_viewers().
 *
 * The application has one scene, instance(). GUI thread only.
 */
class FENNAR_CORE_EXPORT Scene : public QObject
{
    Q_OBJECT

public:
    /** One thing to see and to select. */
    struct Item
    {
        /** Never used again, also when the item has gone. */
        int id = 0;
        /** What users call it. */
        QString name;
        /** Null until the owner has one. The lines are the edges of the thing. */
        std::shared_ptr<const SceneShape> shape;
        /** The surface of the mesh; null if there is none. The lines are the edges of its elements. */
        std::shared_ptr<const SceneShape> mesh;
        /** Whether it is selected. */
        bool selected = false;
    };

    /** The application's scene; made at the first call. */
    static Scene& instance();

    /** Adds an item without a shape, not selected, and returns its id. */
    int add(const QString& name);
    /** Removes an item. Does nothing if there is none of that id, as all functions below. */
    void remove(int id);
    /** Gives an item another name. */
    void set_name(int id, const QString& name);
    /** Sets what is seen of an item; null for nothing. */
    void set_shape(int id, const std::shared_ptr<const SceneShape>& shape);
    /** Sets the surface of an item's mesh; null for none. */
    void set_mesh(int id, const std::shared_ptr<const SceneShape>& mesh);

    /** All items by their ids. */
    const std::map<int, Item>& items() const { return mItems; }
    /** The id of the first item of that name; 0 if there is none. */
    int find(const QString& name) const;
    /** Around all shapes; empty if there are none. */
    Box3 box() const;

    /** Selects these items and no others. Ids that do not exist are left out. */
    void select(const QList<int>& ids);
    /** The names of the selected items, in the order of their ids. */
    QStringList selection() const;

    /** Whether somebody shows the items, so that shapes are of use. */
    bool has_viewers() const { return mViewers > 0; }
    /** To be called by a view when it begins to show the items. */
    void add_viewer();
    /** To be called by a view when it no longer does; once for each add_viewer(). */
    void remove_viewer();

    /** Whether shapes or meshes that viewers want are still to come. */
    bool is_awaited() const { return mWorkers > 0; }
    /** Draws a scene, all of it, from a standard direction, so large; null if that fails. It needs no window.
     */
    using Painter = std::function<QImage(const Scene& scene, const QSize& size)>;
    /** Offers to draw pictures, in the place of who has offered it before; null for nobody. */
    void set_painter(const Painter& painter) { mPainter = painter; }
    /** Null if nobody offers it. */
    const Painter& painter() const { return mPainter; }

    /** To be called by an owner of items when it begins to make what viewers want. */
    void begin_work() { ++mWorkers; }
    /** To be called when all of it is there or nobody wants it; once for each begin_work(). */
    void end_work() { mWorkers = std::max(0, mWorkers - 1); }

signals:
    /** The item has come, has changed, or has gone. A change of what is selected does not count. */
    void item_changed(int id);
    /** Other items are selected. */
    void selection_changed();
    /** The first viewer has come, or the last one has gone. */
    void viewers_changed();

private:
    template <typename Value>
    Q_DECL_HIDDEN void set(int id, Value Item::*part, const Value& value);

    std::map<int, Item> mItems;
    int mLastId = 0;
    int mViewers = 0;
    int mWorkers = 0;
    Painter mPainter;
};

} // namespace fennar
