// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/run_mesher.h"

#include "workbench/components/geometry/GeometryError.h"
#include "workbench/components/geometry/GeometryModel.h"

#include <QFile>
#include <QProcess>
#include <QScopeGuard>
#include <QTemporaryDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/** How long, in milliseconds, a turn waits for the mesher to say something. */
constexpr int patience = 20;

/** How long, in milliseconds, the system may take to start or to end a process. */
constexpr int process_patience = 10'000;

void write_file(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush())
        throw GeometryError(u"a temporary file cannot be written: "_s + file.errorString());
}

QByteArray read_file(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw GeometryError(u"the mesher has left no mesh: "_s + file.errorString());
    return file.readAll();
}

/** Writes the solids and the job, and returns the path of the job. */
QString write_job(const QTemporaryDir& directory, const GeometryModel& model, const QList<int>& ids,
                  double size)
{
    QByteArray job =
        "size " + QByteArray::number(size, 'g', 17) + "\noutput mesh.msh\nstatistics statistics\n";
    for (const int id : ids) {
        const QString file = QString::number(id) + u".brep"_s;
        model.write_brep(id, directory.filePath(file));
        job += "solid " + model.solid(id)->name.toUtf8() + ' ' + file.toUtf8() + '\n';
    }
    const QString path = directory.filePath(u"job"_s);
    write_file(path, job);
    return path;
}

void read_statistics(const QByteArray& text, Mesh& mesh)
{
    const QList<QByteArray> lines = text.split('\n');
    for (const QByteArray& line : lines) {
        const QList<QByteArray> words = line.split(' ');
        if (words[0] == "nodes" && words.size() == 2)
            mesh.nodes = words[1].toLongLong();
        else if (words[0] == "elements" && words.size() > 3)
            mesh.elements.append(
                {words[1].toInt(), QString::fromUtf8(words.sliced(3).join(' ')), words[2].toLongLong()});
        else if (words[0] == "quality" && words.size() == 5)
            mesh.quality.append(
                {QString::fromUtf8(words[1]), words[2].toDouble(), words[3].toDouble(), words[4].toDouble()});
        else if (!line.isEmpty())
            throw GeometryError(u"the mesher's statistics are damaged"_s);
    }
    std::stable_sort(
        mesh.elements.begin(), mesh.elements.end(),
        [](const Mesh::Elements& a, const Mesh::Elements& b) { return a.dimension < b.dimension; });
    if (mesh.nodes <= 0 || mesh.elements.isEmpty())
        throw GeometryError(u"the mesher has left an empty mesh"_s);
}

/** Reads whole lines; with @p rest also what has no end yet. Returns the last error among them. */
void read_lines(QProcess& process, MesherReport& report, const MesherListener& listener, QString& error,
                bool rest)
{
    while (process.canReadLine() || (rest && process.bytesAvailable() > 0)) {
        const int percent = report.percent();
        const QString stage = report.stage();
        const auto message = report.read(process.readLine());
        if (message && message->kind == MesherReport::Message::Kind::Error)
            error = message->text;
        if (message && listener.message)
            listener.message(*message);
        if (listener.progress && (percent != report.percent() || stage != report.stage()))
            listener.progress(report.percent(), report.stage());
    }
}

/** Why the mesher has not done its work. */
QString failure(const QProcess& process, const MesherReport& report, const QString& error)
{
    if (process.exitStatus() == QProcess::CrashExit) {
        const QString where = report.stage().isEmpty() ? u"."_s : u" while %1."_s.arg(report.stage());
        return u"the mesher has crashed%1 The model and the last mesh are as they were"_s.arg(where);
    }
    if (!error.isEmpty())
        return error;
    return u"the mesher has failed (exit status %1)"_s.arg(process.exitCode());
}

} // namespace

std::shared_ptr<const Mesh> run_mesher(const QString& program, const GeometryModel& model,
                                       const QList<int>& ids, double size, const MesherListener& listener)
{
    const QTemporaryDir directory;
    if (!directory.isValid())
        throw GeometryError(u"no temporary folder can be made: "_s + directory.errorString());
    auto mesh = std::make_shared<Mesh>();
    mesh->size = size;
    mesh->revision = model.revision();
    for (const int id : ids)
        mesh->solids << model.solid(id).value_or(GeometryModel::Solid()).name;
    const QString job = write_job(directory, model, ids, size);

    QProcess process;
    // One stream keeps the engine's lines in their order.
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, {job});
    if (!process.waitForStarted(process_patience))
        throw GeometryError(u"the mesher \"%1\" cannot be started: "_s.arg(program) + process.errorString());
    // Also when a listener throws: nothing of the process must stay.
    const auto end = qScopeGuard([&process] {
        process.kill();
        process.waitForFinished(process_patience);
    });

    MesherReport report;
    QString error;
    while (process.state() != QProcess::NotRunning) {
        process.waitForReadyRead(patience);
        read_lines(process, report, listener, error, false);
        if (listener.go_on && !listener.go_on())
            return nullptr;
    }
    read_lines(process, report, listener, error, true);
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        throw GeometryError(failure(process, report, error));

    mesh->msh = read_file(directory.filePath(u"mesh.msh"_s));
    read_statistics(read_file(directory.filePath(u"statistics"_s)), *mesh);
    return mesh;
}
