// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/ostrelfw/Broker.h"
#include "host/ostrelfw/OutputHandler.h"
#include "support/TestCase.h"
#include "workbench/ostrelfw/OutputRouter.h"

#include <QStringList>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class RecordingHandler : public OutputHandler
{
public:
    void set_read_only(bool) override {}
    void print_prompt(bool, const char*) override {}
    void print_data(const QString& data) override { printed << data; }
    void print_command(const QString&) override {}
    void append_command(const QString&) override {}
    void insert_command(const QString&) override {}

    QStringList printed;
};

} // namespace

class TstOutputRouter : public TestCase
{
    Q_OBJECT

private slots:
    void cleanup();

    void text_reaches_the_console_in_chained_pieces();
    void text_before_the_console_waits_for_it();
    void listener_hears_of_the_console_before_the_text_that_waited();
    void text_after_the_console_waits_for_the_next();
    void fallback_takes_text_while_there_is_no_console();
    void console_goes_before_the_fallback();
};

void TstOutputRouter::cleanup()
{
    OutputRouter::instance().set_fallback([](const QString&) {});
    OutputRouter::instance().set_window_listener(nullptr);
    Broker::command.set_command_window(nullptr);
    OutputRouter::instance().set_fallback(nullptr);
    TestCase::cleanup();
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

OSTREL_TEST_MAIN(TstOutputRouter)
#include "tst_outputrouter.moc"
