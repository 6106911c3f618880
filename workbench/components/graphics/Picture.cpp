// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/Picture.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPalette>

#include <algorithm>

namespace fennar::graphics {

namespace {

/** The width of lines in pixels of the camera. */
constexpr double edge_width = 1.4;
constexpr double mesh_line_width = 1.0;
constexpr double curve_width = 1.0;

} // namespace

ViewColors ViewColors::light()
{
    return {QColor(0xf7, 0xf9, 0xfb), QColor(0xc6, 0xd1, 0xde), QColor(0x9c, 0xc0, 0xea),
            QColor(0x1f, 0x3a, 0x5a), QColor(0xa8, 0xd8, 0xbb), QColor(0x1f, 0x5f, 0x3e),
            QColor(0xf7, 0xb0, 0x4a), QColor(0x8a, 0x45, 0x00)};
}

ViewColors ViewColors::fitting(const QPalette& palette)
{
    const bool dark =
        palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
    if (dark)
        return {QColor(0x3b, 0x43, 0x4e), QColor(0x1d, 0x21, 0x27), QColor(0x6f, 0x97, 0xc8),
                QColor(0xe3, 0xec, 0xf7), QColor(0x62, 0x9c, 0x7c), QColor(0xd5, 0xf0, 0xdf),
                QColor(0xdd, 0x8b, 0x22), QColor(0xff, 0xe3, 0xb5)};
    return light();
}

void ViewColors::paint_background(QPainter& painter, const QRect& area) const
{
    QLinearGradient background(0, 0, 0, area.height());
    background.setColorAt(0, top);
    background.setColorAt(1, bottom);
    painter.fillRect(area, background);
}

double Picture::depth() const
{
    double depth = 0;
    for (const auto& [id, item] : scene.items()) {
        for (const SceneShape* shape : {item.shape.get(), item.mesh.get()}) {
            const Box3 seen = shape ? camera.to_view(shape->box) : Box3();
            depth = std::max({depth, seen.most.z, -seen.least.z});
        }
    }
    return depth * 1.01 + 1e-9;
}

PictureParts::PictureParts(const Picture& picture)
{
    const DisplayOptions& display = picture.display;
    const ViewColors& colors = picture.colors;
    for (const auto& [id, item] : picture.scene.items()) {
        const bool meshed = display.mesh && item.mesh;
        const bool shaded = display.shaded && display.surface(item);
        if (shaded)
            surfaces.push_back({display.surface(item), item.selected ? colors.selected
                                                       : meshed      ? colors.mesh
                                                                     : colors.solid});
        if (meshed)
            lines.push_back(
                {item.mesh, false, item.selected ? colors.selected_edge : colors.mesh_line, mesh_line_width});
        const QColor edge_color = item.selected ? colors.selected_edge : colors.edge;
        if (display.wireframe && item.shape)
            lines.push_back({item.shape, false, edge_color, edge_width});
        // Without its curves a sphere would not be seen where edges are all that is drawn.
        if (display.wireframe && item.shape && !shaded && !meshed)
            lines.push_back({item.shape, true, edge_color, curve_width});
    }
}

} // namespace fennar::graphics
