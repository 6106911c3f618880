// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/model/mesh_shape.h"

namespace fennar::geometry {

std::shared_ptr<const SceneShape> mesh_shape(const Surface& surface)
{
    auto shape = std::make_shared<SceneShape>();
    const auto point = [&surface](std::uint32_t corner) {
        const std::array<double, 3>& place = surface.points[corner];
        return Point3{place[0], place[1], place[2]};
    };
    Box3 box;
    for (const auto& triangle : surface.triangles) {
        for (const std::uint32_t corner : triangle)
            box.add(point(corner));
    }
    if (box.empty())
        return shape;
    shape->origin = box.center();
    const auto place = [&](std::uint32_t corner) {
        const Point3 from_origin = point(corner) - shape->origin;
        return QVector3D(float(from_origin.x), float(from_origin.y), float(from_origin.z));
    };
    for (const auto& triangle : surface.triangles) {
        const std::array<QVector3D, 3> corners = {place(triangle[0]), place(triangle[1]), place(triangle[2])};
        const QVector3D normal = QVector3D::normal(corners[0], corners[1], corners[2]);
        for (std::size_t i = 0; i < 3; ++i) {
            shape->corners.push_back(corners[i]);
            shape->normals.push_back(normal);
            if (triangle[i] < triangle[(i + 1) % 3]) {
                shape->lines.push_back(corners[i]);
                shape->lines.push_back(corners[(i + 1) % 3]);
            }
        }
    }
    shape->update_box();
    return shape;
}

} // namespace fennar::geometry
