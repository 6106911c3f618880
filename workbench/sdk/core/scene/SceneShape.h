// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"
#include "workbench/sdk/core/scene/Point3.h"

#include <QVector3D>

#include <vector>

namespace fennar {

/**
 * Triangles and lines to be shown. All coordinates but the origin's are relative to the origin, so that
 * single precision is enough also far from 0.
 *
 * It must not change any more once it is part of a Scene.
 */
struct FENNAR_CORE_EXPORT SceneShape
{
    /** What all other coordinates count from, in the units of the model. */
    Point3 origin;
    /** The corners of the triangles, three for each. */
    std::vector<QVector3D> corners;
    /** The directions that the surface has at the corners, of length 1; as many as corners. */
    std::vector<QVector3D> normals;
    /** The ends of straight pieces of lines, two for each. */
    std::vector<QVector3D> lines;
    /** Lines on what is curved, where there is no edge: they are drawn where edges are all that is seen. Two
     * for each piece; see update_curves(). */
    std::vector<QVector3D> curves;
    /** Around corners and lines; see update_box(). */
    Box3 box;

    /** Sets the box from the corners and lines. */
    void update_box();
    /**
     * Sets the curves: where the planes across the middle of the box, one along each two axes, cut triangles
     * whose normals differ. A sphere gets three circles. To be called when the box is right.
     */
    void update_curves();
};

} // namespace fennar
