// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "console/CommandWindow.h"
#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "menus/OstrelToolsMenu.h"
#include "support/TestCase.h"
#include "support/patience.h"
#include "support/real_input.h"
#include "support/windows.h"

#include <QAction>
#include <QSignalSpy>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

#include <memory>

using namespace Qt::StringLiterals;

/** What a user's clicks and keys do while a command keeps the GUI thread busy, in the whole window. */
class TstProgressControlDisplay : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void click_on_cancel_interrupts_the_running_command();
    void click_on_disabled_cancel_is_lost();
    void clicks_on_pause_pause_and_resume();
    void other_clicks_and_keys_are_lost();

private:
    QToolButton* cancel() const { return mWindow->findChild<QToolButton*>(u"mCancel"_s); }
    QWidget* tool_button(QAction* action) const
    {
        return mWindow->findChild<QToolBar*>(u"FileTools"_s)->widgetForAction(action);
    }
    QAction* pause() const { return mWindow->tools_menu()->pause_action(); }
    static bool interrupted() { return HostDouble::instance().calls.contains(interrupt); }

    // Works as a command of the framework does, until @p done: nothing else runs the event queue meanwhile.
    template <class Condition>
    bool work_until(Condition done)
    {
        return repeat_until(done, [this] { mFrame->check_interrupt_session("work"); });
    }

    static inline const QString interrupt = u"AppUtil::set_interrupt(true)"_s;
    std::unique_ptr<MainFrame> mFrame;
    Ostrel* mWindow = nullptr;
};

void TstProgressControlDisplay::set_up()
{
    HostDouble::instance().reset();
    mFrame = std::make_unique<MainFrame>();
    QVERIFY(mFrame->load_gui());
    mWindow = Ostrel::instance();
    QVERIFY(show_active(mWindow));
    // Laid out and drawn, or a click would miss.
    QTRY_VERIFY(!cancel()->visibleRegion().isEmpty());
    QTRY_VERIFY(!tool_button(pause())->visibleRegion().isEmpty());
    HostDouble::instance().take_calls();
}

void TstProgressControlDisplay::tear_down()
{
    mFrame->unload_gui();
    mFrame.reset();
}

void TstProgressControlDisplay::click_on_cancel_interrupts_the_running_command()
{
    mFrame->start_progress_session("mesh", 1);
    mFrame->enable_cancel(true);
    QVERIFY(real_click(cancel()));
    QVERIFY(!interrupted());
    // By reports of progress alone, of which a few in a second run the queue.
    int report = 0;
    QVERIFY(repeat_until(interrupted, [&] { mFrame->update_progress_session("mesh", ++report % 100); }));
    QCOMPARE(HostDouble::instance().take_calls(), QStringList({u"FennarInterface::stop_playback()"_s,
                                                               u"FennarInterface::app_util()"_s, interrupt}));
    QVERIFY(cancel()->isEnabled());
    mFrame->enable_cancel(false);
    mFrame->end_progress_session("mesh");
}

void TstProgressControlDisplay::click_on_disabled_cancel_is_lost()
{
    QVERIFY(real_click(cancel()));
    QVERIFY(real_click(tool_button(pause())));
    // Clicks arrive in order: when the second is there, the first has come and gone.
    QVERIFY(work_until([this] { return pause()->isChecked(); }));
    QVERIFY(!interrupted());
}

void TstProgressControlDisplay::clicks_on_pause_pause_and_resume()
{
    QVERIFY(real_click(tool_button(pause())));
    QVERIFY(work_until([this] { return pause()->isChecked(); }));
    QCOMPARE(HostDouble::instance().take_calls(), QStringList(u"FennarInterface::pause_playback()"_s));
    QVERIFY(real_click(tool_button(pause())));
    QVERIFY(work_until([this] { return !pause()->isChecked(); }));
    QCOMPARE(HostDouble::instance().take_calls(), QStringList({u"FennarInterface::resume_playback()"_s,
                                                               u"FennarInterface::is_playback_paused()"_s}));
}

void TstProgressControlDisplay::other_clicks_and_keys_are_lost()
{
    auto* page = new CommandWidget;
    mWindow->command_line()->add_command_tab(u"page"_s, page);
    page->setFocus();
    QVERIFY(page->hasFocus());
    QAction* const play = mWindow->tools_menu()->play_action();
    const QSignalSpy played(play, &QAction::triggered);
    const QString before = page->toPlainText();
    mFrame->enable_cancel(true);

    QVERIFY(real_key(u"x"_s));
    QVERIFY(real_key(u"ctrl+i"_s)); // the keys of pause, unlike its button
    QVERIFY(real_key(u"alt+t"_s));
    QVERIFY(real_click(tool_button(play)));
    QVERIFY(real_click(cancel()));
    QVERIFY(work_until([] { return interrupted(); }));
    QCOMPARE(page->toPlainText(), before);
    QVERIFY(!pause()->isChecked());
    QVERIFY(!QApplication::activePopupWidget());
    QVERIFY(played.isEmpty());

    // The same counts once no command runs: neither the keys nor the button were at fault.
    QVERIFY(real_key(u"x"_s));
    QVERIFY(real_key(u"ctrl+i"_s));
    QVERIFY(real_click(tool_button(play)));
    QTRY_COMPARE(played.size(), 1);
    QVERIFY(page->toPlainText() != before);
    QVERIFY(pause()->isChecked());
    mWindow->command_line()->remove_command_tab(page);
    delete page;
}

OSTREL_TEST(TstProgressControlDisplay)
#include "tst_progresscontrol_display.moc"
