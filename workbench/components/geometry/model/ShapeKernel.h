// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/model/Shape.h"

namespace fennar::geometry {

/**
 * What makes shapes. What it refuses is thrown as a GeometryError, and so is an operation that the listener
 * has ended.
 *
 * It is a module of its own, beside the programs of this component, since its libraries take twice as long to
 * load as the whole program does without them: that is for the first shape.
 */
class ShapeKernel
{
public:
    virtual ~ShapeKernel() = default;

    // Around their center; directions have the length 1.

    virtual Shape brick(const Point3& size, const Point3& center) const = 0;
    virtual Shape cylinder(double radius, double height, const Point3& center, const Point3& axis) const = 0;
    virtual Shape sphere(double radius, const Point3& center) const = 0;
    /** One of the radii may be 0; they must differ. */
    virtual Shape cone(double bottom_radius, double top_radius, double height, const Point3& center,
                       const Point3& axis) const = 0;
    virtual Shape torus(double radius, double tube_radius, const Point3& center,
                        const Point3& axis) const = 0;

    // Empty if nothing is left.

    virtual Shape united(const QList<Shape>& shapes, const ShapeListener& listener) const = 0;
    /** The first one without the others. */
    virtual Shape subtracted(const QList<Shape>& shapes, const ShapeListener& listener) const = 0;
    virtual Shape intersected(const QList<Shape>& shapes, const ShapeListener& listener) const = 0;

    /** For Shape::joined(). */
    virtual Shape joined(const QList<Shape>& shapes) const = 0;
    /** For Shape::from_brep(); @p brep is whole. */
    virtual Shape from_brep(const QByteArray& brep) const = 0;

    /** The only one; it stays until the program ends. Throws a GeometryError if it cannot be loaded. */
    static const ShapeKernel& get();
};

} // namespace fennar::geometry
