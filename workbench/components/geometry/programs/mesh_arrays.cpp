// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/programs/mesh_arrays.h"

#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/sdk/core/files/TemporaryFolder.h"

#include <algorithm>
#include <cstring>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

const auto converter_name = u"the converter"_s;

GeometryError damaged()
{
    return GeometryError(u"the converter's nodes and elements are damaged"_s);
}

/** Takes numbers from the front of @p rest. */
template <typename Number>
std::shared_ptr<std::vector<Number>> take_numbers(QByteArrayView& rest, qint64 rows, qint64 columns)
{
    constexpr auto size = qint64(sizeof(Number));
    // In this order nothing overflows.
    if (rows < 0 || columns < 1 || columns > rest.size() || rows > rest.size() / size / columns)
        throw damaged();
    const qsizetype bytes = rows * columns * size;
    auto numbers = std::make_shared<std::vector<Number>>(std::size_t(rows * columns));
    if (bytes > 0)
        std::memcpy(numbers->data(), rest.data(), std::size_t(bytes));
    rest = rest.sliced(bytes);
    return numbers;
}

} // namespace

MeshArrays unpack_arrays(const QByteArray& data)
{
    const qsizetype end = data.indexOf("\n\n");
    const QList<QByteArray> lines = data.left(std::max<qsizetype>(end, 0)).split('\n');
    const QList<QByteArray> first = lines.first().split(' ');
    if (first.size() != 2 || first[0] != "nodes")
        throw damaged();
    QByteArrayView rest = QByteArrayView(data).sliced(end + 2);
    const qint64 count = first[1].toLongLong();
    MeshArrays arrays;
    arrays.nodes =
        count == 0 ? std::make_shared<std::vector<double>>() : take_numbers<double>(rest, count, 3);
    for (const QByteArray& line : lines.sliced(1)) {
        const QList<QByteArray> words = line.split(' '); // elements SIZE COUNT KIND
        if (words.size() < 4 || words[0] != "elements")
            throw damaged();
        const qint64 size = words[1].toLongLong();
        const auto nodes = take_numbers<qint64>(rest, words[2].toLongLong(), size);
        if (std::any_of(nodes->begin(), nodes->end(),
                        [count](qint64 node) { return node < 0 || node >= count; }))
            throw damaged();
        arrays.elements.push_back({QString::fromUtf8(words.sliced(3).join(' ')), size, nodes});
    }
    if (!rest.isEmpty())
        throw damaged();
    return arrays;
}

std::optional<MeshArrays> read_mesh_arrays(const Mesh& mesh, const QDir& programs,
                                           const MesherListener& listener)
{
    const TemporaryFolder folder;
    if (!folder.is_valid())
        throw GeometryError(u"no temporary folder can be made: "_s + folder.error());
    write_job_file(folder.path(u"mesh.msh"_s), mesh.msh);
    write_job_file(folder.path(u"job"_s), "read arrays\ninput mesh.msh\noutput arrays\n");
    if (!run_engine_process(programs.filePath(u"fennar-converter"_s), folder.path(u"job"_s), converter_name,
                            listener))
        return std::nullopt;
    return unpack_arrays(
        read_job_file(folder.path(u"arrays"_s), u"the converter has left no nodes and elements"_s));
}

} // namespace fennar::geometry
