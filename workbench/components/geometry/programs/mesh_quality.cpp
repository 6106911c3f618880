// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/programs/mesh_quality.h"

#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/sdk/core/files/TemporaryFolder.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

const auto converter_name = u"the converter"_s;

QList<Mesh::Quality> read_quality(const QByteArray& text)
{
    QList<Mesh::Quality> result;
    for (const QByteArray& line : text.split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        if (words.size() == 4)
            result.append(
                {QString::fromUtf8(words[0]), words[1].toDouble(), words[2].toDouble(), words[3].toDouble()});
        else if (!line.isEmpty())
            throw GeometryError(u"the converter's measures are damaged"_s);
    }
    return result;
}

} // namespace

bool measure_quality(const Mesh& mesh, const QDir& programs, const MesherListener& listener)
{
    if (mesh.quality)
        return true;
    const bool has_volumes = std::any_of(mesh.elements.begin(), mesh.elements.end(),
                                         [](const Mesh::Elements& some) { return some.dimension == 3; });
    if (!has_volumes) {
        mesh.quality.emplace();
        return true;
    }
    const TemporaryFolder folder;
    if (!folder.is_valid())
        throw GeometryError(u"no temporary folder can be made: "_s + folder.error());
    write_job_file(folder.path(u"mesh.msh"_s), mesh.msh);
    write_job_file(folder.path(u"job"_s), "read quality\ninput mesh.msh\noutput quality\n");
    if (!run_engine_process(programs.filePath(u"fennar-converter"_s), folder.path(u"job"_s), converter_name,
                            listener))
        return false;
    mesh.quality =
        read_quality(read_job_file(folder.path(u"quality"_s), u"the converter has left no measures"_s));
    return true;
}

} // namespace fennar::geometry
