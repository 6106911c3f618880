// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "hostdouble/HostDouble.h"
#include "support/TestCase.h"
#include "support/windows.h"

#include <QApplication>
#include <QPaintEvent>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTest>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

const auto marker_event = static_cast<QEvent::Type>(QEvent::registerEventType());

/** Notes the area of each paint event of a widget. */
class PaintSpy : public QObject
{
    Q_OBJECT

public:
    explicit PaintSpy(QWidget* watched) { watched->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            areas << static_cast<QPaintEvent*>(event)->rect();
        return QObject::eventFilter(watched, event);
    }

    QList<QRect> areas;
};

/** Counts the marker events that arrive. Each is posted, so it arrives only when posted events are sent. */
class Mailbox : public QObject
{
    Q_OBJECT

public:
    void post() { QCoreApplication::postEvent(this, new QEvent(marker_event)); }

    bool event(QEvent* event) override
    {
        if (event->type() == marker_event)
            ++arrived;
        return QObject::event(event);
    }

    int arrived = 0;
};

/** A console inside of a window, as in a dock: below a title bar. */
struct DockedConsole
{
    DockedConsole()
    {
        frame.resize(600, 400);
        window->setGeometry(0, 20, 600, 380);
    }

    QWidget frame;
    CommandWindow* window = new CommandWindow(&frame);
};

/** Makes the connections that the owner of a console makes. */
void connect_page(const CommandWindow& window, const CommandWidget& page, Qt::ConnectionType type)
{
    QObject::connect(&window, &CommandWindow::readOnlyChanged, &page, &CommandWidget::setReadOnly, type);
    QObject::connect(&window, &CommandWindow::readyForPrompt, &page, &CommandWidget::printPrompt, type);
    QObject::connect(&window, &CommandWindow::dataToPrint, &page, &CommandWidget::printOutput, type);
    QObject::connect(&window, &CommandWindow::commandToPrint, &page, &CommandWidget::addExternalCommand,
                     type);
}

/** Calls everything that reaches a page through a signal. */
void say_everything(OutputHandler& output)
{
    output.set_read_only(true);
    output.print_data(u"some output"_s);
    output.print_command(u"a command"_s);
    output.print_prompt(false, "indent");
}

const QString everything_said = u"some output\n$ a command\n$ indent"_s;

} // namespace

class TstCommandWindowOutput : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    // Signals
    void read_only_is_passed_on();
    void prompt_is_passed_on_data();
    void prompt_is_passed_on();
    void output_is_passed_on_data();
    void output_is_passed_on();
    void command_is_passed_on_data();
    void command_is_passed_on();
    void signals_fit_the_slots_of_a_page();
    void signals_fit_the_slots_of_a_page_by_name();
    void window_connects_no_page_by_itself();
    void queued_connections_decouple_the_page();
    void string_signals_carry_their_own_copy();
    void another_thread_reaches_the_page_through_queued_connections();
    void host_reaches_the_window_through_its_interface();

    // The screen
    void finished_line_is_painted_at_once();
    void finished_line_sends_no_posted_events_once_a_prompt_was_printed();
    void output_without_final_newline_is_not_painted_data();
    void output_without_final_newline_is_not_painted();
    void finished_line_before_the_first_prompt_sends_posted_events();
    void a_receiver_may_change_the_text_that_was_passed();
    void output_without_final_newline_before_the_first_prompt_sends_nothing_data();
    void output_without_final_newline_before_the_first_prompt_sends_nothing();
    void output_printed_during_the_first_prompt_sends_posted_events();
    void prompt_stays_printed_when_pages_go();
    void any_prompt_counts_as_printed();
    void page_has_the_text_before_the_screen_is_served();
    void repainted_area_is_the_geometry_within_the_parent();
    void nothing_is_painted_where_the_geometry_misses_the_window();
    void hidden_window_is_not_painted();
    void other_operations_neither_paint_nor_send_events();

    // The command being typed
    void appended_text_goes_behind_the_command();
    void inserted_text_goes_to_the_caret();
    void typed_text_reaches_only_the_working_page();
    void empty_text_is_not_typed_data();
    void empty_text_is_not_typed();
    void typing_without_working_page_does_nothing();
    void typing_takes_no_signal();
};

void TstCommandWindowOutput::set_up()
{
    HostDouble::instance().reset();
}

// Signals

void TstCommandWindowOutput::read_only_is_passed_on()
{
    CommandWindow window;
    const QSignalSpy spy(&window, &CommandWindow::readOnlyChanged);
    OutputHandler& output = window;
    output.set_read_only(true);
    output.set_read_only(true);
    output.set_read_only(false);
    QCOMPARE(spy, (QList<QVariantList>{{true}, {true}, {false}}));
}

void TstCommandWindowOutput::prompt_is_passed_on_data()
{
    QTest::addColumn<bool>("continuation");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("plain, without indent") << false << QByteArray();
    QTest::newRow("continued, with indent") << true << "    "_ba;
    QTest::newRow("empty indent") << true << ""_ba;
    QTest::newRow("indent beyond ASCII") << false << "\xc3\xa9"_ba;
}

void TstCommandWindowOutput::prompt_is_passed_on()
{
    QFETCH(const bool, continuation);
    QFETCH(const QByteArray, text);
    const char* const indent = text.isNull() ? nullptr : text.constData();
    CommandWindow window;
    QList<std::pair<bool, const char*>> prompts;
    connect(&window, &CommandWindow::readyForPrompt, this,
            [&](bool use_continue, const char* given) { prompts.emplaceBack(use_continue, given); });
    static_cast<OutputHandler&>(window).print_prompt(continuation, indent);
    QCOMPARE(prompts.size(), 1);
    QCOMPARE(prompts[0].first, continuation);
    QCOMPARE(static_cast<const void*>(prompts[0].second), static_cast<const void*>(indent));
}

void TstCommandWindowOutput::output_is_passed_on_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a piece of a line") << u"piece"_s;
    QTest::newRow("a line") << u"line\n"_s;
    QTest::newRow("lines") << u"one\n\ntwo\n"_s;
    QTest::newRow("newline alone") << u"\n"_s;
    QTest::newRow("empty") << u""_s;
    QTest::newRow("null") << QString();
    QTest::newRow("carriage return and zero") << u"a\r\n"_s + QChar(0) + u'b';
    QTest::newRow("long") << QString(1'000'000, u'x');
}

void TstCommandWindowOutput::output_is_passed_on()
{
    QFETCH(const QString, text);
    CommandWindow window;
    const QSignalSpy spy(&window, &CommandWindow::dataToPrint);
    static_cast<OutputHandler&>(window).print_data(text);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy[0][0].toString(), text);
    QCOMPARE(spy[0][0].toString().isNull(), text.isNull());
}

void TstCommandWindowOutput::command_is_passed_on_data()
{
    output_is_passed_on_data();
}

void TstCommandWindowOutput::command_is_passed_on()
{
    QFETCH(const QString, text);
    CommandWindow window;
    const QSignalSpy spy(&window, &CommandWindow::commandToPrint);
    static_cast<OutputHandler&>(window).print_command(text);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy[0][0].toString(), text);
    QCOMPARE(spy[0][0].toString().isNull(), text.isNull());
}

void TstCommandWindowOutput::signals_fit_the_slots_of_a_page()
{
    CommandWindow window;
    CommandWidget page;
    connect_page(window, page, Qt::DirectConnection);
    say_everything(window);
    QCOMPARE(page.toPlainText(), everything_said);
    QVERIFY(page.isReadOnly());
}

void TstCommandWindowOutput::signals_fit_the_slots_of_a_page_by_name()
{
    CommandWindow window;
    CommandWidget page;
    QVERIFY(connect(&window, SIGNAL(readOnlyChanged(bool)), &page, SLOT(setReadOnly(bool))));
    QVERIFY(connect(&window, SIGNAL(readyForPrompt(bool, const char*)), &page,
                    SLOT(printPrompt(bool, const char*))));
    QVERIFY(connect(&window, SIGNAL(dataToPrint(QString)), &page, SLOT(printOutput(QString))));
    QVERIFY(connect(&window, SIGNAL(commandToPrint(QString)), &page, SLOT(addExternalCommand(QString))));
    say_everything(window);
    QCOMPARE(page.toPlainText(), everything_said);
    QVERIFY(page.isReadOnly());
}

void TstCommandWindowOutput::window_connects_no_page_by_itself()
{
    CommandWindow window;
    auto* page = new CommandWidget;
    window.add_command_tab(u"page"_s, page);
    auto* log = new QPlainTextEdit;
    window.add_command_tab(u"log"_s, log);
    say_everything(window);
    QCOMPARE(page->toPlainText(), QString());
    QVERIFY(!page->isReadOnly());
    QCOMPARE(log->toPlainText(), QString());
}

void TstCommandWindowOutput::queued_connections_decouple_the_page()
{
    CommandWindow window;
    CommandWidget page;
    connect_page(window, page, Qt::QueuedConnection);
    say_everything(window);
    QCOMPARE(page.toPlainText(), QString());
    QVERIFY(!page.isReadOnly());
    QCoreApplication::sendPostedEvents(&page, QEvent::MetaCall);
    QCOMPARE(page.toPlainText(), everything_said);
    QVERIFY(page.isReadOnly());
}

void TstCommandWindowOutput::string_signals_carry_their_own_copy()
{
    CommandWindow window;
    QStringList received;
    connect(
        &window, &CommandWindow::dataToPrint, this, [&](const QString& text) { received << text; },
        Qt::QueuedConnection);
    connect(
        &window, &CommandWindow::commandToPrint, this, [&](const QString& text) { received << text; },
        Qt::QueuedConnection);
    QString text = u"before"_s;
    window.print_data(text);
    text[0] = u'B';
    window.print_command(text);
    text.fill(u'-');
    QCOMPARE(received, QStringList());
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    QCOMPARE(received, (QStringList{u"before"_s, u"Before"_s}));
}

void TstCommandWindowOutput::another_thread_reaches_the_page_through_queued_connections()
{
    CommandWindow window;
    CommandWidget page;
    connect_page(window, page, Qt::AutoConnection);
    const std::unique_ptr<QThread> thread(QThread::create([&window] { say_everything(window); }));
    thread->start();
    QVERIFY(thread->wait());
    QCOMPARE(page.toPlainText(), QString());
    QCoreApplication::sendPostedEvents(&page, QEvent::MetaCall);
    QCOMPARE(page.toPlainText(), everything_said);
    QVERIFY(page.isReadOnly());
}

void TstCommandWindowOutput::host_reaches_the_window_through_its_interface()
{
    // The host keeps the interface only, and knows nothing of widgets.
    CommandWindow window;
    auto* output = static_cast<OutputHandler*>(window.qt_metacast("OutputHandler"));
    CommandWidget page;
    connect_page(window, page, Qt::DirectConnection);
    say_everything(*output);
    QCOMPARE(page.toPlainText(), everything_said);
}

// The screen

void TstCommandWindowOutput::finished_line_is_painted_at_once()
{
    DockedConsole console;
    auto* page = new CommandWidget;
    console.window->add_command_tab(u"page"_s, page);
    connect_page(*console.window, *page, Qt::DirectConnection);
    console.window->print_prompt(false, nullptr);
    QVERIFY(show_active(&console.frame));
    const PaintSpy window_spy(console.window);
    const PaintSpy page_spy(page->viewport());
    for (const QString& text : {u"line\n"_s, u"\n"_s, u"one\ntwo\n"_s, u"\r\n"_s}) {
        const qsizetype before = window_spy.areas.size();
        const qsizetype page_before = page_spy.areas.size();
        console.window->print_data(text);
        QCOMPARE(window_spy.areas.size(), before + 1);
        QCOMPARE(page_spy.areas.size(), page_before + 1);
    }
}

void TstCommandWindowOutput::finished_line_sends_no_posted_events_once_a_prompt_was_printed()
{
    CommandWindow window;
    window.print_prompt(false, nullptr);
    Mailbox mailbox;
    mailbox.post();
    window.print_data(u"hidden\n"_s);
    QCOMPARE(mailbox.arrived, 0);
    QVERIFY(show_active(&window));
    mailbox.arrived = 0;
    mailbox.post();
    window.print_data(u"shown\n"_s);
    QCOMPARE(mailbox.arrived, 0);
}

void TstCommandWindowOutput::output_without_final_newline_is_not_painted_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("a piece of a line") << u"piece"_s;
    QTest::newRow("a newline inside") << u"one\ntwo"_s;
    QTest::newRow("a blank behind the newline") << u"one\n "_s;
    QTest::newRow("a carriage return") << u"one\r"_s;
    QTest::newRow("a paragraph separator") << u"one\u2029"_s;
    QTest::newRow("empty") << u""_s;
    QTest::newRow("null") << QString();
}

void TstCommandWindowOutput::output_without_final_newline_is_not_painted()
{
    QFETCH(const QString, text);
    CommandWindow window;
    window.print_prompt(false, nullptr);
    QVERIFY(show_active(&window));
    const PaintSpy spy(&window);
    Mailbox mailbox;
    mailbox.post();
    window.print_data(text);
    QCOMPARE(spy.areas.size(), 0);
    QCOMPARE(mailbox.arrived, 0);
}

void TstCommandWindowOutput::finished_line_before_the_first_prompt_sends_posted_events()
{
    CommandWindow window;
    QVERIFY(show_active(&window));
    Mailbox mailbox;
    mailbox.post();
    mailbox.post();
    const PaintSpy spy(&window);
    window.print_data(u"starting\n"_s);
    QCOMPARE(mailbox.arrived, 2);
    QCOMPARE(spy.areas.size(), 0);
}

void TstCommandWindowOutput::a_receiver_may_change_the_text_that_was_passed()
{
    CommandWindow window;
    Mailbox mailbox;
    QString text = u"line\n"_s;
    connect(&window, &CommandWindow::dataToPrint, &window, [&] { text.clear(); });
    mailbox.post();
    window.print_data(text);
    QCOMPARE(mailbox.arrived, 1);
}

void TstCommandWindowOutput::output_without_final_newline_before_the_first_prompt_sends_nothing_data()
{
    output_without_final_newline_is_not_painted_data();
}

void TstCommandWindowOutput::output_without_final_newline_before_the_first_prompt_sends_nothing()
{
    QFETCH(const QString, text);
    CommandWindow window;
    Mailbox mailbox;
    mailbox.post();
    window.print_data(text);
    QCOMPARE(mailbox.arrived, 0);
}

void TstCommandWindowOutput::output_printed_during_the_first_prompt_sends_posted_events()
{
    CommandWindow window;
    Mailbox mailbox;
    connect(&window, &CommandWindow::readyForPrompt, this, [&] {
        mailbox.post();
        window.print_data(u"from a receiver\n"_s);
    });
    window.print_prompt(false, nullptr);
    QCOMPARE(mailbox.arrived, 1);
    window.print_prompt(false, nullptr);
    QCOMPARE(mailbox.arrived, 1);
}

void TstCommandWindowOutput::prompt_stays_printed_when_pages_go()
{
    CommandWindow window;
    auto* page = new CommandWidget;
    window.add_command_tab(u"page"_s, page);
    window.print_prompt(false, nullptr);
    window.clear_contents();
    window.set_python_mode(true);
    window.print_command(u"a command"_s);
    window.remove_command_tab(page);
    Mailbox mailbox;
    mailbox.post();
    window.print_data(u"line\n"_s);
    QCOMPARE(mailbox.arrived, 0);
}

void TstCommandWindowOutput::any_prompt_counts_as_printed()
{
    CommandWindow window;
    window.print_prompt(true, "  ");
    Mailbox mailbox;
    mailbox.post();
    window.print_data(u"line\n"_s);
    QCOMPARE(mailbox.arrived, 0);
}

void TstCommandWindowOutput::page_has_the_text_before_the_screen_is_served()
{
    DockedConsole console;
    CommandWindow& window = *console.window;
    auto* page = new CommandWidget;
    window.add_command_tab(u"page"_s, page);
    connect_page(window, *page, Qt::DirectConnection);
    QVERIFY(show_active(&console.frame));

    // First road: an event that is sent sees the text.
    class Reader : public QObject
    {
    public:
        bool event(QEvent* event) override
        {
            if (event->type() == marker_event)
                seen = page->toPlainText();
            return QObject::event(event);
        }
        CommandWidget* page = nullptr;
        QString seen;
    } reader;
    reader.page = page;
    QCoreApplication::postEvent(&reader, new QEvent(marker_event));
    window.print_data(u"one\n"_s);
    QCOMPARE(reader.seen, u"one\n"_s);

    // Second road: the repaint comes after the signal.
    window.print_prompt(false, nullptr);
    const PaintSpy spy(&window);
    qsizetype painted_before_signal = -1;
    connect(&window, &CommandWindow::dataToPrint, this, [&] { painted_before_signal = spy.areas.size(); });
    window.print_data(u"two\n"_s);
    QCOMPARE(painted_before_signal, 0);
    QCOMPARE(spy.areas.size(), 1);
}

void TstCommandWindowOutput::repainted_area_is_the_geometry_within_the_parent()
{
    QWidget frame;
    frame.resize(600, 400);
    auto* window = new CommandWindow(&frame);
    window->setGeometry(40, 30, 300, 200);
    window->print_prompt(false, nullptr);
    QVERIFY(show_active(&frame));
    QCOMPARE(window->geometry(), QRect(40, 30, 300, 200));
    const PaintSpy spy(window);
    window->print_data(u"line\n"_s);
    QCOMPARE(spy.areas, QList{QRect(40, 30, 260, 170)});
}

void TstCommandWindowOutput::nothing_is_painted_where_the_geometry_misses_the_window()
{
    QWidget frame;
    frame.resize(600, 400);
    auto* window = new CommandWindow(&frame);
    window->setGeometry(0, 250, 300, 150);
    window->print_prompt(false, nullptr);
    QVERIFY(show_active(&frame));
    const PaintSpy spy(window);
    window->print_data(u"line\n"_s);
    QCOMPARE(spy.areas, QList<QRect>());
}

void TstCommandWindowOutput::hidden_window_is_not_painted()
{
    CommandWindow window;
    window.print_prompt(false, nullptr);
    const PaintSpy spy(&window);
    window.print_data(u"line\n"_s);
    QCOMPARE(spy.areas, QList<QRect>());
}

void TstCommandWindowOutput::other_operations_neither_paint_nor_send_events()
{
    CommandWindow window;
    QVERIFY(show_active(&window));
    const PaintSpy spy(&window);
    Mailbox mailbox;
    mailbox.post();
    for (int round = 0; round < 2; ++round) {
        window.set_read_only(round == 0);
        window.print_command(u"a command\n"_s);
        window.append_command(u"text\n"_s);
        window.insert_command(u"text\n"_s);
        // The second round runs with a prompt printed.
        window.print_prompt(false, "indent\n");
    }
    QCOMPARE(spy.areas, QList<QRect>());
    QCOMPARE(mailbox.arrived, 0);
}

// The command being typed

void TstCommandWindowOutput::appended_text_goes_behind_the_command()
{
    CommandWindow window;
    auto* page = new CommandWidget;
    window.add_command_tab(u"page"_s, page);
    page->printPrompt();
    page->setCurrentCommand(u"brick"_s);
    QTextCursor caret = page->textCursor();
    caret.setPosition(3);
    page->setTextCursor(caret);
    static_cast<OutputHandler&>(window).append_command(u" x 10"_s);
    QCOMPARE(page->toPlainText(), u"$ brick x 10"_s);
}

void TstCommandWindowOutput::inserted_text_goes_to_the_caret()
{
    CommandWindow window;
    auto* page = new CommandWidget;
    window.add_command_tab(u"page"_s, page);
    page->printPrompt();
    page->setCurrentCommand(u"brick"_s);
    QTextCursor caret = page->textCursor();
    caret.setPosition(3);
    page->setTextCursor(caret);
    static_cast<OutputHandler&>(window).insert_command(u"--"_s);
    QCOMPARE(page->toPlainText(), u"$ b--rick"_s);
}

void TstCommandWindowOutput::typed_text_reaches_only_the_working_page()
{
    CommandWindow window;
    auto* one = new CommandWidget;
    auto* two = new CommandWidget;
    auto* log = new QPlainTextEdit;
    window.add_command_tab(u"one"_s, one);
    window.add_command_tab(u"two"_s, two);
    window.add_command_tab(u"log"_s, log);
    // The log is on top, the second page is the one worked on.
    window.switchTab(log);
    window.append_command(u"a"_s);
    window.insert_command(u"b"_s);
    QCOMPARE(one->toPlainText(), QString());
    QCOMPARE(log->toPlainText(), QString());
    QCOMPARE(two->toPlainText().size(), 2);
    window.switchTab(one);
    window.append_command(u"c"_s);
    QCOMPARE(one->toPlainText(), u"c"_s);
    QCOMPARE(two->toPlainText().size(), 2);
}

void TstCommandWindowOutput::empty_text_is_not_typed_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << u""_s;
    QTest::newRow("null") << QString();
}

void TstCommandWindowOutput::empty_text_is_not_typed()
{
    QFETCH(const QString, text);
    CommandWindow window;
    auto* page = new CommandWidget;
    window.add_command_tab(u"page"_s, page);
    page->setPlainText(u"output\n$ brick"_s);
    // Even an empty insertion would move the caret home or replace the selection.
    QTextCursor caret = page->textCursor();
    caret.setPosition(1);
    caret.setPosition(4, QTextCursor::KeepAnchor);
    page->setTextCursor(caret);
    window.append_command(text);
    window.insert_command(text);
    QCOMPARE(page->toPlainText(), u"output\n$ brick"_s);
    QCOMPARE(page->textCursor().selectedText(), u"utp"_s);
}

void TstCommandWindowOutput::typing_without_working_page_does_nothing()
{
    CommandWindow window;
    window.append_command(u"text"_s);
    window.insert_command(u"text"_s);
    auto* log = new QPlainTextEdit;
    window.add_command_tab(u"log"_s, log);
    window.append_command(u"text"_s);
    window.insert_command(u"text"_s);
    QCOMPARE(log->toPlainText(), QString());
}

void TstCommandWindowOutput::typing_takes_no_signal()
{
    CommandWindow window;
    auto* page = new CommandWidget;
    window.add_command_tab(u"page"_s, page);
    const QSignalSpy data(&window, &CommandWindow::dataToPrint);
    const QSignalSpy command(&window, &CommandWindow::commandToPrint);
    const QSignalSpy prompt(&window, &CommandWindow::readyForPrompt);
    window.append_command(u"a"_s);
    window.insert_command(u"b"_s);
    QCOMPARE(page->toPlainText().size(), 2);
    QCOMPARE(data.size() + command.size() + prompt.size(), 0);
}

OSTREL_TEST(TstCommandWindowOutput)
#include "tst_commandwindow_output.moc"
