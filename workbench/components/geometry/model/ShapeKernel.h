// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/model/Shape.h"
#include "workbench/components/geometry/model/tessellate.h"

namespace fennar::geometry {

/** A shape as the kernel has it: does what Shape and prepare_tessellation() say. */
class Shape::Body
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

/**
 * What makes shapes, each as the function of Shape with its name says.
 *
 * It is a module of its own, beside the programs of this component, since its libraries take twice as long to
 * load as the whole program does without them: that is for the first shape.
 */
class ShapeKernel
{
public:
    virtual ~ShapeKernel() = default;
    virtual Shape brick(const Point3& size, const Point3& center) const = 0;
    virtual Shape cylinder(double radius, double height, const Point3& center, const Point3& axis) const = 0;
    virtual Shape sphere(double radius, const Point3& center) const = 0;
    virtual Shape cone(double bottom_radius, double top_radius, double height, const Point3& center,
                       const Point3& axis) const = 0;
    virtual Shape torus(double radius, double tube_radius, const Point3& center,
                        const Point3& axis) const = 0;
    virtual Shape united(const QList<Shape>& shapes, const ShapeListener& listener) const = 0;
    virtual Shape subtracted(const QList<Shape>& shapes, const ShapeListener& listener) const = 0;
    virtual Shape intersected(const QList<Shape>& shapes, const ShapeListener& listener) const = 0;
    virtual Shape joined(const QList<Shape>& shapes) const = 0;
    /** @param brep  is whole. */
    virtual Shape from_brep(const QByteArray& brep) const = 0;

    /** The only one; it stays until the program ends. Throws a GeometryError if it cannot be loaded. */
    static const ShapeKernel& get();
};

} // namespace fennar::geometry
