// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/scene/Point3.h"

#include <QByteArray>
#include <QList>

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

/**
 * The shape of a solid, in one piece or several: a value that never changes. Copies share it, so they cost
 * nothing, and whoever keeps one keeps what it was.
 *
 * The kernel stays behind this class and prepare_tessellation(). What it refuses is thrown as a
 * GeometryError, and so is an operation that the listener has ended. Lengths are in millimeters. GUI thread
 * only.
 */
class Shape
{
public:
    class Body;

    /** None at all: to be assigned to, and for nothing else. */
    Shape() = default;

    // Around their center; directions have the length 1.

    static Shape brick(const Point3& size, const Point3& center);
    static Shape cylinder(double radius, double height, const Point3& center, const Point3& axis);
    static Shape sphere(double radius, const Point3& center);
    /** One of the radii may be 0; they must differ. */
    static Shape cone(double bottom_radius, double top_radius, double height, const Point3& center,
                      const Point3& axis);
    static Shape torus(double radius, double tube_radius, const Point3& center, const Point3& axis);

    Shape moved(const Point3& by) const;
    /** @param angle  in radians. */
    Shape rotated(double angle, const Point3& point, const Point3& axis) const;

    // Empty if nothing is left.

    static Shape united(const QList<Shape>& shapes, const ShapeListener& listener);
    /** The first one without the others. */
    static Shape subtracted(const QList<Shape>& shapes, const ShapeListener& listener);
    static Shape intersected(const QList<Shape>& shapes, const ShapeListener& listener);

    /** All pieces of all shapes together, as they are. */
    static Shape joined(const QList<Shape>& shapes);

    /** Whether there is not one piece. */
    bool empty() const { return !mBody; }
    /** Measured once. The shape must not be empty. */
    const SolidMeasures& measures() const;
    /** The box around it, along the axes, exact to six digits. Measured once: around a torus that takes as
     * long as to load the kernel. */
    const Box3& box() const;
    /** A box that holds it, too, and may be a tenth larger; in no time. */
    Box3 outer_box() const;

    /** Measured anew each time, in the kernel's order, which is the same for the same shape. A face between
     * two pieces counts once. The shape must not be empty. */
    QList<FaceMeasures> faces() const;

    /** All solids of a file in the BREP format; empty if it holds none or is cut off. */
    static Shape from_brep(const QByteArray& brep);
    /** As a file in the BREP format: once from_brep() was given it, the same bytes. The shape must not be
     * empty. */
    QByteArray brep() const;

    /** About how many bytes it takes, what it shares with others included. */
    qint64 memory() const;

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
