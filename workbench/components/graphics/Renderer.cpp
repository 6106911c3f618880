// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/Renderer.h"

#include <algorithm>
#include <cmath>

namespace fennar::graphics {

double Picture::depth() const
{
    double depth = 0;
    for (const auto& [id, item] : scene.items()) {
        for (const SceneShape* shape : {item.shape.get(), item.mesh.get()}) {
            if (!shape || shape->box.empty())
                continue;
            for (int i = 0; i < 8; ++i)
                depth = std::max(depth, std::abs(camera.to_view(shape->box.corner(i)).z));
        }
    }
    return depth * 1.01 + 1e-9;
}

PictureParts PictureParts::of(const Scene::Item& item, const Picture& picture)
{
    const DisplayOptions& display = picture.display;
    const ViewColours& colours = picture.colours;
    const bool meshed = display.mesh && item.mesh;
    PictureParts parts;
    if (display.shaded)
        parts.surface = display.surface(item);
    parts.surface_colour = item.selected ? colours.selected : meshed ? colours.mesh : colours.solid;
    if (meshed)
        parts.mesh_lines = item.mesh.get();
    parts.mesh_line_colour = item.selected ? colours.selected_edge : colours.mesh_line;
    if (display.wireframe)
        parts.edges = item.shape.get();
    parts.curves = parts.edges && !parts.surface && !parts.mesh_lines;
    parts.edge_colour = item.selected ? colours.selected_edge : colours.edge;
    return parts;
}

} // namespace fennar::graphics
