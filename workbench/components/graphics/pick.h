// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/graphics/Picture.h"

namespace fennar::graphics {

/**
 * The id of the item whose surface is the nearest one at a pixel of the camera; 0 if there is none. It is
 * found whether surfaces are shown or not.
 */
int pick(const Scene& scene, const Camera& camera, const DisplayOptions& display, const QPointF& pixel);

} // namespace fennar::graphics
