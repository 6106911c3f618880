// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/Ostrel.h"
#include "host/navigation/TaskPanel.h"
#include "hostdouble/HostDouble.h"
#include "support/EventActor.h"
#include "support/TestCase.h"
#include "support/describe_window.h"

#include <QAction>
#include <QCoreApplication>
#include <QDockWidget>
#include <QEventLoop>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QScopeGuard>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <functional>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/** A way to put actions of a component into a window, which makes a menu or a toolbar for them. */
using Add = void (*)(Ostrel& window, std::vector<QAction*>& actions);

void add_to_menu(Ostrel& window, std::vector<QAction*>& actions)
{
    window.add_to_menu(u"Own"_s, actions, "one");
}

void add_to_toolbar(Ostrel& window, std::vector<QAction*>& actions)
{
    window.add_to_toolbar("own", u"Own"_s, actions, "one", Qt::TopToolBarArea);
}

void ways_to_add()
{
    QTest::addColumn<Add>("add");
    QTest::newRow("menu") << Add(add_to_menu);
    QTest::newRow("toolbar") << Add(add_to_toolbar);
}

/** The menus or toolbars that a component has made. */
QList<QWidget*> made_in(const Ostrel& window)
{
    QList<QWidget*> made;
    for (const QAction* action : window.menuWidget()->actions())
        if (action->text() == u"Own"_s)
            made << action->menu<QMenu*>();
    for (QToolBar* toolbar : window.findChildren<QToolBar*>(u"own"_s))
        made << toolbar;
    return made;
}

/** Lets an event loop go round once. */
void run_loop()
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

/** What a component may do while something is made for it or for others, and taken away again. */
class TstOstrelMaking : public TestCase
{
    Q_OBJECT

private slots:
    void window_may_be_deleted_while_a_widget_is_made_data();
    void window_may_be_deleted_while_a_widget_is_made();
    void widget_made_by_others_meanwhile_is_the_one_data();
    void widget_made_by_others_meanwhile_is_the_one();
    void action_deleted_meanwhile_is_left_out_data();
    void action_deleted_meanwhile_is_left_out();
    void action_deleted_while_the_window_takes_the_toolbar_is_left_out();
    void event_loop_may_run_while_a_toolbar_is_emptied();
    void command_panel_chosen_last_stays();
    void window_may_be_deleted_when_its_graphics_widget_is();
    void window_may_be_deleted_when_a_button_is_pushed();
};

void TstOstrelMaking::window_may_be_deleted_while_a_widget_is_made_data()
{
    ways_to_add();
}

void TstOstrelMaking::window_may_be_deleted_while_a_widget_is_made()
{
    QFETCH(const Add, add);
    auto window = std::make_unique<Ostrel>();
    QAction action;
    std::vector<QAction*> actions{&action};
    // The widget is nobody's child yet, so that a filter on the application alone hears of it.
    const EventActor actor(qApp, QEvent::ChildAdded, [&] {
        window.reset();
        return false;
    });
    add(*window, actions);
    QVERIFY(actor.has_acted());
    QVERIFY(!window);
}

void TstOstrelMaking::widget_made_by_others_meanwhile_is_the_one_data()
{
    ways_to_add();
}

void TstOstrelMaking::widget_made_by_others_meanwhile_is_the_one()
{
    QFETCH(const Add, add);
    Ostrel window;
    const QStringList before = describe_window(window);
    QAction first(u"1"_s);
    QAction second(u"2"_s);
    std::vector<QAction*> actions{&first};
    std::vector<QAction*> others{&second};
    const EventActor actor(qApp, QEvent::ChildAdded, [&] {
        add(window, others);
        return false;
    });
    add(window, actions);
    QVERIFY(actor.has_acted());
    const QList<QWidget*> made = made_in(window);
    QCOMPARE(made.size(), 1);
    QCOMPARE(made.constFirst()->actions(), (QList<QAction*>{&second, &first}));
    window.remove_menu_items("one");
    window.remove_toolbar_items("one");
    QCOMPARE(describe_window(window), before);
}

void TstOstrelMaking::action_deleted_meanwhile_is_left_out_data()
{
    ways_to_add();
}

void TstOstrelMaking::action_deleted_meanwhile_is_left_out()
{
    QFETCH(const Add, add);
    Ostrel window;
    QAction first(u"1"_s);
    auto second = std::make_unique<QAction>(u"2"_s);
    QAction third(u"3"_s);
    std::vector<QAction*> actions{&first, second.get(), nullptr, &third};
    const EventActor actor(qApp, QEvent::ChildAdded, [&] {
        second.reset();
        return false;
    });
    add(window, actions);
    QVERIFY(actor.has_acted());
    const QList<QAction*> shown = made_in(window).constFirst()->actions();
    QCOMPARE(shown.size(), 3);
    QCOMPARE(shown.constFirst(), &first);
    QVERIFY(shown.at(1)->isSeparator());
    QCOMPARE(shown.constLast(), &third);
}

void TstOstrelMaking::action_deleted_while_the_window_takes_the_toolbar_is_left_out()
{
    Ostrel window;
    auto action = std::make_unique<QAction>(u"1"_s);
    std::vector<QAction*> actions{action.get()};
    const EventActor actor(&window, QEvent::ChildAdded, [&] {
        action.reset();
        return false;
    });
    add_to_toolbar(window, actions);
    QVERIFY(actor.has_acted());
    QCOMPARE(made_in(window).constFirst()->actions(), QList<QAction*>());
}

// No event loop runs around this, and so what waits for its deletion goes in the next one.
void TstOstrelMaking::event_loop_may_run_while_a_toolbar_is_emptied()
{
    Ostrel window;
    QAction action(u"1"_s);
    std::vector<QAction*> actions{&action};
    add_to_toolbar(window, actions);
    const QPointer<QWidget> bar = made_in(window).constFirst();
    const QPointer<QWidget> child = new QToolButton(bar);
    const EventActor actor(child, QEvent::ParentChange, [] {
        run_loop();
        return false;
    });
    window.remove_toolbar_items("one");
    QVERIFY(actor.has_acted());
    QVERIFY(!bar);
    QTRY_VERIFY(!child);
}

void TstOstrelMaking::command_panel_chosen_last_stays()
{
    Ostrel window;
    window.show();
    auto* const dock = window.findChild<QDockWidget*>(u"FennarCommandPanel"_s);
    QVERIFY(window.usingButtonRows());
    const EventActor actor(dock->widget(), QEvent::Hide, [&] {
        window.setUsingButtonRows(true);
        return false;
    });
    window.setUsingButtonRows(false);
    QVERIFY(actor.has_acted());
    QVERIFY(window.usingButtonRows());
    QCOMPARE(dock->widget(), window.command_buttons());
    QVERIFY(window.command_buttons()->isVisible());
}

void TstOstrelMaking::window_may_be_deleted_when_its_graphics_widget_is()
{
    auto window = std::make_unique<Ostrel>();
    auto* const graphics = new QWidget;
    window->set_graphics_widget(graphics);
    window->show();
    HostDouble::instance().on_record = [&](const QString& call) {
        if (call == u"CLParser::set_graphics_state(1)"_s)
            window.reset();
    };
    const auto reset = qScopeGuard([] { HostDouble::instance().reset(); });
    delete graphics;
    QVERIFY(!window);
}

void TstOstrelMaking::window_may_be_deleted_when_a_button_is_pushed()
{
    auto window = std::make_unique<Ostrel>();
    QAction action(u"1"_s);
    action.setCheckable(true);
    std::vector<QAction*> actions{&action};
    add_to_toolbar(*window, actions);
    auto* const bar = window->findChild<QToolBar*>(u"own"_s);
    bar->widgetForAction(&action)->setObjectName(u"grid_action_button"_s);
    connect(&action, &QAction::toggled, this, [&] { window.reset(); });
    window->push_tool_button("own", "grid", true);
    QVERIFY(!window);
    QVERIFY(action.isChecked());
}

OSTREL_TEST(TstOstrelMaking)

#include "tst_ostrel_making.moc"
