// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/pick.h"

#include <limits>

namespace fennar::graphics {

namespace {

/** Whether a surface could be seen at the point of the view. */
bool may_be_at(const Box3& seen, double x, double y)
{
    return x >= seen.least.x && x <= seen.most.x && y >= seen.least.y && y <= seen.most.y;
}

/** The greatest z of the surface at the point of the view; minus infinity if it is not there. */
double height_at(const SceneShape& shape, const Camera& camera, double x, double y)
{
    double result = -std::numeric_limits<double>::infinity();
    const Point3 origin = camera.to_view(shape.origin) - Point3{x, y, 0};
    // The corners relative to the point.
    const auto place = [&](const QVector3D& corner) {
        return origin + camera.turned({corner.x(), corner.y(), corner.z()});
    };
    for (std::size_t i = 0; i + 2 < shape.corners.size(); i += 3) {
        const Point3 a = place(shape.corners[i]);
        const Point3 b = place(shape.corners[i + 1]);
        const Point3 c = place(shape.corners[i + 2]);
        const double u = b.x * c.y - c.x * b.y;
        const double v = c.x * a.y - a.x * c.y;
        const double w = a.x * b.y - b.x * a.y;
        const double sum = u + v + w;
        if (sum == 0 || (u < 0 || v < 0 || w < 0) == (u > 0 || v > 0 || w > 0))
            continue;
        result = std::max(result, (a.z * u + b.z * v + c.z * w) / sum);
    }
    return result;
}

} // namespace

int pick(const Scene& scene, const Camera& camera, const DisplayOptions& display, const QPointF& pixel)
{
    const double x = (pixel.x() - camera.viewport().width() / 2) * camera.units_per_pixel();
    const double y = (camera.viewport().height() / 2 - pixel.y()) * camera.units_per_pixel();
    int result = 0;
    double nearest = -std::numeric_limits<double>::infinity();
    for (const auto& [id, item] : scene.items()) {
        const auto& surface = display.surface(item);
        if (!surface || !may_be_at(camera.to_view(surface->box), x, y))
            continue;
        const double height = height_at(*surface, camera, x, y);
        if (height > nearest) {
            nearest = height;
            result = id;
        }
    }
    return result;
}

} // namespace fennar::graphics
