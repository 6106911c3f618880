// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace fennar {

/** Triangles in space. Lengths are in millimeters. */
struct Surface
{
    /** Their coordinates: x, y, z. */
    std::vector<std::array<double, 3>> points;
    /** Three indices of points each, counterclockwise as seen from outside. */
    std::vector<std::array<std::uint32_t, 3>> triangles;
};

} // namespace fennar
