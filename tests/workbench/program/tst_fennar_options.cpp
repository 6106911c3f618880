// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QSettings>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

/** Far longer than any step takes. */
constexpr int patience_ms = 30'000;

/** Runs xdotool, which acts as a user's keyboard and mouse do, and returns what it prints. */
QString xdo(const QStringList& arguments)
{
    QProcess process;
    process.start(u"xdotool"_s, arguments);
    if (!process.waitForFinished(patience_ms)) {
        process.kill();
        process.waitForFinished();
    }
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

void press(const QStringList& keys)
{
    xdo(QStringList{u"key"_s} + keys);
}

QStringList windows_named(const QString& name)
{
    return xdo({u"search"_s, u"--onlyvisible"_s, u"--name"_s, u'^' + name + u'$'})
        .split(u'\n', Qt::SkipEmptyParts);
}

} // namespace

/** The options dialog of the real program, with keyboard and mouse, over two runs. */
class TstFennarOptions : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void options_that_are_saved_are_in_force_at_the_next_start();
    void options_that_are_not_saved_are_not();
    void page_of_a_component_keeps_its_option();
    void size_in_the_settings_comes_before_that_of_a_first_start();

private:
    QString path(const QString& name) const { return mDirectory->filePath(name); }
    void store(const QString& key, const QVariant& value) const
    {
        QSettings settings(path(u"my.ini"_s), QSettings::IniFormat);
        settings.setValue(key, value);
    }
    QVariant stored(const QString& key) const
    {
        return QSettings(path(u"my.ini"_s), QSettings::IniFormat).value(key);
    }
    QString text(const QString& key) const { return stored(key).toString(); }
    void start(bool components = false);
    void open_options();
    void click(int x, int y);
    void quit();
    QString directory_of_program() const;

    std::unique_ptr<QTemporaryDir> mDirectory;
    std::unique_ptr<QProcess> mProgram;
    QString mDialog;
};

void TstFennarOptions::set_up()
{
    mDirectory = std::make_unique<QTemporaryDir>();
    QVERIFY(mDirectory->isValid());
}

void TstFennarOptions::tear_down()
{
    if (mProgram) {
        mProgram->kill();
        mProgram->waitForFinished();
        mProgram.reset();
    }
}

/** Starts the program and waits until it takes commands. */
void TstFennarOptions::start(bool components)
{
    const QString ready = path(u"ready"_s);
    QFile::remove(ready);
    QFile journal(path(u"ready.py"_s));
    QVERIFY(journal.open(QIODevice::WriteOnly));
    journal.write("open('" + ready.toUtf8() + "', 'w').close()\n");
    journal.close();
    mProgram = std::make_unique<QProcess>();
    QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
    variables.insert(u"FENNAR_COMPONENT_PATH"_s, QStringLiteral(TREE_COMPONENTS));
    mProgram->setProcessEnvironment(variables);
    mProgram->setWorkingDirectory(mDirectory->path());
    QStringList arguments{u"--settings"_s, u"my.ini"_s, u"--play"_s, journal.fileName()};
    if (!components)
        arguments << u"--no-components"_s;
    mProgram->start(QStringLiteral(FENNAR), arguments);
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo::exists(ready), patience_ms);
    QTRY_COMPARE_WITH_TIMEOUT(windows_named(u"Fennar"_s).size(), 1, patience_ms);
}

/** Opens the dialog with the keys of the menu. */
void TstFennarOptions::open_options()
{
    xdo({u"windowactivate"_s, u"--sync"_s, windows_named(u"Fennar"_s).value(0)});
    press({u"alt+t"_s, u"o"_s});
    QTRY_COMPARE_WITH_TIMEOUT(windows_named(u"Options"_s).size(), 1, patience_ms);
    mDialog = windows_named(u"Options"_s).value(0);
    xdo({u"windowactivate"_s, u"--sync"_s, mDialog});
}

/** Clicks in the dialog. Negative numbers count from its right and bottom edge. */
void TstFennarOptions::click(int x, int y)
{
    const QStringList geometry = xdo({u"getwindowgeometry"_s, u"--shell"_s, mDialog}).split(u'\n');
    const auto size = [&](const QString& name) {
        return geometry.filter(name).value(0).section(u'=', 1).toInt();
    };
    if (x < 0)
        x += size(u"WIDTH="_s);
    if (y < 0)
        y += size(u"HEIGHT="_s);
    xdo({u"mousemove"_s, u"--sync"_s, u"--window"_s, mDialog, QString::number(x), QString::number(y),
         u"click"_s, u"1"_s});
}

/** Ends the program from its console. */
void TstFennarOptions::quit()
{
    QTRY_COMPARE_WITH_TIMEOUT(windows_named(u"Options"_s).size(), 0, patience_ms);
    xdo({u"windowactivate"_s, u"--sync"_s, windows_named(u"Fennar"_s).value(0)});
    press({u"ctrl+l"_s});
    xdo({u"type"_s, u"quit"_s});
    press({u"Return"_s});
    QVERIFY(mProgram->waitForFinished(patience_ms));
    QCOMPARE(mProgram->exitCode(), 0);
    mProgram.reset();
}

QString TstFennarOptions::directory_of_program() const
{
    return QFileInfo(u"/proc/%1/cwd"_s.arg(mProgram->processId())).symLinkTarget();
}

void TstFennarOptions::options_that_are_saved_are_in_force_at_the_next_start()
{
    start();
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(directory_of_program(), QFileInfo(mDirectory->path()).canonicalFilePath());
    open_options();
    const auto tab = u"Tab"_s;
    const auto space = u"space"_s;
    // From the tree over "Save" and "Close": application data, journal data, script directory, splash, focus,
    // working directory, use of paths, paths.
    press({tab, tab, tab, space, tab, tab, tab, space, tab, tab, space, tab, space, tab});
    xdo({u"type"_s, u"/no;/such"_s});
    // The third row of the tree is "Layout": family, size, list, positions of tabs.
    click(60, 42);
    press({tab, tab, tab, tab, u"End"_s, tab, tab, u"Right"_s});
    QVERIFY(!QFileInfo::exists(path(u"my.ini"_s)));
    click(-208, -25);
    QTRY_COMPARE_WITH_TIMEOUT(text(u"fennargui/tabposition"_s), u"north"_s, patience_ms);
    QCOMPARE(text(u"ostrelgui/ostrel/splash"_s), u"false"_s);
    QCOMPARE(text(u"ostrelgui/ostrel/restoreWorkingDir"_s), u"true"_s);
    QCOMPARE(text(u"ostrelgui/ostrel/usepythonpaths"_s), u"true"_s);
    QCOMPARE(text(u"ostrelgui/ostrel/pythonpaths"_s), u"/no;/such"_s);
    // These two are the window's to store, when it closes.
    QVERIFY(!stored(u"ostrelgui/ostrel/saveprompt"_s).isValid());
    QVERIFY(!stored(u"ostrelgui/command/fontsize"_s).isValid());
    quit();
    QCOMPARE(text(u"ostrelgui/ostrel/saveprompt"_s), u"false"_s);
    QCOMPARE(text(u"ostrelgui/journal/unsavedjournalprompt"_s), u"true"_s);
    const int size = stored(u"ostrelgui/command/fontsize"_s).toInt();
    QVERIFY2(size > 40, qPrintable(QString::number(size)));

    const QString target = path(u"target"_s);
    QVERIFY(QDir().mkpath(target));
    store(u"ostrelgui/ostrel/workingdir"_s, target);
    start();
    if (QTest::currentTestFailed())
        return;
    QCOMPARE(directory_of_program(), QFileInfo(target).canonicalFilePath());
    // What the dialog shows is what it saves.
    open_options();
    press({u"alt+s"_s});
    quit();
    QCOMPARE(text(u"fennargui/tabposition"_s), u"north"_s);
    QCOMPARE(text(u"ostrelgui/ostrel/splash"_s), u"false"_s);
    QCOMPARE(text(u"ostrelgui/ostrel/restoreWorkingDir"_s), u"true"_s);
    QCOMPARE(text(u"ostrelgui/ostrel/usepythonpaths"_s), u"true"_s);
    QCOMPARE(text(u"ostrelgui/ostrel/pythonpaths"_s), u"/no;/such"_s);
    QCOMPARE(text(u"ostrelgui/ostrel/saveprompt"_s), u"false"_s);
    QCOMPARE(stored(u"ostrelgui/command/fontsize"_s).toInt(), size);
}

void TstFennarOptions::options_that_are_not_saved_are_not()
{
    start();
    if (QTest::currentTestFailed())
        return;
    open_options();
    press({u"Tab"_s, u"Tab"_s, u"Tab"_s, u"space"_s, u"alt+c"_s});
    quit();
    QCOMPARE(text(u"ostrelgui/ostrel/saveprompt"_s), u"true"_s);
    QVERIFY(!stored(u"ostrelgui/ostrel/splash"_s).isValid());
}

void TstFennarOptions::page_of_a_component_keeps_its_option()
{
    start(true);
    if (QTest::currentTestFailed())
        return;
    open_options();
    // "General", "Journal Editor", "Layout", "Panel", the group "Plugins", which opens, and the page in it
    // with its number.
    press({u"Down"_s, u"Down"_s, u"Down"_s, u"Down"_s, u"Right"_s, u"Down"_s, u"Tab"_s, u"Tab"_s, u"Tab"_s,
           u"Up"_s, u"Up"_s, u"alt+s"_s});
    QTRY_COMPARE_WITH_TIMEOUT(text(u"demo/number"_s), u"3"_s, patience_ms);
    quit();
    start(true);
    if (QTest::currentTestFailed())
        return;
    open_options();
    press({u"alt+s"_s});
    quit();
    QCOMPARE(text(u"demo/number"_s), u"3"_s);
}

void TstFennarOptions::size_in_the_settings_comes_before_that_of_a_first_start()
{
    const auto size_at_start = [this] {
        start();
        const QString shown = xdo({u"getwindowgeometry"_s, windows_named(u"Fennar"_s).value(0)});
        quit();
        return shown.section(u"Geometry: "_s, 1).trimmed();
    };
    {
        QSettings settings(path(u"my.ini"_s), QSettings::IniFormat);
        settings.setValue(u"ostrelgui/ostrel/width"_s, 1100);
        settings.setValue(u"ostrelgui/ostrel/height"_s, 850);
    }
    QCOMPARE(size_at_start(), u"1100x850"_s);
    // Now there is what the window has stored when it closed.
    QSettings(path(u"my.ini"_s), QSettings::IniFormat).remove(u"ostrelgui/ostrel/width"_s);
    QCOMPARE(size_at_start(), u"1100x850"_s);
    QVERIFY(QFile::remove(path(u"my.ini"_s)));
    QCOMPARE(size_at_start(), u"1200x880"_s);
}

OSTREL_TEST(TstFennarOptions)
#include "tst_fennar_options.moc"
