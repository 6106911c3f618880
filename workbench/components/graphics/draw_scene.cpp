// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/graphics/draw_scene.h"

#include "workbench/components/graphics/PainterRenderer.h"

#include <QLinearGradient>
#include <QPainter>

namespace fennar::graphics {

QImage draw_scene(const Scene& scene, const QSize& size)
{
    Camera camera;
    camera.set_viewport(size);
    camera.set_view(Camera::View::Iso);
    camera.fit(scene.box());
    const ViewColours colours = ViewColours::light();
    const QImage drawn =
        PainterRenderer().render({.scene = scene, .camera = camera, .display = {}, .colours = colours});
    QImage picture(size, QImage::Format_RGB32);
    if (drawn.isNull() || picture.isNull())
        return {};
    QPainter painter(&picture);
    QLinearGradient background(0, 0, 0, size.height());
    background.setColorAt(0, colours.top);
    background.setColorAt(1, colours.bottom);
    painter.fillRect(picture.rect(), background);
    painter.drawImage(QPointF(0, 0), drawn);
    return picture;
}

} // namespace fennar::graphics
