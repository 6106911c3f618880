// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Takes whatever the fuzzer comes up with for what the mesher says while it works, and for the statistics
// that it leaves.

#include "fuzz/fuzz_target.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/programs/engine_process.h"

using namespace fennar::geometry;
using namespace Qt::StringLiterals;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const MemoryBound bound(size);
    MesherReport report;
    int percent = 0;
    for (const QByteArray& line : bytes.split('\n')) {
        const auto message = report.read(line);
        expect(report.percent() >= percent && report.percent() <= 100, "the percentage never falls");
        expect(!message || !message->text.contains(u'\n'), "a message is a line");
        percent = report.percent();
    }
    Mesh mesh;
    try {
        read_statistics(bytes, u"the mesher"_s, mesh);
        expect(mesh.nodes > 0 && !mesh.elements.isEmpty(), "a mesh has nodes and elements");
    } catch (const GeometryError&) {
    }
    return 0;
}
