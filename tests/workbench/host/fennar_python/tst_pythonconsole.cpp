// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "PythonRecorder.h"
#include "support/TestCase.h"
#include "workbench/host/fennar_python/PythonConsole.h"

#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstPythonConsole : public TestCase
{
    Q_OBJECT

private:
    PythonRecorder mRecorder;
    PythonConsole mConsole{PythonRuntime::user_namespace()};

protected:
    void set_up() override
    {
        mConsole.reset();
        mRecorder.clear();
    }

private slots:
    void initTestCase()
    {
        QVERIFY(mConsole.enter(u"1"_s).failed); // not started yet
        QVERIFY2(PythonRuntime::start(mRecorder.hooks()), qPrintable(mRecorder.errors));
    }
    void cleanupTestCase() { PythonRuntime::stop(); }

    void value_of_an_expression_is_shown_and_kept()
    {
        const PythonConsole::Outcome outcome = mConsole.enter(u"40 + 2"_s);
        QVERIFY(!outcome.incomplete && !outcome.failed);
        QCOMPARE(outcome.indent, QString());
        QCOMPARE(mRecorder.output, u"42\n"_s);
        mConsole.enter(u"_ * 2"_s);
        mConsole.enter(u"'\\udc80'"_s);
        mConsole.enter(u"None"_s);
        QCOMPARE(mRecorder.output, u"42\n84\n'\\udc80'\n"_s);
        QVERIFY(!mConsole.enter(u"assert _ == '\\udc80'"_s).failed);
    }

    void names_are_completed_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<int>("start");
        QTest::addColumn<QStringList>("names");
        QTest::addColumn<QString>("common");
        const auto row = [](const char* name, const QString& line, int start, const QStringList& names,
                            const QString& common) {
            QTest::newRow(name) << line << start << names << common;
        };
        row("own names", u"x = wheel"_s, 4, {u"wheel_one"_s, u"wheel_two"_s}, u"wheel_"_s);
        row("keyword", u"whi"_s, 0, {u"while"_s}, u"while"_s);
        row("builtin", u"print(enumer"_s, 6, {u"enumerate"_s}, u"enumerate"_s);
        row("module", u"fennar.c"_s, 7, {u"cmd"_s}, u"cmd"_s);
        row("path", u"os.path.joi"_s, 8, {u"join"_s}, u"join"_s);
        row("attributes of an object", u"gear.tee"_s, 5, {u"teeth"_s, u"teeth_of_class"_s}, u"teeth"_s);
        row("attribute of an attribute", u"gear.teeth.bit_l"_s, 11, {u"bit_length"_s}, u"bit_length"_s);
        row("property is named but not asked", u"gear.dang"_s, 5, {u"danger"_s}, u"danger"_s);
        row("nothing behind a property", u"gear.danger.x"_s, 12, {}, QString());
        row("nothing behind an unknown name", u"nix.x"_s, 4, {}, QString());
        row("nothing behind a call", u"f().x"_s, 5, {}, QString());
        row("nothing in a string", u"'whe"_s, 4, {}, QString());
        row("nothing in a comment", u"x # whe"_s, 7, {}, QString());
        row("other letters", u"gr\u00f6\u00df"_s, 0, {u"gr\u00f6\u00dfe"_s}, u"gr\u00f6\u00dfe"_s);
        row("indentation", QString(), 0, {u"    "_s}, u"    "_s);
        row("indentation begun", u"   "_s, 3, {u" "_s}, u" "_s);
        row("slots", u"slim.on"_s, 5, {u"only"_s}, u"only"_s);
    }

    void names_are_completed()
    {
        QFETCH(const QString, line);
        QFETCH(const int, start);
        QFETCH(const QStringList, names);
        QFETCH(const QString, common);
        // Whatever of this runs says so.
        QVERIFY(PythonRuntime::run_file(u"names.py"_s, u"import os\n"
                                                       "wheel_one = wheel_two = 1\n"
                                                       "gr\u00f6\u00dfe = 1\n"
                                                       "class Gear:\n"
                                                       "    teeth_of_class = 1\n"
                                                       "    def __init__(self): self.teeth = 12\n"
                                                       "    @property\n"
                                                       "    def danger(self): print('ran')\n"
                                                       "    def __getattr__(self, name): print('ran')\n"
                                                       "    def __dir__(self): print('ran')\n"
                                                       "gear = Gear()\n"
                                                       "class Slim: __slots__ = ('only',)\n"
                                                       "slim = Slim()\n"_s));
        const PythonConsole::Names found = mConsole.complete(line, line.size());
        QCOMPARE(found.start, start);
        QCOMPARE(found.names, names);
        QCOMPARE(found.common, common);
        QCOMPARE(mRecorder.output + mRecorder.errors, QString());
    }

    void signature_is_the_hint_among_the_arguments_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("hint");
        const auto row = [](const QString& line, const QString& hint = {}) {
            QTest::newRow(line.toUtf8().constData()) << line << hint;
        };
        const QString turn = u"turn(by, /, about=(0, 0), *, how='x', odd=...)"_s;
        row(u"turn("_s, turn);
        row(u"x = turn(1, "_s, turn);
        row(u"turn([1, (2), 'a)'], "_s, turn);
        row(u"print(turn("_s, turn);
        row(u"wheel.roll("_s, u"roll(far)"_s);
        row(u"Wheel.roll("_s, u"roll(self, far)"_s);
        row(u"wheel.own("_s, u"own(far)"_s);
        row(u"abs("_s, u"abs(x, /)"_s);
        row(u"turn(1)"_s);
        row(u"turn(1) + ("_s);
        row(u"turn([1, "_s);
        row(u"turn(x["_s);
        row(u"wheel.danger("_s);
        row(u"wheel.no_such("_s);
        row(u"turn(1)("_s);
        row(u"wheel("_s);
        row(u"if ("_s);
        row(u"def turn("_s);
        row(u"turn('"_s);
        row(u"turn(  # "_s);
        row(u"turn"_s);
    }
    void signature_is_the_hint_among_the_arguments()
    {
        QFETCH(QString, line);
        QFETCH(QString, hint);
        QVERIFY(PythonRuntime::run_file(u"/work/names.py"_s,
                                        u"class Odd:\n"
                                        "    def __repr__(self): print('ran')\n"
                                        "def turn(by: int, /, about=(0, 0), *, how='x', odd=Odd()): pass\n"
                                        "class Wheel:\n"
                                        "    @property\n"
                                        "    def danger(self): print('ran')\n"
                                        "    def roll(self, far): pass\n"
                                        "    def __call__(self): print('ran')\n"
                                        "wheel = Wheel()\n"
                                        "wheel.own = lambda far: None\n"_s));
        const PythonConsole::Names found = mConsole.complete(line, line.size());
        QCOMPARE(found.hint, hint);
        if (!hint.isEmpty())
            QCOMPARE(found.names, QStringList());
        QCOMPARE(mRecorder.output + mRecorder.errors, QString());
    }

    void keywords_of_a_function_are_completed_among_its_arguments()
    {
        QVERIFY(PythonRuntime::run_file(u"/work/names.py"_s,
                                        u"def turn(by, /, about=(0, 0), *rest, ahead=1, **more): pass\n"_s));
        QCOMPARE(mConsole.complete(u"turn(1, ab"_s, 10).names, (QStringList{u"about="_s, u"abs"_s}));
        QCOMPARE(mConsole.complete(u"turn(1, ahe"_s, 11).names, QStringList(u"ahead="_s));
        QCOMPARE(mConsole.complete(u"turn(1, ahead=ab"_s, 16).start, 14);
        QCOMPARE(mConsole.complete(u"ahe"_s, 3).names, QStringList());
        QVERIFY(!mConsole.complete(u"turn(b"_s, 6).names.contains(u"by="_s));
        QVERIFY(mConsole.enter(u"turn(1,"_s).incomplete);
        QCOMPARE(mConsole.complete(u"   ahe"_s, 6).names, QStringList(u"ahead="_s));
    }

    void lines_typed_before_count_for_the_completion()
    {
        QVERIFY(mConsole.enter(u"text = \"\"\"one"_s).incomplete);
        QCOMPARE(mConsole.complete(u"pri"_s, 3).names, QStringList());
        mConsole.reset();
        QVERIFY(mConsole.enter(u"numbers = (1,"_s).incomplete);
        QCOMPARE(mConsole.complete(u"prin"_s, 4).names, QStringList(u"print"_s));
        QCOMPARE(mConsole.complete(u"prin) + 1"_s, 4).names, QStringList(u"print"_s));
    }

    void displayhook_of_the_user_is_asked()
    {
        mConsole.enter(u"import sys; sys.displayhook = lambda value: print('value', value)"_s);
        mConsole.enter(u"3"_s);
        mConsole.enter(u"sys.displayhook = sys.__displayhook__"_s);
        QCOMPARE(mRecorder.output, u"value 3\n"_s);
    }

    void incomplete_lines_ask_for_more_data()
    {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QString>("output");
        QTest::newRow("block ends with an empty line")
            << QStringList{u"for i in range(2):"_s, u"    print(i)"_s, QString()} << u"0\n1\n"_s;
        QTest::newRow("block ends with a line of blanks")
            << QStringList{u"for i in range(2):"_s, u"    print(i)"_s, u"    "_s} << u"0\n1\n"_s;
        QTest::newRow("block in one line") << QStringList{u"if True: print('x')"_s, QString()} << u"x\n"_s;
        QTest::newRow("else") << QStringList{u"if False:"_s, u"    pass"_s, u"else:"_s, u"    print('e')"_s,
                                             QString()}
                              << u"e\n"_s;
        QTest::newRow("decorator") << QStringList{u"@staticmethod"_s, u"def f(): pass"_s, QString()}
                                   << QString();
        QTest::newRow("brackets") << QStringList{u"print(1,"_s, u"2,"_s, u"3)"_s} << u"1 2 3\n"_s;
        QTest::newRow("empty line in brackets")
            << QStringList{u"print(1,"_s, QString(), u"2)"_s} << u"1 2\n"_s;
        QTest::newRow("triple quotes")
            << QStringList{u"print('''a"_s, QString(), u"   "_s, u"b''')"_s} << u"a\n\n   \nb\n"_s;
        QTest::newRow("backslash") << QStringList{u"print(1 + \\"_s, u"2)"_s} << u"3\n"_s;
        QTest::newRow("tabs") << QStringList{u"if 1:"_s, u"\tprint('t')"_s, QString()} << u"t\n"_s;
    }
    void incomplete_lines_ask_for_more()
    {
        QFETCH(QStringList, lines);
        QFETCH(QString, output);
        for (const QString& line : lines.mid(0, lines.size() - 1)) {
            const PythonConsole::Outcome outcome = mConsole.enter(line);
            QVERIFY2(outcome.incomplete && !outcome.failed, qPrintable(line));
            QCOMPARE(mRecorder.output, QString());
        }
        const PythonConsole::Outcome last = mConsole.enter(lines.last());
        QVERIFY(!last.incomplete && !last.failed);
        QCOMPARE(mRecorder.output, output);
        QCOMPARE(mRecorder.errors, QString());
    }

    void complete_lines_ask_for_nothing_data()
    {
        QTest::addColumn<QString>("line");
        QTest::newRow("empty") << QString();
        QTest::newRow("blanks") << u"   "_s;
        QTest::newRow("comment") << u"# nothing"_s;
        QTest::newRow("assignment") << u"x = 1"_s;
        QTest::newRow("two statements") << u"x = 1; y = 2"_s;
        QTest::newRow("final newline") << u"x = 1\n"_s;
    }
    void complete_lines_ask_for_nothing()
    {
        QFETCH(QString, line);
        const PythonConsole::Outcome outcome = mConsole.enter(line);
        QVERIFY(!outcome.incomplete && !outcome.failed);
        QCOMPARE(outcome.indent, QString());
        QCOMPARE(mRecorder.output + mRecorder.errors, QString());
    }

    void indent_follows_the_statement_data()
    {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QString>("indent");
        const QString four = u"    "_s;
        const QString eight = four + four;
        const auto row = [](const char* name, const QStringList& lines, const QString& indent) {
            QTest::newRow(name) << lines << indent;
        };
        row("after a header", {u"def f():"_s}, four);
        row("after a header with a comment", {u"def f():  # note: this"_s}, four);
        row("after a header with a colon in a string", {u"if ':' in 'a:':"_s}, four);
        row("after a header of two lines", {u"if (1 and"_s, u"        2):"_s}, four);
        row("after a header within a block", {u"def f():"_s, u"    if x:"_s}, eight);
        row("after a header of another width", {u"def f():"_s, u"  if x:"_s}, u"      "_s);
        row("after a statement", {u"def f():"_s, u"    x = 1"_s}, four);
        row("after a statement that ends with a string ending in a colon", {u"def f():"_s, u"    x = 'a:'"_s},
            four);
        row("after a comment that ends with a colon", {u"def f():"_s, u"    # so:"_s}, four);
        row("after a statement of two lines", {u"def f():"_s, u"    x = g(1,"_s, u"          2)"_s}, four);
        row("after a tab", {u"def f():"_s, u"\tx = 1"_s}, u"\t"_s);
        row("after return", {u"def f():"_s, u"    return 1"_s}, QString());
        row("after return of a lambda", {u"def f():"_s, u"    return lambda: 1"_s}, QString());
        row("after return of two lines", {u"def f():"_s, u"    return (1,"_s, u"            2)"_s},
            QString());
        row("after pass in an inner block", {u"def f():"_s, u"    if x:"_s, u"        pass"_s}, four);
        row("after break", {u"while 1:"_s, u"    break"_s}, QString());
        row("after continue", {u"while 1:"_s, u"    continue"_s}, QString());
        row("after raise", {u"def f():"_s, u"    raise ValueError(':')"_s}, QString());
        row("after a second statement that leaves", {u"def f():"_s, u"    x = 1; return x"_s}, QString());
        row("after a block in one line that leaves", {u"def f():"_s, u"    if x: return 1"_s}, four);
        row("after a block in one line with two statements that leaves",
            {u"def f():"_s, u"    if x: y = 1; return 1"_s}, four);
        row("after a name that begins like a keyword", {u"def f():"_s, u"    returned = 1"_s}, four);
        row("after a tab that leaves", {u"def f():"_s, u"\tif 1:"_s, u"\t\tpass"_s}, u"\t"_s);
        row("within brackets", {u"x = ["_s, u"  1,"_s}, u"  "_s);
        row("within brackets after a colon", {u"x = {'a':"_s}, QString());
        row("within triple quotes", {u"def f():"_s, u"    x = '''a:"_s}, QString());
        row("within a triple quoted format", {u"def f():"_s, u"    x = f'''a:"_s}, QString());
        row("after a backslash", {u"def f():"_s, u"    x = 1 + \\"_s}, four);
        row("after else", {u"if 0:"_s, u"    pass"_s, u"else:"_s}, four);
        row("after a decorator", {u"@staticmethod"_s}, QString());
        row("after a block in one line", {u"if x: y = 1"_s}, QString());
        row("after a slice", {u"def f():"_s, u"    return x[1:]"_s}, QString());
        row("after a case", {u"match 1:"_s, u"    case 1:"_s}, eight);
    }
    void indent_follows_the_statement()
    {
        QFETCH(QStringList, lines);
        QFETCH(QString, indent);
        PythonConsole::Outcome outcome;
        for (const QString& line : lines)
            outcome = mConsole.enter(line);
        QVERIFY2(outcome.incomplete, qPrintable(mRecorder.errors));
        QCOMPARE(outcome.indent, indent);
    }

    void traceback_names_the_console_and_nothing_of_ours()
    {
        const PythonConsole::Outcome outcome = mConsole.enter(u"1 / 0"_s);
        QVERIFY(outcome.failed && !outcome.incomplete);
        QCOMPARE(mRecorder.errors, u"Traceback (most recent call last):\n"
                                   "  File \"<console>\", line 1, in <module>\n"
                                   "ZeroDivisionError: division by zero\n"_s);
    }

    void syntax_error_is_told_without_a_traceback_and_drops_the_statement()
    {
        QVERIFY(mConsole.enter(u"x = = 1"_s).failed);
        QVERIFY(mRecorder.errors.startsWith(u"  File \"<console>\", line 1\n    x = = 1\n"_s));
        QVERIFY(mRecorder.errors.endsWith(u"SyntaxError: invalid syntax\n"_s));
        mRecorder.clear();
        QVERIFY(mConsole.enter(u"if 1:"_s).incomplete);
        QVERIFY(mConsole.enter(u"    x = = 1"_s).failed);
        QVERIFY(!mConsole.enter(u"2"_s).failed);
        QCOMPARE(mRecorder.output, u"2\n"_s);
    }

    void lines_that_cannot_be_compiled_fail_data()
    {
        QTest::addColumn<QString>("line");
        QTest::newRow("null character") << QString::fromUtf16(u"x = '\0'", 7);
        QTest::newRow("lone surrogate") << QString(u"x = '"_s + QChar(0xd800) + u'\'');
        QTest::newRow("indented") << u"  x = 1"_s;
        QTest::newRow("brackets too deep") << QString(QString(300, u'(') + u'1' + QString(300, u')'));
    }
    void lines_that_cannot_be_compiled_fail()
    {
        QFETCH(QString, line);
        const PythonConsole::Outcome outcome = mConsole.enter(line);
        QVERIFY(outcome.failed && !outcome.incomplete);
        QVERIFY2(!mRecorder.errors.isEmpty() && !mRecorder.errors.contains(u"<fennar>"_s),
                 qPrintable(mRecorder.errors));
        QVERIFY(!mConsole.enter(u"1"_s).failed);
    }

    void reset_drops_the_pending_statement()
    {
        QVERIFY(mConsole.enter(u"x = ("_s).incomplete);
        mConsole.reset();
        mConsole.enter(u"3"_s);
        QCOMPARE(mRecorder.output, u"3\n"_s);
    }

    void exit_is_told_and_the_console_goes_on_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("told");
        QTest::newRow("sys.exit") << u"import sys; sys.exit(3)"_s << u"SystemExit: 3\n"_s;
        QTest::newRow("exit") << u"exit()"_s << u"SystemExit\n"_s;
        QTest::newRow("quit") << u"quit()"_s << u"SystemExit\n"_s;
        QTest::newRow("raise") << u"raise SystemExit('text')"_s << u"SystemExit: text\n"_s;
    }
    void exit_is_told_and_the_console_goes_on()
    {
        QFETCH(QString, line);
        QFETCH(QString, told);
        QVERIFY(mConsole.enter(line).failed);
        QCOMPARE(mRecorder.errors, told);
        QVERIFY(!mConsole.enter(u"import sys; sys.stdin.read()"_s).failed);
    }

    void keyboard_interrupt_is_told()
    {
        QVERIFY(mConsole.enter(u"raise KeyboardInterrupt"_s).failed);
        QVERIFY(mRecorder.errors.endsWith(u"KeyboardInterrupt\n"_s));
        QVERIFY(!mConsole.enter(u"1"_s).failed);
    }

    void text_of_several_lines_counts_line_by_line()
    {
        QVERIFY(!mConsole.enter(u"for i in range(2):\r\n    print(i)\n\nprint('after')"_s).failed);
        QCOMPARE(mRecorder.output, u"0\n1\nafter\n"_s);
        const PythonConsole::Outcome outcome = mConsole.enter(u"1 / 0\nprint('on')"_s);
        QVERIFY(outcome.failed);
        QVERIFY(mRecorder.output.endsWith(u"on\n"_s));
        QVERIFY(mConsole.enter(u"if 1:\n"_s).incomplete);
    }

    void switches_of_future_stay_on()
    {
        PythonConsole console(PythonRuntime::user_namespace());
        QVERIFY(!console.enter(u"from __future__ import annotations"_s).failed);
        QVERIFY(console.enter(u"def f(x: not_defined): pass"_s).incomplete);
        QVERIFY(!console.enter(QString()).failed);
        // Another console knows nothing of it.
        QVERIFY(mConsole.enter(u"def f(x: not_defined): pass"_s).incomplete);
        QVERIFY(mConsole.enter(QString()).failed);
    }

    void consoles_of_two_name_spaces_do_not_mix()
    {
        PythonConsole framework(PythonRuntime::framework_namespace());
        QVERIFY(framework.enter(u"if 1:"_s).incomplete);
        QVERIFY(!mConsole.enter(u"mine = 1"_s).failed);
        framework.enter(u"    mine"_s);
        QVERIFY(framework.enter(QString()).failed);
        QVERIFY(mRecorder.errors.contains(u"NameError"_s));
    }

    void help_is_shown_at_once()
    {
        QVERIFY(!mConsole.enter(u"help(len)"_s).failed);
        QVERIFY2(mRecorder.output.contains(u"number of items"_s), qPrintable(mRecorder.output));
    }

    void breakpoint_finds_no_terminal_and_ends()
    {
        QVERIFY(mConsole.enter(u"breakpoint()"_s).failed);
        QVERIFY2(mRecorder.errors.endsWith(u"bdb.BdbQuit\n"_s), qPrintable(mRecorder.errors));
        QVERIFY(!mConsole.enter(u"1"_s).failed);
    }

    void statement_that_enters_a_line_itself_finds_the_console_ready()
    {
        mRecorder.onCommand = [this](const QString& text) { return !mConsole.enter(text).failed; };
        QVERIFY(!mConsole.enter(u"fennar.cmd('7 * 6')"_s).failed);
        QCOMPARE(mRecorder.output, u"42\n"_s);
    }
};

OSTREL_TEST(TstPythonConsole)
#include "tst_pythonconsole.moc"
