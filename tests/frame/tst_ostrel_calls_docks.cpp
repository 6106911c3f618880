// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

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
#include "support/random_seed.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QMenuBar>
#include <QPointer>
#include <QRandomGenerator>
#include <QTest>

#include <functional>
#include <memory>
#include <set>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

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

} // namespace

/** What the window calls about docks, graphics and its end calls the window. */
class TstOstrelCallsDocks : public TestCase
{
    Q_OBJECT

private slots:
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

void TstOstrelCallsDocks::dock_needs_one_of_the_allowed_areas_data()
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

void TstOstrelCallsDocks::dock_needs_one_of_the_allowed_areas()
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

void TstOstrelCallsDocks::dock_may_be_deleted_while_it_is_added()
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

void TstOstrelCallsDocks::view_menu_knows_living_docks_only_whatever_their_toggles_do()
{
    QRandomGenerator random(random_seed());
    for (int round = 0; round < 20; ++round) {
        std::set<QDockWidget*> docks;
        std::set<const QObject*> busy; // Qt itself goes on with a dock whose state changes
        std::vector<std::unique_ptr<QAction>> actions;
        int made = 0;
        int left = 60;
        Ostrel window;
        window.setVisible(round % 2 == 0);
        std::function<void()> act;
        int told = 0;  // Qt itself goes on with an action of which it tells
        int dying = 0; // and lays the window out with what is left of a dock that is being deleted
        const MenuWatch watch(window.menuBar()->actions().at(1)->menu(), [&] {
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
                if (dying == 0)
                    add_dock();
                break;
            case 1:
                if (dying == 0)
                    window.view_menu()->show_dock_window(label);
                break;
            case 2:
                if (dying == 0)
                    window.view_menu()->hide_dock_window(label);
                break;
            case 3:
                window.remove_dock_window(qPrintable(label));
                break;
            case 4:
                for (QDockWidget* dock : std::set<QDockWidget*>(docks)) {
                    if (told == 0 && docks.contains(dock) && !busy.contains(dock) && random.bounded(3) == 0) {
                        ++dying;
                        delete dock;
                        --dying;
                    }
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

void TstOstrelCallsDocks::deleted_graphics_widget_gives_way_to_the_placeholder()
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

void TstOstrelCallsDocks::graphics_widget_set_during_a_change_stays()
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

void TstOstrelCallsDocks::graphics_widget_may_be_deleted_while_it_is_put_in()
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

void TstOstrelCallsDocks::window_may_be_deleted_while_graphics_change_data()
{
    QTest::addColumn<QString>("moment");
    QTest::newRow("a widget has left") << u"CLParser::set_graphics_state(1)"_s;
    QTest::newRow("a widget has come") << u"CLParser::set_graphics_state(2)"_s;
}

void TstOstrelCallsDocks::window_may_be_deleted_while_graphics_change()
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

void TstOstrelCallsDocks::graphics_widget_set_when_one_is_deleted_stays()
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

void TstOstrelCallsDocks::window_may_be_deleted_while_it_closes()
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

void TstOstrelCallsDocks::window_may_be_deleted_under_its_context_menu()
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

void TstOstrelCallsDocks::second_window_left_alone_is_no_harm()
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

OSTREL_TEST(TstOstrelCallsDocks)

#include "tst_ostrel_calls_docks.moc"
