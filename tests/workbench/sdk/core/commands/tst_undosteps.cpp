// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/sdk/core/commands/CommandSession.h"
#include "workbench/sdk/core/commands/UndoSteps.h"
#include "workbench/sdk/core/commands/builtin_commands.h"

#include <QSignalSpy>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** A number that commands change. */
class Counter
{
public:
    int value = 0;
    /** Called by what takes a change back or makes it again; null for nothing. */
    std::function<void()> moved;

    UndoSteps::Source source()
    {
        return [this]() -> std::unique_ptr<UndoSteps::Change> {
            if (value == mTaken)
                return nullptr;
            auto change = std::make_unique<Step>(*this, mTaken, value);
            mTaken = value;
            return change;
        };
    }

private:
    class Step : public UndoSteps::Change
    {
    public:
        Step(Counter& counter, int before, int after) : mCounter(counter), mBefore(before), mAfter(after) {}
        void undo() override { mCounter.set(mBefore); }
        void redo() override { mCounter.set(mAfter); }
        qint64 memory(bool done) const override { return done ? 1000 : 3000; }

    private:
        Counter& mCounter;
        const int mBefore;
        const int mAfter;
    };

    void set(int number)
    {
        mTaken = value = number;
        if (moved)
            moved();
    }

    int mTaken = 0;
};

} // namespace

/** The steps of commands that change something, whoever has added them. */
class TstUndoSteps : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override
    {
        mSession = std::make_unique<CommandSession>();
        mLeft = {};
        mRight = {};
        register_step_commands(mSession->registry, u"fennari19"_s);
        steps().add_source(u"left"_s, mLeft.source());
        steps().add_source(u"right"_s, mRight.source());
        add("left", [this](CommandCall&) { ++mLeft.value; });
        add("right", [this](CommandCall&) { ++mRight.value; });
        add("both", [](CommandCall& call) { call.interpreter().run(u"left\nright\nleft"_s); });
        add("fail", [this](CommandCall&) {
            ++mLeft.value;
            throw CommandError(u"it fails"_s);
        });
        mSession->add("history", [this](CommandCall& call) { list_steps(call, steps()); });
        mSession->add("outer", [](CommandCall& call) { call.interpreter().run(u"left\nleft"_s); });
    }
    void tear_down() override { mSession.reset(); }

private slots:
    void command_of_any_owner_is_a_step()
    {
        run(u"left"_s);
        run(u"right"_s);
        QCOMPARE(run(u"undo"_s), u"Undone: right\n"_s);
        QCOMPARE(run(u"undo"_s), u"Undone: left\n"_s);
        QCOMPARE(values(), QList<int>({0, 0}));
        QCOMPARE(run(u"redo"_s), u"Redone: left\n"_s);
        QCOMPARE(values(), QList<int>({1, 0}));
    }

    void command_that_runs_others_is_one_step()
    {
        run(u"both"_s);
        QCOMPARE(values(), QList<int>({2, 1}));
        QCOMPARE(steps().steps().size(), 1U);
        QCOMPARE(run(u"undo"_s), u"Undone: both\n"_s);
        QCOMPARE(values(), QList<int>({0, 0}));
        QCOMPARE(run(u"redo"_s), u"Redone: both\n"_s);
        QCOMPARE(values(), QList<int>({2, 1}));
    }

    void commands_of_one_that_changes_nothing_itself_are_steps_each()
    {
        run(u"outer"_s);
        QCOMPARE(steps().steps().size(), 2U);
    }

    void what_a_failed_command_has_changed_is_a_step()
    {
        QVERIFY(run(u"fail"_s).contains(u"it fails"));
        QCOMPARE(run(u"undo"_s), u"Undone: fail\n"_s);
        QCOMPARE(mLeft.value, 0);
    }

    void what_no_command_has_changed_is_taken_back_first()
    {
        run(u"left"_s);
        mRight.value = 5;
        run(u"undo"_s);
        QCOMPARE(values(), QList<int>({1, 0}));
        run(u"undo"_s);
        QCOMPARE(values(), QList<int>({0, 0}));
    }

    void steps_are_listed()
    {
        QCOMPARE(run(u"history"_s), u"There are no steps.\n"_s);
        int journal = 0;
        steps().set_journal([&journal] { return journal; });
        run(u"left 'a b'"_s);
        journal = 1;
        run(u"right"_s);
        journal = 0;
        run(u"both"_s);
        run(u"undo"_s);
        QCOMPARE(run(u"history"_s), u"1                   left \"a b\"\n"
                                    "2          journal  right\n"
                                    "3  undone           both\n"_s);
        steps().set_journal(nullptr);
    }

    void steps_end_with_the_source_of_one()
    {
        run(u"left"_s);
        run(u"right"_s);
        run(u"undo"_s);
        QSignalSpy changed(&steps(), &UndoSteps::changed);
        mSession->registry.remove_owner(u"nobody"_s);
        QCOMPARE(steps().steps().size(), 2U);
        mSession->registry.remove_owner(u"right"_s);
        QVERIFY(!steps().can_undo() && !steps().can_redo());
        QCOMPARE(steps().memory(), 0);
        QCOMPARE(changed.size(), 1);
        // The other one goes on.
        run(u"right"_s);
        run(u"left"_s);
        QCOMPARE(run(u"undo"_s), u"Undone: left\n"_s);
        QCOMPARE(values(), QList<int>({1, 1}));
    }

    void what_a_step_sets_off_neither_moves_nor_commits()
    {
        run(u"left"_s);
        run(u"left"_s);
        std::size_t moved = 9;
        mLeft.moved = [&] {
            moved = steps().undo(false) + steps().redo(false);
            ++mRight.value;
            run(u"right"_s);
        };
        run(u"undo step"_s);
        QCOMPARE(moved, 0U);
        QCOMPARE(values(), QList<int>({1, 2}));
        mLeft.moved = nullptr;
        // That came behind the step that was undone, as a change of its own.
        run(u"undo"_s);
        QCOMPARE(values(), QList<int>({1, 0}));
        run(u"undo"_s);
        QCOMPARE(values(), QList<int>({0, 0}));
    }

    void steps_may_be_dropped_by_what_one_changes()
    {
        int journal = 3;
        steps().set_journal([&journal] { return journal; });
        run(u"left"_s);
        run(u"left"_s);
        journal = 0;
        mLeft.moved = [&] { mSession->registry.remove_owner(u"left"_s); };
        QCOMPARE(steps().undo(false), 1U);
        QVERIFY(steps().steps().empty());
        QCOMPARE(steps().memory(), 0);
        QVERIFY(!steps().can_undo() && !steps().can_redo());
        run(u"right"_s);
        QCOMPARE(run(u"undo"_s), u"Undone: right\n"_s);
        steps().set_journal(nullptr);
    }

    void farthest_steps_are_forgotten_first()
    {
        for (int i = 0; i < 10; ++i)
            run(u"left"_s);
        const qint64 one = steps().memory() / 10;
        steps().set_limit(10 * one);
        // Undone, each takes 2000 more: something must go with each undo.
        for (int i = 0; i < 3; ++i) {
            const std::size_t before = steps().steps().size();
            run(u"undo"_s);
            QVERIFY(steps().memory() <= steps().limit());
            QVERIFY(steps().steps().size() < before);
        }
        // The nearest of both sides are left.
        QCOMPARE(mLeft.value, 7);
        QCOMPARE(run(u"undo"_s), u"Undone: left\n"_s);
        QCOMPARE(run(u"redo"_s), u"Redone: left\n"_s);
        QCOMPARE(run(u"redo"_s), u"Redone: left\n"_s);
        QCOMPARE(mLeft.value, 8);
    }

private:
    UndoSteps& steps() { return mSession->registry.steps(); }
    QList<int> values() const { return {mLeft.value, mRight.value}; }
    QString run(const QString& line)
    {
        mSession->interpreter.run(line);
        return mSession->take_output() + mSession->take_errors();
    }
    void add(const char* name, const std::function<void(CommandCall&)>& perform)
    {
        Command command = plain_command(QString::fromLatin1(name), u"test"_s, perform);
        command.changes_model = true;
        mSession->registry.add(command);
    }

    std::unique_ptr<CommandSession> mSession;
    Counter mLeft;
    Counter mRight;
};

OSTREL_TEST(TstUndoSteps)
#include "tst_undosteps.moc"
