// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/MenuSections.h"
#include "support/EventActor.h"
#include "support/TestCase.h"
#include "support/random_seed.h"

#include <QAction>
#include <QMenu>
#include <QPointer>
#include <QRandomGenerator>
#include <QTest>
#include <QToolBar>
#include <QWidgetAction>

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

const auto separator = u"---"_s;

/** A list with its widget and actions, all of which may be deleted one by one. */
struct Fixture
{
    explicit Fixture(bool on_toolbar)
    {
        if (on_toolbar) {
            auto* toolbar = new QToolBar;
            widget.reset(toolbar);
            list->set_toolbar(toolbar);
        } else {
            auto* menu = new QMenu;
            widget.reset(menu);
            list->set_menu(menu, menu->menuAction());
        }
    }

    QAction* action(const QString& text)
    {
        std::unique_ptr<QAction>& made = actions[text];
        if (!made)
            made = std::make_unique<QAction>(text);
        return made.get();
    }

    /** Adds actions of these texts; "-" stands for null. */
    void add(const QStringList& texts, const char* component, const char* section)
    {
        std::vector<QAction*> added;
        for (const QString& text : texts)
            added.push_back(text == u"-"_s ? nullptr : action(text));
        list->add_items(added, component, section);
    }

    QStringList shown() const
    {
        QStringList rows;
        for (const QAction* each : widget->actions())
            rows << (each->isSeparator() ? separator : each->text());
        return rows;
    }

    std::map<QString, std::unique_ptr<QAction>> actions;
    std::unique_ptr<QWidget> widget;
    std::unique_ptr<MenuSections> list = std::make_unique<MenuSections>(u"list"_s);
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

/** What is told of a change of the widget calls the list. */
class TstMenuSectionsCalls : public TestCase
{
    Q_OBJECT

private slots:
    void filter_may_add_while_items_are_added_data() { menu_and_toolbar(); }
    void filter_may_add_while_items_are_added();
    void filter_may_add_before_later_sections_data() { menu_and_toolbar(); }
    void filter_may_add_before_later_sections();
    void filter_may_add_while_items_are_removed_data() { menu_and_toolbar(); }
    void filter_may_add_while_items_are_removed();
    void filter_may_remove_and_delete_what_is_being_added_data() { menu_and_toolbar(); }
    void filter_may_remove_and_delete_what_is_being_added();
    void filter_may_remove_while_items_are_removed_data() { menu_and_toolbar(); }
    void filter_may_remove_while_items_are_removed();
    void filter_may_delete_the_list_data();
    void filter_may_delete_the_list();
    void filter_may_delete_the_widget_data();
    void filter_may_delete_the_widget();
    void end_of_a_separator_may_call_back();
    void deleted_widget_is_no_widget_data() { menu_and_toolbar(); }
    void deleted_widget_is_no_widget();
    void list_may_get_another_widget();
    void widget_inside_a_dying_toolbar_may_call();
    void widget_of_an_action_on_a_dying_toolbar_may_call();
    void calls_inside_calls_end_as_calls_in_a_row_data() { menu_and_toolbar(); }
    void calls_inside_calls_end_as_calls_in_a_row();

private:
    static void menu_and_toolbar()
    {
        QTest::addColumn<bool>("on_toolbar");
        QTest::newRow("menu") << false;
        QTest::newRow("toolbar") << true;
    }
    static void moments()
    {
        QTest::addColumn<bool>("on_toolbar");
        QTest::addColumn<QEvent::Type>("moment");
        QTest::newRow("menu, adding") << false << QEvent::ActionAdded;
        QTest::newRow("menu, removing") << false << QEvent::ActionRemoved;
        QTest::newRow("toolbar, adding") << true << QEvent::ActionAdded;
        QTest::newRow("toolbar, removing") << true << QEvent::ActionRemoved;
    }
};

void TstMenuSectionsCalls::filter_may_add_while_items_are_added()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s}, "one", "a");
    const EventActor actor(f.widget.get(), QEvent::ActionAdded, [&] {
        // More than any list has room for without moving.
        for (int i = 0; i < 50; ++i)
            f.add({u"x%1"_s.arg(i)}, "two", "a");
        for (int i = 0; i < 50; ++i)
            f.list->add_section(qPrintable(u"section %1"_s.arg(i)), 0);
        return false;
    });
    f.add({u"2"_s, u"-"_s, u"3"_s}, "one", "a");
    QVERIFY(actor.has_acted());
    QCOMPARE(f.shown().first(5), (QStringList{u"1"_s, u"2"_s, separator, u"3"_s, u"x0"_s}));
    QCOMPARE(f.shown().size(), 54);
}

void TstMenuSectionsCalls::filter_may_add_before_later_sections()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.list->add_section("a", -1);
    f.list->add_section("b", -1);
    f.add({u"1"_s}, "one", "b");
    f.add({u"2"_s, u"-"_s, u"3"_s}, "one", "c");
    const EventActor actor(f.widget.get(), QEvent::ActionRemoved, [&] {
        f.add({u"x"_s}, "two", "b");
        return false;
    });
    f.add({u"4"_s}, "one", "a");
    QVERIFY(actor.has_acted());
    QCOMPARE(f.shown(),
             (QStringList{u"4"_s, separator, u"1"_s, u"x"_s, separator, u"2"_s, separator, u"3"_s}));
}

void TstMenuSectionsCalls::filter_may_add_while_items_are_removed()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s, u"2"_s}, "one", "a");
    f.add({u"3"_s}, "two", "a");
    f.add({u"4"_s}, "one", "b");
    const EventActor actor(f.widget.get(), QEvent::ActionRemoved, [&] {
        for (int i = 0; i < 50; ++i)
            f.add({u"x%1"_s.arg(i)}, "two", "a");
        return false;
    });
    f.list->remove_items("one");
    QVERIFY(actor.has_acted());
    QCOMPARE(f.shown().first(2), (QStringList{u"3"_s, u"x0"_s}));
    QVERIFY(!f.shown().contains(u"2"_s));
    QVERIFY(!f.shown().contains(u"4"_s));
}

void TstMenuSectionsCalls::filter_may_remove_and_delete_what_is_being_added()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"0"_s}, "two", "a");
    const EventActor actor(f.widget.get(), QEvent::ActionAdded, [&] {
        f.list->remove_items("one");
        f.actions.erase(u"2"_s);
        f.actions.erase(u"3"_s);
        return false;
    });
    f.add({u"1"_s, u"2"_s, u"3"_s}, "one", "a");
    QVERIFY(actor.has_acted());
    QCOMPARE(f.shown(), QStringList{u"0"_s});
    std::vector<QAction*> items;
    f.list->get_items(items, "a");
    QCOMPARE(items, std::vector<QAction*>{f.action(u"0"_s)});
}

void TstMenuSectionsCalls::filter_may_remove_while_items_are_removed()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s, u"2"_s}, "one", "a");
    f.add({u"3"_s, u"4"_s}, "two", "a");
    f.add({u"5"_s}, "three", "b");
    const EventActor actor(f.widget.get(), QEvent::ActionRemoved, [&] {
        f.list->remove_items("two");
        f.actions.erase(u"3"_s);
        f.list->remove_items("one");
        f.actions.erase(u"2"_s);
        return false;
    });
    f.list->remove_items("one");
    QVERIFY(actor.has_acted());
    QCOMPARE(f.shown(), on_toolbar ? QStringList() : QStringList{u"5"_s});
}

void TstMenuSectionsCalls::filter_may_delete_the_list_data()
{
    moments();
}

void TstMenuSectionsCalls::filter_may_delete_the_list()
{
    QFETCH(const bool, on_toolbar);
    QFETCH(const QEvent::Type, moment);
    Fixture f(on_toolbar);
    f.add({u"1"_s, u"-"_s, u"2"_s, u"3"_s}, "one", "a");
    const EventActor actor(f.widget.get(), moment, [&] {
        f.list.reset();
        return false;
    });
    MenuSections* const list = f.list.get();
    std::vector<QAction*> more{f.action(u"4"_s), nullptr, f.action(u"5"_s)};
    if (moment == QEvent::ActionAdded)
        list->add_items(more, "two", "a");
    else
        list->remove_items("one");
    QVERIFY(actor.has_acted());
    QVERIFY(!f.list);
}

void TstMenuSectionsCalls::filter_may_delete_the_widget_data()
{
    moments();
}

void TstMenuSectionsCalls::filter_may_delete_the_widget()
{
    QFETCH(const bool, on_toolbar);
    QFETCH(const QEvent::Type, moment);
    Fixture f(on_toolbar);
    f.list->add_section("a", -1);
    f.add({u"1"_s, u"-"_s, u"2"_s, u"3"_s}, "one", "b");
    const EventActor actor(f.widget.get(), moment, [&] {
        f.widget.reset();
        return true;
    });
    if (moment == QEvent::ActionAdded)
        f.add({u"4"_s, u"-"_s, u"5"_s}, "two", "b");
    else
        f.list->remove_items("one");
    QVERIFY(actor.has_acted());
    QVERIFY(!f.list->widget());
    f.add({u"6"_s}, "two", "a");
    f.list->remove_items("two");
}

void TstMenuSectionsCalls::end_of_a_separator_may_call_back()
{
    Fixture f(false);
    f.add({u"1"_s, u"-"_s, u"2"_s}, "one", "a");
    connect(f.widget->actions().at(1), &QObject::destroyed, this, [&] {
        f.add({u"x"_s, u"-"_s, u"y"_s}, "two", "a");
    });
    f.list->remove_items("one");
    QCOMPARE(f.shown(), (QStringList{u"x"_s, separator, u"y"_s}));
}

void TstMenuSectionsCalls::deleted_widget_is_no_widget()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s, u"-"_s, u"2"_s}, "one", "a");
    f.widget.reset();
    QVERIFY(!f.list->widget());
    QCOMPARE(f.list->menu, nullptr);
    QCOMPARE(f.list->menu_action, nullptr);
    QCOMPARE(f.list->toolbar, nullptr);
    f.add({u"3"_s}, "two", "a");
    f.list->remove_items("one");
    std::vector<QAction*> items;
    f.list->get_items(items, "a");
    // As without a widget: nothing is added or removed.
    QCOMPARE(items, (std::vector<QAction*>{f.action(u"1"_s), f.action(u"2"_s)}));
}

void TstMenuSectionsCalls::list_may_get_another_widget()
{
    Fixture f(false);
    QMenu second;
    f.list->set_menu(&second, second.menuAction());
    f.widget.reset();
    QCOMPARE(f.list->menu, &second);
    f.add({u"1"_s}, "one", "a");
    QCOMPARE(second.actions(), QList<QAction*>{f.action(u"1"_s)});
}

void TstMenuSectionsCalls::widget_inside_a_dying_toolbar_may_call()
{
    Fixture f(true);
    f.add({u"1"_s, u"-"_s, u"2"_s}, "one", "a");
    bool said = false;
    new LastWord(f.widget.get(), [&] {
        said = true;
        QVERIFY(!f.list->widget());
        f.list->remove_items("one");
        f.add({u"3"_s}, "two", "a");
    });
    f.widget.reset();
    QVERIFY(said);
}

void TstMenuSectionsCalls::widget_of_an_action_on_a_dying_toolbar_may_call()
{
    Fixture f(true);
    QWidgetAction box(nullptr);
    auto* inside = new QWidget;
    box.setDefaultWidget(inside);
    std::vector<QAction*> actions{f.action(u"1"_s), &box};
    f.list->add_items(actions, "one", "a");
    // Qt gives the widget back before it tells anybody that the toolbar goes.
    const EventActor actor(inside, QEvent::ParentChange, [&] {
        f.list->remove_items("one");
        f.add({u"3"_s}, "two", "a");
        return false;
    });
    f.widget.reset();
    QVERIFY(actor.has_acted());
}

void TstMenuSectionsCalls::calls_inside_calls_end_as_calls_in_a_row()
{
    QFETCH(const bool, on_toolbar);
    QRandomGenerator random(random_seed());
    const std::array<const char*, 3> owners{"one", "two", "three"};
    const std::array<const char*, 4> sections{"a", "b", "c", "d"};

    /** Calls as often as told, some of them from inside others, and notes what is called. */
    class Caller : public QObject
    {
    public:
        std::function<void()> call;
        int left = 0;
        int depth = 0;

    protected:
        bool eventFilter(QObject*, QEvent* event) override
        {
            const bool told = event->type() == QEvent::ActionAdded || event->type() == QEvent::ActionRemoved;
            if (told && left > 0 && depth < 3)
                call();
            return false;
        }
    };

    for (int round = 0; round < 200; ++round) {
        Fixture nested(on_toolbar);
        Fixture in_a_row(on_toolbar);
        for (Fixture* f : {&nested, &in_a_row})
            for (const char* section : sections)
                f->list->add_section(section, -1);
        Caller caller;
        int made = 0;
        caller.call = [&] {
            --caller.left;
            ++caller.depth;
            const char* owner = owners.at(random.bounded(quint32(owners.size())));
            if (random.bounded(3) == 0) {
                in_a_row.list->remove_items(owner);
                nested.list->remove_items(owner);
            } else {
                QStringList texts;
                for (int i = random.bounded(1, 4); i > 0; --i)
                    texts << (random.bounded(4) == 0 ? u"-"_s : QString::number(++made));
                const char* section = sections.at(random.bounded(quint32(sections.size())));
                in_a_row.add(texts, owner, section);
                nested.add(texts, owner, section);
            }
            --caller.depth;
        };
        nested.widget->installEventFilter(&caller);
        caller.left = 25;
        while (caller.left > 0)
            caller.call();
        QCOMPARE(nested.shown(), in_a_row.shown());
    }
}

OSTREL_TEST(TstMenuSectionsCalls)

#include "tst_menusections_calls.moc"
