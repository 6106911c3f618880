// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/graphics/Camera.h"
#include "workbench/components/graphics/ViewColours.h"
#include "workbench/sdk/core/scene/Scene.h"

#include <QImage>
#include <QString>

namespace fennar::graphics {

/** What of the items is shown. */
struct DisplayOptions
{
    /** Surfaces. */
    bool shaded = true;
    /** Edges. Without surfaces all of them are seen, and lines on what is curved. */
    bool wireframe = true;
    /** The mesh in place of the surfaces, for items that have one. */
    bool mesh = true;

    bool operator==(const DisplayOptions&) const = default;

    /** What stands for the surface of @p item; null if it has none yet. */
    const SceneShape* surface(const Scene::Item& item) const
    {
        return mesh && item.mesh ? item.mesh.get() : item.shape.get();
    }
};

/** All that a picture depends on. */
struct Picture
{
    const Scene& scene;
    /** Its viewport is the size of the picture in pixels that do not depend on the device. */
    const Camera& camera;
    DisplayOptions display;
    ViewColours colours;
    /** How many pixels of the device make one of the camera's, in each direction. */
    double ratio = 1;
    /** Quick rather than smooth. */
    bool draft = false;

    QSize device_size() const { return (camera.viewport() * ratio).toSize().expandedTo({1, 1}); }
    /** The items' view coordinates z are between minus this and this. */
    double depth() const;
};

/**
 * Draws pictures of a scene. There are two kinds, whose pictures agree but for the edges' smoothness.
 *
 * What is in a picture follows from PictureParts; how light it is, from shade().
 */
class Renderer
{
public:
    Renderer() = default;
    virtual ~Renderer() = default;
    Renderer(const Renderer&) = delete;
    Renderer& operator=(const Renderer&) = delete;

    /** The picture in front of a transparent background, with the picture's ratio set; null if it fails. */
    virtual QImage render(const Picture& picture) = 0;

    /** The light comes from there, in view coordinates. */
    static constexpr float light[3] = {-0.30F, 0.45F, 0.84F};
    /** How light a surface is that turns away from the light, and how much lighter one is that faces it. */
    static constexpr float ambient = 0.42F;
    static constexpr float direct = 0.58F;

    /** The width of lines in pixels of the camera. */
    static constexpr double edge_width = 1.4;
    static constexpr double mesh_line_width = 1.0;
    static constexpr double curve_width = 1.0;
};

/** What is drawn of one item, and in which colours. */
struct PictureParts
{
    /** Null if no surface is to be drawn. */
    const SceneShape* surface = nullptr;
    QColor surface_colour;
    /** Whose lines are drawn as the lines of the mesh; null for none. */
    const SceneShape* mesh_lines = nullptr;
    QColor mesh_line_colour;
    /** Whose lines are drawn as edges; null for none. */
    const SceneShape* edges = nullptr;
    /** Whether its curves, too: without them a sphere would not be seen where edges are all that is drawn. */
    bool curves = false;
    QColor edge_colour;

    static PictureParts of(const Scene::Item& item, const Picture& picture);
};

} // namespace fennar::graphics
