// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/leftovers.h"
#include "workbench/components/geometry/exchange/surface_bytes.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/programs/mesh_quality.h"
#include "workbench/components/geometry/programs/run_mesher.h"
#include "workbench/sdk/core/scene/Point3.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <set>
#include <stdexcept>
#include <utility>

using namespace fennar;
using namespace fennar::geometry;
using namespace Qt::StringLiterals;

/** The mesher in its own process, from the side of the program that waits for it. */
class TstRunMesher : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void cube_is_meshed();
    void quality_is_measured_when_somebody_asks();
    void failing_measurement_is_a_clear_error();
    void hxt_meshes_in_several_threads_data();
    void hxt_meshes_in_several_threads();
    void smaller_size_gives_more_elements();
    void several_solids_are_meshed_together();
    void solid_of_pieces_is_meshed();
    void surfaces_are_closed_and_face_outwards_data();
    void surfaces_are_closed_and_face_outwards();
    void only_the_solids_named_are_meshed();
    void locale_makes_no_difference();
    void progress_rises_through_all_stages();
    void engine_messages_arrive();
    void mesh_knows_what_it_was_made_of();
    void cancel_does_not_wait_for_the_end_of_a_step();
    void listener_gets_its_turn_while_the_mesher_says_nothing();
    void killed_mesher_is_a_clear_error_data();
    void killed_mesher_is_a_clear_error();
    void failing_mesher_is_a_clear_error_data();
    void failing_mesher_is_a_clear_error();
    void mesher_that_cannot_be_started_is_an_error();
    void silent_mesher_can_be_cancelled();
    void exception_of_a_listener_ends_the_mesher();
    void unknown_solid_is_an_error();
    void mesher_refuses_bad_jobs_data();
    void mesher_refuses_bad_jobs();
    void mesher_ends_with_the_program_that_started_it();

private:
    /** A program that does what @p script says; the job's path is "$1". */
    QString program(const QByteArray& script);
    QString failure(const QString& mesher, const MesherListener& listener = {});

    std::unique_ptr<QTemporaryDir> mDirectory;
    std::unique_ptr<GeometryModel> mModel;
    QStringList mFilesBefore;
    const QString mMesher = QStringLiteral(FENNAR_MESHER);
};

void TstRunMesher::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    mModel = std::make_unique<GeometryModel>();
    mModel->brick({1, 1, 1});
    mFilesBefore = temporary_files();
    QCOMPARE(child_processes(), QList<int>());
}

void TstRunMesher::tear_down()
{
    QCOMPARE(child_processes(), QList<int>());
    QCOMPARE(temporary_files(), mFilesBefore);
    mModel.reset();
    mDirectory.reset();
}

QString TstRunMesher::program(const QByteArray& script)
{
    const QString path = mDirectory->filePath(u"mesher"_s);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write("#!/bin/sh\n" + script + '\n') < 0)
        qFatal("the script could not be written");
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
}

QString TstRunMesher::failure(const QString& mesher, const MesherListener& listener)
{
    try {
        run_mesher(mesher, *mModel, {1}, {.size = 0.5}, listener);
    } catch (const GeometryError& error) {
        return error.message();
    }
    return {};
}

namespace {

qint64 count(const Mesh& mesh, int dimension)
{
    qint64 result = 0;
    for (const Mesh::Elements& elements : mesh.elements) {
        if (elements.dimension == dimension)
            result += elements.count;
    }
    return result;
}

/** Whether each edge has two triangles, which run along it in opposite directions, and about so much is
 * inside.
 */
void check_surface(const QByteArray& bytes, double volume)
{
    const Surface surface = unpack_surface(bytes);
    std::set<std::pair<std::uint32_t, std::uint32_t>> edges;
    double enclosed = 0;
    for (const auto& triangle : surface.triangles) {
        for (std::size_t i = 0; i < 3; ++i)
            QVERIFY2(edges.emplace(triangle[i], triangle[(i + 1) % 3]).second, "turned inside out");
        const auto corner = [&](std::size_t i) {
            const std::array<double, 3>& place = surface.points[triangle[i]];
            return Point3{place[0], place[1], place[2]};
        };
        enclosed += dot(corner(0), cross(corner(1), corner(2))) / 6;
    }
    for (const auto& [from, to] : edges)
        QVERIFY2(edges.count({to, from}) > 0, "not closed");
    QVERIFY2(std::abs(enclosed - volume) < 0.1 * volume, qPrintable(QString::number(enclosed)));
}

} // namespace

void TstRunMesher::cube_is_meshed()
{
    const auto mesh = run_mesher(mMesher, *mModel, {1}, {.size = 0.25});
    QVERIFY(mesh);
    // The eight corners, and twelve edges of four elements each.
    QCOMPARE(count(*mesh, 0), 8);
    QCOMPARE(count(*mesh, 1), 12 * 4);
    QVERIFY(count(*mesh, 2) >= 6LL * 2 * 16 && count(*mesh, 2) < 6LL * 60);
    QVERIFY(count(*mesh, 3) > 100 && count(*mesh, 3) < 2000);
    QVERIFY(mesh->nodes > 8 + 12 * 3);
    QVERIFY(mesh->msh.startsWith("$MeshFormat\n4"));
    QVERIFY(mesh->msh.contains("\"brick1\""));
    QVERIFY(mesh->msh.contains("$EndElements"));
}

void TstRunMesher::quality_is_measured_when_somebody_asks()
{
    const auto mesh = run_mesher(mMesher, *mModel, {1}, {.size = 0.25});
    const QDir programs(QStringLiteral(FENNAR_PROGRAMS));
    QVERIFY(!mesh->quality);
    MesherListener cancelling;
    cancelling.go_on = [] { return false; };
    QVERIFY(!measure_quality(*mesh, programs, cancelling));
    QVERIFY(!mesh->quality);
    QVERIFY(measure_quality(*mesh, programs));
    QCOMPARE(mesh->quality->size(), 2);
    QCOMPARE(mesh->quality->at(0).measure, u"ICN"_s);
    QCOMPARE(mesh->quality->at(1).measure, u"IGE"_s);
    // Once is enough.
    QVERIFY(measure_quality(*mesh, QDir(u"/no/such/folder"_s)));
    for (const Mesh::Quality& quality : *mesh->quality) {
        QVERIFY(quality.least > 0);
        QVERIFY(quality.least < quality.mean);
        QVERIFY(quality.mean < quality.most);
        QVERIFY(quality.most <= 1 + 1e-9);
    }
}

void TstRunMesher::failing_measurement_is_a_clear_error()
{
    const auto mesh = run_mesher(mMesher, *mModel, {1}, {.size = 0.5});
    const auto failure = [&mesh](const QDir& programs) {
        try {
            measure_quality(*mesh, programs);
        } catch (const GeometryError& error) {
            return error.message();
        }
        return QString();
    };
    QVERIFY(failure(QDir(u"/no/such"_s))
                .startsWith(u"the converter \"/no/such/fennar-converter\" cannot be started"));
    for (const auto& [script, message] :
         {std::pair<QByteArray, QString>{
              "kill -SEGV $$", u"the converter has crashed. The model and the last mesh are as they were"_s},
          {"exit 0", u"the converter has left no measures: No such file or directory"_s},
          {"cd \"$(dirname \"$1\")\"; echo rubbish >quality", u"the converter's measures are damaged"_s}}) {
        const QString path = program(script);
        QFile::remove(mDirectory->filePath(u"fennar-converter"_s));
        QVERIFY(QFile::link(path, mDirectory->filePath(u"fennar-converter"_s)));
        QCOMPARE(failure(QDir(mDirectory->path())), message);
        QVERIFY(!mesh->quality);
    }
}

void TstRunMesher::hxt_meshes_in_several_threads_data()
{
    QTest::addColumn<int>("threads");
    QTest::newRow("one") << 1;
    QTest::newRow("two") << 2;
}

void TstRunMesher::hxt_meshes_in_several_threads()
{
    QFETCH(const int, threads);
    QStringList said;
    MesherListener listener;
    listener.message = [&said](const MesherReport::Message& message) { said << message.text; };
    const auto mesh =
        run_mesher(mMesher, *mModel, {1}, {.size = 0.04, .hxt = true, .threads = threads}, listener);
    QVERIFY(count(*mesh, 3) > 50'000 && count(*mesh, 3) < 200'000);
    check_surface(mesh->surfaces[0], 1);
    // The engine tells how many it takes where that helps.
    static const QRegularExpression many(u"points on +([0-9]+) threads"_s);
    int most = 0;
    for (const QString& line : std::as_const(said))
        most = std::max(most, many.match(line).captured(1).toInt());
    QCOMPARE(most, threads);
}

void TstRunMesher::smaller_size_gives_more_elements()
{
    const auto coarse = run_mesher(mMesher, *mModel, {1}, {.size = 0.5});
    const auto fine = run_mesher(mMesher, *mModel, {1}, {.size = 0.125});
    QVERIFY(count(*fine, 3) > 10 * count(*coarse, 3));
}

void TstRunMesher::several_solids_are_meshed_together()
{
    mModel->sphere(1, {3, 0, 0}, u"ball"_s);
    const auto mesh = run_mesher(mMesher, *mModel, {1, 2}, {.size = 0.5});
    const auto brick = run_mesher(mMesher, *mModel, {1}, {.size = 0.5});
    const auto ball = run_mesher(mMesher, *mModel, {2}, {.size = 0.5});
    QCOMPARE(count(*mesh, 2), count(*brick, 2) + count(*ball, 2));
    QVERIFY(mesh->msh.contains("\"ball\""));
    QCOMPARE(mesh->solids, QStringList({u"brick1"_s, u"ball"_s}));
}

void TstRunMesher::solid_of_pieces_is_meshed()
{
    const auto brick = run_mesher(mMesher, *mModel, {1}, {.size = 0.5});
    mModel->copy(1, {5, 0, 0});
    mModel->unite({1, 2});
    const auto mesh = run_mesher(mMesher, *mModel, {1}, {.size = 0.5});
    QCOMPARE(count(*mesh, 1), 2 * count(*brick, 1));
}

void TstRunMesher::surfaces_are_closed_and_face_outwards_data()
{
    QTest::addColumn<QString>("solid");
    for (const auto& solid : {u"brick"_s, u"sphere"_s, u"hole"_s, u"cavity"_s, u"pieces"_s})
        QTest::addRow("%s", qPrintable(solid)) << solid;
}

void TstRunMesher::surfaces_are_closed_and_face_outwards()
{
    QFETCH(const QString, solid);
    const int other = mModel->brick({3, 3, 3}, {8, 0, 0}, u"other"_s);
    int id = 1;
    if (solid == u"sphere")
        id = mModel->sphere(1);
    else if (solid == u"hole")
        mModel->subtract(1, {mModel->cylinder(0.25, 3)});
    else if (solid == u"cavity")
        mModel->subtract(1, {mModel->sphere(0.25)});
    else if (solid == u"pieces")
        mModel->unite({1, mModel->copy(1, {5, 0, 0})});
    const auto mesh = run_mesher(mMesher, *mModel, {other, id}, {.size = 0.25});
    QCOMPARE(mesh->surfaces.size(), 2);
    check_surface(mesh->surfaces[0], 27);
    check_surface(mesh->surfaces[1], mModel->measures(id).volume);
}

void TstRunMesher::only_the_solids_named_are_meshed()
{
    mModel->sphere(1);
    const auto mesh = run_mesher(mMesher, *mModel, {1}, {.size = 0.5});
    QCOMPARE(count(*mesh, 0), 8);
    QVERIFY(!mesh->msh.contains("\"sphere2\""));
}

void TstRunMesher::locale_makes_no_difference()
{
    const QByteArray before = qgetenv("LC_ALL");
    qputenv("LC_ALL", "de_DE.UTF-8");
    const QDir programs(QStringLiteral(FENNAR_PROGRAMS));
    const auto german = run_mesher(mMesher, *mModel, {1}, {.size = 0.25});
    const bool measured = measure_quality(*german, programs);
    qputenv("LC_ALL", before);
    const auto mesh = run_mesher(mMesher, *mModel, {1}, {.size = 0.25});
    QVERIFY(measured && measure_quality(*mesh, programs));
    QCOMPARE(german->nodes, mesh->nodes);
    QCOMPARE(german->quality->at(0).mean, mesh->quality->at(0).mean);
}

void TstRunMesher::progress_rises_through_all_stages()
{
    QList<int> percentages;
    QStringList stages;
    MesherListener listener;
    listener.progress = [&](int percent, const QString& stage) {
        percentages << percent;
        if (stages.isEmpty() || stages.last() != stage)
            stages << stage;
    };
    run_mesher(mMesher, *mModel, {1}, {.size = 0.05}, listener);
    QVERIFY(std::is_sorted(percentages.begin(), percentages.end()));
    QCOMPARE(stages, QStringList({u"reading the solids"_s, u"meshing edges"_s, u"meshing faces"_s,
                                  u"meshing volumes"_s, u"writing"_s}));
    // Within faces and within volumes, too.
    QVERIFY(std::count_if(percentages.begin(), percentages.end(), [](int p) { return p > 5 && p < 35; }) > 2);
    QVERIFY(std::count_if(percentages.begin(), percentages.end(), [](int p) { return p > 35 && p < 90; }) >
            2);
}

void TstRunMesher::engine_messages_arrive()
{
    QStringList texts;
    MesherListener listener;
    listener.message = [&texts](const MesherReport::Message& message) { texts << message.text; };
    run_mesher(mMesher, *mModel, {1}, {.size = 0.25}, listener);
    QVERIFY(texts.contains(u"Meshing 3D..."_s));
    QVERIFY(texts.indexOf(u"Meshing 1D..."_s) < texts.indexOf(u"Meshing 3D..."_s));
}

void TstRunMesher::mesh_knows_what_it_was_made_of()
{
    const auto mesh = run_mesher(mMesher, *mModel, {1}, {.size = 0.5});
    QCOMPARE(mesh->size, 0.5);
    QCOMPARE(mesh->revision, mModel->revision());
    QCOMPARE(mesh->solids, QStringList(u"brick1"_s));
    mModel->move({1}, {1, 0, 0});
    QVERIFY(mesh->revision != mModel->revision());
    QVERIFY(!mModel->mesh());
}

void TstRunMesher::cancel_does_not_wait_for_the_end_of_a_step()
{
    QString stage;
    bool frozen = false;
    int turns_after = 0;
    MesherListener listener;
    listener.progress = [&stage](int, const QString& now) { stage = now; };
    listener.go_on = [&] {
        turns_after += frozen ? 1 : 0;
        if (stage != u"meshing volumes")
            return true;
        // Without this it is half a second of work, in one call into the engine.
        frozen = freeze_children();
        return false;
    };
    const auto mesh = run_mesher(mMesher, *mModel, {1}, {.size = 0.05}, listener);
    QVERIFY(frozen);
    QVERIFY(!mesh);
    QCOMPARE(turns_after, 0);
}

void TstRunMesher::listener_gets_its_turn_while_the_mesher_says_nothing()
{
    QString stage;
    bool frozen = false;
    int turns = 0;
    MesherListener listener;
    listener.progress = [&stage](int, const QString& now) { stage = now; };
    listener.go_on = [&] {
        if (frozen && ++turns == 20)
            freeze_children(false);
        if (!frozen && stage == u"meshing volumes")
            frozen = freeze_children();
        return true;
    };
    QVERIFY(run_mesher(mMesher, *mModel, {1}, {.size = 0.05}, listener));
    QVERIFY(turns >= 20);
}

void TstRunMesher::killed_mesher_is_a_clear_error_data()
{
    QTest::addColumn<int>("signal");
    QTest::addRow("killed") << SIGKILL;
    QTest::addRow("abort") << SIGABRT;
}

void TstRunMesher::killed_mesher_is_a_clear_error()
{
    QFETCH(int, signal);
    auto old_mesh = std::make_shared<Mesh>();
    mModel->set_mesh(old_mesh);
    const qint64 revision = mModel->revision();
    QString stage;
    MesherListener listener;
    listener.progress = [&stage](int, const QString& now) { stage = now; };
    listener.go_on = [&] {
        if (stage == u"meshing volumes") {
            const QList<int> children = child_processes();
            if (children.size() == 1)
                kill(children[0], signal);
        }
        return true;
    };
    QString message;
    try {
        run_mesher(mMesher, *mModel, {1}, {.size = 0.03}, listener);
    } catch (const GeometryError& error) {
        message = error.message();
    }
    QCOMPARE(message,
             u"the mesher has crashed while meshing volumes. The model and the last mesh are as they were"_s);
    QCOMPARE(mModel->mesh().get(), old_mesh.get());
    QCOMPARE(mModel->revision(), revision);
    QVERIFY(run_mesher(mMesher, *mModel, {1}, {.size = 0.5})); // the next one works
}

void TstRunMesher::failing_mesher_is_a_clear_error_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("message");
    QTest::addRow("crash before the first line")
        << QByteArray("kill -SEGV $$")
        << u"the mesher has crashed. The model and the last mesh are as they were"_s;
    QTest::addRow("exit status") << QByteArray("exit 3") << u"the mesher has failed (exit status 3)"_s;
    QTest::addRow("the engine's error") << QByteArray("echo 'Error   : no room' >&2; exit 1") << u"no room"_s;
    QTest::addRow("the last error counts")
        << QByteArray("echo 'Error   : first'; printf 'Error   : second'; exit 1") << u"second"_s;
    QTest::addRow("no files") << QByteArray("exit 0")
                              << u"the mesher has left no mesh: No such file or directory"_s;
    QTest::addRow("damaged statistics")
        << QByteArray("cd \"$(dirname \"$1\")\"; echo x >mesh.msh; echo rubbish >statistics")
        << u"the mesher's statistics are damaged"_s;
    QTest::addRow("empty mesh") << QByteArray("cd \"$(dirname \"$1\")\"; : >mesh.msh; : >statistics")
                                << u"the mesher has left an empty mesh"_s;
}

void TstRunMesher::failing_mesher_is_a_clear_error()
{
    QFETCH(QByteArray, script);
    QFETCH(QString, message);
    QCOMPARE(failure(program(script)), message);
}

void TstRunMesher::mesher_that_cannot_be_started_is_an_error()
{
    QVERIFY(failure(u"/no/such/mesher"_s).startsWith(u"the mesher \"/no/such/mesher\" cannot be started"));
}

void TstRunMesher::silent_mesher_can_be_cancelled()
{
    int turns = 0;
    MesherListener listener;
    listener.go_on = [&turns] { return ++turns < 3; };
    QVERIFY(!run_mesher(program("exec sleep 1000"), *mModel, {1}, {.size = 0.5}, listener));
    QCOMPARE(turns, 3);
}

void TstRunMesher::exception_of_a_listener_ends_the_mesher()
{
    MesherListener listener;
    listener.message = [](const MesherReport::Message&) { throw std::runtime_error("enough"); };
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, run_mesher(mMesher, *mModel, {1}, {.size = 0.02}, listener));
}

void TstRunMesher::unknown_solid_is_an_error()
{
    QVERIFY_THROWS_EXCEPTION(GeometryError, run_mesher(mMesher, *mModel, {1, 7}, {.size = 0.5}));
}

void TstRunMesher::mesher_refuses_bad_jobs_data()
{
    QTest::addColumn<QByteArray>("job");
    QTest::addRow("empty") << QByteArray();
    QTest::addRow("no size") << QByteArray("output a\nstatistics b\nsolid a a.brep\n");
    QTest::addRow("negative size") << QByteArray("size -1\noutput a\nstatistics b\nsolid a a.brep\n");
    QTest::addRow("no solid") << QByteArray("size 1\noutput a\nstatistics b\n");
    QTest::addRow("unknown key") << QByteArray("size 1\noutput a\nstatistics b\nsolid a a.brep\nwhat\n");
    QTest::addRow("unknown algorithm")
        << QByteArray("size 1\nalgorithm best\noutput a\nstatistics b\nsolid a a.brep\n");
    QTest::addRow("no thread") << QByteArray("size 1\nthreads 0\noutput a\nstatistics b\nsolid a a.brep\n");
    QTest::addRow("solid without a file") << QByteArray("size 1\noutput a\nstatistics b\nsolid a\n");
}

void TstRunMesher::mesher_refuses_bad_jobs()
{
    QFETCH(QByteArray, job);
    // The script puts another job in the place of the one it was given.
    QFile file(mDirectory->filePath(u"job"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(job);
    file.close();
    const QByteArray script =
        "exec '" + mMesher.toLocal8Bit() + "' '" + mDirectory->filePath(u"job"_s).toLocal8Bit() + "'";
    QCOMPARE(failure(program(script)), u"the mesher has failed (exit status 2)"_s);
}

void TstRunMesher::mesher_ends_with_the_program_that_started_it()
{
    // A program in between starts the mesher and is killed; the mesher then has nobody to work for.
    const QByteArray pid_file = mDirectory->filePath(u"pid"_s).toLocal8Bit();
    const QByteArray script = "'" + mMesher.toLocal8Bit() + "' \"$1\" & echo $! >'" + pid_file + "'; wait";
    int pid = 0;
    MesherListener listener;
    listener.go_on = [&pid, &pid_file] {
        QFile file(QString::fromLocal8Bit(pid_file));
        if (pid == 0 && file.open(QIODevice::ReadOnly))
            pid = file.readAll().trimmed().toInt();
        return pid == 0;
    };
    QVERIFY(!run_mesher(program(script), *mModel, {1}, {.size = 0.01}, listener));
    QVERIFY(pid > 0);
    QTRY_VERIFY(kill(pid, 0) != 0 || QFile::symLinkTarget(u"/proc/%1/exe"_s.arg(pid)).isEmpty());
}

OSTREL_TEST(TstRunMesher)

#include "tst_runmesher.moc"
