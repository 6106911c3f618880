// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/files/Surface.h"

#include <QByteArray>

namespace fennar::obj_format {

/**
 * Reads the vertices and faces of an OBJ file; faces of more than three corners become fans of triangles.
 * What else there may be (normals, textures, groups, materials) is passed over.
 *
 * Throws a std::runtime_error with the line for what cannot be understood, and for a file without faces.
 */
Surface read_obj(const QByteArray& text);

/** Writes vertices and faces, the coordinates exact. */
QByteArray write_obj(const Surface& surface);

} // namespace fennar::obj_format
