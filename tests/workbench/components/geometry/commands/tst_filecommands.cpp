// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/leftovers.h"
#include "workbench/components/geometry/commands/geometry_commands.h"
#include "workbench/components/geometry/exchange/Format.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/programs/mesh_quality.h"
#include "workbench/components/geometry/turn_faces.h"
#include "workbench/components/obj_format/obj_text.h"
#include "workbench/sdk/core/commands/ApplicationServices.h"
#include "workbench/sdk/core/commands/CommandSession.h"
#include "workbench/sdk/core/commands/Interrupt.h"
#include "workbench/sdk/core/files/FormatRegistry.h"

#include <QFile>
#include <QMap>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace fennar;
using namespace fennar::geometry;
using namespace fennar::obj_format;
using namespace Qt::StringLiterals;

namespace {

/** A box from the origin as an IGES file of six surfaces, the way old programs write it. */
QByteArray iges_box(double x, double y, double z, int unit, const char* unit_name)
{
    struct Point
    {
        double at[3];
    };
    const auto corner = [&](int i) { return Point{{i & 1 ? x : 0, i & 2 ? y : 0, i & 4 ? z : 0}}; };
    // Corners of each face in the order (0,0), (1,0), (0,1), (1,1).
    constexpr int faces[6][4] = {{0, 2, 1, 3}, {4, 5, 6, 7}, {0, 1, 4, 5},
                                 {2, 6, 3, 7}, {0, 4, 2, 6}, {1, 3, 5, 7}};
    QByteArrayList directory;
    QByteArrayList parameters;
    const auto add = [&](int type, const QByteArray& data) {
        const qsizetype entry = directory.size() + 1;
        const qsizetype first = parameters.size() + 1;
        QByteArray rest = data;
        while (!rest.isEmpty()) {
            qsizetype size = rest.size() <= 64 ? rest.size() : rest.left(64).lastIndexOf(',') + 1;
            parameters << rest.left(size).leftJustified(64) + QByteArray::number(entry).rightJustified(8);
            rest = rest.sliced(size);
        }
        const auto field = [](qsizetype value) { return QByteArray::number(value).rightJustified(8); };
        directory << field(type) + field(first) + field(0) + field(0) + field(0) + field(0) + field(0) +
                         field(0) + "00000000";
        directory << field(type) + field(0) + field(0) + field(parameters.size() + 1 - first) + field(0) +
                         QByteArray(16, ' ') + QByteArray(8, ' ') + field(0);
        return entry;
    };
    for (const auto& face : faces) {
        QByteArray spline = "128,1,1,1,1,0,0,1,0,0,0.,0.,1.,1.,0.,0.,1.,1.,1.,1.,1.,1.";
        for (const int i : face) {
            for (const double value : corner(i).at)
                spline += ',' + QByteArray::number(value, 'f', 3);
        }
        const qsizetype surface = add(128, spline + ",0.,1.,0.,1.;");
        add(144, "144," + QByteArray::number(surface) + ",0,0,0;");
    }
    QByteArray file;
    int number = 0;
    const auto line = [&](const QByteArray& text, char section) {
        file += text.leftJustified(72) + section + QByteArray::number(++number).rightJustified(7) + '\n';
    };
    line("A box of six surfaces", 'S');
    number = 0;
    const QByteArray unit_text = QByteArray::number(unit) + ",2H" + unit_name;
    line("1H,,1H;,3Hbox,7Hbox.igs,4Htest,1H1,32,38,6,308,15,3Hbox,1.,", 'G');
    line(unit_text + ",1,1.,15H20260101.120000,1.E-6,1000.,4Htest,4Htest,11,0;", 'G');
    const int global = number;
    number = 0;
    for (const QByteArray& entry : directory)
        line(entry, 'D');
    number = 0;
    for (const QByteArray& entry : parameters)
        line(entry, 'P');
    const auto count = [](char section, qsizetype lines) {
        return section + QByteArray::number(lines).rightJustified(7);
    };
    const QByteArray counts =
        count('S', 1) + count('G', global) + count('D', directory.size()) + count('P', parameters.size());
    number = 0;
    line(counts, 'T');
    return file;
}

/** No file that this process or its children write may become longer. */
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        getrlimit(RLIMIT_FSIZE, &mBefore);
        rlimit limit = mBefore;
        limit.rlim_cur = bytes;
        mGood = setrlimit(RLIMIT_FSIZE, &limit) == 0;
        mHandler = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &mBefore);
        std::signal(SIGXFSZ, mHandler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    bool is_good() const { return mGood; }

private:
    rlimit mBefore = {};
    bool mGood = false;
    void (*mHandler)(int) = nullptr;
};

} // namespace

/** The commands "import" and "export", with the real converter. */
class TstFileCommands : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void solids_come_back_with_their_measures_data();
    void solids_come_back_with_their_measures();
    void pieces_come_back_as_solids();
    void faces_of_a_file_are_turned_outwards_data();
    void faces_of_a_file_are_turned_outwards();
    void only_the_solids_named_are_written();
    void lengths_become_millimeters_data();
    void lengths_become_millimeters();
    void surfaces_of_an_iges_file_become_a_solid_data();
    void surfaces_of_an_iges_file_become_a_solid();
    void surface_is_closed_and_faces_outwards_data();
    void surface_is_closed_and_faces_outwards();
    void size_makes_triangles_smaller();
    void open_surface_is_told();
    void imported_surface_is_written_again();
    void mesh_comes_back_data();
    void mesh_comes_back();
    void imported_mesh_is_of_no_earlier_model();
    void export_of_an_old_mesh_says_so();
    void names_are_taken_from_the_file_data();
    void names_are_taken_from_the_file();
    void odd_file_names_are_no_problem_data();
    void odd_file_names_are_no_problem();
    void errors_tell_the_column_data();
    void errors_tell_the_column();
    void damaged_files_change_nothing_data();
    void damaged_files_change_nothing();
    void files_that_are_none_are_refused();
    void failed_export_leaves_the_old_file_data();
    void failed_export_leaves_the_old_file();
    void full_disk_leaves_the_old_file_data();
    void full_disk_leaves_the_old_file();
    void link_stays_a_link();
    void file_that_another_program_has_open_is_replaced();
    void cancel_changes_nothing();
    void crash_of_the_converter_is_told();
    void foreign_format_that_fails_is_told();
    void recent_command_has_the_file_in_quotes_data();
    void recent_command_has_the_file_in_quotes();
    void commands_are_explained();

private:
    QString path(const QString& name) const { return mDirectory->filePath(name); }
    QString output(const QString& line)
    {
        mSession->take_output();
        mSession->interpreter.run(line);
        return mSession->take_output() + mSession->take_errors();
    }
    QString error(const QString& line)
    {
        mSession->take_errors();
        mSession->interpreter.run(line);
        return mSession->take_errors();
    }
    void make(const QStringList& lines)
    {
        for (const QString& line : lines)
            QCOMPARE(error(line), QString());
    }
    /** What exporting to a file of that name makes: once for all rows of a function, whose models are the
     * same. */
    QByteArray exported(const QString& name)
    {
        QByteArray& file = mExports[QString::fromUtf8(QTest::currentTestFunction()) + u' ' + name];
        if (file.isEmpty()) {
            make({u"export "_s + name});
            file = read(name);
            QFile::remove(path(name));
        }
        return file;
    }
    /** Makes solids and their mesh. The mesher takes long to start: it is run once for the same lines. */
    void make_with_mesh(const QStringList& solids, const QString& mesh_line)
    {
        make(solids);
        std::shared_ptr<const Mesh>& mesh = mMeshes[solids.join(u'\n') + u'\n' + mesh_line];
        if (mesh) {
            mModel->set_mesh(mesh);
        } else {
            make({mesh_line});
            mesh = mModel->mesh();
        }
    }
    void write(const QString& name, const QByteArray& content) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }
    QByteArray read(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    /** The volumes of all solids, rounded. */
    QStringList volumes() const
    {
        QStringList result;
        for (const int id : mModel->ids())
            result << mModel->solid(id)->name + u' ' + QString::number(mModel->measures(id).volume, 'g', 9);
        return result;
    }

    std::unique_ptr<QTemporaryDir> mDirectory;
    std::unique_ptr<GeometryModel> mModel;
    std::unique_ptr<CommandSession> mSession;
    ApplicationServices mServices;
    QString mWorkingDirectory;
    QStringList mTemporaryFiles;

    // What several rows use.
    QMap<QString, std::shared_ptr<const Mesh>> mMeshes;
    QMap<QString, QByteArray> mExports;
};

void TstFileCommands::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    mWorkingDirectory = QDir::currentPath();
    QDir::setCurrent(mDirectory->path());
    mModel = std::make_unique<GeometryModel>();
    mSession = std::make_unique<CommandSession>();
    mServices = {};
    QVERIFY(register_geometry_commands(mSession->registry, u"geometry"_s,
                                       {*mModel, mServices, QDir(QStringLiteral(FENNAR_PROGRAMS))}));
    mTemporaryFiles = temporary_files();
}

void TstFileCommands::tear_down()
{
    QCOMPARE(child_processes(), QList<int>());
    QCOMPARE(temporary_files(), mTemporaryFiles);
    FormatRegistry::instance().remove_owner(u"test"_s);
    mSession.reset();
    mModel.reset();
    QDir::setCurrent(mWorkingDirectory);
    mDirectory.reset();
}

void TstFileCommands::solids_come_back_with_their_measures_data()
{
    QTest::addColumn<QString>("name");
    for (const auto& name : {u"a.step"_s, u"a.stp"_s, u"A.STEP"_s, u"a.brep"_s})
        QTest::addRow("%s", qPrintable(name)) << name;
}

void TstFileCommands::solids_come_back_with_their_measures()
{
    QFETCH(const QString, name);
    make({u"brick 10 20 30 at 5 10 15 name plate"_s, u"cylinder 3 60 at 5 10 15 name drill"_s,
          u"subtract drill from plate"_s, u"torus 3 1 at 50 0 0"_s, u"cone 2 3 1 at -50 0 0"_s});
    const QList<int> before = mModel->ids();
    QCOMPARE(before.size(), 3);
    QCOMPARE(output(u"export "_s + name), QString());
    const QString answer = output(u"import "_s + name);
    QCOMPARE(answer.count(u": volume "), 3);
    QCOMPARE(mModel->ids().size(), 6);
    for (int i = 0; i < 3; ++i) {
        const SolidMeasures out = mModel->measures(before[i]);
        const SolidMeasures in = mModel->measures(mModel->ids()[3 + i]);
        QVERIFY(std::abs(in.volume - out.volume) < 1e-6 * out.volume);
        QVERIFY(std::abs(in.area - out.area) < 1e-6 * out.area);
        QVERIFY(std::abs(in.center.x - out.center.x) < 1e-6 && std::abs(in.center.y - out.center.y) < 1e-6 &&
                std::abs(in.center.z - out.center.z) < 1e-6);
    }
}

void TstFileCommands::pieces_come_back_as_solids()
{
    make({u"brick 1 name a"_s, u"brick 2 at 9 0 0 name b"_s, u"unite a b"_s, u"export a.brep"_s,
          u"delete all"_s, u"import a.brep"_s});
    QCOMPARE(volumes(), QStringList({u"a3 1"_s, u"a4 8"_s}));
}

void TstFileCommands::faces_of_a_file_are_turned_outwards_data()
{
    QTest::addColumn<QString>("solid");
    QTest::addColumn<int>("shell");
    QTest::addColumn<int>("turned");
    QTest::addColumn<double>("volume");
    const QString hollow = u"brick 10\nbrick 5 name d\nsubtract d from 1"_s;
    QTest::newRow("none") << u"brick 10"_s << 1 << 0 << 1000.0;
    QTest::newRow("one") << u"brick 10"_s << 1 << 1 << 1000.0;
    QTest::newRow("all") << u"brick 10"_s << 1 << 6 << 1000.0;
    QTest::newRow("one of a cylinder") << u"cylinder 4 10"_s << 1 << 1 << 502.65;
    QTest::newRow("one of each of two shells") << hollow << 0 << 1 << 875.0;
    for (const int shell : {1, 2}) {
        QTest::addRow("one of shell %d of a hollow brick", shell) << hollow << shell << 1 << 875.0;
        QTest::addRow("shell %d of a hollow brick", shell) << hollow << shell << 6 << 875.0;
    }
}

void TstFileCommands::faces_of_a_file_are_turned_outwards()
{
    QFETCH(const QString, solid);
    QFETCH(const int, shell);
    QFETCH(const int, turned);
    QFETCH(const double, volume);
    make({solid, u"export a.brep"_s, u"delete all"_s});
    QByteArray content = read(u"a.brep"_s);
    QVERIFY(turn_faces(content, shell, turned) >= shell);
    write(u"b.brep"_s, content);
    make({u"import b.brep"_s, u"mesh size 2"_s, u"export m.stl mesh"_s});
    QCOMPARE(mModel->ids().size(), 1);
    QVERIFY(std::abs(mModel->measures(mModel->ids()[0]).volume - volume) < 1e-3 * volume);
    const QString answer = output(u"import m.stl"_s);
    const auto told = QRegularExpression(u"closed, volume ([\\d.]+)\\n$"_s).match(answer);
    QVERIFY2(told.hasMatch(), qPrintable(answer));
    QVERIFY2(std::abs(told.captured(1).toDouble() - volume) < 0.2 * volume, qPrintable(answer));
}

void TstFileCommands::only_the_solids_named_are_written()
{
    make({u"brick 1 name a"_s, u"brick 2 name b"_s, u"brick 3 name c"_s, u"export x.step c a"_s,
          u"delete all"_s, u"import x.step"_s});
    QStringList sorted = volumes();
    std::sort(sorted.begin(), sorted.end());
    QCOMPARE(sorted.size(), 2);
    QVERIFY(sorted.join(u' ').contains(u" 1") && sorted.join(u' ').contains(u" 27"));
}

void TstFileCommands::lengths_become_millimeters_data()
{
    QTest::addColumn<QByteArray>("unit");
    QTest::addColumn<double>("volume");
    QTest::newRow("millimeter") << QByteArray("SI_UNIT(.MILLI.,.METRE.)") << 8.0;
    QTest::newRow("centimeter") << QByteArray("SI_UNIT(.CENTI.,.METRE.)") << 8e3;
    QTest::newRow("metre") << QByteArray("SI_UNIT($,.METRE.)") << 8e9;
}

void TstFileCommands::lengths_become_millimeters()
{
    QFETCH(const QByteArray, unit);
    QFETCH(const double, volume);
    make({u"brick 2"_s});
    QByteArray content = exported(u"a.step"_s);
    make({u"delete all"_s});
    QVERIFY(content.contains("SI_UNIT(.MILLI.,.METRE.)"));
    write(u"b.step"_s, content.replace("SI_UNIT(.MILLI.,.METRE.)", unit));
    make({u"import b.step"_s});
    QCOMPARE(mModel->ids().size(), 1);
    QVERIFY(std::abs(mModel->measures(mModel->ids().first()).volume - volume) < 1e-6 * volume);
}

void TstFileCommands::surfaces_of_an_iges_file_become_a_solid_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<QByteArray>("unit_name");
    QTest::addColumn<double>("scale");
    QTest::newRow("millimeters") << 2 << QByteArray("MM") << 1.0;
    QTest::newRow("inches") << 1 << QByteArray("IN") << 25.4;
}

void TstFileCommands::surfaces_of_an_iges_file_become_a_solid()
{
    QFETCH(const int, unit);
    QFETCH(const QByteArray, unit_name);
    QFETCH(const double, scale);
    write(u"box.igs"_s, iges_box(2, 3, 4, unit, unit_name.constData()));
    const QString answer = output(u"import box.igs"_s);
    QVERIFY2(answer.startsWith(u"box: volume "), qPrintable(answer));
    const double volume = 24 * scale * scale * scale;
    QVERIFY2(std::abs(mModel->measures(1).volume - volume) < 1e-6 * volume, qPrintable(answer));
    QCOMPARE(mModel->measures(1).pieces, 1);
    QVERIFY(std::abs(mModel->box(1).most.z - 4 * scale) < 1e-5);
}

void TstFileCommands::surface_is_closed_and_faces_outwards_data()
{
    QTest::addColumn<QString>("solid");
    QTest::addColumn<double>("volume");
    QTest::newRow("brick") << u"brick 1 2 3"_s << 6.0;
    QTest::newRow("sphere") << u"sphere 2"_s << 33.510;
    QTest::newRow("torus") << u"torus 3 1"_s << 59.218;
    QTest::newRow("hole") << u"brick 4\ncylinder 1 9 name d\nsubtract d from 1"_s << 51.434;
    QTest::newRow("cavity") << u"brick 4\nsphere 1 name d\nsubtract d from 1"_s << 59.811;
}

void TstFileCommands::surface_is_closed_and_faces_outwards()
{
    QFETCH(const QString, solid);
    QFETCH(const double, volume);
    make({solid, u"export a.stl"_s});
    const QByteArray content = read(u"a.stl"_s);
    const QString answer = output(u"import a.stl"_s);
    const auto told =
        QRegularExpression(u"^Mesh: (\\d+) nodes, (\\d+) x Triangle 3, closed, volume ([\\d.]+)\\n$"_s)
            .match(answer);
    QVERIFY2(told.hasMatch(), qPrintable(answer));
    // In the binary form each triangle takes 50 bytes.
    QCOMPARE(content.size(), 84 + 50 * told.captured(2).toInt());
    QVERIFY2(std::abs(told.captured(3).toDouble() - volume) < 0.03 * volume, qPrintable(answer));
    QCOMPARE(mModel->mesh()->elements.size(), 1);
    QCOMPARE(mModel->mesh()->elements[0].count, told.captured(2).toInt());
}

void TstFileCommands::size_makes_triangles_smaller()
{
    make({u"brick 10"_s, u"export a.stl"_s, u"export b.stl 1 size 0.5"_s});
    QVERIFY(read(u"b.stl"_s).size() > 3 * read(u"a.stl"_s).size());
}

void TstFileCommands::open_surface_is_told()
{
    write(u"a.stl"_s, "solid a\nfacet normal 0 0 1\nouter loop\nvertex 0 0 0\nvertex 1 0 0\nvertex 0 1 "
                      "0\nendloop\nendfacet\nendsolid a\n");
    QCOMPARE(output(u"import a.stl"_s), u"Mesh: 3 nodes, 1 x Triangle 3, not closed\n"_s);
}

void TstFileCommands::imported_surface_is_written_again()
{
    QVERIFY(FormatRegistry::instance().add({u"OBJ"_s, {u"obj"_s}, u"test"_s, &read_obj, &write_obj}));
    make({u"sphere 2"_s, u"export a.obj"_s, u"delete all"_s, u"import a.obj"_s});
    const Surface before = read_obj(read(u"a.obj"_s));
    QVERIFY(before.triangles.size() > 100);
    // There is no solid, and so the mesh is what is meant.
    for (const auto& line : {u"export b.obj"_s, u"export b.obj mesh"_s}) {
        QFile::remove(path(u"b.obj"_s));
        make({line});
        const Surface after = read_obj(read(u"b.obj"_s));
        QCOMPARE(after.triangles.size(), before.triangles.size());
        QCOMPARE(after.points.size(), before.points.size());
    }
    make({u"brick 1"_s, u"export c.obj"_s});
    QVERIFY(read_obj(read(u"c.obj"_s)).points.size() != before.points.size());
}

void TstFileCommands::mesh_comes_back_data()
{
    QTest::addColumn<QString>("name");
    for (const auto& name : {u"a.msh"_s, u"a.vtk"_s})
        QTest::addRow("%s", qPrintable(name)) << name;
}

void TstFileCommands::mesh_comes_back()
{
    QFETCH(const QString, name);
    make_with_mesh({u"brick 1 2 3"_s}, u"mesh size 0.5"_s);
    const auto before = mModel->mesh();
    make({u"export "_s + name});
    mModel->set_mesh(nullptr);
    QCOMPARE(error(u"export b.msh"_s), u"ERROR: export: there is no mesh\n"_s);
    make({u"import "_s + name});
    const auto after = mModel->mesh();
    QVERIFY(after);
    QCOMPARE(after->nodes, before->nodes);
    const auto count = [](const Mesh& mesh, int dimension) {
        qint64 sum = 0;
        for (const Mesh::Elements& elements : mesh.elements)
            sum += elements.dimension == dimension ? elements.count : 0;
        return sum;
    };
    QVERIFY(count(*before, 3) > 0);
    for (const int dimension : {2, 3})
        QCOMPARE(count(*after, dimension), count(*before, dimension));
    const QDir programs(QStringLiteral(FENNAR_PROGRAMS));
    QVERIFY(measure_quality(*before, programs) && measure_quality(*after, programs));
    QCOMPARE(after->quality->size(), 2);
    QVERIFY(std::abs(after->quality->at(0).least - before->quality->at(0).least) < 1e-6);
}

void TstFileCommands::imported_mesh_is_of_no_earlier_model()
{
    make({u"brick 1"_s, u"export a.stl"_s, u"import a.stl"_s, u"brick 2"_s});
    const QString answer = output(u"statistics"_s);
    QVERIFY2(answer.startsWith(u"Mesh from \"%1\"\n"_s.arg(path(u"a.stl"_s))), qPrintable(answer));
    QVERIFY(!answer.contains(u"changed"));
    QCOMPARE(error(u"quality"_s), u"ERROR: quality: column 1: the mesh has no volume elements\n"_s);
    make({u"mesh 1 size 0.5"_s});
    QVERIFY(output(u"statistics"_s).startsWith(u"Mesh of brick1, size 0.5\n"));
}

void TstFileCommands::export_of_an_old_mesh_says_so()
{
    make({u"brick 1"_s, u"mesh size 0.5"_s});
    QCOMPARE(output(u"export a.msh"_s), QString());
    make({u"brick 2"_s});
    QCOMPARE(output(u"export a.msh"_s), u"The model has changed since the mesh was made.\n"_s);
    QCOMPARE(output(u"export a.stl mesh"_s), u"The model has changed since the mesh was made.\n"_s);
    QCOMPARE(output(u"export a.stl"_s), QString());
}

void TstFileCommands::names_are_taken_from_the_file_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << u"gear.step"_s << u"gear"_s;
    QTest::newRow("blank") << u"gear wheel.step"_s << u"gear_wheel"_s;
    QTest::newRow("dots") << u"gear.v2.step"_s << u"gear.v2"_s;
    QTest::newRow("digits in front") << u"12 gear.step"_s << u"gear"_s;
    QTest::newRow("nothing left") << u"123.step"_s << u"solid"_s;
    QTest::newRow("not Latin") << u"Деталь.step"_s << u"solid"_s;
    QTest::newRow("keyword") << u"mesh.step"_s << u"solid"_s;
    QTest::newRow("taken") << u"brick1.step"_s << u"brick12"_s;
}

void TstFileCommands::names_are_taken_from_the_file()
{
    QFETCH(const QString, file);
    QFETCH(const QString, name);
    make({u"brick 1"_s});
    write(file, exported(u"a.step"_s));
    make({u"import "_s + quote_word(file)});
    QCOMPARE(mModel->ids().size(), 2);
    QCOMPARE(mModel->solid(2)->name, name);
}

void TstFileCommands::odd_file_names_are_no_problem_data()
{
    QTest::addColumn<QString>("name");
    for (const auto& name : {u"a b"_s, u"a;b"_s, u"#a"_s, u"a%20b%1%2"_s, u"a&b"_s, u"a\"b"_s, u"a'b"_s,
                             u"a'b\"c"_s, u"größe Деталь 部品"_s, u"a\nb"_s, u"a\\b"_s, u"$a ${b}"_s,
                             u"a\tb"_s, u"-a"_s, u"as"_s, u"@stage 2D"_s})
        QTest::addRow("%s", qPrintable(quote_word(name))) << name;
}

void TstFileCommands::odd_file_names_are_no_problem()
{
    QFETCH(const QString, name);
    QVERIFY(QDir(mDirectory->path()).mkdir(name));
    make({u"brick 2"_s});
    const QString file = path(name + u'/' + name);
    const QString stl = file + u".stl"_s;
    const QByteArray surface = exported(u"a.stl"_s);
    // Once with an ending that tells another format, and once without. What is written here needs no
    // converter.
    for (const QString& ending : {u".stl"_s, QString()}) {
        const QString target = file + ending;
        const QString inside = name + u'/' + name + ending;
        make({export_command(target, u"BREP"_s)});
        QVERIFY(read(inside).contains("CASCADE Topology"));
        write(inside, surface);
        make({import_command(target, u"STL"_s)});
        QCOMPARE(mModel->mesh()->file, target);
    }
    mModel->set_mesh(nullptr);
    make({recent_import_command(stl, u"STL"_s)});
    QCOMPARE(mModel->mesh()->file, stl);
    QCOMPARE(QDir(path(name)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden).size(), 2);
    QVERIFY(error(import_command(file + u".none"_s, u"STEP"_s)).endsWith(u"there is no such file\n"));
}

void TstFileCommands::errors_tell_the_column_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("message");
    const QString in = u"(STEP, IGES, BREP, STL, MSH, VTK)"_s;
    const QString out = u"(STEP, BREP, STL, MSH, VTK)"_s;
    QTest::newRow("no file") << u"import"_s
                             << u"import: column 7: expected the name of a file, found the end of the line"_s;
    QTest::newRow("empty name") << u"export ''"_s
                                << u"export: column 8: expected the name of a file, found \"\""_s;
    QTest::newRow("no ending")
        << u"import a"_s
        << u"import: column 8: the ending of the file tells no format; say which one with \"as\" "_s + in;
    QTest::newRow("dot in a folder")
        << u"export a.stl/b"_s
        << u"export: column 8: the ending of the file tells no format; say which one with \"as\" "_s + out;
    QTest::newRow("unknown format") << u"import a as XYZ"_s
                                    << u"import: column 13: expected a format, found \"XYZ\"; there are "
                                       "\"STEP\", \"IGES\", \"BREP\", \"STL\", \"MSH\" and \"VTK\""_s;
    QTest::newRow("no format") << u"export a as"_s
                               << u"export: column 12: expected a format, found the end of the line"_s;
    QTest::newRow("only read") << u"export a.igs"_s
                               << u"export: column 8: files of the format IGES cannot be written"_s;
    QTest::newRow("only read, said") << u"export a as iges"_s
                                     << u"export: column 13: files of the format IGES cannot be written"_s;
    QTest::newRow("more words")
        << u"import a.stl x"_s << u"import: column 14: expected \"as\" or the end of the line, found \"x\""_s;
    QTest::newRow("unknown solid")
        << u"export a.step brik1"_s
        << u"export: column 15: expected a solid, \"as\" or \"mesh\", found \"brik1\"; did you mean \"brick1\"?"_s;
    QTest::newRow("mesh of solids")
        << u"export a.msh 1"_s
        << u"export: column 14: expected the end of the line (MSH files hold the last mesh), found \"1\""_s;
    QTest::newRow("solids of a mesh")
        << u"export a.step mesh"_s
        << u"export: column 15: expected the end of the line (STEP files hold solids), found \"mesh\""_s;
    QTest::newRow("size of solids")
        << u"export a.step size 1"_s
        << u"export: column 15: expected the end of the line (STEP files hold solids), found \"size\""_s;
    QTest::newRow("bad size")
        << u"export a.stl size 0"_s
        << u"export: column 19: expected a size of the triangles (a number from 1e-05 to 1e+06), found \"0\""_s;
}

void TstFileCommands::errors_tell_the_column()
{
    QFETCH(const QString, line);
    QFETCH(const QString, message);
    make({u"brick 1"_s});
    QCOMPARE(error(line), u"ERROR: "_s + message + u'\n');
    QCOMPARE(QDir(mDirectory->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

void TstFileCommands::damaged_files_change_nothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("damage");
    for (const auto& name :
         {u"a.step"_s, u"a.brep"_s, u"a.stl"_s, u"a.msh"_s, u"a.vtk"_s, u"a.igs"_s, u"a.obj"_s}) {
        for (const auto& damage :
             {u"empty"_s, u"blank"_s, u"binary"_s, u"zeros"_s, u"other"_s, u"cut"_s, u"spoiled"_s})
            QTest::addRow("%s %s", qPrintable(damage), qPrintable(name)) << name << damage;
    }
}

void TstFileCommands::damaged_files_change_nothing()
{
    QFETCH(const QString, name);
    QFETCH(const QString, damage);
    QVERIFY(FormatRegistry::instance().add({u"OBJ"_s, {u"obj"_s}, u"test"_s, &read_obj, &write_obj}));
    make_with_mesh({u"brick 1 2 3"_s}, u"mesh size 0.5"_s);
    QByteArray content = name.endsWith(u"igs") ? iges_box(1, 2, 3, 2, "MM") : exported(name);
    QVERIFY(content.size() > 200);
    QByteArray junk;
    for (unsigned i = 0; i < 5000; ++i)
        junk += char((i * 2654435761U) >> 13);
    if (damage == u"empty")
        content.clear();
    else if (damage == u"blank")
        content.fill(' ');
    else if (damage == u"binary")
        content = junk;
    else if (damage == u"zeros")
        content.fill('\0');
    else if (damage == u"other")
        content = "Dear reader,\nthis is a letter and no model.\n";
    else if (damage == u"cut")
        content.truncate(content.size() / 3);
    else
        content = content.left(content.size() / 4) + junk;
    write(u"b"_s + name, content);
    const QStringList solids = volumes();
    const qint64 revision = mModel->revision();
    const auto mesh = mModel->mesh();
    const QString message = error(u"import b"_s + name);
    QVERIFY2(message.startsWith(u"ERROR: import: \"%1\" cannot be imported: "_s.arg(path(u"b"_s + name))),
             qPrintable(message));
    QCOMPARE(message.count(u'\n'), 1);
    QCOMPARE(volumes(), solids);
    QCOMPARE(mModel->revision(), revision);
    QCOMPARE(mModel->mesh(), mesh);
}

void TstFileCommands::files_that_are_none_are_refused()
{
    make({u"brick 1"_s});
    QVERIFY(QDir(mDirectory->path()).mkdir(u"folder.step"_s));
    QCOMPARE(mkfifo(qPrintable(path(u"pipe.step"_s)), 0600), 0);
    QVERIFY(QFile::link(path(u"nowhere"_s), path(u"broken.step"_s)));
    const auto refused = [this](const QString& name, const QString& reason) {
        return u"ERROR: import: \"%1\" cannot be imported: %2\n"_s.arg(path(name), reason);
    };
    QCOMPARE(error(u"import none.step"_s), refused(u"none.step"_s, u"there is no such file"_s));
    QCOMPARE(error(u"import broken.step"_s), refused(u"broken.step"_s, u"there is no such file"_s));
    QCOMPARE(error(u"import folder.step"_s), refused(u"folder.step"_s, u"it is a folder"_s));
    QCOMPARE(error(u"import pipe.step"_s), refused(u"pipe.step"_s, u"it is not a regular file"_s));
    QFile huge(path(u"huge.obj"_s));
    QVERIFY(huge.open(QIODevice::WriteOnly) && huge.resize(qint64(5) << 30));
    QVERIFY(FormatRegistry::instance().add({u"OBJ"_s, {u"obj"_s}, u"test"_s, &read_obj, &write_obj}));
    QCOMPARE(error(u"import huge.obj"_s), refused(u"huge.obj"_s, u"it has more than 268435456 bytes"_s));
    for (const Format& format : formats()) {
        if (format.foreign)
            continue;
        const QString message = error(u"import huge.obj as "_s + format.name);
        QCOMPARE(message, refused(u"huge.obj"_s, u"its content is not of the format "_s + format.name));
    }
    QCOMPARE(mModel->ids(), QList<int>({1}));
}

void TstFileCommands::failed_export_leaves_the_old_file_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no folder") << u"none/a.step"_s << u"there is no folder"_s;
    QTest::newRow("a folder") << u"folder"_s << u"it is a folder"_s;
    QTest::newRow("a file as a folder") << u"old.step/a.step"_s << u"there is no folder"_s;
    QTest::newRow("a pipe") << u"pipe"_s << u"it is not a regular file"_s;
    QTest::newRow("a link into no folder") << u"lost.step"_s << u"No such file or directory"_s;
    QTest::newRow("a link to itself") << u"loop.step"_s << u"Too many levels of symbolic links"_s;
    QTest::newRow("a link to a folder") << u"inside.step"_s << u"it is a folder"_s;
    QTest::newRow("a name too long") << QString(300, u'x') << u"File name too long"_s;
    QTest::newRow("where nothing can be written") << u"/proc/a.step"_s << u""_s;
    QTest::newRow("a device") << u"/dev/full"_s << u"it is not a regular file"_s;
}

void TstFileCommands::failed_export_leaves_the_old_file()
{
    QFETCH(const QString, target);
    QFETCH(const QString, reason);
    QVERIFY(QDir(mDirectory->path()).mkdir(u"folder"_s));
    write(u"old.step"_s, "old");
    QCOMPARE(mkfifo(qPrintable(path(u"pipe"_s)), 0600), 0);
    QVERIFY(QFile::link(path(u"none/a.step"_s), path(u"lost.step"_s)));
    QVERIFY(QFile::link(path(u"loop.step"_s), path(u"loop.step"_s)));
    QVERIFY(QFile::link(path(u"folder"_s), path(u"inside.step"_s)));
    const auto entries = [this] {
        return QDir(mDirectory->path()).entryList(QDir::AllEntries | QDir::System | QDir::Hidden);
    };
    const QStringList before = entries();
    make({u"brick 1"_s});
    const QString file = QDir(mDirectory->path()).absoluteFilePath(target);
    const QString message = error(u"export %1 as STEP"_s.arg(file));
    QVERIFY2(message.startsWith(u"ERROR: export: \"%1\" cannot be written: %2"_s.arg(file, reason)),
             qPrintable(message));
    QCOMPARE(entries(), before);
    QCOMPARE(read(u"old.step"_s), QByteArray("old"));
    struct stat device = {};
    QVERIFY(stat("/dev/full", &device) == 0 && S_ISCHR(device.st_mode));
}

void TstFileCommands::full_disk_leaves_the_old_file_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("limit");
    // The limits are met by the solid that is handed over, by the engine's result, and by the file itself.
    for (const auto& name : {u"a.step"_s, u"a.brep"_s, u"a.vtk"_s, u"a.obj"_s})
        QTest::addRow("%s 1000", qPrintable(name)) << name << 1000;
    QTest::newRow("a.step 6000") << u"a.step"_s << 6000;
    QTest::newRow("a.stl 90000") << u"a.stl"_s << 90000;
    QTest::newRow("a.obj 150000") << u"a.obj"_s << 150000;
}

void TstFileCommands::full_disk_leaves_the_old_file()
{
    QFETCH(const QString, name);
    QFETCH(const int, limit);
    QVERIFY(FormatRegistry::instance().add({u"OBJ"_s, {u"obj"_s}, u"test"_s, &read_obj, &write_obj}));
    make_with_mesh({u"torus 8 2"_s, u"sphere 4 at 0 0 9"_s}, u"mesh size 3"_s);
    make({u"export "_s + name});
    const QByteArray before = read(name);
    // A limit that leaves room for all of it would prove nothing.
    QVERIFY2(before.size() > limit, qPrintable(QString::number(before.size())));
    QString message;
    {
        const FileSizeLimit full{rlim_t(limit)};
        QVERIFY(full.is_good());
        message = error(u"export "_s + name);
    }
    QVERIFY2(message.startsWith(u"ERROR: export: "), qPrintable(message));
    QCOMPARE(read(name), before);
    QCOMPARE(QDir(mDirectory->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden),
             QStringList(name));
    make({u"export "_s + name});
}

void TstFileCommands::link_stays_a_link()
{
    write(u"real.step"_s, "old");
    QVERIFY(QFile::link(path(u"real.step"_s), path(u"link.step"_s)));
    make({u"brick 1"_s, u"export link.step"_s});
    QVERIFY(QFileInfo(path(u"link.step"_s)).isSymLink());
    QVERIFY(read(u"real.step"_s).startsWith("ISO-10303-21"));
    QVERIFY(QFile::link(path(u"new.step"_s), path(u"ahead.step"_s)));
    make({u"export ahead.step"_s});
    QVERIFY(QFileInfo(path(u"ahead.step"_s)).isSymLink());
    QVERIFY(read(u"new.step"_s).startsWith("ISO-10303-21"));
}

void TstFileCommands::file_that_another_program_has_open_is_replaced()
{
    write(u"a.step"_s, "old");
    QFile other(path(u"a.step"_s));
    QVERIFY(other.open(QIODevice::ReadOnly));
    QCOMPARE(flock(other.handle(), LOCK_EX | LOCK_NB), 0);
    make({u"brick 1"_s, u"export a.step"_s});
    QVERIFY(read(u"a.step"_s).startsWith("ISO-10303-21"));
    QCOMPARE(other.readAll(), "old"); // what it reads does not change below it
}

void TstFileCommands::cancel_changes_nothing()
{
    make({u"brick 1"_s, u"export a.step"_s, u"export a.stl"_s, u"mesh size 0.5"_s});
    const QByteArray before = read(u"a.step"_s);
    const auto mesh = mModel->mesh();
    mServices.turn = [] { request_interrupt(); };
    QCOMPARE(error(u"import a.step"_s), u"ERROR: import: cancelled; nothing has changed\n"_s);
    QCOMPARE(error(u"import a.stl"_s), u"ERROR: import: cancelled; nothing has changed\n"_s);
    QCOMPARE(mModel->ids(), QList<int>({1}));
    QCOMPARE(mModel->mesh(), mesh);
    QCOMPARE(error(u"export a.step"_s), u"ERROR: export: cancelled; no file was written\n"_s);
    QCOMPARE(read(u"a.step"_s), before);
}

void TstFileCommands::crash_of_the_converter_is_told()
{
    make({u"brick 1"_s, u"export a.step"_s});
    mServices.turn = [] {
        for (const int child : child_processes())
            kill(child, SIGKILL);
    };
    const QString message = error(u"import a.step"_s);
    QVERIFY2(message.contains(u"the converter has crashed"), qPrintable(message));
    QVERIFY(error(u"export a.step"_s).contains(u"the converter has crashed"));
    QCOMPARE(mModel->ids(), QList<int>({1}));
    mServices.turn = nullptr;
    make({u"import a.step"_s});
}

void TstFileCommands::foreign_format_that_fails_is_told()
{
    FileFormat format{u"BAD"_s, {u"bad"_s}, u"test"_s, {}, {}};
    format.read = [](const QByteArray& content) -> Surface {
        if (content == "throw")
            throw 1;
        return {{{0, 0, 0}}, {{0, 1, 2}}};
    };
    format.write = [](const Surface&) -> QByteArray { throw std::runtime_error("no ink\nleft"); };
    QVERIFY(FormatRegistry::instance().add(format));
    write(u"a.bad"_s, "throw");
    write(u"b.bad"_s, "wrong corner");
    QCOMPARE(error(u"import a.bad"_s),
             u"ERROR: import: \"%1\" cannot be imported: the reason is unknown\n"_s.arg(path(u"a.bad"_s)));
    QCOMPARE(error(u"import b.bad"_s),
             u"ERROR: import: \"%1\" cannot be imported: a triangle has a corner that does not exist\n"_s.arg(
                 path(u"b.bad"_s)));
    make({u"brick 1"_s});
    QCOMPARE(error(u"export a.bad"_s),
             u"ERROR: export: \"%1\" cannot be written: no ink left\n"_s.arg(path(u"a.bad"_s)));
    QCOMPARE(read(u"a.bad"_s), QByteArray("throw"));
}

void TstFileCommands::recent_command_has_the_file_in_quotes_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("command");
    QTest::newRow("plain") << u"/a/b.step"_s << uR"(import "/a/b.step")"_s;
    QTest::newRow("blank") << u"/a/b c.step"_s << uR"(import "/a/b c.step")"_s;
    QTest::newRow("other ending") << u"/a/b.x"_s << uR"(import "/a/b.x" as STEP)"_s;
    QTest::newRow("apostrophe") << u"/a/b'c.step"_s << uR"(import "/a/b'c.step")"_s;
    QTest::newRow("backslash") << uR"(/a/b\c.step)"_s << uR"(import '/a/b\c.step')"_s;
    QTest::newRow("variable") << u"/a/$b.step"_s << u"import '/a/$b.step'"_s;
    QTest::newRow("dollar") << u"/a/5$.step"_s << uR"(import "/a/5$.step")"_s;
    // What no quotes hold as it is stands behind the folder.
    QTest::newRow("quote") << u"/a/b\"c.step"_s << uR"(import "/a/""b\"c.step")"_s;
    QTest::newRow("quote in a folder") << u"/a/b\"c/d.step"_s << uR"(import "/a/""b\"c/d.step")"_s;
    QTest::newRow("quote at once") << u"/\"c/d.step"_s << uR"(import "/""\"c/d.step")"_s;
    QTest::newRow("line feed") << u"/a/b\nc.step"_s << uR"(import "/a/""b\nc.step")"_s;
    QTest::newRow("apostrophe and variable") << u"/a/'$b.step"_s << uR"(import "/a/""'\$b.step")"_s;
}

void TstFileCommands::recent_command_has_the_file_in_quotes()
{
    QFETCH(const QString, file);
    QFETCH(const QString, command);
    QCOMPARE(recent_import_command(file, u"STEP"_s), command);
    const CommandWords words = tokenize(command);
    QVERIFY(!words.error);
    QCOMPARE(words.words[1].text, file);
}

void TstFileCommands::commands_are_explained()
{
    const QStringList names = mSession->registry.names();
    QVERIFY(names.contains(u"import"_s) && names.contains(u"export"_s));
    for (const auto& name : {u"import"_s, u"export"_s}) {
        const auto command = mSession->registry.find(name);
        QCOMPARE(command->owner, u"geometry"_s);
        QVERIFY(command->usage().startsWith(name + u" FILE [as FORMAT]"_s));
        for (const QString& line : command->help.split(u'\n'))
            QVERIFY2(line.size() <= 110, qPrintable(line));
    }
}

OSTREL_TEST(TstFileCommands)

#include "tst_filecommands.moc"
