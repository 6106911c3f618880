// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalEditor.h"
#include "support/TestCase.h"
#include "support/windows.h"
#include "workbench/application/console/ConsoleOwner.h"
#include "workbench/application/console/LineInterpreter.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <stdexcept>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

/** Records the lines that it is given and does with them what the test says. */
class ScriptedInterpreter : public LineInterpreter
{
public:
    Outcome enter(const QString& line) override
    {
        lines << line;
        return reply ? reply(line) : Outcome();
    }
    void reset() override { ++resets; }
    LineCompletion complete(const QString& line, qsizetype caret) override
    {
        LineCompletion result{.start = caret - line.size()};
        for (const QString& word : std::as_const(words))
            result.candidates << LineCompletion::Candidate{word, word};
        return result;
    }

    QStringList lines;
    int resets = 0;
    QStringList words;
    std::function<Outcome(const QString&)> reply;
};

void paste(CommandWidget* page, const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    page->paste();
}

} // namespace

class TstConsoleOwner : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void command_page_comes_first_and_is_current();
    void page_keeps_its_font_until_another_is_chosen();
    void typed_line_reaches_the_interpreter_and_its_reply_stands_above_the_next_prompt();
    void incomplete_command_is_answered_with_an_indented_continuation_prompt();
    void pasted_lines_run_in_order();
    void trailing_empty_element_is_ignored_but_a_middle_one_runs();
    void carriage_returns_before_pasted_line_ends_are_dropped();
    void pasted_lines_go_where_the_caret_is();
    void pasted_lines_replace_the_indentation_of_the_prompt();
    void line_that_comes_while_another_runs_waits_for_its_end();
    void lines_that_wait_can_be_given_up();
    void run_line_keeps_what_is_half_typed();
    void run_line_gives_up_a_command_that_is_not_complete();
    void prompt_behind_lines_of_somebody_else_is_in_sight();
    void owner_tells_when_a_line_runs();
    void error_page_has_the_font_of_the_command_page();
    void up_and_down_walk_the_history();
    void command_is_in_the_history_file_before_it_runs();
    void mode_change_tells_the_host_and_changes_the_prompt();
    void click_on_a_mode_button_leaves_the_keyboard_with_the_page();
    void mode_change_drops_the_pending_lines_of_the_old_mode();
    void line_goes_to_the_interpreter_of_the_mode();
    void clearing_drops_pending_lines();
    void error_stands_on_its_page_below_its_line_and_warns();
    void error_page_in_sight_gets_no_warning();
    void exception_is_told_and_the_prompt_comes_back();
    void unwritable_history_is_told_once();
    void pages_leave_the_console_with_their_owner();
    void work_runs_as_a_line_does();
    void work_waits_and_can_be_given_up();
    void work_behind_a_command_that_is_not_complete_gives_it_up();
    void work_that_throws_is_an_error_below_its_title();
    void pages_are_offered_for_import_until_they_go();
    void caller_is_told_how_its_line_went();
    void history_is_searched_with_control_r();
    void line_of_somebody_else_gives_a_search_up();
    void clearing_and_a_change_of_mode_end_a_search();
    void tab_asks_the_interpreter_of_the_mode();

private:
    void type(const QString& text) { QTest::keyClicks(page(), text); }
    void enter(const QString& text)
    {
        type(text);
        QTest::keyClick(page(), Qt::Key_Return);
    }
    CommandWidget* page() const { return mOwner->command_page(); }
    QString text() const { return page()->toPlainText(); }
    QTabWidget* tabs() const { return mWindow->findChild<QTabWidget*>(u"mCommandTab"_s); }
    int error_tab() const { return tabs()->indexOf(mOwner->error_page()); }
    void make_owner(const QString& history_file);

    std::unique_ptr<CommandWindow> mWindow;
    std::unique_ptr<ConsoleOwner> mOwner;
    ScriptedInterpreter mCommands;
    ScriptedInterpreter mPython;
    QTemporaryDir mDirectory;
};

void TstConsoleOwner::set_up()
{
    HostDouble::instance().reset();
    mCommands = {};
    mPython = {};
    mWindow = std::make_unique<CommandWindow>();
    make_owner({});
}

void TstConsoleOwner::make_owner(const QString& history_file)
{
    mOwner.reset();
    mOwner = std::make_unique<ConsoleOwner>(mWindow.get(), history_file);
    mOwner->set_interpreters(&mCommands, &mPython);
    mOwner->set_mode_handler([](bool python) { HostDouble::instance().python_mode = python; });
    mOwner->prompt();
}

void TstConsoleOwner::tear_down()
{
    mOwner.reset();
    mWindow.reset();
}

void TstConsoleOwner::command_page_comes_first_and_is_current()
{
    QCOMPARE(tabs()->count(), 2);
    QCOMPARE(tabs()->widget(0), page());
    QCOMPARE(tabs()->currentWidget(), page());
    QCOMPARE(text(), u"Fennar>"_s);
}

void TstConsoleOwner::page_keeps_its_font_until_another_is_chosen()
{
    QCOMPARE(page()->font().family(), CommandWidget().font().family());
    QCOMPARE(mWindow->get_font(), page()->font());
    QCOMPARE(mOwner->error_page()->font(), page()->font());
    QFont chosen(u"DejaVu Serif"_s, 13);
    mOwner.reset();
    mWindow = std::make_unique<CommandWindow>();
    mWindow->set_font(chosen);
    make_owner({});
    QCOMPARE(page()->font(), chosen);
}

void TstConsoleOwner::typed_line_reaches_the_interpreter_and_its_reply_stands_above_the_next_prompt()
{
    mCommands.reply = [this](const QString&) {
        mWindow->print_data(u"reply\n"_s);
        return LineInterpreter::Outcome();
    };
    enter(u"echo 1"_s);
    QCOMPARE(mCommands.lines, QStringList{u"echo 1"_s});
    QCOMPARE(text(), u"Fennar>echo 1\nreply\nFennar>"_s);
}

void TstConsoleOwner::incomplete_command_is_answered_with_an_indented_continuation_prompt()
{
    mCommands.reply = [](const QString&) { return LineInterpreter::Outcome{true, u"    "_s}; };
    enter(u"echo \\"_s);
    QCOMPARE(text(), u"Fennar>echo \\\nFennar>    "_s);
    mCommands.reply = nullptr;
    enter(u"2"_s);
    QCOMPARE(mCommands.lines, QStringList({u"echo \\"_s, u"    2"_s}));
    QVERIFY(text().endsWith(u"\nFennar>"_s));
}

void TstConsoleOwner::pasted_lines_run_in_order()
{
    mCommands.reply = [this](const QString& line) {
        mWindow->print_data(line + u"!\n"_s);
        return LineInterpreter::Outcome();
    };
    paste(page(), u"a\nb"_s);
    QCOMPARE(mCommands.lines, QStringList({u"a"_s, u"b"_s}));
    QCOMPARE(text(), u"Fennar>a\na!\nFennar>b\nb!\nFennar>"_s);
}

void TstConsoleOwner::trailing_empty_element_is_ignored_but_a_middle_one_runs()
{
    paste(page(), u"a\n\nb\n"_s);
    QCOMPARE(mCommands.lines, QStringList({u"a"_s, QString(), u"b"_s}));
}

void TstConsoleOwner::carriage_returns_before_pasted_line_ends_are_dropped()
{
    paste(page(), u"a\r\nb\r\n"_s);
    QCOMPARE(mCommands.lines, QStringList({u"a"_s, u"b"_s}));
}

void TstConsoleOwner::pasted_lines_go_where_the_caret_is()
{
    type(u"echo end"_s);
    for (int i = 0; i < 3; ++i)
        QTest::keyClick(page(), Qt::Key_Left);
    paste(page(), u"1 \n2"_s);
    QCOMPARE(mCommands.lines, QStringList({u"echo 1 end"_s, u"2"_s}));
}

void TstConsoleOwner::pasted_lines_replace_the_indentation_of_the_prompt()
{
    mCommands.reply = [](const QString&) { return LineInterpreter::Outcome{true, u"    "_s}; };
    enter(u"begin"_s);
    QCOMPARE(page()->currentCommand(), u"    "_s);
    paste(page(), u"    one\n    two"_s);
    QCOMPARE(mCommands.lines, QStringList({u"begin"_s, u"    one"_s, u"    two"_s}));
}

void TstConsoleOwner::line_that_comes_while_another_runs_waits_for_its_end()
{
    QStringList log;
    mCommands.reply = [&](const QString& line) {
        log << u"begin "_s + line;
        if (line == u"outer"_s)
            mOwner->run_line(u"inner"_s);
        log << u"end "_s + line;
        return LineInterpreter::Outcome();
    };
    enter(u"outer"_s);
    QCOMPARE(log, QStringList({u"begin outer"_s, u"end outer"_s, u"begin inner"_s, u"end inner"_s}));
    QCOMPARE(text(), u"Fennar>outer\nFennar>inner\nFennar>"_s);
}

void TstConsoleOwner::lines_that_wait_can_be_given_up()
{
    mCommands.reply = [&](const QString&) {
        mOwner->forget_waiting();
        return LineInterpreter::Outcome();
    };
    paste(page(), u"a\nb\nc"_s);
    QCOMPARE(mCommands.lines, QStringList{u"a"_s});
}

void TstConsoleOwner::run_line_keeps_what_is_half_typed()
{
    type(u"half"_s);
    mOwner->run_line(u"echo 1"_s);
    QCOMPARE(text(), u"Fennar>echo 1\nFennar>half"_s);
}

void TstConsoleOwner::run_line_gives_up_a_command_that_is_not_complete()
{
    mCommands.reply = [](const QString&) { return LineInterpreter::Outcome{true, u"    "_s}; };
    enter(u"a \\"_s);
    mCommands.reply = nullptr;
    mOwner->run_line(u"echo 1"_s);
    QCOMPARE(mCommands.resets, 1);
    QCOMPARE(text(), u"Fennar>a \\\nFennar>echo 1\nFennar>"_s);
}

void TstConsoleOwner::prompt_behind_lines_of_somebody_else_is_in_sight()
{
    QVERIFY(show_active(mWindow.get()));
    const QScrollBar* bar = page()->verticalScrollBar();
    for (int i = 0; bar->maximum() < 3; ++i) {
        QVERIFY(i < 1000);
        mOwner->run_line(u"silent"_s);
    }
    QCOMPARE(bar->value(), bar->maximum());
    QVERIFY(page()->viewport()->rect().contains(page()->cursorRect()));
    QVERIFY(page()->textCursor().atEnd());
}

void TstConsoleOwner::owner_tells_when_a_line_runs()
{
    QStringList log;
    mOwner->set_busy_handler([&](bool busy) { log << (busy ? u"busy"_s : u"idle"_s); });
    mCommands.reply = [&](const QString& line) -> LineInterpreter::Outcome {
        log << line;
        if (line == u"b"_s)
            throw std::runtime_error("broken");
        return {};
    };
    paste(page(), u"a\nb\n"_s);
    QCOMPARE(log, QStringList({u"busy"_s, u"a"_s, u"idle"_s, u"busy"_s, u"b"_s, u"idle"_s}));
}

void TstConsoleOwner::error_page_has_the_font_of_the_command_page()
{
    QCOMPARE(mOwner->error_page()->font(), page()->font());
}

void TstConsoleOwner::up_and_down_walk_the_history()
{
    enter(u"one"_s);
    enter(u"two"_s);
    type(u"half"_s);
    QTest::keyClick(page(), Qt::Key_Up);
    QCOMPARE(page()->currentCommand(), u"two"_s);
    QTest::keyClick(page(), Qt::Key_Up);
    QCOMPARE(page()->currentCommand(), u"one"_s);
    QTest::keyClick(page(), Qt::Key_Down);
    QTest::keyClick(page(), Qt::Key_Down);
    QCOMPARE(page()->currentCommand(), u"half"_s);
    QTest::keyClick(page(), Qt::Key_Up);
    QTest::keyClick(page(), Qt::Key_Return);
    QCOMPARE(mOwner->history().entries(), QStringList({u"one"_s, u"two"_s}));
    QTest::keyClick(page(), Qt::Key_Up);
    QCOMPARE(page()->currentCommand(), u"two"_s);
}

void TstConsoleOwner::command_is_in_the_history_file_before_it_runs()
{
    const QString file = mDirectory.filePath(u"history"_s);
    make_owner(file);
    QByteArray seen;
    mCommands.reply = [&](const QString&) {
        QFile written(file);
        if (written.open(QIODevice::ReadOnly))
            seen = written.readAll();
        return LineInterpreter::Outcome();
    };
    enter(u"crash"_s);
    QCOMPARE(seen, "crash\n");
}

void TstConsoleOwner::mode_change_tells_the_host_and_changes_the_prompt()
{
    type(u"half"_s);
    emit mWindow->commandModeChanged(true);
    QVERIFY(HostDouble::instance().python_mode);
    QVERIFY(mOwner->python_mode());
    QCOMPARE(text(), u">>>"_s);
    emit mWindow->commandModeChanged(false);
    QVERIFY(!HostDouble::instance().python_mode);
    QCOMPARE(text(), u"Fennar>"_s);
}

void TstConsoleOwner::click_on_a_mode_button_leaves_the_keyboard_with_the_page()
{
    QVERIFY(show_active(mWindow.get()));
    for (QPushButton* button : mWindow->findChildren<QPushButton*>()) {
        if (!button->isChecked())
            QTest::mouseClick(button, Qt::LeftButton);
    }
    QVERIFY(mOwner->python_mode());
    QVERIFY(page()->hasFocus());
}

void TstConsoleOwner::mode_change_drops_the_pending_lines_of_the_old_mode()
{
    mCommands.reply = [](const QString&) { return LineInterpreter::Outcome{true, {}}; };
    enter(u"a \\"_s);
    emit mWindow->commandModeChanged(true);
    QCOMPARE(mCommands.resets, 1);
    QCOMPARE(mPython.resets, 0);
}

void TstConsoleOwner::line_goes_to_the_interpreter_of_the_mode()
{
    emit mWindow->commandModeChanged(true);
    enter(u"1 + 1"_s);
    QCOMPARE(mPython.lines, QStringList{u"1 + 1"_s});
    emit mWindow->commandModeChanged(false);
    enter(u"echo"_s);
    QCOMPARE(mCommands.lines, QStringList{u"echo"_s});
    QCOMPARE(mPython.lines.size(), 1);
}

void TstConsoleOwner::clearing_drops_pending_lines()
{
    mCommands.reply = [](const QString&) { return LineInterpreter::Outcome{true, {}}; };
    enter(u"a \\"_s);
    page()->clearToPrompt();
    QCOMPARE(mCommands.resets, 1);
    QCOMPARE(text(), u"Fennar>"_s);
}

void TstConsoleOwner::error_stands_on_its_page_below_its_line_and_warns()
{
    mCommands.reply = [this](const QString&) {
        mOwner->report_error(u"ERROR: first\n"_s);
        mOwner->report_error(u"more\n"_s);
        return LineInterpreter::Outcome();
    };
    QVERIFY(show_active(mWindow.get()));
    QVERIFY(tabs()->tabIcon(error_tab()).isNull());
    enter(u"bad"_s);
    QCOMPARE(mOwner->error_page()->toPlainText(), u"Fennar>bad\nERROR: first\nmore\n"_s);
    QVERIFY(!tabs()->tabIcon(error_tab()).isNull());
    tabs()->setCurrentIndex(error_tab());
    QVERIFY(tabs()->tabIcon(error_tab()).isNull());
}

void TstConsoleOwner::error_page_in_sight_gets_no_warning()
{
    QVERIFY(show_active(mWindow.get()));
    tabs()->setCurrentIndex(error_tab());
    mOwner->report_error(u"ERROR: seen\n"_s);
    QVERIFY(tabs()->tabIcon(error_tab()).isNull());
}

void TstConsoleOwner::exception_is_told_and_the_prompt_comes_back()
{
    mCommands.reply = [](const QString&) -> LineInterpreter::Outcome { throw std::runtime_error("broken"); };
    enter(u"bad"_s);
    QCOMPARE(text(), u"Fennar>bad\nERROR: broken\nFennar>"_s);
    QCOMPARE(mOwner->error_page()->toPlainText(), u"Fennar>bad\nERROR: broken\n"_s);
    mCommands.reply = nullptr;
    enter(u"good"_s);
    QCOMPARE(mCommands.lines, QStringList({u"bad"_s, u"good"_s}));
}

void TstConsoleOwner::unwritable_history_is_told_once()
{
    make_owner(mDirectory.path());
    enter(u"a"_s);
    enter(u"b"_s);
    QCOMPARE(mOwner->error_page()->toPlainText().count(u"history"_s), 1);
    QCOMPARE(mOwner->history().entries(), QStringList({u"a"_s, u"b"_s}));
}

void TstConsoleOwner::pages_leave_the_console_with_their_owner()
{
    mOwner.reset();
    QCOMPARE(tabs()->count(), 0);
    mWindow->append_command(u"nothing"_s);
    mWindow->print_data(u"nobody\n"_s);
}

void TstConsoleOwner::work_runs_as_a_line_does()
{
    QList<bool> busy;
    mOwner->set_busy_handler([&busy](bool now) { busy << now; });
    type(u"half"_s);
    bool running = false;
    mOwner->run_work(u"Work"_s, [&] {
        running = mOwner->is_running();
        mWindow->print_command(u"one"_s);
        mWindow->print_data(u"output\n"_s);
    });
    QVERIFY(running);
    QVERIFY(!mOwner->is_running());
    QCOMPARE(busy, QList<bool>({true, false}));
    QCOMPARE(text(), u"Fennar>one\noutput\nFennar>half"_s);
    QCOMPARE(mCommands.lines, QStringList());
    QCOMPARE(mOwner->history().entries(), QStringList());
}

void TstConsoleOwner::work_waits_and_can_be_given_up()
{
    QStringList order;
    mCommands.reply = [&](const QString& line) {
        mOwner->run_work(u"Work"_s, [&order] { order << u"work"_s; });
        mOwner->run_line(u"next"_s);
        if (line == u"drop"_s)
            mOwner->forget_waiting();
        mCommands.reply = nullptr;
        order << line;
        return LineInterpreter::Outcome();
    };
    enter(u"drop"_s);
    QCOMPARE(order, QStringList(u"drop"_s));
    mCommands.lines.clear();
    mCommands.reply = [&](const QString& line) {
        mOwner->run_work(u"Work"_s, [&] { order << u"work before %1"_s.arg(mCommands.lines.size()); });
        mOwner->run_line(u"next"_s);
        mCommands.reply = nullptr;
        order << line;
        return LineInterpreter::Outcome();
    };
    enter(u"go"_s);
    QCOMPARE(order, QStringList({u"drop"_s, u"go"_s, u"work before 1"_s}));
    QCOMPARE(mCommands.lines, QStringList({u"go"_s, u"next"_s}));
}

void TstConsoleOwner::work_behind_a_command_that_is_not_complete_gives_it_up()
{
    mCommands.reply = [](const QString&) { return LineInterpreter::Outcome{true, {}}; };
    enter(u"begin \\"_s);
    const int resets = mCommands.resets;
    mOwner->run_work(u"Work"_s, [this] { mWindow->print_command(u"one"_s); });
    QCOMPARE(mCommands.resets, resets + 1);
    QVERIFY2(text().endsWith(u"\nFennar>one\nFennar>"_s), qPrintable(text()));
}

void TstConsoleOwner::work_that_throws_is_an_error_below_its_title()
{
    mOwner->run_work(u"Work"_s, [] { throw std::runtime_error("out of luck"); });
    QCOMPARE(mOwner->error_page()->toPlainText(), u"Work\nERROR: out of luck\n"_s);
    QVERIFY(!mOwner->is_running());
}

void TstConsoleOwner::pages_are_offered_for_import_until_they_go()
{
    JournalEditor editor;
    const auto* menu = editor.findChild<QMenu*>(u"fileImportMenu"_s);
    QAction other;
    editor.add_action_to_import_menu(&other);
    mOwner->offer_pages(&editor);
    QStringList items;
    for (const QAction* action : menu->actions())
        items << action->text();
    QCOMPARE(items, QStringList({QString(), u"&Commands of the Console"_s, u"&Errors of the Console"_s}));
    mOwner.reset();
    QCOMPARE(menu->actions(), QList<QAction*>{&other});
    // The editor may go first.
    make_owner({});
    auto gone = std::make_unique<JournalEditor>();
    mOwner->offer_pages(gone.get());
    gone.reset();
    mOwner.reset();
    QCOMPARE(tabs()->count(), 0);
}

void TstConsoleOwner::caller_is_told_how_its_line_went()
{
    QStringList told;
    const auto then = [&](bool done) {
        told << (done ? u"done"_s : u"failed"_s) + u' ' + text().section(u'\n', -1);
    };
    mCommands.reply = [](const QString& line) -> LineInterpreter::Outcome {
        if (line == u"throw"_s)
            throw std::runtime_error("broken");
        return {line == u"more"_s, {}, line == u"bad"_s};
    };
    mOwner->run_line(u"good"_s, then);
    mOwner->run_line(u"bad"_s, then);
    mOwner->run_line(u"throw"_s, then);
    mOwner->run_line(u"more"_s, then);
    QCOMPARE(told,
             QStringList({u"done Fennar>"_s, u"failed Fennar>"_s, u"failed Fennar>"_s, u"failed Fennar>"_s}));
    // What it is told of may run the next one.
    mOwner->run_line(u"first"_s, [this](bool) { mOwner->run_line(u"second"_s); });
    QCOMPARE(mCommands.lines.mid(4), QStringList({u"first"_s, u"second"_s}));
    // A line that is given up tells nothing.
    mCommands.reply = [&](const QString&) {
        mOwner->run_line(u"never"_s, then);
        mOwner->forget_waiting();
        return LineInterpreter::Outcome();
    };
    mOwner->run_line(u"outer"_s);
    QCOMPARE(told.size(), 4);
}

void TstConsoleOwner::history_is_searched_with_control_r()
{
    enter(u"brick 10"_s);
    enter(u"echo one"_s);
    type(u"half"_s);
    QTest::keyClick(page(), Qt::Key_R, Qt::ControlModifier);
    type(u"bri"_s);
    QCOMPARE(page()->currentCommand(), u"brick 10"_s);
    QTest::keyClick(page(), Qt::Key_Return);
    QCOMPARE(mCommands.lines, QStringList({u"brick 10"_s, u"echo one"_s}));
    QTest::keyClick(page(), Qt::Key_Return);
    QCOMPARE(mCommands.lines.last(), u"brick 10"_s);
    QCOMPARE(text(), u"Fennar>brick 10\nFennar>echo one\nFennar>brick 10\nFennar>"_s);
}

void TstConsoleOwner::line_of_somebody_else_gives_a_search_up()
{
    enter(u"brick 10"_s);
    type(u"half"_s);
    QTest::keyClick(page(), Qt::Key_R, Qt::ControlModifier);
    type(u"bri"_s);
    mOwner->run_line(u"echo 1"_s);
    QCOMPARE(text(), u"Fennar>brick 10\nFennar>echo 1\nFennar>half"_s);
    type(u"!"_s);
    QCOMPARE(page()->currentCommand(), u"half!"_s);
}

void TstConsoleOwner::clearing_and_a_change_of_mode_end_a_search()
{
    enter(u"brick 10"_s);
    for (const bool clear : {true, false}) {
        QTest::keyClick(page(), Qt::Key_R, Qt::ControlModifier);
        type(u"bri"_s);
        if (clear)
            page()->clearToPrompt();
        else
            emit mWindow->commandModeChanged(true);
        type(u"x"_s);
        QCOMPARE(text(), clear ? u"Fennar>x"_s : u">>>x"_s);
    }
}

void TstConsoleOwner::tab_asks_the_interpreter_of_the_mode()
{
    mCommands.words = {u"brick"_s};
    mPython.words = {u"break"_s};
    type(u"b"_s);
    QTest::keyClick(page(), Qt::Key_Tab);
    QCOMPARE(page()->currentCommand(), u"brick"_s);
    emit mWindow->commandModeChanged(true);
    type(u"b"_s);
    QTest::keyClick(page(), Qt::Key_Tab);
    QCOMPARE(page()->currentCommand(), u"break"_s);
    mOwner->set_interpreters(nullptr, nullptr);
    QTest::keyClick(page(), Qt::Key_Tab);
    QCOMPARE(page()->currentCommand(), u"break"_s);
    QCOMPARE(mPython.lines + mCommands.lines, QStringList());
}

OSTREL_TEST(TstConsoleOwner)
#include "tst_consoleowner.moc"
