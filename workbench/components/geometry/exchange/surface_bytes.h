// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/files/Surface.h"

#include <QByteArray>

/** A surface as it travels to and from the converter: two counts, the points and the triangles, in the
 * machine's own numbers. */
QByteArray pack_surface(const Surface& surface);

/** The surface that pack_surface() has packed. Throws a GeometryError if @p data is anything else. */
Surface unpack_surface(const QByteArray& data);
