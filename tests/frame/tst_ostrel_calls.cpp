// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWindow.h"
#include "frame/Ostrel.h"
#include "frame/OstrelSplitter.h"
#include "frame/ProgressControl.h"
#include "hostdouble/HostDouble.h"
#include "journal/JournalEditor.h"
#include "menus/OstrelToolsMenu.h"
#include "menus/OstrelViewMenu.h"
#include "support/EventActor.h"
#include "support/TestCase.h"
#include "support/describe_window.h"
#include "support/menus.h"
#include "support/windows.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QEventLoop>
#include <QLineEdit>
#include <QMenuBar>
#include <QPointer>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QWidgetAction>

#include <algorithm>
#include <functional>
#include <memory>
#include <set>
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

QWidget* placeholder(const Ostrel& window)
{
    return window.graphics_area()->findChild<QWidget*>(u"mDefaultWidget"_s);
}

QDockWidget* make_dock(const QString& name)
{
    auto* dock = new QDockWidget(name);
    dock->setObjectName(name);
    return dock;
}

/** Calls back, some levels deep, whenever a menu gets or loses an action. */
class MenuWatch : public QObject
{
public:
    MenuWatch(QMenu* menu, std::function<void()> say) : mSay(std::move(say))
    {
        menu->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        const bool told = event->type() == QEvent::ActionAdded || event->type() == QEvent::ActionRemoved;
        if (told && mDepth < 3) {
            ++mDepth;
            mSay();
            --mDepth;
        }
        return false;
    }

private:
    std::function<void()> mSay;
    int mDepth = 0;
};

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

/** What the window calls calls the window. */
class TstOstrelCalls : public TestCase
{
    Q_OBJECT

private slots:
    // Toolbars and component menus.
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
    void window_may_be_deleted_while_items_are_removed_data();
    void window_may_be_deleted_while_items_are_removed();
    void last_words_of_a_page_find_no_menus();

    // Docks.
    void dock_needs_one_of_the_allowed_areas_data();
    void dock_needs_one_of_the_allowed_areas();
    void dock_may_be_deleted_while_it_is_added();
    void view_menu_knows_living_docks_only_whatever_their_toggles_do();

    // Graphics.
    void deleted_graphics_widget_gives_way_to_the_placeholder();
    void graphics_widget_set_during_a_change_stays();
    void graphics_widget_may_be_deleted_while_it_is_put_in();
    void window_may_be_deleted_while_graphics_change_data();
    void window_may_be_deleted_while_graphics_change();
    void graphics_widget_set_when_one_is_deleted_stays();

    // The rest.
    void window_may_be_deleted_while_it_closes();
    void window_may_be_deleted_under_its_context_menu();
    void second_window_left_alone_is_no_harm();
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

void TstOstrelCalls::dock_needs_one_of_the_allowed_areas_data()
{
    QTest::addColumn<int>("area");
    QTest::addColumn<int>("allowed");
    QTest::addColumn<bool>("taken");
    const int left = Qt::LeftDockWidgetArea;
    const int right = Qt::RightDockWidgetArea;
    const int all = Qt::AllDockWidgetAreas;
    QTest::newRow("the one") << left << left << true;
    QTest::newRow("one of two") << right << (left | right) << true;
    QTest::newRow("partly allowed") << all << left << false;
    QTest::newRow("two, one of them allowed") << (left | right) << right << false;
    QTest::newRow("all, all allowed") << all << all << false;
    QTest::newRow("none") << int(Qt::NoDockWidgetArea) << all << false;
    QTest::newRow("none of none") << int(Qt::NoDockWidgetArea) << 0 << false;
    QTest::newRow("no such area") << 0x10 << 0xff << false;
}

void TstOstrelCalls::dock_needs_one_of_the_allowed_areas()
{
    QFETCH(const int, area);
    QFETCH(const int, allowed);
    QFETCH(const bool, taken);
    Ostrel window;
    const QStringList before = describe_window(window);
    const std::unique_ptr<QDockWidget> dock(make_dock(u"tree"_s));
    QCOMPARE(
        window.add_dock_window(dock.get(), "one", Qt::DockWidgetArea(area), Qt::DockWidgetAreas(allowed)),
        taken);
    QCOMPARE(dock->parent() == &window, taken);
    QCOMPARE(describe_window(window) == before, !taken);
    QCOMPARE(window.dockWidgetArea(dock.get()), taken ? Qt::DockWidgetArea(area) : Qt::NoDockWidgetArea);
}

void TstOstrelCalls::dock_may_be_deleted_while_it_is_added()
{
    Ostrel window;
    window.show();
    const QStringList before = describe_window(window);
    const QPointer<QDockWidget> dock = make_dock(u"tree"_s);
    connect(dock, &QDockWidget::allowedAreasChanged, &window, [&] { delete dock; });
    QVERIFY(!window.add_dock_window(dock, "one", Qt::LeftDockWidgetArea, Qt::LeftDockWidgetArea));
    QVERIFY(!dock);
    std::vector<QAction*> items;
    window.view_menu()->get_dock_items(items);
    QCOMPARE(items.size(), 2U);
    QCOMPARE(describe_window(window), before);
}

void TstOstrelCalls::view_menu_knows_living_docks_only_whatever_their_toggles_do()
{
    const quint32 seed = QRandomGenerator::global()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    for (int round = 0; round < 20; ++round) {
        std::set<QDockWidget*> docks;
        std::set<const QObject*> busy; // Qt itself goes on with a dock whose state changes
        std::vector<std::unique_ptr<QAction>> actions;
        int made = 0;
        int left = 60;
        Ostrel window;
        window.setVisible(round % 2 == 0);
        std::function<void()> act;
        int told = 0; // Qt itself goes on with an action of which it tells
        const MenuWatch watch(bar_menu(window, u"&View"_s), [&] {
            ++told;
            if (left > 0)
                act();
            --told;
        });
        const auto add_dock = [&] {
            const QString name = u"dock %1"_s.arg(++made);
            QDockWidget* const dock = make_dock(name);
            docks.insert(dock);
            connect(dock, &QObject::destroyed, this, [&docks, dock] { docks.erase(dock); });
            connect(dock->toggleViewAction(), &QAction::toggled, this, [&, dock] {
                const bool first = busy.insert(dock).second;
                if (left > 0)
                    act();
                if (first)
                    busy.erase(dock);
            });
            const bool taken = window.add_dock_window(dock, qPrintable(name), Qt::LeftDockWidgetArea,
                                                      Qt::AllDockWidgetAreas);
            if (!taken)
                qFatal("the dock was not taken");
        };
        act = [&] {
            --left;
            std::vector<QString> labels;
            window.view_menu()->get_dock_labels(labels);
            const QString label = labels.at(random.bounded(quint32(labels.size())));
            switch (random.bounded(7)) {
            case 0:
                add_dock();
                break;
            case 1:
                window.view_menu()->show_dock_window(label);
                break;
            case 2:
                window.view_menu()->hide_dock_window(label);
                break;
            case 3:
                window.remove_dock_window(qPrintable(label));
                break;
            case 4:
                for (QDockWidget* dock : std::set<QDockWidget*>(docks)) {
                    if (told == 0 && docks.contains(dock) && !busy.contains(dock) && random.bounded(3) == 0)
                        delete dock;
                }
                break;
            case 5: {
                actions.push_back(std::make_unique<QAction>(u"action"_s));
                std::vector<QAction*> list{actions.back().get(), nullptr};
                window.add_to_menu(u"&View"_s, list, "actions");
                break;
            }
            default:
                window.remove_menu_items("actions");
                if (told == 0)
                    std::exchange(actions, {}).clear();
            }
        };
        while (left > 0)
            act();
        std::vector<QAction*> items;
        window.view_menu()->get_dock_items(items);
        for (const QAction* item : items) {
            auto* const dock = qobject_cast<QDockWidget*>(item->parent());
            QVERIFY(docks.contains(dock) || dock->objectName().endsWith(u"Window"_s) ||
                    dock->objectName().endsWith(u"Panel"_s));
        }
    }
}

void TstOstrelCalls::deleted_graphics_widget_gives_way_to_the_placeholder()
{
    Ostrel window;
    OstrelSplitter* const area = window.graphics_area();
    QWidget* const black = placeholder(window);
    area->insertWidget(0, new QWidget);
    area->addWidget(new QWidget);
    window.show();
    QWidget replaced;
    window.set_graphics_widget(&replaced);
    auto* graphics = new QWidget;
    window.set_graphics_widget(graphics);
    QVERIFY(!black->isVisible());
    HostDouble::instance().take_calls();
    delete graphics;
    QCOMPARE(HostDouble::instance().take_calls(), QStringList{u"CLParser::set_graphics_state(1)"_s});
    QCOMPARE(window.graphics_widget(), nullptr);
    QCOMPARE(area->count(), 3);
    QCOMPARE(area->indexOf(black), 1);
    QVERIFY(black->isVisible());

    // One that has been taken out concerns the window no more.
    auto* taken_out = new QWidget;
    window.set_graphics_widget(taken_out);
    window.set_graphics_widget(&replaced);
    HostDouble::instance().take_calls();
    delete taken_out;
    QCOMPARE(HostDouble::instance().take_calls(), QStringList());
    QCOMPARE(window.graphics_widget(), &replaced);
    window.set_graphics_widget(nullptr);
}

void TstOstrelCalls::graphics_widget_set_during_a_change_stays()
{
    Ostrel window;
    QWidget first;
    QWidget second;
    QWidget third;
    window.set_graphics_widget(&first);
    const EventActor actor(&first, QEvent::ParentChange, [&] {
        window.set_graphics_widget(&third);
        return false;
    });
    window.set_graphics_widget(&second);
    QVERIFY(actor.has_acted());
    QCOMPARE(window.graphics_widget(), &third);
    QCOMPARE(window.graphics_area()->count(), 1);
    QCOMPARE(window.graphics_area()->widget(0), &third);
    QCOMPARE(second.parent(), nullptr);
    window.set_graphics_widget(nullptr);
    QCOMPARE(window.graphics_area()->widget(0), placeholder(window));
}

void TstOstrelCalls::graphics_widget_may_be_deleted_while_it_is_put_in()
{
    Ostrel window;
    QWidget first;
    auto second = std::make_unique<QWidget>();
    window.set_graphics_widget(&first);
    const EventActor actor(&first, QEvent::ParentChange, [&] {
        second.reset();
        return false;
    });
    window.set_graphics_widget(second.get());
    QVERIFY(actor.has_acted());
    QCOMPARE(window.graphics_widget(), nullptr);
    QCOMPARE(window.graphics_area()->count(), 1);
    QCOMPARE(window.graphics_area()->widget(0), placeholder(window));
}

void TstOstrelCalls::window_may_be_deleted_while_graphics_change_data()
{
    QTest::addColumn<QString>("moment");
    QTest::newRow("a widget has left") << u"CLParser::set_graphics_state(1)"_s;
    QTest::newRow("a widget has come") << u"CLParser::set_graphics_state(2)"_s;
}

void TstOstrelCalls::window_may_be_deleted_while_graphics_change()
{
    QFETCH(const QString, moment);
    auto window = std::make_unique<Ostrel>();
    QWidget first;
    auto* second = new QWidget;
    const QPointer<QWidget> watched = second;
    window->set_graphics_widget(&first);
    HostDouble::instance().on_record = [&](const QString& call) {
        if (call == moment)
            window.reset();
    };
    Ostrel* const called = window.get();
    called->set_graphics_widget(second);
    HostDouble::instance().on_record = nullptr;
    QVERIFY(!window);
    // What is in place goes with the window.
    QCOMPARE(watched.isNull(), moment.contains(u'2'));
    delete watched;
}

void TstOstrelCalls::graphics_widget_set_when_one_is_deleted_stays()
{
    Ostrel window;
    QWidget other;
    window.set_graphics_widget(new QWidget);
    HostDouble::instance().on_record = [&](const QString& call) {
        if (call == u"CLParser::set_graphics_state(1)"_s)
            window.set_graphics_widget(&other);
    };
    delete window.graphics_widget();
    HostDouble::instance().on_record = nullptr;
    QCOMPARE(window.graphics_widget(), &other);
    QCOMPARE(window.graphics_area()->count(), 1);
    window.set_graphics_widget(nullptr);
    QCOMPARE(window.graphics_area()->widget(0), placeholder(window));
}

void TstOstrelCalls::window_may_be_deleted_while_it_closes()
{
    auto window = std::make_unique<Ostrel>();
    window->show();
    window->journal_editor()->show();
    const EventActor actor(window->journal_editor(), QEvent::Close, [&] {
        window.reset();
        return true;
    });
    HostDouble::instance().take_calls();
    window->close();
    QVERIFY(actor.has_acted());
    QCOMPARE(HostDouble::instance().take_calls().filter(u"request_exit"_s), QStringList());
}

void TstOstrelCalls::window_may_be_deleted_under_its_context_menu()
{
    auto window = std::make_unique<Ostrel>();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(), QPoint());
    event.ignore();
    {
        const MenuDriver driver([&](QMenu*) { window.reset(); });
        Ostrel* const called = window.get();
        called->display_context_menu(&event);
    }
    QVERIFY(!window);
    QVERIFY(event.isAccepted());
}

void TstOstrelCalls::second_window_left_alone_is_no_harm()
{
    for (const bool first_goes_first : {true, false}) {
        auto first = std::make_unique<Ostrel>();
        auto second = std::make_unique<Ostrel>();
        QCOMPARE(Ostrel::instance(), first.get());
        std::unique_ptr<Ostrel>& goes = first_goes_first ? first : second;
        goes.reset();
        Ostrel* const left = first_goes_first ? second.get() : first.get();
        QCOMPARE(Ostrel::instance(), first.get());
        left->show();
        auto* const progress = left->findChild<ProgressControl*>();
        progress->start_session("work", true);
        progress->update_session("work", 50);
        progress->end_session("work");
        left->cancel_progress();
        left->tools_menu()->pause_playback(false);
        QVERIFY(left->close());
    }
}

OSTREL_TEST(TstOstrelCalls)

#include "tst_ostrel_calls.moc"
