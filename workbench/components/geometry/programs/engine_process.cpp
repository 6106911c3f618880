// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/programs/engine_process.h"

#include "workbench/components/geometry/model/GeometryError.h"

#include <QFile>
#include <QProcess>
#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

/** How long, in milliseconds, a turn waits for the program to say something. */
constexpr int patience = 20;

/** How long, in milliseconds, the system may take to start or to end a process. */
constexpr int process_patience = 10'000;

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

/** Why the program has not done its work. */
QString failure(const QString& name, const QProcess& process, const MesherReport& report,
                const QString& error)
{
    if (process.exitStatus() == QProcess::CrashExit) {
        const QString where = report.stage().isEmpty() ? u"."_s : u" while %1."_s.arg(report.stage());
        return u"%1 has crashed%2 The model and the last mesh are as they were"_s.arg(name, where);
    }
    if (!error.isEmpty())
        return error;
    return u"%1 has failed (exit status %2)"_s.arg(name).arg(process.exitCode());
}

} // namespace

void write_job_file(const QString& path, const QByteArray& content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush())
        throw GeometryError(u"a temporary file cannot be written: "_s + file.errorString());
}

QByteArray read_job_file(const QString& path, const QString& missing)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw GeometryError(missing + u": "_s + file.errorString());
    QByteArray content = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw GeometryError(u"a temporary file cannot be read: "_s + file.errorString());
    return content;
}

void read_statistics(const QByteArray& text, const QString& name, Mesh& mesh)
{
    const QList<QByteArray> lines = text.split('\n');
    for (const QByteArray& line : lines) {
        const QList<QByteArray> words = line.split(' ');
        if (words[0] == "nodes" && words.size() == 2)
            mesh.nodes = words[1].toLongLong();
        else if (words[0] == "elements" && words.size() > 3)
            mesh.elements.append(
                {words[1].toInt(), QString::fromUtf8(words.sliced(3).join(' ')), words[2].toLongLong()});
        else if (!line.isEmpty())
            throw GeometryError(name + u"'s statistics are damaged"_s);
    }
    std::stable_sort(
        mesh.elements.begin(), mesh.elements.end(),
        [](const Mesh::Elements& a, const Mesh::Elements& b) { return a.dimension < b.dimension; });
    if (mesh.nodes <= 0 || mesh.elements.isEmpty())
        throw GeometryError(name + u" has left an empty mesh"_s);
}

void read_mesh_files(const QDir& folder, const QString& name, Mesh& mesh)
{
    const QString missing = name + u" has left no mesh"_s;
    mesh.msh = read_job_file(folder.filePath(u"mesh.msh"_s), missing);
    read_statistics(read_job_file(folder.filePath(u"statistics"_s), missing), name, mesh);
}

bool run_engine_process(const QString& program, const QString& job, const QString& name,
                        const MesherListener& listener)
{
    QProcess process;
    // One stream keeps the engine's lines in their order.
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, {job});
    if (!process.waitForStarted(process_patience))
        throw GeometryError(u"%1 \"%2\" cannot be started: "_s.arg(name, program) + process.errorString());
    // Also when a listener throws: nothing of the process must stay.
    const auto end = qScopeGuard([&process] {
        process.kill();
        process.waitForFinished(process_patience);
    });

    MesherReport report;
    QString error;
    while (process.state() != QProcess::NotRunning) {
        if (listener.go_on && !listener.go_on())
            return false;
        process.waitForReadyRead(patience);
        read_lines(process, report, listener, error, false);
    }
    read_lines(process, report, listener, error, true);
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        throw GeometryError(failure(name, process, report, error));
    return true;
}

} // namespace fennar::geometry
