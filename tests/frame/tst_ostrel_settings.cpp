// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "files/OstrelFileMenu.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "options/ComponentTool.h"
#include "support/TestCase.h"
#include "support/statics.h"

#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

void set(const QString& key, const QVariant& value)
{
    QSettings().setValue(key, value);
}

QVariant get(const QString& key)
{
    return QSettings().value(key);
}

QString documents()
{
    return QStandardPaths::standardLocations(QStandardPaths::DocumentsLocation).constFirst();
}

QString current()
{
    return QDir(QDir::currentPath()).canonicalPath();
}

QString real(const QString& directory)
{
    return QDir(directory).canonicalPath();
}

} // namespace

class TstOstrelSettings : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    // Position and size.
    void position_is_restored_data();
    void position_is_restored();
    void half_a_position_moves_nothing_data();
    void half_a_position_moves_nothing();
    void size_is_restored_from_both_keys();
    void half_a_size_resizes_nothing_data();
    void half_a_size_resizes_nothing();
    void geometry_of_the_last_life_overrides_position_and_size();
    void broken_geometry_leaves_position_and_size_data();
    void broken_geometry_leaves_position_and_size();
    void arrangement_is_saved_but_does_not_come_back();
    void position_and_size_keys_are_not_written();

    // Working directory.
    void directory_is_kept_data();
    void directory_is_kept();
    void directory_is_left_data();
    void directory_is_left();
    void test_of_the_directory_leaves_no_file();
    void directory_that_nobody_can_write_is_left();
    void restoring_does_without_the_test();
    void directory_that_is_gone_is_left();
    void failed_change_of_directory_is_not_noticed();

    // Plugin tool.
    void directory_of_the_plugin_tool_lives_on();
    void directory_of_the_plugin_tool_is_saved_even_if_empty();
    void useless_directory_leaves_the_plugin_tools_own_data();
    void useless_directory_leaves_the_plugin_tools_own();

    // Console.
    void font_lives_on();
    void missing_font_keys_leave_the_consoles_font();
    void family_alone_keeps_the_size();
    void size_alone_keeps_the_family();
    void useless_font_size_is_ignored_data();
    void useless_font_size_is_ignored();
    void limits_are_restored_data();
    void limits_are_restored();
    void limits_live_on();
    void switched_off_trimming_loses_the_limit();

    // Files.
    void question_about_unsaved_data_lives_on();
    void unreadable_question_flag_stands_for_asking();
    void recent_lists_live_on();
    void recent_files_come_back_from_the_filled_keys_data();
    void recent_files_come_back_from_the_filled_keys();
    void keys_of_recent_lists_that_are_over_go();

    // Panel, and the settings of others.
    void panel_kind_is_restored_data();
    void panel_kind_is_restored();
    void settings_of_others_stay_as_they_are();
    void unreadable_values_take_their_defaults_data();
    void unreadable_values_take_their_defaults();
    void extreme_numbers_do_no_harm_data();
    void extreme_numbers_do_no_harm();

private:
    QString mDirectoryBefore;
    std::unique_ptr<QTemporaryDir> mStart;
    std::unique_ptr<QTemporaryDir> mSaved;
};

void TstOstrelSettings::set_up()
{
    reset_statics();
    HostDouble::instance().reset();
    ComponentTool::sLastPath.clear();
    mDirectoryBefore = QDir::currentPath();
    mStart = std::make_unique<QTemporaryDir>();
    mSaved = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir().mkpath(documents()));
    QVERIFY(QDir::setCurrent(mStart->path()));
}

void TstOstrelSettings::tear_down()
{
    QVERIFY(QDir::setCurrent(mDirectoryBefore));
    mStart.reset();
    mSaved.reset();
}

void TstOstrelSettings::position_is_restored_data()
{
    QTest::addColumn<QPoint>("saved");
    QTest::addColumn<QPoint>("position");

    QTest::newRow("on the screen") << QPoint(30, 40) << QPoint(30, 40);
    QTest::newRow("x too far") << QPoint(1201, 5) << QPoint(0, 0);
    QTest::newRow("y too far") << QPoint(5, 1201) << QPoint(0, 0);
    QTest::newRow("x far beyond, y negative") << QPoint(99999, -7) << QPoint(0, 0);
    QTest::newRow("both at the limit") << QPoint(1200, 1200) << QPoint(1200, 1200);
    QTest::newRow("negative") << QPoint(-30, -40) << QPoint(-30, -40);
}

void TstOstrelSettings::position_is_restored()
{
    QFETCH(const QPoint, saved);
    QFETCH(const QPoint, position);
    set(u"/ostrelgui/ostrel/x"_s, saved.x());
    set(u"/ostrelgui/ostrel/y"_s, saved.y());
    const Ostrel window;
    QCOMPARE(window.pos(), position);
    QVERIFY(window.testAttribute(Qt::WA_Moved));
}

void TstOstrelSettings::half_a_position_moves_nothing_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("x alone") << u"x"_s;
    QTest::newRow("y alone") << u"y"_s;
}

void TstOstrelSettings::half_a_position_moves_nothing()
{
    QFETCH(const QString, key);
    set(u"/ostrelgui/ostrel/"_s + key, 30);
    const Ostrel window;
    QCOMPARE(window.pos(), QPoint(0, 0));
    QVERIFY(!window.testAttribute(Qt::WA_Moved));
}

void TstOstrelSettings::size_is_restored_from_both_keys()
{
    set(u"/ostrelgui/ostrel/width"_s, 640);
    set(u"/ostrelgui/ostrel/height"_s, 480);
    const Ostrel window;
    QCOMPARE(window.size(), QSize(640, 480));
}

void TstOstrelSettings::half_a_size_resizes_nothing_data()
{
    QTest::addColumn<QString>("key");
    QTest::newRow("width alone") << u"width"_s;
    QTest::newRow("height alone") << u"height"_s;
}

void TstOstrelSettings::half_a_size_resizes_nothing()
{
    QFETCH(const QString, key);
    set(u"/ostrelgui/ostrel/"_s + key, 640);
    const Ostrel window;
    QCOMPARE(window.size(), QSize(1016, 819));
}

void TstOstrelSettings::geometry_of_the_last_life_overrides_position_and_size()
{
    QByteArray geometry;
    {
        Ostrel window;
        window.move(20, 30);
        window.resize(600, 450);
        window.save_settings();
        geometry = window.saveGeometry();
    }
    QCOMPARE(get(u"geometry"_s).toByteArray(), geometry);

    set(u"/ostrelgui/ostrel/x"_s, 70);
    set(u"/ostrelgui/ostrel/y"_s, 80);
    set(u"/ostrelgui/ostrel/width"_s, 640);
    set(u"/ostrelgui/ostrel/height"_s, 480);
    const Ostrel window;
    QCOMPARE(window.size(), QSize(600, 450));
    QVERIFY(window.pos() != QPoint(70, 80));
}

void TstOstrelSettings::broken_geometry_leaves_position_and_size_data()
{
    QTest::addColumn<QVariant>("geometry");
    QTest::newRow("empty") << QVariant(QByteArray());
    QTest::newRow("no geometry at all") << QVariant(QByteArray("something else"));
    QTest::newRow("number") << QVariant(7);
}

void TstOstrelSettings::broken_geometry_leaves_position_and_size()
{
    QFETCH(const QVariant, geometry);
    set(u"geometry"_s, geometry);
    set(u"/ostrelgui/ostrel/x"_s, 70);
    set(u"/ostrelgui/ostrel/y"_s, 80);
    set(u"/ostrelgui/ostrel/width"_s, 640);
    set(u"/ostrelgui/ostrel/height"_s, 480);
    const Ostrel window;
    QCOMPARE(window.size(), QSize(640, 480));
    QCOMPARE(window.pos(), QPoint(70, 80));
}

void TstOstrelSettings::arrangement_is_saved_but_does_not_come_back()
{
    {
        Ostrel window;
        window.findChild<QDockWidget*>(u"FennarCommandPanel"_s)->hide();
        window.save_settings();
        QVERIFY(!window.saveState(0).isEmpty());
        QCOMPARE(get(u"/ostrelgui/ostrel/saved_state"_s).toByteArray(), window.saveState(0));
    }
    const Ostrel window;
    QVERIFY(!window.findChild<QDockWidget*>(u"FennarCommandPanel"_s)->isHidden());
}

void TstOstrelSettings::position_and_size_keys_are_not_written()
{
    Ostrel window;
    window.save_settings();
    const QStringList keys = QSettings().allKeys();
    QVERIFY(keys.contains("geometry"_L1));
    for (const auto* key : {"x", "y", "width", "height", "workingdir", "restoreWorkingDir", "splash"})
        QVERIFY2(!keys.contains("ostrelgui/ostrel/"_L1 + QLatin1StringView(key)), key);
    QVERIFY(keys.filter(u"fennargui"_s).isEmpty());
}

void TstOstrelSettings::directory_is_kept_data()
{
    QTest::addColumn<bool>("batch");
    QTest::addColumn<QVariant>("restore");
    QTest::newRow("fresh settings") << false << QVariant();
    QTest::newRow("switched off") << false << QVariant(false);
    QTest::newRow("batch mode, switched on") << true << QVariant(true);
    QTest::newRow("batch mode, switched off") << true << QVariant(false);
}

void TstOstrelSettings::directory_is_kept()
{
    QFETCH(const bool, batch);
    QFETCH(const QVariant, restore);
    HostDouble::instance().batch_mode = batch;
    if (restore.isValid())
        set(u"/ostrelgui/ostrel/restoreWorkingDir"_s, restore);
    set(u"/ostrelgui/ostrel/workingdir"_s, mSaved->path());
    const Ostrel window;
    QCOMPARE(current(), real(mStart->path()));
}

void TstOstrelSettings::directory_is_left_data()
{
    QTest::addColumn<bool>("batch");
    QTest::addColumn<bool>("restore");
    QTest::addColumn<bool>("writable");
    QTest::addColumn<QString>("saved");
    QTest::addColumn<QString>("target");

    const auto switched_on = [](const char* row) -> QTestData& {
        return QTest::newRow(row) << false << true << true;
    };
    switched_on("switched on, directory saved") << u"saved"_s << u"saved"_s;
    switched_on("switched on, nothing saved") << u"missing"_s << u"documents"_s;
    switched_on("switched on, empty text saved") << u"empty"_s << u"documents"_s;
    switched_on("switched on, saved directory is gone") << u"gone"_s << u"documents"_s;
    switched_on("switched on, a file saved") << u"file"_s << u"documents"_s;

    const auto not_writable = [](const char* row, bool batch, bool restore) -> QTestData& {
        return QTest::newRow(row) << batch << restore << false;
    };
    not_writable("not writable, directory saved", false, false) << u"saved"_s << u"saved"_s;
    not_writable("not writable, nothing saved", false, false) << u"missing"_s << u"documents"_s;
    not_writable("not writable, saved directory is gone", false, false) << u"gone"_s << u"documents"_s;
    not_writable("not writable, batch mode, switched on", true, true) << u"saved"_s << u"saved"_s;
    not_writable("not writable, batch mode, switched off", true, false) << u"saved"_s << u"saved"_s;
}

void TstOstrelSettings::directory_is_left()
{
    QFETCH(const bool, batch);
    QFETCH(const bool, restore);
    QFETCH(const bool, writable);
    QFETCH(const QString, saved);
    QFETCH(const QString, target);

    HostDouble::instance().batch_mode = batch;
    set(u"/ostrelgui/ostrel/restoreWorkingDir"_s, restore);
    // Permissions would not hold the system administrator back; a directory in the file's place does.
    if (!writable)
        QVERIFY(QDir().mkdir(u".pwdtest"_s));
    const QString key = u"/ostrelgui/ostrel/workingdir"_s;
    if (saved == "saved"_L1)
        set(key, mSaved->path());
    else if (saved == "empty"_L1)
        set(key, QString());
    else if (saved == "gone"_L1)
        set(key, mSaved->filePath(u"gone"_s));
    else if (saved == "file"_L1) {
        QFile file(mSaved->filePath(u"file"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        set(key, file.fileName());
    }

    const Ostrel window;
    QCOMPARE(current(), real(target == "saved"_L1 ? mSaved->path() : documents()));
}

void TstOstrelSettings::test_of_the_directory_leaves_no_file()
{
    const Ostrel window;
    QCOMPARE(current(), real(mStart->path()));
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    QCOMPARE(QDir(mStart->path()).entryList(everything), QStringList());
}

void TstOstrelSettings::directory_that_nobody_can_write_is_left()
{
    QVERIFY(QDir::setCurrent(u"/proc"_s));
    const Ostrel window;
    QCOMPARE(current(), real(documents()));
}

void TstOstrelSettings::restoring_does_without_the_test()
{
    // The test would remove the file.
    QFile file(u".pwdtest"_s);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    set(u"/ostrelgui/ostrel/restoreWorkingDir"_s, true);
    {
        const Ostrel window;
        QVERIFY(QFile::exists(mStart->filePath(u".pwdtest"_s)));
    }
    QVERIFY(QDir::setCurrent(mStart->path()));
    set(u"/ostrelgui/ostrel/restoreWorkingDir"_s, false);
    const Ostrel window;
    QVERIFY(!QFile::exists(mStart->filePath(u".pwdtest"_s)));
}

void TstOstrelSettings::directory_that_is_gone_is_left()
{
    QVERIFY(QDir::setCurrent(mSaved->path()));
    QVERIFY(mSaved->remove());
    const Ostrel window;
    QCOMPARE(current(), real(documents()));
}

void TstOstrelSettings::failed_change_of_directory_is_not_noticed()
{
    set(u"/ostrelgui/ostrel/restoreWorkingDir"_s, true);
    QVERIFY(QDir().rmdir(documents()));
    const Ostrel window;
    QCOMPARE(current(), real(mStart->path()));
}

void TstOstrelSettings::directory_of_the_plugin_tool_lives_on()
{
    {
        Ostrel window;
        ComponentTool::sLastPath = u"/not there; and/odd #%&"_s;
        window.save_settings();
    }
    QCOMPARE(get(u"/ostrelgui/ostrel/comppath"_s), QVariant(u"/not there; and/odd #%&"_s));
    ComponentTool::sLastPath = u"/another"_s;
    const Ostrel window;
    QCOMPARE(ComponentTool::sLastPath, u"/not there; and/odd #%&"_s);
}

void TstOstrelSettings::directory_of_the_plugin_tool_is_saved_even_if_empty()
{
    set(u"/ostrelgui/ostrel/comppath"_s, u"/old"_s);
    Ostrel window;
    QCOMPARE(ComponentTool::sLastPath, u"/old"_s);
    ComponentTool::sLastPath.clear();
    window.save_settings();
    QVERIFY(QSettings().contains(u"/ostrelgui/ostrel/comppath"_s));
    QCOMPARE(get(u"/ostrelgui/ostrel/comppath"_s).toString(), QString());
}

void TstOstrelSettings::useless_directory_leaves_the_plugin_tools_own_data()
{
    QTest::addColumn<QVariant>("saved");
    QTest::newRow("missing") << QVariant();
    QTest::newRow("empty") << QVariant(QString());
    QTest::newRow("list") << QVariant(QStringList{u"/a"_s, u"/b"_s});
}

void TstOstrelSettings::useless_directory_leaves_the_plugin_tools_own()
{
    QFETCH(const QVariant, saved);
    if (saved.isValid())
        set(u"/ostrelgui/ostrel/comppath"_s, saved);
    ComponentTool::sLastPath = u"/own"_s;
    const Ostrel window;
    QCOMPARE(ComponentTool::sLastPath, u"/own"_s);
}

void TstOstrelSettings::font_lives_on()
{
    {
        Ostrel window;
        window.command_line()->set_font(QFont(u"DejaVu Serif"_s, 17));
        window.save_settings();
    }
    QCOMPARE(get(u"/ostrelgui/command/fontfamily"_s).toString(), u"DejaVu Serif"_s);
    QCOMPARE(get(u"/ostrelgui/command/fontsize"_s).toInt(), 17);
    const Ostrel window;
    QCOMPARE(window.command_line()->get_font().family(), u"DejaVu Serif"_s);
    QCOMPARE(window.command_line()->get_font().pointSize(), 17);
}

void TstOstrelSettings::missing_font_keys_leave_the_consoles_font()
{
    const QFont font = CommandWindow().get_font();
    QVERIFY(font.pointSize() != 8);
    const Ostrel window;
    QCOMPARE(window.command_line()->get_font(), font);
}

void TstOstrelSettings::family_alone_keeps_the_size()
{
    set(u"/ostrelgui/command/fontfamily"_s, u"DejaVu Serif"_s);
    const Ostrel window;
    QCOMPARE(window.command_line()->get_font().family(), u"DejaVu Serif"_s);
    QCOMPARE(window.command_line()->get_font().pointSize(), CommandWindow().get_font().pointSize());
}

void TstOstrelSettings::size_alone_keeps_the_family()
{
    set(u"/ostrelgui/command/fontfamily"_s, QString());
    set(u"/ostrelgui/command/fontsize"_s, 17);
    const Ostrel window;
    QCOMPARE(window.command_line()->get_font().family(), CommandWindow().get_font().family());
    QCOMPARE(window.command_line()->get_font().pointSize(), 17);
}

void TstOstrelSettings::useless_font_size_is_ignored_data()
{
    QTest::addColumn<QVariant>("size");
    QTest::newRow("zero") << QVariant(0);
    QTest::newRow("negative, as of a font in pixels") << QVariant(-1);
    QTest::newRow("smallest of all") << QVariant(std::numeric_limits<int>::min());
}

void TstOstrelSettings::useless_font_size_is_ignored()
{
    QFETCH(const QVariant, size);
    set(u"/ostrelgui/command/fontsize"_s, size);
    const Ostrel window;
    QCOMPARE(window.command_line()->get_font().pointSize(), CommandWindow().get_font().pointSize());
}

void TstOstrelSettings::limits_are_restored_data()
{
    QTest::addColumn<QVariant>("usetrim");
    QTest::addColumn<QVariant>("trimlimit");
    QTest::addColumn<QVariant>("historylimit");
    QTest::addColumn<int>("command_lines");
    QTest::addColumn<int>("other_lines");

    const QVariant none;
    QTest::newRow("fresh settings") << none << none << none << 1024 << 200;
    QTest::newRow("trimming not mentioned") << none << QVariant(500) << none << 500 << 200;
    QTest::newRow("trimming on") << QVariant(true) << QVariant(500) << QVariant(77) << 500 << 77;
    QTest::newRow("trimming on without a limit") << QVariant(true) << none << none << 1024 << 200;
    QTest::newRow("trimming off") << QVariant(false) << QVariant(500) << QVariant(77) << 0 << 77;
}

void TstOstrelSettings::limits_are_restored()
{
    QFETCH(const QVariant, usetrim);
    QFETCH(const QVariant, trimlimit);
    QFETCH(const QVariant, historylimit);
    QFETCH(const int, command_lines);
    QFETCH(const int, other_lines);
    if (usetrim.isValid())
        set(u"/ostrelgui/command/usetrim"_s, usetrim);
    if (trimlimit.isValid())
        set(u"/ostrelgui/command/trimlimit"_s, trimlimit);
    if (historylimit.isValid())
        set(u"/ostrelgui/command/historylimit"_s, historylimit);
    const Ostrel window;
    QCOMPARE(window.command_line()->get_cmd_max_lines(), command_lines);
    QCOMPARE(window.command_line()->get_other_max_lines(), other_lines);
}

void TstOstrelSettings::limits_live_on()
{
    {
        Ostrel window;
        window.command_line()->set_cmd_max_lines(333);
        window.command_line()->set_other_max_lines(44);
        window.save_settings();
    }
    QCOMPARE(get(u"/ostrelgui/command/usetrim"_s).toString(), u"true"_s);
    QCOMPARE(get(u"/ostrelgui/command/trimlimit"_s).toInt(), 333);
    QCOMPARE(get(u"/ostrelgui/command/historylimit"_s).toInt(), 44);
    const Ostrel window;
    QCOMPARE(window.command_line()->get_cmd_max_lines(), 333);
    QCOMPARE(window.command_line()->get_other_max_lines(), 44);
}

void TstOstrelSettings::switched_off_trimming_loses_the_limit()
{
    {
        Ostrel window;
        QCOMPARE(window.command_line()->get_cmd_max_lines(), 1024);
        window.command_line()->set_cmd_max_lines(0);
        window.save_settings();
    }
    QCOMPARE(get(u"/ostrelgui/command/usetrim"_s).toString(), u"false"_s);
    QCOMPARE(get(u"/ostrelgui/command/trimlimit"_s).toInt(), 0);
    const Ostrel window;
    QCOMPARE(window.command_line()->get_cmd_max_lines(), 0);
}

void TstOstrelSettings::question_about_unsaved_data_lives_on()
{
    for (const bool asks : {false, true}) {
        {
            Ostrel window;
            OstrelFileMenu::mDoPrompt = asks;
            window.save_settings();
            QCOMPARE(get(u"/ostrelgui/ostrel/saveprompt"_s).toBool(), asks);
        }
        OstrelFileMenu::mDoPrompt = !asks;
        const Ostrel window;
        QCOMPARE(OstrelFileMenu::mDoPrompt, asks);
    }
}

void TstOstrelSettings::unreadable_question_flag_stands_for_asking()
{
    OstrelFileMenu::mDoPrompt = false;
    {
        const Ostrel window;
        QVERIFY(OstrelFileMenu::mDoPrompt);
    }
    OstrelFileMenu::mDoPrompt = false;
    set(u"/ostrelgui/ostrel/saveprompt"_s, QStringList{u"a"_s, u"b"_s});
    const Ostrel window;
    QVERIFY(OstrelFileMenu::mDoPrompt);
}

void TstOstrelSettings::recent_lists_live_on()
{
    // The newest first.
    const QStringList names{u"/gone/a b;c.mdl"_s, u"/#%1&\"'\u677f.mdl"_s, u"/line\nfeed.mdl"_s, u"x"_s,
                            u"C:\\y.mdl"_s};
    const QStringList commands{u"import step \"/a b;c.stp\" heal"_s, u"import '/b,c.stl'"_s};
    {
        Ostrel window;
        for (auto name = names.crbegin(); name != names.crend(); ++name)
            window.file_menu()->recent_file(*name);
        for (auto command = commands.crbegin(); command != commands.crend(); ++command)
            window.file_menu()->recent_import(*command);
        window.save_settings();
    }
    for (int i = 0; i < 5; ++i)
        QCOMPARE(get(u"/ostrelgui/ostrel/file%1"_s.arg(i + 1)).toString(), names[i]);
    QCOMPARE(get(u"/ostrelgui/ostrel/import1"_s).toString(), commands[0]);
    QCOMPARE(get(u"/ostrelgui/ostrel/import2"_s).toString(), commands[1]);
    QVERIFY(!get(u"/ostrelgui/ostrel/import3"_s).isValid());
    const Ostrel window;
    std::vector<QString> restored;
    window.file_menu()->get_recent_files(restored);
    window.file_menu()->get_recent_imports(restored);
    QCOMPARE(QStringList(restored.cbegin(), restored.cend()), names + commands);
}

void TstOstrelSettings::recent_files_come_back_from_the_filled_keys_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QStringList>("restored");

    QTest::newRow("one and an empty one") << QStringList{u"file1"_s, u"-file3"_s} << QStringList{u"file1"_s};
    QTest::newRow("gaps") << QStringList{u"file2"_s, u"file5"_s} << QStringList{u"file2"_s, u"file5"_s};
    QTest::newRow("numbers out of range")
        << QStringList{u"file0"_s, u"file4"_s, u"file6"_s, u"file"_s} << QStringList{u"file4"_s};
    QTest::newRow("imports") << QStringList{u"import5"_s, u"import1"_s, u"-import2"_s}
                             << QStringList{u"import1 '/1'"_s, u"import5 '/5'"_s};
    QTest::newRow("both") << QStringList{u"import1"_s, u"file5"_s}
                          << QStringList{u"file5"_s, u"import1 '/1'"_s};
}

void TstOstrelSettings::recent_files_come_back_from_the_filled_keys()
{
    QFETCH(QStringList, keys);
    for (const QString& key : keys) {
        // A dash marks an empty value.
        const bool empty = key.startsWith(u'-');
        const QString name = empty ? key.mid(1) : key;
        const QString value = name.startsWith(u"import"_s) ? name + u" '/"_s + name.right(1) + u'\'' : name;
        set(u"/ostrelgui/ostrel/"_s + name, empty ? QString() : value);
    }
    const Ostrel window;
    std::vector<QString> entries;
    window.file_menu()->get_recent_files(entries);
    window.file_menu()->get_recent_imports(entries);
    QTEST(QStringList(entries.cbegin(), entries.cend()), "restored");
}

void TstOstrelSettings::keys_of_recent_lists_that_are_over_go()
{
    Ostrel window;
    for (int i = 1; i <= 6; ++i) {
        set(u"/ostrelgui/ostrel/file%1"_s.arg(i), u"old"_s);
        set(u"/ostrelgui/ostrel/import%1"_s.arg(i), u"old"_s);
    }
    window.file_menu()->recent_file(u"new"_s);
    window.save_settings();
    QCOMPARE(get(u"/ostrelgui/ostrel/file1"_s).toString(), u"new"_s);
    for (int i = 1; i <= 5; ++i) {
        QCOMPARE(QSettings().contains(u"/ostrelgui/ostrel/file%1"_s.arg(i)), i == 1);
        QVERIFY(!QSettings().contains(u"/ostrelgui/ostrel/import%1"_s.arg(i)));
    }
    // A sixth is nobody's.
    QVERIFY(QSettings().contains(u"/ostrelgui/ostrel/file6"_s));
}

void TstOstrelSettings::panel_kind_is_restored_data()
{
    QTest::addColumn<QVariant>("breadcrumbs");
    QTest::addColumn<bool>("rows");
    QTest::newRow("missing key") << QVariant() << true;
    QTest::newRow("switched off") << QVariant(false) << true;
    QTest::newRow("switched on") << QVariant(true) << false;
}

void TstOstrelSettings::panel_kind_is_restored()
{
    QFETCH(const QVariant, breadcrumbs);
    QFETCH(const bool, rows);
    if (breadcrumbs.isValid())
        set(u"/fennargui/commandpanel/breadcrumbs"_s, breadcrumbs);
    const Ostrel window;
    QCOMPARE(window.usingButtonRows(), rows);
    // The panel that the window was built with is not built a second time.
    QCOMPARE(HostDouble::instance().calls.count(u"CommandButtonPanel::CommandButtonPanel"_s), 1);
}

void TstOstrelSettings::settings_of_others_stay_as_they_are()
{
    const QStringList keys{u"/ostrelgui/ostrel/importdir"_s, u"/ostrelgui/ostrel/exportdir"_s,
                           u"/ostrelgui/journal/x"_s, u"/fennargui/tabposition"_s, u"/somebody/else"_s};
    for (const QString& key : keys)
        set(key, u"kept"_s);
    Ostrel window;
    window.save_settings();
    for (const QString& key : keys)
        QCOMPARE(get(key), QVariant(u"kept"_s));
}

void TstOstrelSettings::unreadable_values_take_their_defaults_data()
{
    QTest::addColumn<QVariant>("number");
    QTest::addColumn<QVariant>("other");

    const QVariant list(QStringList{u"a"_s, u"b"_s});
    QTest::newRow("list") << list << list;
    QTest::newRow("text") << QVariant(u"many"_s) << QVariant();
    QTest::newRow("number too large") << QVariant(u"99999999999999999999"_s) << QVariant();
    // Its lower half would be 7.
    QTest::newRow("number of more than 32 bits") << QVariant(u"4294967303"_s) << QVariant();
    QTest::newRow("negative number of more than 32 bits") << QVariant(u"-4294967289"_s) << QVariant();
    QTest::newRow("bytes") << QVariant(QByteArray("\x01\xff\xfe", 3)) << QVariant();
}

void TstOstrelSettings::unreadable_values_take_their_defaults()
{
    QFETCH(const QVariant, number);
    QFETCH(const QVariant, other);
    for (const QString& key : {u"x"_s, u"y"_s})
        set(u"/ostrelgui/ostrel/"_s + key, number);
    for (const QString& key : {u"fontsize"_s, u"trimlimit"_s, u"historylimit"_s})
        set(u"/ostrelgui/command/"_s + key, number);
    if (other.isValid()) {
        set(u"/ostrelgui/ostrel/restoreWorkingDir"_s, other);
        set(u"/ostrelgui/ostrel/workingdir"_s, other);
        set(u"/ostrelgui/command/fontfamily"_s, other);
        set(u"/ostrelgui/command/usetrim"_s, other);
        set(u"/fennargui/commandpanel/breadcrumbs"_s, other);
        set(u"geometry"_s, other);
    }

    const Ostrel window;
    const CommandWindow* const console = window.command_line();
    QCOMPARE(window.pos(), QPoint(0, 0));
    QCOMPARE(window.size(), QSize(1016, 819));
    QCOMPARE(current(), real(mStart->path()));
    QCOMPARE(console->get_font().family(), CommandWindow().get_font().family());
    QCOMPARE(console->get_font().pointSize(), 8);
    QCOMPARE(console->get_cmd_max_lines(), 1024);
    QCOMPARE(console->get_other_max_lines(), 200);
    QVERIFY(window.usingButtonRows());
}

void TstOstrelSettings::extreme_numbers_do_no_harm_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("largest") << std::numeric_limits<int>::max();
    QTest::newRow("smallest") << std::numeric_limits<int>::min();
}

void TstOstrelSettings::extreme_numbers_do_no_harm()
{
    QFETCH(const int, number);
    for (const QString& key : {u"x"_s, u"y"_s, u"width"_s, u"height"_s})
        set(u"/ostrelgui/ostrel/"_s + key, number);
    for (const QString& key : {u"fontsize"_s, u"trimlimit"_s, u"historylimit"_s})
        set(u"/ostrelgui/command/"_s + key, number);
    Ostrel window;
    QCOMPARE(window.command_line()->get_cmd_max_lines(), number);
    QCOMPARE(window.command_line()->get_other_max_lines(), number);
    // A page takes on the limits and the font.
    auto* page = new CommandWidget;
    window.command_line()->add_command_tab(u"page"_s, page);
    page->printOutput(u"one\ntwo\n"_s);
    page->printPrompt();
    QVERIFY(page->toPlainText().startsWith("one\ntwo\n"_L1));
    // As a window that does not fit the screen is shown.
    window.showMaximized();
    QTRY_COMPARE_LE(window.width(), window.screen()->size().width());
    QVERIFY(!window.grab().isNull());
}

OSTREL_TEST(TstOstrelSettings)

#include "tst_ostrel_settings.moc"
