// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Looks for surfaces in whatever the fuzzer comes up with as a mesh, behind the line that each mesh begins
// with.

#include "fuzz/fuzz_target.h"
#include "workbench/components/geometry/model/mesh_surfaces.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray mesh = "$MeshFormat\n4.1 1 8\n" +
                            QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const MemoryBound bound(size);
    for (const auto& [name, shape] : mesh_surfaces(mesh)) {
        expect(!name.isEmpty() && shape, "a surface has a name");
        expect(shape->corners.size() % 3 == 0 && shape->normals.size() == shape->corners.size(),
               "triangles are whole");
        expect(shape->lines.size() % 2 == 0, "lines are whole");
    }
    return 0;
}
