// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"
#include "frame/Ostrel.h"
#include "menus/OstrelViewMenu.h"
#include "support/EventActor.h"
#include "support/TestCase.h"
#include "support/describe_window.h"
#include "support/windows.h"

#include <QAction>
#include <QEventLoop>
#include <QLineEdit>
#include <QMenuBar>
#include <QPointer>
#include <QScopeGuard>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QWidgetAction>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

QToolBar* toolbar(const Ostrel& window, const QString& name)
{
    return window.findChild<QToolBar*>(name);
}

QMenu* bar_menu(const Ostrel& window, const QString& title)
{
    for (const QAction* action : window.menuWidget()->actions())
        if (action->text() == title)
            return action->menu<QMenu*>();
    return nullptr;
}

void run_deferred_deletions()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/** Calls back when it is destroyed. */
class LastWord : public QWidget
{
public:
    LastWord(QWidget* parent, std::function<void()> say) : QWidget(parent), mSay(std::move(say)) {}
    ~LastWord() override { mSay(); }

private:
    std::function<void()> mSay;
};

} // namespace

/** What the window calls about menus and toolbars calls the window. */
class TstOstrelCalls : public TestCase
{
    Q_OBJECT

private slots:
    void button_may_remove_its_toolbar_data();
    void button_may_remove_its_toolbar();
    void field_may_remove_its_toolbar();
    void toolbar_removed_in_a_running_loop_is_out_of_the_window_at_once();
    void filter_may_remove_its_toolbar_in_a_running_loop();
    void hiding_toolbar_may_be_removed();
    void widget_in_a_removed_toolbar_may_remove_items();
    void toolbar_deleted_by_others_is_forgotten();
    void component_menu_deleted_by_others_is_forgotten();
    void menu_may_be_removed_while_it_is_made();
    void new_menu_is_not_taken_for_an_empty_one();
    void toolbar_may_be_removed_while_it_is_made();
    void menu_removed_while_it_is_filled_goes_data();
    void menu_removed_while_it_is_filled_goes();
    void toolbar_removed_while_it_is_filled_goes_data();
    void toolbar_removed_while_it_is_filled_goes();
    void window_may_be_deleted_while_items_are_removed_data();
    void window_may_be_deleted_while_items_are_removed();
    void last_words_of_a_page_find_no_menus();
};

void TstOstrelCalls::button_may_remove_its_toolbar_data()
{
    QTest::addColumn<bool>("through_window");
    QTest::addColumn<bool>("deletes_action");
    QTest::newRow("click on the button") << false << false;
    QTest::newRow("click on the button, action deleted") << false << true;
    QTest::newRow("click through the window") << true << false;
    QTest::newRow("click through the window, action deleted") << true << true;
}

void TstOstrelCalls::button_may_remove_its_toolbar()
{
    QFETCH(const bool, through_window);
    QFETCH(const bool, deletes_action);
    Ostrel window;
    QVERIFY(show_active(&window));
    const QStringList before = describe_window(window);
    auto leave = std::make_unique<QAction>(u"Leave"_s);
    std::vector<QAction*> actions{leave.get()};
    window.add_to_toolbar("own", u"Own"_s, actions, "one", Qt::TopToolBarArea);
    const QPointer<QToolBar> bar = toolbar(window, u"own"_s);
    const QPointer<QWidget> button = bar->widgetForAction(leave.get());
    int left = 0;
    bool alive_when_left = false;
    connect(leave.get(), &QAction::triggered, &window, [&] {
        ++left;
        window.remove_toolbar_items("one");
        if (deletes_action)
            leave.reset();
        // Qt goes on with the button.
        alive_when_left = button;
    });
    QTRY_VERIFY(!button->visibleRegion().isEmpty());
    if (through_window)
        QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                          button->mapTo(&window, button->rect().center()));
    else
        QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(left, 1);
    QVERIFY(alive_when_left);
    QVERIFY(!toolbar(window, u"own"_s));
    QCOMPARE(describe_window(window), before);
    run_deferred_deletions();
    QVERIFY(!bar);
    QVERIFY(!button);
}

void TstOstrelCalls::field_may_remove_its_toolbar()
{
    Ostrel window;
    QVERIFY(show_active(&window));
    std::vector<QAction*> actions{new QAction(u"1"_s, &window)};
    window.add_to_toolbar("own", u"Own"_s, actions, "one", Qt::TopToolBarArea);
    const QPointer<QToolBar> bar = toolbar(window, u"own"_s);
    // One that the toolbar makes an action for, and one that it knows nothing of.
    const QPointer<QLineEdit> field = new QLineEdit;
    bar->addWidget(field);
    const QPointer<QLineEdit> child = new QLineEdit(bar);
    bool alive_when_left = false;
    connect(field, &QLineEdit::returnPressed, &window, [&] {
        window.remove_toolbar_items("one");
        alive_when_left = field && child;
    });
    QTest::keyClick(field, Qt::Key_Return);
    QVERIFY(alive_when_left);
    QVERIFY(!toolbar(window, u"own"_s));
    run_deferred_deletions();
    QVERIFY(!bar && !field && !child);
}

void TstOstrelCalls::toolbar_removed_in_a_running_loop_is_out_of_the_window_at_once()
{
    Ostrel window;
    window.show();
    const QStringList before = describe_window(window);
    std::vector<QAction*> actions{new QAction(u"1"_s, &window)};
    const auto delete_action = qScopeGuard([&] { delete actions.front(); });
    window.add_to_toolbar("own", u"Own"_s, actions, "one", Qt::TopToolBarArea);
    const QPointer<QToolBar> bar = toolbar(window, u"own"_s);
    QEventLoop loop;
    QToolBar* found = bar;
    bool alive_when_left = false;
    std::vector<QString> labels;
    QTimer::singleShot(0, &loop, [&] {
        window.remove_toolbar_items("one");
        found = toolbar(window, u"own"_s);
        alive_when_left = bar;
        window.view_menu()->get_toolbar_labels(labels);
        // Another one of that name is a new one.
        window.add_to_toolbar("own", u"New"_s, actions, "one", Qt::TopToolBarArea);
        loop.quit();
    });
    loop.exec();
    QVERIFY(!found);
    QVERIFY(alive_when_left);
    QCOMPARE(std::count(labels.begin(), labels.end(), u"Own"_s), 0);
    run_deferred_deletions();
    QVERIFY(!bar);
    QCOMPARE(toolbar(window, u"own"_s)->windowTitle(), u"New"_s);
    window.remove_toolbar_items("one");
    actions.front()->setParent(nullptr);
    QCOMPARE(describe_window(window), before);
}

void TstOstrelCalls::filter_may_remove_its_toolbar_in_a_running_loop()
{
    Ostrel window;
    QVERIFY(show_active(&window));
    std::vector<QAction*> actions{new QAction(u"1"_s, &window)};
    window.add_to_toolbar("own", u"Own"_s, actions, "one", Qt::TopToolBarArea);
    const QPointer<QToolBar> bar = toolbar(window, u"own"_s);
    const EventActor actor(bar, QEvent::MouseButtonPress, [&] {
        window.remove_toolbar_items("one");
        return false;
    });
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
        QTest::mouseClick(bar, Qt::LeftButton);
        loop.quit();
    });
    loop.exec();
    QVERIFY(actor.has_acted());
    QVERIFY(!toolbar(window, u"own"_s));
    QTRY_VERIFY(!bar);
}

void TstOstrelCalls::hiding_toolbar_may_be_removed()
{
    Ostrel window;
    window.show();
    std::vector<QAction*> actions{new QAction(u"1"_s, &window)};
    window.add_to_toolbar("own", u"Own"_s, actions, "one", Qt::TopToolBarArea);
    const QPointer<QToolBar> bar = toolbar(window, u"own"_s);
    QTRY_VERIFY(bar->isVisible());
    int hidden = 0;
    connect(bar, &QToolBar::visibilityChanged, &window, [&](bool visible) {
        if (visible)
            return;
        ++hidden;
        window.remove_toolbar_items("one");
    });
    window.view_menu()->hide_toolbar(u"Own"_s);
    QCOMPARE(hidden, 1);
    QVERIFY(!toolbar(window, u"own"_s));
    QTRY_VERIFY(!bar);
}

void TstOstrelCalls::widget_in_a_removed_toolbar_may_remove_items()
{
    Ostrel window;
    const QStringList before = describe_window(window);
    std::vector<QAction*> actions{new QAction(u"1"_s, &window)};
    const auto delete_action = qScopeGuard([&] { delete actions.front(); });
    for (const char* name : {"a", "b", "c"})
        window.add_to_toolbar(name, QString(), actions, "one", Qt::TopToolBarArea);
    int said = 0;
    for (const QString& name : {u"a"_s, u"b"_s, u"c"_s}) {
        const auto say = [&] {
            ++said;
            window.remove_toolbar_items("one");
        };
        new LastWord(toolbar(window, name), say);
        // Not a direct child.
        new LastWord(new QWidget(toolbar(window, name)), say);
    }
    // When the toolbar leaves the window, too.
    const EventActor actor(toolbar(window, u"b"_s), QEvent::ActionRemoved, [&] {
        window.remove_toolbar_items("one");
        return false;
    });
    window.remove_toolbar_items("one");
    run_deferred_deletions();
    QCOMPARE(said, 6);
    QVERIFY(actor.has_acted());
    actions.front()->setParent(nullptr);
    QCOMPARE(describe_window(window), before);
}

void TstOstrelCalls::toolbar_deleted_by_others_is_forgotten()
{
    Ostrel window;
    const QStringList before = describe_window(window);
    std::vector<QAction*> actions{new QAction(u"1"_s)};
    const auto delete_action = qScopeGuard([&] { delete actions.front(); });
    const auto add_and_delete = [&] {
        window.add_to_toolbar("own", u"Own"_s, actions, "one", Qt::TopToolBarArea);
        delete toolbar(window, u"own"_s);
    };
    add_and_delete();
    window.push_tool_button("own", "grid", true);
    add_and_delete();
    window.remove_toolbar_items("another");
    add_and_delete();
    window.remove_toolbar_items("one");
    QCOMPARE(describe_window(window), before);

    add_and_delete();
    window.add_to_toolbar("own", u"New"_s, actions, "one", Qt::LeftToolBarArea);
    QCOMPARE(toolbar(window, u"own"_s)->windowTitle(), u"New"_s);
    QCOMPARE(window.toolBarArea(toolbar(window, u"own"_s)), Qt::LeftToolBarArea);
    QCOMPARE(toolbar(window, u"own"_s)->actions(), QList<QAction*>(actions.begin(), actions.end()));
    window.remove_toolbar_items("one");
    QCOMPARE(describe_window(window), before);
}

void TstOstrelCalls::component_menu_deleted_by_others_is_forgotten()
{
    Ostrel window;
    const QStringList before = describe_window(window);
    std::vector<QAction*> actions{new QAction(u"1"_s)};
    const auto delete_action = qScopeGuard([&] { delete actions.front(); });
    for (const char* owner : {"another", "one"}) {
        window.add_to_menu(u"Own"_s, actions, "one");
        delete bar_menu(window, u"Own"_s);
        QCOMPARE(describe_window(window), before);
        window.remove_menu_items(owner);
    }
    window.add_to_menu(u"Own"_s, actions, "one");
    delete bar_menu(window, u"Own"_s);
    window.add_to_menu(u"Own"_s, actions, "one");
    QVERIFY(bar_menu(window, u"Own"_s));
    QCOMPARE(bar_menu(window, u"Own"_s)->actions(), QList<QAction*>(actions.begin(), actions.end()));
    window.remove_menu_items("one");
    QCOMPARE(describe_window(window), before);
}

void TstOstrelCalls::menu_may_be_removed_while_it_is_made()
{
    Ostrel window;
    const QStringList before = describe_window(window);
    QAction action(u"1"_s);
    std::vector<QAction*> actions{&action};
    const auto remove = [&] {
        window.remove_menu_items("one");
        return false;
    };
    {
        const EventActor child(&window, QEvent::ChildAdded, remove);
        window.add_to_menu(u"Own"_s, actions, "one");
        QVERIFY(child.has_acted());
        QCOMPARE(describe_window(window), before);
    }
    const EventActor entry(window.menuBar(), QEvent::ActionAdded, remove);
    window.add_to_menu(u"Own"_s, actions, "one");
    QVERIFY(entry.has_acted());
    QCOMPARE(describe_window(window), before);
}

void TstOstrelCalls::new_menu_is_not_taken_for_an_empty_one()
{
    Ostrel window;
    QAction first(u"1"_s);
    QAction second(u"2"_s);
    std::vector<QAction*> actions{&first};
    std::vector<QAction*> more{&second};
    const EventActor actor(&window, QEvent::ChildAdded, [&] {
        window.remove_menu_items("another");
        window.add_to_menu(u"Own"_s, more, "two");
        return false;
    });
    window.add_to_menu(u"Own"_s, actions, "one");
    QVERIFY(actor.has_acted());
    QCOMPARE(bar_menu(window, u"Own"_s)->actions(), (QList<QAction*>{&first, &second}));
    window.remove_menu_items("one");
    window.remove_menu_items("two");
}

void TstOstrelCalls::toolbar_may_be_removed_while_it_is_made()
{
    Ostrel window;
    const QStringList before = describe_window(window);
    QAction action(u"1"_s);
    std::vector<QAction*> actions{&action};
    const EventActor actor(&window, QEvent::ChildAdded, [&] {
        window.remove_toolbar_items("one");
        return false;
    });
    window.add_to_toolbar("own", u"Own"_s, actions, "one", Qt::TopToolBarArea);
    QVERIFY(actor.has_acted());
    QCOMPARE(describe_window(window), before);
}

void TstOstrelCalls::menu_removed_while_it_is_filled_goes_data()
{
    QTest::addColumn<bool>("was_there");
    QTest::addColumn<bool>("stays");
    QTest::newRow("new menu") << false << false;
    QTest::newRow("menu that was there") << true << false;
    QTest::newRow("new menu of two components") << false << true;
    QTest::newRow("menu of two components that was there") << true << true;
}

/** The call that removes cannot drop the menu, since the one that adds is at work on it. */
void TstOstrelCalls::menu_removed_while_it_is_filled_goes()
{
    QFETCH(const bool, was_there);
    QFETCH(const bool, stays);
    Ostrel window;
    const QStringList before = describe_window(window);
    QAction first(u"1"_s);
    QAction second(u"2"_s);
    QAction other(u"3"_s);
    std::vector<QAction*> there{&first};
    std::vector<QAction*> actions{&second};
    std::vector<QAction*> others{&other};
    if (was_there)
        window.add_to_menu(u"Own"_s, there, "one");
    // Nobody knows a new menu yet but a filter on the application.
    const EventActor actor(qApp, QEvent::ActionAdded, [&] {
        window.remove_menu_items("one");
        if (stays)
            window.add_to_menu(u"Own"_s, others, "two");
        return false;
    });
    window.add_to_menu(u"Own"_s, actions, "one");
    QVERIFY(actor.has_acted());
    if (stays) {
        QVERIFY(bar_menu(window, u"Own"_s));
        QCOMPARE(bar_menu(window, u"Own"_s)->actions(), QList<QAction*>{&other});
        window.remove_menu_items("two");
    }
    QCOMPARE(describe_window(window), before);
    run_deferred_deletions();
    QVERIFY(second.associatedObjects().isEmpty());
}

void TstOstrelCalls::toolbar_removed_while_it_is_filled_goes_data()
{
    QTest::addColumn<bool>("was_there");
    QTest::newRow("new toolbar") << false;
    QTest::newRow("toolbar that was there") << true;
}

void TstOstrelCalls::toolbar_removed_while_it_is_filled_goes()
{
    QFETCH(const bool, was_there);
    Ostrel window;
    const QStringList before = describe_window(window);
    QAction first(u"1"_s);
    QAction second(u"2"_s);
    std::vector<QAction*> there{&first};
    std::vector<QAction*> actions{&second};
    const auto add = [&](std::vector<QAction*>& added) {
        window.add_to_toolbar("own", u"Own"_s, added, "one", Qt::TopToolBarArea);
    };
    if (was_there)
        add(there);
    std::unique_ptr<EventActor> actor;
    const auto watch = [&] {
        actor = std::make_unique<EventActor>(toolbar(window, u"own"_s), QEvent::ActionAdded, [&] {
            window.remove_toolbar_items("one");
            return false;
        });
        return false;
    };
    // A new toolbar gets its entry in the view menu before it is filled.
    const EventActor entry(window.view_menu()->get_toolbar_menu(), QEvent::ActionAdded, watch);
    if (was_there)
        watch();
    add(actions);
    QVERIFY(actor && actor->has_acted());
    QVERIFY(!toolbar(window, u"own"_s));
    QCOMPARE(describe_window(window), before);
    run_deferred_deletions();
    QVERIFY(second.associatedObjects().isEmpty());
}

void TstOstrelCalls::window_may_be_deleted_while_items_are_removed_data()
{
    QTest::addColumn<QString>("where");
    QTest::newRow("view menu") << u"&View"_s;
    QTest::newRow("help menu") << u"&Help"_s;
    QTest::newRow("component menu") << u"Own"_s;
    QTest::newRow("toolbar") << u"bar"_s;
    QTest::newRow("menu bar") << u"menu bar"_s;
}

void TstOstrelCalls::window_may_be_deleted_while_items_are_removed()
{
    QFETCH(const QString, where);
    auto window = std::make_unique<Ostrel>();
    QAction action(u"1"_s);
    std::vector<QAction*> actions{&action};
    for (const QString& title : {u"&View"_s, u"&Help"_s, u"Own"_s, u"Zebra"_s})
        window->add_to_menu(title, actions, "one");
    window->add_to_toolbar("bar", u"Bar"_s, actions, "one", Qt::TopToolBarArea);
    QWidget* watched = where == u"bar"_s        ? toolbar(*window, where)
                       : where == u"menu bar"_s ? window->menuWidget()
                                                : static_cast<QWidget*>(bar_menu(*window, where));
    const EventActor actor(watched, QEvent::ActionRemoved, [&] {
        window.reset();
        return true;
    });
    Ostrel* const called = window.get();
    if (where == u"bar"_s)
        called->remove_toolbar_items("one");
    else
        called->remove_menu_items("one");
    QVERIFY(actor.has_acted());
    QVERIFY(action.associatedObjects().isEmpty());
}

void TstOstrelCalls::last_words_of_a_page_find_no_menus()
{
    auto window = std::make_unique<Ostrel>();
    bool said = false;
    Ostrel* const called = window.get();
    auto* page = new LastWord(nullptr, [&] {
        said = true;
        QVERIFY(!Ostrel::instance());
        QVERIFY(!called->view_menu() && !called->file_menu() && !called->help_menu());
        called->remove_menu_items("one");
        called->remove_toolbar_items("one");
        called->remove_dock_window("one");
    });
    window->command_line()->add_command_tab(u"page"_s, page);
    window.reset();
    QVERIFY(said);
}

OSTREL_TEST(TstOstrelCalls)

#include "tst_ostrel_calls.moc"
