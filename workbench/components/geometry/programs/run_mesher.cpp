// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/programs/run_mesher.h"

#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/programs/engine_process.h"
#include "workbench/sdk/core/files/TemporaryFolder.h"

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

QString solid_file(int id)
{
    return QString::number(id) + u".brep"_s;
}

/** Writes the solids and the job, and returns the path of the job. */
QString write_job(const TemporaryFolder& directory, const GeometryModel& model, const QList<int>& ids,
                  const MeshSettings& settings)
{
    QByteArray job = "size " + QByteArray::number(settings.size, 'g', 17) + "\nalgorithm " +
                     (settings.hxt ? "hxt" : "delaunay") + "\nthreads " +
                     QByteArray::number(settings.threads) + "\noutput mesh.msh\nstatistics statistics\n";
    for (const int id : ids) {
        const QString file = solid_file(id);
        write_job_file(directory.path(file), model.shape(id).brep());
        job += "solid " + model.solid(id)->name.toUtf8() + ' ' + file.toUtf8() + '\n';
    }
    const QString path = directory.path(u"job"_s);
    write_job_file(path, job);
    return path;
}

} // namespace

std::shared_ptr<const Mesh> run_mesher(const QString& program, const GeometryModel& model,
                                       const QList<int>& ids, const MeshSettings& settings,
                                       const MesherListener& listener)
{
    const TemporaryFolder directory;
    if (!directory.is_valid())
        throw GeometryError(u"no temporary folder can be made: "_s + directory.error());
    auto mesh = std::make_shared<Mesh>();
    mesh->size = settings.size;
    mesh->revision = model.revision();
    for (const int id : ids)
        mesh->solids << model.solid(id).value_or(GeometryModel::Solid()).name;
    const QString job = write_job(directory, model, ids, settings);

    if (!run_engine_process(program, job, u"the mesher"_s, listener))
        return nullptr;

    read_mesh_files(QDir(directory.path()), u"the mesher"_s, *mesh);
    for (const int id : ids)
        mesh->surfaces << read_job_file(directory.path(solid_file(id) + u".surface"_s),
                                        u"the mesher has left no surface"_s);
    return mesh;
}

} // namespace fennar::geometry
