// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/model/Mesh.h"
#include "workbench/components/geometry/programs/MesherReport.h"

#include <QByteArray>
#include <QDir>
#include <QString>

#include <functional>

namespace fennar::geometry {

/** What the caller of a program with the engine is told meanwhile; each may be null. */
struct MesherListener
{
    /** The percentage or the stage has changed. */
    std::function<void(int percent, const QString& stage)> progress;
    std::function<void(const MesherReport::Message& message)> message;
    /** Called many times a second; false ends the program at once. */
    std::function<bool()> go_on;
};

/**
 * Runs a program that does a job with the engine, and waits for it. Throws a GeometryError if that fails, for
 * whatever reason: a program that crashes is one. No process stays behind.
 *
 * @param job   the path of the job, the program's only argument.
 * @param name  what users call the program, as "the mesher".
 * @return false if go_on() has ended it.
 */
bool run_engine_process(const QString& program, const QString& job, const QString& name,
                        const MesherListener& listener);

/** Writes a file of a job. Throws a GeometryError. */
void write_job_file(const QString& path, const QByteArray& content);

/** Reads what a job has left. Throws a GeometryError that begins with @p missing if it is not there. */
QByteArray read_job_file(const QString& path, const QString& missing);

/** Reads the counts in @p text into @p mesh. Throws a GeometryError if they make no sense. */
void read_statistics(const QByteArray& text, const QString& name, Mesh& mesh);

/**
 * Reads "mesh.msh" and the counts in "statistics". Throws a GeometryError if they are not
 * there or make no sense.
 */
void read_mesh_files(const QDir& folder, const QString& name, Mesh& mesh);

} // namespace fennar::geometry
