// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/components/geometry/programs/MesherReport.h"

#include <QTest>

using namespace fennar;
using namespace fennar::geometry;
using namespace Qt::StringLiterals;

using Kind = MesherReport::Message::Kind;

/** What the mesher writes, line by line. */
class TstMesherReport : public TestCase
{
    Q_OBJECT

private slots:
    void engine_lines_are_messages_of_their_kind();
    void own_and_empty_lines_are_no_messages();
    void foreign_lines_are_warnings();
    void stages_begin_at_their_percentage();
    void engine_percentages_advance_within_a_stage();
    void nodes_advance_the_stage_of_volumes();
    void nodes_of_the_parallel_algorithm_count_too();
    void nodes_of_several_volumes_add_up();
    void percentage_never_falls();
    void odd_numbers_do_no_harm();
    void no_percentage_is_beyond_its_stage();
    void expectation_that_is_no_number_counts_as_least();
};

void TstMesherReport::engine_lines_are_messages_of_their_kind()
{
    MesherReport report;
    const auto info = report.read("Info    : Meshing 1D...\n");
    QVERIFY(info && info->kind == Kind::Information);
    QCOMPARE(info->text, u"Meshing 1D..."_s);
    const auto warning = report.read("Warning : bad: worse");
    QVERIFY(warning && warning->kind == Kind::Warning);
    QCOMPARE(warning->text, u"bad: worse"_s);
    const auto error = report.read("Error   : no memory\r\n");
    QVERIFY(error && error->kind == Kind::Error);
    QCOMPARE(error->text, u"no memory"_s);
}

void TstMesherReport::own_and_empty_lines_are_no_messages()
{
    MesherReport report;
    QVERIFY(!report.read("@stage 1D\n"));
    QVERIFY(!report.read("@expect 100\n"));
    QVERIFY(!report.read("\n"));
    QVERIFY(!report.read(""));
    QVERIFY(!report.read("Info    : [ 30%] Meshing curve 3 (Line)\n"));
}

void TstMesherReport::foreign_lines_are_warnings()
{
    MesherReport report;
    const auto message = report.read("terminate called after throwing\n");
    QVERIFY(message && message->kind == Kind::Warning);
    QCOMPARE(message->text, u"terminate called after throwing"_s);
    QVERIFY(report.read("\xff\xfe\n"));
}

void TstMesherReport::stages_begin_at_their_percentage()
{
    MesherReport report;
    QCOMPARE(report.percent(), 0);
    QVERIFY(report.stage().isEmpty());
    const std::pair<const char*, int> stages[] = {
        {"read", 0}, {"1D", 2}, {"2D", 5}, {"3D", 35}, {"write", 95}};
    QString last;
    for (const auto& [name, percent] : stages) {
        report.read(QByteArray("@stage ") + name + '\n');
        QCOMPARE(report.percent(), percent);
        QVERIFY(report.stage() != last);
        last = report.stage();
    }
    report.read("@stage unheard of\n");
    QCOMPARE(report.stage(), last);
}

void TstMesherReport::engine_percentages_advance_within_a_stage()
{
    MesherReport report;
    report.read("@stage 2D");
    report.read("Info    : [ 50%] Meshing surface 3 (Plane, Frontal-Delaunay)");
    QCOMPARE(report.percent(), 20);
    report.read("Info    : [100%] Meshing surface 6 (Plane, Frontal-Delaunay)");
    QCOMPARE(report.percent(), 35);
}

void TstMesherReport::nodes_advance_the_stage_of_volumes()
{
    MesherReport report;
    report.read("@expect 1000");
    report.read("@stage 3D");
    report.read("Info    : [ 80%] something else");
    QCOMPARE(report.percent(), 35);
    const auto message = report.read("Info    : It. 500 - 500 nodes created - worst tet radius 2.04");
    QVERIFY(message); // is to be read as well
    QCOMPARE(report.percent(), 35 + int(0.9 * 0.5 * 60));
    report.read("Info    : It. 5000 - 5000 nodes created - worst tet radius 2.04");
    QCOMPARE(report.percent(), 35 + int(0.9 * 60));
}

void TstMesherReport::nodes_of_the_parallel_algorithm_count_too()
{
    MesherReport report;
    report.read("@expect 1000");
    report.read("@stage 3D");
    report.read("Info    : Delaunay of      15961 points on   2 threads - mesh.nvert: 4         ");
    QCOMPARE(report.percent(), 35);
    report.read("Info    : Delaunay of        800 points on   1 threads - mesh.nvert: 500");
    QCOMPARE(report.percent(), 35 + int(0.9 * 0.5 * 60));
}

void TstMesherReport::nodes_of_several_volumes_add_up()
{
    MesherReport report;
    report.read("@expect 1000");
    report.read("@stage 3D");
    report.read("Info    : It. 0 - 0 nodes created - worst");
    report.read("Info    : It. 500 - 500 nodes created - worst");
    report.read("Info    : It. 0 - 0 nodes created - worst");
    QCOMPARE(report.percent(), 35 + int(0.9 * 0.5 * 60));
    report.read("Info    : It. 250 - 250 nodes created - worst");
    QCOMPARE(report.percent(), 35 + int(0.9 * 0.75 * 60));
}

void TstMesherReport::percentage_never_falls()
{
    MesherReport report;
    report.read("@stage 2D");
    report.read("Info    : [ 90%] Meshing surface 3");
    const int percent = report.percent();
    report.read("Info    : [ 10%] Meshing surface 4");
    QCOMPARE(report.percent(), percent);
    report.read("@stage 1D");
    QCOMPARE(report.percent(), percent);
}

void TstMesherReport::odd_numbers_do_no_harm()
{
    MesherReport report;
    report.read("@expect nothing");
    report.read("@expect -5");
    report.read("@expect 1e400");
    report.read("@stage 3D");
    report.read("Info    : It. 1 - 99999999999999999999999999999999 nodes created - worst");
    report.read("Info    : [99999999999999%] what");
    QVERIFY(report.percent() >= 35 && report.percent() <= 100);
    report.read("@stage 2D");
    report.read("Info    : [99999999999999%] what");
    QVERIFY(report.percent() <= 100);
}

void TstMesherReport::no_percentage_is_beyond_its_stage()
{
    for (const char* percentage : {"[999%]", "[99999999999999%]"}) {
        MesherReport report;
        report.read("@stage 2D\n");
        report.read(QByteArray("Info    : ") + percentage + " Meshing\n");
        QCOMPARE(report.percent(), 35);
    }
}

void TstMesherReport::expectation_that_is_no_number_counts_as_least()
{
    for (const char* expectation : {"nan", "-inf", "none"}) {
        MesherReport report;
        report.read("@stage 3D\n");
        report.read(QByteArray("@expect ") + expectation + '\n');
        report.read("Info    : It. 500 - 500 nodes created\n");
        QCOMPARE(report.percent(), 89);
    }
}

OSTREL_TEST(TstMesherReport)

#include "tst_mesherreport.moc"
