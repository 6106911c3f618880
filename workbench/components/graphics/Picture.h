// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/graphics/Camera.h"
#include "workbench/sdk/core/scene/Scene.h"

#include <QColor>
#include <QImage>
#include <QLatin1StringView>

#include <memory>
#include <vector>

class QPainter;
class QPalette;

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
    /** Whether it is drawn by OpenGL where that is possible. */
    bool opengl = true;

    bool operator==(const DisplayOptions&) const = default;

    /** What stands for the surface of @p item; null if it has none yet. */
    const std::shared_ptr<const SceneShape>& surface(const Scene::Item& item) const
    {
        return mesh && item.mesh ? item.mesh : item.shape;
    }
};

/** An option by the name that commands and settings have for it. */
struct DisplayOption
{
    QLatin1StringView name;
    bool DisplayOptions::*value;
};
inline constexpr DisplayOption display_options[] = {
    {QLatin1StringView("shaded"), &DisplayOptions::shaded},
    {QLatin1StringView("wireframe"), &DisplayOptions::wireframe},
    {QLatin1StringView("mesh"), &DisplayOptions::mesh},
    {QLatin1StringView("opengl"), &DisplayOptions::opengl}};

/** The colors of a view. */
struct ViewColors
{
    /** The background, which changes from top to bottom. */
    QColor top;
    QColor bottom;
    QColor solid;
    QColor edge;
    QColor mesh;
    QColor mesh_line;
    QColor selected;
    QColor selected_edge;

    /** Those of a light view. */
    static ViewColors light();
    /** Those that go with a palette, be it light or dark. */
    static ViewColors fitting(const QPalette& palette);

    void paint_background(QPainter& painter, const QRect& area) const;
};

/** All that a picture depends on. */
struct Picture
{
    const Scene& scene;
    /** Its viewport is the size of the picture in pixels that do not depend on the device. */
    const Camera& camera;
    DisplayOptions display;
    ViewColors colors;
    /** How many pixels of the device make one of the camera's, in each direction. */
    double ratio = 1;
    /** Quick rather than smooth. */
    bool draft = false;

    QSize device_size() const { return (camera.viewport() * ratio).toSize().expandedTo({1, 1}); }
    /** The items' view coordinates z are between minus this and this. */
    double depth() const;
};

/** What is drawn of a scene, in this order: the surfaces, and then the lines. */
struct PictureParts
{
    struct Surface
    {
        std::shared_ptr<const SceneShape> shape;
        QColor color;
    };
    struct Lines
    {
        std::shared_ptr<const SceneShape> shape;
        /** The curves of the shape rather than its lines. */
        bool curves = false;
        QColor color;
        /** In pixels of the camera. */
        double width = 1;

        const std::vector<QVector3D>& points() const { return curves ? shape->curves : shape->lines; }
    };

    explicit PictureParts(const Picture& picture);

    std::vector<Surface> surfaces;
    std::vector<Lines> lines;
};

/** The light of all pictures. */
struct Light
{
    /** It comes from there, in view coordinates. */
    static constexpr float from[3] = {-0.30F, 0.45F, 0.84F};
    /** How light a surface is that turns away from the light, and how much lighter one is that faces it. */
    static constexpr float ambient = 0.42F;
    static constexpr float direct = 0.58F;
};

} // namespace fennar::graphics
