// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <Bnd_Box.hxx>
#include <TopoDS_Shape.hxx>

namespace fennar::geometry {

/** A box that touches the solids on all sides. */
Bnd_Box exact_box(const TopoDS_Shape& solids);

} // namespace fennar::geometry
