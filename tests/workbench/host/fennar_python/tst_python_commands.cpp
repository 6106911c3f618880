// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "PythonCommandsTest.h"
#include "workbench/host/fennar_python/PythonConsole.h"

#include <QRandomGenerator>

using namespace fennar;
using namespace Qt::StringLiterals;
using Kind = CommandParameter::Kind;

namespace {

CommandParameter length(const QString& name)
{
    return {.name = name,
            .kind = Kind::Number,
            .what = u"a "_s + name.toLower(),
            .label = "A length",
            .unit = u"mm"_s,
            .least = 0.5,
            .most = 100};
}

CommandParameter coordinate(const QString& name)
{
    return {.name = name, .kind = Kind::Number, .default_value = u"0"_s};
}

CommandParameter word(const QString& name, Kind kind)
{
    return {.name = name, .kind = kind};
}

} // namespace

/** What functions of commands take, run and refuse. */
class TstPythonCommands : public PythonCommandsTest
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        const CommandClause depth_and_height{.parameters = {length(u"DEPTH"_s), length(u"HEIGHT"_s)},
                                             .optional = true};
        const CommandClause at{.keyword = u"at"_s,
                               .parameters = {coordinate(u"X"_s), coordinate(u"Y"_s), coordinate(u"Z"_s)},
                               .optional = true,
                               .label = "Center"};
        const CommandClause name{
            .keyword = u"name"_s, .parameters = {word(u"NAME"_s, Kind::NewName)}, .optional = true};
        add("brick", {{.clauses = {required_value(length(u"WIDTH"_s)),
                                   depth_and_height,
                                   at,
                                   name,
                                   {.keyword = u"loud"_s, .optional = true, .tip = "Tells all."}}}});
        CommandParameter several = word(u"WORD"_s, Kind::NewName);
        several.repeated = true;
        CommandParameter texts = word(u"TEXT"_s, Kind::Text);
        texts.repeated = true;
        add("run", {{.clauses = {required_value(texts)}}});
        CommandParameter mode{.name = u"MODE"_s, .kind = Kind::Choice, .choices = {u"fine"_s, u"coarse"_s}};
        add("import", {{.clauses = {required_value(word(u"FILE"_s, Kind::InputFile)),
                                    {.keyword = u"as"_s, .parameters = {mode}, .optional = true},
                                    optional_value({.name = u"LINE"_s, .kind = Kind::WholeNumber})}}});
        add("join", {{.clauses = {required_value(several),
                                  {.keyword = u"from"_s, .parameters = {word(u"TEXT"_s, Kind::Text)}}}}});
        add("say", {{.clauses = {optional_value(word(u"WORD"_s, Kind::Words))}}});
        add("show", {{.clauses = {required_value(mode)}},
                     {.clauses = {{.keyword = u"page"_s, .parameters = {word(u"PAGE"_s, Kind::Text)}}}}});
        add("load", {{.clauses = {required_value(mode)}},
                     {.clauses = {required_value(word(u"FILE"_s, Kind::InputFile))}}});
        add("two-part.name", {{}});
        add("cmd", {{}});
        const CommandClause verbose{.keyword = u"verbose"_s, .optional = true};
        add("count", {{.clauses = {verbose}}}, "test", {.kind = CommandType::Kind::WholeNumber},
            {.data = qint64(3)});
        registry.add({.name = u"change"_s,
                      .summary = u"Changes the model."_s,
                      .owner = u"test"_s,
                      .perform = [](CommandCall&, const CommandArguments&) {},
                      .forms = {{.clauses = {verbose}}},
                      .changes_model = true});
        start_python();
        QVERIFY(run("import inspect"));
    }
    void cleanupTestCase() { PythonRuntime::stop(); }

    void arguments_become_the_command_line_data()
    {
        QTest::addColumn<QByteArray>("call");
        QTest::addColumn<QString>("line");
        const auto row = [](const char* name, const char* call, const QString& line) {
            QTest::newRow(name) << QByteArray(call) << line;
        };
        row("one by position", "brick(10)", u"brick 10"_s);
        row("all", "brick(10, 20, 5, at=(0, -1.5, 1e-7), name='base')",
            u"brick 10 20 5 at 0 -1.5 1e-07 name base"_s);
        row("by keyword in any order", "brick(name='base', height=5, depth=20.0, width=10)",
            u"brick 10 20.0 5 name base"_s);
        row("list for a vector", "brick(1, at=[1, 2, 3])", u"brick 1 at 1 2 3"_s);
        row("None is left out", "brick(1, name=None, at=None)", u"brick 1"_s);
        row("flag", "brick(1, loud=True)", u"brick 1 loud"_s);
        row("flag that is not set", "brick(1, loud=False)", u"brick 1"_s);
        row("name that is a keyword", "import_('a b.txt', as_='fine', line=3)",
            u"import \"a b.txt\" as fine 3"_s);
        row("path", "import_(__import__('pathlib').Path('a') / '$b')", u"import \"a/\\$b\""_s);
        row("several", "join('a', 'bc', from_='$d')", u"join a bc from \"\\$d\""_s);
        row("several in a list", "join(['a', 'b'], 'c', from_='d')", u"join a b c from d"_s);
        row("any words", "say('a  b', '# $c', \"'\\\\\\n\", 5)", u"say \"a  b\" \"# \\$c\" \"'\\\\\\n\" 5"_s);
        row("nothing", "say()", u"say"_s);
        row("first way", "show('fine')", u"show fine"_s);
        row("second way", "show(page='fine')", u"show page fine"_s);
        row("ways with different first arguments", "load(file='x')", u"load x"_s);
        row("marks in a name", "two_part_name()", u"two-part.name"_s);
        row("name that is taken", "cmd_()", u"cmd"_s);
        row("number of NumPy's kind", "brick(__import__('fractions').Fraction(5, 2))", u"brick 2.5"_s);
    }
    void arguments_become_the_command_line()
    {
        QFETCH(const QByteArray, call);
        QFETCH(const QString, line);
        QVERIFY2(run("assert fennar." + call + " is None"), qPrintable(mRecorder.errors));
        QCOMPARE(lines, QStringList(line));
        QCOMPARE(performed.size(), 1);
    }

    void what_returns_a_value_or_changes_the_model_need_not_print()
    {
        QVERIFY2(run("fennar.count()\nfennar.change()\nfennar.say('a')\nfennar.count(verbose=True)\n"
                     "fennar.change(verbose=True)\nfennar.change(verbose=False)"),
                 qPrintable(mRecorder.errors));
        QCOMPARE(quiet_lines, (QStringList{u"count"_s, u"change"_s, {}, {}, {}, u"change"_s}));
    }

    void texts_arrive_as_they_are()
    {
        QVERIFY2(run("fennar.run('a\\n\\tb', \"'\\\"\\\\\", '', '\\U0001f600', '${x} # y')"),
                 qPrintable(mRecorder.errors));
        QCOMPARE(performed, QStringList(u"run|a\n\tb|'\"\\||\U0001f600|${x} # y"_s));
    }

    void random_texts_arrive_as_they_are()
    {
        const auto seed = QRandomGenerator::global()->generate();
        qInfo("seed %u", seed);
        QVERIFY2(run("import random\nrandom.seed(" + QByteArray::number(seed) +
                     ")\nfor i in range(300):\n"
                     "    words = [''.join(random.choices('ab $#\\'\"\\\\{}\\n\\r\\t|\\u2028\\u00fc;=',"
                     " k=random.randrange(6))) for j in range(random.randrange(1, 5))]\n"
                     "    print('\\f'.join(['run', *words]), end='\\v')\n"
                     "    random.choice([fennar.run, fennar.say])(*words)"),
                 qPrintable(mRecorder.errors));
        QStringList expected = mRecorder.output.split(u'\v', Qt::SkipEmptyParts);
        QCOMPARE(performed.size(), 300);
        for (qsizetype i = 0; i < performed.size(); ++i)
            QCOMPARE(words_performed[i].mid(1), expected[i].split(u'\f').mid(1));
    }

    void wrong_calls_raise_and_run_nothing_data()
    {
        QTest::addColumn<QByteArray>("call");
        QTest::addColumn<QString>("error");
        const auto row = [](const char* name, const char* call, const QString& error) {
            QTest::newRow(name) << QByteArray(call) << error;
        };
        row("missing", "brick()", u"ArgumentError: brick: missing a required argument: 'width'"_s);
        row("too many", "brick(1, 2, 3, 4)", u"ArgumentError: brick: too many positional arguments"_s);
        row("by position where ways differ", "load('x')",
            u"ArgumentError: load: too many positional arguments; its arguments have names: mode, file"_s);
        row("unknown keyword", "brick(1, nam='x')",
            u"ArgumentError: brick: got an unexpected keyword argument 'nam'; did you mean \"name\"?"_s);
        row("given twice", "brick(1, width=2)",
            u"ArgumentError: brick: multiple values for argument 'width'"_s);
        row("text for a number", "brick('1')",
            u"ArgumentError: brick: width: expected a number from 0.5 to 100, found '1'"_s);
        row("truth for a number", "brick(True)",
            u"ArgumentError: brick: width: expected a number from 0.5 to 100, found True"_s);
        row("number for a flag", "brick(1, loud=1)",
            u"ArgumentError: brick: loud: expected True or False, found 1"_s);
        row("short vector", "brick(1, at=(1, 2))",
            u"ArgumentError: brick: at: expected 3 values (x, y, z), found (1, 2)"_s);
        row("no vector", "brick(1, at=1)",
            u"ArgumentError: brick: at: expected 3 values (x, y, z), found 1"_s);
        row("text for a vector", "brick(1, at='123')",
            u"ArgumentError: brick: at: expected 3 values (x, y, z), found '123'"_s);
        row("set for a vector", "brick(1, at={1, 2, 3})",
            u"ArgumentError: brick: at: expected 3 values (x, y, z), found {1, 2, 3}"_s);
        row("list of nothing", "say([])",
            u"ArgumentError: say: word: expected at least one value, found []"_s);
        row("lists of nothing", "join([], (), from_='x')",
            u"ArgumentError: join: word: expected at least one value, found []"_s);
        row("half of what belongs together", "brick(1, 2)",
            u"ArgumentError: brick: depth needs height, too"_s);
        row("number for a name", "brick(1, name=3)", u"ArgumentError: brick: name: expected NAME, found 3"_s);
        row("variable for a name", "brick(1, name='$x')",
            u"ArgumentError: brick: name: expected NAME, found '$x'"_s);
        row("fraction for a whole number", "import_('x', line=1.0)",
            u"ArgumentError: import: line: expected a whole number, found 1.0"_s);
        row("no valid text", "say('\\udc80')",
            u"ArgumentError: say: word: expected a text, found '\\udc80'"_s);
        row("two ways at once", "show('fine', page='x')",
            u"ArgumentError: show: mode and page do not go together"_s);
        row("number that cannot be written", "brick(10 ** 5000)",
            u"ArgumentError: brick: width: expected a number from 0.5 to 100, found <class 'int'>"_s);
        row("number that is too large", "brick(10 ** 400)",
            u"CommandError: brick: column 7: expected a width (a number from 0.5 to 100), found \"1"_s +
                QString(59, u'0') + u"...\""_s);
        row("out of range", "brick(0)",
            u"CommandError: brick: column 7: expected a width (a number from 0.5 to 100), found \"0\""_s);
        row("no number", "brick(float('nan'))",
            u"CommandError: brick: column 7: expected a width (a number from 0.5 to 100), found \"nan\""_s);
        row("no choice", "import_('x', as_='fin')",
            u"CommandError: import: column 13: expected \"fine\" or \"coarse\", found \"fin\""_s);
        row("none of several", "join(from_='x')",
            u"CommandError: join: column 6: expected WORD (a letter, then letters, digits, \"_\", \"-\" and "
            u"\".\"), "
            "found \"from\""_s);
    }
    void wrong_calls_raise_and_run_nothing()
    {
        QFETCH(const QByteArray, call);
        QFETCH(const QString, error);
        QCOMPARE(last_line("fennar." + call), u"fennar."_s + error);
        QVERIFY(performed.isEmpty());
        QVERIFY(run("try:\n    fennar." + call + "\nexcept fennar.CommandError:\n    pass"));
        QCOMPARE(reported, QString());
    }

    void argument_errors_are_type_errors()
    {
        QVERIFY(run("try:\n    fennar.brick(1, nam='x')\nexcept TypeError as error:\n    e = error\n"
                    "assert isinstance(e, fennar.CommandError)\n"
                    "assert (e.command, e.column, e.remedy) == ('brick', 0, 'did you mean \"name\"?')"));
    }

    void errors_of_commands_tell_column_and_remedy()
    {
        registry.entities().offer(u"thing"_s, u"thing"_s, [] { return QStringList(u"lamp"_s); });
        add("light",
            {{.clauses = {required_value({.name = u"THING"_s, .kind = Kind::Entity, .entity = u"thing"_s})}}},
            "thing");
        QVERIFY2(
            run("try:\n    fennar.light('lamb')\nexcept fennar.CommandError as error:\n    e = error\n"
                "assert not isinstance(e, TypeError)\n"
                "assert e.message == 'expected THING, found \"lamb\"; did you mean \"lamp\"?', e.message\n"
                "assert (e.command, e.column, e.remedy) == ('light', 7, 'did you mean \"lamp\"?'), e.args"),
            qPrintable(mRecorder.errors));
        registry.remove_owner(u"thing"_s);
    }

    void tracebacks_show_the_callers_lines_only()
    {
        const QString text = shown("fennar.brick('1')");
        QVERIFY2(text.startsWith(u"Traceback"_s), qPrintable(text));
        QVERIFY2(!text.contains(u"<fennar>"_s), qPrintable(text));
    }

    void signatures_and_documentation_come_from_the_declaration()
    {
        QCOMPARE(shown("print(inspect.signature(fennar.brick))"),
                 u"(width, depth=None, height=None, *, at=(0, 0, 0), name=None, loud=False)\n"_s);
        QCOMPARE(shown("print(inspect.signature(fennar.join))"), u"(*word, from_)\n"_s);
        QCOMPARE(shown("print(inspect.signature(fennar.show))"), u"(mode=None, *, page=None)\n"_s);
        QCOMPARE(shown("print(inspect.signature(fennar.load))"), u"(*, mode=None, file=None)\n"_s);
        const QString text = shown("print(fennar.brick.__doc__)");
        for (const QString& part :
             {u"Does something.\n"_s, u"\nwidth: A length (a number from 0.5 to 100, in mm)\n"_s,
              u"\nat: Center ((x, y, z), each a number)\n"_s, u"\nname: a new name\n"_s,
              u"\nloud: True or False. Tells all.\n"_s,
              u"\nCommand: brick WIDTH [DEPTH HEIGHT] [at X Y Z] [name NAME] [loud]\n"_s})
            QVERIFY2(text.contains(part), qPrintable(part + u"---\n"_s + text));
        QVERIFY(run("assert fennar.brick is fennar.brick and inspect.isfunction(fennar.brick)\n"
                    "assert (fennar.import_.__name__, fennar.import_.__module__) == ('import_', 'fennar')"));
        const QString help = shown("help(fennar.brick)");
        QVERIFY2(help.contains(u"brick(width, depth=None"_s), qPrintable(help));
    }

    void functions_come_and_go_with_their_commands()
    {
        QVERIFY(run("assert not hasattr(fennar, 'late') and 'late' not in dir(fennar)"));
        add("late", {{}}, "component");
        QVERIFY(run("assert 'late' in dir(fennar)\nfrom fennar import late\nlate()"));
        QCOMPARE(performed, QStringList(u"late"_s));
        registry.remove_owner(u"component"_s);
        QVERIFY(run("assert not hasattr(fennar, 'late') and 'late' not in dir(fennar)"));
        QCOMPARE(last_line("late()"),
                 u"fennar.CommandError: late: column 1: expected a command, found \"late\""_s);
        // Another component brings another command of that name.
        add("late", {{.clauses = {required_value(word(u"FILE"_s, Kind::InputFile))}}}, "component");
        QVERIFY(run("late('x')"));
        QCOMPARE(performed.last(), u"late|x"_s);
        registry.remove_owner(u"component"_s);
    }

    void console_completes_the_functions()
    {
        const PythonConsole console(PythonRuntime::user_namespace());
        QCOMPARE(console.complete(u"fennar.br"_s, 9).names, QStringList(u"brick"_s));
        QCOMPARE(console.complete(u"fennar.cm"_s, 9).names, QStringList({u"cmd"_s, u"cmd_"_s}));
        QCOMPARE(console.complete(u"fennar.brick(1, "_s, 16).hint,
                 u"brick(width, depth=None, height=None, *, at=(0, 0, 0), name=None, loud=False)"_s);
        QCOMPARE(console.complete(u"fennar.brick(1, na"_s, 18).names, QStringList(u"name="_s));
    }

    void unknown_name_is_an_attribute_error_with_the_nearest()
    {
        QCOMPARE(last_line("fennar.brik"),
                 u"AttributeError: module 'fennar' has no attribute 'brik'. Did you mean: 'brick'?"_s);
    }

    void own_names_of_the_module_stay()
    {
        QVERIFY(run("fennar.cmd('say x')\nassert fennar.cmd.__doc__.startswith('cmd(text)')"));
        QCOMPARE(mRecorder.commands, QStringList(u"say x"_s));
    }

    void other_threads_are_refused()
    {
        QVERIFY2(run("import threading\nrefused = []\nbrick = fennar.brick\ndef attempt():\n"
                     "    try:\n        brick(1)\n"
                     "    except RuntimeError as error:\n        refused.append(str(error))\n"
                     "t = threading.Thread(target=attempt)\nt.start()\nt.join()\n"
                     "assert len(refused) == 1 and 'main thread' in refused[0], refused"),
                 qPrintable(mRecorder.errors));
        QVERIFY(performed.isEmpty());
    }
};

OSTREL_TEST(TstPythonCommands)
#include "tst_python_commands.moc"
