// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/scene/Point3.h"
#include "workbench/sdk/core/scene/SceneShape.h"

#include <QByteArray>
#include <QList>

#include <atomic>
#include <functional>
#include <memory>

namespace fennar::geometry {

/** What can be said of a solid. */
struct SolidMeasures
{
    double volume = 0;
    double area = 0;
    /** The center of mass. */
    Point3 center;
    /** How many volumes that do not hang together the solid consists of. */
    int pieces = 0;
};

/** What can be said of a face of a solid. */
struct FaceMeasures
{
    double area = 0;
    /** Of the area. */
    Point3 center;
};

/** What the caller of a long operation is told meanwhile, progress first; each may be null. Neither is called
 * at once: most operations are over before anybody could wait for them. */
struct ShapeListener
{
    std::function<void(int percent)> progress;
    /** Called many times a second; false ends the operation. */
    std::function<bool()> go_on;
};

/** Finds the triangles and edges of a shape, on any thread. Null if that fails or @p stop is set meanwhile.
 */
using Tessellation = std::function<std::shared_ptr<const SceneShape>(const std::atomic<bool>& stop)>;

/**
 * The shape of a solid, in one piece or several: a value that never changes. Copies share it, so they cost
 * nothing, and whoever keeps one keeps what it was.
 *
 * ShapeKernel makes shapes, and stays behind this class. What it refuses is thrown as a GeometryError.
 * Lengths are in millimeters. GUI thread only.
 */
class Shape
{
public:
    /** A shape as the kernel has it: each function is for that of Shape with its name. */
    class Body
    {
    public:
        virtual ~Body() = default;
        virtual Shape moved(const Point3& by) const = 0;
        virtual Shape rotated(double angle, const Point3& point, const Point3& axis) const = 0;
        virtual const SolidMeasures& measures() const = 0;
        virtual const Box3& box() const = 0;
        virtual Box3 outer_box() const = 0;
        virtual QList<FaceMeasures> faces() const = 0;
        virtual QByteArray brep() const = 0;
        virtual qint64 memory() const = 0;
        virtual Tessellation prepare_tessellation() const = 0;
    };

    /** None at all: to be assigned to, and for nothing else. */
    Shape() = default;

    /** All pieces of all shapes together, as they are. */
    static Shape joined(const QList<Shape>& shapes);
    /** All solids of a file in the BREP format; empty if it holds none or is cut off. */
    static Shape from_brep(const QByteArray& brep);

    Shape moved(const Point3& by) const { return by == Point3() ? *this : mBody->moved(by); }
    /**
     * @param angle  in radians.
     * @param axis   has the length 1.
     */
    Shape rotated(double angle, const Point3& point, const Point3& axis) const
    {
        return angle == 0 ? *this : mBody->rotated(angle, point, axis);
    }

    /** Whether there is not one piece. */
    bool empty() const { return !mBody; }
    /** Measured once. The shape must not be empty. */
    const SolidMeasures& measures() const { return mBody->measures(); }
    /** The box around it, along the axes, exact to six digits. Measured once: around a torus that takes as
     * long as to load the kernel. */
    const Box3& box() const { return mBody->box(); }
    /** A box that holds it, too, and may be much larger around what is round; in no time. */
    Box3 outer_box() const { return mBody->outer_box(); }

    /** Measured anew each time, in the kernel's order, which is the same for the same shape. A face between
     * two pieces counts once. The shape must not be empty. */
    QList<FaceMeasures> faces() const { return mBody->faces(); }

    /** As a file in the BREP format: once from_brep() was given it, the same bytes. The shape must not be
     * empty. */
    QByteArray brep() const { return mBody->brep(); }

    /** About how many bytes it takes, what it shares with others included. */
    qint64 memory() const { return mBody->memory(); }

    /** Copies the shape, which must not be empty, so that another thread can work on it: the kernel writes
     * its triangles into what it works on. */
    Tessellation prepare_tessellation() const { return mBody->prepare_tessellation(); }

    /** Whether it is the very same shape, not one that looks the same. */
    bool operator==(const Shape&) const = default;

    // For the kernel.

    /** Empty with null. */
    explicit Shape(std::shared_ptr<const Body> body) : mBody(std::move(body)) {}
    const Body* body() const { return mBody.get(); }

private:
    std::shared_ptr<const Body> mBody;
};

} // namespace fennar::geometry
