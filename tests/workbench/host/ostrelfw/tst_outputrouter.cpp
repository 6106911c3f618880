// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/OutputHandler.h"
#include "support/TestCase.h"
#include "workbench/host/ostrelfw/OutputRouter.h"

#include <QRegularExpression>
#include <QStringList>
#include <QTest>

#include <chrono>

using namespace fennar;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class RecordingHandler : public OutputHandler
{
public:
    void set_read_only(bool) override {}
    void print_prompt(bool, const char*) override {}
    void print_data(const QString& data) override
    {
        printed << data;
        now += cost; // what it would take to paint
    }
    void print_command(const QString&) override {}
    void append_command(const QString&) override {}
    void insert_command(const QString&) override {}

    QStringList printed;
    std::chrono::milliseconds cost = 0ms;
    static inline OutputRouter::Time now;
};

/** Prints on @p console until its texts are gathered. */
void flood(RecordingHandler& console)
{
    console.cost = 10ms;
    OutputRouter& router = OutputRouter::instance();
    router.set_window(&console);
    router.set_gathering(true);
    for (int i = 0; i < 1000; ++i) {
        const qsizetype texts = console.printed.size();
        router.print(u"flood\n"_s);
        if (console.printed.size() == texts)
            break;
    }
}

} // namespace

class TstOutputRouter : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void text_reaches_the_console_in_chained_pieces();
    void text_before_the_console_waits_for_it();
    void listener_hears_of_the_console_before_the_text_that_waited();
    void text_after_the_console_waits_for_the_next();
    void fallback_takes_text_while_there_is_no_console();
    void console_goes_before_the_fallback();
    void few_texts_are_not_gathered();
    void flood_is_handed_over_in_few_texts_and_in_order();
    void texts_are_gathered_for_a_moment();
    void what_was_gathered_comes_when_it_is_asked_for();
    void what_was_gathered_comes_from_the_event_loop_at_the_latest();
    void end_of_gathering_hands_over_and_prints_at_once_again();
    void console_that_goes_gets_what_was_gathered();
    void line_of_its_own_stands_below_an_open_one();
    void long_line_is_folded_on_the_console_only();
    void long_line_that_waited_is_folded();
    void folded_line_is_ended_by_the_prompt_and_with_the_console();
};

void TstOutputRouter::set_up()
{
    OutputRouter::instance().set_clock([] { return RecordingHandler::now; });
}

void TstOutputRouter::tear_down()
{
    OutputRouter::instance().set_clock(nullptr);
    OutputRouter::instance().set_gathering(false);
    OutputRouter::instance().set_fallback([](const QString&) {});
    OutputRouter::instance().set_window_listener(nullptr);
    Broker::command.set_command_window(nullptr);
    OutputRouter::instance().set_fallback(nullptr);
}

void TstOutputRouter::text_reaches_the_console_in_chained_pieces()
{
    RecordingHandler console;
    Broker::command.set_command_window(&console);
    Broker::command << u"a"_s << u"\n"_s;
    QCOMPARE(console.printed, QStringList({u"a"_s, u"\n"_s}));
}

void TstOutputRouter::text_before_the_console_waits_for_it()
{
    RecordingHandler console;
    Broker::command << u"early "_s << u"text\n"_s;
    Broker::command.set_command_window(&console);
    QCOMPARE(console.printed, QStringList{u"early text\n"_s});
    Broker::command.set_command_window(&console);
    QCOMPARE(console.printed.size(), 1);
}

void TstOutputRouter::listener_hears_of_the_console_before_the_text_that_waited()
{
    RecordingHandler console;
    QStringList heard;
    OutputRouter::instance().set_window_listener([&](OutputHandler* window) {
        heard << (window ? u"came with %1 texts"_s.arg(console.printed.size()) : u"goes"_s);
    });
    Broker::command << u"early\n"_s;
    Broker::command.set_command_window(&console);
    Broker::command.set_command_window(nullptr);
    QCOMPARE(heard, QStringList({u"came with 0 texts"_s, u"goes"_s}));
    QCOMPARE(console.printed, QStringList{u"early\n"_s});
}

void TstOutputRouter::text_after_the_console_waits_for_the_next()
{
    RecordingHandler first;
    RecordingHandler second;
    Broker::command.set_command_window(&first);
    Broker::command.set_command_window(nullptr);
    Broker::command << u"late\n"_s;
    Broker::command.set_command_window(&second);
    QCOMPARE(first.printed, QStringList());
    QCOMPARE(second.printed, QStringList{u"late\n"_s});
}

void TstOutputRouter::fallback_takes_text_while_there_is_no_console()
{
    QString taken;
    OutputRouter::instance().set_fallback([&](const QString& text) { taken += text; });
    Broker::command << u"a"_s << u"b\n"_s;
    QCOMPARE(taken, u"ab\n"_s);
}

void TstOutputRouter::console_goes_before_the_fallback()
{
    QString taken;
    RecordingHandler console;
    OutputRouter::instance().set_fallback([&](const QString& text) { taken += text; });
    Broker::command.set_command_window(&console);
    Broker::command << u"a\n"_s;
    QCOMPARE(taken, QString());
    QCOMPARE(console.printed, QStringList{u"a\n"_s});
}

void TstOutputRouter::few_texts_are_not_gathered()
{
    RecordingHandler console;
    OutputRouter& router = OutputRouter::instance();
    router.set_window(&console);
    router.set_gathering(true);
    for (int i = 0; i < 20; ++i)
        router.print(u"a\n"_s);
    QCOMPARE(console.printed.size(), 20);
    router.set_gathering(false);
}

void TstOutputRouter::flood_is_handed_over_in_few_texts_and_in_order()
{
    constexpr int count = 100'000;
    RecordingHandler console;
    console.cost = 1ms; // about what it costs to paint
    OutputRouter& router = OutputRouter::instance();
    router.set_window(&console);
    router.set_gathering(true);
    QString all;
    for (int i = 0; i < count; ++i) {
        const QString line = u"line %1\n"_s.arg(i);
        all += line;
        RecordingHandler::now += 10us; // and what it takes to come by it
        router.print(line);
    }
    router.set_gathering(false);
    QCOMPARE(console.printed.join(QString()), all);
    QVERIFY2(console.printed.size() < count / 50, qPrintable(QString::number(console.printed.size())));
    for (const QString& text : std::as_const(console.printed))
        QVERIFY(text.size() < OutputRouter::gather_size + 100);
}

void TstOutputRouter::texts_are_gathered_for_a_moment()
{
    RecordingHandler console;
    flood(console);
    const qsizetype texts = console.printed.size();
    RecordingHandler::now += OutputRouter::gather_interval - 1ns;
    OutputRouter::instance().print(u"a\n"_s);
    QCOMPARE(console.printed.size(), texts);
    RecordingHandler::now += 1ns;
    OutputRouter::instance().print(u"b\n"_s);
    QCOMPARE(console.printed.size(), texts + 1);
    QCOMPARE(console.printed.last(), u"flood\na\nb\n"_s);
    OutputRouter::instance().set_gathering(false);
}

void TstOutputRouter::what_was_gathered_comes_when_it_is_asked_for()
{
    RecordingHandler console;
    flood(console);
    OutputRouter& router = OutputRouter::instance();
    router.print(u"last\n"_s);
    QVERIFY(!console.printed.join(QString()).endsWith(u"last\n"_s));
    router.flush();
    QVERIFY(console.printed.join(QString()).endsWith(u"last\n"_s));
    const qsizetype texts = console.printed.size();
    router.flush();
    QCOMPARE(console.printed.size(), texts);
    router.set_gathering(false);
}

void TstOutputRouter::what_was_gathered_comes_from_the_event_loop_at_the_latest()
{
    RecordingHandler console;
    flood(console);
    OutputRouter::instance().print(u"last\n"_s);
    QVERIFY(!console.printed.join(QString()).endsWith(u"last\n"_s));
    QTRY_VERIFY(console.printed.join(QString()).endsWith(u"last\n"_s));
    OutputRouter::instance().set_gathering(false);
}

void TstOutputRouter::end_of_gathering_hands_over_and_prints_at_once_again()
{
    RecordingHandler console;
    flood(console);
    OutputRouter& router = OutputRouter::instance();
    router.print(u"last\n"_s);
    router.set_gathering(false);
    QVERIFY(console.printed.join(QString()).endsWith(u"last\n"_s));
    router.print(u"next"_s);
    QCOMPARE(console.printed.last(), u"next"_s);
}

void TstOutputRouter::console_that_goes_gets_what_was_gathered()
{
    RecordingHandler console;
    flood(console);
    OutputRouter& router = OutputRouter::instance();
    router.print(u"last\n"_s);
    router.set_window(nullptr);
    QVERIFY(console.printed.join(QString()).endsWith(u"last\n"_s));
    router.set_gathering(false);
}

void TstOutputRouter::line_of_its_own_stands_below_an_open_one()
{
    RecordingHandler console;
    OutputRouter& router = OutputRouter::instance();
    router.set_window(&console);
    router.print(u"open"_s);
    router.print(QString());
    router.print_line(u"one"_s);
    router.print_line(u"two"_s);
    QCOMPARE(console.printed.join(QString()), u"open\none\ntwo\n"_s);
    // What a thread has left open before a line runs is open still; behind the run it is not.
    console.printed.clear();
    router.print(u"thread"_s);
    router.set_gathering(true);
    router.print_line(u"three"_s);
    router.print(u"open"_s);
    router.set_gathering(false);
    router.print_line(u"four"_s);
    QCOMPARE(console.printed.join(QString()), u"thread\nthree\nopenfour\n"_s);
}

void TstOutputRouter::long_line_is_folded_on_the_console_only()
{
    RecordingHandler console;
    OutputRouter& router = OutputRouter::instance();
    const QString line = u"a long line "_s.repeated(100'000);
    QString taken;
    router.set_fallback([&](const QString& text) { taken += text; });
    router.print(line + u'\n');
    QVERIFY(taken == line + u'\n');
    router.set_window(&console);
    router.print(line);
    router.print(line);
    router.print(u"\n"_s);
    const QString shown = console.printed.join(QString());
    QVERIFY2(shown.size() < 5000, qPrintable(QString::number(shown.size())));
    QVERIFY(shown.startsWith(line.first(1000)));
    const QRegularExpressionMatch mark =
        QRegularExpression(u"\\[2400000 characters; \"edit line (\\d+)\" shows the line whole\\]\n$"_s)
            .match(shown);
    QVERIFY(mark.hasMatch());
    QVERIFY(router.folded_line(mark.captured(1).toInt()) == line + line);
}

void TstOutputRouter::long_line_that_waited_is_folded()
{
    RecordingHandler console;
    Broker::command << QString(1'000'000, u'x') << u"\nnext\n"_s;
    Broker::command.set_command_window(&console);
    const QString shown = console.printed.join(QString());
    QVERIFY2(shown.size() < 5000, qPrintable(QString::number(shown.size())));
    QVERIFY(shown.endsWith(u" shows the line whole]\nnext\n"_s));
}

void TstOutputRouter::folded_line_is_ended_by_the_prompt_and_with_the_console()
{
    RecordingHandler first;
    RecordingHandler second;
    OutputRouter& router = OutputRouter::instance();
    router.set_window(&first);
    router.set_gathering(true);
    router.print(QString(10'000, u'x'));
    router.set_gathering(false);
    QVERIFY(first.printed.last().endsWith(u"whole]"_s));
    router.print(u"next"_s);
    QCOMPARE(first.printed.last(), u"next"_s);
    router.print(QString(10'000, u'x'));
    router.set_window(&second);
    QVERIFY(first.printed.last().endsWith(u"whole]"_s));
    router.print(u"next"_s);
    QCOMPARE(second.printed, QStringList{u"next"_s});
}

OSTREL_TEST(TstOutputRouter)
#include "tst_outputrouter.moc"
