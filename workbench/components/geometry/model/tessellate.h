// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/model/Shape.h"
#include "workbench/sdk/core/scene/SceneShape.h"

#include <atomic>
#include <functional>
#include <memory>

namespace fennar::geometry {

/** Finds the triangles and edges of a shape, on any thread. Null if that fails or @p stop is set meanwhile.
 */
using Tessellation = std::function<std::shared_ptr<const SceneShape>(const std::atomic<bool>& stop)>;

/**
 * Copies a shape, so that another thread can work on it: the kernel writes its triangles into what it works
 * on.
 *
 * @param shape  must not be empty. GUI thread only.
 */
Tessellation prepare_tessellation(const Shape& shape);

} // namespace fennar::geometry
