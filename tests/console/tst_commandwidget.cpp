// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "page.h"
#include "support/TestCase.h"
#include "support/drops.h"
#include "support/menus.h"
#include "support/windows.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QEnterEvent>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QMetaMethod>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const auto cut_row = u"Cu&t"_s;
const auto copy_row = u"&Copy"_s;
const auto paste_row = u"&Paste"_s;
const auto clear_row = u"Clear"_s;
const auto select_all_row = u"Select All"_s;

void ask_for_menu(Page& page, const QPoint& position = QPoint(10, 10))
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, position, page.viewport()->mapToGlobal(position));
    QCoreApplication::sendEvent(page.viewport(), &event);
}

bool choose_from_menu(Page& page, const QString& text)
{
    bool chosen = false;
    const MenuDriver driver([&](QMenu* menu) { chosen = choose(menu, text); });
    ask_for_menu(page);
    return chosen;
}

/** Notes why it got the focus last. */
class FocusPage : public Page
{
public:
    Qt::FocusReason reason = Qt::NoFocusReason;

protected:
    void focusInEvent(QFocusEvent* event) override
    {
        reason = event->reason();
        Page::focusInEvent(event);
    }
};

} // namespace

class TstCommandWidget : public TestCase
{
    Q_OBJECT

private slots:
    // A new page.

    void a_new_page_is_empty_with_its_defaults();
    void the_font_is_a_typewriter_font_of_the_present_size_if_the_wanted_one_is_missing();
    void the_font_is_inconsolata_at_10_points_if_it_is_there();
    void signals_and_slots_are_declared_in_their_order();
    void enter_takes_the_focus_only_if_it_follows_the_cursor();

    // Prompts.

    void printing_a_prompt();
    void a_continuation_prompt_is_printed_on_demand();
    void a_prompt_is_printed_once_until_return();
    void what_was_typed_ahead_becomes_part_of_the_command();
    void indent_data();
    void indent();
    void prompts_can_be_printed_with_fewer_arguments();
    void one_prompt_replaces_the_whole_line_if_one_is_shown();
    void one_prompt_leaves_the_screen_if_none_is_shown();
    void two_prompts_leave_the_screen();
    void clearing_leaves_a_prompt();
    void clearing_prints_the_prompt_also_if_one_was_shown();

    // The command.

    void the_command_starts_behind_the_length_of_the_primary_prompt();
    void cursor_index_counts_from_the_command();
    void setting_the_command_data();
    void setting_the_command();
    void setting_the_command_keeps_a_caret_in_the_output();
    void appending_goes_to_the_end_of_the_last_line();
    void inserting_in_the_command_data();
    void inserting_in_the_command();
    void external_commands_look_as_if_typed();
    void an_external_command_replaces_a_half_typed_one();
    void selections_outside_the_command_data();
    void selections_outside_the_command();
    void new_command_does_what_return_does_behind_the_text();
    void scroll_to_end_shows_the_last_line();

    // Output.

    void output_goes_above_the_command_line_data();
    void output_goes_above_the_command_line();
    void output_keeps_the_half_typed_command_and_the_caret();
    void output_keeps_a_selection_in_the_command();
    void output_moves_on_a_new_line_behind_a_prompt();
    void a_prompt_that_is_shown_already_still_closes_the_output_line();
    void typing_ahead_without_a_prompt_stays_at_the_bottom();
    void an_open_line_goes_on_below_a_command_entered_meanwhile();
    void output_survives_the_loss_of_its_open_line();
    void output_scrolls_to_the_end();
    void hostile_output_is_kept_as_it_is();
    void a_line_of_ten_million_characters();

    // The limit.

    void the_oldest_lines_drop_off();
    void a_limit_of_one_line_keeps_the_command_line();

    // Reading back.

    void commands_data();
    void commands();

    // Paste and drop.

    void pasting_data();
    void pasting();
    void dropping_from_outside_data();
    void dropping_from_outside();

    // The mouse.

    void clicks_reach_everywhere();

    // The context menu.

    void menu_rows_data();
    void menu_rows();
    void the_menu_opens_at_the_pointer_and_is_deleted();
    void each_menu_is_a_new_one();
    void menu_cut_is_not_guarded();
    void menu_copy();
    void menu_paste();
    void menu_clear();
    void menu_select_all();
    void the_page_may_go_while_its_menu_is_open();
};

void TstCommandWidget::a_new_page_is_empty_with_its_defaults()
{
    CommandWidget page;
    QCOMPARE(page.toPlainText(), QString());
    QCOMPARE(page.prompt(), u"$ "_s);
    QCOMPARE(page.focusFollowsCursor(), false);
    QCOMPARE(page.document()->maximumBlockCount(), 1000);
    QCOMPARE(page.wordWrapMode(), QTextOption::NoWrap);
    QCOMPARE(page.isReadOnly(), false);
    page.printPrompt();
    QCOMPARE(page.toPlainText(), u"$ "_s);
    page.clear();
    CommandWidget other;
    other.printPrompt(true);
    QCOMPARE(other.toPlainText(), QString());
}

void TstCommandWidget::the_font_is_a_typewriter_font_of_the_present_size_if_the_wanted_one_is_missing()
{
    if (QFontInfo(QFont(u"Inconsolata"_s)).family() == "Inconsolata"_L1)
        QFAIL("this machine has the font installed");
    QWidget parent;
    QFont present = parent.font();
    present.setPointSize(17);
    parent.setFont(present);
    const CommandWidget page(&parent);
    QCOMPARE(page.font().family(), present.family());
    QCOMPARE(page.font().pointSize(), 17);
    QCOMPARE(page.font().styleHint(), QFont::TypeWriter);
    QCOMPARE(page.font().styleStrategy(), QFont::PreferDefault);
}

void TstCommandWidget::the_font_is_inconsolata_at_10_points_if_it_is_there()
{
    const int id = QFontDatabase::addApplicationFont(u":/ostrelgui/fonts/Inconsolata-Regular.ttf"_s);
    QVERIFY(id >= 0);
    {
        const CommandWidget page;
        QCOMPARE(page.font().family(), u"Inconsolata"_s);
        QCOMPARE(page.font().pointSize(), 10);
        QCOMPARE(page.font().italic(), false);
        QCOMPARE(page.font().weight(), int(QFont::Normal));
    }
    QVERIFY(QFontDatabase::removeApplicationFont(id));
}

void TstCommandWidget::signals_and_slots_are_declared_in_their_order()
{
    QList<QByteArray> names;
    const QMetaObject& meta = CommandWidget::staticMetaObject;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
        names << meta.method(i).name() + '/' + QByteArray::number(meta.method(i).parameterCount());
    QCOMPARE(names, QList<QByteArray>({"commandEntered/1", "commandsEntered/1", "historyUpEvent/0",
                                       "historyDownEvent/0", "resetHistoryIndex/0", "contentsCleared/0",
                                       "printOutput/1", "clearToPrompt/0", "addExternalCommand/1",
                                       "setCurrentCommand/1", "appendToCommand/1", "insertInCommand/1",
                                       "printPrompt/2", "printPrompt/1", "printPrompt/0", "setReadOnly/1"}));
}

void TstCommandWidget::enter_takes_the_focus_only_if_it_follows_the_cursor()
{
    QWidget window;
    QVBoxLayout layout(&window);
    FocusPage page;
    QPushButton other;
    layout.addWidget(&page);
    layout.addWidget(&other);
    QVERIFY(show_active(&window));
    other.setFocus();
    QVERIFY(other.hasFocus());

    QEnterEvent enter(QPointF(1, 1), QPointF(1, 1), page.mapToGlobal(QPointF(1, 1)));
    QCoreApplication::sendEvent(&page, &enter);
    QVERIFY(other.hasFocus());

    page.setFocusFollowsCursor(true);
    QVERIFY(page.focusFollowsCursor());
    QCoreApplication::sendEvent(&page, &enter);
    QVERIFY(page.hasFocus());
    QCOMPARE(page.reason, Qt::OtherFocusReason);

    other.setFocus();
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&page, &leave);
    QVERIFY(other.hasFocus());
}

void TstCommandWidget::printing_a_prompt()
{
    Page page;
    page.printPrompt();
    QCOMPARE(page.state(), u"$ |"_s);
    QVERIFY(page.take_signals().isEmpty());
}

void TstCommandWidget::a_continuation_prompt_is_printed_on_demand()
{
    Page page;
    page.setPrompt(u">>> "_s, u"... "_s);
    page.printPrompt(true);
    QCOMPARE(page.state(), u"... |"_s);
    page.press(Qt::Key_Return);
    page.printPrompt(false);
    QCOMPARE(page.state(), u"... \n>>> |"_s);
}

void TstCommandWidget::a_prompt_is_printed_once_until_return()
{
    Page page;
    page.printPrompt();
    page.printPrompt(true, "  ");
    page.printPrompt();
    QCOMPARE(page.state(), u"$ |"_s);
    page.press(Qt::Key_Return);
    page.printPrompt();
    QCOMPARE(page.state(), u"$ \n$ |"_s);
}

void TstCommandWidget::what_was_typed_ahead_becomes_part_of_the_command()
{
    Page page;
    page.type(u"ahead"_s);
    page.put_caret(2);
    page.printPrompt();
    QCOMPARE(page.state(), u"$ ah|ead"_s);
    QCOMPARE(page.currentCommand(), u"ahead"_s);
}

void TstCommandWidget::indent_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("command");
    QTest::newRow("null") << QByteArray() << QString();
    QTest::newRow("empty") << QByteArray("") << QString();
    QTest::newRow("blanks") << QByteArray("    ") << u"    "_s;
    QTest::newRow("UTF-8") << QByteArray("\xC3\xA9\xE2\x86\x92") << u"\u00E9\u2192"_s;
}

void TstCommandWidget::indent()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, command);
    Page page;
    page.printPrompt(false, bytes.isNull() ? nullptr : bytes.constData());
    QCOMPARE(page.state(), u"$ "_s + command + u'|');
    QCOMPARE(page.currentCommand(), command);
    // It may be edited as the rest of the command.
    page.press(Qt::Key_Backspace);
    QCOMPARE(page.currentCommand(), command.chopped(command.isEmpty() ? 0 : 1));
}

void TstCommandWidget::prompts_can_be_printed_with_fewer_arguments()
{
    Page page;
    page.setPrompt(u"1 "_s, u"2 "_s);
    QVERIFY(QMetaObject::invokeMethod(&page, "printPrompt"));
    QCOMPARE(page.text(), u"1 "_s);
    page.press(Qt::Key_Return);
    QVERIFY(QMetaObject::invokeMethod(&page, "printPrompt", Q_ARG(bool, true)));
    QCOMPARE(page.text(), u"1 \n2 "_s);
    page.press(Qt::Key_Return);
    QVERIFY(QMetaObject::invokeMethod(&page, "printPrompt", Q_ARG(bool, true), Q_ARG(const char*, "in")));
    QCOMPARE(page.text(), u"1 \n2 \n2 in"_s);
}

void TstCommandWidget::one_prompt_replaces_the_whole_line_if_one_is_shown()
{
    Page page;
    page.set_state(u"out\n$ half typed"_s);
    page.setPrompt(u">>> "_s);
    QCOMPARE(page.state(), u"out\n>>> |"_s);
    QCOMPARE(page.prompt(), u">>> "_s);
    QCOMPARE(page.currentCommand(), QString());
    page.press(Qt::Key_Return);
    page.printPrompt(true);
    QCOMPARE(page.text(), u"out\n>>> \n>>> "_s);
    page.setPrompt(QString());
    QCOMPARE(page.text(), u"out\n>>> \n"_s);
    page.setCurrentCommand(u"one\u2028two"_s);
    page.setPrompt(u"$ "_s);
    QCOMPARE(page.text(), u"out\n>>> \n$ "_s);
}

void TstCommandWidget::one_prompt_leaves_the_screen_if_none_is_shown()
{
    Page page;
    page.set_state(u"out\nahead"_s);
    page.setPrompt(u">>> "_s);
    QCOMPARE(page.state(), u"out\nahead|"_s);
    page.printPrompt();
    QCOMPARE(page.state(), u"out\n>>> ahead|"_s);
}

void TstCommandWidget::two_prompts_leave_the_screen()
{
    Page page;
    page.set_state(u"out\n$ half typed"_s);
    page.setPrompt(u">>> "_s, u"... "_s);
    QCOMPARE(page.state(), u"out\n$ half typed|"_s);
    QCOMPARE(page.prompt(), u">>> "_s);
    QCOMPARE(page.currentCommand(), u"lf typed"_s);
}

void TstCommandWidget::clearing_leaves_a_prompt()
{
    Page page;
    page.printOutput(u"open"_s);
    page.appendToCommand(u"ahead"_s);
    QString atSignal;
    connect(&page, &CommandWidget::contentsCleared, &page, [&] { atSignal = page.state(); });
    page.clearToPrompt();
    QCOMPARE(atSignal, u"$ |"_s);
    QCOMPARE(page.state(), u"$ |"_s);
    QCOMPARE(page.take_signals(), QStringList({u"cleared"_s}));
    page.printOutput(u"new\n"_s);
    QCOMPARE(page.state(), u"new\n$ |"_s);
    QCOMPARE(page.document()->maximumBlockCount(), 1000);
}

void TstCommandWidget::clearing_prints_the_prompt_also_if_one_was_shown()
{
    Page page;
    page.setPrompt(u"1 "_s, u"2 "_s);
    page.printPrompt(true, "indent");
    page.clearToPrompt();
    QCOMPARE(page.state(), u"1 |"_s);
    page.printPrompt();
    QCOMPARE(page.state(), u"1 |"_s);
}

void TstCommandWidget::the_command_starts_behind_the_length_of_the_primary_prompt()
{
    Page page;
    page.setPrompt(u"$ "_s, u"....> "_s);
    page.printPrompt(true);
    page.appendToCommand(u"more"_s);
    QCOMPARE(page.currentCommand(), u"..> more"_s);
    page.setCurrentCommand(u"x"_s);
    QCOMPARE(page.text(), u"..x"_s);
}

void TstCommandWidget::cursor_index_counts_from_the_command()
{
    Page page;
    page.set_state(u"out\n$ ls"_s);
    const QList<int> indexes = {-6, -5, -4, -3, -2, -1, 0, 1, 2};
    for (int position = 0; position < indexes.size(); ++position) {
        page.put_selection(3, position);
        QCOMPARE(page.cursorIndex(), indexes[position]);
    }
}

void TstCommandWidget::setting_the_command_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("after");
    QTest::newRow("instead of nothing") << u"$ |"_s << u"new"_s << u"$ new|"_s;
    QTest::newRow("instead of another") << u"$ o|ld"_s << u"new"_s << u"$ new|"_s;
    QTest::newRow("caret in the prompt stays") << u"$| old"_s << u"new"_s << u"$| new"_s;
    QTest::newRow("one newline is dropped") << u"$ old|"_s << u"new\n"_s << u"$ new|"_s;
    QTest::newRow("only one newline is dropped") << u"$ old|"_s << u"new\n\n"_s << u"$ new\n|"_s;
    QTest::newRow("empty") << u"out\n$ old|"_s << QString() << u"out\n$ |"_s;
    QTest::newRow("without a prompt behind its length") << u"ahead|"_s << u"new"_s << u"ahnew|"_s;
    QTest::newRow("without a prompt on an empty line") << u"out\n|"_s << u"new"_s << u"out\nnew|"_s;
}

void TstCommandWidget::setting_the_command()
{
    QFETCH(QString, before);
    QFETCH(QString, command);
    QFETCH(QString, after);
    Page page;
    page.set_state(before);
    page.setCurrentCommand(command);
    QCOMPARE(page.state(), after);
    QVERIFY(page.take_signals().isEmpty());
}

void TstCommandWidget::setting_the_command_keeps_a_caret_in_the_output()
{
    Page page;
    page.set_state(u"o^u|t\n$ old"_s);
    page.setCurrentCommand(u"new"_s);
    QCOMPARE(page.state(), u"o^u|t\n$ new"_s);
}

void TstCommandWidget::appending_goes_to_the_end_of_the_last_line()
{
    Page page;
    page.set_state(u"o|ut\n$ com"_s);
    page.appendToCommand(u"mand"_s);
    QCOMPARE(page.state(), u"o|ut\n$ command"_s);
    page.put_caret(8);
    page.appendToCommand(u"!"_s);
    QCOMPARE(page.state(), u"out\n$ co|mmand!"_s);
    page.put_caret(14);
    page.appendToCommand(u"?"_s);
    QCOMPARE(page.state(), u"out\n$ command!?|"_s);
}

void TstCommandWidget::inserting_in_the_command_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("in the command") << u"out\n$ com|mand"_s << u"out\n$ comNEW|mand"_s;
    QTest::newRow("at its start") << u"out\n$ |command"_s << u"out\n$ NEW|command"_s;
    QTest::newRow("caret in the prompt: at the end") << u"out\n$| command"_s << u"out\n$ commandNEW|"_s;
    QTest::newRow("caret in the output: at the end") << u"o|ut\n$ command"_s << u"out\n$ commandNEW|"_s;
    QTest::newRow("selection in the output: at the end") << u"o^u|t\n$ command"_s << u"out\n$ commandNEW|"_s;
    QTest::newRow("selection in the command: replaced") << u"out\n$ c^omman|d"_s << u"out\n$ cNEW|d"_s;
    QTest::newRow("selection from the output: replaced") << u"o^ut\n$ com|mand"_s << u"oNEW|mand"_s;
}

void TstCommandWidget::inserting_in_the_command()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    Page page;
    page.set_state(before);
    page.insertInCommand(u"NEW"_s);
    QCOMPARE(page.state(), after);
}

void TstCommandWidget::external_commands_look_as_if_typed()
{
    Page page;
    page.setPrompt(u"$ "_s, u"2 "_s);
    page.addExternalCommand(u"first"_s);
    QCOMPARE(page.state(), u"$ first\n|"_s);
    page.addExternalCommand(u"second\n"_s);
    QCOMPARE(page.state(), u"$ first\n$ second\n|"_s);
    // None is shown now.
    page.printPrompt();
    QCOMPARE(page.state(), u"$ first\n$ second\n$ |"_s);
    QVERIFY(page.take_signals().isEmpty());
}

void TstCommandWidget::an_external_command_replaces_a_half_typed_one()
{
    Page page;
    page.set_state(u"out\n$ half"_s);
    page.addExternalCommand(u"run"_s);
    QCOMPARE(page.state(), u"out\n$ run\n|"_s);

    Page waiting;
    waiting.set_state(u"out\nahead"_s);
    waiting.addExternalCommand(u"run"_s);
    QCOMPARE(waiting.state(), u"out\n$ run\n|"_s);
}

void TstCommandWidget::selections_outside_the_command_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<bool>("outside");
    QTest::newRow("none in the command") << u"out\n$ c|d"_s << false;
    QTest::newRow("none in the output") << u"o|ut\n$ cd"_s << false;
    QTest::newRow("in the command") << u"out\n$ ^cd|"_s << false;
    QTest::newRow("in the output") << u"o^u|t\n$ cd"_s << true;
    QTest::newRow("in the prompt") << u"out\n^$| cd"_s << true;
    QTest::newRow("last character of the prompt") << u"out\n$^ |cd"_s << true;
    QTest::newRow("from the command into the prompt") << u"out\n$| c^d"_s << true;
    QTest::newRow("from the output into the command") << u"o^ut\n$ c|d"_s << true;
    QTest::newRow("without a prompt within its length") << u"^a|h"_s << true;
    QTest::newRow("without a prompt behind its length") << u"ah^e|ad"_s << false;
}

void TstCommandWidget::selections_outside_the_command()
{
    QFETCH(QString, state);
    QFETCH(bool, outside);
    Page page;
    page.set_state(state);
    QCOMPARE(page.state(), state);
    QCOMPARE(page.hasSelectionOutsideCommand(), outside);
}

void TstCommandWidget::new_command_does_what_return_does_behind_the_text()
{
    Page page;
    page.set_state(u"$ typed"_s);
    page.new_command(u"given"_s);
    QCOMPARE(page.state(), u"$ typed|"_s);
    QCOMPARE(page.take_signals(), QStringList({u"reset"_s, u"entered: given"_s}));
    page.printPrompt();
    QCOMPARE(page.state(), u"$ $ typed|"_s);
}

void TstCommandWidget::scroll_to_end_shows_the_last_line()
{
    Page page;
    page.resize(300, 100);
    QVERIFY(show_active(&page));
    page.printOutput(u"output\n"_s.repeated(200));
    page.verticalScrollBar()->setValue(0);
    page.scroll_to_end();
    QVERIFY(page.verticalScrollBar()->maximum() > 100);
    QCOMPARE(page.verticalScrollBar()->value(), page.verticalScrollBar()->maximum());
}

void TstCommandWidget::output_goes_above_the_command_line_data()
{
    QTest::addColumn<QStringList>("outputs");
    QTest::addColumn<QString>("after");
    const auto data_row = [](const char* rule, const QStringList& outputs, const QString& after) {
        QTest::newRow(rule) << outputs << after;
    };
    data_row("a line", {u"one\n"_s}, u"one\n$ cm|d"_s);
    data_row("lines", {u"one\ntwo\n"_s, u"three\n"_s}, u"one\ntwo\nthree\n$ cm|d"_s);
    data_row("an open line has its line", {u"one"_s}, u"one\n$ cm|d"_s);
    data_row("an open line goes on", {u"one"_s, u" two"_s, u" three\n"_s}, u"one two three\n$ cm|d"_s);
    data_row("an open line closes", {u"one"_s, u"two\n"_s, u"three"_s}, u"onetwo\nthree\n$ cm|d"_s);
    data_row("a newline alone closes", {u"one"_s, u"\n"_s, u"two\n"_s}, u"one\ntwo\n$ cm|d"_s);
    data_row("only one newline is dropped", {u"one"_s, u"two\n\n"_s, u"x\n"_s}, u"onetwo\n\nx\n$ cm|d"_s);
    data_row("lines in the middle of an open one", {u"one"_s, u"two\nthree"_s, u"!"_s},
             u"onetwo\nthree!\n$ cm|d"_s);
    data_row("nothing opens a line", {QString()}, u"\n$ cm|d"_s);
    data_row("nothing leaves an open line", {u"one"_s, QString(), u"two\n"_s}, u"onetwo\n$ cm|d"_s);
    data_row("a newline is an empty line", {u"\n"_s, u"one\n"_s}, u"\none\n$ cm|d"_s);
    data_row("carriage return and line feed are one end", {u"one\r\ntwo\r\n"_s}, u"one\ntwo\n$ cm|d"_s);
    data_row("they close an open line", {u"one"_s, u"two\r\n"_s, u"x\n"_s}, u"onetwo\nx\n$ cm|d"_s);
    data_row("a carriage return ends a line", {u"one\rtwo\n"_s}, u"one\ntwo\n$ cm|d"_s);
    data_row("a paragraph separator ends a line", {u"one\u2029two\n"_s}, u"one\ntwo\n$ cm|d"_s);
    data_row("a line separator stays in its block", {u"one\u2028two\n"_s}, u"one\u2028two\n$ cm|d"_s);
}

void TstCommandWidget::output_goes_above_the_command_line()
{
    QFETCH(QStringList, outputs);
    QFETCH(QString, after);
    Page page;
    page.set_state(u"$ cm|d"_s);
    for (const QString& output : outputs)
        page.printOutput(output);
    QCOMPARE(page.state(), after);
    QVERIFY(page.take_signals().isEmpty());
    QCOMPARE(page.currentCommand(), u"cmd"_s);
}

void TstCommandWidget::output_keeps_the_half_typed_command_and_the_caret()
{
    for (const QString& lastLine : {u"$ com|mand"_s, u"$ |command"_s, u"|$ command"_s, u"$| command"_s}) {
        Page page;
        page.set_state(u"out\n"_s + lastLine);
        page.printOutput(u"new\n"_s);
        QCOMPARE(page.state(), u"out\nnew\n"_s + lastLine);
    }
    for (const QString& output : {u"o|ut\n"_s, u"out|\n"_s, u"^out|\n"_s}) {
        Page page;
        page.set_state(output + u"$ command"_s);
        page.printOutput(u"new\n"_s);
        QCOMPARE(page.state(), output + u"new\n$ command"_s);
    }
}

void TstCommandWidget::output_keeps_a_selection_in_the_command()
{
    Page page;
    page.set_state(u"out\n$ c|omman^d"_s);
    page.printOutput(u"open"_s);
    page.printOutput(u" line\nnext\n"_s);
    QCOMPARE(page.state(), u"out\nopen line\nnext\n$ c|omman^d"_s);
}

void TstCommandWidget::output_moves_on_a_new_line_behind_a_prompt()
{
    Page page;
    page.printOutput(u"open"_s);
    page.printPrompt();
    page.printOutput(u"new"_s);
    QCOMPARE(page.state(), u"open\nnew\n$ |"_s);
}

void TstCommandWidget::a_prompt_that_is_shown_already_still_closes_the_output_line()
{
    Page page;
    page.printPrompt();
    page.printOutput(u"open"_s);
    page.printPrompt();
    page.printOutput(u"new\n"_s);
    QCOMPARE(page.state(), u"open\nnew\n$ |"_s);
}

void TstCommandWidget::typing_ahead_without_a_prompt_stays_at_the_bottom()
{
    Page page;
    page.printOutput(u"one\n"_s);
    page.type(u"ahead"_s);
    page.printOutput(u"two"_s);
    page.printOutput(u"three\n"_s);
    QCOMPARE(page.state(), u"one\ntwothree\nahead|"_s);
}

void TstCommandWidget::an_open_line_goes_on_below_a_command_entered_meanwhile()
{
    // Entering a command does not close the line: what follows is put above the last line, wherever that is.
    Page page;
    page.printPrompt();
    page.printOutput(u"open"_s);
    page.type(u"ls"_s);
    page.press(Qt::Key_Return);
    page.printOutput(u"more\n"_s);
    QCOMPARE(page.state(), u"open\n$ lsmore\n|"_s);
}

void TstCommandWidget::output_survives_the_loss_of_its_open_line()
{
    Page page;
    page.printOutput(u"open"_s);
    page.appendToCommand(u"ahead"_s);
    page.selectAll();
    page.cut();
    QCOMPARE(page.text(), QString());
    page.printOutput(u"new\n"_s);
    page.printOutput(u"next\n"_s);
    QCOMPARE(page.state(), u"new\nnext\n|"_s);
}

void TstCommandWidget::output_scrolls_to_the_end()
{
    Page page;
    page.resize(300, 100);
    QVERIFY(show_active(&page));
    page.printOutput(u"output\n"_s.repeated(200));
    QCOMPARE(page.verticalScrollBar()->value(), page.verticalScrollBar()->maximum());
    page.verticalScrollBar()->setValue(0);
    page.printOutput(u"more"_s);
    QVERIFY(page.verticalScrollBar()->maximum() > 100);
    QCOMPARE(page.verticalScrollBar()->value(), page.verticalScrollBar()->maximum());
}

void TstCommandWidget::hostile_output_is_kept_as_it_is()
{
    Page page;
    page.resize(300, 100);
    QVERIFY(show_active(&page));
    page.setPrompt(u"$ "_s, u"> "_s);
    const QString hostile = u"a"_s + QChar(0) + u"b"_s + QChar(0xDC00) + u"c"_s + QChar(0xD800);
    page.printOutput(hostile);
    page.printOutput(hostile + u'\n');
    page.printPrompt();
    page.appendToCommand(hostile);
    page.repaint();
    QCOMPARE(page.text(), hostile + hostile + u"\n$ "_s + hostile);
    QCOMPARE(page.currentCommand(), hostile);
    QCOMPARE(page.getCommands(), QList<QString>({hostile}));
}

void TstCommandWidget::a_line_of_ten_million_characters()
{
    Page page;
    page.resize(300, 100);
    page.setPrompt(u"$ "_s, u"> "_s);
    page.printPrompt();
    page.printOutput(QString(10'000'000, u'x') + u'\n');
    page.printOutput(u"next\n"_s);
    QCOMPARE(page.document()->blockCount(), 3);
    QCOMPARE(page.document()->firstBlock().length(), 10'000'001);
    QCOMPARE(page.currentCommand(), QString());
    QCOMPARE(page.getCommands(), QList<QString>({QString()}));
    page.type(u"ls"_s);
    QCOMPARE(page.currentCommand(), u"ls"_s);
}

void TstCommandWidget::the_oldest_lines_drop_off()
{
    Page page;
    page.printPrompt();
    page.document()->setMaximumBlockCount(3);
    for (int i = 0; i < 5; ++i)
        page.printOutput(QString::number(i) + u'\n');
    QCOMPARE(page.state(), u"3\n4\n$ |"_s);
    page.press(Qt::Key_Return);
    page.printPrompt();
    QCOMPARE(page.state(), u"4\n$ \n$ |"_s);
    page.printOutput(u"a\nb\nc\nd\ne"_s);
    QCOMPARE(page.state(), u"d\ne\n$ |"_s);
    page.printOutput(u"f\n"_s);
    QCOMPARE(page.state(), u"d\nef\n$ |"_s);
}

void TstCommandWidget::a_limit_of_one_line_keeps_the_command_line()
{
    Page page;
    page.set_state(u"$ com|mand"_s);
    page.document()->setMaximumBlockCount(1);
    for (const QString& output : {u"line\n"_s, u"open"_s, u"more"_s, u"closed\n"_s, u"next\n"_s, QString()}) {
        page.printOutput(output);
        QCOMPARE(page.state(), u"$ com|mand"_s);
    }
    page.press(Qt::Key_Return);
    QCOMPARE(page.state(), u"|"_s);
}

void TstCommandWidget::commands_data()
{
    QTest::addColumn<QString>("prompt");
    QTest::addColumn<QString>("continuation");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<QString>>("commands");
    const auto data_row = [](const char* rule, const QString& prompt, const QString& continuation,
                             const QString& text, const QList<QString>& commands) {
        QTest::newRow(rule) << prompt << continuation << text << commands;
    };
    const QString one = u"$ "_s;
    const QString two = u"> "_s;
    data_row("both prompts, in order", one, two, u"$ a\n> b\n$ c"_s, {u"a"_s, u"b"_s, u"c"_s});
    data_row("output is skipped", one, two, u"out\n$ a\nmore $ out\n"_s, {u"a"_s});
    data_row("the line being edited, empty", one, two, u"$ a\n$ "_s, {u"a"_s, QString()});
    data_row("output that starts with a prompt", one, two, u"$ 5 is the price\n"_s, {u"5 is the price"_s});
    data_row("capitals count", u"In "_s, two, u"in a\nIn b"_s, {u"b"_s});
    data_row("a prompt without its blank", one, two, u"$\n$a\n"_s, {});
    data_row("an empty continuation prompt takes all", one, QString(), u"out\n$ a\n"_s,
             {u"out"_s, u"a"_s, QString()});
    data_row("an empty prompt takes all whole", QString(), two, u"out\n> a"_s, {u"out"_s, u"> a"_s});
    data_row("an empty prompt takes empty lines", u""_s, two, u"\na"_s, {u""_s, u"a"_s});
    data_row("the prompt goes before the continuation", u">"_s, u">>"_s, u">>a"_s, {u">a"_s});
    data_row("the continuation may start with the prompt", u">>"_s, u">"_s, u">>a\n>b"_s, {u"a"_s, u"b"_s});
    data_row("an empty page", one, two, QString(), {});
    data_row("an empty page, an empty prompt", u""_s, two, QString(), {u""_s});
    data_row("an empty page, an empty continuation prompt", one, u""_s, QString(), {u""_s});
    data_row("empty lines, no prompts", QString(), QString(), u"\n"_s, {u""_s, u""_s});
    data_row("a line separator stays in its line", one, two, u"$ a\u2028$ b"_s, {u"a\u2028$ b"_s});
    data_row("a hard space stays", one, two, u"$ a\u00A0b"_s, {u"a\u00A0b"_s});
}

void TstCommandWidget::commands()
{
    QFETCH(QString, prompt);
    QFETCH(QString, continuation);
    QFETCH(QString, text);
    QFETCH(QList<QString>, commands);
    Page page;
    page.setPrompt(prompt, continuation);
    page.appendToCommand(text);
    QCOMPARE(page.getCommands(), commands);
}

void TstCommandWidget::pasting_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("emitted");
    const auto data_row = [](const char* rule, const QString& before, const QString& text,
                             const QString& after, const QString& emitted = {}) {
        QTest::newRow(rule) << before << text << after << emitted;
    };
    const QString state = u"out\n$ com|mand"_s;
    data_row("one word is inserted", state, u"new"_s, u"out\n$ comnew|mand"_s);
    data_row("one word over a selection", u"$ c^omman|d"_s, u"new"_s, u"$ cnew|d"_s);
    data_row("one word from the output", u"o|ut\n$ command"_s, u"new"_s, u"out\n$ commandnew|"_s);
    data_row("a word and a newline", state, u"new\n"_s, state, u"lines: new, "_s);
    data_row("two lines", state, u"one\ntwo"_s, state, u"lines: one, two"_s);
    data_row("two lines and a newline", state, u"one\ntwo\n"_s, state, u"lines: one, two, "_s);
    data_row("empty lines", state, u"\n\n"_s, state, u"lines: , , "_s);
    data_row("lines leave a selection in the output", u"o^u|t\n$ cd"_s, u"a\nb"_s, u"o^u|t\n$ cd"_s,
             u"lines: a, b"_s);
    data_row("a carriage return stays on its line", state, u"one\r\ntwo\r\n"_s, state,
             u"lines: one\r, two\r, "_s);
    data_row("a lone carriage return does not leave the line", state, u"one\rtwo"_s,
             u"out\n$ comone two|mand"_s);
    data_row("a paragraph separator does not leave the line", state, u"one\u2029two"_s,
             u"out\n$ comone two|mand"_s);
    data_row("nothing", state, QString(), state);
}

void TstCommandWidget::pasting()
{
    QFETCH(QString, before);
    QFETCH(QString, text);
    QFETCH(QString, after);
    QFETCH(QString, emitted);
    Page page;
    page.set_state(before);
    page.paste_text(text);
    QCOMPARE(page.state(), after);
    QCOMPARE(page.take_signals().join(u"; "_s), emitted);
}

void TstCommandWidget::dropping_from_outside_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("at");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("emitted");
    const auto data_row = [](const char* rule, const QString& before, int at, const QString& text,
                             const QString& after, const QString& emitted = {}) {
        QTest::newRow(rule) << before << at << text << after << emitted;
    };
    data_row("in the command", u"out\n$ |cd"_s, 7, u"NEW"_s, u"out\n$ cNEW|d"_s);
    data_row("in the output", u"out\n$ |cd"_s, 1, u"NEW"_s, u"out\n$ cdNEW|"_s);
    data_row("in the prompt", u"out\n$ |cd"_s, 5, u"NEW"_s, u"out\n$ cdNEW|"_s);
    data_row("with a selection in the output", u"o^u|t\n$ cd"_s, 7, u"NEW"_s, u"out\n$ cNEW|d"_s);
    data_row("several lines", u"out\n$ c|d"_s, 8, u"a\nb\n"_s, u"out\n$ cd|"_s, u"lines: a, b, "_s);
}

void TstCommandWidget::dropping_from_outside()
{
    QFETCH(QString, before);
    QFETCH(int, at);
    QFETCH(QString, text);
    QFETCH(QString, after);
    QFETCH(QString, emitted);
    Page page;
    page.set_state(before);
    QVERIFY(show_active(&page));
    QVERIFY(drop_text(page.viewport(), page.middle_of(at), text));
    QCOMPARE(page.state(), after);
    QCOMPARE(page.take_signals().join(u"; "_s), emitted);
}

void TstCommandWidget::clicks_reach_everywhere()
{
    Page page;
    page.set_state(u"output\n$ command"_s);
    QVERIFY(show_active(&page));
    QTest::mouseClick(page.viewport(), Qt::LeftButton, Qt::NoModifier, page.middle_of(3));
    QCOMPARE(page.state(), u"out|put\n$ command"_s);
    QTest::mouseClick(page.viewport(), Qt::LeftButton, Qt::NoModifier, page.middle_of(8));
    QCOMPARE(page.state(), u"output\n$| command"_s);
    QTest::mouseClick(page.viewport(), Qt::LeftButton, Qt::ShiftModifier, page.middle_of(2));
    QCOMPARE(page.state(), u"ou|tput\n$^ command"_s);
    QTest::mouseClick(page.viewport(), Qt::LeftButton, Qt::NoModifier, page.middle_of(11));
    QCOMPARE(page.state(), u"output\n$ co|mmand"_s);
}

void TstCommandWidget::menu_rows_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("clipboard");
    QTest::addColumn<QString>("cutAndCopy");
    QTest::addColumn<QString>("paste");
    const auto enabled = u"enabled"_s;
    const auto disabled = u"disabled"_s;
    QTest::newRow("a selection, text to paste") << u"o^u|t\n$ "_s << u"text"_s << enabled << enabled;
    QTest::newRow("no selection, nothing to paste") << u"out\n$ |"_s << QString() << disabled << disabled;
    QTest::newRow("an empty page") << QString() << QString() << disabled << disabled;
}

void TstCommandWidget::menu_rows()
{
    QFETCH(QString, state);
    QFETCH(QString, clipboard);
    QFETCH(QString, cutAndCopy);
    QFETCH(QString, paste);
    QGuiApplication::clipboard()->setText(clipboard);
    Page page;
    page.set_state(state);
    QVERIFY(show_active(&page));
    QStringList rows;
    {
        const MenuDriver driver([&](QMenu* menu) { rows = ::menu_rows(menu); });
        ask_for_menu(page);
    }
    QCOMPARE(rows,
             QStringList({u"Cu&t [Ctrl+X] (%1)"_s.arg(cutAndCopy), u"&Copy [Ctrl+C] (%1)"_s.arg(cutAndCopy),
                          u"&Paste [Ctrl+V] (%1)"_s.arg(paste), u"Clear [] (enabled)"_s, u"---"_s,
                          u"Select All [] (enabled)"_s}));
    QVERIFY(page.take_signals().isEmpty());
    QGuiApplication::clipboard()->clear();
}

void TstCommandWidget::the_menu_opens_at_the_pointer_and_is_deleted()
{
    Page page;
    QVERIFY(show_active(&page));
    QPoint position;
    const QObject* parent = nullptr;
    const MenuDriver driver([&](QMenu* menu) {
        position = menu->pos();
        parent = menu->parentWidget();
    });
    ask_for_menu(page, QPoint(20, 30));
    QCOMPARE(position, page.viewport()->mapToGlobal(QPoint(20, 30)));
    QCOMPARE(parent, &page);
    QVERIFY(driver.menu_is_deleted());
    QVERIFY(page.findChildren<QMenu*>().isEmpty());
}

void TstCommandWidget::each_menu_is_a_new_one()
{
    Page page;
    page.set_state(u"$ ^cd|"_s);
    QVERIFY(show_active(&page));
    for (const bool selected : {true, false}) {
        QStringList rows;
        const MenuDriver driver([&](QMenu* menu) { rows = ::menu_rows(menu); });
        ask_for_menu(page);
        QCOMPARE(rows.value(1).contains(u"(enabled)"_s), selected);
        page.moveCursor(QTextCursor::End);
    }
}

void TstCommandWidget::menu_cut_is_not_guarded()
{
    Page page;
    page.set_state(u"ou^tput\n$ com|mand"_s);
    QVERIFY(show_active(&page));
    QVERIFY(choose_from_menu(page, cut_row));
    QCOMPARE(page.state(), u"ou|mand"_s);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"tput\n$ com"_s);
    QGuiApplication::clipboard()->clear();
}

void TstCommandWidget::menu_copy()
{
    Page page;
    page.set_state(u"o^utpu|t\n$ "_s);
    QVERIFY(show_active(&page));
    QVERIFY(choose_from_menu(page, copy_row));
    QCOMPARE(page.state(), u"o^utpu|t\n$ "_s);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"utpu"_s);
    QGuiApplication::clipboard()->clear();
}

void TstCommandWidget::menu_paste()
{
    QGuiApplication::clipboard()->setText(u"NEW"_s);
    Page page;
    page.set_state(u"o|ut\n$ command"_s);
    QVERIFY(show_active(&page));
    QVERIFY(choose_from_menu(page, paste_row));
    QCOMPARE(page.state(), u"out\n$ commandNEW|"_s);
    QGuiApplication::clipboard()->clear();
}

void TstCommandWidget::menu_clear()
{
    Page page;
    page.set_state(u"out\n$ command"_s);
    QVERIFY(show_active(&page));
    QVERIFY(choose_from_menu(page, clear_row));
    QCOMPARE(page.state(), u"$ |"_s);
    QCOMPARE(page.take_signals(), QStringList({u"cleared"_s}));
}

void TstCommandWidget::menu_select_all()
{
    Page page;
    page.set_state(u"out\n$ command"_s);
    QVERIFY(show_active(&page));
    QVERIFY(choose_from_menu(page, select_all_row));
    QCOMPARE(page.state(), u"^out\n$ command|"_s);
}

void TstCommandWidget::the_page_may_go_while_its_menu_is_open()
{
    auto* page = new Page;
    QVERIFY(show_active(page));
    const MenuDriver driver([&](QMenu*) { delete page; });
    ask_for_menu(*page);
    QVERIFY(driver.menu_is_deleted());
}

OSTREL_TEST(TstCommandWidget)
#include "tst_commandwidget.moc"
