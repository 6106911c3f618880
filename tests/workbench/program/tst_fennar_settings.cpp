// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "frame/Ostrel.h"
#include "options/OptionsPanel.h"
#include "support/TestCase.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/python/apply_python_paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSettings>
#include <QTest>
#include <QTreeWidget>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** Far longer than any run takes; a program that hangs is killed then. */
constexpr int patience_ms = 60'000;

struct Run
{
    int code = -1;
    QString output;
    QString errors;
};

} // namespace

/** The program with a settings file of its own, and what it makes of the settings for Python. */
class TstFennarSettings : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void window_run_keeps_everything_in_the_file_and_beside_it();
    void journal_sees_the_users_own_settings_without_the_argument();
    void component_path_and_components_switched_off_are_in_the_file();
    void memory_for_undo_holds_without_a_window();
    void damaged_file_of_the_user_is_kept_and_named();
    void useless_settings_do_not_reach_the_window();
    void file_that_cannot_be_written_is_told_and_the_program_runs_on_data();
    void file_that_cannot_be_written_is_told_and_the_program_runs_on();

    void python_paths_are_split_at_semicolons_data();
    void python_paths_are_split_at_semicolons();
    void python_paths_are_at_the_end_of_the_search();
    void python_paths_are_not_used_unless_switched_on();
    void python_paths_that_are_useless_are_named_data();
    void python_paths_that_are_useless_are_named();
    void console_tells_what_was_wrong_at_the_start();
    void no_python_gets_no_paths();

private:
    QString path(const QString& name) const { return mDirectory->filePath(name); }
    QString write(const QString& name, const QByteArray& content) const;
    QString content(const QString& name) const;
    Run run(const QStringList& arguments, const QString& component_path = {}) const;
    void set(const QString& key, const QVariant& value) const
    {
        QSettings settings(path(u"my.ini"_s), QSettings::IniFormat);
        settings.setValue(key, value);
    }
    QVariant stored(const QString& key) const
    {
        return QSettings(path(u"my.ini"_s), QSettings::IniFormat).value(key);
    }
    /** The errors of a batch run with these Python paths; the journal prints Python's own search path. */
    Run python_run(bool use, const QString& paths) const;

    std::unique_ptr<QTemporaryDir> mDirectory;
};

void TstFennarSettings::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    QVERIFY(mDirectory->isValid());
    QVERIFY(QDir(mDirectory->path()).mkpath(u"config"_s));
}

QString TstFennarSettings::write(const QString& name, const QByteArray& content) const
{
    QFile file(path(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("the file could not be written");
    return file.fileName();
}

QString TstFennarSettings::content(const QString& name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

Run TstFennarSettings::run(const QStringList& arguments, const QString& component_path) const
{
    QProcess process;
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(u"XDG_CONFIG_HOME"_s, path(u"config"_s));
    variables.insert(u"XDG_DATA_HOME"_s, path(u"data"_s));
    variables.remove(u"FENNAR_COMPONENT_PATH"_s);
    if (!component_path.isNull())
        variables.insert(u"FENNAR_COMPONENT_PATH"_s, component_path);
    process.setProcessEnvironment(variables);
    process.setWorkingDirectory(mDirectory->path());
    process.start(QStringLiteral(FENNAR), arguments);
    Run result;
    if (!process.waitForFinished(patience_ms)) {
        process.kill();
        process.waitForFinished();
        result.errors = u"did not end: "_s + QString::fromUtf8(process.readAllStandardError());
        return result;
    }
    result.code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    result.output = QString::fromUtf8(process.readAllStandardOutput());
    result.errors = QString::fromUtf8(process.readAllStandardError());
    return result;
}

void TstFennarSettings::window_run_keeps_everything_in_the_file_and_beside_it()
{
    const QString journal = write(u"a.jou"_s, "echo one\nquit\n");
    const Run ended = run({u"--settings"_s, u"my.ini"_s, u"--no-components"_s, u"--play"_s, journal});
    QVERIFY2(ended.code == 0, qPrintable(ended.errors));
    QVERIFY(!stored(u"geometry"_s).toByteArray().isEmpty());
    QCOMPARE(stored(u"ostrelgui/command/trimlimit"_s), QVariant(u"1024"_s));
    QVERIFY(content(u"my.ini.data/history"_s).contains(journal));
    QVERIFY(!QFileInfo::exists(path(u"data"_s)));
    QVERIFY(QDir(path(u"config"_s)).isEmpty());
}

void TstFennarSettings::journal_sees_the_users_own_settings_without_the_argument()
{
    const QString journal = write(u"a.jou"_s, "quit\n");
    const Run ended = run({u"--no-components"_s, u"--play"_s, journal});
    QVERIFY2(ended.code == 0, qPrintable(ended.errors));
    QVERIFY(QFileInfo::exists(path(u"config/ostrel/fennar.conf"_s)));
    QVERIFY(QFileInfo::exists(path(u"data/ostrel/fennar/history"_s)));
}

void TstFennarSettings::component_path_and_components_switched_off_are_in_the_file()
{
    QVERIFY(QDir(mDirectory->path()).mkpath(u"components"_s));
    QVERIFY(QFile::link(QStringLiteral(TREE_COMPONENTS) + u"/demo.so"_s, path(u"components/demo.so"_s)));
    set(u"fennar/components/path"_s, path(u"components"_s));
    const QString counting = write(u"count.jou"_s, "demo 3\nunload demo\nquit\n");
    const Run first = run({u"--settings"_s, path(u"my.ini"_s), u"--play"_s, counting});
    QVERIFY2(first.code == 0, qPrintable(first.errors));
    QCOMPARE(stored(u"fennar/components/off"_s).toStringList(), QStringList{u"demo"_s});
    QVERIFY(QFileInfo(path(u"my.ini.data/loading"_s)).isDir());
    // It is off for this file, and for nobody else.
    const QString once = write(u"once.jou"_s, "demo 3\n");
    const Run off = run({u"--settings"_s, path(u"my.ini"_s), u"--batch"_s, u"--play"_s, once});
    QCOMPARE(off.code, 1);
    const Run on = run({u"--batch"_s, u"--play"_s, once}, path(u"components"_s));
    QVERIFY2(on.code == 0, qPrintable(on.errors));
    QVERIFY(on.output.contains("The demo counts to 3."_L1));
}

void TstFennarSettings::memory_for_undo_holds_without_a_window()
{
    set(u"fennar/components/path"_s, QStringLiteral(TREE_COMPONENTS));
    const QString journal = write(u"undo.jou"_s, "brick 1\nundo\n");
    const QStringList batch{u"--settings"_s, path(u"my.ini"_s), u"--batch"_s, u"--play"_s, journal};
    const Run usual = run(batch);
    QVERIFY2(usual.code == 0, qPrintable(usual.errors));
    set(u"fennar/undo/memory"_s, 0);
    const Run none = run(batch);
    QCOMPARE(none.code, 1);
    QVERIFY2(none.errors.contains(u"there is nothing to undo"_s), qPrintable(none.errors));
}

void TstFennarSettings::damaged_file_of_the_user_is_kept_and_named()
{
    QVERIFY(QDir(mDirectory->path()).mkpath(u"config/ostrel"_s));
    const QString file = write(u"config/ostrel/fennar.conf"_s, "[ostrelgui]\nostrel\\spl");
    const QString journal = write(u"a.jou"_s, "echo one\n");
    const QStringList batch{u"--no-components"_s, u"--batch"_s, u"--play"_s, journal};
    const Run told = run(batch);
    QCOMPARE(told.code, 0);
    QVERIFY2(
        told.errors.contains(u"\"%1\" cannot be read in full. It is kept as \"%1.unreadable\""_s.arg(file)),
        qPrintable(told.errors));
    QCOMPARE(content(u"config/ostrel/fennar.conf.unreadable"_s), u"[ostrelgui]\nostrel\\spl"_s);
    QCOMPARE(run(batch).errors, QString());
}

void TstFennarSettings::useless_settings_do_not_reach_the_window()
{
    set(u"ostrelgui/ostrel/width"_s, -5);
    set(u"ostrelgui/ostrel/height"_s, 600);
    set(u"ostrelgui/command/fontsize"_s, 900);
    const QString journal = write(u"a.jou"_s, "quit\n");
    const Run ended = run({u"--settings"_s, u"my.ini"_s, u"--no-components"_s, u"--play"_s, journal});
    QVERIFY2(ended.code == 0, qPrintable(ended.errors));
    QCOMPARE(stored(u"ostrelgui/ostrel/width"_s), QVariant());
    QCOMPARE(stored(u"ostrelgui/command/fontsize"_s).toInt(), 72);
}

void TstFennarSettings::file_that_cannot_be_written_is_told_and_the_program_runs_on_data()
{
    QTest::addColumn<bool>("batch");
    QTest::newRow("with a window") << false;
    QTest::newRow("without a window") << true;
}

void TstFennarSettings::file_that_cannot_be_written_is_told_and_the_program_runs_on()
{
    QFETCH(const bool, batch);
    const QString journal = write(u"a.py"_s, "print('it runs')\nimport fennar\nfennar.cmd('quit')\n");
    QStringList arguments{u"--settings"_s, u"no/my.ini"_s, u"--no-components"_s, u"--play"_s, journal};
    if (batch)
        arguments << u"--batch"_s;
    const Run ended = run(arguments);
    QVERIFY2(ended.code == 0, qPrintable(ended.errors));
    if (batch) {
        QVERIFY2(ended.errors.startsWith(
                     u"ERROR: the settings file \"%1\" cannot be written: "_s.arg(path(u"no/my.ini"_s))),
                 qPrintable(ended.errors));
        QVERIFY(ended.output.contains("it runs"_L1));
    }
    QVERIFY(QDir(path(u"config"_s)).isEmpty());
    QVERIFY(!QFileInfo::exists(path(u"data"_s)));
    QVERIFY(!QFileInfo::exists(path(u"no"_s)));
}

void TstFennarSettings::python_paths_are_split_at_semicolons_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("paths");
    QTest::newRow("empty") << QString() << QStringList();
    QTest::newRow("one") << u"/a b"_s << QStringList{u"/a b"_s};
    QTest::newRow("two") << u"/a;/b"_s << QStringList{u"/a"_s, u"/b"_s};
    QTest::newRow("blanks and empty names") << u" ; /a ;; /b;\n"_s << QStringList{u"/a"_s, u"/b"_s};
    QTest::newRow("colon") << u"/a:/b"_s << QStringList{u"/a:/b"_s};
}

void TstFennarSettings::python_paths_are_split_at_semicolons()
{
    QFETCH(const QString, text);
    QTEST(split_python_paths(text), "paths");
}

Run TstFennarSettings::python_run(bool use, const QString& paths) const
{
    set(u"ostrelgui/ostrel/usepythonpaths"_s, use);
    set(u"ostrelgui/ostrel/pythonpaths"_s, paths);
    const QString journal = write(u"path.py"_s, "import sys\nprint('\\n'.join(sys.path))\nprint(dir())\n");
    return run({u"--settings"_s, u"my.ini"_s, u"--no-components"_s, u"--batch"_s, u"--play"_s, journal});
}

void TstFennarSettings::python_paths_are_at_the_end_of_the_search()
{
    const QStringList names{u"it's a \\ place"_s, u"\u677f"_s};
    for (const QString& name : names)
        QVERIFY(QDir(mDirectory->path()).mkpath(name));
    // The second time it is there already.
    const QString paths = path(names[0]) + u" ; "_s + path(names[1]) + u"/;"_s + path(names[0]);
    const Run ended = python_run(true, paths);
    QCOMPARE(ended.errors, QString());
    const QStringList lines = ended.output.split(u'\n', Qt::SkipEmptyParts);
    QVERIFY2(lines.size() > 4, qPrintable(ended.output));
    QCOMPARE(lines[lines.size() - 3], path(names[0]));
    QCOMPARE(lines[lines.size() - 2], path(names[1]));
    QVERIFY(lines.indexOf(path(names[0])) == lines.size() - 3);
    QVERIFY2(!lines.last().contains("path"_L1), qPrintable(lines.last()));
}

void TstFennarSettings::python_paths_are_not_used_unless_switched_on()
{
    const Run ended = python_run(false, mDirectory->path() + u";/no/such/place"_s);
    QCOMPARE(ended.errors, QString());
    QVERIFY(!ended.output.split(u'\n').contains(mDirectory->path()));
}

void TstFennarSettings::python_paths_that_are_useless_are_named_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("fault");
    QTest::newRow("missing") << u"/no/such/place"_s << u"does not exist"_s;
    QTest::newRow("parted by a colon")
        << u"/no:/such"_s << u"does not exist; several directories are parted by \";\""_s;
    QTest::newRow("file") << u"/etc/passwd"_s << u"is no directory"_s;
    QTest::newRow("relative") << u"lib"_s << u"is not a whole path, which begins with \"/\""_s;
    QTest::newRow("home") << u"~/lib"_s << u"is not a whole path, which begins with \"/\""_s;
}

void TstFennarSettings::python_paths_that_are_useless_are_named()
{
    QFETCH(const QString, name);
    QFETCH(const QString, fault);
    const Run ended = python_run(true, name + u';' + mDirectory->path());
    QCOMPARE(ended.code, 0);
    QCOMPARE(ended.errors, u"ERROR: the Python path \"%1\" %2.\n"_s.arg(name, fault));
    const QStringList lines = ended.output.split(u'\n');
    QVERIFY(lines.contains(mDirectory->path()));
    QVERIFY(!lines.contains(name));
}

void TstFennarSettings::console_tells_what_was_wrong_at_the_start()
{
    QSettings().setValue(u"/ostrelgui/ostrel/usepythonpaths"_s, true);
    QSettings().setValue(u"/ostrelgui/ostrel/pythonpaths"_s, u"/no/such/place"_s);
    // Python can be started once in a process, so that there is one such function.
    Workbench workbench(path(u"data of its own"_s));
    workbench.leave_components_out();
    workbench.add_start_error(u"ERROR: first of all\n"_s);
    workbench.add_start_error(QString());
    QVERIFY(workbench.load());
    const QString text = workbench.console()->command_page()->toPlainText();
    QCOMPARE(text, u"ERROR: first of all\n"
                   "ERROR: the Python path \"/no/such/place\" does not exist.\n"
                   "Fennar>"_s);
    // The pages of components find their group behind the pages of the shell.
    const auto* pages = Ostrel::instance()->options()->findChild<QTreeWidget*>(u"mOptionList"_s);
    QStringList titles;
    for (int i = 0; i < pages->topLevelItemCount(); ++i)
        titles << pages->topLevelItem(i)->text(0);
    QCOMPARE(titles, QStringList({u"General"_s, u"Journal Editor"_s, u"Layout"_s, u"Panel"_s, u"Plugins"_s,
                                  u"Undo"_s}));
    workbench.console()->run_line(u"echo one"_s);
    QVERIFY(content(u"data of its own/history"_s).contains("echo one"_L1));
    workbench.unload();
}

void TstFennarSettings::no_python_gets_no_paths()
{
    QSettings().setValue(u"/ostrelgui/ostrel/usepythonpaths"_s, true);
    QSettings().setValue(u"/ostrelgui/ostrel/pythonpaths"_s, u"/no/such/place"_s);
    QCOMPARE(apply_python_paths(nullptr), QStringList());
}

OSTREL_TEST(TstFennarSettings)
#include "tst_fennar_settings.moc"
