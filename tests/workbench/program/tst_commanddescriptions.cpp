// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/Ostrel.h"
#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/Framework.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/component_manager/ComponentManager.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QMap>
#include <QTemporaryDir>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;
using Kind = CommandParameter::Kind;
using Result = CommandInterpreter::Result;

namespace {

const CommandRegistry& registry()
{
    return Fennar::instance().registry();
}

/** What a user would write for the parameter. */
QStringList example(const CommandParameter& parameter, int number)
{
    if (parameter.kind == Kind::Entity && parameter.example.isEmpty()) {
        const QStringList names = registry().entities().names(parameter.entity);
        const int count = std::max(parameter.at_least, parameter.repeated ? 1 : 0);
        if (count > 1)
            return names.first(std::min<qsizetype>(count, names.size()));
        // Two that stand in one line must not be the same.
        return {names.value(number)};
    }
    if (!parameter.example.isEmpty())
        return {parameter.example};
    if (!parameter.default_value.isNull())
        return {parameter.default_value};
    return {parameter.choices.value(0)};
}

QStringList words(const QString& line)
{
    QStringList result;
    for (const CommandWord& word : tokenize(line).words)
        result << word.text;
    return result;
}

/** The values of all clauses that @p with wants. */
template <typename With>
QList<ClauseValues> examples(const CommandSyntax& form, With with)
{
    QList<ClauseValues> values;
    int entities = 0;
    for (qsizetype i = 0; i < form.clauses.size(); ++i) {
        if (!with(i)) {
            values << std::nullopt;
            continue;
        }
        QList<QStringList> given;
        for (const CommandParameter& parameter : form.clauses[i].parameters)
            given << example(parameter, parameter.kind == Kind::Entity ? entities++ : 0);
        values << given;
    }
    return values;
}

} // namespace

/** What the commands say of themselves, held against what they do: all commands, with all components. */
class TstCommandDescriptions : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override;
    void set_up_class() override;
    void tear_down() override;
    void after_workbench() override { QDir::setCurrent(mOldDirectory); }

private slots:
    void every_command_is_described();
    void lines_made_of_the_description_run_data();
    void lines_made_of_the_description_run();
    void lines_without_a_required_part_fail_data();
    void lines_without_a_required_part_fail();
    void numbers_out_of_range_are_refused_data();
    void numbers_out_of_range_are_refused();
    void unknown_choices_are_refused_data();
    void unknown_choices_are_refused();

private:
    Result run(const QString& line)
    {
        mErrors.clear();
        return Fennar::instance().interpreter().run(line);
    }
    void prepare_model();
    void each_form();

    QTemporaryDir mDirectory;
    QString mOldDirectory;
    QMap<QString, QByteArray> mPrepared;
    QString mErrors;
    int mQuits = 0;
};

void TstCommandDescriptions::prepare(Workbench&)
{
    qputenv("FENNAR_COMPONENT_PATH", TREE_COMPONENTS);
    mOldDirectory = QDir::currentPath();
    QVERIFY(QDir::setCurrent(mDirectory.path()));
}

void TstCommandDescriptions::set_up_class()
{
    workbench().components().load_all();
    Fennar::instance().interpreter().set_error_output([this](const QString& text) { mErrors += text; });
    Fennar::instance().services().quit = [this] { ++mQuits; };
    for (const ComponentManager::Component& component : workbench().components().components())
        QVERIFY2(component.state == ComponentManager::State::Loaded, qPrintable(component.name));
    QVERIFY(registry().names().size() >= 35);
    // The first line that is folded, for the command that shows it whole.
    Broker::command << QString(10'000, u'x') << u"\n"_s;
}

/** A model, files and a session in which every command finds what it works on. */
void TstCommandDescriptions::prepare_model()
{
    QFile journal(u"example.jou"_s);
    QVERIFY(journal.open(QIODevice::WriteOnly));
    journal.write("parameter size number 1\nset played yes\n");
    journal.close();
    run(u"load demo"_s);
    QStringList lines{u"save model.mdl"_s};
    // Meshes and exports need programs that take long to start: they are made once, and what they left is
    // used again.
    if (mPrepared.isEmpty()) {
        lines << QStringList{u"new"_s,
                             u"brick 10 name a"_s,
                             u"brick 10 at 5 0 0 name b"_s,
                             u"sphere 4 name c"_s,
                             u"mesh a size 8"_s,
                             u"export part.stl a"_s,
                             u"save part.mdl"_s};
    } else {
        for (auto file = mPrepared.cbegin(); file != mPrepared.cend(); ++file) {
            QFile copy(file.key());
            QVERIFY(copy.open(QIODevice::WriteOnly));
            QCOMPARE(copy.write(file.value()), file.value().size());
        }
        lines << u"open part.mdl"_s;
    }
    lines << u"set radius 2.5"_s;
    for (const QString& line : std::as_const(lines))
        QVERIFY2(run(line) == Result::Done, qPrintable(line + u": "_s + mErrors));
    if (mPrepared.isEmpty()) {
        for (const QString& name : {u"part.stl"_s, u"part.mdl"_s}) {
            QFile file(name);
            QVERIFY(file.open(QIODevice::ReadOnly));
            mPrepared.insert(name, file.readAll());
        }
    }
}

/** Takes away what a command has shown. */
void TstCommandDescriptions::tear_down()
{
    const QWidgetList shown = QApplication::topLevelWidgets();
    for (QWidget* one : shown) {
        if (one != &window())
            one->hide();
    }
}

void TstCommandDescriptions::each_form()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("number");
    for (const QString& name : registry().names()) {
        for (qsizetype i = 0; i < registry().find(name)->forms.size(); ++i)
            QTest::addRow("%s %d", qPrintable(name), int(i)) << name << int(i);
    }
}

void TstCommandDescriptions::every_command_is_described()
{
    const QStringList names = registry().names();
    QVERIFY(!names.isEmpty());
    for (const QString& name : names) {
        const auto command = registry().find(name);
        QVERIFY2(!command->summary.isEmpty(), qPrintable(name));
        QVERIFY2(!command->forms.isEmpty(), qPrintable(name));
        for (const CommandSyntax& form : command->forms) {
            QCOMPARE(form.title != nullptr, command->forms.size() > 1);
            for (const CommandClause& clause : form.clauses) {
                QVERIFY2(!clause.keyword.isEmpty() || !clause.parameters.isEmpty(), qPrintable(name));
                QVERIFY2(!clause.parameters.isEmpty() || !clause.optional || clause.label, qPrintable(name));
                for (const CommandParameter& parameter : clause.parameters) {
                    const QString where = name + u' ' + parameter.name;
                    QVERIFY2(!parameter.name.isEmpty() && parameter.label, qPrintable(where));
                    QVERIFY2(parameter.kind != Kind::Choice || !parameter.choices.isEmpty(),
                             qPrintable(where));
                    QVERIFY2(parameter.entity.isEmpty() ==
                                 (parameter.kind != Kind::Entity && parameter.kind != Kind::NewName &&
                                  parameter.kind != Kind::Variable),
                             qPrintable(where));
                    QVERIFY2(parameter.entity.isEmpty() ||
                                 registry().entities().kinds().contains(parameter.entity),
                             qPrintable(where));
                }
            }
        }
    }
}

void TstCommandDescriptions::lines_made_of_the_description_run_data()
{
    each_form();
}

void TstCommandDescriptions::lines_made_of_the_description_run()
{
    QFETCH(const QString, name);
    QFETCH(const int, number);
    prepare_model();
    const CommandSyntax form = registry().find(name)->forms[number];
    // A component cannot be loaded that is loaded, and a file of one holds a name that is taken then.
    if (name == "load"_L1)
        QCOMPARE(run(u"unload demo"_s), Result::Done);
    const auto check = [&](auto with) {
        // Something to take back.
        if (name == "undo"_L1 || name == "redo"_L1)
            QCOMPARE(run(u"move a by 1 0 0"_s), Result::Done);
        if (name == "redo"_L1)
            QCOMPARE(run(u"undo"_s), Result::Done);
        QList<ClauseValues> values = examples(form, with);
        if (name == "load"_L1 && number == 1)
            values = {QList<QStringList>{{QString::fromUtf8(TREE_COMPONENTS) + u"/demo.so"_s}}};
        if (name == "unload"_L1)
            values = {QList<QStringList>{{u"demo"_s}}};
        const QString line = command_line(name, form, values);
        QVERIFY2(run(line) == Result::Done, qPrintable(line + u": "_s + mErrors));
        // And the values come back from the line.
        const auto read = read_values(form, words(line).sliced(1));
        QVERIFY2(read, qPrintable(line));
        QCOMPARE(words(command_line(name, form, *read)), words(line));
    };
    check([&](qsizetype i) { return !form.clauses[i].optional; });
    if (QTest::currentTestFailed())
        return;
    for (qsizetype clause = 0; clause < form.clauses.size(); ++clause) {
        if (!form.clauses[clause].optional)
            continue;
        prepare_model();
        // This one alone, with those in front that it needs.
        check([&](qsizetype i) {
            return !form.clauses[i].optional || i == clause ||
                   (i < clause && form.clauses[i].keyword.isEmpty() &&
                    form.clauses[clause].keyword.isEmpty());
        });
        if (QTest::currentTestFailed())
            return;
    }
    if (std::any_of(form.clauses.begin(), form.clauses.end(),
                    [](const CommandClause& c) { return c.optional; })) {
        prepare_model();
        check([](qsizetype) { return true; });
    }
    QCOMPARE(mQuits, name == "quit"_L1 ? 1 : 0);
    mQuits = 0;
}

void TstCommandDescriptions::lines_without_a_required_part_fail_data()
{
    prepare_model();
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("number");
    QTest::addColumn<int>("clause");
    for (const QString& name : registry().names()) {
        const QList<CommandSyntax> forms = registry().find(name)->forms;
        for (qsizetype i = 0; i < forms.size(); ++i) {
            for (qsizetype j = 0; j < forms[i].clauses.size(); ++j) {
                // What is left of "export FILE mesh" and "history steps" is another way to write them.
                const bool is_other_way = (name == "export"_L1 || name == "history"_L1) && i == 1;
                if (!forms[i].clauses[j].optional && !is_other_way)
                    QTest::addRow("%s %d %d", qPrintable(name), int(i), int(j)) << name << int(i) << int(j);
            }
        }
    }
}

void TstCommandDescriptions::lines_without_a_required_part_fail()
{
    QFETCH(const QString, name);
    QFETCH(const int, number);
    QFETCH(const int, clause);
    const CommandSyntax form = registry().find(name)->forms[number];
    const QString line = command_line(
        name, form, examples(form, [&](qsizetype i) { return !form.clauses[i].optional && i != clause; }));
    QCOMPARE(run(line), Result::Failed);
    QVERIFY2(mErrors.contains(u"expected "_s), qPrintable(line + u": "_s + mErrors));
}

void TstCommandDescriptions::numbers_out_of_range_are_refused_data()
{
    prepare_model();
    QTest::addColumn<QString>("line");
    for (const QString& name : registry().names()) {
        const QList<CommandSyntax> forms = registry().find(name)->forms;
        for (const CommandSyntax& form : forms) {
            for (qsizetype i = 0; i < form.clauses.size(); ++i) {
                for (qsizetype j = 0; j < form.clauses[i].parameters.size(); ++j) {
                    const CommandParameter& parameter = form.clauses[i].parameters[j];
                    if (parameter.kind != Kind::Number && parameter.kind != Kind::WholeNumber)
                        continue;
                    QStringList bad{u"many"_s, u"1e999"_s};
                    if (parameter.kind == Kind::WholeNumber)
                        bad << u"2.5"_s;
                    if (std::isfinite(parameter.least))
                        bad << QString::number(
                            parameter.least - std::max(1.0, std::abs(parameter.least) / 10), 'f', 0);
                    if (std::isfinite(parameter.most))
                        bad << QString::number(parameter.most * 1.1 + 1, 'f', 0);
                    for (const QString& value : std::as_const(bad)) {
                        QList<ClauseValues> values = examples(form, [&](qsizetype k) {
                            return !form.clauses[k].optional || k == i ||
                                   (k < i && form.clauses[k].keyword.isEmpty());
                        });
                        (*values[i])[j] = {value};
                        const QString line = command_line(name, form, values);
                        QTest::newRow(qPrintable(line)) << line;
                    }
                }
            }
        }
    }
}

void TstCommandDescriptions::numbers_out_of_range_are_refused()
{
    QFETCH(const QString, line);
    QCOMPARE(run(line), Result::Failed);
    QVERIFY2(mErrors.contains(u"number"_s), qPrintable(line + u": "_s + mErrors));
}

void TstCommandDescriptions::unknown_choices_are_refused_data()
{
    prepare_model();
    each_form();
}

void TstCommandDescriptions::unknown_choices_are_refused()
{
    QFETCH(const QString, name);
    QFETCH(const int, number);
    const CommandSyntax form = registry().find(name)->forms[number];
    for (qsizetype i = 0; i < form.clauses.size(); ++i) {
        for (qsizetype j = 0; j < form.clauses[i].parameters.size(); ++j) {
            const CommandParameter& parameter = form.clauses[i].parameters[j];
            if (parameter.kind != Kind::Choice && parameter.kind != Kind::Entity)
                continue;
            QList<ClauseValues> values = examples(form, [&](qsizetype) { return true; });
            (*values[i])[j] = {u"zzz-no-such"_s};
            const QString line = command_line(name, form, values);
            QVERIFY2(run(line) == Result::Failed, qPrintable(line));
            if (parameter.kind != Kind::Choice)
                continue;
            for (const QString& choice : parameter.choices) {
                (*values[i])[j] = {choice};
                const QString good = command_line(name, form, values);
                QVERIFY2(run(good) == Result::Done, qPrintable(good + u": "_s + mErrors));
            }
        }
    }
}

OSTREL_TEST(TstCommandDescriptions)
#include "tst_commanddescriptions.moc"
