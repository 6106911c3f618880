// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/ostrelfw/OstrelGUI.h"
#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "support/leftovers.h"
#include "workbench/components/geometry/commands/geometry_commands.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/sdk/core/commands/ApplicationServices.h"
#include "workbench/sdk/core/commands/CommandSession.h"
#include "workbench/sdk/core/commands/Interrupt.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

using namespace fennar;
using namespace fennar::geometry;
using namespace Qt::StringLiterals;

namespace {

/** Writes down what the shell is told of progress. */
class RecordingShell : public OstrelGUI
{
public:
    bool is_loaded() override { return true; }
    bool load_gui() override { return true; }
    void unload_gui() override {}
    void new_event() override {}
    void run_application() override {}
    void end_application() override {}
    void start_progress_session(const char* title, int) override { note(u"start"_s, title); }
    void update_progress_session(const char*, int percent) override { percentages << percent; }
    void end_progress_session(const char* title) override { note(u"end"_s, title); }
    void check_interrupt_session(const char*) override {}
    void set_status_text(const char* text) override
    {
        last_text = QString::fromUtf8(text);
        texts << last_text;
    }
    void enable_cancel(bool) override {}
    void start_splash(const char*) override {}
    void show_splash_message(const char*) override {}
    void finish_splash() override {}

    QStringList sessions;
    QList<int> percentages;
    QString last_text;
    QStringList texts;

private:
    void note(const QString& what, const char* title) { sessions << what + u' ' + QString::fromUtf8(title); }
};

} // namespace

/** The commands as they are typed, and the lines that they answer with. */
class TstGeometryCommands : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void solids_are_made_and_named();
    void errors_tell_the_column_data();
    void errors_tell_the_column();
    void failed_commands_change_nothing_data();
    void failed_commands_change_nothing();
    void solids_are_named_by_name_or_id();
    void all_stands_for_all_solids();
    void solids_are_moved_and_turned();
    void solids_are_combined();
    void cancel_ends_a_long_union_and_changes_nothing();
    void list_shows_measures();
    void every_command_is_explained();
    void taken_name_of_a_command_adds_none();
    void mesh_is_made_and_told();
    void statistics_tell_of_changes_since();
    void quality_shows_one_measure_or_both();
    void mesh_without_solids_is_an_error();
    void mesh_of_too_many_elements_is_refused();
    void progress_is_shown_and_ended();
    void progress_is_told_in_the_users_language();
    void verbose_mesh_shows_what_the_engine_says();
    void cancel_ends_the_mesher_and_keeps_the_last_mesh();
    void crash_of_the_mesher_is_told_and_loses_nothing();
    void thousand_solids_can_be_made();

private:
    QString output(const QString& line)
    {
        mSession->take_output();
        mSession->interpreter.run(line);
        return mSession->take_output();
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

    std::unique_ptr<GeometryModel> mModel;
    std::unique_ptr<CommandSession> mSession;
    std::unique_ptr<RecordingShell> mShell;
    ApplicationServices mServices;
};

void TstGeometryCommands::set_up()
{
    mModel = std::make_unique<GeometryModel>();
    mSession = std::make_unique<CommandSession>();
    mShell = std::make_unique<RecordingShell>();
    mServices = {mShell.get(), nullptr};
    QVERIFY(register_geometry_commands(mSession->registry, u"geometry"_s,
                                       {*mModel, mServices, QDir(QStringLiteral(FENNAR_PROGRAMS))}));
}

void TstGeometryCommands::tear_down()
{
    QCOMPARE(child_processes(), QList<int>());
    mSession.reset();
    mModel.reset();
    mShell.reset();
}

void TstGeometryCommands::solids_are_made_and_named()
{
    QCOMPARE(output(u"brick 2"_s), u"brick1: volume 8\n"_s);
    QCOMPARE(output(u"brick 1 2 3 at 1 -1 0.5 name plate"_s), u"plate: volume 6\n"_s);
    QCOMPARE(output(u"cylinder 1 2 name rod along 1 0 0"_s), u"rod: volume 6.28319\n"_s);
    QCOMPARE(output(u"sphere 1"_s), u"sphere4: volume 4.18879\n"_s);
    QCOMPARE(output(u"cone 1 3"_s), u"cone5: volume 3.14159\n"_s);
    QCOMPARE(output(u"cone 2 3 1"_s), u"cone6: volume 21.9911\n"_s);
    QCOMPARE(output(u"torus 3 1"_s), u"torus7: volume 59.2176\n"_s);
    QCOMPARE(mModel->measures(2).center.y, -1.0);
    QVERIFY(qAbs(mModel->box(3).most.x - 1) < 1e-6);
    QCOMPARE(output(u"copy rod by 0 0 9 name other"_s), u"other: volume 6.28319\n"_s);
    QCOMPARE(mSession->take_errors(), QString());
}

void TstGeometryCommands::errors_tell_the_column_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* line, const char* message) {
        QTest::addRow("%s", line) << QString::fromLatin1(line)
                                  << u"ERROR: "_s + QString::fromLatin1(message) + u'\n';
    };
    const QByteArray range = " (a number from 1e-05 to 1e+06), found ";
    const auto length = [&](const char* line, const char* where, const char* found) {
        row(line, QByteArray(where + range + found).constData());
    };
    length("brick", "brick: column 6: expected a width", "the end of the line");
    length("brick 0", "brick: column 7: expected a width", "\"0\"");
    length("brick -1", "brick: column 7: expected a width", "\"-1\"");
    length("brick nan", "brick: column 7: expected a width", "\"nan\"");
    length("brick 1e30", "brick: column 7: expected a width", "\"1e30\"");
    length("brick 1e999", "brick: column 7: expected a width", "\"1e999\"");
    length("brick 1,5", "brick: column 7: expected a width", "\"1,5\"");
    length("brick 1 2", "brick: column 10: expected a height", "the end of the line");
    length("brick 1 2 0", "brick: column 11: expected a height", "\"0\"");
    length("cylinder 1 at 0 0 0", "cylinder: column 12: expected a height", "\"at\"");
    length("sphere 1e-9", "sphere: column 8: expected a radius", "\"1e-9\"");
    length("cone 1 1 -1", "cone: column 10: expected a top radius", "\"-1\"");
    row("torus 1 1", "torus: column 9: expected a radius of the tube (less than 1), found \"1\"");
    row("brick 1 at 0 0",
        "brick: column 15: expected z of the center (a number from -1e+07 to 1e+07), found the "
        "end of the line");
    row("brick 1 at 0 1e8 0",
        "brick: column 14: expected y of the center (a number from -1e+07 to 1e+07), found "
        "\"1e8\"");
    row("brick 1 at 0 0 0 at 1 1 1",
        "brick: column 18: expected \"name\" or the end of the line, found \"at\"");
    row("sphere 1 along 0 0 1", "sphere: column 10: expected \"at\", \"name\" or the end of the line, found "
                                "\"along\"");
    row("cylinder 1 1 along 0 0 0", "cylinder: column 20: a direction must not be 0 0 0");
    row("cylinder 1 1 along 0 1e-320 0", "cylinder: column 20: a direction must not be 0 0 0");
    row("brick 1 name", "brick: column 13: expected a name (a letter, then letters, digits, \"_\", \"-\" and "
                        "\".\"), found the end of the line");
    row("brick 1 name 5x",
        "brick: column 14: expected a name (a letter, then letters, digits, \"_\", \"-\" and "
        "\".\"), found \"5x\"");
    row("brick 1 name from", "brick: column 14: \"from\" cannot name a solid: it is a word of the commands");
    // For which "select" would select nothing.
    row("brick 1 name none", "brick: column 14: \"none\" cannot name a solid: it is a word of the commands");
    row("brick 1 name body", "brick: column 14: there is a solid \"body\" already");
    row("move body", "move: column 10: expected another solid or \"by\", found the end of the line");
    row("move by 1 1 1", "move: column 6: expected a solid, found \"by\"");
    row("move bady by 1 1 1", "move: column 6: expected a solid, found \"bady\"; did you mean \"body\"?");
    row("move 7 by 1 1 1", "move: column 6: expected a solid, found \"7\"; there are \"body\" and \"ball\"");
    row("move body 1 by 1 1 1", "move: column 11: \"body\" was named already");
    row("move body by 1 1 1 1", "move: column 20: expected the end of the line, found \"1\"");
    row("rotate body by x", "rotate: column 16: expected an angle in degrees (a number), found \"x\"");
    row("rotate body by 1 at",
        "rotate: column 18: expected \"about\", \"along\" or the end of the line, found \"at\"");
    row("copy body ball",
        "copy: column 11: expected \"by\", \"name\" or the end of the line, found \"ball\"");
    row("unite body", "unite: column 11: expected another solid, found the end of the line");
    row("subtract ball body",
        "subtract: column 19: expected another solid or \"from\", found the end of the line");
    row("subtract body from body", "subtract: column 20: \"body\" was named already");
    row("delete", "delete: column 7: expected a solid, found the end of the line");
    row("rename body ball", "rename: column 13: there is a solid \"ball\" already");
    row("mesh", "mesh: column 5: expected a solid, \"size\", \"algorithm\", \"threads\" or \"verbose\", "
                "found the end of the line");
    row("mesh body", "mesh: column 10: expected another solid, \"size\", \"algorithm\", \"threads\" or "
                     "\"verbose\", found the end of the line");
    length("mesh size 0", "mesh: column 11: expected a size of the elements", "\"0\"");
    row("mesh size 1 quiet", "mesh: column 13: expected \"algorithm\", \"threads\", \"verbose\" or the end "
                             "of the line, found \"quiet\"");
    row("statistics", "statistics: column 1: there is no mesh");
    row("quality best",
        "quality: column 9: expected \"ICN\", \"IGE\" or the end of the line, found \"best\"");
    row("list all body", "list: column 10: expected the end of the line, found \"body\"");
}

void TstGeometryCommands::errors_tell_the_column()
{
    QFETCH(QString, line);
    QFETCH(QString, message);
    make({u"brick 1 name body"_s, u"sphere 1 name ball"_s});
    QCOMPARE(error(line), message);
    QCOMPARE(mModel->ids().size(), 2);
}

void TstGeometryCommands::failed_commands_change_nothing_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("message");
    QTest::addRow("nothing left") << u"subtract cover from body"_s
                                  << u"ERROR: subtract: nothing would be left of \"body\"\n"_s;
    QTest::addRow("nothing in common")
        << u"intersect body far"_s << u"ERROR: intersect: the solids have nothing in common\n"_s;
    QTest::addRow("out of space") << u"move all by 9999999 0 0"_s
                                  << u"ERROR: move: the solid must be within 1e+07 of the origin\n"_s;
}

void TstGeometryCommands::failed_commands_change_nothing()
{
    QFETCH(QString, line);
    QFETCH(QString, message);
    make({u"brick 1 name body"_s, u"brick 5 name cover"_s, u"brick 1 at 100 0 0 name far"_s});
    const QString before = output(u"list"_s);
    QCOMPARE(error(line), message);
    QCOMPARE(output(u"list"_s), before);
}

void TstGeometryCommands::solids_are_named_by_name_or_id()
{
    make({u"brick 1"_s, u"brick 1 at 5 0 0"_s, u"move 2 brick1 by 0 1 0"_s});
    QCOMPARE(mModel->measures(1).center.y, 1.0);
    QCOMPARE(mModel->measures(2).center.y, 1.0);
    make({u"rename 2 part"_s, u"delete part"_s});
    QCOMPARE(mModel->ids(), QList<int>({1}));
}

void TstGeometryCommands::all_stands_for_all_solids()
{
    QCOMPARE(error(u"delete all"_s), u"ERROR: delete: column 8: there is no solid\n"_s);
    make({u"brick 1"_s});
    QCOMPARE(error(u"unite all"_s),
             u"ERROR: unite: column 7: at least 2 are needed, and \"all\" stands for 1\n"_s);
    make({u"sphere 1"_s, u"move all by 1 0 0"_s});
    QCOMPARE(mModel->measures(1).center.x, 1.0);
    make({u"delete all"_s});
    QVERIFY(mModel->ids().isEmpty());
}

void TstGeometryCommands::solids_are_moved_and_turned()
{
    make({u"brick 1 2 3"_s, u"rotate brick1 by 90 about 1 0 0 along 0 1 0"_s});
    const Point3 center = mModel->measures(1).center;
    QVERIFY(qAbs(center.x - 1) < 1e-6 && qAbs(center.z - 1) < 1e-6);
    QVERIFY(qAbs(mModel->box(1).most.x - 2.5) < 1e-6);
}

void TstGeometryCommands::solids_are_combined()
{
    make({u"brick 2 name a"_s, u"brick 2 at 1 0 0 name b"_s, u"copy a name c"_s, u"copy b name d"_s,
          u"copy a name e"_s, u"copy b name f"_s});
    QCOMPARE(output(u"unite a b"_s), u"a: volume 12\n"_s);
    QCOMPARE(output(u"subtract d from c"_s), u"c: volume 4\n"_s);
    QCOMPARE(output(u"intersect e f"_s), u"e: volume 4\n"_s);
    QCOMPARE(output(u"unite c e"_s), u"c: volume 8\n"_s);
    make({u"brick 2 at 50 0 0 name far"_s});
    QCOMPARE(output(u"unite c far"_s), u"c: volume 16 in 2 pieces\n"_s);
}

void TstGeometryCommands::cancel_ends_a_long_union_and_changes_nothing()
{
    for (int i = 0; i < 40; ++i)
        make({u"torus 10 3 at %1 %2 0 along %1 3 1"_s.arg(i * 0.7).arg(i * 0.3)});
    const qint64 revision = mModel->revision();
    mServices.turn = [] { request_interrupt(); };
    QCOMPARE(error(u"unite all"_s), u"ERROR: unite: cancelled; nothing has changed\n"_s);
    QCOMPARE(error(u"subtract 2 3 4 5 6 7 8 9 10 11 12 13 14 15 from 1"_s),
             u"ERROR: subtract: cancelled; nothing has changed\n"_s);
    QCOMPARE(mModel->revision(), revision);
    QCOMPARE(mModel->ids().size(), 40);
    QCOMPARE(mShell->sessions,
             QStringList({u"start Unite"_s, u"end Unite"_s, u"start Subtract"_s, u"end Subtract"_s}));
}

void TstGeometryCommands::list_shows_measures()
{
    QCOMPARE(output(u"list"_s), u"There are no solids.\n"_s);
    make({u"brick 1 2 3 name plate"_s, u"brick 2 at 0 0 10"_s});
    QCOMPARE(output(u"list"_s), u"id  name    volume  area  pieces  center  box\n"
                                " 1  plate        6    22       1  0 0 0   -0.5 -1 -1.5 to 0.5 1 1.5\n"
                                " 2  brick2       8    24       1  0 0 10  -1 -1 9 to 1 1 11\n"_s);
    QCOMPARE(output(u"list 2"_s).count(u'\n'), 2);
}

void TstGeometryCommands::every_command_is_explained()
{
    const QStringList names = mSession->registry.names();
    int count = 0;
    for (const QString& name : names) {
        const auto command = mSession->registry.find(name);
        if (command->owner != u"geometry")
            continue;
        ++count;
        QVERIFY2(command->usage().startsWith(name), qPrintable(name));
        QVERIFY2(command->summary.endsWith(u'.'), qPrintable(name));
        const QStringList lines = command->help.split(u'\n');
        for (const QString& line : lines)
            QVERIFY2(line.size() <= 110, qPrintable(line));
    }
    QCOMPARE(count, 19);
    QCOMPARE(mSession->registry.remove_owner(u"geometry"_s), 19);
}

void TstGeometryCommands::taken_name_of_a_command_adds_none()
{
    CommandSession session;
    session.add("quality", [](CommandCall&) {});
    QVERIFY(!register_geometry_commands(session.registry, u"geometry"_s, {*mModel, mServices, {}}));
    QCOMPARE(session.registry.names(), QStringList({u"note"_s, u"quality"_s}));
}

void TstGeometryCommands::mesh_is_made_and_told()
{
    make({u"brick 1"_s, u"sphere 1 at 5 0 0"_s});
    const QString text = output(u"mesh brick1 size 0.5"_s);
    static const QRegularExpression told(u"^(\\d+) nodes, (\\d+) volume elements\n$"_s);
    const auto match = told.match(text);
    QVERIFY2(match.hasMatch(), qPrintable(text + mSession->errors));
    QCOMPARE(mModel->mesh()->nodes, match.captured(1).toLongLong());
    QVERIFY(match.captured(2).toInt() > 10);
    QCOMPARE(mModel->mesh()->solids, QStringList(u"brick1"_s));
    make({u"mesh size 0.5"_s});
    QCOMPARE(mModel->mesh()->solids.size(), 2);
    make({u"mesh all size 0.5"_s});
    QCOMPARE(mModel->mesh()->solids.size(), 2);
}

void TstGeometryCommands::statistics_tell_of_changes_since()
{
    make({u"brick 1"_s, u"mesh size 0.5"_s});
    const QString text = output(u"statistics"_s);
    QVERIFY2(text.startsWith(u"Mesh of brick1, size 0.5\nnodes "_s), qPrintable(text));
    static const QRegularExpression corners(u"\nPoint( 1)? +8\nLine 2 "_s);
    QVERIFY2(text.contains(corners), qPrintable(text));
    QVERIFY2(text.contains(u"\nTetrahedron 4 "_s), qPrintable(text));
    QVERIFY(!text.contains(u"changed"));
    make({u"sphere 1"_s});
    QVERIFY(output(u"statistics"_s).endsWith(u"\nThe model has changed since.\n"));
    QVERIFY(output(u"quality"_s).endsWith(u"\nThe model has changed since.\n"));
}

void TstGeometryCommands::quality_shows_one_measure_or_both()
{
    make({u"brick 1"_s, u"mesh size 0.5"_s});
    const QString both = output(u"quality"_s);
    QCOMPARE(both.count(u'\n'), 3);
    QCOMPARE(both.section(u'\n', 0, 0).simplified(), u"measure min mean max"_s);
    const QString one = output(u"quality IGE"_s);
    QCOMPARE(one.count(u'\n'), 2);
    QVERIFY(one.contains(u"\nIGE "));
    QVERIFY(both.contains(u"\nICN "));
}

void TstGeometryCommands::mesh_without_solids_is_an_error()
{
    QCOMPARE(error(u"mesh size 1"_s), u"ERROR: mesh: column 6: there is no solid\n"_s);
}

void TstGeometryCommands::mesh_of_too_many_elements_is_refused()
{
    make({u"brick 1000"_s});
    QCOMPARE(
        error(u"mesh size 0.001"_s),
        u"ERROR: mesh: column 11: elements so small would need about 1e+18 nodes; 1e+08 is the most\n"_s);
}

void TstGeometryCommands::progress_is_shown_and_ended()
{
    make({u"brick 1"_s, u"mesh size 0.1"_s});
    QCOMPARE(mShell->sessions, QStringList({u"start Mesh"_s, u"end Mesh"_s}));
    QVERIFY(mShell->percentages.size() > 5);
    QVERIFY(std::is_sorted(mShell->percentages.begin(), mShell->percentages.end()));
    QVERIFY(mShell->percentages.last() > 90);
    QCOMPARE(mShell->last_text, QString());
}

void TstGeometryCommands::progress_is_told_in_the_users_language()
{
    const MarkingTranslator marker("MesherReport");
    make({u"brick 1"_s, u"mesh size 0.1"_s});
    QVERIFY2(mShell->texts.contains(u"<meshing volumes> "_s), qPrintable(mShell->texts.join(u'\n')));
}

void TstGeometryCommands::verbose_mesh_shows_what_the_engine_says()
{
    make({u"brick 1"_s});
    QVERIFY(!output(u"mesh size 0.5"_s).contains(u"Meshing"));
    QVERIFY(output(u"mesh size 0.5 verbose"_s).contains(u"Meshing 3D...\n"));
}

void TstGeometryCommands::cancel_ends_the_mesher_and_keeps_the_last_mesh()
{
    make({u"brick 1"_s, u"mesh size 0.5"_s});
    const auto before = mModel->mesh();
    bool cancelled = false;
    mServices.turn = [&] {
        if (!cancelled && mShell->last_text.startsWith(u"meshing volumes")) {
            cancelled = freeze_children();
            request_interrupt();
        }
    };
    QCOMPARE(error(u"mesh size 0.02"_s), u"ERROR: mesh: cancelled; the last mesh is as it was\n"_s);
    QVERIFY(cancelled);
    QCOMPARE(mModel->mesh(), before);
    QCOMPARE(mShell->sessions.last(), u"end Mesh"_s);
}

void TstGeometryCommands::crash_of_the_mesher_is_told_and_loses_nothing()
{
    make({u"brick 1"_s, u"mesh size 0.5"_s});
    const auto before = mModel->mesh();
    mServices.turn = [&] {
        const QList<int> children = child_processes();
        if (children.size() == 1 && mShell->last_text.startsWith(u"meshing volumes"))
            kill(children[0], SIGKILL);
    };
    QCOMPARE(
        error(u"mesh size 0.03"_s),
        u"ERROR: mesh: the mesher has crashed while meshing volumes. The model and the last mesh are as they "
        "were\n"_s);
    QCOMPARE(mModel->mesh(), before);
    QCOMPARE(mModel->ids(), QList<int>({1}));
    mServices.turn = nullptr;
    make({u"mesh size 0.5"_s});
}

void TstGeometryCommands::thousand_solids_can_be_made()
{
    constexpr int count = 1000;
    for (int i = 0; i < count; ++i)
        mSession->interpreter.run(u"brick 0.5 at %1 0 0"_s.arg(i));
    QCOMPARE(mSession->errors, QString());
    QCOMPARE(mModel->ids().size(), count);
}

OSTREL_TEST(TstGeometryCommands)

#include "tst_geometrycommands.moc"
