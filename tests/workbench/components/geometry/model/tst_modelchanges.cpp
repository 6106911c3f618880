// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/components/geometry/commands/geometry_commands.h"
#include "workbench/components/geometry/exchange/model_format.h"
#include "workbench/components/geometry/model/GeometryDocument.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/sdk/core/commands/ApplicationServices.h"
#include "workbench/sdk/core/commands/CommandSession.h"
#include "workbench/sdk/core/commands/builtin_commands.h"

#include <QCryptographicHash>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <random>

using namespace fennar;
using namespace fennar::geometry;
using namespace Qt::StringLiterals;

/** Undo and redo, by the commands. */
class TstModelChanges : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void undo_takes_back_each_kind_of_command_data();
    void undo_takes_back_each_kind_of_command();
    void commands_that_change_nothing_are_no_steps();
    void change_behind_an_undo_ends_what_could_be_redone();
    void nothing_to_undo_or_redo_is_told();
    void journal_is_taken_back_as_a_whole_or_step_by_step();
    void journal_can_take_back_its_own_last_command();
    void mesh_comes_back_as_young_as_it_was();
    void another_model_ends_the_steps();
    void modified_mark_follows_to_the_saved_state();
    void texts_count_as_memory();
    void memory_is_bounded();
    void thousand_random_commands_are_undone_and_redone_to_the_bit();

private:
    QString run(const QString& line)
    {
        mSession->interpreter.run(line);
        return mSession->take_output() + mSession->take_errors();
    }
    UndoSteps& steps() { return mSession->registry.steps(); }
    QByteArray saved() const { return write_model(mModel->contents()).join(); }
    QStringList names() const
    {
        QStringList result;
        for (const int id : mModel->ids())
            result << mModel->solid(id)->name;
        return result;
    }

    std::unique_ptr<GeometryModel> mModel;
    std::unique_ptr<CommandSession> mSession;
    ApplicationServices mServices;
    int mJournal = 0;
};

void TstModelChanges::set_up()
{
    mModel = std::make_unique<GeometryModel>();
    mSession = std::make_unique<CommandSession>();
    mJournal = 0;
    register_step_commands(mSession->registry, u"fennari19"_s);
    steps().set_journal([this] { return mJournal; });
    QVERIFY(register_geometry_commands(mSession->registry, u"geometry"_s,
                                       {*mModel, mServices, QDir(QStringLiteral(FENNAR_PROGRAMS))}));
}

void TstModelChanges::tear_down()
{
    mSession.reset();
    mModel.reset();
}

void TstModelChanges::undo_takes_back_each_kind_of_command_data()
{
    QTest::addColumn<QString>("line");
    for (const char* line : {"brick 1", "cylinder 1 2", "sphere 1", "cone 1 2", "torus 2 1",
                             "move a by 1 0 0", "rotate all by 5", "copy a", "rename a c", "unite a b",
                             "subtract b from a", "intersect a b", "delete all", "mesh a size 1"})
        QTest::newRow(line) << QString::fromLatin1(line);
}

void TstModelChanges::undo_takes_back_each_kind_of_command()
{
    QFETCH(const QString, line);
    run(u"brick 2 name a"_s);
    run(u"brick 1 at 1 0 0 name b"_s);
    const QByteArray before = saved();
    QVERIFY(!run(line).contains(u"ERROR"));
    const QByteArray after = saved();
    QVERIFY(before != after);
    QSignalSpy changes(mModel.get(), &GeometryModel::mesh_changed);
    QCOMPARE(run(u"undo"_s), u"Undone: %1\n"_s.arg(line));
    QCOMPARE(saved(), before);
    QVERIFY(!changes.isEmpty());
    QCOMPARE(run(u"redo"_s), u"Redone: %1\n"_s.arg(line));
    QCOMPARE(saved(), after);
    QCOMPARE(run(u"undo"_s), u"Undone: %1\n"_s.arg(line));
    QCOMPARE(saved(), before);
    // The names are those of before for commands, too.
    QVERIFY(run(u"list b"_s).contains(u" b "));
}

void TstModelChanges::commands_that_change_nothing_are_no_steps()
{
    run(u"brick 1 name a"_s);
    for (const char* line : {"list", "brick 0", "rename a a", "nonsense", "unite a", "mesh a size 1e-5",
                             "move a by 0 0 0", "rotate a by 360"})
        run(QString::fromLatin1(line));
    QCOMPARE(steps().steps().size(), 1U);
}

void TstModelChanges::change_behind_an_undo_ends_what_could_be_redone()
{
    run(u"brick 1 name a"_s);
    run(u"brick 2 name b"_s);
    run(u"undo"_s);
    QVERIFY(steps().can_redo());
    run(u"list"_s);
    QVERIFY(steps().can_redo());
    run(u"brick 3 name c"_s);
    QVERIFY(!steps().can_redo());
    QCOMPARE(mModel->ids(), QList<int>({1, 2}));
    run(u"undo"_s);
    run(u"undo"_s);
    QCOMPARE(names(), QStringList());
    run(u"redo"_s);
    run(u"redo"_s);
    QCOMPARE(names(), QStringList({u"a"_s, u"c"_s}));
}

void TstModelChanges::nothing_to_undo_or_redo_is_told()
{
    QCOMPARE(run(u"undo"_s), u"ERROR: undo: column 1: there is nothing to undo\n"_s);
    QCOMPARE(run(u"redo"_s), u"ERROR: redo: column 1: there is nothing to redo\n"_s);
}

void TstModelChanges::journal_is_taken_back_as_a_whole_or_step_by_step()
{
    run(u"brick 1 name a"_s);
    for (mJournal = 1; mJournal < 3; ++mJournal) {
        for (const QString& name : {u"b"_s, u"c"_s, u"d"_s})
            run(u"brick 1 name %1%2"_s.arg(name).arg(mJournal));
    }
    mJournal = 0;
    QCOMPARE(run(u"undo"_s), u"Undone: 3 steps of a journal\n"_s);
    QCOMPARE(names(), QStringList({u"a"_s, u"b1"_s, u"c1"_s, u"d1"_s}));
    QCOMPARE(run(u"redo step"_s), u"Redone: brick 1 name b2\n"_s);
    QCOMPARE(run(u"redo"_s), u"Redone: 2 steps of a journal\n"_s);
    QCOMPARE(run(u"undo step"_s), u"Undone: brick 1 name d2\n"_s);
    QCOMPARE(run(u"undo"_s), u"Undone: 2 steps of a journal\n"_s);
    run(u"undo"_s);
    QCOMPARE(names(), QStringList(u"a"_s));
    run(u"undo"_s);
    run(u"redo"_s);
    QCOMPARE(names(), QStringList(u"a"_s));
    run(u"redo"_s);
    QCOMPARE(names(), QStringList({u"a"_s, u"b1"_s, u"c1"_s, u"d1"_s}));
}

void TstModelChanges::journal_can_take_back_its_own_last_command()
{
    run(u"brick 1 name a"_s);
    mJournal = 7;
    run(u"brick 1 name b"_s);
    run(u"brick 1 name c"_s);
    QCOMPARE(run(u"undo"_s), u"Undone: brick 1 name c\n"_s);
    QCOMPARE(names(), QStringList({u"a"_s, u"b"_s}));
}

void TstModelChanges::mesh_comes_back_as_young_as_it_was()
{
    run(u"brick 1 name a"_s);
    run(u"mesh size 1"_s);
    const auto mesh = mModel->mesh();
    QVERIFY(mesh && mesh->revision == mModel->revision());
    run(u"move a by 1 0 0"_s);
    QVERIFY(mesh->revision != mModel->revision());
    run(u"undo"_s);
    QCOMPARE(mModel->mesh(), mesh);
    QCOMPARE(mesh->revision, mModel->revision());
    run(u"undo"_s);
    QVERIFY(!mModel->mesh());
    run(u"redo"_s);
    QCOMPARE(mModel->mesh(), mesh);
}

void TstModelChanges::another_model_ends_the_steps()
{
    run(u"brick 1 name a"_s);
    run(u"brick 2 name b"_s);
    run(u"undo"_s);
    QSignalSpy changed(&steps(), &UndoSteps::changed);
    mModel->replace(mModel->contents());
    QVERIFY(!steps().can_undo() && !steps().can_redo());
    QCOMPARE(steps().memory(), 0);
    QCOMPARE(changed.size(), 1);
    run(u"brick 3 name c"_s);
    run(u"undo"_s);
    QCOMPARE(names(), QStringList(u"a"_s));
}

void TstModelChanges::modified_mark_follows_to_the_saved_state()
{
    const QTemporaryDir directory;
    GeometryDocument document(*mModel);
    run(u"brick 1 name a"_s);
    QVERIFY(document.is_modified());
    run(u"undo"_s);
    QVERIFY(!document.is_modified());
    run(u"redo"_s);
    document.save(directory.filePath(u"a.mdl"_s));
    QVERIFY(!document.is_modified());
    run(u"brick 2 name b"_s);
    run(u"undo"_s);
    QVERIFY(!document.is_modified());
    run(u"undo"_s);
    QVERIFY(document.is_modified());
    // Another solid of the same number of changes is not the one that was saved.
    run(u"brick 5 name a"_s);
    QVERIFY(document.is_modified());
    run(u"undo"_s);
    QVERIFY(document.is_modified());
}

void TstModelChanges::texts_count_as_memory()
{
    run(u"brick 1 name a"_s);
    steps().set_limit(1 << 20);
    for (const char16_t letter : {u'b', u'c', u'd', u'e', u'f'}) {
        run(u"rename 1 "_s + QString(200'000, QChar(letter)));
        QVERIFY(steps().memory() <= 1 << 20);
    }
    // Two texts of 400,000 bytes each for a command and the name that it took away.
    QCOMPARE(steps().steps().size(), 1U);
}

void TstModelChanges::memory_is_bounded()
{
    run(u"brick 1 name a"_s);
    for (int i = 0; i < 20; ++i)
        run(u"move a by 1 0 0"_s);
    const qint64 all = steps().memory();
    QVERIFY(all > 20'000);
    steps().set_limit(all / 2);
    QVERIFY(steps().memory() <= all / 2 && steps().memory() > all / 4);
    const std::size_t left = steps().steps().size();
    QVERIFY(left < 15 && left > 5);
    // The nearest are left: as many as there are can be undone and redone.
    const QByteArray before = saved();
    for (std::size_t i = 0; i < left; ++i)
        QCOMPARE(run(u"undo"_s), u"Undone: move a by 1 0 0\n"_s);
    QVERIFY(!steps().can_undo());
    QVERIFY(steps().memory() <= all / 2);
    while (steps().can_redo())
        run(u"redo"_s);
    QCOMPARE(saved(), before);
    // What takes more than all of it cannot be undone, and works.
    steps().set_limit(0);
    QVERIFY(!steps().can_undo());
    QCOMPARE(run(u"move a by 1 0 0"_s), QString());
    QVERIFY(!steps().can_undo());
    QCOMPARE(steps().memory(), 0);
    steps().set_limit(UndoSteps::usual_limit);
    run(u"move a by 1 0 0"_s);
    QVERIFY(steps().can_undo());
}

void TstModelChanges::thousand_random_commands_are_undone_and_redone_to_the_bit()
{
    constexpr unsigned seed = 20261122;
    qInfo("seed %u", seed);
    std::mt19937 random(seed);
    const QTemporaryDir directory;
    const QString file = directory.filePath(u"part.step"_s);
    run(u"brick 1 name part"_s);
    QCOMPARE(run(u"export \"%1\" part"_s.arg(file)), QString());
    run(u"undo"_s);
    steps().clear();
    int meshes = 0;
    const auto number = [&random](int least, int most) {
        return least + int(random() % unsigned(most - least + 1));
    };
    const auto any = [&] {
        const QStringList all = names();
        return all.isEmpty() ? u"none"_s : all[number(0, int(all.size()) - 1)];
    };
    const auto place = [&] { return u"%1 %2 %3"_s.arg(number(-2, 2)).arg(number(-2, 2)).arg(number(-2, 2)); };
    const auto command = [&]() -> QString {
        switch (mModel->ids().size() > 6 ? number(4, 12) : number(0, 12)) {
        case 0:
            return u"brick %1 %2 1 at %3"_s.arg(number(1, 3)).arg(number(1, 3)).arg(place());
        case 1:
            return u"sphere %1 at %2"_s.arg(number(1, 3)).arg(place());
        case 2:
            return u"cylinder 1 %1 at %2 along 1 %3 2"_s.arg(number(1, 3)).arg(place()).arg(number(-3, 3));
        case 3:
            return u"copy %1 by %2"_s.arg(any(), place());
        case 4:
            return u"move %1 by %2"_s.arg(any(), place());
        case 5:
            return u"rotate %1 by %2 along 1 1 0"_s.arg(any()).arg(number(1, 359));
        case 6:
            return u"rename %1 n%2"_s.arg(any()).arg(number(1, 50));
        case 7:
            return u"unite %1 %2"_s.arg(any(), any());
        case 8:
            return u"subtract %1 from %2"_s.arg(any(), any());
        case 9:
            return u"intersect %1 %2"_s.arg(any(), any());
        case 10:
            return number(0, 9) == 0 ? u"delete all"_s : u"list"_s;
        default:
            return u"delete %1"_s.arg(any());
        }
    };
    const auto digest = [this] { return QCryptographicHash::hash(saved(), QCryptographicHash::Sha256); };

    steps().set_limit(std::numeric_limits<qint64>::max());
    QList<QByteArray> states{digest()};
    int redone = 0;
    for (int i = 0; i < 1000; ++i) {
        // Now and then a journal of up to 20 commands.
        mJournal = i % 60 < 20 ? i / 60 + 1 : 0;
        const QString line = i % 100 == 99   ? u"mesh %1 size 2"_s.arg(any())
                             : i % 100 == 49 ? u"import \"%1\""_s.arg(file)
                                             : command();
        run(line);
        meshes += mModel->mesh() && i % 100 == 99 ? 1 : 0;
        // Failed commands and those that only look are no steps.
        if (steps().done() == std::size_t(states.size()))
            states << digest();
        QCOMPARE(steps().done() + 1, std::size_t(states.size()));
        QCOMPARE(digest(), states.last());
    }
    mJournal = 0;
    QVERIFY(meshes > 3);
    QVERIFY2(states.size() > 500, qPrintable(QString::number(states.size())));
    for (int round = 0; round < 2; ++round) {
        while (steps().can_undo()) {
            // First one by one, then journals as a whole.
            const bool single = round == 0;
            steps().undo(single);
            QCOMPARE(digest(), states[qsizetype(steps().done())]);
            // Back and forth on the way.
            if (number(0, 19) == 0 && steps().redo(single) > 0) {
                QCOMPARE(digest(), states[qsizetype(steps().done())]);
                steps().undo(single);
                ++redone;
            }
        }
        QVERIFY(mModel->ids().isEmpty() && !mModel->mesh());
        QCOMPARE(saved(), write_model({}).join());
        while (steps().can_redo())
            steps().redo(round == 0);
        QCOMPARE(digest(), states.last());
    }
    QVERIFY(redone > 0);
}

OSTREL_TEST(TstModelChanges)

#include "tst_modelchanges.moc"
