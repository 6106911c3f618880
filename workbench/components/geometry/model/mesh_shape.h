// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/files/Surface.h"
#include "workbench/sdk/core/scene/SceneShape.h"

#include <memory>

namespace fennar::geometry {

/**
 * The surface of a mesh as it is shown: each triangle is flat, and its edges are lines.
 *
 * @param surface  closed, so that each edge has two triangles, which run along it in opposite directions. All
 *                 corners must exist.
 *
 * May be called on any thread.
 */
std::shared_ptr<const SceneShape> mesh_shape(const Surface& surface);

} // namespace fennar::geometry
