// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "hostdouble/HostDouble.h"
#include "samples.h"
#include "support/TestCase.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/files/FormatRegistry.h"

#include <QPointer>
#include <QTest>

#include <memory>
#include <stdexcept>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstComponentContext : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override { HostDouble::instance().reset(); }

private slots:
    void steps_run_in_reverse_order();
    void end_of_the_object_is_its_end();
    void step_that_throws_is_reported_and_the_others_run();
    void failure_without_a_report_is_logged();
    void what_is_added_while_it_ends_is_undone_in_the_same_run();
    void it_can_be_filled_again();
    void step_may_end_it();
    void objects_go_in_their_turn();
    void object_is_there_while_what_its_constructor_added_is_undone();
    void constructor_that_throws_leaves_its_additions_to_the_end();
    void object_may_go_with_its_parent();
    void commands_are_the_components();
    void refused_commands_end_the_load_by_name();
    void command_of_another_in_the_place_of_a_removed_one_stays();
    void refused_commands_of_a_function_end_the_load();
    void what_a_component_keeps_is_undone_as_long_as_it_is_there();
    void taken_formats_and_works_end_the_load();
};

void TstComponentContext::steps_run_in_reverse_order()
{
    QStringList steps;
    ComponentContext context(owner);
    QCOMPARE(context.name(), owner);
    context.on_end([&] { steps << u"first"_s; });
    context.on_end(nullptr);
    context.on_end([&] { steps << u"second"_s; });
    context.end();
    QCOMPARE(steps, (QStringList{u"second"_s, u"first"_s}));
    context.end();
    QCOMPARE(steps.size(), 2);
}

void TstComponentContext::end_of_the_object_is_its_end()
{
    QStringList steps;
    {
        ComponentContext context(owner);
        context.on_end([&] { steps << u"step"_s; });
    }
    QCOMPARE(steps, QStringList{u"step"_s});
}

void TstComponentContext::step_that_throws_is_reported_and_the_others_run()
{
    QStringList steps;
    QStringList reports;
    ComponentContext context(owner, [&](const QString& text) { reports << text; });
    context.on_end([&] { steps << u"first"_s; });
    context.on_end([] { throw 1; });
    context.on_end([] { throw std::runtime_error("no way\nout"); });
    context.on_end([&] { steps << u"last"_s; });
    context.end();
    QCOMPARE(steps, (QStringList{u"last"_s, u"first"_s}));
    QCOMPARE(reports, (QStringList{u"something could not be taken away: no way out"_s,
                                   u"something could not be taken away: an exception of an unknown kind"_s}));
}

void TstComponentContext::failure_without_a_report_is_logged()
{
    QTest::ignoreMessage(QtWarningMsg, "sample: something could not be taken away: no way out");
    ComponentContext context(owner);
    context.on_end([] { throw std::runtime_error("no way out"); });
}

void TstComponentContext::what_is_added_while_it_ends_is_undone_in_the_same_run()
{
    QStringList steps;
    ComponentContext context(owner);
    context.on_end([&] { steps << u"first"_s; });
    context.on_end([&] {
        context.on_end([&] { steps << u"late"_s; });
        context.add_command(command(u"sample-late"_s));
        steps << u"last"_s;
    });
    context.end();
    QCOMPARE(steps, (QStringList{u"last"_s, u"late"_s, u"first"_s}));
    QVERIFY(!Fennar::instance().registry().find(u"sample-late"_s));
}

void TstComponentContext::it_can_be_filled_again()
{
    ComponentContext context(owner);
    for (int i = 0; i < 3; ++i) {
        context.add_command(command(u"sample-command"_s));
        QVERIFY(Fennar::instance().registry().find(u"sample-command"_s));
        context.end();
        QVERIFY(!Fennar::instance().registry().find(u"sample-command"_s));
    }
}

void TstComponentContext::step_may_end_it()
{
    QStringList steps;
    ComponentContext context(owner);
    context.on_end([&] { steps << u"first"_s; });
    context.on_end([&] {
        context.end();
        steps << u"last"_s;
    });
    context.end();
    QCOMPARE(steps, (QStringList{u"first"_s, u"last"_s}));
}

void TstComponentContext::objects_go_in_their_turn()
{
    struct Noted
    {
        Noted(QStringList& into, const QString& own_name) : notes(into), name(own_name) {}
        ~Noted() { notes << name; }
        Q_DISABLE_COPY_MOVE(Noted)
        QStringList& notes;
        QString name;
    };
    QStringList notes;
    ComponentContext context(owner);
    Noted& first = context.own(std::make_unique<Noted>(notes, u"first"_s));
    QCOMPARE(first.name, u"first"_s);
    context.on_end([&] { notes << first.name + u" is there"_s; });
    const Noted& second = context.make<Noted>(notes, u"second"_s);
    QCOMPARE(second.name, u"second"_s);
    context.end();
    QCOMPARE(notes, (QStringList{u"second"_s, u"first is there"_s, u"first"_s}));
}

void TstComponentContext::object_is_there_while_what_its_constructor_added_is_undone()
{
    struct Part
    {
        Part(ComponentContext& context, QStringList& into) : notes(into)
        {
            context.on_end([this] { notes << u"undone"_s; });
        }
        ~Part() { notes << u"deleted"_s; }
        Q_DISABLE_COPY_MOVE(Part)
        QStringList& notes;
    };
    QStringList notes;
    ComponentContext context(owner);
    context.make<Part>(context, notes);
    context.end();
    QCOMPARE(notes, (QStringList{u"undone"_s, u"deleted"_s}));
}

void TstComponentContext::constructor_that_throws_leaves_its_additions_to_the_end()
{
    struct Failing
    {
        explicit Failing(ComponentContext& context)
        {
            context.add_command(command(u"sample-command"_s));
            throw std::runtime_error("out of luck");
        }
    };
    ComponentContext context(owner);
    QCOMPARE(refusal([&] { context.make<Failing>(context); }), u"out of luck"_s);
    context.end();
    QVERIFY(!Fennar::instance().registry().find(u"sample-command"_s));
}

void TstComponentContext::object_may_go_with_its_parent()
{
    auto parent = std::make_unique<QObject>();
    ComponentContext context(owner);
    const QPointer<QObject> gone = &context.make<QObject>(parent.get());
    const QPointer<QObject> left = &context.make<QObject>();
    parent.reset();
    QVERIFY(!gone && left);
    context.end();
    QVERIFY(!left);
}

void TstComponentContext::commands_are_the_components()
{
    ComponentContext context(owner);
    context.add_command(command(u"sample-command"_s));
    QCOMPARE(Fennar::instance().registry().find(u"sample-command"_s)->owner, owner);
}

void TstComponentContext::refused_commands_end_the_load_by_name()
{
    ComponentContext context(owner);
    context.add_command(command(u"sample-command"_s));
    QCOMPARE(refusal([&] { context.add_command(command(u"sample-command"_s)); }),
             u"there is a command \"sample-command\" already"_s);
    QCOMPARE(refusal([&] { context.add_command(command(u"1"_s)); }), u"\"1\" is not a valid command name"_s);
    QCOMPARE(refusal([&] { context.add_command({.name = u"sample-idle"_s}); }),
             u"the command \"sample-idle\" has no function to run"_s);
    Command unwritable = command(u"sample-idle"_s);
    unwritable.forms.clear();
    QCOMPARE(refusal([&] { context.add_command(unwritable); }),
             u"the command \"sample-idle\" declares what cannot be: there is no way to write it"_s);
}

void TstComponentContext::command_of_another_in_the_place_of_a_removed_one_stays()
{
    CommandRegistry& registry = Fennar::instance().registry();
    ComponentContext context(owner);
    context.add_command(command(u"sample-command"_s));
    registry.remove(u"sample-command"_s);
    registry.add(command(u"sample-command"_s));
    context.end();
    QVERIFY(registry.remove(u"sample-command"_s));
}

void TstComponentContext::refused_commands_of_a_function_end_the_load()
{
    CommandRegistry& registry = Fennar::instance().registry();
    ComponentContext context(owner);
    QCOMPARE(refusal([&] {
                 context.add_commands([](CommandRegistry& taken, const QString& mark) {
                     taken.add_all(mark, {command(u"sample-command"_s)});
                     return false;
                 });
             }),
             u"one of its commands is there already"_s);
    context.end();
    QVERIFY(!registry.find(u"sample-command"_s));
}

void TstComponentContext::what_a_component_keeps_is_undone_as_long_as_it_is_there()
{
    class Change : public UndoSteps::Change
    {
    public:
        explicit Change(QStringList& log) : mLog(log) {}
        void undo() override { mLog << u"undo"_s; }
        void redo() override { mLog << u"redo"_s; }
        qint64 memory(bool) const override { return 1; }

    private:
        QStringList& mLog;
    };
    UndoSteps& steps = Fennar::instance().registry().steps();
    QStringList log;
    ComponentContext context(owner);
    context.add_undo([&log] {
        log << u"take"_s;
        return std::make_unique<Change>(log);
    });
    steps.commit(u"one"_s);
    steps.commit(u"two"_s);
    QCOMPARE(std::exchange(log, {}), QStringList({u"take"_s, u"take"_s}));
    context.end();
    QVERIFY(steps.steps().empty());
    steps.commit(u"three"_s);
    QVERIFY(log.isEmpty() && steps.steps().empty());
}

void TstComponentContext::taken_formats_and_works_end_the_load()
{
    ComponentContext context(owner);
    context.add_format(format(u"SAMPLE"_s));
    context.add_unsaved_work(work(u"sample"_s));
    ComponentContext other(u"other"_s);
    QCOMPARE(refusal([&] { other.add_format(format(u"SAMPLE"_s)); }),
             u"the format \"SAMPLE\", or one of its endings, is there already or not allowed"_s);
    QCOMPARE(refusal([&] { other.add_unsaved_work(work(u"sample"_s)); }),
             u"unsaved work of the kind \"sample\" is there already, or lacks something"_s);
    other.end();
    QCOMPARE(FormatRegistry::instance().formats().size(), 1);
    QCOMPARE(UnsavedWorks::instance().works().size(), 1);
}

OSTREL_TEST(TstComponentContext)
#include "tst_componentcontext.moc"
