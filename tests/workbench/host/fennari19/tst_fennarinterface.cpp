// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/fennar_util/AppUtil.h"
#include "host/fennari19/FennarInterface.h"
#include "support/TestCase.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/Interrupt.h"
#include "workbench/sdk/core/commands/plain_command.h"

#include <QTest>

#include <thread>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstFennarInterface : public TestCase
{
    Q_OBJECT

protected:
    void tear_down() override;

private slots:
    void app_util_is_one_object();
    void set_interrupt_raises_and_clears_the_flag();
    void interrupt_reaches_other_threads_and_comes_from_them();
    void outermost_scope_clears_the_interrupt_at_both_ends();
    void python_mode_is_reported();
    void pause_and_resume_act_on_the_playback();
    void playback_without_journal_can_be_stopped();
    void cancelling_a_paused_journal_ends_it();
    void stop_ends_a_journal_in_play();
    void built_in_commands_are_there();
};

void TstFennarInterface::tear_down()
{
    // One object serves the whole process: each test leaves it as it was at the start.
    Playback& playback = Fennar::instance().playback();
    playback.set_wait(nullptr);
    playback.set_turn(nullptr);
    playback.stop();
    Fennar::instance().interpreter().set_error_output(nullptr);
    Fennar::instance().registry().remove_owner(u"test"_s);
    Fennar::instance().set_python_mode(false);
    clear_interrupt();
}

void TstFennarInterface::app_util_is_one_object()
{
    QVERIFY(FennarInterface::app_util());
    QCOMPARE(FennarInterface::app_util(), FennarInterface::app_util());
}

void TstFennarInterface::set_interrupt_raises_and_clears_the_flag()
{
    QVERIFY(!interrupt_requested());
    FennarInterface::app_util()->set_interrupt(true);
    QVERIFY(interrupt_requested());
    FennarInterface::app_util()->set_interrupt(false);
    QVERIFY(!interrupt_requested());
    FennarInterface::app_util()->set_interrupt(true);
    clear_interrupt();
    QVERIFY(!interrupt_requested());
    request_interrupt();
    QVERIFY(interrupt_requested());
}

void TstFennarInterface::interrupt_reaches_other_threads_and_comes_from_them()
{
    std::thread worker([] {
        while (!interrupt_requested())
            std::this_thread::yield();
        clear_interrupt();
        while (!interrupt_requested())
            std::this_thread::yield();
    });
    FennarInterface::app_util()->set_interrupt(true);
    while (interrupt_requested())
        std::this_thread::yield();
    FennarInterface::app_util()->set_interrupt(true);
    worker.join();
    QVERIFY(interrupt_requested());
}

void TstFennarInterface::outermost_scope_clears_the_interrupt_at_both_ends()
{
    request_interrupt();
    {
        const InterruptScope outer;
        QVERIFY(!interrupt_requested());
        request_interrupt();
        {
            const InterruptScope inner;
            QVERIFY(interrupt_requested());
        }
        QVERIFY(interrupt_requested());
    }
    QVERIFY(!interrupt_requested());
}

void TstFennarInterface::python_mode_is_reported()
{
    QVERIFY(!FennarInterface::command_is_python_mode());
    Fennar::instance().set_python_mode(true);
    QVERIFY(FennarInterface::command_is_python_mode());
    Fennar::instance().set_python_mode(false);
    QVERIFY(!FennarInterface::command_is_python_mode());
}

void TstFennarInterface::pause_and_resume_act_on_the_playback()
{
    QVERIFY(!FennarInterface::is_playback_paused());
    FennarInterface::pause_playback();
    QVERIFY(FennarInterface::is_playback_paused());
    QVERIFY(Fennar::instance().playback().is_paused());
    FennarInterface::resume_playback();
    QVERIFY(!FennarInterface::is_playback_paused());
}

void TstFennarInterface::playback_without_journal_can_be_stopped()
{
    FennarInterface::stop_playback();
    QCOMPARE(Fennar::instance().playback().play_lines({u"echo"_s}, u"a.jou"_s), Playback::Outcome::Played);
}

void TstFennarInterface::cancelling_a_paused_journal_ends_it()
{
    Fennar& fennar = Fennar::instance();
    QString errors;
    fennar.interpreter().set_error_output([&errors](const QString& text) { errors += text; });
    int waits = 0;
    fennar.playback().set_wait([&waits] {
        if (++waits == 3) {
            FennarInterface::stop_playback();
            FennarInterface::app_util()->set_interrupt(true);
        }
    });
    fennar.registry().add(
        plain_command(u"halt"_s, u"test"_s, [](CommandCall&) { FennarInterface::pause_playback(); }));
    QCOMPARE(fennar.playback().play_lines({u"echo"_s, u"halt"_s, u"nix"_s}, u"a.jou"_s),
             Playback::Outcome::Interrupted);
    QCOMPARE(waits, 3);
    QCOMPARE(errors, u"Interrupted: a.jou:2\n"_s);
    QVERIFY(!interrupt_requested());
    QVERIFY(!FennarInterface::is_playback_paused());
}

void TstFennarInterface::stop_ends_a_journal_in_play()
{
    Fennar& fennar = Fennar::instance();
    QString errors;
    fennar.interpreter().set_error_output([&errors](const QString& text) { errors += text; });
    fennar.registry().add(
        plain_command(u"halt"_s, u"test"_s, [](CommandCall&) { FennarInterface::stop_playback(); }));
    QCOMPARE(fennar.playback().play_lines({u"halt"_s, u"nix"_s}, u"a.jou"_s), Playback::Outcome::Stopped);
    QCOMPARE(errors, u"Stopped: a.jou:1\n"_s);
}

void TstFennarInterface::built_in_commands_are_there()
{
    Fennar& fennar = Fennar::instance();
    for (const QString& name : {u"help"_s, u"echo"_s, u"set"_s, u"history"_s, u"play"_s, u"quit"_s})
        QVERIFY2(fennar.registry().find(name), qPrintable(name));
    bool asked = false;
    fennar.services().quit = [&asked] { asked = true; };
    QCOMPARE(fennar.interpreter().enter(u"quit"_s), CommandInterpreter::Result::Done);
    fennar.services().quit = nullptr;
    QVERIFY(asked);
}

OSTREL_TEST(TstFennarInterface)
#include "tst_fennarinterface.moc"
