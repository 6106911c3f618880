// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <GProp_GProps.hxx>
#include <TopoDS_Shape.hxx>

namespace fennar::geometry {

/** The mass is the volume: negative if the faces are turned inwards. */
GProp_GProps volume_of(const TopoDS_Shape& shape);

/**
 * The solid with its faces away from what it is filled with, which volume, picture and mesh rely on: some
 * other program, or an earlier version, may have written the file. The same solid if they are so already.
 *
 * @param volume  that of the result is added, as it takes longer than all the rest.
 */
TopoDS_Shape facing_outwards(const TopoDS_Shape& solid, GProp_GProps& volume);

} // namespace fennar::geometry
