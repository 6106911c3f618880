// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"
#include "frame/EventCatcher.h"
#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "host/ostrelfw/ComponentTracker.h"
#include "hostdouble/HostDouble.h"
#include "support/EventActor.h"
#include "support/TestCase.h"
#include "support/windows.h"

#include <QApplication>
#include <QFontDatabase>
#include <QMainWindow>
#include <QPointer>
#include <QProgressBar>
#include <QScreen>
#include <QSettings>
#include <QSignalSpy>
#include <QSplashScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QWindow>

#include <functional>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

HostDouble& host()
{
    return HostDouble::instance();
}

// Loads on construction, and unloads at the end even if a test fails half-way.
class LoadedFrame : public MainFrame
{
public:
    LoadedFrame() { load_gui(); }
    ~LoadedFrame() override
    {
        if (is_loaded())
            unload_gui();
    }
};

QList<QSplashScreen*> splash_screens()
{
    QList<QSplashScreen*> found;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (auto* splash = qobject_cast<QSplashScreen*>(window))
            found << splash;
    }
    return found;
}

// Writes a picture of one color and returns its path.
QString make_picture(const QTemporaryDir& directory, const QString& name, const QSize& size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::black);
    const QString path = directory.filePath(name);
    return picture.save(path) ? path : QString();
}

// Sees all events of the type that announces work, with the object that they are for.
class AnnouncementWatch : public QObject
{
public:
    AnnouncementWatch() { QCoreApplication::instance()->installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Type(1000))
            receivers << watched;
        return false;
    }
    QList<QPointer<QObject>> receivers;
};

// Notices the main window's coming: once when its construction has begun, and when it is shown.
class WindowWatch : public QObject
{
public:
    explicit WindowWatch(std::function<void()> on_begun) : mOnBegun(std::move(on_begun))
    {
        QCoreApplication::instance()->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (!qobject_cast<QMainWindow*>(watched))
            return false;
        if (event->type() == QEvent::ChildAdded && mOnBegun)
            std::exchange(mOnBegun, nullptr)();
        if (event->type() == QEvent::Show)
            host().record(u"window shown"_s);
        return false;
    }

private:
    std::function<void()> mOnBegun;
};

QString announcement()
{
    return u"Mediator::handle_new_event()"_s;
}

int announcements()
{
    return int(host().calls.count(announcement()));
}

QStringList top_level_names()
{
    QStringList names;
    for (const QWidget* widget : QApplication::topLevelWidgets())
        names << widget->objectName();
    return names;
}

} // namespace

class TstMainFrame : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void construction_makes_the_resources_and_no_more();
    void destruction_deletes_splash_and_resources();
    void destruction_leaves_window_and_catcher();
    void nothing_but_splash_works_before_loading();

    void loading_goes_in_order();
    void loading_builds_and_shows_the_window();
    void batch_mode_makes_no_difference_to_loading();
    void console_font_is_registered();
    void console_font_is_registered_once();
    void console_font_is_registered_though_another_has_its_number();
    void console_becomes_the_output();
    void window_that_nearly_fills_the_screen_is_maximized_data();
    void window_that_nearly_fills_the_screen_is_maximized();
    void restored_geometry_counts_for_maximizing_data();
    void restored_geometry_counts_for_maximizing();
    void navigation_directory_follows_the_setting_data();
    void navigation_directory_follows_the_setting();
    void reader_fills_the_model_with_resources_that_know_it();
    void messages_of_the_reader_are_printed();
    void tracker_is_registered();

    void unloading_goes_in_order();
    void tracker_is_taken_out_of_a_loaded_frame();
    void frame_may_be_deleted_while_it_is_unloaded();
    void nothing_works_after_unloading();
    void unloaded_frame_refuses_to_load_again();
    void another_frame_can_be_loaded_after_the_first();
    void unloading_without_loading_unregisters_the_tracker();
    void window_closed_by_the_user_is_unloaded_too();
    void one_life_leaves_nothing_to_the_next();

    void loading_again_does_nothing();
    void loading_while_loading_does_nothing();
    void frame_may_be_unloaded_while_it_loads_data();
    void frame_may_be_unloaded_while_it_loads();
    void frame_may_be_unloaded_while_it_is_unloaded();
    void frame_may_be_unloaded_while_the_queue_runs_data();
    void frame_may_be_unloaded_while_the_queue_runs();
    void frame_may_be_unloaded_by_what_it_announces();
    void frame_may_go_while_resources_are_rechecked();
    void frame_may_be_unloaded_while_its_splash_closes();

    void new_event_is_posted_not_sent();
    void new_event_needs_an_application_behind_the_catcher();
    void new_event_has_normal_priority();
    void new_events_from_a_thread_are_all_handled_on_the_gui_thread();
    void catcher_answers_every_event();

    void end_application_ends_the_run();
    void accepted_close_ends_the_run_when_the_host_says_so();
    void end_application_from_inside_the_close_does_not_close_again();

    void interrupt_check_runs_the_queue_each_time();
    void interrupt_check_swallows_user_input();

    void splash_shows_the_picture();
    void splash_can_be_switched_off();
    void unreadable_switch_leaves_the_splash_on();
    void second_splash_is_ignored();
    void unreadable_picture_gives_an_empty_splash_data();
    void unreadable_picture_gives_an_empty_splash();
    void splash_message_is_white_at_the_bottom_center();
    void finished_splash_is_closed_and_gone();
    void splash_goes_with_unloading();
    void message_and_finish_do_nothing_without_splash();

    void loaded_component_is_rechecked_then_announced();
    void component_loaded_after_unloading_is_not_announced();
    void other_component_calls_have_no_effect();
};

void TstMainFrame::set_up()
{
    host().reset();
}

void TstMainFrame::construction_makes_the_resources_and_no_more()
{
    {
        MainFrame frame;
        QCOMPARE(host().take_calls(), QStringList{u"NavigationResourcesDelay()"_s});
        QVERIFY(!frame.is_loaded());
        QVERIFY(!Ostrel::instance());
        QVERIFY(splash_screens().isEmpty());
        // The framework's side comes first among the bases.
        QCOMPARE(static_cast<void*>(static_cast<OstrelGUI*>(&frame)), static_cast<void*>(&frame));
    }
    QCOMPARE(host().take_calls(), QStringList{u"~NavigationResourcesDelay()"_s});
}

void TstMainFrame::destruction_deletes_splash_and_resources()
{
    QPointer<QSplashScreen> splash;
    {
        MainFrame frame;
        frame.start_splash(nullptr);
        QCOMPARE(splash_screens().size(), 1);
        splash = splash_screens().constFirst();
        connect(splash, &QObject::destroyed, this, [] { host().record(u"splash deleted"_s); });
        host().take_calls();
    }
    QVERIFY(!splash);
    QCOMPARE(host().take_calls(), (QStringList{u"splash deleted"_s, u"~NavigationResourcesDelay()"_s}));
}

void TstMainFrame::destruction_leaves_window_and_catcher()
{
    AnnouncementWatch watch;
    QPointer<Ostrel> window;
    {
        MainFrame frame;
        frame.load_gui();
        window = Ostrel::instance();
        frame.new_event();
        QCoreApplication::processEvents();
        host().take_calls();
    }
    QCOMPARE(host().take_calls(), QStringList{u"~NavigationResourcesDelay()"_s});
    QVERIFY(window);
    QVERIFY(window->isVisible());
    QCOMPARE(watch.receivers.size(), 1);
    QVERIFY(watch.receivers.constFirst());
    delete window;
    delete watch.receivers.constFirst();
}

void TstMainFrame::nothing_but_splash_works_before_loading()
{
    AnnouncementWatch watch;
    MainFrame frame;
    host().take_calls();

    frame.new_event();
    QCoreApplication::processEvents();
    QVERIFY(watch.receivers.isEmpty());

    bool run = false;
    const QObject turn; // the timer, which nothing fires here, goes with it
    QTimer::singleShot(0, &turn, [&] { run = true; });
    frame.run_application();
    frame.start_progress_session("work", 1);
    frame.update_progress_session("work", 50);
    frame.check_interrupt_session("work");
    frame.end_progress_session("work");
    frame.set_status_text("working");
    frame.set_status_text(nullptr);
    frame.enable_cancel(true);
    QVERIFY(!run);

    // The loop outlives end_application(): it goes on to what is queued behind it.
    QTimer::singleShot(0, this, [&] {
        frame.end_application();
        QMetaObject::invokeMethod(
            this, [] { QCoreApplication::exit(7); }, Qt::QueuedConnection);
    });
    QCOMPARE(QCoreApplication::exec(), 7);
    QCOMPARE(host().take_calls(), QStringList());
}

void TstMainFrame::loading_goes_in_order()
{
    host().navigation_messages = {u"one"_s, u"two"_s};
    QFontDatabase::removeAllApplicationFonts();
    MainFrame frame;
    bool loaded_meanwhile = true;
    const WindowWatch watch([&] {
        loaded_meanwhile = frame.is_loaded();
        if (QFontDatabase::families().contains("Inconsolata"_L1))
            host().record(u"font registered, window begun"_s);
        frame.new_event();
    });
    frame.load_gui();
    const QStringList calls = host().take_calls();
    QCoreApplication::processEvents();
    const int caught = announcements();
    frame.unload_gui();

    QVERIFY(!loaded_meanwhile);
    QCOMPARE(caught, 1); // the catcher was there before the window
    const QString directory = QCoreApplication::applicationDirPath() + u"/xml/action-based-xml"_s;
    QCOMPARE(calls, (QStringList{
                        u"NavigationResourcesDelay()"_s,
                        u"font registered, window begun"_s,
                        u"Framework::python_interpreter()"_s,
                        u"FennarPythonInterpreter::version_major()"_s,
                        u"FennarPythonInterpreter::version_minor()"_s,
                        u"FennarPythonInterpreter::version_micro()"_s,
                        u"CommandButtonPanel::CommandButtonPanel"_s,
                        u"CommandButtonPanel::set_model(set, invalid)"_s,
                        u"CLParser::batch_mode()"_s,
                        u"window shown"_s,
                        u"BrokerCommand::set_command_window(set)"_s,
                        u"NavigationReader()"_s,
                        u"NavigationReader::setResources(set)"_s,
                        u"NavigationReader::setModel(set, null, null)"_s,
                        u"NavigationReader::buildNavigation(\"%1\", \".xml\")"_s.arg(directory),
                        u"BrokerCommand::operator<<(\"one\")"_s,
                        u"BrokerCommand::operator<<(\"\n\")"_s,
                        u"BrokerCommand::operator<<(\"two\")"_s,
                        u"BrokerCommand::operator<<(\"\n\")"_s,
                        u"~NavigationReader()"_s,
                        u"Mediator::add_component_tracker(set)"_s,
                    }));
}

void TstMainFrame::loading_builds_and_shows_the_window()
{
    MainFrame frame;
    const bool loaded = frame.load_gui();
    const QPointer<Ostrel> window = Ostrel::instance();
    QVERIFY(window);
    const bool shown = window->isVisible();
    const bool is_loaded = frame.is_loaded();
    const QString name = window->objectName();
    const QWidget* const parent = window->parentWidget();
    frame.unload_gui();

    QVERIFY(loaded);
    QVERIFY(is_loaded);
    QVERIFY(shown);
    QCOMPARE(name, u"Ostrel"_s);
    QCOMPARE(parent, nullptr);
}

void TstMainFrame::batch_mode_makes_no_difference_to_loading()
{
    QStringList calls[2];
    for (const bool batch : {false, true}) {
        host().reset();
        host().batch_mode = batch;
        LoadedFrame frame;
        QVERIFY(frame.is_loaded());
        QVERIFY(Ostrel::instance()->isVisible());
        calls[batch] = host().take_calls();
    }
    QVERIFY(!calls[0].isEmpty());
    QCOMPARE(calls[1], calls[0]);
}

void TstMainFrame::console_font_is_registered()
{
    QFontDatabase::removeAllApplicationFonts();
    QVERIFY(!QFontDatabase::families().contains("Inconsolata"_L1));
    LoadedFrame frame;
    QVERIFY(QFontDatabase::families().contains("Inconsolata"_L1));
}

void TstMainFrame::console_font_is_registered_once()
{
    QFontDatabase::removeAllApplicationFonts();
    {
        LoadedFrame frame;
    }
    int first = 0;
    while (QFontDatabase::applicationFontFamilies(first).isEmpty())
        ++first;
    {
        LoadedFrame frame;
    }
    QVERIFY(QFontDatabase::applicationFontFamilies(first).contains("Inconsolata"_L1));
    // The next number is still free.
    QCOMPARE(QFontDatabase::addApplicationFont(u":/ostrelgui/fonts/Inconsolata-Regular.ttf"_s), first + 1);
    QFontDatabase::removeApplicationFont(first + 1);
}

void TstMainFrame::console_font_is_registered_though_another_has_its_number()
{
    QFontDatabase::removeAllApplicationFonts();
    {
        LoadedFrame frame;
    }
    // The program's own fonts may have come first in an application that was made anew.
    QFontDatabase::removeAllApplicationFonts();
    const QStringList others = QDir(u"/usr/share/fonts/truetype/dejavu"_s).entryList({u"*.ttf"_s});
    QVERIFY(!others.isEmpty());
    for (int i = 0; i < 4; ++i)
        QFontDatabase::addApplicationFont(u"/usr/share/fonts/truetype/dejavu/"_s + others.first());
    QVERIFY(!QFontDatabase::families().contains("Inconsolata"_L1));
    LoadedFrame frame;
    QVERIFY(QFontDatabase::families().contains("Inconsolata"_L1));
}

void TstMainFrame::console_becomes_the_output()
{
    LoadedFrame frame;
    CommandWindow* const console = Ostrel::instance()->command_line();
    QVERIFY(console);
    QCOMPARE(host().command_window, static_cast<OutputHandler*>(console));
}

void TstMainFrame::window_that_nearly_fills_the_screen_is_maximized_data()
{
    QTest::addColumn<QSize>("room");
    QTest::addColumn<bool>("maximized");

    QTest::newRow("enough room on both axes") << QSize(11, 31) << false;
    QTest::newRow("ten pixels beside it are not enough") << QSize(10, 31) << true;
    QTest::newRow("thirty pixels below it are not enough") << QSize(11, 30) << true;
    QTest::newRow("not enough on either axis") << QSize(10, 30) << true;
    QTest::newRow("plenty of height does not help") << QSize(10, 300) << true;
    QTest::newRow("plenty of width does not help") << QSize(300, 30) << true;
    QTest::newRow("larger than the screen") << QSize(-200, -200) << true;
}

void TstMainFrame::window_that_nearly_fills_the_screen_is_maximized()
{
    QFETCH(const QSize, room);
    QFETCH(const bool, maximized);
    const QSize size = QGuiApplication::primaryScreen()->geometry().size() - room;
    {
        QSettings settings;
        settings.setValue(u"/ostrelgui/ostrel/width"_s, size.width());
        settings.setValue(u"/ostrelgui/ostrel/height"_s, size.height());
    }
    LoadedFrame frame;
    QVERIFY(Ostrel::instance()->isVisible());
    QCOMPARE(Ostrel::instance()->isMaximized(), maximized);
    // Only an exact size puts the limits to the test. Maximizing has not changed it yet.
    QCOMPARE(Ostrel::instance()->size(), size);
}

void TstMainFrame::restored_geometry_counts_for_maximizing_data()
{
    QTest::addColumn<QSize>("room");
    QTest::addColumn<bool>("maximized");

    QTest::newRow("enough room on both axes") << QSize(11, 31) << false;
    QTest::newRow("ten pixels beside it are not enough") << QSize(10, 31) << true;
    QTest::newRow("thirty pixels below it are not enough") << QSize(11, 30) << true;
}

void TstMainFrame::restored_geometry_counts_for_maximizing()
{
    QFETCH(const QSize, room);
    QFETCH(const bool, maximized);
    const QSize size = QGuiApplication::primaryScreen()->geometry().size() - room;
    {
        QWidget like_last_time;
        like_last_time.move(2, 2);
        like_last_time.resize(size);
        QSettings().setValue(u"geometry"_s, like_last_time.saveGeometry());
    }
    LoadedFrame frame;
    QVERIFY(Ostrel::instance()->isVisible());
    QCOMPARE(Ostrel::instance()->isMaximized(), maximized);
    QCOMPARE(Ostrel::instance()->size(), size);
}

void TstMainFrame::navigation_directory_follows_the_setting_data()
{
    QTest::addColumn<QVariant>("classic");
    QTest::addColumn<QString>("directory");

    QTest::newRow("missing key") << QVariant() << u"/xml/action-based-xml"_s;
    QTest::newRow("switched off") << QVariant(false) << u"/xml/action-based-xml"_s;
    QTest::newRow("switched on") << QVariant(true) << u"/xml/entity-based-xml"_s;
    QTest::newRow("unreadable") << QVariant(QStringList{u"a"_s, u"b"_s}) << u"/xml/action-based-xml"_s;
}

void TstMainFrame::navigation_directory_follows_the_setting()
{
    QFETCH(const QVariant, classic);
    QFETCH(const QString, directory);
    if (classic.isValid())
        QSettings().setValue(u"/fennargui/commandpanel/classicnavigation"_s, classic);
    LoadedFrame frame;
    const QString call = u"NavigationReader::buildNavigation(\"%1%2\", \".xml\")"_s.arg(
        QCoreApplication::applicationDirPath(), directory);
    QCOMPARE(host().calls.filter(u"buildNavigation"_s), QStringList{call});
}

void TstMainFrame::reader_fills_the_model_with_resources_that_know_it()
{
    LoadedFrame frame;
    QVERIFY(Ostrel::instance()->navigation_model());
    QCOMPARE(host().resources_model, Ostrel::instance()->navigation_model());
}

void TstMainFrame::messages_of_the_reader_are_printed()
{
    host().navigation_messages = {u"first"_s, QString(), u"third"_s};
    {
        LoadedFrame frame;
        QVERIFY(frame.is_loaded());
        QCOMPARE(host().printed, u"first\n\nthird\n"_s);
    }
    host().reset();
    LoadedFrame frame;
    QCOMPARE(host().printed, QString());
}

void TstMainFrame::tracker_is_registered()
{
    LoadedFrame frame;
    QCOMPARE(host().trackers, std::vector<ComponentTracker*>{&frame});
}

void TstMainFrame::tracker_is_taken_out_of_a_loaded_frame()
{
    MainFrame frame;
    frame.load_gui();
    QStringList loaded;
    host().on_record = [&](const QString& call) {
        if (call.startsWith(u"Mediator::remove_component_tracker"_s))
            loaded << (frame.is_loaded() ? u"loaded"_s : u"unloaded"_s);
    };
    frame.unload_gui();
    host().on_record = nullptr;
    QCOMPARE(loaded, QStringList{u"loaded"_s});
    QVERIFY(!frame.is_loaded());
}

void TstMainFrame::frame_may_be_deleted_while_it_is_unloaded()
{
    for (const QString& moment : {u"Mediator::remove_component_tracker"_s, u"~NavigationResourcesDelay"_s,
                                  u"BrokerCommand::set_command_window"_s}) {
        auto frame = std::make_unique<MainFrame>();
        frame->load_gui();
        const QPointer<Ostrel> window = Ostrel::instance();
        host().on_record = [&](const QString& call) {
            if (call.startsWith(moment))
                frame.reset();
        };
        frame->unload_gui();
        host().on_record = nullptr;
        QVERIFY(!frame);
        QVERIFY2(!window, qPrintable(moment));
    }
}

void TstMainFrame::unloading_goes_in_order()
{
    AnnouncementWatch watch;
    MainFrame frame;
    frame.start_splash(nullptr);
    frame.load_gui();
    frame.new_event();
    QCoreApplication::processEvents();
    QCOMPARE(watch.receivers.size(), 1);
    QCOMPARE(splash_screens().size(), 1);
    QPointer<QObject> catcher = watch.receivers.constFirst();
    QPointer<Ostrel> window = Ostrel::instance();
    const auto announce = [](const QObject* object, const QString& what) {
        connect(object, &QObject::destroyed, object, [what] { host().record(what); });
    };
    announce(splash_screens().constFirst(), u"splash deleted"_s);
    announce(window, u"window deleted"_s);
    announce(catcher, u"catcher deleted"_s);
    host().take_calls();

    frame.unload_gui();
    QCOMPARE(host().take_calls(), (QStringList{
                                      u"Mediator::remove_component_tracker(set)"_s,
                                      u"splash deleted"_s,
                                      u"~NavigationResourcesDelay()"_s,
                                      u"BrokerCommand::set_command_window(null)"_s,
                                      u"window deleted"_s,
                                      u"catcher deleted"_s,
                                  }));
    QVERIFY(host().trackers.empty());
    QVERIFY(!frame.is_loaded());
    QVERIFY(!Ostrel::instance());
}

void TstMainFrame::nothing_works_after_unloading()
{
    AnnouncementWatch watch;
    MainFrame frame;
    frame.load_gui();
    frame.unload_gui();
    host().take_calls();

    frame.start_splash(nullptr);
    frame.show_splash_message("late");
    frame.finish_splash();
    QVERIFY(splash_screens().isEmpty());

    frame.new_event();
    QCoreApplication::processEvents();
    QVERIFY(watch.receivers.isEmpty());

    bool run = false;
    const QObject turn; // the timer, which nothing fires here, goes with it
    QTimer::singleShot(0, &turn, [&] { run = true; });
    frame.run_application();
    frame.start_progress_session("work", 1);
    frame.update_progress_session("work", 50);
    frame.check_interrupt_session("work");
    frame.end_progress_session("work");
    frame.set_status_text("working");
    frame.enable_cancel(true);
    QVERIFY(!run);
    QCOMPARE(host().take_calls(), QStringList());
}

void TstMainFrame::unloaded_frame_refuses_to_load_again()
{
    const auto warning =
        "MainFrame::load_gui: a frame that has been unloaded cannot be loaded again; make another";
    MainFrame frame;
    for (const bool loaded_before : {true, false}) {
        if (loaded_before)
            QVERIFY(frame.load_gui());
        frame.unload_gui();
        host().take_calls();
        QTest::ignoreMessage(QtWarningMsg, warning);
        QVERIFY(!frame.load_gui());
        QVERIFY(!frame.is_loaded());
        QVERIFY(!Ostrel::instance());
        // Not even the tracker: what it would be told of has gone.
        QCOMPARE(host().take_calls(), QStringList());
        QVERIFY(host().trackers.empty());
    }
}

void TstMainFrame::another_frame_can_be_loaded_after_the_first()
{
    {
        const LoadedFrame first;
    }
    LoadedFrame second;
    QVERIFY(second.is_loaded());
    QVERIFY(Ostrel::instance());
    QVERIFY(Ostrel::instance()->isVisible());
    QCOMPARE(host().trackers, std::vector<ComponentTracker*>{&second});
    second.set_status_text("again ");
    second.start_progress_session("work", 0);
    second.update_progress_session("work", 50);
    const auto* const bar = Ostrel::instance()->findChild<QProgressBar*>();
    QVERIFY(bar);
    QCOMPARE(bar->text(), u"again 50%"_s);
}

void TstMainFrame::unloading_without_loading_unregisters_the_tracker()
{
    MainFrame frame;
    host().take_calls();
    frame.unload_gui();
    QCOMPARE(host().take_calls(),
             (QStringList{u"Mediator::remove_component_tracker(set)"_s, u"~NavigationResourcesDelay()"_s}));
}

void TstMainFrame::window_closed_by_the_user_is_unloaded_too()
{
    LoadedFrame frame;
    QVERIFY(Ostrel::instance()->close());
    QVERIFY(frame.is_loaded());
    const QPointer<Ostrel> window = Ostrel::instance();
    QVERIFY(window);
    frame.unload_gui();
    QVERIFY(!window);
    QCOMPARE(host().command_window, nullptr);
}

void TstMainFrame::one_life_leaves_nothing_to_the_next()
{
    const qsizetype earlier = top_level_names().size();
    QStringList first_calls;
    for (int life = 1; life <= 10; ++life) {
        {
            LoadedFrame frame;
            frame.start_splash(nullptr);
            frame.new_event(); // left waiting
        }
        QVERIFY(!Ostrel::instance());
        // The submenu of toolbars outlives its window, since components may show it, and nothing else does.
        QCOMPARE(top_level_names(), QStringList(earlier + life, u"ViewToolbarsActionGroup"_s));
        QCoreApplication::processEvents();
        QVERIFY(host().trackers.empty());
        const QStringList calls = host().take_calls();
        if (life == 1)
            first_calls = calls;
        QCOMPARE(calls, first_calls);
    }
    QVERIFY(!first_calls.contains(announcement()));
}

void TstMainFrame::loading_again_does_nothing()
{
    LoadedFrame frame;
    const Ostrel* const window = Ostrel::instance();
    host().take_calls();
    QVERIFY(frame.load_gui());
    QCOMPARE(host().take_calls(), QStringList());
    QCOMPARE(Ostrel::instance(), window);
    QCOMPARE(host().trackers.size(), size_t(1));
    frame.unload_gui();
    QVERIFY(!Ostrel::instance());
    QVERIFY(!top_level_names().contains(u"Ostrel"_s));
}

void TstMainFrame::loading_while_loading_does_nothing()
{
    MainFrame frame;
    QList<bool> loaded;
    host().on_record = [&](const QString&) { loaded << frame.load_gui(); };
    QVERIFY(frame.load_gui());
    host().on_record = nullptr;
    // From the building of the window, and from behind it.
    QVERIFY(loaded.contains(false));
    QVERIFY(loaded.contains(true));
    QCOMPARE(host().calls.count(u"BrokerCommand::set_command_window(set)"_s), 1);
    QCOMPARE(host().trackers.size(), size_t(1));
    frame.unload_gui();
    QVERIFY(!top_level_names().contains(u"Ostrel"_s));
}

void TstMainFrame::frame_may_be_unloaded_while_it_loads_data()
{
    QTest::addColumn<QString>("moment");
    for (const char* moment :
         {"CLParser::batch_mode", "Framework::python_interpreter", "BrokerCommand::set_command_window(set)",
          "NavigationReader::setResources", "NavigationReader::setModel", "NavigationReader::buildNavigation",
          "BrokerCommand::operator<<"})
        QTest::newRow(moment) << QString::fromLatin1(moment);
}

void TstMainFrame::frame_may_be_unloaded_while_it_loads()
{
    QFETCH(const QString, moment);
    host().navigation_messages = {u"first"_s, u"second"_s};
    MainFrame frame;
    bool unloaded = false;
    bool early = false;
    host().on_record = [&](const QString& call) {
        if (!unloaded && call.startsWith(moment)) {
            unloaded = true;
            frame.unload_gui();
            early = moment.startsWith(u"NavigationReader"_s) &&
                    host().calls.contains(u"~NavigationResourcesDelay()"_s);
            host().take_calls();
        }
    };
    QVERIFY(!frame.load_gui());
    host().on_record = nullptr;
    QVERIFY(unloaded);
    QVERIFY2(!early, "the reader was left without its resources");
    // The model that it would be given has gone.
    QCOMPARE(host().take_calls().filter(u"NavigationReader::"_s), QStringList());
    QVERIFY(!frame.is_loaded());
    QVERIFY(!Ostrel::instance());
    QVERIFY(host().trackers.empty());
    QVERIFY(!top_level_names().contains(u"Ostrel"_s));
}

void TstMainFrame::frame_may_be_unloaded_while_it_is_unloaded()
{
    for (const QString& moment : {u"Mediator::remove_component_tracker(set)"_s,
                                  u"BrokerCommand::set_command_window(null)"_s, u"window gone"_s}) {
        LoadedFrame frame;
        connect(Ostrel::instance(), &QObject::destroyed, this, [] { host().record(u"window gone"_s); });
        bool again = false;
        host().on_record = [&](const QString& call) {
            if (!again && call == moment) {
                again = true;
                frame.unload_gui();
                frame.set_status_text("late");
            }
        };
        frame.unload_gui();
        host().on_record = nullptr;
        QVERIFY(again);
        QVERIFY(!frame.is_loaded());
    }
}

void TstMainFrame::frame_may_be_unloaded_while_the_queue_runs_data()
{
    QTest::addColumn<QString>("call");
    for (const char* call : {"start", "update", "check"})
        QTest::newRow(call) << QString::fromLatin1(call);
}

void TstMainFrame::frame_may_be_unloaded_while_the_queue_runs()
{
    QFETCH(const QString, call);
    LoadedFrame frame;
    if (call == u"update"_s)
        frame.start_progress_session("work", 0);
    host().on_handle_new_event = [&] { frame.unload_gui(); };
    frame.new_event();
    if (call == u"start"_s)
        frame.start_progress_session("work", 1);
    else if (call == u"update"_s)
        frame.update_progress_session("work", 50);
    else
        frame.check_interrupt_session("work");
    QCOMPARE(announcements(), 1);
    QVERIFY(!frame.is_loaded());
    QVERIFY(!Ostrel::instance());
}

void TstMainFrame::frame_may_be_unloaded_by_what_it_announces()
{
    LoadedFrame frame;
    connect(Ostrel::instance(), &Ostrel::componentLoaded, this, [&] { frame.unload_gui(); });
    frame.component_loaded("geometry");
    QVERIFY(!frame.is_loaded());
}

void TstMainFrame::frame_may_go_while_resources_are_rechecked()
{
    auto frame = std::make_unique<LoadedFrame>();
    host().take_calls();
    bool early = false;
    host().on_record = [&](const QString& call) {
        if (call != u"NavigationResourcesDelay::recheckResources()"_s)
            return;
        LoadedFrame* const called = frame.get();
        called->unload_gui();
        frame.reset();
        early = host().calls.contains(u"~NavigationResourcesDelay()"_s);
    };
    LoadedFrame* const called = frame.get();
    called->component_loaded("geometry");
    host().on_record = nullptr;
    QVERIFY(!frame);
    QVERIFY(!Ostrel::instance());
    QVERIFY2(!early, "the resources went in their own call");
    QCOMPARE(host().calls.count(u"~NavigationResourcesDelay()"_s), 1);
}

void TstMainFrame::frame_may_be_unloaded_while_its_splash_closes()
{
    LoadedFrame frame;
    frame.start_splash(nullptr);
    const EventActor actor(splash_screens().constFirst(), QEvent::Close, [&] {
        frame.unload_gui();
        return false;
    });
    frame.finish_splash();
    QVERIFY(actor.has_acted());
    QVERIFY(splash_screens().isEmpty());
}

void TstMainFrame::new_event_is_posted_not_sent()
{
    AnnouncementWatch watch;
    LoadedFrame frame;
    QCoreApplication::processEvents();
    host().take_calls();
    frame.new_event();
    frame.new_event();
    QVERIFY(watch.receivers.isEmpty());
    QCOMPARE(announcements(), 0);

    QCoreApplication::processEvents();
    QCOMPARE(announcements(), 2);
    QCOMPARE(watch.receivers.size(), 2);
    QVERIFY(qobject_cast<EventCatcher*>(watch.receivers.constFirst()));
    QCOMPARE(static_cast<EventCatcher*>(watch.receivers.constFirst().data())->application, qApp);
    QCOMPARE(watch.receivers.constFirst()->parent(), nullptr);
}

void TstMainFrame::new_event_needs_an_application_behind_the_catcher()
{
    AnnouncementWatch watch;
    LoadedFrame frame;
    frame.new_event();
    QCoreApplication::processEvents();
    QCOMPARE(watch.receivers.size(), 1);
    auto* catcher = qobject_cast<EventCatcher*>(watch.receivers.constFirst());
    QVERIFY(catcher);
    catcher->application = nullptr;
    frame.new_event();
    QCoreApplication::processEvents();
    QCOMPARE(watch.receivers.size(), 1);
}

void TstMainFrame::new_event_has_normal_priority()
{
    LoadedFrame frame;
    QCoreApplication::processEvents();
    QStringList order;
    host().on_handle_new_event = [&] { order << u"announced"_s; };
    QMetaObject::invokeMethod(
        this, [&] { order << u"before"_s; }, Qt::QueuedConnection);
    frame.new_event();
    QMetaObject::invokeMethod(
        this, [&] { order << u"after"_s; }, Qt::QueuedConnection);
    QCoreApplication::processEvents();
    QCOMPARE(order, (QStringList{u"before"_s, u"announced"_s, u"after"_s}));
    host().on_handle_new_event = nullptr;
}

void TstMainFrame::new_events_from_a_thread_are_all_handled_on_the_gui_thread()
{
    constexpr int count = 1000;
    LoadedFrame frame;
    int handled = 0;
    int elsewhere = 0;
    std::thread framework;
    host().on_handle_new_event = [&] {
        ++handled;
        elsewhere += QThread::currentThread() != qApp->thread();
        if (handled == count)
            frame.end_application();
    };
    QTimer::singleShot(0, this, [&] {
        framework = std::thread([&frame] {
            for (int i = 0; i < count; ++i)
                frame.new_event();
        });
    });
    frame.run_application();
    framework.join();
    QCoreApplication::processEvents();
    QCOMPARE(handled, count);
    QCOMPARE(elsewhere, 0);
    host().on_handle_new_event = nullptr;
}

void TstMainFrame::catcher_answers_every_event()
{
    EventCatcher catcher(nullptr);
    QVERIFY(!catcher.application);
    for (const QEvent::Type type : {QEvent::Type(1000), QEvent::None, QEvent::Timer, QEvent::DeferredDelete,
                                    QEvent::User, QEvent::KeyPress}) {
        QEvent event(type);
        QVERIFY(catcher.event(&event));
    }
    QCOMPARE(announcements(), 6);
    QCOMPARE(host().take_calls(), QStringList(6, announcement()));
}

void TstMainFrame::end_application_ends_the_run()
{
    LoadedFrame frame;
    QTimer::singleShot(0, this, [&] { frame.end_application(); });
    frame.run_application(); // does not return otherwise
    // Qt has asked the windows to close first.
    QVERIFY(frame.is_loaded());
    QVERIFY(!Ostrel::instance()->isVisible());
    QVERIFY(host().calls.contains("Mediator::request_exit()"_L1));
}

void TstMainFrame::accepted_close_ends_the_run_when_the_host_says_so()
{
    LoadedFrame frame;
    host().on_request_exit = [&] { frame.end_application(); };
    QTimer::singleShot(0, this, [] { Ostrel::instance()->close(); });
    frame.run_application();
    QCOMPARE(host().calls.count(u"Mediator::request_exit()"_s), 1);
    host().on_request_exit = nullptr;
}

void TstMainFrame::end_application_from_inside_the_close_does_not_close_again()
{
    LoadedFrame frame;
    host().on_request_exit = [&] { frame.end_application(); };
    QTimer::singleShot(0, this, [&] { frame.end_application(); });
    frame.run_application();
    QCOMPARE(host().calls.count(u"Mediator::request_exit()"_s), 1);
    host().on_request_exit = nullptr;
}

void TstMainFrame::interrupt_check_runs_the_queue_each_time()
{
    LoadedFrame frame;
    for (const char* title : {"work", "", static_cast<const char*>(nullptr)}) {
        host().take_calls();
        frame.new_event();
        frame.check_interrupt_session(title);
        QCOMPARE(announcements(), 1);
    }
}

void TstMainFrame::interrupt_check_swallows_user_input()
{
    LoadedFrame frame;
    QVERIFY(show_active(Ostrel::instance()));
    const QSignalSpy help(Ostrel::instance(), &Ostrel::help_key_pressed);
    const auto press = [] { QTest::keyClick(Ostrel::instance()->windowHandle(), Qt::Key_F1); };
    press();
    QCOMPARE(help.size(), 1); // such a key does arrive

    bool pressed = false;
    QMetaObject::invokeMethod(
        this,
        [&] {
            press();
            pressed = true;
        },
        Qt::QueuedConnection);
    frame.check_interrupt_session("work");
    QVERIFY(pressed);
    QCoreApplication::processEvents();
    QCOMPARE(help.size(), 1);
    press();
    QCOMPARE(help.size(), 2);
}

void TstMainFrame::splash_shows_the_picture()
{
    const QTemporaryDir directory;
    const QString picture = make_picture(directory, u"caf\u00e9.png"_s, QSize(120, 80));
    QVERIFY(!picture.isEmpty());
    MainFrame frame;
    frame.start_splash(picture.toUtf8().constData());
    QCOMPARE(splash_screens().size(), 1);
    const QSplashScreen* const splash = splash_screens().constFirst();
    QVERIFY(splash->isVisible());
    QCOMPARE(splash->pixmap().size(), QSize(120, 80));
    QVERIFY(splash->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

void TstMainFrame::splash_can_be_switched_off()
{
    QSettings().setValue(u"/ostrelgui/ostrel/splash"_s, false);
    MainFrame frame;
    frame.start_splash(nullptr);
    QVERIFY(splash_screens().isEmpty());
    frame.show_splash_message("text");
    frame.finish_splash();
    QVERIFY(splash_screens().isEmpty());

    QSettings().setValue(u"/ostrelgui/ostrel/splash"_s, true);
    frame.start_splash(nullptr);
    QCOMPARE(splash_screens().size(), 1);
}

void TstMainFrame::unreadable_switch_leaves_the_splash_on()
{
    QSettings().setValue(u"/ostrelgui/ostrel/splash"_s, QStringList{u"a"_s, u"b"_s});
    MainFrame frame;
    frame.start_splash(nullptr);
    QCOMPARE(splash_screens().size(), 1);
}

void TstMainFrame::second_splash_is_ignored()
{
    const QTemporaryDir directory;
    const QString first = make_picture(directory, u"first.png"_s, QSize(120, 80));
    const QString second = make_picture(directory, u"second.png"_s, QSize(60, 40));
    MainFrame frame;
    frame.start_splash(first.toUtf8().constData());
    QCOMPARE(splash_screens().size(), 1);
    QSplashScreen* const splash = splash_screens().constFirst();
    frame.start_splash(second.toUtf8().constData());
    QCOMPARE(splash_screens(), QList<QSplashScreen*>{splash});
    QCOMPARE(splash->pixmap().size(), QSize(120, 80));
}

void TstMainFrame::unreadable_picture_gives_an_empty_splash_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("no such file") << QByteArray("/no/such/picture.png");
    QTest::newRow("empty name") << QByteArray("");
    QTest::newRow("null") << QByteArray();
}

void TstMainFrame::unreadable_picture_gives_an_empty_splash()
{
    QFETCH(const QByteArray, file);
    MainFrame frame;
    frame.start_splash(file.isNull() ? nullptr : file.constData());
    QCOMPARE(splash_screens().size(), 1);
    QVERIFY(splash_screens().constFirst()->isVisible());
    QVERIFY(splash_screens().constFirst()->pixmap().isNull());
}

void TstMainFrame::splash_message_is_white_at_the_bottom_center()
{
    const QTemporaryDir directory;
    const QSize size(400, 200);
    const QString picture = make_picture(directory, u"black.png"_s, size);
    MainFrame frame;
    frame.start_splash(picture.toUtf8().constData());
    QCOMPARE(splash_screens().size(), 1);
    QSplashScreen* const splash = splash_screens().constFirst();
    frame.show_splash_message("loading caf\xc3\xa9 \xe2\x96\x88");
    QCOMPARE(splash->message(), u"loading caf\u00e9 \u2588"_s);

    const QImage image = splash->grab().toImage();
    QRect written;
    bool white = false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.value() > 50)
                written |= QRect(x, y, 1, 1);
            white |= color == Qt::white;
        }
    }
    QVERIFY(white);
    QCOMPARE_GT(written.top(), size.height() * 3 / 4);
    QCOMPARE_LT(qAbs(written.center().x() - size.width() / 2), 10);
}

void TstMainFrame::finished_splash_is_closed_and_gone()
{
    class CloseWatch : public QObject
    {
    public:
        bool eventFilter(QObject*, QEvent* event) override
        {
            closed |= event->type() == QEvent::Close;
            return false;
        }
        bool closed = false;
    } watch;
    MainFrame frame;
    frame.start_splash(nullptr);
    QCOMPARE(splash_screens().size(), 1);
    const QPointer<QSplashScreen> splash = splash_screens().constFirst();
    splash->installEventFilter(&watch);
    frame.finish_splash();
    QVERIFY(!splash);
    QVERIFY(watch.closed);

    frame.start_splash(nullptr);
    QCOMPARE(splash_screens().size(), 1);
}

void TstMainFrame::splash_goes_with_unloading()
{
    LoadedFrame frame;
    frame.start_splash(nullptr);
    QCOMPARE(splash_screens().size(), 1);
    frame.unload_gui();
    QVERIFY(splash_screens().isEmpty());
}

void TstMainFrame::message_and_finish_do_nothing_without_splash()
{
    MainFrame frame;
    frame.show_splash_message("text");
    QVERIFY(splash_screens().isEmpty());
    frame.finish_splash();
    QVERIFY(splash_screens().isEmpty());
}

void TstMainFrame::loaded_component_is_rechecked_then_announced()
{
    LoadedFrame frame;
    connect(Ostrel::instance(), &Ostrel::componentLoaded, this,
            [](const char* name) { host().record(u"announced "_s + QString::fromUtf8(name)); });
    host().take_calls();
    QCOMPARE(host().trackers.size(), size_t(1));
    host().trackers.front()->component_loaded("geometry");
    QCOMPARE(host().take_calls(),
             (QStringList{u"NavigationResourcesDelay::recheckResources()"_s, u"announced geometry"_s}));
}

void TstMainFrame::component_loaded_after_unloading_is_not_announced()
{
    MainFrame frame;
    frame.load_gui();
    frame.unload_gui();
    host().take_calls();
    frame.component_loaded("geometry");
    QCOMPARE(host().take_calls(), QStringList());
}

void TstMainFrame::other_component_calls_have_no_effect()
{
    LoadedFrame frame;
    const QSignalSpy announced(Ostrel::instance(), &Ostrel::componentLoaded);
    host().take_calls();
    QCOMPARE(host().trackers.size(), size_t(1));
    ComponentTracker* const tracker = host().trackers.front();
    tracker->component_loading("geometry");
    tracker->component_unloading("geometry");
    tracker->component_unloaded("geometry");
    QCOMPARE(host().take_calls(), QStringList());
    QVERIFY(announced.isEmpty());
}

OSTREL_TEST(TstMainFrame)

#include "tst_mainframe.moc"
