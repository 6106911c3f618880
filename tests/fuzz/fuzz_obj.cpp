// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Reads whatever the fuzzer comes up with as an OBJ file, and writes what it holds.

#include "fuzz/fuzz_target.h"
#include "workbench/components/obj_format/obj_text.h"

#include <cmath>
#include <stdexcept>

using namespace fennar;
using namespace fennar::obj_format;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const MemoryBound bound(size);
    Surface surface;
    try {
        surface = read_obj(bytes);
    } catch (const std::runtime_error&) {
        return 0;
    }
    for (const auto& point : surface.points)
        expect(std::isfinite(point[0]) && std::isfinite(point[1]) && std::isfinite(point[2]),
               "points are numbers");
    expect(!surface.triangles.empty(), "a surface has triangles");
    for (const auto& triangle : surface.triangles) {
        for (const std::uint32_t corner : triangle)
            expect(corner < surface.points.size(), "corners are points");
    }
    const Surface again = read_obj(write_obj(surface));
    expect(again.points == surface.points && again.triangles == surface.triangles, "a surface comes back");
    return 0;
}
