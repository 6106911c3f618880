// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/graphics/Renderer.h"

namespace fennar::graphics {

/** Draws without the help of the display, into an image that a painter can show anywhere. */
class PainterRenderer : public Renderer
{
public:
    QImage render(const Picture& picture) override;
};

/**
 * Draws a scene without a window and without the help of the display: from the right, front and above, all of
 * it, in the colors of a light view. To be used as Scene::Painter.
 */
QImage draw_scene(const Scene& scene, const QSize& size);

} // namespace fennar::graphics
