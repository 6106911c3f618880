// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Takes whatever the fuzzer comes up with for the triangles that the converter leaves.

#include "fuzz/fuzz_target.h"
#include "workbench/components/geometry/exchange/surface_bytes.h"
#include "workbench/components/geometry/model/GeometryError.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const MemoryBound bound(size);
    try {
        expect(pack_surface(unpack_surface(bytes)) == bytes, "what is unpacked can be packed again");
    } catch (const GeometryError&) {
    }
    return 0;
}
