// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/scene/SceneShape.h"

#include <algorithm>

namespace fennar {

namespace {

/** The least difference of two normals, squared, that makes a triangle part of something curved. */
constexpr float least_bend = 1e-5F;

/** Adds the piece, if there is one, on which the triangle's coordinate @p axis is @p level. */
void cut(const QVector3D* corners, int axis, float level, float slack, std::vector<QVector3D>& pieces)
{
    for (int i = 0; i < 3; ++i) {
        const QVector3D& a = corners[i];
        const QVector3D& b = corners[(i + 1) % 3];
        // A corner in the plane, or as near as makes no difference, counts as above it: so an edge that lies
        // in the plane is cut out once.
        const bool above = a[axis] >= level - slack;
        if (above == (b[axis] >= level - slack))
            continue;
        pieces.push_back(a + (b - a) * std::clamp((level - a[axis]) / (b[axis] - a[axis]), 0.0F, 1.0F));
    }
}

} // namespace

void SceneShape::update_box()
{
    box = {};
    for (const std::vector<QVector3D>* points : {&corners, &lines}) {
        for (const QVector3D& point : *points)
            box.add(origin + Point3{point.x(), point.y(), point.z()});
    }
}

void SceneShape::update_curves()
{
    curves.clear();
    if (box.empty())
        return;
    const Point3 center = box.center() - origin;
    const QVector3D middle{float(center.x), float(center.y), float(center.z)};
    const float slack = float(length(box.most - box.least)) * 1e-5F;
    for (std::size_t i = 0; i + 2 < corners.size() && i + 2 < normals.size(); i += 3) {
        if ((normals[i] - normals[i + 1]).lengthSquared() < least_bend &&
            (normals[i] - normals[i + 2]).lengthSquared() < least_bend)
            continue;
        for (int axis = 0; axis < 3; ++axis)
            cut(&corners[i], axis, middle[axis], slack, curves);
    }
}

} // namespace fennar
