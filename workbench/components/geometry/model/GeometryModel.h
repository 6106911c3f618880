// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/model/Mesh.h"
#include "workbench/components/geometry/model/Shape.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QString>

#include <map>
#include <memory>
#include <optional>

namespace fennar::geometry {

class ShapeKernel;

/** All of a GeometryModel as plain data: what a file of the model holds. */
struct GeometryContents
{
    struct Solid
    {
        int id = 0;
        QString name;
        /** The shape in the BREP format. */
        QByteArray brep;
    };

    /** The greatest id that a solid has ever had; 0 for none. */
    int last_id = 0;
    /** The oldest first: their ids grow. */
    QList<Solid> solids;
    /** Null if there is none. Mesh::revision does not count here. */
    std::shared_ptr<const Mesh> mesh;
    /** How many changes the model has had since it was meshed; 0 for none. */
    qint64 mesh_age = 0;
};

/**
 * The solids and the mesh that was made of them.
 *
 * A solid has an id, which is never used again, and a name, which no other solid has. Its shape
 * never changes: it gets another one.
 *
 * What fails throws a GeometryError and leaves everything as it was. Ids that do not exist, repeated ones,
 * and empty lists of ids are errors. Angles are in degrees. One object at a time, GUI thread only.
 */
class GeometryModel : public QObject
{
    Q_OBJECT

public:
    /** The range of widths, heights and radii: below it the kernel cannot tell points apart. */
    static constexpr double least_length = 1e-5;
    static constexpr double greatest_length = 1e6;
    /** Solids lie within this distance of the origin, along each axis. */
    static constexpr double farthest = 1e7;

    struct Solid
    {
        int id = 0;
        QString name;
    };
    struct Entry
    {
        QString name;
        Shape shape;

        bool operator==(const Entry&) const = default;
    };
    /** A part of the model as it was at some time, or is. */
    struct Part
    {
        /** Solids by their ids; empty where there is none. */
        std::map<int, std::optional<Entry>> solids;
        int last_id = 0;
        std::shared_ptr<const Mesh> mesh;
        qint64 revision = 0;
        qint64 state = 0;
    };

    /** Whether @p text could name a solid: a letter or "_", then letters, digits, "_", "-" and ".". */
    static bool is_name(const QString& text) { return CommandRegistry::is_name(text); }

    /** All ids, the oldest solid first. */
    QList<int> ids() const;
    /** Another number for each model, and after each replace(): with it an id is told from the same one in a
     * model before. */
    qint64 origin() const { return mOrigin; }
    /** The solid of that id; empty if there is none. */
    std::optional<Solid> solid(int id) const;
    /** The solid of that name; empty if there is none. */
    std::optional<Solid> find(const QString& name) const;
    Shape shape(int id) const { return entry(id).shape; }
    /** Measured once after each change, so that asking again costs nothing. */
    SolidMeasures measures(int id) const { return entry(id).shape.measures(); }
    Box3 box(int id) const { return entry(id).shape.box(); }

    // Solids are made around their center. Each function returns the new solid's id; an empty name stands for
    // the kind of the solid with the id behind it, as "brick1".

    int brick(const Point3& size, const Point3& center = {}, const QString& name = {});
    /** @param axis  the direction from one end to the other; its length does not matter but must not be 0. */
    int cylinder(double radius, double height, const Point3& center = {}, const Point3& axis = {0, 0, 1},
                 const QString& name = {});
    int sphere(double radius, const Point3& center = {}, const QString& name = {});
    /** The bottom comes first; one of the radii may be 0. Equal radii make a cylinder. */
    int cone(double bottom_radius, double top_radius, double height, const Point3& center = {},
             const Point3& axis = {0, 0, 1}, const QString& name = {});
    /** @param radius  to the middle of the tube; must be greater than the tube's. */
    int torus(double radius, double tube_radius, const Point3& center = {}, const Point3& axis = {0, 0, 1},
              const QString& name = {});

    void move(const QList<int>& ids, const Point3& by);
    void rotate(const QList<int>& ids, double degrees, const Point3& point, const Point3& axis);
    int copy(int id, const Point3& by = {}, const QString& name = {});
    void rename(int id, const QString& name);

    // The result takes the place, id and name of the first solid; the others go. The result may have several
    // pieces; an empty one is an error.

    void unite(const QList<int>& ids, const ShapeListener& listener = {});
    void subtract(int id, const QList<int>& tools, const ShapeListener& listener = {});
    void intersect(const QList<int>& ids, const ShapeListener& listener = {});

    void remove(const QList<int>& ids);

    /** Grows with every change of a solid's shape and with every solid that comes or goes. */
    qint64 revision() const { return mRevision; }

    /** The last mesh; null if there is none. It stays when solids change, see Mesh::revision. */
    std::shared_ptr<const Mesh> mesh() const { return mMesh; }
    /** Whether the mesh was made of solids and the model has changed since; not without a mesh. */
    bool is_mesh_old() const { return mMesh && mMesh->file.isEmpty() && mMesh->revision != mRevision; }
    /** Null removes the mesh. */
    void set_mesh(std::shared_ptr<const Mesh> mesh);

    /**
     * A number for what the model is. It has another one after each change, and after an undo the one that it
     * had: those that are equal stand for models that are the same.
     */
    qint64 state() const { return mState; }
    /** The solids of these ids and all else, for restore(). */
    Part part(const QList<int>& ids) const;
    /** Puts these solids, and all else, in the place of what is there. The other solids must be those that
     * there were with @p part. */
    void restore(const Part& part);

    /** All solids and the mesh, to be saved. */
    GeometryContents contents() const;
    /** Puts these in the place of all that is there. */
    void replace(const GeometryContents& contents);

    /**
     * Makes a solid of each shape: all of them or none.
     *
     * @param name  the name of the solid; where it is taken or there are several, ids stand behind it. Must
     * be one that a solid can have.
     * @return the ids of the new solids.
     */
    QList<int> add(const QList<Shape>& shapes, const QString& name);

signals:
    /** The solid has come, has changed, or has gone: see solid(). */
    void solid_changed(int id);
    /** There is another mesh, or none any more. */
    void mesh_changed();
    /** All of it was replaced: nothing of what was there can come back. */
    void replaced();

private:
    const Entry& entry(int id) const;
    void check_ids(const QList<int>& ids) const;
    void check_new_name(const QString& name) const;
    QString name_for(const QString& kind, int id) const;
    template <typename Make>
    int make(const QString& kind, const QString& name, const Make& make_shape);
    int insert(const QString& kind, const QString& name, const Shape& shape);
    template <typename Change>
    void transform(const QList<int>& ids, const Change& change);
    using Operation = Shape (ShapeKernel::*)(const QList<Shape>& shapes, const ShapeListener& listener) const;
    void combine(const QList<int>& ids, const QString& nothing_left, Operation operation,
                 const ShapeListener& listener);
    void forget(int id);
    void set_shape(int id, const Shape& shape);
    void tell(int id);
    static qint64 new_origin();

    std::map<int, Entry> mSolids;
    std::map<QString, int> mIds;
    std::shared_ptr<const Mesh> mMesh;
    int mLastId = 0;
    qint64 mOrigin = new_origin();
    qint64 mRevision = 0;
    qint64 mState = 0;
    /** The greatest number of a state so far. */
    qint64 mLastState = 0;
};

} // namespace fennar::geometry
