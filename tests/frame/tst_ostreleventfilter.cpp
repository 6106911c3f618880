// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "frame/OstrelEventFilter.h"
#include "support/TestCase.h"
#include "support/TestClock.h"
#include "support/windows.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QShortcut>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <new>
#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The filter with its protected half open.
class OpenFilter : public OstrelEventFilter
{
public:
    using OstrelEventFilter::do_process;
    using OstrelEventFilter::eventFilter;

    bool swallows(QObject* watched, QEvent::Type type)
    {
        QEvent event(type);
        return eventFilter(watched, &event);
    }
};

// Does something when the event that it posts to itself is delivered.
class Handler : public QObject
{
public:
    explicit Handler(std::function<void()> action = {}) : mAction(std::move(action)) {}

    void post() { QCoreApplication::postEvent(this, new QEvent(type)); }
    bool event(QEvent* e) override
    {
        if (e->type() != type)
            return QObject::event(e);
        ++handled;
        if (mAction)
            mAction();
        return true;
    }

    int handled = 0;

private:
    static constexpr auto type = QEvent::Type(1000);
    std::function<void()> mAction;
};

// A window with two buttons, one of which has a neighbor below the same parent.
class Window : public QWidget
{
public:
    Window()
    {
        auto* column = new QVBoxLayout(this);
        column->addWidget(&group);
        auto* row = new QHBoxLayout(&group);
        row->addWidget(&first);
        row->addWidget(&second);
        connect(&first, &QPushButton::clicked, this, [this] { clicks << u"first"_s; });
        connect(&second, &QPushButton::clicked, this, [this] { clicks << u"second"_s; });
        resize(300, 100);
    }

    // Puts a click on the window into the event queue. It is made when its turn comes: mouse events made
    // ahead share the device's last position.
    void queue_click(QWidget& target)
    {
        const auto click = [this, &target] {
            QTest::mouseClick(windowHandle(), Qt::LeftButton, Qt::NoModifier,
                              target.mapTo(this, target.rect().center()));
        };
        QMetaObject::invokeMethod(this, click, Qt::QueuedConnection);
    }

    QWidget group;
    QPushButton first;
    QPushButton second;
    QStringList clicks;
};

// Whether input reaches its receiver, that is, whether no filter is in place.
bool input_passes()
{
    class Receiver : public QObject
    {
    public:
        bool event(QEvent* e) override
        {
            seen |= e->type() == QEvent::KeyPress;
            return true;
        }
        bool seen = false;
    } receiver;
    QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, u"a"_s);
    QCoreApplication::sendEvent(&receiver, &press);
    return receiver.seen;
}

} // namespace

class TstOstrelEventFilter : public TestCase
{
    Q_OBJECT

private slots:
    void has_no_parent();
    void swallows_exactly_user_input();
    void windows_are_never_filtered();
    void allowed_object_passes_with_all_below_it();
    void object_added_twice_is_removed_at_once();
    void removing_an_object_that_is_not_allowed_changes_nothing();
    void new_object_in_the_place_of_an_allowed_one_is_not_allowed();
    void filter_may_be_deleted_while_the_queue_runs();

    void first_unforced_run_takes_place();
    void second_unforced_run_waits_for_half_a_second();
    void forced_run_always_takes_place();
    void forced_run_starts_the_interval();
    void interval_counts_from_before_the_run();
    void do_process_ignores_the_interval();
    void do_process_leaves_the_interval_alone();

    void queued_click_is_lost_unless_allowed();
    void click_on_child_of_allowed_object_passes();
    void key_in_the_console_is_lost_for_good();
    void shortcut_does_not_fire_during_the_run();
    void timers_paint_and_posted_events_pass();
    void input_passes_outside_a_run();
    void throwing_handler_leaves_no_filter_and_no_interval();
    void inner_run_filters_and_ends_the_filtering_of_the_outer();
};

void TstOstrelEventFilter::has_no_parent()
{
    OstrelEventFilter filter;
    QCOMPARE(filter.parent(), nullptr);
}

void TstOstrelEventFilter::swallows_exactly_user_input()
{
    const QList<int> expected{2, 3, 4, 5, 6, 7, 31, 61, 82, 117, 129};
    OpenFilter filter;
    QObject watched;
    QList<int> swallowed;
    for (int type = 0; type <= 250; ++type) {
        if (filter.swallows(&watched, QEvent::Type(type)))
            swallowed << type;
    }
    QCOMPARE(swallowed, expected);
    QVERIFY(!filter.swallows(&watched, QEvent::Type(1000)));
    QVERIFY(!filter.swallows(&watched, QEvent::Type(QEvent::MaxUser)));
}

void TstOstrelEventFilter::windows_are_never_filtered()
{
    OpenFilter filter;
    QWindow window;
    QWidget widget;
    for (int type = 0; type <= 250; ++type)
        QVERIFY(!filter.swallows(&window, QEvent::Type(type)));
    // A widget is no window in this sense, even if it is a top-level one.
    QVERIFY(filter.swallows(&widget, QEvent::KeyPress));
}

void TstOstrelEventFilter::allowed_object_passes_with_all_below_it()
{
    OpenFilter filter;
    QObject parent;
    QObject allowed(&parent);
    QObject sibling(&parent);
    QObject child(&allowed);
    QObject grandchild(&child);
    QVERIFY(filter.swallows(&allowed, QEvent::MouseButtonPress));
    QVERIFY(filter.swallows(&grandchild, QEvent::MouseButtonPress));

    filter.addObject(&allowed);
    QVERIFY(!filter.swallows(&allowed, QEvent::MouseButtonPress));
    QVERIFY(!filter.swallows(&child, QEvent::MouseButtonPress));
    QVERIFY(!filter.swallows(&grandchild, QEvent::MouseButtonPress));
    QVERIFY(filter.swallows(&sibling, QEvent::MouseButtonPress));
    QVERIFY(filter.swallows(&parent, QEvent::MouseButtonPress));
}

void TstOstrelEventFilter::object_added_twice_is_removed_at_once()
{
    OpenFilter filter;
    QObject object;
    filter.addObject(&object);
    filter.addObject(&object);
    QVERIFY(!filter.swallows(&object, QEvent::KeyPress));
    filter.removeObject(&object);
    QVERIFY(filter.swallows(&object, QEvent::KeyPress));
}

void TstOstrelEventFilter::removing_an_object_that_is_not_allowed_changes_nothing()
{
    OpenFilter filter;
    QObject allowed;
    QObject other;
    filter.addObject(&allowed);
    filter.removeObject(&other);
    QVERIFY(!filter.swallows(&allowed, QEvent::KeyPress));
    QVERIFY(filter.swallows(&other, QEvent::KeyPress));
}

void TstOstrelEventFilter::new_object_in_the_place_of_an_allowed_one_is_not_allowed()
{
    OpenFilter filter;
    filter.addObject(nullptr);
    alignas(QObject) std::array<std::byte, sizeof(QObject)> place;
    auto* object = new (place.data()) QObject;
    filter.addObject(object);
    filter.addObject(object);
    QVERIFY(!filter.swallows(object, QEvent::KeyPress));
    object->~QObject();
    object = new (place.data()) QObject;
    QVERIFY(filter.swallows(object, QEvent::KeyPress));
    object->~QObject();
}

void TstOstrelEventFilter::filter_may_be_deleted_while_the_queue_runs()
{
    auto filter = std::make_unique<OstrelEventFilter>();
    Handler handler([&] { filter.reset(); });
    handler.post();
    OstrelEventFilter* const called = filter.get();
    called->processEvents(true);
    QCOMPARE(handler.handled, 1);
    QVERIFY(!filter);
    QVERIFY(input_passes());
}

void TstOstrelEventFilter::first_unforced_run_takes_place()
{
    OpenFilter filter;
    Handler handler;
    handler.post();
    filter.processEvents(false);
    QCOMPARE(handler.handled, 1);
}

void TstOstrelEventFilter::second_unforced_run_waits_for_half_a_second()
{
    const TestClock clock;
    OpenFilter filter;
    filter.processEvents(false);

    // As a command reports its progress, over and over.
    Handler handler;
    handler.post();
    clock.advance(250ms);
    filter.processEvents(false);
    clock.advance(249'999us);
    filter.processEvents(false);
    // The interval is counted in whole microseconds.
    clock.advance(999ns);
    filter.processEvents(false);
    QCOMPARE(handler.handled, 0);
    clock.advance(1ns);
    filter.processEvents(false);
    QCOMPARE(handler.handled, 1);

    handler.post();
    filter.processEvents(false);
    QCOMPARE(handler.handled, 1);
    clock.advance(500ms);
    filter.processEvents(false);
    QCOMPARE(handler.handled, 2);
}

void TstOstrelEventFilter::forced_run_always_takes_place()
{
    OpenFilter filter;
    Handler handler;
    for (int run = 1; run <= 3; ++run) {
        handler.post();
        filter.processEvents(true);
        QCOMPARE(handler.handled, run);
    }
}

void TstOstrelEventFilter::forced_run_starts_the_interval()
{
    const TestClock clock;
    OpenFilter filter;
    Handler handler;
    filter.processEvents(false);
    clock.advance(375ms);
    filter.processEvents(true);
    clock.advance(375ms);
    handler.post();
    filter.processEvents(false);
    QCOMPARE(handler.handled, 0);
    clock.advance(125ms);
    filter.processEvents(false);
    QCOMPARE(handler.handled, 1);
}

void TstOstrelEventFilter::interval_counts_from_before_the_run()
{
    const TestClock clock;
    OpenFilter filter;
    Handler slow([] { TestClock::advance(500ms); });
    slow.post();
    filter.processEvents(false);
    QCOMPARE(slow.handled, 1);

    Handler handler;
    handler.post();
    filter.processEvents(false);
    QCOMPARE(handler.handled, 1);
}

void TstOstrelEventFilter::do_process_ignores_the_interval()
{
    OpenFilter filter;
    Handler handler([] { QVERIFY(!input_passes()); });
    filter.processEvents(true);
    for (int run = 1; run <= 2; ++run) {
        handler.post();
        filter.do_process();
        QCOMPARE(handler.handled, run);
    }
    QVERIFY(input_passes());
}

void TstOstrelEventFilter::do_process_leaves_the_interval_alone()
{
    OpenFilter filter;
    Handler handler;
    filter.do_process();
    handler.post();
    filter.processEvents(false);
    QCOMPARE(handler.handled, 1);
}

void TstOstrelEventFilter::queued_click_is_lost_unless_allowed()
{
    Window window;
    QVERIFY(show_active(&window));
    window.queue_click(window.first);
    QCoreApplication::processEvents();
    QCOMPARE(window.clicks, QStringList{u"first"_s}); // such clicks do arrive
    window.clicks.clear();

    OpenFilter filter;
    filter.addObject(&window.second);
    window.queue_click(window.first);
    filter.processEvents(true);
    QCOMPARE(window.clicks, QStringList());
    window.queue_click(window.second);
    filter.processEvents(true);
    QCOMPARE(window.clicks, QStringList{u"second"_s});

    QCoreApplication::processEvents();
    QCOMPARE(window.clicks, QStringList{u"second"_s});
    QVERIFY(!window.first.isDown());
}

void TstOstrelEventFilter::click_on_child_of_allowed_object_passes()
{
    Window window;
    QPushButton outside(&window);
    window.layout()->addWidget(&outside);
    connect(&outside, &QPushButton::clicked, &window, [&] { window.clicks << u"outside"_s; });
    QVERIFY(show_active(&window));

    OpenFilter filter;
    filter.addObject(&window.group);
    window.queue_click(outside);
    filter.processEvents(true);
    window.queue_click(window.first);
    filter.processEvents(true);
    QCOMPARE(window.clicks, QStringList{u"first"_s});
}

void TstOstrelEventFilter::key_in_the_console_is_lost_for_good()
{
    CommandWidget console;
    console.resize(300, 100);
    QVERIFY(show_active(&console));
    console.printPrompt();
    console.setFocus();
    QTRY_VERIFY(console.hasFocus());
    QTest::keyClick(console.windowHandle(), Qt::Key_X);
    QVERIFY(console.toPlainText().contains(u'x')); // keys do arrive

    OpenFilter filter;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        QCoreApplication::postEvent(console.windowHandle(), new QKeyEvent(type, Qt::Key_Y, {}, u"y"_s));
    filter.processEvents(true);
    QVERIFY(!console.toPlainText().contains(u'y'));

    Handler user([&] { QTest::keyClick(console.windowHandle(), Qt::Key_Z); });
    user.post();
    filter.processEvents(true);
    QCOMPARE(user.handled, 1);
    QCoreApplication::processEvents();
    QVERIFY(!console.toPlainText().contains(u'y'));
    QVERIFY(!console.toPlainText().contains(u'z'));
    QVERIFY(console.toPlainText().contains(u'x'));
}

void TstOstrelEventFilter::shortcut_does_not_fire_during_the_run()
{
    Window window;
    int fired = 0;
    QShortcut shortcut(QKeySequence(u"Ctrl+K"_s), &window);
    connect(&shortcut, &QShortcut::activated, &window, [&] { ++fired; });
    QVERIFY(show_active(&window));
    QTest::keyClick(window.windowHandle(), Qt::Key_K, Qt::ControlModifier);
    QCOMPARE(fired, 1);

    OpenFilter filter;
    Handler user([&] { QTest::keyClick(window.windowHandle(), Qt::Key_K, Qt::ControlModifier); });
    user.post();
    filter.processEvents(true);
    QCOMPARE(user.handled, 1);
    QCoreApplication::processEvents();
    QCOMPARE(fired, 1);
}

void TstOstrelEventFilter::timers_paint_and_posted_events_pass()
{
    class Painted : public QWidget
    {
    public:
        void paintEvent(QPaintEvent*) override { ++painted; }
        int painted = 0;
    } widget;
    widget.resize(100, 100);
    QVERIFY(show_active(&widget));
    QTRY_VERIFY(widget.painted > 0);
    QCoreApplication::processEvents();
    widget.painted = 0;

    OpenFilter filter;
    Handler handler;
    bool timed_out = false;
    QTimer::singleShot(0, &widget, [&] { timed_out = true; });
    handler.post();
    widget.update();
    filter.processEvents(true);
    QVERIFY(timed_out);
    QCOMPARE(handler.handled, 1);
    QCOMPARE(widget.painted, 1);
}

void TstOstrelEventFilter::input_passes_outside_a_run()
{
    OpenFilter filter;
    QVERIFY(input_passes());
    Handler handler([] { QVERIFY(!input_passes()); });
    handler.post();
    filter.processEvents(false);
    QCOMPARE(handler.handled, 1);
    QVERIFY(input_passes());
    filter.processEvents(true);
    QVERIFY(input_passes());
}

void TstOstrelEventFilter::throwing_handler_leaves_no_filter_and_no_interval()
{
    OpenFilter filter;
    bool filtered = false;
    Handler thrower([&] {
        filtered = !input_passes();
        throw std::runtime_error("from a handler");
    });
    thrower.post();
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, filter.processEvents(true));
    QVERIFY(filtered);
    QVERIFY(input_passes());

    // The first run that counts is still to come.
    Handler handler;
    handler.post();
    filter.processEvents(false);
    QCOMPARE(handler.handled, 1);
}

void TstOstrelEventFilter::inner_run_filters_and_ends_the_filtering_of_the_outer()
{
    OpenFilter filter;
    QStringList log;
    const auto look = [&](const QString& place) {
        log << place + (input_passes() ? u": passes"_s : u": filtered"_s);
    };
    Handler inner([&] { look(u"inner"_s); });
    Handler outer([&] {
        look(u"before"_s);
        inner.post();
        filter.processEvents(true);
        look(u"after"_s);
    });
    outer.post();
    filter.processEvents(true);
    look(u"outside"_s);
    QCOMPARE(log, (QStringList{u"before: filtered"_s, u"inner: filtered"_s, u"after: passes"_s,
                               u"outside: passes"_s}));
}

namespace {

/** A throwing handler unwinds Qt's own dispatcher cleanly; that of GLib, written in C, does not take it. */
int do_without_glib()
{
    qputenv("QT_NO_GLIB", "1");
    return -1;
}

} // namespace

OSTREL_TEST(TstOstrelEventFilter, do_without_glib)
#include "tst_ostreleventfilter.moc"
