// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"
#include "page.h"
#include "support/TestCase.h"
#include "support/drops.h"
#include "support/menus.h"
#include "support/windows.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QEnterEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QVBoxLayout>

#include <functional>
#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

using Act = std::function<void()>;

/** A way for the user to bring @p text to a page. */
using Bring = void (*)(Page& page, const QString& text);

void by_key(Page& page, const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(&page, Qt::Key_V, Qt::ControlModifier);
}

void by_key_without_text(Page& page, const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick(&page, Qt::Key_Insert, Qt::ShiftModifier);
}

void by_drop(Page& page, const QString& text)
{
    // A test may let the page go, so whether the drop was taken is for the test to see from what follows.
    static_cast<void>(drop_text(page.viewport(), page.middle_of(page.textCursor().position()), text));
}

void by_menu(Page& page, const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    const MenuDriver driver([](QMenu* menu) { choose(menu, u"&Paste"_s); });
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(10, 10), page.mapToGlobal(QPoint(10, 10)));
    QCoreApplication::sendEvent(page.viewport(), &event);
}

void by_program(Page& page, const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    page.paste();
}

void ways_to_bring_text()
{
    QTest::addColumn<Bring>("bring");
    QTest::newRow("Ctrl+V") << Bring(by_key);
    QTest::newRow("Shift+Insert") << Bring(by_key_without_text);
    QTest::newRow("drop") << Bring(by_drop);
    QTest::newRow("menu") << Bring(by_menu);
    QTest::newRow("program") << Bring(by_program);
}

/** Acts once when the widget gets the focus. */
class FocusAct : public QObject
{
public:
    FocusAct(QWidget* watched, Act act) : QObject(watched), mAct(std::move(act))
    {
        watched->installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::FocusIn)
            return false;
        if (const Act act = std::exchange(mAct, nullptr))
            act();
        return false;
    }

private:
    Act mAct;
};

/** Throws when it has pasted. Slots of a page's text may do so, too, but Qt then loses memory. */
class ThrowingPage : public Page
{
public:
    void insertFromMimeData(const QMimeData* source) override
    {
        Page::insertFromMimeData(source);
        if (throws)
            throw std::runtime_error("from a page");
    }

    bool throws = false;
};

/** Acts while it is destroyed, when it is a page still. */
class PartingPage : public CommandWidget
{
public:
    ~PartingPage() override
    {
        if (on_parting)
            on_parting();
    }

    Act on_parting;
};

/** Acts once when another tab has been chosen. */
class TabAct : public CommandWindow
{
public:
    void tabPageChanged(int index) override
    {
        if (const Act act = std::exchange(on_change, nullptr))
            act();
        else
            CommandWindow::tabPageChanged(index);
    }

    Act on_change;
};

/** A console in a window with a field outside of it, which has the focus. */
struct Console
{
    Console()
    {
        auto* layout = new QVBoxLayout(&frame);
        layout->addWidget(window);
        layout->addWidget(outside);
    }
    [[nodiscard]] bool show()
    {
        if (!show_active(&frame))
            return false;
        outside->setFocus();
        return outside->hasFocus();
    }
    Page* add(const QString& title)
    {
        auto* page = new Page;
        window->add_command_tab(title, page);
        return page;
    }
    QTabWidget* tabs() const { return window->findChild<QTabWidget*>(u"mCommandTab"_s); }
    QPushButton* button(const QString& name) const { return window->findChild<QPushButton*>(name); }

    QWidget frame;
    QPointer<TabAct> window = new TabAct;
    QLineEdit* outside = new QLineEdit;
};

} // namespace

Q_DECLARE_METATYPE(Bring)

/** Slots and widgets that act on the console in the middle of its work. */
class TstConsoleActs : public TestCase
{
    Q_OBJECT

private slots:
    // The page
    void output_follows_while_entered_lines_run_data() { ways_to_bring_text(); }
    void output_follows_while_entered_lines_run();
    void page_may_go_when_lines_are_entered_data() { ways_to_bring_text(); }
    void page_may_go_when_lines_are_entered();
    void lines_that_are_brought_while_lines_run_come_at_once();
    void lines_are_entered_after_a_paste_has_thrown();
    void drop_with_output_selected_lands_under_the_pointer();
    void drop_into_a_command_that_is_out_of_view_may_make_it_longer();
    void page_may_go_when_the_history_is_reset();
    void command_is_the_same_after_the_history_is_reset();
    void texts_are_the_same_after_a_slot_has_run();
    void prompt_is_printed_once_if_a_slot_prints_it_too();
    void page_may_go_when_it_is_cleared_from_its_menu();
    void page_may_go_when_the_caret_comes_home_data();
    void page_may_go_when_the_caret_comes_home();
    void command_may_shrink_when_the_caret_comes_home_data();
    void command_may_shrink_when_the_caret_comes_home();

    // The console
    void pages_that_leave_while_all_are_cleared_data();
    void pages_that_leave_while_all_are_cleared();
    void console_may_go_while_pages_are_cleared();
    void page_that_leaves_while_prompts_change_leaves_the_others_theirs();
    void mode_that_changes_back_while_prompts_change_holds();
    void console_may_go_while_prompts_change();
    void limit_set_while_limits_are_set_holds_for_all_pages();
    void command_of_no_page_is_empty();
    void page_that_leaves_with_the_focus_is_not_the_working_one();
    void tab_chosen_with_the_focus_holds();
    void page_may_go_when_it_is_added_data();
    void page_may_go_when_it_is_added();
    void page_may_go_when_it_is_switched_to_data();
    void page_may_go_when_it_is_switched_to();
    void console_may_go_when_it_prints();
    void console_may_go_when_it_shows_a_prompt();
    void console_may_go_when_a_mode_is_asked_for_data();
    void console_may_go_when_a_mode_is_asked_for();
    void pages_that_go_with_the_console_find_it_whole();
};

// The page

void TstConsoleActs::output_follows_while_entered_lines_run()
{
    QFETCH(const Bring, bring);
    Page page;
    page.set_state(u"$ cd|"_s);
    page.document()->setMaximumBlockCount(100);
    QVERIFY(show_active(&page));
    int runs = 0;
    int blocks = 0;
    int below = -1;
    connect(&page, &CommandWidget::commandsEntered, &page, [&] {
        ++runs;
        for (int line = 0; line < 300; ++line)
            page.printOutput(u"output %1\n"_s.arg(line));
        blocks = page.document()->blockCount();
        below = page.verticalScrollBar()->maximum() - page.verticalScrollBar()->value();
    });
    bring(page, u"one\ntwo"_s);
    QCOMPARE(runs, 1);
    QCOMPARE(blocks, 100);
    QVERIFY(page.verticalScrollBar()->maximum() > 0);
    QCOMPARE(below, 0);
    QCOMPARE(page.take_signals(), QStringList{u"lines: one, two"_s});
    QCOMPARE(page.currentCommand(), u"cd"_s);
}

void TstConsoleActs::page_may_go_when_lines_are_entered()
{
    QFETCH(const Bring, bring);
    const QPointer<Page> page = new Page;
    page->set_state(u"$ cd|"_s);
    QVERIFY(show_active(page));
    connect(page, &CommandWidget::commandsEntered, this, [&] { delete page; });
    bring(*page, u"one\ntwo"_s);
    QVERIFY(!page);
}

void TstConsoleActs::lines_that_are_brought_while_lines_run_come_at_once()
{
    Page first;
    Page second;
    QVERIFY(show_active(&first));
    QStringList inner;
    connect(&first, &CommandWidget::commandsEntered, &first, [&] {
        by_key(second, u"three\nfour"_s);
        inner = second.take_signals();
    });
    by_drop(first, u"one\ntwo"_s);
    QCOMPARE(inner, QStringList{u"lines: three, four"_s});
}

void TstConsoleActs::lines_are_entered_after_a_paste_has_thrown()
{
    ThrowingPage page;
    QVERIFY(show_active(&page));
    QGuiApplication::clipboard()->setText(u"one\ntwo"_s);
    page.throws = true;
    // Not sent: Qt's delivery of keys would lose memory.
    QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier);
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, static_cast<QObject&>(page).event(&paste));
    page.throws = false;
    // What was pasted then does not come behind something else.
    page.type(u"x"_s);
    QCOMPARE(page.take_signals(), QStringList());
    by_key(page, u"three\nfour"_s);
    QCOMPARE(page.take_signals(), QStringList{u"lines: three, four"_s});
}

void TstConsoleActs::drop_into_a_command_that_is_out_of_view_may_make_it_longer()
{
    Page page;
    page.set_state(u"$ ab|"_s);
    QVERIFY(show_active(&page));
    // The caret cannot be brought into view, and will be behind the text that is laid out.
    page.setFixedHeight(page.height() - page.viewport()->height());
    QCOMPARE(page.viewport()->height(), 0);
    QVERIFY(drop_text(page.viewport(), page.middle_of(3), u"longer than before"_s));
    QCOMPARE(page.currentCommand(), u"alonger than beforeb"_s);
}

void TstConsoleActs::drop_with_output_selected_lands_under_the_pointer()
{
    Page page;
    const QString command(300, u'x');
    page.set_state(u"^out|\n$ "_s + command);
    QVERIFY(show_active(&page));
    QScrollBar* bar = page.horizontalScrollBar();
    bar->setValue(bar->minimum());
    QVERIFY(bar->maximum() > page.viewport()->width());
    QVERIFY(drop_text(page.viewport(), page.middle_of(10), u"NEW"_s));
    QString expected = command;
    expected.insert(4, u"NEW"_s);
    QCOMPARE(page.currentCommand(), expected);
}

void TstConsoleActs::page_may_go_when_the_history_is_reset()
{
    const QPointer<Page> page = new Page;
    page->set_state(u"$ cd|"_s);
    QVERIFY(show_active(page));
    connect(page, &CommandWidget::resetHistoryIndex, this, [&] { delete page; });
    QTest::keyClick(page, Qt::Key_Return);
    QVERIFY(!page);
}

void TstConsoleActs::command_is_the_same_after_the_history_is_reset()
{
    Page page;
    auto recalled = std::make_unique<QString>(QString(u"recalled"_s).append(u'!'));
    connect(&page, &CommandWidget::resetHistoryIndex, &page, [&] { recalled.reset(); });
    page.new_command(*recalled);
    QCOMPARE(page.take_signals(), QStringList({u"reset"_s, u"entered: recalled!"_s}));
}

void TstConsoleActs::texts_are_the_same_after_a_slot_has_run()
{
    // Texts that a slot takes away as soon as the page changes.
    std::unique_ptr<QString> text;
    std::unique_ptr<QByteArray> indent;
    const auto forget = [&] {
        text.reset();
        indent.reset();
    };
    Page page;
    connect(&page, &QPlainTextEdit::textChanged, &page, forget);
    connect(&page, &QPlainTextEdit::cursorPositionChanged, &page, forget);

    text = std::make_unique<QString>(QString(u"external"_s).append(u'!'));
    page.addExternalCommand(*text);
    QCOMPARE(page.text(), u"$ external!\n"_s);
    indent = std::make_unique<QByteArray>("   ");
    page.printPrompt(false, indent->constData());
    QCOMPARE(page.text(), u"$ external!\n$    "_s);
    page.put_caret(0);
    text = std::make_unique<QString>(QString(u"inserted"_s).append(u'!'));
    page.insertInCommand(*text);
    QCOMPARE(page.text(), u"$ external!\n$    inserted!"_s);
}

void TstConsoleActs::prompt_is_printed_once_if_a_slot_prints_it_too()
{
    Page page;
    connect(&page, &QPlainTextEdit::textChanged, &page, [&] { page.printPrompt(); });
    page.printPrompt();
    QCOMPARE(page.text(), u"$ "_s);
}

void TstConsoleActs::page_may_go_when_it_is_cleared_from_its_menu()
{
    const QPointer<Page> page = new Page;
    QVERIFY(show_active(page));
    connect(page, &CommandWidget::contentsCleared, this, [&] { delete page; });
    const MenuDriver driver([](QMenu* menu) { choose(menu, u"Clear"_s); });
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(10, 10), page->mapToGlobal(QPoint(10, 10)));
    QCoreApplication::sendEvent(page->viewport(), &event);
    QVERIFY(!page);
}

void TstConsoleActs::page_may_go_when_the_caret_comes_home_data()
{
    QTest::addColumn<std::function<void(Page&)>>("edit");
    const auto data_row = [](const char* name, const std::function<void(Page&)>& edit) {
        QTest::newRow(name) << edit;
    };
    data_row("typing", [](Page& page) { QTest::keyClick(&page, Qt::Key_X); });
    data_row("deleting", [](Page& page) { page.press(Qt::Key_Delete); });
    data_row("a shortcut", [](Page& page) { page.press(Qt::Key_K, Qt::ControlModifier); });
    data_row("entering", [](Page& page) { QTest::keyClick(&page, Qt::Key_Return); });
    data_row("composing", [](Page& page) {
        QInputMethodEvent composed;
        composed.setCommitString(u"x"_s);
        QCoreApplication::sendEvent(&page, &composed);
    });
    data_row("inserting", [](Page& page) { page.insertInCommand(u"x"_s); });
    data_row("pasting", [](Page& page) { by_key(page, u"x"_s); });
    data_row("dropping", [](Page& page) { by_drop(page, u"x"_s); });
    data_row("dropping lines", [](Page& page) { by_drop(page, u"x\ny"_s); });
}

void TstConsoleActs::page_may_go_when_the_caret_comes_home()
{
    QFETCH(const std::function<void(Page&)>, edit);
    const QPointer<Page> page = new Page;
    page->set_state(u"o^u|t\n$ cd"_s);
    QVERIFY(show_active(page));
    connect(page, &QPlainTextEdit::cursorPositionChanged, this, [&] { delete page; });
    edit(*page);
    QVERIFY(!page);
}

void TstConsoleActs::command_may_shrink_when_the_caret_comes_home_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Ctrl+K") << int(Qt::Key_K);
    QTest::newRow("Ctrl+U") << int(Qt::Key_U);
}

void TstConsoleActs::command_may_shrink_when_the_caret_comes_home()
{
    QFETCH(const int, key);
    Page page;
    page.set_state(u"o^ut\n$ comma|nd"_s);
    QVERIFY(show_active(&page));
    bool done = false;
    connect(&page, &QPlainTextEdit::cursorPositionChanged, this, [&] {
        if (!std::exchange(done, true))
            page.setCurrentCommand(u"cd"_s);
    });
    page.press(key, Qt::ControlModifier);
    QVERIFY(done);
    QCOMPARE(page.currentCommand(), key == Qt::Key_K ? u"cd"_s : QString());
}

// The console

void TstConsoleActs::pages_that_leave_while_all_are_cleared_data()
{
    QTest::addColumn<int>("leaving");
    QTest::addColumn<bool>("deleted");
    for (const bool deleted : {false, true}) {
        for (const int leaving : {0, 1, 2})
            QTest::addRow("page %d is %s", leaving, deleted ? "deleted" : "removed") << leaving << deleted;
    }
}

void TstConsoleActs::pages_that_leave_while_all_are_cleared()
{
    QFETCH(const int, leaving);
    QFETCH(const bool, deleted);
    Console console;
    QList<QPointer<Page>> pages;
    for (const QString& title : {u"one"_s, u"two"_s, u"three"_s}) {
        pages << console.add(title);
        pages.last()->set_state(u"out\n$ cd"_s);
    }
    const std::unique_ptr<Page> removed(deleted ? nullptr : pages.at(leaving));
    connect(pages.first(), &CommandWidget::contentsCleared, this, [&] {
        if (deleted) {
            delete pages.at(leaving);
        } else {
            console.window->remove_command_tab(removed.get());
            removed->setParent(nullptr);
        }
    });
    console.window->clear_contents();
    QCOMPARE(console.tabs()->count(), 2);
    for (int index = 0; index < 3; ++index) {
        if (index != leaving)
            QCOMPARE(pages.at(index)->text(), u"$ "_s);
    }
    // A page that has left is no longer the console's to clear.
    if (removed)
        QCOMPARE(removed->text(), leaving == 0 ? u"$ "_s : u"out\n$ cd"_s);
}

void TstConsoleActs::console_may_go_while_pages_are_cleared()
{
    Console console;
    const Page* first = console.add(u"one"_s);
    console.add(u"two"_s);
    connect(first, &CommandWidget::contentsCleared, this, [&] { delete console.window; });
    console.window->clear_contents();
    QVERIFY(!console.window);
}

void TstConsoleActs::page_that_leaves_while_prompts_change_leaves_the_others_theirs()
{
    Console console;
    Page* first = console.add(u"one"_s);
    const Page* second = console.add(u"two"_s);
    first->printPrompt();
    connect(first, &QPlainTextEdit::textChanged, this, [&] { console.window->remove_command_tab(first); });
    console.window->set_python_mode(true);
    QCOMPARE(console.tabs()->count(), 1);
    QCOMPARE(second->prompt(), u">>>"_s);
}

void TstConsoleActs::mode_that_changes_back_while_prompts_change_holds()
{
    Console console;
    Page* first = console.add(u"one"_s);
    const Page* second = console.add(u"two"_s);
    first->printPrompt();
    connect(first, &QPlainTextEdit::textChanged, this, [&] { console.window->set_python_mode(false); });
    console.window->set_python_mode(true);
    QCOMPARE(first->prompt(), u"Fennar>"_s);
    QCOMPARE(second->prompt(), u"Fennar>"_s);
    QVERIFY(console.button(u"mFennarButton"_s)->isChecked());
    QVERIFY(!console.button(u"mPythonButton"_s)->isChecked());
}

void TstConsoleActs::console_may_go_while_prompts_change()
{
    Console console;
    auto* first = new PartingPage;
    console.window->add_command_tab(u"one"_s, first);
    auto* second = new PartingPage;
    console.window->add_command_tab(u"two"_s, second);
    // A text page cannot be deleted while it tells that its text changes, so it leaves the console first.
    const std::unique_ptr<PartingPage> saved(first);
    first->printPrompt();
    connect(first, &QPlainTextEdit::textChanged, this, [&] {
        if (!console.window)
            return;
        console.window->remove_command_tab(first);
        first->setParent(nullptr);
        delete console.window;
    });
    console.window->set_python_mode(true);
    QVERIFY(!console.window);
    QCOMPARE(first->prompt(), u">>>"_s);
}

void TstConsoleActs::limit_set_while_limits_are_set_holds_for_all_pages()
{
    Console console;
    Page* first = console.add(u"one"_s);
    const Page* second = console.add(u"two"_s);
    for (int line = 0; line < 20; ++line)
        first->printOutput(u"output\n"_s);
    bool done = false;
    connect(first, &QPlainTextEdit::textChanged, this, [&] {
        if (!std::exchange(done, true))
            console.window->set_cmd_max_lines(7);
    });
    console.window->set_cmd_max_lines(5);
    QVERIFY(done);
    QCOMPARE(console.window->get_cmd_max_lines(), 7);
    QCOMPARE(second->document()->maximumBlockCount(), 7);
}

void TstConsoleActs::command_of_no_page_is_empty()
{
    Console console;
    QString command = u"old"_s;
    int index = 7;
    console.window->current_command_and_index(command, index);
    QCOMPARE(command, QString());
    QCOMPARE(index, 0);

    Page* page = console.add(u"page"_s);
    page->set_state(u"$ cd|"_s);
    console.window->current_command_and_index(command, index);
    QCOMPARE(command, u"cd"_s);
    QCOMPARE(index, 2);
    delete page;
    console.window->current_command_and_index(command, index);
    QCOMPARE(command, QString());
    QCOMPARE(index, 0);
}

void TstConsoleActs::page_that_leaves_with_the_focus_is_not_the_working_one()
{
    Console console;
    Page* stays = console.add(u"stays"_s);
    Page* leaves = console.add(u"leaves"_s);
    console.window->switchTab(stays);
    QVERIFY(console.show());
    new FocusAct(leaves, [&] { console.window->remove_command_tab(leaves); });
    console.tabs()->setCurrentWidget(leaves);
    QCOMPARE(console.tabs()->count(), 1);
    console.window->append_command(u"typed"_s);
    QCOMPARE(stays->text(), u"typed"_s);
    QCOMPARE(leaves->text(), QString());
}

void TstConsoleActs::tab_chosen_with_the_focus_holds()
{
    Console console;
    Page* first = console.add(u"first"_s);
    Page* second = console.add(u"second"_s);
    const Page* third = console.add(u"third"_s);
    QVERIFY(console.show());
    new FocusAct(second, [&] { console.window->switchTab(first); });
    console.tabs()->setCurrentWidget(second);
    QCOMPARE(console.tabs()->currentWidget(), first);
    console.window->append_command(u"typed"_s);
    QCOMPARE(first->text(), u"typed"_s);
    QCOMPARE(second->text() + third->text(), QString());
}

void TstConsoleActs::page_may_go_when_it_is_added_data()
{
    QTest::addColumn<bool>("first");
    QTest::addColumn<bool>("deleted");
    QTest::newRow("the first, removed") << true << false;
    QTest::newRow("the first, deleted") << true << true;
    QTest::newRow("another, removed") << false << false;
    QTest::newRow("another, deleted") << false << true;
}

void TstConsoleActs::page_may_go_when_it_is_added()
{
    QFETCH(const bool, first);
    QFETCH(const bool, deleted);
    Console console;
    const Page* other = first ? nullptr : console.add(u"other"_s);
    QVERIFY(console.show());
    const QPointer<Page> page = new Page;
    console.window->on_change = [&] {
        console.window->remove_command_tab(page);
        if (deleted)
            delete page;
    };
    console.window->add_command_tab(u"page"_s, page);
    QCOMPARE(console.tabs()->count(), first ? 0 : 1);
    console.window->append_command(u"typed"_s);
    if (other)
        QCOMPARE(other->text(), u"typed"_s);
    if (!deleted)
        QCOMPARE(page->text(), QString());
}

void TstConsoleActs::page_may_go_when_it_is_switched_to_data()
{
    QTest::addColumn<bool>("deleted");
    QTest::newRow("removed") << false;
    QTest::newRow("deleted") << true;
}

void TstConsoleActs::page_may_go_when_it_is_switched_to()
{
    QFETCH(const bool, deleted);
    Console console;
    const QPointer<Page> page = console.add(u"page"_s);
    console.add(u"other"_s);
    QVERIFY(console.show());
    console.window->on_change = [&] {
        console.window->remove_command_tab(page);
        if (deleted)
            delete page;
    };
    console.window->switchTab(page);
    QCOMPARE(console.tabs()->count(), 1);
    QVERIFY(deleted || !page->hasFocus());
}

void TstConsoleActs::console_may_go_when_it_prints()
{
    Console console;
    connect(console.window, &CommandWindow::dataToPrint, this, [&] { delete console.window; });
    console.window->print_data(u"line\n"_s);
    QVERIFY(!console.window);
}

void TstConsoleActs::console_may_go_when_it_shows_a_prompt()
{
    Console console;
    connect(console.window, &CommandWindow::readyForPrompt, this, [&] { delete console.window; });
    console.window->print_prompt(false, nullptr);
    QVERIFY(!console.window);
}

void TstConsoleActs::console_may_go_when_a_mode_is_asked_for_data()
{
    QTest::addColumn<bool>("by_tab");
    QTest::newRow("with the first page's tab") << true;
    QTest::newRow("with the request") << false;
}

void TstConsoleActs::console_may_go_when_a_mode_is_asked_for()
{
    QFETCH(const bool, by_tab);
    Console console;
    console.add(u"page"_s);
    console.add(u"other"_s);
    QVERIFY(console.show());
    if (by_tab)
        console.window->on_change = [&] { delete console.window; };
    else
        connect(console.window, &CommandWindow::commandModeChanged, this, [&] { delete console.window; });
    QTest::mouseClick(console.button(u"mPythonButton"_s), Qt::LeftButton);
    QVERIFY(!console.window);
}

void TstConsoleActs::pages_that_go_with_the_console_find_it_whole()
{
    Console console;
    // What is derived of it has gone by then.
    CommandWindow* window = console.window;
    int partings = 0;
    for (const QString& title : {u"one"_s, u"two"_s, u"removed"_s}) {
        auto* page = new PartingPage;
        console.window->add_command_tab(title, page);
        page->on_parting = [&, page] {
            ++partings;
            window->set_tab_warning(page);
            window->print_data(u"line\n"_s);
            window->append_command(u"typed"_s);
            window->clear_contents();
            window->set_font(QFont());
            window->set_python_mode(partings % 2 == 1);
            window->switchTab(page);
            window->remove_command_tab(page);
        };
    }
    console.window->remove_command_tab(console.tabs()->widget(2));
    delete window;
    QCOMPARE(partings, 3);
}

OSTREL_TEST(TstConsoleActs)
#include "tst_console_acts.moc"
