// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/graphics/Picture.h"

namespace fennar::graphics {

/** As OpenGlRenderer::render(), but without the help of the display: what it draws differs in the edges'
 * smoothness only. */
QImage paint_picture(const Picture& picture);

/**
 * Draws a scene without a window and without the help of the display: from the right, front and above, all of
 * it, in the colors of a light view. To be used as Scene::Painter.
 */
QImage draw_scene(const Scene& scene, const QSize& size);

} // namespace fennar::graphics
