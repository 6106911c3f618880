// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "page.h"
#include "support/TestCase.h"
#include "support/windows.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QPointer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

using namespace Qt::StringLiterals;

namespace {

void key_columns()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QKeyCombination>("key");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("emitted");
}

void row(const char* rule, const QString& before, QKeyCombination key, const QString& after,
         const QString& emitted = {})
{
    QTest::newRow(rule) << before << key << after << emitted;
}

void press_and_compare()
{
    QFETCH(QString, before);
    QFETCH(QKeyCombination, key);
    QFETCH(QString, after);
    QFETCH(QString, emitted);
    Page page;
    page.set_state(before);
    QCOMPARE(page.state(), before.contains(u'|') ? before : before + u'|');
    page.press(key.key(), key.keyboardModifiers());
    QCOMPARE(page.state(), after);
    QCOMPARE(page.take_signals().join(u"; "_s), emitted);
}

constexpr Qt::KeyboardModifiers control_shift = Qt::ControlModifier | Qt::ShiftModifier;

using Print = void (*)(Page&);

struct Place
{
    const char* name;
    QString state;
};

QList<Place> places()
{
    return {{"caret in the output", u"ou|t\n$ command"_s},
            {"caret at the end of the output", u"out|\n$ command"_s},
            {"caret before the prompt", u"out\n|$ command"_s},
            {"caret in the prompt", u"out\n$| command"_s},
            {"caret at the command's start", u"out\n$ |command"_s},
            {"caret in the command", u"out\n$ com|mand"_s},
            {"caret at the command's end", u"out\n$ command|"_s},
            {"selection in the output", u"o^u|t\n$ command"_s},
            {"selection in the prompt", u"out\n^$| command"_s},
            {"selection from the output into the command", u"o^ut\n$ com|mand"_s},
            {"selection from the command into the output", u"o|ut\n$ com^mand"_s},
            {"selection in the command", u"out\n$ c^omman|d"_s}};
}

} // namespace

class TstCommandWidgetKeys : public TestCase
{
    Q_OBJECT

private slots:
    // Bringing the caret home.

    void typing_never_alters_output_or_prompt_data();
    void typing_never_alters_output_or_prompt();
    void typing_in_the_prompt_lands_at_the_commands_start_even_if_prompts_differ();
    void keys_without_text_leave_the_caret_data();
    void keys_without_text_leave_the_caret();
    void control_keys_with_text_bring_the_caret_home_data()
    {
        key_columns();
        control_rows();
    }
    void control_keys_with_text_bring_the_caret_home() { press_and_compare(); }
    void control_c_copies_output();
    void bringing_the_caret_home_scrolls_to_the_end();
    void copying_from_the_command_does_not_scroll();
    void caret_behind_a_wide_prompt_cannot_reach_it();

    // The key table.

    void return_enters_the_command_from_everywhere_data();
    void return_enters_the_command_from_everywhere();
    void return_on_an_empty_prompt_enters_an_empty_command();
    void return_without_a_prompt_enters_what_lies_behind_its_length();
    void return_emits_reset_first_with_the_prompt_gone_and_the_block_open();
    void return_scrolls_to_the_end();
    void held_down_return_enters_again_and_again();
    void the_page_may_go_when_a_command_is_entered();
    void home_data()
    {
        key_columns();
        home_rows();
    }
    void home() { press_and_compare(); }
    void backspace_data()
    {
        key_columns();
        backspace_rows();
    }
    void backspace() { press_and_compare(); }
    void up_and_down_data()
    {
        key_columns();
        up_and_down_rows();
    }
    void up_and_down() { press_and_compare(); }
    void control_k_u_t_data()
    {
        key_columns();
        control_k_u_t_rows();
    }
    void control_k_u_t() { press_and_compare(); }
    void control_t_works_without_a_prompt();
    void other_keys_data()
    {
        key_columns();
        other_rows();
    }
    void other_keys() { press_and_compare(); }

    // What else could alter output or prompt.

    void deleting_words_backwards_stops_at_the_prompt_data()
    {
        key_columns();
        word_rows();
    }
    void deleting_words_backwards_stops_at_the_prompt() { press_and_compare(); }
    void editing_keys_without_text_act_where_the_caret_is_data();
    void editing_keys_without_text_act_where_the_caret_is();
    void pasting_by_key_data();
    void pasting_by_key();
    void undo_and_redo_change_nothing_data();
    void undo_and_redo_change_nothing();
    void undo_stays_off_without_a_limit();
    void overwriting_stays_in_the_command();
    void a_command_of_right_to_left_text_starts_behind_the_prompt();

    // Input methods.

    void composed_text_never_alters_output_or_prompt_data();
    void composed_text_never_alters_output_or_prompt();
    void composed_lines_stay_in_the_command_data();
    void composed_lines_stay_in_the_command();
    void composing_begins_in_the_command();
    void ending_a_composition_keeps_a_selection_of_output();
    void an_input_method_event_without_text_leaves_the_caret();
    void composing_goes_on_behind_what_is_printed_data();
    void composing_goes_on_behind_what_is_printed();
    void replacement_by_an_input_method_stays_in_the_command_data();
    void replacement_by_an_input_method_stays_in_the_command();

    // Read-only.

    void read_only_pages_take_no_text_but_still_enter();
    void control_k_u_t_change_read_only_pages_data()
    {
        key_columns();
        read_only_rows();
    }
    void control_k_u_t_change_read_only_pages();
    void set_read_only_switches_both_ways();

private:
    static void control_rows();
    static void home_rows();
    static void backspace_rows();
    static void up_and_down_rows();
    static void control_k_u_t_rows();
    static void other_rows();
    static void word_rows();
    static void read_only_rows();
};

void TstCommandWidgetKeys::typing_never_alters_output_or_prompt_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    const auto data_row = [](const char* rule, const QString& before, const QString& after) {
        QTest::newRow(rule) << before << after;
    };
    const QString atEnd = u"out\n$ commandx|"_s;
    const QString atStart = u"out\n$ x|command"_s;
    data_row("in the output: at the end", u"ou|t\n$ command"_s, atEnd);
    data_row("at the very start: at the end", u"|out\n$ command"_s, atEnd);
    data_row("at the end of the output: at the end", u"out|\n$ command"_s, atEnd);
    data_row("before the prompt: at the start", u"out\n|$ command"_s, atStart);
    data_row("in the prompt: at the start", u"out\n$| command"_s, atStart);
    data_row("at the command's start: there", u"out\n$ |command"_s, atStart);
    data_row("in the command: there", u"out\n$ com|mand"_s, u"out\n$ comx|mand"_s);
    data_row("at the command's end: there", u"out\n$ command|"_s, atEnd);
    data_row("selection in the output: at the end", u"o^u|t\n$ command"_s, atEnd);
    data_row("selection in the prompt: at the start", u"out\n^$| command"_s, atStart);
    data_row("selection of the prompt with the caret behind it: at the end", u"out\n^$ |command"_s, atEnd);
    data_row("selection from the output into the command: at the end", u"o^ut\n$ com|mand"_s, atEnd);
    data_row("selection from the command into the output: at the end", u"o|ut\n$ com^mand"_s, atEnd);
    data_row("selection from the command into the prompt: at the start", u"out\n$| com^mand"_s, atStart);
    data_row("selection in the command: replaced", u"out\n$ c^omman|d"_s, u"out\n$ cx|d"_s);
    data_row("selection of the whole command: replaced", u"out\n$ ^command|"_s, u"out\n$ x|"_s);
    data_row("no prompt, nothing typed: there", u"out\n|"_s, u"out\nx|"_s);
    data_row("no prompt, in the output: at the end", u"ou|t\n"_s, u"out\nx|"_s);
    data_row("no prompt, within the prompt's length: behind it", u"out\na|head"_s, u"out\nahx|ead"_s);
}

void TstCommandWidgetKeys::typing_never_alters_output_or_prompt()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    Page page;
    page.set_state(before);
    page.press(Qt::Key_X);
    QCOMPARE(page.state(), after);
    QVERIFY(page.take_signals().isEmpty());
}

void TstCommandWidgetKeys::typing_in_the_prompt_lands_at_the_commands_start_even_if_prompts_differ()
{
    Page page;
    page.setPrompt(u"$ "_s, u"....> "_s);
    page.printPrompt(true);
    page.appendToCommand(u"more"_s);
    page.put_caret(1);
    page.press(Qt::Key_X);
    // The primary prompt's length counts, also on this line.
    QCOMPARE(page.state(), u"..x|..> more"_s);
}

void TstCommandWidgetKeys::keys_without_text_leave_the_caret_data()
{
    QTest::addColumn<QKeyCombination>("key");
    QTest::addColumn<QString>("after");
    QTest::newRow("Shift alone") << QKeyCombination(Qt::Key_Shift) << u"on|e\ntwo\n$ c"_s;
    QTest::newRow("Control alone") << QKeyCombination(Qt::Key_Control) << u"on|e\ntwo\n$ c"_s;
    QTest::newRow("Left") << QKeyCombination(Qt::Key_Left) << u"o|ne\ntwo\n$ c"_s;
    QTest::newRow("Right") << QKeyCombination(Qt::Key_Right) << u"one|\ntwo\n$ c"_s;
    QTest::newRow("End") << QKeyCombination(Qt::Key_End) << u"one|\ntwo\n$ c"_s;
    QTest::newRow("Shift+Right") << (Qt::SHIFT | Qt::Key_Right) << u"on^e|\ntwo\n$ c"_s;
    QTest::newRow("Control+End") << (Qt::CTRL | Qt::Key_End) << u"one\ntwo\n$ c|"_s;
    QTest::newRow("F5") << QKeyCombination(Qt::Key_F5) << u"on|e\ntwo\n$ c"_s;
}

void TstCommandWidgetKeys::keys_without_text_leave_the_caret()
{
    QFETCH(QKeyCombination, key);
    QFETCH(QString, after);
    Page page;
    page.set_state(u"on|e\ntwo\n$ c"_s);
    page.press(key.key(), key.keyboardModifiers());
    QCOMPARE(page.state(), after);
}

void TstCommandWidgetKeys::control_rows()
{
    const QString selected = u"o^u|t\n$ command"_s;
    const QString home = u"out\n$ command|"_s;
    row("Control+C leaves a selection in the output", selected, Qt::CTRL | Qt::Key_C, selected);
    row("Control+Shift+C does too", selected, Qt::CTRL | Qt::SHIFT | Qt::Key_C, selected);
    row("Control+C leaves the caret in the output", u"ou|t\n$ command"_s, Qt::CTRL | Qt::Key_C,
        u"ou|t\n$ command"_s);
    row("C without Control types", selected, Qt::Key_C, u"out\n$ commandc|"_s);
    row("Control+X drops the selection and cuts nothing", selected, Qt::CTRL | Qt::Key_X, home);
    row("Control+X in the prompt goes to the command's start", u"out\n^$| command"_s, Qt::CTRL | Qt::Key_X,
        u"out\n$ |command"_s);
    row("Control+X cuts in the command", u"out\n$ c^omman|d"_s, Qt::CTRL | Qt::Key_X, u"out\n$ c|d"_s);
    row("Control+A goes home and selects all", u"ou|t\n$ command"_s, Qt::CTRL | Qt::Key_A,
        u"^out\n$ command|"_s);
    row("Escape goes home", selected, Qt::Key_Escape, home);
    row("Shift+Delete drops the selection and cuts nothing", selected, Qt::SHIFT | Qt::Key_Delete, home);
}

void TstCommandWidgetKeys::control_c_copies_output()
{
    Page page;
    page.set_state(u"o^utpu|t\n$ command"_s);
    page.press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), u"utpu"_s);
    QGuiApplication::clipboard()->clear();
}

void TstCommandWidgetKeys::bringing_the_caret_home_scrolls_to_the_end()
{
    Page page;
    page.set_state(u"output\n"_s.repeated(200) + u"$ "_s);
    page.resize(300, 100);
    QVERIFY(show_active(&page));
    page.put_caret(0);
    QCOMPARE(page.verticalScrollBar()->value(), 0);
    QTest::keyClick(&page, Qt::Key_X);
    QVERIFY(page.verticalScrollBar()->maximum() > 100);
    QCOMPARE(page.verticalScrollBar()->value(), page.verticalScrollBar()->maximum());
}

void TstCommandWidgetKeys::copying_from_the_command_does_not_scroll()
{
    Page page;
    page.set_state(u"output\n"_s.repeated(200) + u"$ "_s);
    page.resize(300, 100);
    QVERIFY(show_active(&page));
    page.verticalScrollBar()->setValue(0);
    QTest::keyClick(&page, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(page.verticalScrollBar()->value(), 0);
}

void TstCommandWidgetKeys::caret_behind_a_wide_prompt_cannot_reach_it()
{
    // Four characters of which two make one caret step: the command starts one step too far right.
    Page page;
    page.setPrompt(u"\U0001F600$ "_s);
    page.printPrompt();
    page.appendToCommand(u"abc"_s);
    QCOMPARE(page.currentCommand(), u"bc"_s);
    page.put_caret(4);
    page.press(Qt::Key_Backspace);
    QCOMPARE(page.text(), u"\U0001F600$ abc"_s);
    page.press(Qt::Key_X);
    QCOMPARE(page.state(), u"\U0001F600$ ax|bc"_s);
}

void TstCommandWidgetKeys::return_enters_the_command_from_everywhere_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QKeyCombination>("key");
    const QList<std::pair<const char*, Qt::KeyboardModifiers>> held = {{"", Qt::NoModifier},
                                                                       {"Shift+", Qt::ShiftModifier},
                                                                       {"Control+", Qt::ControlModifier},
                                                                       {"Alt+", Qt::AltModifier},
                                                                       {"Meta+", Qt::MetaModifier},
                                                                       {"Keypad ", Qt::KeypadModifier},
                                                                       {"Control+Shift+", control_shift}};
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        for (const auto& [name, modifiers] : held) {
            for (const Place& place : places()) {
                QTest::addRow("%s%s, %s", name, key == Qt::Key_Return ? "Return" : "Enter", place.name)
                    << place.state << QKeyCombination(modifiers, key);
            }
        }
    }
}

void TstCommandWidgetKeys::return_enters_the_command_from_everywhere()
{
    QFETCH(QString, before);
    QFETCH(QKeyCombination, key);
    Page page;
    page.set_state(before);
    page.press(key.key(), key.keyboardModifiers());
    QCOMPARE(page.state(), u"out\n$ command\n|"_s);
    QCOMPARE(page.take_signals(), QStringList({u"reset"_s, u"entered: command"_s}));
    // The prompt is gone: the next one is printed.
    page.printPrompt();
    QCOMPARE(page.state(), u"out\n$ command\n$ |"_s);
}

void TstCommandWidgetKeys::return_on_an_empty_prompt_enters_an_empty_command()
{
    Page page;
    page.set_state(u"$ "_s);
    page.press(Qt::Key_Return);
    QCOMPARE(page.take_signals(), QStringList({u"reset"_s, u"entered: "_s}));
    QCOMPARE(page.state(), u"$ \n|"_s);
}

void TstCommandWidgetKeys::return_without_a_prompt_enters_what_lies_behind_its_length()
{
    Page page;
    page.type(u"ahead"_s);
    page.press(Qt::Key_Return);
    QCOMPARE(page.take_signals(), QStringList({u"reset"_s, u"entered: ead"_s}));
    QCOMPARE(page.state(), u"ahead\n|"_s);
}

void TstCommandWidgetKeys::return_emits_reset_first_with_the_prompt_gone_and_the_block_open()
{
    Page page;
    page.set_state(u"$ ls"_s);
    QString atReset;
    connect(&page, &CommandWidget::resetHistoryIndex, &page, [&] {
        atReset = page.state();
        page.printPrompt();
    });
    QString atEntered;
    connect(&page, &CommandWidget::commandEntered, &page, [&] { atEntered = page.state(); });
    page.press(Qt::Key_Return);
    QCOMPARE(atReset, u"$ ls\n|"_s);
    QCOMPARE(atEntered, u"$ ls\n$ |"_s);
}

void TstCommandWidgetKeys::return_scrolls_to_the_end()
{
    Page page;
    page.set_state(u"output\n"_s.repeated(200) + u"$ "_s);
    page.resize(300, 100);
    QVERIFY(show_active(&page));
    page.put_caret(0);
    page.verticalScrollBar()->setValue(0);
    QTest::keyClick(&page, Qt::Key_Return);
    QCOMPARE(page.verticalScrollBar()->value(), page.verticalScrollBar()->maximum());
}

void TstCommandWidgetKeys::held_down_return_enters_again_and_again()
{
    Page page;
    page.set_state(u"$ "_s);
    for (int i = 0; i < 3; ++i) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, u"\r"_s, true);
        QCoreApplication::sendEvent(&page, &event);
    }
    QCOMPARE(page.take_signals().size(), 6);
    QCOMPARE(page.state(), u"$ \n\n\n|"_s);
}

void TstCommandWidgetKeys::the_page_may_go_when_a_command_is_entered()
{
    QPointer<Page> page = new Page;
    page->set_state(u"$ exit"_s);
    QVERIFY(show_active(page));
    connect(page, &CommandWidget::commandEntered, page, [&] { delete page; });
    QTest::keyClick(page, Qt::Key_Return);
    QVERIFY(!page);
}

void TstCommandWidgetKeys::home_rows()
{
    row("from the command to its start", u"out\n$ com|mand"_s, Qt::Key_Home, u"out\n$ |command"_s);
    row("from the prompt to the command's start", u"out\n|$ command"_s, Qt::Key_Home, u"out\n$ |command"_s);
    row("at the command's start it stays", u"out\n$ |command"_s, Qt::Key_Home, u"out\n$ |command"_s);
    row("a selection is dropped", u"out\n$ co^mman|d"_s, Qt::Key_Home, u"out\n$ |command"_s);
    row("Shift selects", u"out\n$ com|mand"_s, Qt::SHIFT | Qt::Key_Home, u"out\n$ |com^mand"_s);
    row("Shift keeps an anchor in the output", u"o^ut\n$ com|mand"_s, Qt::SHIFT | Qt::Key_Home,
        u"o^ut\n$ |command"_s);
    row("Control does the same", u"out\n$ com|mand"_s, Qt::CTRL | Qt::Key_Home, u"out\n$ |command"_s);
    row("Control+Shift selects", u"out\n$ com|mand"_s, control_shift | Qt::Key_Home, u"out\n$ |com^mand"_s);
    row("Alt does the same", u"out\n$ com|mand"_s, Qt::ALT | Qt::Key_Home, u"out\n$ |command"_s);
    row("without a prompt it stops at the line's end", u"out\na|"_s, Qt::Key_Home, u"out\na|"_s);
    row("in the output to the line's start", u"one\ntw|o\n$ c"_s, Qt::Key_Home, u"one\n|two\n$ c"_s);
    row("Control in the output to the page's start", u"one\ntw|o\n$ c"_s, Qt::CTRL | Qt::Key_Home,
        u"|one\ntwo\n$ c"_s);
    row("Shift in the output selects", u"one\ntw|o\n$ c"_s, Qt::SHIFT | Qt::Key_Home, u"one\n|tw^o\n$ c"_s);
}

void TstCommandWidgetKeys::backspace_rows()
{
    row("directly behind the prompt it is swallowed", u"out\n$ |command"_s, Qt::Key_Backspace,
        u"out\n$ |command"_s);
    row("on an empty prompt it is swallowed", u"out\n$ |"_s, Qt::Key_Backspace, u"out\n$ |"_s);
    row("in the prompt it only comes home", u"out\n$| command"_s, Qt::Key_Backspace, u"out\n$ |command"_s);
    row("in the output it only comes home", u"ou|t\n$ command"_s, Qt::Key_Backspace, u"out\n$ command|"_s);
    row("a selection in the output is dropped", u"o^u|t\n$ command"_s, Qt::Key_Backspace,
        u"out\n$ command|"_s);
    row("in the command it deletes", u"out\n$ com|mand"_s, Qt::Key_Backspace, u"out\n$ co|mand"_s);
    row("Shift deletes too", u"out\n$ com|mand"_s, Qt::SHIFT | Qt::Key_Backspace, u"out\n$ co|mand"_s);
    row("Control deletes a word", u"out\n$ one two|"_s, Qt::CTRL | Qt::Key_Backspace, u"out\n$ one |"_s);
    row("a selection in the command is deleted", u"out\n$ c^omman|d"_s, Qt::Key_Backspace, u"out\n$ c|d"_s);
    row("a selection with the caret at the start is deleted", u"out\n$ |comman^d"_s, Qt::Key_Backspace,
        u"out\n$ |d"_s);
    row("a selection that reaches into the command: home, then one character", u"o^ut\n$ com|mand"_s,
        Qt::Key_Backspace, u"out\n$ comman|"_s);
    row("a selection up to the command's start: home, nothing else", u"o^ut\n$ |command"_s, Qt::Key_Backspace,
        u"out\n$ command|"_s);
    row("without a prompt what is no longer than it stays", u"out\nab|"_s, Qt::Key_Backspace, u"out\nab|"_s);
    row("without a prompt what lies behind is deleted", u"out\nabc|"_s, Qt::Key_Backspace, u"out\nab|"_s);
}

void TstCommandWidgetKeys::up_and_down_rows()
{
    const QString inCommand = u"one\ntwo\n$ com|mand"_s;
    const QString atStart = u"one\ntwo\n$ |command"_s;
    row("Up in the command", inCommand, Qt::Key_Up, inCommand, u"up"_s);
    row("Down in the command", inCommand, Qt::Key_Down, inCommand, u"down"_s);
    row("Up at the command's start", atStart, Qt::Key_Up, atStart, u"up"_s);
    row("Down at the command's start", atStart, Qt::Key_Down, atStart, u"down"_s);
    row("Shift+Up in the command", inCommand, Qt::SHIFT | Qt::Key_Up, inCommand, u"up"_s);
    row("Control+Down in the command", inCommand, Qt::CTRL | Qt::Key_Down, inCommand, u"down"_s);
    row("Up with a selection from the output", u"o^ne\ntwo\n$ com|mand"_s, Qt::Key_Up,
        u"o^ne\ntwo\n$ com|mand"_s, u"up"_s);
    row("Up in the output moves", u"one\ntw|o\n$ command"_s, Qt::Key_Up, u"on|e\ntwo\n$ command"_s);
    row("Down in the output moves", u"on|e\ntwo\n$ command"_s, Qt::Key_Down, u"one\ntw|o\n$ command"_s);
    row("Up in the prompt moves", u"one\ntwo\n$| command"_s, Qt::Key_Up, u"one\nt|wo\n$ command"_s);
    row("Shift+Up in the output selects", u"one\ntw|o\n$ command"_s, Qt::SHIFT | Qt::Key_Up,
        u"on|e\ntw^o\n$ command"_s);
    row("Up without a prompt on an empty line", u"one\n|"_s, Qt::Key_Up, u"one\n|"_s, u"up"_s);
}

void TstCommandWidgetKeys::control_k_u_t_rows()
{
    const QString home = u"out\n$ command|"_s;
    const QString start = u"out\n$ |command"_s;
    row("Control+K takes all behind the caret", u"out\n$ com|mand"_s, Qt::CTRL | Qt::Key_K, u"out\n$ com|"_s);
    row("Control+K at the start takes all", start, Qt::CTRL | Qt::Key_K, u"out\n$ |"_s);
    row("Control+K at the end takes nothing", home, Qt::CTRL | Qt::Key_K, home);
    row("Control+Shift+K counts as Control+K", u"out\n$ com|mand"_s, control_shift | Qt::Key_K,
        u"out\n$ com|"_s);
    row("Control+K goes by the caret of a selection", u"out\n$ co|mman^d"_s, Qt::CTRL | Qt::Key_K,
        u"out\n$ co|"_s);
    row("Control+K goes by where the caret was before it came home", u"o^ut\n$ com|mand"_s,
        Qt::CTRL | Qt::Key_K, u"out\n$ com|"_s);
    row("Control+K in the output only comes home", u"ou|t\n$ command"_s, Qt::CTRL | Qt::Key_K, home);
    row("Control+K in the prompt only comes home", u"out\n$| command"_s, Qt::CTRL | Qt::Key_K, start);
    row("K without Control types", u"out\n$ com|mand"_s, Qt::Key_K, u"out\n$ comk|mand"_s);
    row("Shift+K types", u"out\n$ com|mand"_s, Qt::SHIFT | Qt::Key_K, u"out\n$ comK|mand"_s);

    row("Control+U takes all before the caret", u"out\n$ com|mand"_s, Qt::CTRL | Qt::Key_U,
        u"out\n$ mand|"_s);
    row("Control+U at the end takes all", home, Qt::CTRL | Qt::Key_U, u"out\n$ |"_s);
    row("Control+U at the start takes nothing", start, Qt::CTRL | Qt::Key_U, home);
    row("Control+Shift+U counts as Control+U", u"out\n$ com|mand"_s, control_shift | Qt::Key_U,
        u"out\n$ mand|"_s);
    row("Control+U goes by where the caret was before it came home", u"o^ut\n$ com|mand"_s,
        Qt::CTRL | Qt::Key_U, u"out\n$ mand|"_s);
    row("Control+U in the output only comes home", u"ou|t\n$ command"_s, Qt::CTRL | Qt::Key_U, home);
    row("Control+U in the prompt only comes home", u"out\n|$ command"_s, Qt::CTRL | Qt::Key_U, start);
    row("U without Control types", u"out\n$ com|mand"_s, Qt::Key_U, u"out\n$ comu|mand"_s);

    const QString snippet = u"out\n$ commandfennar.cmd(|)"_s;
    row("Control+T at the end", home, Qt::CTRL | Qt::Key_T, snippet);
    row("Control+T in the command", u"out\n$ com|mand"_s, Qt::CTRL | Qt::Key_T, snippet);
    row("Control+T in the prompt", u"out\n$| command"_s, Qt::CTRL | Qt::Key_T, snippet);
    row("Control+T in the output", u"o|ut\n$ command"_s, Qt::CTRL | Qt::Key_T, snippet);
    row("Control+T with a selection in the command", u"out\n$ c^omman|d"_s, Qt::CTRL | Qt::Key_T, snippet);
    row("Control+Shift+T counts as Control+T", home, control_shift | Qt::Key_T, snippet);
    row("Control+Alt+T counts as Control+T", home, Qt::CTRL | Qt::ALT | Qt::Key_T, snippet);
    row("T without Control types", home, Qt::Key_T, u"out\n$ commandt|"_s);
}

void TstCommandWidgetKeys::control_t_works_without_a_prompt()
{
    Page page;
    page.set_state(u"o|ut\nahead"_s);
    page.press(Qt::Key_T, Qt::ControlModifier);
    QCOMPARE(page.state(), u"out\naheadfennar.cmd(|)"_s);
    QVERIFY(page.take_signals().isEmpty());
}

void TstCommandWidgetKeys::other_rows()
{
    row("Delete in the command", u"out\n$ com|mand"_s, Qt::Key_Delete, u"out\n$ com|and"_s);
    row("Delete at the end of the command", u"out\n$ command|"_s, Qt::Key_Delete, u"out\n$ command|"_s);
    row("Delete in the output comes home first", u"ou|t\n$ command"_s, Qt::Key_Delete, u"out\n$ command|"_s);
    row("Delete at the end of the output comes home first", u"out|\n$ command"_s, Qt::Key_Delete,
        u"out\n$ command|"_s);
    row("Delete in the prompt deletes at the command's start", u"out\n|$ command"_s, Qt::Key_Delete,
        u"out\n$ |ommand"_s);
    row("Delete with a selection in the output deletes nothing", u"o^u|t\n$ command"_s, Qt::Key_Delete,
        u"out\n$ command|"_s);
    row("Control+Delete in the command deletes a word", u"out\n$ |one two"_s, Qt::CTRL | Qt::Key_Delete,
        u"out\n$ |two"_s);
    row("Control+Delete in the output comes home first", u"|one two\n$ command"_s, Qt::CTRL | Qt::Key_Delete,
        u"one two\n$ command|"_s);
    row("Tab types a tab", u"out\n$ com|mand"_s, Qt::Key_Tab, u"out\n$ com\t|mand"_s);
    row("Left may go into the prompt", u"out\n$ |command"_s, Qt::Key_Left, u"out\n$| command"_s);
    row("Left may go into the output", u"out\n|$ command"_s, Qt::Key_Left, u"out|\n$ command"_s);
    row("Shift+Left may select the prompt", u"out\n$ |command"_s, Qt::SHIFT | Qt::Key_Left,
        u"out\n$| ^command"_s);
    row("End", u"out\n$ c|ommand"_s, Qt::Key_End, u"out\n$ command|"_s);
    row("PageUp may go into the output", u"one\ntwo\n|$ c"_s, Qt::Key_PageUp, u"|one\ntwo\n$ c"_s);
    row("PageDown may leave it", u"|one\ntwo\n$ c"_s, Qt::Key_PageDown, u"one\ntwo\n|$ c"_s);
}

void TstCommandWidgetKeys::word_rows()
{
    row("blanks behind the prompt", u"out\n$   |"_s, Qt::CTRL | Qt::Key_Backspace, u"out\n$ |"_s);
    row("blanks with a command behind the caret", u"out\n$  |command"_s, Qt::CTRL | Qt::Key_Backspace,
        u"out\n$ |command"_s);
    row("selection into the command, home, blanks only", u"o^ut\n$  | "_s, Qt::CTRL | Qt::Key_Backspace,
        u"out\n$ |"_s);
    row("an empty command", u"out\n$ |"_s, Qt::CTRL | Qt::Key_Backspace, u"out\n$ |"_s);
    row("a word of the command", u"out\n$ one| two"_s, Qt::CTRL | Qt::Key_Backspace, u"out\n$ | two"_s);
    row("in the output", u"out |\n$ command"_s, Qt::CTRL | Qt::Key_Backspace, u"out \n$ command|"_s);
}

void TstCommandWidgetKeys::editing_keys_without_text_act_where_the_caret_is_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QKeyCombination>("key");
    QTest::addColumn<QString>("after");
    const QString caret = u"ou|t\n$ command"_s;
    const QString selection = u"o^u|t\n$ command"_s;
    const QString cut = u"o|t\n$ command"_s;
    QTest::newRow("Delete, caret in the output")
        << caret << QKeyCombination(Qt::Key_Delete) << u"ou|\n$ command"_s;
    QTest::newRow("Delete, selection in the output") << selection << QKeyCombination(Qt::Key_Delete) << cut;
    QTest::newRow("Shift+Delete, selection in the output")
        << selection << (Qt::SHIFT | Qt::Key_Delete) << cut;
    QTest::newRow("Backspace, caret in the output is swallowed")
        << caret << QKeyCombination(Qt::Key_Backspace) << caret;
    QTest::newRow("Backspace, selection in the output")
        << selection << QKeyCombination(Qt::Key_Backspace) << cut;
}

void TstCommandWidgetKeys::editing_keys_without_text_act_where_the_caret_is()
{
    QFETCH(QString, before);
    QFETCH(QKeyCombination, key);
    QFETCH(QString, after);
    Page page;
    page.set_state(before);
    // As from programs that make up events; a keyboard sends these keys with text.
    page.press(key.key(), key.keyboardModifiers(), QString());
    QCOMPARE(page.state(), after);
}

void TstCommandWidgetKeys::pasting_by_key_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<bool>("insertKey");
    QTest::addColumn<QString>("after");
    for (const bool insertKey : {false, true}) {
        const char* name = insertKey ? "Shift+Insert" : "Control+V";
        QTest::addRow("%s in the command", name)
            << u"out\n$ com|mand"_s << insertKey << u"out\n$ comNEW|mand"_s;
        QTest::addRow("%s in the output", name)
            << u"o|ut\n$ command"_s << insertKey << u"out\n$ commandNEW|"_s;
        QTest::addRow("%s with a selection in the output", name)
            << u"o^u|t\n$ command"_s << insertKey << u"out\n$ commandNEW|"_s;
        QTest::addRow("%s with a selection out of the command", name)
            << u"o|ut\n$ com^mand"_s << insertKey << u"out\n$ commandNEW|"_s;
        QTest::addRow("%s with a selection in the command", name)
            << u"out\n$ c^omman|d"_s << insertKey << u"out\n$ cNEW|d"_s;
    }
    // Control+V has text and so comes home by the rule for typing; Shift+Insert has none.
    const QString intoCommand = u"o^ut\n$ com|mand"_s;
    QTest::newRow("Control+V with a selection into the command")
        << intoCommand << false << u"out\n$ commandNEW|"_s;
    QTest::newRow("Shift+Insert with a selection into the command") << intoCommand << true << u"oNEW|mand"_s;
    QTest::newRow("Control+V in the prompt") << u"out\n$| command"_s << false << u"out\n$ NEW|command"_s;
    QTest::newRow("Shift+Insert in the prompt") << u"out\n$| command"_s << true << u"out\n$ commandNEW|"_s;
}

void TstCommandWidgetKeys::pasting_by_key()
{
    QFETCH(QString, before);
    QFETCH(bool, insertKey);
    QFETCH(QString, after);
    QGuiApplication::clipboard()->setText(u"NEW"_s);
    Page page;
    page.set_state(before);
    if (insertKey)
        page.press(Qt::Key_Insert, Qt::ShiftModifier);
    else
        page.press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(page.state(), after);
    QGuiApplication::clipboard()->clear();
}

void TstCommandWidgetKeys::undo_and_redo_change_nothing_data()
{
    QTest::addColumn<QKeyCombination>("key");
    for (const QKeySequence::StandardKey standard : {QKeySequence::Undo, QKeySequence::Redo}) {
        for (const QKeySequence& sequence : QKeySequence::keyBindings(standard))
            QTest::newRow(qPrintable(sequence.toString())) << sequence[0];
    }
}

void TstCommandWidgetKeys::undo_and_redo_change_nothing()
{
    QFETCH(QKeyCombination, key);
    Page page;
    page.printPrompt();
    page.type(u"ls"_s);
    page.printOutput(u"out\n"_s);
    page.press(Qt::Key_X);
    page.press(key.key(), key.keyboardModifiers());
    QCOMPARE(page.state(), u"out\n$ lsx|"_s);
}

void TstCommandWidgetKeys::undo_stays_off_without_a_limit()
{
    Page page;
    page.document()->setMaximumBlockCount(0);
    page.clearToPrompt();
    page.printOutput(u"out\n"_s);
    page.undo();
    QCOMPARE(page.state(), u"out\n$ |"_s);
}

void TstCommandWidgetKeys::overwriting_stays_in_the_command()
{
    Page page;
    page.setOverwriteMode(true);
    page.set_state(u"o|ut\n$ command"_s);
    page.press(Qt::Key_X);
    QCOMPARE(page.state(), u"out\n$ commandx|"_s);
    page.put_caret(5);
    page.press(Qt::Key_X);
    QCOMPARE(page.state(), u"out\n$ x|ommandx"_s);
}

void TstCommandWidgetKeys::a_command_of_right_to_left_text_starts_behind_the_prompt()
{
    // With only a sign of no direction before it, the text makes the whole line run from right to left.
    const QString word = u"\u05E9\u05DC\u05D5\u05DD"_s;
    Page page;
    page.printOutput(u"out\n"_s);
    page.printPrompt();
    page.type(word);
    QCOMPARE(page.document()->lastBlock().textDirection(), Qt::RightToLeft);
    QCOMPARE(page.currentCommand(), word);
    QCOMPARE(page.cursorIndex(), 4);
    page.press(Qt::Key_Home);
    QCOMPARE(page.state(), u"out\n$ |"_s + word);
    page.press(Qt::Key_Backspace);
    QCOMPARE(page.text(), u"out\n$ "_s + word);
}

void TstCommandWidgetKeys::composed_text_never_alters_output_or_prompt_data()
{
    typing_never_alters_output_or_prompt_data();
}

void TstCommandWidgetKeys::composed_text_never_alters_output_or_prompt()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    Page page;
    page.set_state(before);
    // As a dead key or a compose sequence delivers its character.
    QInputMethodEvent event;
    event.setCommitString(u"x"_s);
    QCoreApplication::sendEvent(&page, &event);
    QCOMPARE(page.state(), after);
}

void TstCommandWidgetKeys::composed_lines_stay_in_the_command_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("from the command") << u"out\n$ com|mand"_s << u"out\n$ comone two|mand"_s;
    QTest::newRow("from the output") << u"o|ut\n$ command"_s << u"out\n$ commandone two|"_s;
}

void TstCommandWidgetKeys::composed_lines_stay_in_the_command()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    Page page;
    page.set_state(before);
    // As dictation or a text expander delivers it.
    QInputMethodEvent event;
    event.setCommitString(u"one\ntwo"_s);
    QCoreApplication::sendEvent(&page, &event);
    QCOMPARE(page.state(), after);
}

void TstCommandWidgetKeys::composing_begins_in_the_command()
{
    Page page;
    page.set_state(u"o^u|t\n$ command"_s);
    QInputMethodEvent composing(u"ni"_s, {});
    QCoreApplication::sendEvent(&page, &composing);
    QCOMPARE(page.state(), u"out\n$ command|"_s);
    QCOMPARE(page.document()->lastBlock().layout()->preeditAreaText(), u"ni"_s);
    QInputMethodEvent done;
    done.setCommitString(u"\u4F60"_s);
    QCoreApplication::sendEvent(&page, &done);
    QCOMPARE(page.state(), u"out\n$ command\u4F60|"_s);
    QCOMPARE(page.document()->lastBlock().layout()->preeditAreaText(), QString());
}

void TstCommandWidgetKeys::ending_a_composition_keeps_a_selection_of_output()
{
    Page page;
    page.set_state(u"out\n$ com|mand"_s);
    QInputMethodEvent composing(u"ni"_s, {});
    QCoreApplication::sendEvent(&page, &composing);
    page.put_selection(0, 9);
    QInputMethodEvent cancel;
    QCoreApplication::sendEvent(&page, &cancel);
    QCOMPARE(page.state(), u"out\n$ command|"_s);
    QCOMPARE(page.document()->lastBlock().layout()->preeditAreaText(), QString());
}

void TstCommandWidgetKeys::an_input_method_event_without_text_leaves_the_caret()
{
    Page page;
    page.set_state(u"o^u|t\n$ command"_s);
    QInputMethodEvent event;
    QCoreApplication::sendEvent(&page, &event);
    QCOMPARE(page.state(), u"o^u|t\n$ command"_s);
}

void TstCommandWidgetKeys::composing_goes_on_behind_what_is_printed_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<Print>("print");
    QTest::addColumn<QString>("after");
    const Print output = [](Page& page) { page.printOutput(u"more\n"_s); };
    const Print prompt = [](Page& page) { page.printPrompt(); };
    const Print command = [](Page& page) { page.addExternalCommand(u"ls"_s); };
    QTest::newRow("output") << u"out\n$ com|mand"_s << output << u"out\nmore\n$ comX|mand"_s;
    QTest::newRow("output on the first line") << u"$ com|mand"_s << output << u"more\n$ comX|mand"_s;
    QTest::newRow("a prompt") << u"out\nah|ead"_s << prompt << u"out\n$ ahX|ead"_s;
    QTest::newRow("a command") << u"out\n$ com|mand"_s << command << u"out\n$ ls\nX|"_s;
}

void TstCommandWidgetKeys::composing_goes_on_behind_what_is_printed()
{
    QFETCH(QString, before);
    QFETCH(Print, print);
    QFETCH(QString, after);
    Page page;
    page.set_state(before);
    QTextCharFormat underlined;
    underlined.setFontUnderline(true);
    QInputMethodEvent composing(u"ni"_s, {{QInputMethodEvent::TextFormat, 0, 2, underlined}});
    QCoreApplication::sendEvent(&page, &composing);
    print(page);
    const auto composed = [&page] {
        QStringList lines;
        for (QTextBlock line = page.document()->begin(); line.isValid(); line = line.next())
            lines << line.layout()->preeditAreaText();
        return lines.join(u'|');
    };
    const QString nothing_above(page.blockCount() - 1, u'|');
    QCOMPARE(composed(), nothing_above + u"ni"_s);
    const QTextLayout* const layout = page.document()->lastBlock().layout();
    const int caret = page.textCursor().positionInBlock();
    QCOMPARE(layout->preeditAreaPosition(), caret);
    QCOMPARE(layout->formats().size(), 1);
    QCOMPARE(layout->formats().constFirst().start, caret);
    QVERIFY(layout->formats().constFirst().format.fontUnderline());
    QInputMethodEvent done;
    done.setCommitString(u"X"_s);
    QCoreApplication::sendEvent(&page, &done);
    QCOMPARE(page.state(), after);
    QCOMPARE(composed(), nothing_above);
}

void TstCommandWidgetKeys::replacement_by_an_input_method_stays_in_the_command_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("after");
    QTest::newRow("in the command") << u"out\n$ comma|nd"_s << -2 << 2 << u"out\n$ comX|nd"_s;
    QTest::newRow("behind the caret") << u"out\n$ |command"_s << 0 << 2 << u"out\n$ X|mmand"_s;
    QTest::newRow("from the prompt into the command")
        << u"out\n$ co|mmand"_s << -4 << 4 << u"out\n$ X|mmand"_s;
    QTest::newRow("in the prompt") << u"out\n$ |command"_s << -2 << 1 << u"out\n$ X|command"_s;
    QTest::newRow("over all") << u"out\n$ |command"_s << -2 << 9 << u"out\n$ X|"_s;
    QTest::newRow("of the output") << u"out|\n$ command"_s << -3 << 3 << u"out\n$ commandX|"_s;
    QTest::newRow("with a selection") << u"out\n$ com^man|d"_s << -4 << 4 << u"out\n$ X|d"_s;
}

void TstCommandWidgetKeys::replacement_by_an_input_method_stays_in_the_command()
{
    QFETCH(QString, before);
    QFETCH(int, from);
    QFETCH(int, length);
    QFETCH(QString, after);
    Page page;
    page.set_state(before);
    QInputMethodEvent event;
    event.setCommitString(u"X"_s, from, length);
    QCoreApplication::sendEvent(&page, &event);
    QCOMPARE(page.state(), after);
}

void TstCommandWidgetKeys::read_only_pages_take_no_text_but_still_enter()
{
    Page page;
    page.set_state(u"out\n$ com|mand"_s);
    page.setReadOnly(true);
    page.press(Qt::Key_X);
    page.press(Qt::Key_Backspace);
    page.press(Qt::Key_Delete);
    QCOMPARE(page.text(), u"out\n$ command"_s);
    page.press(Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(page.state(), u"out\n$ command|"_s);
    QCOMPARE(page.take_signals(), QStringList({u"reset"_s, u"entered: command"_s}));
    page.printPrompt();
    QCOMPARE(page.state(), u"out\n$ $ command|"_s);
}

void TstCommandWidgetKeys::read_only_rows()
{
    row("Control+K", u"out\n$ com|mand"_s, Qt::CTRL | Qt::Key_K, u"out\n$ com|"_s);
    row("Control+U", u"out\n$ com|mand"_s, Qt::CTRL | Qt::Key_U, u"out\n$ mand|"_s);
    row("Control+T", u"out\n$ com|mand"_s, Qt::CTRL | Qt::Key_T, u"out\n$ commandfennar.cmd(|)"_s);
    row("Control+Backspace does nothing", u"out\n$   |"_s, Qt::CTRL | Qt::Key_Backspace, u"out\n$   |"_s);
    row("Up still asks for the history", u"out\n$ com|mand"_s, Qt::Key_Up, u"out\n$ com|mand"_s, u"up"_s);
    row("a key in the output still comes home", u"o|ut\n$ command"_s, Qt::Key_X, u"out\n$ command|"_s);
}

void TstCommandWidgetKeys::control_k_u_t_change_read_only_pages()
{
    QFETCH(QString, before);
    QFETCH(QKeyCombination, key);
    QFETCH(QString, after);
    QFETCH(QString, emitted);
    Page page;
    page.set_state(before);
    page.setReadOnly(true);
    page.press(key.key(), key.keyboardModifiers());
    QCOMPARE(page.state(), after);
    QCOMPARE(page.take_signals().join(u"; "_s), emitted);
}

void TstCommandWidgetKeys::set_read_only_switches_both_ways()
{
    Page page;
    QVERIFY(!page.isReadOnly());
    // As the console owner connects it.
    QVERIFY(QMetaObject::invokeMethod(&page, "setReadOnly", Q_ARG(bool, true)));
    QVERIFY(page.isReadOnly());
    page.setReadOnly(false);
    QVERIFY(!page.isReadOnly());
    page.press(Qt::Key_X);
    QCOMPARE(page.text(), u"x"_s);
}

OSTREL_TEST(TstCommandWidgetKeys)
#include "tst_commandwidget_keys.moc"
