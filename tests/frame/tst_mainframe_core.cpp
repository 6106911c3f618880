// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/MainFrame.h"
#include "host/ostrelfw/ComponentTracker.h"
#include "hostdouble/HostDouble.h"
#include "support/TestCase.h"

#include <QApplication>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

HostDouble& host()
{
    return HostDouble::instance();
}

} // namespace

// What holds as long as there is no QApplication, with or without a plain application object.
class TstMainFrameCore : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void premise_there_is_no_gui_application();
    void loading_only_registers_the_tracker();
    void second_try_registers_no_second_time();
    void nothing_works_after_such_a_load();
    void splash_is_not_shown();
    void loaded_component_is_rechecked_only();
    void unloading_unregisters_the_tracker();
};

// What holds with a plain application object only, which has a loop to run.
class TstMainFramePlainApplication : public TstMainFrameCore
{
    Q_OBJECT

private slots:
    void end_application_leaves_the_loop_alone();
};

void TstMainFrameCore::set_up()
{
    host().reset();
}

void TstMainFrameCore::premise_there_is_no_gui_application()
{
    QVERIFY(!qobject_cast<QApplication*>(QCoreApplication::instance()));
}

void TstMainFrameCore::loading_only_registers_the_tracker()
{
    MainFrame frame;
    host().take_calls();
    QVERIFY(!frame.load_gui());
    QVERIFY(!frame.is_loaded());
    QCOMPARE(host().take_calls(), QStringList{u"Mediator::add_component_tracker(set)"_s});
    QCOMPARE(host().trackers, std::vector<ComponentTracker*>{&frame});
}

void TstMainFrameCore::second_try_registers_no_second_time()
{
    MainFrame frame;
    frame.load_gui();
    QVERIFY(!frame.load_gui());
    QCOMPARE(host().trackers, std::vector<ComponentTracker*>{&frame});
    frame.unload_gui();
    QVERIFY(host().trackers.empty());
}

void TstMainFrameCore::nothing_works_after_such_a_load()
{
    MainFrame frame;
    frame.load_gui();
    host().take_calls();
    frame.run_application(); // does not return otherwise
    frame.new_event();
    QCoreApplication::sendPostedEvents();
    frame.start_progress_session("work", 1);
    frame.update_progress_session("work", 50);
    frame.check_interrupt_session("work");
    frame.end_progress_session("work");
    frame.set_status_text("working");
    frame.enable_cancel(true);
    QCOMPARE(host().take_calls(), QStringList());
}

void TstMainFramePlainApplication::end_application_leaves_the_loop_alone()
{
    MainFrame frame;
    frame.load_gui();
    QTimer::singleShot(0, this, [&] {
        frame.end_application();
        QMetaObject::invokeMethod(
            this, [] { QCoreApplication::exit(7); }, Qt::QueuedConnection);
    });
    QCOMPARE(QCoreApplication::exec(), 7);
}

void TstMainFrameCore::splash_is_not_shown()
{
    // A pixmap would end the process here.
    MainFrame frame;
    frame.start_splash(nullptr);
    frame.show_splash_message("text");
    frame.finish_splash();
    QVERIFY(QApplication::allWidgets().isEmpty());
}

void TstMainFrameCore::loaded_component_is_rechecked_only()
{
    MainFrame frame;
    frame.load_gui();
    host().take_calls();
    QCOMPARE(host().trackers.size(), size_t(1));
    host().trackers.front()->component_loaded("geometry");
    QCOMPARE(host().take_calls(), QStringList{u"NavigationResourcesDelay::recheckResources()"_s});
}

void TstMainFrameCore::unloading_unregisters_the_tracker()
{
    MainFrame frame;
    frame.load_gui();
    host().take_calls();
    frame.unload_gui();
    QCOMPARE(host().take_calls(),
             (QStringList{u"Mediator::remove_component_tracker(set)"_s, u"~NavigationResourcesDelay()"_s}));
    QVERIFY(host().trackers.empty());
}

int main(int argc, char** argv)
{
    QCoreApplication::setOrganizationName(u"ostrel-tests"_s);
    QCoreApplication::setApplicationName(u"ostrel-tests"_s);
    TstMainFrameCore without_application;
    const int first = QTest::qExec(&without_application, argc, argv);

    const QCoreApplication application(argc, argv);
    TstMainFramePlainApplication with_application;
    const int second = QTest::qExec(&with_application, argc, argv);
    return first + second;
}

#include "tst_mainframe_core.moc"
