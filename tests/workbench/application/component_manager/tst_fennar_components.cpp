// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

/** Far longer than any run takes; a program that hangs is killed then. */
constexpr int patience_ms = 60'000;

/** Lines of the platform that say nothing of the program. */
QString without_platform_lines(const QByteArray& errors)
{
    QStringList lines;
    for (const QString& line : QString::fromUtf8(errors).split(u'\n')) {
        if (!line.startsWith("This plugin does not support"_L1))
            lines << line;
    }
    return lines.join(u'\n');
}

} // namespace

/** The program with components, as it is started from a shell. */
class TstFennarComponents : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void notes_that_cannot_be_written_are_told_once();
    void batch_run_has_the_commands_of_components();
    void argument_leaves_components_out();
    void batch_run_does_not_switch_components_off();
    void component_that_crashes_is_left_out_at_the_next_start_data();
    void component_that_crashes_is_left_out_at_the_next_start();
    void component_that_still_loads_elsewhere_has_not_crashed();
    void journal_waits_for_the_components();
    void unloaded_component_is_off_at_the_next_start();
    void command_tells_of_a_kernel_that_is_missing();
    void ends_cleanly_with_a_component_at_work_data();
    void ends_cleanly_with_a_component_at_work();

private:
    struct Run
    {
        bool crashed = true;
        int code = -1;
        QString output;
        QString errors;
    };

    void offer(const QStringList& names);
    QString journal(const QByteArray& content);
    void start(QProcess& process, const QStringList& arguments, const QString& gate = {});
    static Run finish(QProcess& process);
    Run run(const QStringList& arguments);

    std::unique_ptr<QTemporaryDir> mDirectory;
    int mJournals = 0;
};

void TstFennarComponents::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(mDirectory->path()).mkpath(u"components"_s));
}

void TstFennarComponents::offer(const QStringList& names)
{
    for (const QString& name : names)
        QVERIFY(QFile::link(QStringLiteral(TEST_COMPONENTS) + u'/' + name + u".so"_s,
                            mDirectory->filePath(u"components/"_s + name + u".so"_s)));
}

void TstFennarComponents::notes_that_cannot_be_written_are_told_once()
{
    offer({u"plain"_s, u"second"_s, u"lasting"_s});
    // A file stands where the folder would be made.
    QFile data(mDirectory->filePath(u"data"_s));
    QVERIFY(data.open(QIODevice::WriteOnly));
    const Run done = run({u"--batch"_s, u"--play"_s, journal("echo one\n")});
    QCOMPARE(done.code, 0);
    QCOMPARE(done.errors.count(u"ERROR"_s), 1);
    QVERIFY2(done.errors.contains("notes on components"_L1), qPrintable(done.errors));
}

QString TstFennarComponents::journal(const QByteArray& content)
{
    const QString path = mDirectory->filePath(u"%1.jou"_s.arg(++mJournals));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("the journal could not be written");
    return path;
}

void TstFennarComponents::start(QProcess& process, const QStringList& arguments, const QString& gate)
{
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(u"FENNAR_COMPONENT_PATH"_s, mDirectory->filePath(u"components"_s));
    variables.insert(u"XDG_DATA_HOME"_s, mDirectory->filePath(u"data"_s));
    variables.insert(u"XDG_CONFIG_HOME"_s, mDirectory->filePath(u"config"_s));
    variables.insert(u"TEST_COMPONENT_GATE"_s, gate);
    process.setProcessEnvironment(variables);
    process.start(QStringLiteral(FENNAR), arguments);
}

TstFennarComponents::Run TstFennarComponents::finish(QProcess& process)
{
    Run result;
    if (!process.waitForFinished(patience_ms)) {
        process.kill();
        process.waitForFinished();
        result.errors = u"did not end: "_s + QString::fromUtf8(process.readAllStandardError());
        return result;
    }
    result.crashed = process.exitStatus() == QProcess::CrashExit;
    result.code = process.exitCode();
    result.output = QString::fromUtf8(process.readAllStandardOutput());
    result.errors = without_platform_lines(process.readAllStandardError());
    return result;
}

TstFennarComponents::Run TstFennarComponents::run(const QStringList& arguments)
{
    QProcess process;
    start(process, arguments);
    return finish(process);
}

void TstFennarComponents::batch_run_has_the_commands_of_components()
{
    offer({u"plain"_s, u"unload_throws"_s});
    const Run ended = run({u"--batch"_s, u"--play"_s, journal("plain\n")});
    QCOMPARE(ended.code, 0);
    QVERIFY2(ended.output.contains(u"plain ran\n"_s), qPrintable(ended.output));
    QVERIFY2(ended.errors.contains(u"component \"unload_throws\" ("_s) &&
                 ended.errors.contains(u"something could not be taken away: no way out"_s),
             qPrintable(ended.errors));
}

void TstFennarComponents::argument_leaves_components_out()
{
    offer({u"plain"_s});
    const Run batch = run({u"--batch"_s, u"--no-components"_s, u"--play"_s, journal("plain\n")});
    QCOMPARE(batch.code, 1);
    QVERIFY2(batch.errors.contains(u"expected a command, found \"plain\""_s), qPrintable(batch.errors));
    const QString result = mDirectory->filePath(u"picture.png"_s);
    const Run window = run({u"--no-components"_s, u"--play"_s,
                            journal("load plain\nplain\npicture \"" + result.toUtf8() + "\"\nquit\n")});
    QCOMPARE(window.code, 0);
    QVERIFY(QFile::exists(result));
}

void TstFennarComponents::batch_run_does_not_switch_components_off()
{
    offer({u"plain"_s});
    QCOMPARE(run({u"--batch"_s, u"--play"_s, journal("unload plain\n")}).code, 0);
    QCOMPARE(run({u"--batch"_s, u"--play"_s, journal("plain\n")}).code, 0);
}

void TstFennarComponents::component_that_crashes_is_left_out_at_the_next_start_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("without a window") << QStringList{u"--batch"_s};
    QTest::newRow("with a window") << QStringList();
}

void TstFennarComponents::component_that_crashes_is_left_out_at_the_next_start()
{
    QFETCH(const QStringList, arguments);
    offer({u"crashing"_s, u"plain"_s});
    const QStringList play = arguments + QStringList{u"--play"_s, journal("plain\ncomponents\nquit\n")};
    QVERIFY(run(play).crashed);
    for (int start = 0; start < 2; ++start) {
        // The console's text is told by the note in the next batch run, whose errors can be read.
        const Run next = run(play);
        QVERIFY2(!next.crashed && next.code == 0, qPrintable(next.errors));
    }
    const Run told = run({u"--batch"_s, u"--play"_s, journal("components\n")});
    QVERIFY2(told.errors.contains(u"ERROR: component \"crashing\" ("_s) &&
                 told.errors.contains(u"\"load crashing\" turns it on again"_s),
             qPrintable(told.errors));
    QVERIFY2(told.output.contains(u"crashing  left out  1"_s), qPrintable(told.output));
    // Turned on, it is tried once more, and left out once more.
    QVERIFY(run(arguments + QStringList{u"--play"_s, journal("load crashing\nquit\n")}).crashed);
    QCOMPARE(run(play).code, 0);
}

void TstFennarComponents::component_that_still_loads_elsewhere_has_not_crashed()
{
    offer({u"slow"_s});
    const QString gate = mDirectory->filePath(u"gate"_s);
    QCOMPARE(mkfifo(QFile::encodeName(gate).constData(), 0600), 0);
    QProcess first;
    start(first, {u"--batch"_s, u"--play"_s, journal("components\n")}, gate);
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(gate + u".reached"_s), 20000);
    const Run second = run({u"--batch"_s, u"--play"_s, journal("components\n")});
    QVERIFY(first.state() == QProcess::Running);
    QCOMPARE(second.code, 0);
    QCOMPARE(second.errors, QString());
    QVERIFY2(second.output.contains(u"slow  loaded"_s), qPrintable(second.output));
    QFile pipe(gate);
    QVERIFY(pipe.open(QIODevice::WriteOnly));
    const Run ended = finish(first);
    QCOMPARE(ended.code, 0);
    QVERIFY2(ended.output.contains(u"slow  loaded"_s), qPrintable(ended.output));
    QVERIFY(QDir(mDirectory->filePath(u"data/ostrel/fennar/loading"_s)).entryList(QDir::Files).isEmpty());
}

void TstFennarComponents::journal_waits_for_the_components()
{
    offer({u"plain"_s, u"slow"_s});
    const QString result = mDirectory->filePath(u"picture.png"_s);
    // An unknown command would end the journal ahead of its last lines.
    const Run ended = run({u"--play"_s, journal("plain\npicture \"" + result.toUtf8() + "\"\nquit\n")});
    QVERIFY2(ended.code == 0, qPrintable(ended.errors));
    QVERIFY(QFile::exists(result));
}

void TstFennarComponents::unloaded_component_is_off_at_the_next_start()
{
    offer({u"plain"_s});
    QCOMPARE(run({u"--play"_s, journal("unload plain\nquit\n")}).code, 0);
    const Run off = run({u"--batch"_s, u"--play"_s, journal("components\n")});
    QVERIFY2(off.output.contains(u"plain  off"_s), qPrintable(off.output));
    QCOMPARE(run({u"--play"_s, journal("load plain\nquit\n")}).code, 0);
    const Run on = run({u"--batch"_s, u"--play"_s, journal("components\n")});
    QVERIFY2(on.output.contains(u"plain  loaded"_s), qPrintable(on.output));
}

void TstFennarComponents::command_tells_of_a_kernel_that_is_missing()
{
    QVERIFY(QFile::copy(QStringLiteral(GEOMETRY), mDirectory->filePath(u"components/geometry.so"_s)));
    const Run told = run({u"--batch"_s, u"--play"_s, journal("echo one\nbrick 1\n")});
    QCOMPARE(told.code, 1);
    QVERIFY2(told.output.contains("one\n"_L1), qPrintable(told.output));
    QVERIFY2(told.errors.contains("brick: the CAD kernel cannot be loaded: "_L1) &&
                 told.errors.contains("fennar-kernel.so"_L1),
             qPrintable(told.errors));
}

void TstFennarComponents::ends_cleanly_with_a_component_at_work_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::newRow("open dialog") << QByteArray("open-dialog\nquit\n");
    QTest::newRow("open modal dialog") << QByteArray("open-modal\n");
    QTest::newRow("running command") << QByteArray("run-on\n");
    QTest::newRow("nothing") << QByteArray("quit\n");
}

void TstFennarComponents::ends_cleanly_with_a_component_at_work()
{
    QFETCH(const QByteArray, lines);
    offer({u"lasting"_s, u"plain"_s});
    const Run ended = run({u"--play"_s, journal(lines)});
    QVERIFY2(!ended.crashed && ended.code == 0, qPrintable(ended.errors));
    QCOMPARE(ended.errors, QString());
}

OSTREL_TEST(TstFennarComponents)
#include "tst_fennar_components.moc"
