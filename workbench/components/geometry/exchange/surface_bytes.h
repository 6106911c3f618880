// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/files/Surface.h"

#include <QByteArray>

namespace fennar::geometry {

/** Throws a GeometryError if a triangle has a corner that does not exist. */
void check_corners(const Surface& surface);

/** A surface as it travels to and from the programs: two counts, the points and the triangles, in the
 * machine's own numbers. */
QByteArray pack_surface(const Surface& surface);

/** The surface that pack_surface() has packed; all corners exist. Throws a GeometryError if @p data is
 * anything else. */
Surface unpack_surface(const QByteArray& data);

} // namespace fennar::geometry
