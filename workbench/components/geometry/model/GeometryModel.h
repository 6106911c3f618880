// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/model/GeometryContents.h"
#include "workbench/components/geometry/model/GmshSession.h"
#include "workbench/components/geometry/model/Mesh.h"

#include <QList>
#include <QObject>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/** The engine's own handles of shapes: their dimensions and tags. */
using EngineTags = std::vector<std::pair<int, int>>;

/** A point or a direction. */
struct Vector
{
    double x = 0;
    double y = 0;
    double z = 0;

    bool operator==(const Vector&) const = default;
};

/** What can be said of a solid. */
struct SolidMeasures
{
    double volume = 0;
    double area = 0;
    /** The corners of a box around the solid, along the axes. Round solids that are turned get some room. */
    Vector least;
    Vector most;
    /** The center of mass. */
    Vector center;
    /** How many volumes that do not hang together the solid consists of. */
    int pieces = 0;
};

/**
 * The solids and the mesh that was made of them.
 *
 * A solid has an id, which is never used again, and a name, which no other solid has. Each is a model of its
 * own for the engine: so solids cannot harm each other, and the time of an operation depends only on those it
 * is about.
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

    GeometryModel();
    ~GeometryModel() override;

    /** Whether @p text could name a solid: a letter or "_", then letters, digits, "_", "-" and ".". */
    static bool is_name(const QString& text);

    /** All ids, the oldest solid first. */
    QList<int> ids() const;
    /** The solid of that id; empty if there is none. */
    std::optional<Solid> solid(int id) const;
    /** The solid of that name; empty if there is none. */
    std::optional<Solid> find(const QString& name) const;
    /** Measured once after each change, so that asking again costs nothing. */
    SolidMeasures measures(int id) const;

    // Solids are made around their center. Each function returns the new solid's id; an empty name stands for
    // the kind of the solid with the id behind it, as "brick1".

    int brick(const Vector& size, const Vector& center = {}, const QString& name = {});
    /** @param axis  the direction from one end to the other; its length does not matter but must not be 0. */
    int cylinder(double radius, double height, const Vector& center = {}, const Vector& axis = {0, 0, 1},
                 const QString& name = {});
    int sphere(double radius, const Vector& center = {}, const QString& name = {});
    /** The bottom comes first; one of the radii may be 0. Equal radii make a cylinder. */
    int cone(double bottom_radius, double top_radius, double height, const Vector& center = {},
             const Vector& axis = {0, 0, 1}, const QString& name = {});
    /** @param radius  to the middle of the tube; must be greater than the tube's. */
    int torus(double radius, double tube_radius, const Vector& center = {}, const Vector& axis = {0, 0, 1},
              const QString& name = {});

    void move(const QList<int>& ids, const Vector& by);
    void rotate(const QList<int>& ids, double degrees, const Vector& point, const Vector& axis);
    int copy(int id, const Vector& by = {}, const QString& name = {});
    void rename(int id, const QString& name);

    // The result takes the place, id and name of the first solid; the others go. The result may have several
    // pieces; an empty one is an error.

    void unite(const QList<int>& ids);
    void subtract(int id, const QList<int>& tools);
    void intersect(const QList<int>& ids);

    void remove(const QList<int>& ids);

    /** Grows with every change of a solid's shape and with every solid that comes or goes. */
    qint64 revision() const { return mRevision; }

    /** The last mesh; null if there is none. It stays when solids change, see Mesh::revision. */
    std::shared_ptr<const Mesh> mesh() const { return mMesh; }
    /** Null removes the mesh. */
    void set_mesh(std::shared_ptr<const Mesh> mesh);

    /** All solids and the mesh, to be saved. */
    GeometryContents contents() const;
    /** Puts these in the place of all that is there. */
    void replace(const GeometryContents& contents);

    /** What the engine has warned of since the last call, one line each. */
    QStringList take_messages() { return mSession.take_messages(); }

    /**
     * Makes a solid of each file in the BREP format: all of them or none.
     *
     * @param name  the name of the solid; where it is taken or there are several, ids stand behind it. Must
     * be one that a solid can have.
     * @return the ids of the new solids.
     */
    QList<int> read_brep(const QStringList& paths, const QString& name);
    /** Writes the solid's shape to a file in the BREP format. */
    void write_brep(int id, const QString& path) const;
    /**
     * Makes the solid's shape the engine's current model, in step with the CAD kernel: for those who read it
     * through the engine's own functions, such as its faces and edges. They must not change it.
     */
    void select(int id) const;

signals:
    /** The solid has come, has changed, or has gone: see solid(). */
    void solid_changed(int id);
    /** There is another mesh, or none any more. */
    void mesh_changed();

private:
    class Draft;
    struct Entry
    {
        QString name;
        /** The engine's name for the solid's model. */
        std::string model;
        /** Whether the engine's model is in step with the CAD kernel's. */
        bool in_step = false;
        std::optional<SolidMeasures> measures;
        /** The shape as it was saved or opened last; empty if it has changed since. To write what was read is
         * not the same: the kernel may round the last bit of a direction. */
        QByteArray brep;
    };
    using Operation = std::function<void()>;
    /** Makes one of several solids, each of which may have several pieces. */
    using Combination = std::function<EngineTags(const std::vector<EngineTags>& solids)>;

    Entry& entry(int id) const;
    void check_ids(const QList<int>& ids) const;
    void check_new_name(const QString& name) const;
    QString name_for(const QString& kind, int id) const;
    int make(const QString& kind, const QString& name, const Operation& operation);
    int add(Draft& draft, const QString& kind, const QString& name);
    void transform(const QList<int>& ids, const std::function<void(const EngineTags&)>& operation);
    void combine(const QList<int>& ids, const QString& nothing_left, const Combination& combination);
    EngineTags load(int id) const;
    void forget(int id);
    void changed(int id);

    GmshSession mSession;
    mutable std::map<int, Entry> mSolids; // what was measured and written is kept there
    std::map<QString, int> mIds;
    std::shared_ptr<const Mesh> mMesh;
    int mLastId = 0;
    /** Gives the engine's models names that are never used again. */
    int mLastModel = 0;
    qint64 mRevision = 0;
};
