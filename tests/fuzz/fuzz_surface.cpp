// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Takes whatever the fuzzer comes up with for triangles that a program has left, or a model file holds, and
// shows them.

#include "fuzz/fuzz_target.h"
#include "workbench/components/geometry/exchange/surface_bytes.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/mesh_shape.h"

using namespace fennar;
using namespace fennar::geometry;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const MemoryBound bound(size);
    try {
        const Surface surface = unpack_surface(bytes);
        expect(pack_surface(surface) == bytes, "what is unpacked can be packed again");
        const auto shape = mesh_shape(surface);
        expect(shape->corners.size() == 3 * surface.triangles.size(), "each triangle is shown");
        expect(shape->normals.size() == shape->corners.size(), "each corner has a normal");
        expect(shape->lines.size() % 2 == 0, "lines are whole");
    } catch (const GeometryError&) {
    }
    return 0;
}
