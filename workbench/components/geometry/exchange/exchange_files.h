// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/exchange/Format.h"
#include "workbench/components/geometry/model/Mesh.h"
#include "workbench/components/geometry/programs/engine_process.h"

#include <QDir>
#include <QList>
#include <QString>

#include <memory>
#include <optional>

namespace fennar::geometry {

class GeometryModel;

// Files are read into the model and written from it, with the engine in a process of its own; only BREP and
// MSH files are written here. Whatever fails throws a GeometryError and leaves the model and the files as
// they were. GUI thread only.

/** What an import has brought: solids, or a mesh. */
struct Imported
{
    QList<int> solids;
    /** Null if the file held solids. It is the model's mesh now. */
    std::shared_ptr<const Mesh> mesh;
    /** Whether the triangles of the mesh close a space; empty if it has none. */
    std::optional<bool> closed;
    /** The volume of that space. */
    double volume = 0;
};

/**
 * Adds the solids of a file to the model, or replaces the model's mesh. Empty if the listener has ended it.
 *
 * @param programs  the folder of the programs that read and write.
 */
std::optional<Imported> import_file(const QString& file, const Format& format, GeometryModel& model,
                                    const QDir& programs, const MesherListener& listener);

/** What is to be exported. */
struct ExportSource
{
    /** The last mesh rather than solids. */
    bool mesh = false;
    /** Empty stands for all solids. */
    QList<int> solids;
    /** The greatest edge of triangles; 0 lets the engine choose. */
    double size = 0;
};

/** Writes a file, in the place of an old one only when all has gone well. False if the listener has ended it.
 */
bool export_file(const QString& file, const Format& format, const ExportSource& source,
                 const GeometryModel& model, const QDir& programs, const MesherListener& listener);

} // namespace fennar::geometry
