// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Unpacks whatever the fuzzer comes up with as nodes and elements of a mesh.

#include "fuzz/fuzz_target.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/programs/mesh_arrays.h"

using namespace fennar::geometry;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const MemoryBound bound(size);
    try {
        const MeshArrays arrays = unpack_arrays(bytes);
        expect(arrays.nodes->size() % 3 == 0, "nodes are whole");
        for (const MeshArrays::Elements& elements : arrays.elements) {
            expect(elements.size > 0 && elements.nodes->size() % std::size_t(elements.size) == 0,
                   "elements are whole");
            for (const qint64 node : *elements.nodes)
                expect(node >= 0 && std::size_t(node) < arrays.nodes->size() / 3,
                       "nodes of elements are there");
        }
    } catch (const GeometryError&) {
        // As most of what a fuzzer comes up with.
    }
    return 0;
}
