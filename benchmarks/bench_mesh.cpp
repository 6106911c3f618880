// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// How long a batch run of the workbench takes to mesh a STEP file, from the start of the process to the mesh
// in a file. The yardstick is a process that has the engine do the same and nothing else, as the engine's own
// program would: this one, when it is given a file.

#include "bench.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <gmsh.h>

using namespace Qt::StringLiterals;

namespace {

/** About 8,000 nodes, and 55,000. */
constexpr double sizes[] = {0.5, 0.25};

constexpr auto part = "brick 20 10 4 name part\n"
                      "cylinder 2 10 at -5 0 0 name hole\n"
                      "subtract hole from part\n"
                      "sphere 3 at 5 0 3 name knob\n"
                      "unite part knob\n"
                      "torus 4 1 at 0 12 0\n"
                      "export part.step\n";

int mesh_by_the_engine(const char* file, double size, const char* mesh)
{
    gmsh::initialize();
    gmsh::option::setNumber("Mesh.MeshSizeMin", size);
    gmsh::option::setNumber("Mesh.MeshSizeMax", size);
    gmsh::option::setNumber("Mesh.Binary", 1);
    gmsh::open(file);
    gmsh::model::mesh::generate(3);
    gmsh::write(mesh);
    gmsh::finalize();
    return 0;
}

/** How long a process takes, in seconds. */
double run(const QString& program, const QStringList& arguments, const QString& directory)
{
    QProcess process;
    process.setWorkingDirectory(directory);
    const double time = bench::seconds([&] {
        process.start(program, arguments);
        process.waitForFinished(-1);
    });
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        qFatal("%s has failed: %s", qPrintable(program), process.readAllStandardError().constData());
    return time;
}

double run_journal(const QByteArray& lines, const QString& directory)
{
    const QString path = directory + u"/bench.jou"_s;
    QFile journal(path);
    if (!journal.open(QIODevice::WriteOnly) || journal.write(lines) != lines.size())
        qFatal("%s cannot be written", qPrintable(path));
    journal.close();
    return run(QStringLiteral(FENNAR),
               {u"--batch"_s, u"--settings"_s, directory + u"/settings.ini"_s, u"--play"_s, path}, directory);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc > 3)
        return mesh_by_the_engine(argv[1], QByteArray(argv[2]).toDouble(), argv[3]);

    const QCoreApplication application(argc, argv);
    const QTemporaryDir directory;
    run_journal(part, directory.path());
    for (const double size : sizes) {
        const QByteArray number = QByteArray::number(size);
        const auto engine = [&] {
            return run(QCoreApplication::applicationFilePath(),
                       {u"part.step"_s, QString::fromLatin1(number), u"engine.msh"_s}, directory.path());
        };
        const auto workbench = [&] {
            return run_journal("import part.step\nmesh size " + number + "\nexport fennar.msh\n",
                               directory.path());
        };
        bench::compare(qPrintable(u"meshing a STEP file in batch, size %1"_s.arg(size)), 1.1, engine,
                       workbench, 3);
        std::printf("size %s: %lld bytes by the engine, %lld by the workbench\n", number.constData(),
                    QFileInfo(directory.filePath(u"engine.msh"_s)).size(),
                    QFileInfo(directory.filePath(u"fennar.msh"_s)).size());
    }
    const auto in_threads = [&directory](const QByteArray& threads) {
        return run_journal("import part.step\nmesh size 0.2 algorithm hxt threads " + threads + '\n',
                           directory.path());
    };
    bench::compare(
        "meshing with hxt in two threads, not one", 0.9, [&] { return in_threads("1"); },
        [&] { return in_threads("2"); }, 3);
    return 0;
}
