// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "frame/Ostrel.h"
#include "host/fennar_python/FennarPythonInterpreter.h"
#include "host/fennari19/FennarInterface.h"
#include "host/navigation/NavigationModel.h"
#include "host/navigation/NavigationReader.h"
#include "host/navigation/TaskPanel.h"
#include "host/ostrelfw/Framework.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "support/windows.h"
#include "workbench/application/Workbench.h"
#include "workbench/application/WorkbenchTest.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/host/navigation/NavigationEntries.h"
#include "workbench/host/ostrelfw/OutputRouter.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/plain_command.h"

#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QFontInfo>
#include <QGuiApplication>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSplashScreen>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <stdexcept>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** Sees which splash screens are painted, and with what picture, before there is a main window. */
class SplashWatcher : public QObject
{
public:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        const auto* splash = qobject_cast<QSplashScreen*>(object);
        if (splash && event->type() == QEvent::Paint && !Ostrel::instance())
            pictures << splash->pixmap().toImage();
        return false;
    }

    QList<QImage> pictures;
};

/** What is there when the main window is painted for the first time. */
class FirstPaintWatcher : public QObject
{
public:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (object != Ostrel::instance() || event->type() != QEvent::Paint || painted)
            return false;
        painted = true;
        python = PythonRuntime::running();
        console = Ostrel::instance()->findChild<CommandWidget*>()->toPlainText();
        return false;
    }

    bool painted = false;
    bool python = false;
    QString console;
};

} // namespace

/**
 * The whole application on its real host: what a user types goes in at the keyboard and what is checked is
 * the text that he then reads. Python can be started once in a process, so all functions share one workbench.
 */
class TstWorkbench : public WorkbenchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override;
    void set_up_class() override;
    void set_up() override;
    void tear_down() override;

private slots:
    void splash_screen_with_a_picture_comes_first();
    void window_is_painted_with_its_prompt_before_python_starts();
    void window_has_a_black_area_a_command_panel_and_a_console();
    void journal_editor_has_the_font_of_the_console();
    void typed_command_is_answered_above_the_next_prompt();
    void continued_command_gets_a_second_prompt();
    void error_names_command_and_column_and_warns_on_the_errors_tab();
    void python_statement_runs_in_python_mode();
    void functions_of_commands_show_the_lines_that_they_stand_for();
    void lines_that_run_within_another_are_no_commands_of_the_page();
    void failure_of_a_function_is_shown_once();
    void python_loop_over_several_lines_runs_at_the_empty_line();
    void python_traceback_stands_on_the_console();
    void python_exit_ends_nothing();
    void mode_buttons_switch_prompt_and_interpreter();
    void snippet_runs_in_python_mode();
    void snippet_is_an_unknown_command_in_command_mode();
    void command_runs_from_python_and_its_failure_raises();
    void python_runs_from_a_command();
    void prints_of_a_python_thread_arrive_in_order();
    void user_and_framework_names_are_apart();
    void pasted_lines_run_in_order();
    void journal_plays_line_by_line();
    void failing_journal_stops_with_file_and_line();
    void history_command_lists_what_was_entered();
    void picture_command_writes_the_window();
    void picture_that_cannot_be_written_is_an_error();
    void output_with_odd_characters_does_no_harm();
    void output_that_is_no_utf8_is_shown_with_replacements();
    void line_of_10_megabytes_is_folded_and_kept_whole();
    void line_of_a_megabyte_is_typed();
    void command_that_throws_is_an_error_data();
    void command_that_throws_is_an_error();
    void up_and_down_walk_the_history();
    void tab_completes_commands_and_files();
    void second_tab_lists_what_could_be_typed();
    void tab_completes_python();
    void pasted_python_block_runs();
    void mode_buttons_work_by_mouse();
    void panel_entries_are_the_commands_as_the_registry_has_them_data();
    void panel_entries_are_the_commands_as_the_registry_has_them();
    void apply_in_the_panel_runs_the_command_on_the_console();
    void apply_in_python_mode_runs_the_command_through_python();
    void cancel_button_is_enabled_while_a_line_runs();
    void cancel_interrupts_python();
    void cancel_lets_python_clean_up();
    void each_click_on_cancel_interrupts_python();
    void cancelled_command_interrupts_the_python_that_called_it();
    void cancel_ends_a_journal();
    void cancel_ends_a_paused_journal();
    void flood_of_lines_arrives_in_order_data();
    void flood_of_lines_arrives_in_order();
    void cancel_stops_a_flood_of_lines_data();
    void cancel_stops_a_flood_of_lines();
    void journal_is_not_played_if_the_model_fails();
    void journal_is_played_once_the_model_is_open();
    void keys_pause_while_the_toolbar_is_hidden();
    void closing_the_window_ends_what_runs_data();
    void closing_the_window_ends_what_runs();
    void quit_in_a_journal_ends_the_lines_behind_it();
    void quit_closes_the_window_and_ends_the_loop();

private:
    void paste(const QString& lines)
    {
        QGuiApplication::clipboard()->setText(lines);
        page()->paste();
    }
    static QToolButton* cancel() { return Ostrel::instance()->findChild<QToolButton*>(u"mCancel"_s); }
    /** Clicks on cancel at the first turn that the line to be run gives. */
    void cancel_soon()
    {
        QTimer::singleShot(0, page(), [] { QTest::mouseClick(cancel(), Qt::LeftButton); });
    }
    /** Clicks on the entry of the command panel. */
    static void choose_entry(const QString& title);

    SplashWatcher mSplash;
    FirstPaintWatcher mFirstPaint;
};

void TstWorkbench::prepare(Workbench&)
{
    QCoreApplication::instance()->installEventFilter(&mSplash);
    QCoreApplication::instance()->installEventFilter(&mFirstPaint);
}

void TstWorkbench::set_up_class()
{
    QCoreApplication::instance()->removeEventFilter(&mSplash);
    QTRY_VERIFY(PythonRuntime::running());
    QCoreApplication::instance()->removeEventFilter(&mFirstPaint);
}

void TstWorkbench::set_up()
{
    Ostrel::instance()->command_line()->set_focus();
    page()->clearToPrompt();
}

void TstWorkbench::tear_down()
{
    if (Ostrel::instance() && FennarInterface::command_is_python_mode())
        python_mode(false);
}

void TstWorkbench::splash_screen_with_a_picture_comes_first()
{
    QVERIFY(!mSplash.pictures.isEmpty());
    QCOMPARE(mSplash.pictures.last().size(), QSize(560, 320));
}

void TstWorkbench::window_is_painted_with_its_prompt_before_python_starts()
{
    QVERIFY(mFirstPaint.painted);
    QVERIFY(!mFirstPaint.python);
    QCOMPARE(mFirstPaint.console, u"Fennar>"_s);
    // Without having been asked for; see set_up_class().
    QVERIFY(PythonRuntime::running());
}

void TstWorkbench::window_has_a_black_area_a_command_panel_and_a_console()
{
    const Ostrel* window = Ostrel::instance();
    const QWidget* area = window->findChild<QWidget*>(u"mDefaultWidget"_s);
    QVERIFY(area && area->isVisible());
    QCOMPARE(const_cast<QWidget*>(area)->grab().toImage().pixelColor(area->rect().center()),
             QColor(Qt::black));
    for (const QString& name : {u"FennarCommandPanel"_s, u"OstrelCommandWindow"_s}) {
        const auto* dock = window->findChild<QDockWidget*>(name);
        QVERIFY2(dock && dock->isVisible(), qPrintable(name));
    }
    QVERIFY(page()->isVisible());
    QCOMPARE(window->windowTitle(), u"Fennar"_s);
}

void TstWorkbench::journal_editor_has_the_font_of_the_console()
{
    // A start without settings: the console has its own font then.
    QCOMPARE(QFontInfo(page()->font()).family(), u"Inconsolata"_s);
    QCOMPARE(Ostrel::instance()->journal_editor()->get_editor_font(), page()->font());
}

void TstWorkbench::typed_command_is_answered_above_the_next_prompt()
{
    type(u"echo one 'two three'"_s);
    QCOMPARE(text(), u"Fennar>echo one 'two three'\none two three\nFennar>"_s);
}

void TstWorkbench::continued_command_gets_a_second_prompt()
{
    type(u"echo one \\"_s);
    QCOMPARE(text(), u"Fennar>echo one \\\nFennar>"_s);
    type(u"two"_s);
    QVERIFY2(text().endsWith(u"two\none two\nFennar>"_s), qPrintable(text()));
}

void TstWorkbench::error_names_command_and_column_and_warns_on_the_errors_tab()
{
    auto* tabs = Ostrel::instance()->findChild<QTabWidget*>(u"mCommandTab"_s);
    type(u"set 1x 5"_s);
    QVERIFY2(text().contains(u"ERROR: set: column 5: expected "_s), qPrintable(text()));
    QVERIFY(workbench().console()->error_page()->toPlainText().contains(
        u"Fennar>set 1x 5\nERROR: set: column 5"_s));
    const int errors = tabs->indexOf(workbench().console()->error_page());
    QVERIFY(!tabs->tabIcon(errors).isNull());
    tabs->setCurrentIndex(errors);
    QVERIFY(tabs->tabIcon(errors).isNull());
    tabs->setCurrentIndex(0);
}

void TstWorkbench::python_statement_runs_in_python_mode()
{
    python_mode(true);
    type(u"6 * 7"_s);
    QCOMPARE(text(), u">>>6 * 7\n42\n>>>"_s);
}

void TstWorkbench::functions_of_commands_show_the_lines_that_they_stand_for()
{
    python_mode(true);
    type(u"fennar.echo('a  b', 5)"_s);
    QCOMPARE(text(), u">>>fennar.echo('a  b', 5)\nFennar>echo \"a  b\" 5\na  b 5\n>>>"_s);
    python_mode(false);
    QVERIFY2(page()->getCommands().contains(u"echo \"a  b\" 5"_s), qPrintable(text()));
}

void TstWorkbench::lines_that_run_within_another_are_no_commands_of_the_page()
{
    type(u"python \"fennar.echo('one'); fennar.cmd('echo two\\\\necho three')\""_s);
    QCOMPARE(text().section(u'\n', 1),
             u"  Fennar>echo one\none\n  Fennar>echo two\n  Fennar>echo three\ntwo\nthree\nFennar>"_s);
    python_mode(true);
    page()->clearToPrompt();
    type(u"fennar.play('%1')"_s.arg(write_temp(u"inner.jou"_s, "echo of a journal\n")));
    QVERIFY2(text().endsWith(u"\n  Fennar>echo of a journal\nof a journal\n>>>"_s), qPrintable(text()));
}

void TstWorkbench::failure_of_a_function_is_shown_once()
{
    python_mode(true);
    type(u"fennar.play('no such.jou', line=0)"_s);
    QCOMPARE(text().count(u"expected a line number"_s), 1);
    QVERIFY2(text().contains(u"\nfennar.CommandError: play: column 20: expected a line number"_s),
             qPrintable(text()));
}

void TstWorkbench::python_loop_over_several_lines_runs_at_the_empty_line()
{
    python_mode(true);
    type(u"for i in range(3):"_s);
    QCOMPARE(page()->currentCommand(), u"    "_s);
    type(u"print('i =', i)"_s);
    QCOMPARE(page()->currentCommand(), u"    "_s);
    QTest::keyClick(page(), Qt::Key_U, Qt::ControlModifier);
    type({});
    QVERIFY2(text().endsWith(u"\ni = 0\ni = 1\ni = 2\n>>>"_s), qPrintable(text()));
}

void TstWorkbench::python_traceback_stands_on_the_console()
{
    python_mode(true);
    type(u"1 / 0"_s);
    QVERIFY2(text().contains(u"Traceback"_s), qPrintable(text()));
    QVERIFY2(text().endsWith(u"ZeroDivisionError: division by zero\n>>>"_s), qPrintable(text()));
    QVERIFY(workbench().console()->error_page()->toPlainText().contains(u">>>1 / 0\nTraceback"_s));
}

void TstWorkbench::python_exit_ends_nothing()
{
    python_mode(true);
    type(u"import sys"_s);
    type(u"sys.exit(3)"_s);
    QVERIFY2(text().contains(u"SystemExit"_s), qPrintable(text()));
    type(u"'still ' + 'here'"_s);
    QVERIFY2(text().endsWith(u"\n'still here'\n>>>"_s), qPrintable(text()));
}

void TstWorkbench::mode_buttons_switch_prompt_and_interpreter()
{
    python_mode(true);
    QVERIFY(FennarInterface::command_is_python_mode());
    QCOMPARE(text(), u">>>"_s);
    python_mode(false);
    QVERIFY(!FennarInterface::command_is_python_mode());
    QCOMPARE(text(), u"Fennar>"_s);
}

void TstWorkbench::snippet_runs_in_python_mode()
{
    python_mode(true);
    QTest::keyClick(page(), Qt::Key_T, Qt::ControlModifier);
    type(u"'echo from python'"_s);
    QVERIFY2(
        text().startsWith(u">>>fennar.cmd('echo from python')\nFennar>echo from python\nfrom python\n"_s),
        qPrintable(text()));
}

void TstWorkbench::snippet_is_an_unknown_command_in_command_mode()
{
    QTest::keyClick(page(), Qt::Key_T, Qt::ControlModifier);
    type({});
    QVERIFY2(text().startsWith(u"Fennar>fennar.cmd()\nERROR: "_s), qPrintable(text()));
}

void TstWorkbench::command_runs_from_python_and_its_failure_raises()
{
    python_mode(true);
    type(u"fennar.cmd('no_such_command')"_s);
    QVERIFY2(text().contains(u"no_such_command"_s), qPrintable(text()));
    QVERIFY2(text().contains(u"CommandError"_s), qPrintable(text()));
}

void TstWorkbench::python_runs_from_a_command()
{
    type(u"python print(1.5 + 1)"_s);
    QCOMPARE(text(), u"Fennar>python print(1.5 + 1)\n2.5\nFennar>"_s);
}

void TstWorkbench::prints_of_a_python_thread_arrive_in_order()
{
    python_mode(true);
    type(u"import threading"_s);
    type(u"t = threading.Thread(target=lambda: [print('line', n) for n in range(200)])"_s);
    type(u"t.start()"_s);
    QTRY_VERIFY(text().contains(u"line 199\n"_s));
    QString expected;
    for (int n = 0; n < 200; ++n)
        expected += u"line %1\n"_s.arg(n);
    QString printed = text();
    printed = printed.mid(printed.indexOf(u"line 0\n"_s), expected.size());
    QCOMPARE(printed, expected);
    type(u"t.join()"_s);
}

void TstWorkbench::user_and_framework_names_are_apart()
{
    QVERIFY(Framework::python_interpreter() != Framework::user_python_interpreter());
    QCOMPARE(Framework::python_interpreter()->Run_SimpleString("shared = 1"), 0);
    QCOMPARE(Framework::user_python_interpreter()->Run_SimpleString("own = 2"), 0);
    QCOMPARE(Framework::user_python_interpreter()->Run_SimpleString("shared"), -1);
    QCOMPARE(Framework::python_interpreter()->Run_SimpleString("own"), -1);
    // What the user types goes to the user's names.
    python_mode(true);
    type(u"own"_s);
    QVERIFY2(text().endsWith(u">>>own\n2\n>>>"_s), qPrintable(text()));
}

void TstWorkbench::pasted_lines_run_in_order()
{
    emit page()->commandsEntered({u"set a 1"_s, u"echo $a"_s, {}});
    QCOMPARE(text(), u"Fennar>set a 1\nFennar>echo $a\n1\nFennar>"_s);
}

void TstWorkbench::journal_plays_line_by_line()
{
    const QString path = write_temp(u"good.jou"_s, "# a comment\necho one\necho two\n");
    type(u"play \"%1\""_s.arg(path));
    QVERIFY2(text().contains(u"Fennar>echo one\none\nFennar>echo two\ntwo\nFennar>"_s), qPrintable(text()));
}

void TstWorkbench::failing_journal_stops_with_file_and_line()
{
    const QString path = write_temp(u"bad.jou"_s, "echo one\nnonsense 5\necho never\n");
    type(u"play \"%1\""_s.arg(path));
    QVERIFY2(text().contains(path + u":2"_s), qPrintable(text()));
    QVERIFY(!text().contains(u"never"_s));
    QVERIFY(text().endsWith(u"\nFennar>"_s));
}

void TstWorkbench::history_command_lists_what_was_entered()
{
    type(u"echo remember me"_s);
    type(u"history 2"_s);
    QVERIFY2(text().section(u"history 2\n"_s, 1).contains(u"echo remember me"_s), qPrintable(text()));
}

void TstWorkbench::picture_command_writes_the_window()
{
    const QString path = temp_path(u"window.png"_s);
    type(u"picture \"%1\""_s.arg(path));
    const QImage picture(path);
    QCOMPARE(picture.size(), Ostrel::instance()->size());
}

void TstWorkbench::picture_that_cannot_be_written_is_an_error()
{
    type(u"picture /no/such/directory/window.png"_s);
    QVERIFY2(text().contains(u"ERROR: picture: column 9: "_s), qPrintable(text()));
}

void TstWorkbench::output_with_odd_characters_does_no_harm()
{
    python_mode(true);
    type(u"print('a\\0b\\udc80c')"_s);
    type(u"import sys; _ = sys.stdout.write('x' * 1000000 + chr(10))"_s);
    type(u"1 + 1"_s);
    QVERIFY(text().endsWith(u">>>1 + 1\n2\n>>>"_s));
    // Too long to be shown, the line is folded.
    QVERIFY(text().contains(u"xxx ... [1000000 characters; \"edit line "_s));
}

void TstWorkbench::output_that_is_no_utf8_is_shown_with_replacements()
{
    python_mode(true);
    type(u"import sys; _ = sys.stdout.buffer.write(b'a\\xffb\\n')"_s);
    QVERIFY2(text().endsWith(u"\na\ufffdb\n>>>"_s), qPrintable(text()));
}

void TstWorkbench::line_of_10_megabytes_is_folded_and_kept_whole()
{
    python_mode(true);
    type(u"print('x' * 10000000)"_s);
    const QRegularExpressionMatch mark =
        QRegularExpression(
            u"xxx \\.\\.\\. \\[10000000 characters; \"edit line (\\d+)\" shows the line whole\\]\n>>>$"_s)
            .match(text());
    QVERIFY2(mark.hasMatch(), qPrintable(text().right(200)));
    const std::optional<QString> line = OutputRouter::instance().folded_line(mark.captured(1).toInt());
    QVERIFY(line == QString(10'000'000, u'x'));
    page()->clearToPrompt();
}

void TstWorkbench::line_of_a_megabyte_is_typed()
{
    const QString word(1'000'000, u'y');
    paste(u"echo "_s + word);
    QTest::keyClick(page(), Qt::Key_Return);
    QVERIFY2(text().endsWith(u" shows the line whole]\nFennar>"_s), qPrintable(text().right(200)));
    QCOMPARE(workbench().console()->history().entries().last(), u"echo "_s + word);
    page()->clearToPrompt();
}

void TstWorkbench::command_that_throws_is_an_error_data()
{
    QTest::addColumn<bool>("standard");
    QTest::newRow("a standard exception") << true;
    QTest::newRow("anything else") << false;
}

void TstWorkbench::command_that_throws_is_an_error()
{
    QFETCH(const bool, standard);
    CommandRegistry& registry = Fennar::instance().registry();
    registry.add(plain_command(u"broken"_s, u"test"_s, [standard](CommandCall&) {
        if (standard)
            throw std::runtime_error("out of luck");
        throw 1;
    }));
    type(u"broken"_s);
    registry.remove_owner(u"test"_s);
    const QString error =
        standard ? u"ERROR: broken: out of luck\n"_s : u"ERROR: broken: failed for an unknown reason\n"_s;
    QCOMPARE(text(), u"Fennar>broken\n"_s + error + u"Fennar>"_s);
    QVERIFY(workbench().console()->error_page()->toPlainText().endsWith(u"Fennar>broken\n"_s + error));
}

void TstWorkbench::up_and_down_walk_the_history()
{
    type(u"echo first"_s);
    type(u"echo second"_s);
    type(u"echo second"_s);
    QTest::keyClicks(page(), u"half"_s);
    QTest::keyClick(page(), Qt::Key_Up);
    QTest::keyClick(page(), Qt::Key_Up);
    QCOMPARE(page()->currentCommand(), u"echo first"_s);
    QTest::keyClick(page(), Qt::Key_Down);
    QTest::keyClick(page(), Qt::Key_Down);
    QCOMPARE(page()->currentCommand(), u"half"_s);
}

void TstWorkbench::pasted_python_block_runs()
{
    python_mode(true);
    paste(u"for i in range(2):\r\n    j = 10 * i\r\n    print('j', j)\r\n\r\nprint('end')\r\n"_s);
    QCOMPARE(text(), u">>>for i in range(2):\n>>>    j = 10 * i\n>>>    print('j', j)\n>>>\n"
                     "j 0\nj 10\n>>>print('end')\nend\n>>>"_s);
}

void TstWorkbench::mode_buttons_work_by_mouse()
{
    auto* python = Ostrel::instance()->findChild<QPushButton*>(u"mPythonButton"_s);
    auto* fennar = Ostrel::instance()->findChild<QPushButton*>(u"mFennarButton"_s);
    QTest::mouseClick(python, Qt::LeftButton);
    QVERIFY(FennarInterface::command_is_python_mode());
    QVERIFY(python->isChecked() && !fennar->isChecked());
    type(u"2 * 3"_s);
    QCOMPARE(text(), u">>>2 * 3\n6\n>>>"_s);
    QTest::mouseClick(fennar, Qt::LeftButton);
    QVERIFY(!FennarInterface::command_is_python_mode());
    QVERIFY(!python->isChecked() && fennar->isChecked());
}

void TstWorkbench::panel_entries_are_the_commands_as_the_registry_has_them_data()
{
    QTest::addColumn<QString>("directory");
    QTest::newRow("by action") << u"/xml/action-based-xml"_s;
    QTest::newRow("by entity") << u"/xml/entity-based-xml"_s;
}

void TstWorkbench::panel_entries_are_the_commands_as_the_registry_has_them()
{
    QFETCH(const QString, directory);
    NavigationModel model(nullptr);
    NavigationReader reader;
    reader.setModel(&model, nullptr, nullptr);
    reader.buildNavigation(QCoreApplication::applicationDirPath() + directory, u".xml"_s);
    QCOMPARE(reader.messages, QStringList());

    const CommandRegistry& registry = Fennar::instance().registry();
    QStringList offered;
    const QModelIndexList entries =
        model.match(model.index(0, 0), NavigationRole::Kind, int(NavigationKind::Command), -1,
                    Qt::MatchExactly | Qt::MatchRecursive);
    for (const QModelIndex& entry : entries) {
        QString component;
        for (QModelIndex above = entry; above.isValid() && component.isEmpty(); above = above.parent())
            component = above.data(NavigationRole::Component).toString();
        // Those of components are looked at where components are loaded.
        if (component.isEmpty())
            offered << entry.data(NavigationRole::Command).toString();
    }
    offered.sort();
    QCOMPARE(offered, registry.names());
}

void TstWorkbench::choose_entry(const QString& title)
{
    const auto buttons = Ostrel::instance()->command_buttons()->findChildren<QToolButton*>();
    for (QToolButton* button : buttons) {
        if (button->isVisible() && button->accessibleName() == title) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QFAIL(qPrintable(u"no entry "_s + title));
}

void TstWorkbench::apply_in_the_panel_runs_the_command_on_the_console()
{
    QTest::keyClicks(page(), u"half"_s);
    choose_entry(u"Change"_s);
    choose_entry(u"Console"_s);
    choose_entry(u"Echo Text"_s);
    const TaskPanel* panel = Ostrel::instance()->command_buttons();
    const auto* line = panel->findChild<QLineEdit*>(u"commandLine"_s);
    auto* words = panel->findChild<QLineEdit*>(u"valueWORD"_s);
    auto* apply = panel->findChild<QPushButton*>(u"applyButton"_s);
    QVERIFY(line->isVisible() && apply->isVisible() && words->hasFocus());
    QCOMPARE(line->text(), u"echo"_s);
    QTest::keyClicks(words, u"from the panel"_s);
    QCOMPARE(line->text(), u"echo from the panel"_s);
    QTest::mouseClick(apply, Qt::LeftButton);
    QCOMPARE(text(), u"Fennar>echo from the panel\nfrom the panel\nFennar>half"_s);
    QCOMPARE(workbench().console()->history().entries().last(), u"echo from the panel"_s);
}

void TstWorkbench::apply_in_python_mode_runs_the_command_through_python()
{
    python_mode(true);
    // A block that waits for its next line must not swallow the command.
    type(u"for i in range(3):"_s);
    choose_entry(u"Change"_s);
    choose_entry(u"Console"_s);
    choose_entry(u"Echo Text"_s);
    const TaskPanel* panel = Ostrel::instance()->command_buttons();
    auto* words = panel->findChild<QLineEdit*>(u"valueWORD"_s);
    words->setText(uR"('it''s' a "\\")"_s);
    QTest::keyClick(words, Qt::Key_Return);
    QVERIFY2(text().endsWith(uR"(>>>fennar.cmd('echo \'it\'\'s\' a "\\\\"'))"_s + uR"(
Fennar>echo 'it''s' a "\\")"_s +
                             u"\nits a \\\n>>>"_s),
             qPrintable(text()));
}

void TstWorkbench::cancel_button_is_enabled_while_a_line_runs()
{
    QVERIFY(!cancel()->isEnabled());
    QList<bool> seen;
    CommandRegistry& registry = Fennar::instance().registry();
    registry.add(
        plain_command(u"look"_s, u"test"_s, [&seen](CommandCall&) { seen << cancel()->isEnabled(); }));
    type(u"look"_s);
    QVERIFY(!cancel()->isEnabled());
    python_mode(true);
    type(u"fennar.cmd('look')"_s);
    registry.remove_owner(u"test"_s);
    QCOMPARE(seen, QList<bool>({true, true}));
    QVERIFY(!cancel()->isEnabled());
}

void TstWorkbench::cancel_interrupts_python()
{
    python_mode(true);
    cancel_soon();
    type(u"exec('while True: pass')"_s);
    QVERIFY2(text().endsWith(u"KeyboardInterrupt\n>>>"_s), qPrintable(text()));
    // The request was for that line only.
    type(u"exec('for i in range(10 ** 7): pass'); 'done'"_s);
    QVERIFY2(text().endsWith(u"\n'done'\n>>>"_s), qPrintable(text()));
}

void TstWorkbench::cancel_lets_python_clean_up()
{
    CommandRegistry& registry = Fennar::instance().registry();
    registry.add(plain_command(u"arm"_s, u"test"_s, [this](CommandCall&) { cancel_soon(); }));
    python_mode(true);
    // The loop behind the interrupt lasts for several turns.
    type(u"exec('try:\\n fennar.cmd(\"arm\")\\n while True: pass\\nexcept KeyboardInterrupt:\\n"
         " for i in range(10 ** 7): pass\\n print(\"clean\")')"_s);
    registry.remove_owner(u"test"_s);
    QVERIFY2(text().endsWith(u"\nclean\n>>>"_s), qPrintable(text()));
}

void TstWorkbench::each_click_on_cancel_interrupts_python()
{
    QTimer clicks;
    int count = 0;
    connect(&clicks, &QTimer::timeout, this, [&] {
        ++count;
        QTest::mouseClick(cancel(), Qt::LeftButton);
    });
    CommandRegistry& registry = Fennar::instance().registry();
    registry.add(plain_command(u"arm"_s, u"test"_s, [&](CommandCall&) { clicks.start(0); }));
    python_mode(true);
    type(u"exec('try:\\n fennar.cmd(\"arm\")\\n while True: pass\\nexcept KeyboardInterrupt:\\n"
         " while True: pass')"_s);
    clicks.stop();
    registry.remove_owner(u"test"_s);
    QVERIFY2(text().endsWith(u"KeyboardInterrupt\n>>>"_s), qPrintable(text()));
    QCOMPARE(count, 2);
}

void TstWorkbench::cancelled_command_interrupts_the_python_that_called_it()
{
    CommandRegistry& registry = Fennar::instance().registry();
    int calls = 0;
    registry.add(plain_command(u"work"_s, u"test"_s, [&calls](CommandCall& call) {
        ++calls;
        QTRY_VERIFY_WITH_TIMEOUT(call.interrupted(), 20000);
        throw call.error(0, u"interrupted"_s);
    }));
    python_mode(true);
    cancel_soon();
    type(u"exec('while True:\\n try: fennar.cmd(\"work\")\\n except fennar.CommandError: pass')"_s);
    registry.remove_owner(u"test"_s);
    QVERIFY2(text().endsWith(u"KeyboardInterrupt\n>>>"_s), qPrintable(text()));
    QCOMPARE(calls, 1);
}

void TstWorkbench::cancel_ends_a_journal()
{
    // Armed within the loop's own command: on a slow machine the first turn comes ahead of one of the lines.
    CommandRegistry& registry = Fennar::instance().registry();
    registry.add(plain_command(u"arm"_s, u"test"_s, [this](CommandCall&) { cancel_soon(); }));
    const QString path =
        write_temp(u"long.jou"_s,
                   "echo one\npython 'exec(\"fennar.cmd(\\\"arm\\\")\\nwhile True: pass\")'\necho never\n");
    type(u"play \"%1\""_s.arg(path));
    registry.remove_owner(u"test"_s);
    QVERIFY2(text().contains(u"KeyboardInterrupt"_s), qPrintable(text()));
    QVERIFY2(text().endsWith(u"Interrupted: %1:2\n  play on with: play %1 2\nFennar>"_s.arg(path)),
             qPrintable(text()));
    QVERIFY(!text().contains(u"\nnever"_s));
}

void TstWorkbench::cancel_ends_a_paused_journal()
{
    const QString path = write_temp(u"paused.jou"_s, "echo never\n");
    FennarInterface::pause_playback();
    cancel_soon();
    type(u"play \"%1\""_s.arg(path));
    QVERIFY2(text().endsWith(u"Interrupted: %1:1\n  play on with: play %1 1\nFennar>"_s.arg(path)),
             qPrintable(text()));
    QVERIFY(!text().contains(u"never"_s));
    QVERIFY(!FennarInterface::is_playback_paused());
}

void TstWorkbench::keys_pause_while_the_toolbar_is_hidden()
{
    Ostrel* const window = Ostrel::instance();
    auto* const toolbar = window->findChild<QToolBar*>(u"FileTools"_s);
    const QAction* const pause = window->tools_menu()->pause_action();
    for (const bool shown : {false, true}) {
        toolbar->setVisible(shown);
        QTest::keyClick(window, Qt::Key_I, Qt::ControlModifier);
        QVERIFY(pause->isChecked());
        QTest::keyClick(window, Qt::Key_I, Qt::ControlModifier);
        QVERIFY(!pause->isChecked());
    }
}

void TstWorkbench::closing_the_window_ends_what_runs_data()
{
    QTest::addColumn<bool>("python");
    QTest::addColumn<QString>("lines");
    // The window is closed from within the loop, so that this comes neither earlier nor later.
    const QByteArray loop = "exec(\"fennar.cmd('arm')\\nwhile True: pass\")\n";
    QTest::newRow("Python loop") << true << QString::fromUtf8(loop) + u"print('ne' + 'ver')\n"_s;
    QTest::newRow("journal") << false << u"play \"%1\"\necho never\n"_s;
}

void TstWorkbench::closing_the_window_ends_what_runs()
{
    QFETCH(const bool, python);
    QFETCH(QString, lines);
    if (!python) {
        lines = lines.arg(write_temp(
            u"endless.jou"_s, "python 'exec(\"fennar.cmd(\\\"arm\\\")\\nwhile True: pass\")'\necho never\n"));
    }
    CommandRegistry& registry = Fennar::instance().registry();
    registry.add(plain_command(u"arm"_s, u"test"_s, [](CommandCall&) {
        QTimer::singleShot(0, Ostrel::instance(), &QWidget::close);
    }));
    python_mode(python);
    QTimer::singleShot(0, page(), [&] { paste(lines); });
    workbench().run();
    registry.remove_owner(u"test"_s);
    const bool closed = !Ostrel::instance()->isVisible();
    QVERIFY(show_active(Ostrel::instance()));
    QVERIFY(closed);
    QVERIFY2(text().contains(u"KeyboardInterrupt"_s), qPrintable(text()));
    QVERIFY2(!text().contains(u"\nnever"_s), qPrintable(text()));
}

void TstWorkbench::quit_in_a_journal_ends_the_lines_behind_it()
{
    const QString path = write_temp(u"quit.jou"_s, "echo two\nquit\necho never\n");
    QTimer::singleShot(0, page(), [&] { paste(u"echo one\nplay \"%1\"\necho never\n"_s.arg(path)); });
    workbench().run();
    QVERIFY(!Ostrel::instance()->isVisible());
    QVERIFY2(text().contains(u"\none\n"_s) && text().contains(u"\ntwo\n"_s), qPrintable(text()));
    QVERIFY(!text().contains(u"never"_s));
    QVERIFY(show_active(Ostrel::instance()));
}

void TstWorkbench::quit_closes_the_window_and_ends_the_loop()
{
    QTimer::singleShot(0, page(), [this] { type(u"quit"_s); });
    workbench().run();
    QVERIFY(!Ostrel::instance()->isVisible());
}

void TstWorkbench::flood_of_lines_arrives_in_order_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("command") << u"flood"_s;
    QTest::newRow("Python, both streams")
        << u"python 'import sys; exec(\"for i in range(100000):\\n print(\\\"line\\\", i, "
           "file=sys.stdout if i % 1000 else sys.stderr)\")'"_s;
    QTest::newRow("journal") << u"play flood.jou"_s;
}

void TstWorkbench::flood_of_lines_arrives_in_order()
{
    QFETCH(const QString, line);
    const bool journal = line.startsWith(u"play"_s);
    const int count = journal ? 20'000 : 100'000;
    CommandRegistry& registry = Fennar::instance().registry();
    registry.add(plain_command(u"flood"_s, u"test"_s, [count](CommandCall& call) {
        for (int i = 0; i < count; ++i)
            call.print(u"line %1\n"_s.arg(i));
    }));
    QByteArray lines;
    QString expected;
    for (int i = 0; i < count; ++i) {
        const QString text = u"line %1\n"_s.arg(i);
        if (journal) {
            lines += "echo " + text.toUtf8();
            expected += u"Fennar>echo "_s + text;
        }
        expected += text;
    }
    const QString before = QDir::currentPath();
    write_temp(u"flood.jou"_s, lines);
    QVERIFY(QDir::setCurrent(temp_directory()));
    QString printed;
    qsizetype texts = 0;
    const auto listening = connect(Ostrel::instance()->command_line(), &CommandWindow::dataToPrint, this,
                                   [&](const QString& data) {
                                       printed += data;
                                       ++texts;
                                   });
    type(line);
    disconnect(listening);
    registry.remove_owner(u"test"_s);
    QVERIFY(QDir::setCurrent(before));
    // Not compared as texts: a failure would print megabytes.
    QVERIFY(printed == expected);
    QVERIFY2(texts < count / 4, qPrintable(QString::number(texts)));
    // The prompt stands below all of it.
    QVERIFY2(text().endsWith(u"\nline %1\nFennar>"_s.arg(count - 1)), qPrintable(text().right(200)));
}

void TstWorkbench::cancel_stops_a_flood_of_lines_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("command") << u"flood"_s;
    QTest::newRow("Python")
        << u"python 'exec(\"import itertools\\nfor i in itertools.count(): print(i)\")'"_s;
    QTest::newRow("journal") << u"play flood.jou"_s;
}

void TstWorkbench::cancel_stops_a_flood_of_lines()
{
    QFETCH(const QString, line);
    CommandRegistry& registry = Fennar::instance().registry();
    registry.add(plain_command(u"flood"_s, u"test"_s, [](CommandCall& call) {
        while (!call.interrupted())
            call.print(u"line\n"_s);
        throw call.error(0, u"interrupted"_s);
    }));
    const QString before = QDir::currentPath();
    constexpr qsizetype lines = 3'000'000;
    write_temp(u"flood.jou"_s, QByteArray("echo line\n").repeated(lines));
    QVERIFY(QDir::setCurrent(temp_directory()));
    // Pressed in the middle of the flood, when texts are gathered. Commands and Python would go on forever.
    qsizetype size = 0;
    bool pressed = false;
    const auto listening = connect(Ostrel::instance()->command_line(), &CommandWindow::dataToPrint, this,
                                   [&](const QString& data) {
                                       size += data.size();
                                       if (size < 100'000 || pressed)
                                           return;
                                       pressed = true;
                                       cancel_soon();
                                   });
    type(line);
    disconnect(listening);
    registry.remove_owner(u"test"_s);
    QVERIFY(QDir::setCurrent(before));
    QVERIFY(pressed);
    // Far from all that the journal would print.
    QVERIFY(size < 5 * lines);
    QVERIFY2(text().endsWith(u"\nFennar>"_s), qPrintable(text().right(200)));
    QVERIFY2(text().contains(u"interrupted"_s, Qt::CaseInsensitive) ||
                 text().contains(u"KeyboardInterrupt"_s),
             qPrintable(text().right(500)));
}

void TstWorkbench::journal_is_not_played_if_the_model_fails()
{
    const QString journal = write_temp(u"after.jou"_s, "echo was played\n");
    const QString model = temp_path(u"missing.model"_s);
    workbench().start_later(model, journal);
    QTRY_VERIFY2(text().contains(u"is not played"_s), qPrintable(text()));
    QVERIFY2(text().contains(u"Fennar>open "_s + model), qPrintable(text()));
    QVERIFY2(
        text().contains(u"ERROR: \"%1\" is not played, since the model could not be opened\n"_s.arg(journal)),
        qPrintable(text()));
    QVERIFY(text().endsWith(u"\nFennar>"_s));
    QVERIFY(!text().contains(u"was played"_s));
    // Later lines run as ever.
    type(u"echo still here"_s);
    QVERIFY(text().endsWith(u"\nstill here\nFennar>"_s));
}

void TstWorkbench::journal_is_played_once_the_model_is_open()
{
    CommandRegistry& registry = Fennar::instance().registry();
    QStringList opened;
    registry.add(plain_command(u"open"_s, u"test"_s,
                               [&opened](CommandCall& call) { opened << call.words().value(1).text; }));
    const QString journal = write_temp(u"my after.jou"_s, "echo was played\n");
    workbench().start_later(u"/a model"_s, journal);
    QTRY_VERIFY2(text().endsWith(u"\nwas played\nFennar>"_s), qPrintable(text()));
    registry.remove_owner(u"test"_s);
    QCOMPARE(opened, QStringList(u"/a model"_s));
}

void TstWorkbench::tab_completes_commands_and_files()
{
    write_temp(u"my journal.jou"_s, "echo completed\n");
    QTest::keyClicks(page(), u"pla"_s);
    QTest::keyClick(page(), Qt::Key_Tab);
    QCOMPARE(page()->currentCommand(), u"play "_s);
    QTest::keyClicks(page(), temp_directory() + u"/my"_s);
    QTest::keyClick(page(), Qt::Key_Tab);
    QTest::keyClick(page(), Qt::Key_Return);
    QVERIFY2(text().endsWith(u"\ncompleted\nFennar>"_s), qPrintable(text()));
    // A line that goes on knows what stood ahead.
    type(u"help \\"_s);
    QTest::keyClicks(page(), u"hist"_s);
    QTest::keyClick(page(), Qt::Key_Tab);
    QCOMPARE(page()->currentCommand(), u"history "_s);
    type(QString());
    QVERIFY2(text().contains(u"Usage: history"_s), qPrintable(text()));
}

void TstWorkbench::second_tab_lists_what_could_be_typed()
{
    QTest::keyClicks(page(), u"h"_s);
    QTest::keyClick(page(), Qt::Key_Tab);
    QTest::keyClick(page(), Qt::Key_Tab);
    const QString listed = u"help     hide     history\nFennar>h"_s;
    QVERIFY2(text().endsWith(u'\n' + listed) || text() == listed, qPrintable(text()));
    page()->setCurrentCommand({});
}

void TstWorkbench::tab_completes_python()
{
    python_mode(true);
    type(u"some_wheel = 40"_s);
    QTest::keyClicks(page(), u"print(some_wh"_s);
    QTest::keyClick(page(), Qt::Key_Tab);
    QTest::keyClicks(page(), u" + 2)"_s);
    QTest::keyClick(page(), Qt::Key_Return);
    QVERIFY2(text().endsWith(u"\n42\n>>>"_s), qPrintable(text()));
    type(u"import os"_s);
    QTest::keyClicks(page(), u"os.path.exis"_s);
    QTest::keyClick(page(), Qt::Key_Tab);
    QCOMPARE(page()->currentCommand(), u"os.path.exists"_s);
    page()->setCurrentCommand({});
}

OSTREL_TEST(TstWorkbench)
#include "tst_workbench.moc"
