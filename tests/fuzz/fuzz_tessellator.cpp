// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Takes whatever the fuzzer comes up with for the output of the tessellator: at once, and in two pieces.

#include "fuzz/fuzz_target.h"
#include "workbench/components/geometry/programs/TessellatorOutput.h"

#include <vector>

namespace {

/** What there is of each solid, in numbers. */
std::vector<std::size_t> solids(const std::vector<QByteArray>& pieces)
{
    TessellatorOutput output;
    std::vector<std::size_t> found;
    for (const QByteArray& piece : pieces) {
        output.add(piece);
        while (const auto solid = output.take()) {
            found.push_back(std::size_t(solid->id));
            if (!solid->shape)
                continue;
            expect(solid->shape->corners.size() == solid->shape->normals.size(), "each corner has a normal");
            expect(solid->shape->corners.size() % 3 == 0, "triangles are whole");
            found.push_back(solid->shape->corners.size());
            found.push_back(solid->shape->lines.size());
        }
    }
    return found;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char*>(data + 1), static_cast<qsizetype>(size - 1));
    const MemoryBound bound(size);
    const qsizetype border = data[0] % (bytes.size() + 1);
    expect(solids({bytes}) == solids({bytes.first(border), bytes.sliced(border)}),
           "solids may come in pieces");
    return 0;
}
