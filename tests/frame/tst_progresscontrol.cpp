// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "frame/ProgressControl.h"
#include "hostdouble/HostDouble.h"
#include "menus/OstrelToolsMenu.h"
#include "support/MarkingTranslator.h"
#include "support/TestCase.h"
#include "support/own_methods.h"
#include "support/windows.h"

#include <QAction>
#include <QHBoxLayout>
#include <QImage>
#include <QProgressBar>
#include <QStatusBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace {

/** Counts how often the event queue has run, by a posted event that asks to be posted again. */
class QueueProbe : public QObject
{
public:
    QueueProbe() { arm(); }
    void arm() { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }
    /** Whether the queue has run since the last question. */
    bool ran()
    {
        if (!mDelivered)
            return false;
        mDelivered = false;
        arm();
        return true;
    }

protected:
    bool event(QEvent* e) override
    {
        mDelivered = mDelivered || e->type() == QEvent::User;
        return QObject::event(e);
    }

private:
    bool mDelivered = false;
};

} // namespace

class TstProgressControl : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void form_has_the_names_texts_and_measures();
    void texts_of_the_form_are_translated_in_its_own_context();
    void cancelling_is_its_only_slot();
    void sits_at_the_right_of_the_status_bar();
    void cancel_icon_has_a_picture_of_its_own_for_disabled();
    void bar_and_button_start_reset_and_disabled();
    void session_started_inside_another_is_ignored();
    void session_started_again_under_its_own_name_is_ignored_too();
    void start_resets_the_bar();
    void start_runs_the_queue_only_if_asked();
    void start_within_a_session_runs_no_queue();
    void update_shows_the_percentage_and_runs_the_queue();
    void update_under_another_name_is_ignored();
    void names_are_compared_case_sensitively();
    void any_name_ends_its_own_session_data();
    void any_name_ends_its_own_session();
    void update_above_hundred_shows_hundred();
    void update_at_hundred_or_above_runs_no_queue_once_hundred_is_shown();
    void update_with_the_present_value_runs_no_queue();
    void negative_update_is_ignored_by_the_bar();
    void negative_update_runs_the_queue_all_the_same();
    void end_under_its_own_name_resets();
    void end_under_another_name_changes_nothing();
    void end_without_a_session_and_name_resets_again_data();
    void end_without_a_session_and_name_resets_again();
    void null_name_counts_as_empty();
    void status_text_stands_before_the_percentage();
    void null_status_text_leaves_the_percentage();
    void status_text_outlives_sessions();
    void surplus_disable_keeps_the_count_at_zero();
    void requests_to_enable_cancel_nest();
    void click_on_cancel_stops_playback_and_then_interrupts();
    void button_stays_enabled_after_the_click();
    void slot_of_the_window_does_the_same();
    void click_on_cancel_passes_while_other_input_is_swallowed();
    void disabled_cancel_takes_no_click_during_work();
    void clicks_on_pause_pass_while_other_input_is_swallowed();

private:
    /** Runs @p input as what arrives while a command runs and gives the window its turn: inside that run. */
    template <class Input>
    void arrive_during_work(Input input)
    {
        QMetaObject::invokeMethod(mControl, input, Qt::QueuedConnection);
        mFrame->check_interrupt_session("work");
    }
    /** Clicks where @p target is in the window, as the window system does. */
    static void click(const QWidget* target)
    {
        QTest::mouseClick(Ostrel::instance()->windowHandle(), Qt::LeftButton, {},
                          target->mapTo(Ostrel::instance(), target->rect().center()));
    }
    static QWidget* tool_button(QAction* action)
    {
        return Ostrel::instance()->findChild<QToolBar*>(u"FileTools"_s)->widgetForAction(action);
    }
    template <class Widget>
    Widget* child(const char* name) const
    {
        return mControl->findChild<Widget*>(QString::fromLatin1(name));
    }
    QProgressBar* bar() const { return child<QProgressBar>("mProgress"); }
    QToolButton* button() const { return child<QToolButton>("mCancel"); }

    std::unique_ptr<MainFrame> mFrame;
    ProgressControl* mControl = nullptr;
};

void TstProgressControl::set_up()
{
    HostDouble::instance().reset();
    mFrame = std::make_unique<MainFrame>();
    QVERIFY(mFrame->load_gui());
    QVERIFY(show_active(Ostrel::instance()));
    mControl = Ostrel::instance()->findChild<ProgressControl*>();
    QVERIFY(mControl);
    HostDouble::instance().take_calls();
}

void TstProgressControl::tear_down()
{
    mFrame->unload_gui();
    mFrame.reset();
}

void TstProgressControl::form_has_the_names_texts_and_measures()
{
    ProgressControl control(nullptr);
    QCOMPARE(control.objectName(), u"QtProgressControl"_s);
    QCOMPARE(control.size(), QSize(241, 36));
    QCOMPARE(control.windowTitle(), u"Progress"_s);
    const auto* layout = qobject_cast<QHBoxLayout*>(control.layout());
    QVERIFY(layout);
    QCOMPARE(layout->objectName(), u"hboxLayout"_s);
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->itemAt(0)->widget()->objectName(), u"mProgress"_s);
    QCOMPARE(layout->itemAt(1)->widget()->objectName(), u"mCancel"_s);
    const auto* cancel = qobject_cast<QToolButton*>(layout->itemAt(1)->widget());
    QCOMPARE(cancel->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(cancel->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(cancel->sizePolicy().horizontalStretch(), 0);
    QCOMPARE(cancel->sizePolicy().verticalStretch(), 0);
    QCOMPARE(cancel->toolTip(), u"Cancel the currently running process"_s);
    QCOMPARE(cancel->text(), QString());
}

void TstProgressControl::texts_of_the_form_are_translated_in_its_own_context()
{
    const MarkingTranslator marked("QtProgressControl");
    const ProgressControl control(nullptr);
    QCOMPARE(control.windowTitle(), u"<Progress>"_s);
    QCOMPARE(control.findChild<QToolButton*>(u"mCancel"_s)->toolTip(),
             u"<Cancel the currently running process>"_s);
    QCOMPARE(control.findChild<QProgressBar*>(u"mProgress"_s)->accessibleName(), u"<Progress>"_s);
}

void TstProgressControl::cancelling_is_its_only_slot()
{
    QCOMPARE(own_methods(ProgressControl::staticMetaObject), QStringList(u"slot cancel_progress()"_s));
}

void TstProgressControl::sits_at_the_right_of_the_status_bar()
{
    QStatusBar* const status = Ostrel::instance()->statusBar();
    QCOMPARE(mControl->parentWidget(), status);
    QVERIFY(mControl->isVisible());
    QCOMPARE_GT(mControl->geometry().left(), status->rect().center().x());
    // A message hides what is not there for good.
    status->showMessage(u"message"_s);
    QVERIFY(mControl->isVisible());
}

void TstProgressControl::cancel_icon_has_a_picture_of_its_own_for_disabled()
{
    const QIcon icon = button()->icon();
    const QImage disabled = icon.pixmap(QSize(36, 36), QIcon::Disabled).toImage();
    const QIcon expected(u":/ostrelgui/images/light/dcancel.svg"_s);
    QCOMPARE(disabled.convertToFormat(QImage::Format_ARGB32),
             expected.pixmap(36, 36).toImage().convertToFormat(QImage::Format_ARGB32));
    const QIcon normal(u":/ostrelgui/images/light/cancel.svg"_s);
    QCOMPARE(icon.pixmap(36, 36).toImage().convertToFormat(QImage::Format_ARGB32),
             normal.pixmap(36, 36).toImage().convertToFormat(QImage::Format_ARGB32));
}

void TstProgressControl::bar_and_button_start_reset_and_disabled()
{
    QCOMPARE(bar()->minimum(), 0);
    QCOMPARE(bar()->maximum(), 100);
    QCOMPARE(bar()->value(), -1);
    QVERIFY(!button()->isEnabled());
}

void TstProgressControl::session_started_inside_another_is_ignored()
{
    mFrame->start_progress_session("a", 0);
    mFrame->update_progress_session("a", 10);
    mFrame->start_progress_session("b", 0);
    mFrame->update_progress_session("b", 50);
    QCOMPARE(bar()->value(), 10);
    mFrame->end_progress_session("b");
    mFrame->update_progress_session("a", 20);
    QCOMPARE(bar()->value(), 20);
}

void TstProgressControl::session_started_again_under_its_own_name_is_ignored_too()
{
    mFrame->start_progress_session("a", 0);
    mFrame->update_progress_session("a", 10);
    mFrame->start_progress_session("a", 0);
    QCOMPARE(bar()->value(), 10);
    // So that one end ends it.
    mFrame->end_progress_session("a");
    mFrame->update_progress_session("a", 20);
    QCOMPARE(bar()->value(), -1);
}

void TstProgressControl::start_resets_the_bar()
{
    bar()->setValue(30);
    mFrame->start_progress_session("a", 0);
    QCOMPARE(bar()->value(), -1);
}

void TstProgressControl::start_runs_the_queue_only_if_asked()
{
    QueueProbe probe;
    mFrame->start_progress_session("a", 0);
    QVERIFY(!probe.ran());
    mFrame->end_progress_session("a");
    mFrame->start_progress_session("b", 1);
    QVERIFY(probe.ran());
}

void TstProgressControl::start_within_a_session_runs_no_queue()
{
    mFrame->start_progress_session("a", 0);
    QueueProbe probe;
    mFrame->start_progress_session("b", 1);
    QVERIFY(!probe.ran());
}

void TstProgressControl::update_shows_the_percentage_and_runs_the_queue()
{
    mFrame->start_progress_session("a", 0);
    QueueProbe probe;
    mFrame->update_progress_session("a", 42);
    QCOMPARE(bar()->value(), 42);
    QVERIFY(probe.ran());
}

void TstProgressControl::update_under_another_name_is_ignored()
{
    mFrame->start_progress_session("a", 0);
    QueueProbe probe;
    mFrame->update_progress_session("b", 42);
    QCOMPARE(bar()->value(), -1);
    QVERIFY(!probe.ran());
}

void TstProgressControl::names_are_compared_case_sensitively()
{
    mFrame->start_progress_session("mesh", 0);
    mFrame->update_progress_session("Mesh", 42);
    QCOMPARE(bar()->value(), -1);
    mFrame->end_progress_session("MESH");
    mFrame->update_progress_session("mesh", 42);
    QCOMPARE(bar()->value(), 42);
}

void TstProgressControl::any_name_ends_its_own_session_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("outside ASCII") << QByteArray("Gr\xc3\xb6\xc3\x9f"
                                                 "e \xf0\x9f\x98\x80");
    QTest::newRow("no UTF-8") << QByteArray("\xff\xc3mesh\xe2\x82");
    QTest::newRow("byte order mark first") << QByteArray("\xef\xbb\xbfmesh");
}

void TstProgressControl::any_name_ends_its_own_session()
{
    QFETCH(const QByteArray, name);
    mFrame->start_progress_session(name.constData(), 0);
    mFrame->update_progress_session(name.constData(), 42);
    QCOMPARE(bar()->value(), 42);
    mFrame->end_progress_session(name.constData());
    QCOMPARE(bar()->value(), -1);
}

void TstProgressControl::update_above_hundred_shows_hundred()
{
    mFrame->start_progress_session("a", 0);
    mFrame->update_progress_session("a", 150);
    QCOMPARE(bar()->value(), 100);
}

void TstProgressControl::update_at_hundred_or_above_runs_no_queue_once_hundred_is_shown()
{
    mFrame->start_progress_session("a", 0);
    // Set from outside, since an update would use up the one run of this half second.
    bar()->setValue(100);
    QueueProbe probe;
    mFrame->update_progress_session("a", 100);
    mFrame->update_progress_session("a", 170);
    QVERIFY(!probe.ran());
    mFrame->update_progress_session("a", 99);
    QVERIFY(probe.ran());
}

void TstProgressControl::update_with_the_present_value_runs_no_queue()
{
    mFrame->start_progress_session("a", 0);
    bar()->setValue(42);
    QueueProbe probe;
    mFrame->update_progress_session("a", 42);
    QVERIFY(!probe.ran());
}

void TstProgressControl::negative_update_is_ignored_by_the_bar()
{
    mFrame->start_progress_session("a", 0);
    mFrame->update_progress_session("a", 42);
    mFrame->update_progress_session("a", -7);
    QCOMPARE(bar()->value(), 42);
}

void TstProgressControl::negative_update_runs_the_queue_all_the_same()
{
    mFrame->start_progress_session("a", 0);
    QueueProbe probe;
    // This one the reset bar shows already.
    mFrame->update_progress_session("a", -1);
    QVERIFY(!probe.ran());
    mFrame->update_progress_session("a", -7);
    QVERIFY(probe.ran());
    QCOMPARE(bar()->value(), -1);
}

void TstProgressControl::end_under_its_own_name_resets()
{
    mFrame->start_progress_session("a", 0);
    mFrame->update_progress_session("a", 42);
    mFrame->end_progress_session("a");
    QCOMPARE(bar()->value(), -1);
    mFrame->start_progress_session("b", 0);
    mFrame->update_progress_session("b", 5);
    QCOMPARE(bar()->value(), 5);
}

void TstProgressControl::end_under_another_name_changes_nothing()
{
    mFrame->start_progress_session("a", 0);
    mFrame->update_progress_session("a", 42);
    for (const char* other : {"b", "A", "", static_cast<const char*>(nullptr)})
        mFrame->end_progress_session(other);
    QCOMPARE(bar()->value(), 42);
}

void TstProgressControl::end_without_a_session_and_name_resets_again_data()
{
    QTest::addColumn<bool>("null");
    QTest::newRow("null name") << true;
    QTest::newRow("empty name") << false;
}

void TstProgressControl::end_without_a_session_and_name_resets_again()
{
    QFETCH(bool, null);
    bar()->setValue(42);
    mFrame->end_progress_session("a");
    QCOMPARE(bar()->value(), 42);
    mFrame->end_progress_session(null ? nullptr : "");
    QCOMPARE(bar()->value(), -1);
}

void TstProgressControl::null_name_counts_as_empty()
{
    mFrame->start_progress_session(nullptr, 0);
    mFrame->update_progress_session(nullptr, 42);
    QCOMPARE(bar()->value(), 42);
    // An empty name starts no session, so the next one is not ignored.
    mFrame->start_progress_session("a", 0);
    mFrame->update_progress_session("a", 43);
    QCOMPARE(bar()->value(), 43);
}

void TstProgressControl::status_text_stands_before_the_percentage()
{
    mFrame->set_status_text("Größe ");
    QCOMPARE(bar()->format(), u"Größe %p%"_s);
    mFrame->start_progress_session("a", 0);
    mFrame->update_progress_session("a", 42);
    QCOMPARE(bar()->text(), u"Größe 42%"_s);
}

void TstProgressControl::null_status_text_leaves_the_percentage()
{
    mFrame->set_status_text("text");
    mFrame->set_status_text(nullptr);
    QCOMPARE(bar()->format(), u"%p%"_s);
}

void TstProgressControl::status_text_outlives_sessions()
{
    mFrame->set_status_text("text");
    mFrame->start_progress_session("a", 0);
    mFrame->update_progress_session("a", 42);
    mFrame->end_progress_session("a");
    QCOMPARE(bar()->format(), u"text%p%"_s);
}

void TstProgressControl::surplus_disable_keeps_the_count_at_zero()
{
    mFrame->enable_cancel(false);
    mFrame->enable_cancel(false);
    QVERIFY(!button()->isEnabled());
    mFrame->enable_cancel(true);
    QVERIFY(button()->isEnabled());
    mFrame->enable_cancel(false);
    QVERIFY(!button()->isEnabled());
}

void TstProgressControl::requests_to_enable_cancel_nest()
{
    mFrame->enable_cancel(true);
    mFrame->enable_cancel(true);
    mFrame->enable_cancel(false);
    QVERIFY(button()->isEnabled());
    mFrame->enable_cancel(false);
    QVERIFY(!button()->isEnabled());
}

void TstProgressControl::click_on_cancel_stops_playback_and_then_interrupts()
{
    mFrame->enable_cancel(true);
    QTest::mouseClick(button(), Qt::LeftButton);
    QCOMPARE(HostDouble::instance().take_calls(),
             QStringList({u"FennarInterface::stop_playback()"_s, u"FennarInterface::app_util()"_s,
                          u"AppUtil::set_interrupt(true)"_s}));
}

void TstProgressControl::button_stays_enabled_after_the_click()
{
    mFrame->enable_cancel(true);
    QTest::mouseClick(button(), Qt::LeftButton);
    QVERIFY(button()->isEnabled());
}

void TstProgressControl::slot_of_the_window_does_the_same()
{
    Ostrel::instance()->cancel_progress();
    QCOMPARE(HostDouble::instance().take_calls().constLast(), u"AppUtil::set_interrupt(true)"_s);
}

void TstProgressControl::click_on_cancel_passes_while_other_input_is_swallowed()
{
    mFrame->enable_cancel(true);
    QTRY_VERIFY(!button()->visibleRegion().isEmpty());
    QToolButton other(Ostrel::instance()->statusBar());
    other.setGeometry(0, 0, 20, 20);
    other.show();
    int other_clicks = 0;
    connect(&other, &QToolButton::clicked, &other, [&] { ++other_clicks; });
    arrive_during_work([&] {
        click(&other);
        click(button());
    });
    QCOMPARE(HostDouble::instance().take_calls().count(u"AppUtil::set_interrupt(true)"_s), 1);
    QCOMPARE(other_clicks, 0);
    // The same click counts once no command runs: the button itself was not at fault.
    click(&other);
    QCOMPARE(other_clicks, 1);
}

void TstProgressControl::disabled_cancel_takes_no_click_during_work()
{
    QTRY_VERIFY(!button()->visibleRegion().isEmpty());
    arrive_during_work([&] { click(button()); });
    QCOMPARE(HostDouble::instance().take_calls(), QStringList());
    mFrame->enable_cancel(true);
    arrive_during_work([&] {
        click(button());
        click(button());
    });
    QCOMPARE(HostDouble::instance().take_calls().count(u"AppUtil::set_interrupt(true)"_s), 2);
}

void TstProgressControl::clicks_on_pause_pass_while_other_input_is_swallowed()
{
    QAction* const pause = Ostrel::instance()->tools_menu()->pause_action();
    QAction* const script = Ostrel::instance()->findChild<QAction*>(u"mScriptAction"_s);
    QTRY_VERIFY(!tool_button(pause)->visibleRegion().isEmpty());
    int scripts = 0;
    disconnect(script, &QAction::triggered, nullptr, nullptr); // its window would stay open
    connect(script, &QAction::triggered, this, [&] { ++scripts; });
    const auto press_keys = [] {
        QTest::keyClick(Ostrel::instance()->windowHandle(), Qt::Key_I, Qt::ControlModifier);
    };

    arrive_during_work([&] {
        click(tool_button(script));
        click(tool_button(pause));
        press_keys(); // those of pause, unlike its button
    });
    QVERIFY(pause->isChecked());
    QCOMPARE(HostDouble::instance().take_calls(), QStringList(u"FennarInterface::pause_playback()"_s));
    arrive_during_work([&] { click(tool_button(pause)); });
    QVERIFY(!pause->isChecked());
    QCOMPARE(HostDouble::instance().take_calls(), QStringList({u"FennarInterface::resume_playback()"_s,
                                                               u"FennarInterface::is_playback_paused()"_s}));
    QCOMPARE(scripts, 0);

    // The same counts once no command runs: neither the keys nor the button were at fault.
    click(tool_button(script));
    QCOMPARE(scripts, 1);
    press_keys();
    QVERIFY(pause->isChecked());
}

OSTREL_TEST(TstProgressControl)
#include "tst_progresscontrol.moc"
