// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/OstrelFileMenu.h"
#include "frame/MainFrame.h"
#include "frame/Ostrel.h"
#include "hostdouble/HostDouble.h"
#include "menus/OstrelHelpMenu.h"
#include "menus/OstrelToolsMenu.h"
#include "menus/OstrelViewMenu.h"
#include "menus/PyAction.h"
#include "options/ComponentTool.h"
#include "support/TestCase.h"
#include "support/describe_window.h"
#include "support/menus.h"
#include "support/windows.h"

#include <QContextMenuEvent>
#include <QDockWidget>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPointer>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QTranslator>
#include <QWidgetAction>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

const auto separator = u"---"_s;

QStringList shown(const QWidget* widget)
{
    QStringList rows;
    for (const QAction* action : widget->actions())
        rows << (action->isSeparator() ? separator : action->text());
    return rows;
}

QStringList bar_titles(const Ostrel& window)
{
    return shown(window.menuWidget());
}

QMenu* bar_menu(const Ostrel& window, const QString& title)
{
    for (const QAction* action : window.menuWidget()->actions())
        if (action->text() == title)
            return action->menu<QMenu*>();
    return nullptr;
}

QToolBar* toolbar(const Ostrel& window, const QString& name)
{
    return window.findChild<QToolBar*>(name);
}

/** The tool buttons of a toolbar, with that which Qt adds for what has no room. */
qsizetype button_count(const QToolBar* bar)
{
    return bar->findChildren<QToolButton*>().size();
}

/** The toolbar that shows @p action. */
QWidget* bar_widget(const QAction* action)
{
    for (QObject* object : action->associatedObjects())
        if (auto* bar = qobject_cast<QToolBar*>(object))
            return bar;
    return nullptr;
}

void delete_what_waits()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/** A component with actions of its own. */
class Component
{
public:
    QAction* action(const QString& text)
    {
        mActions.push_back(std::make_unique<QAction>(text));
        return mActions.back().get();
    }

    /** Actions of these texts; "-" stands for a separator. */
    std::vector<QAction*> actions(const QStringList& texts)
    {
        std::vector<QAction*> made;
        for (const QString& text : texts)
            made.push_back(text == u"-"_s ? nullptr : action(text));
        return made;
    }

    void add_to_menu(Ostrel& window, const QString& title, const QStringList& texts, const char* name)
    {
        std::vector<QAction*> list = actions(texts);
        window.add_to_menu(title, list, name);
    }

    void add_to_toolbar(Ostrel& window, const char* bar, const QStringList& texts, const char* name)
    {
        std::vector<QAction*> list = actions(texts);
        window.add_to_toolbar(bar, u"Title"_s, list, name, Qt::LeftToolBarArea);
    }

private:
    std::vector<std::unique_ptr<QAction>> mActions;
};

QDockWidget* make_dock(const QString& name)
{
    auto* dock = new QDockWidget(name);
    dock->setObjectName(name);
    return dock;
}

void click_later(QWidget* widget)
{
    // Posted, so that it waits for the run of the event queue.
    const QPointF place(widget->rect().center());
    const QPointF global = widget->mapToGlobal(place);
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const Qt::MouseButtons held =
            type == QEvent::MouseButtonPress ? Qt::MouseButtons(Qt::LeftButton) : Qt::MouseButtons();
        QCoreApplication::postEvent(
            widget, new QMouseEvent(type, place, place, global, Qt::LeftButton, held, Qt::NoModifier));
    }
}

/** Gives the main window's titles other names. */
class OtherTitles : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        if (qstrcmp(context, "Ostrel") != 0)
            return QString();
        const QString title = QString::fromUtf8(text);
        static const QStringList titles{u"&File"_s,   u"&View"_s, u"&Tools"_s,
                                        u"&Window"_s, u"&Help"_s, u"&Edit"_s};
        return titles.contains(title) ? u"my "_s + title : QString();
    }
};

} // namespace

class TstOstrelComponents : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    // Menus.
    void fixed_menus_stand_in_order();
    void component_menus_stand_before_the_tools_menu_in_the_order_of_their_making();
    void edit_menu_stands_behind_the_first_menu();
    void titles_of_fixed_menus_mean_these();
    void file_and_window_menu_take_nothing();
    void other_case_makes_a_new_menu();
    void titles_are_compared_in_translation();
    void component_menu_is_shared_and_grows_at_its_end();
    void component_menu_is_the_windows_and_has_its_title();
    void menu_without_a_component_is_not_made();
    void menu_of_separators_is_made_and_goes_with_the_next_removal();
    void actions_of_scripts_keep_their_order();
    void actions_of_scripts_need_a_title();

    // Removing from menus.
    void removal_reaches_all_menus();
    void separator_before_an_emptied_section_stays();
    void component_menu_goes_with_its_last_action();
    void component_menu_comes_back_before_the_tools_menu();
    void edit_menu_comes_back_to_its_place();
    void menu_of_an_action_deleted_early_goes_too();
    void removing_nobody_changes_nothing();

    // Toolbars.
    void toolbar_is_made_as_asked();
    void known_toolbar_ignores_title_and_area();
    void toolbar_needs_a_name_and_a_component();
    void toolbar_names_are_compared_exactly();
    void new_toolbar_is_in_the_view_menu();
    void first_toolbar_holds_files_and_tools();
    void first_toolbar_belongs_to_the_framework();
    void toolbar_with_four_tool_buttons_stays();
    void toolbar_with_three_tool_buttons_goes();
    void tool_buttons_count_at_any_depth();
    void tool_buttons_just_removed_still_count();
    void toolbar_goes_with_its_entry_in_the_view_menu();
    void toolbar_that_lost_a_separator_is_empty();
    void removal_without_a_component_touches_no_toolbar();

    // Pushing tool buttons.
    void checkable_button_takes_the_state_and_is_not_clicked();
    void plain_button_is_clicked_whatever_the_state();
    void button_is_found_at_any_depth();
    void pushing_what_is_not_there_does_nothing();

    // Docks.
    void dock_is_in_the_view_menu_under_its_component();
    void dock_without_a_component_goes_by_its_own_name();
    void removed_dock_stays_in_the_window();
    void removing_docks_takes_other_view_entries_too();
    void refused_dock_is_not_in_the_view_menu();
    void dock_deleted_early_is_no_harm();

    // Context menu and the rest of the window.
    void context_menu_offers_docks_toolbars_and_line_up();
    void context_menu_accepts_the_event_and_leaves_what_it_showed();
    void line_up_goes_to_the_view_menu();
    void pause_button_stays_alive_during_work();

    // Rough use.
    void action_stands_in_several_menus_and_leaves_them_one_by_one();
    void action_added_twice_stands_once_and_goes_with_its_first_owner();
    void empty_list_makes_an_empty_menu_that_goes_with_the_next_removal();
    void component_may_leave_from_its_own_menu_data();
    void component_may_leave_from_its_own_menu();
    void component_may_leave_from_its_own_tool_button();
    void component_may_leave_from_the_context_menu();
    void hidden_toolbar_comes_and_goes_as_a_shown_one();
    void floating_dock_keeps_its_entry_and_floats_on();
    void odd_titles_are_shown_as_they_are_data();
    void odd_titles_are_shown_as_they_are();
    void two_windows_keep_their_components_apart();
    void window_closed_over_an_open_plugin_tool_takes_it_along();

    // Whole lives.
    void five_lives_of_a_component_leave_nothing();
    void component_that_never_says_goodbye_is_no_harm();
};

void TstOstrelComponents::set_up()
{
    HostDouble::instance().reset();
}

void TstOstrelComponents::fixed_menus_stand_in_order()
{
    const Ostrel window;
    QCOMPARE(bar_titles(window).last(3), (QStringList{u"&View"_s, u"&Tools"_s, u"&Help"_s}));
}

void TstOstrelComponents::component_menus_stand_before_the_tools_menu_in_the_order_of_their_making()
{
    Ostrel window;
    Component component;
    QStringList titles = bar_titles(window);
    for (const QString& title : {u"Zebra"_s, u"Ape"_s, u"Mouse"_s}) {
        component.add_to_menu(window, title, {u"1"_s}, "one");
        titles.insert(titles.size() - 2, title);
        QCOMPARE(bar_titles(window), titles);
    }
    QCOMPARE(titles.last(6),
             (QStringList{u"&View"_s, u"Zebra"_s, u"Ape"_s, u"Mouse"_s, u"&Tools"_s, u"&Help"_s}));
}

void TstOstrelComponents::edit_menu_stands_behind_the_first_menu()
{
    Ostrel window;
    Component component;
    component.add_to_menu(window, u"Ape"_s, {u"1"_s}, "one");
    QStringList titles = bar_titles(window);
    component.add_to_menu(window, u"&Edit"_s, {u"2"_s}, "one");
    titles.insert(1, u"&Edit"_s);
    QCOMPARE(bar_titles(window), titles);
    QCOMPARE(shown(bar_menu(window, u"&Edit"_s)), QStringList{u"2"_s});
}

void TstOstrelComponents::titles_of_fixed_menus_mean_these()
{
    Ostrel window;
    Component component;
    const QStringList titles = bar_titles(window);
    component.add_to_menu(window, u"&View"_s, {u"v"_s, u"-"_s, u"w"_s}, "one");
    component.add_to_menu(window, u"&Tools"_s, {u"t"_s}, "one");
    component.add_to_menu(window, u"&Help"_s, {u"h"_s}, "one");
    QCOMPARE(bar_titles(window), titles);
    QCOMPARE(shown(bar_menu(window, u"&View"_s)),
             (QStringList{u"Toolbars"_s, separator, u"Command Line"_s, u"Command Panel"_s, separator, u"v"_s,
                          separator, u"w"_s}));
    QCOMPARE(shown(bar_menu(window, u"&Tools"_s)),
             (QStringList{u"&Journal Editor"_s, u"&Play Journal File"_s, u"t"_s, separator, u"Plu&gins..."_s,
                          u"&Options..."_s}));
    QCOMPARE(shown(bar_menu(window, u"&Help"_s)), (QStringList{u"h"_s, separator, u"&About"_s}));
}

void TstOstrelComponents::file_and_window_menu_take_nothing()
{
    Ostrel window;
    Component component;
    const QStringList before = describe_window(window);
    component.add_to_menu(window, u"&File"_s, {u"1"_s}, "one");
    component.add_to_menu(window, u"&Window"_s, {u"2"_s}, "one");
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::other_case_makes_a_new_menu()
{
    Ostrel window;
    Component component;
    const QStringList tools = shown(bar_menu(window, u"&Tools"_s));
    component.add_to_menu(window, u"&tools"_s, {u"1"_s}, "one");
    component.add_to_menu(window, u"Tools"_s, {u"2"_s}, "one");
    component.add_to_menu(window, u"ape"_s, {u"3"_s}, "one");
    component.add_to_menu(window, u"Ape"_s, {u"4"_s}, "one");
    QCOMPARE(bar_titles(window).last(6),
             (QStringList{u"&tools"_s, u"Tools"_s, u"ape"_s, u"Ape"_s, u"&Tools"_s, u"&Help"_s}));
    QCOMPARE(shown(bar_menu(window, u"&Tools"_s)), tools);
    QCOMPARE(shown(bar_menu(window, u"ape"_s)), QStringList{u"3"_s});
}

void TstOstrelComponents::titles_are_compared_in_translation()
{
    OtherTitles translation;
    QVERIFY(QCoreApplication::installTranslator(&translation));
    const auto remove = qScopeGuard([&] { QCoreApplication::removeTranslator(&translation); });
    Ostrel window;
    Component component;
    QStringList titles = bar_titles(window);
    const qsizetype tools_rows = bar_menu(window, u"&Tools"_s)->actions().size();
    for (const QString& fixed : {u"File"_s, u"View"_s, u"Tools"_s, u"Window"_s, u"Help"_s})
        component.add_to_menu(window, u"my &"_s + fixed, {u"1"_s}, "one");
    QCOMPARE(bar_titles(window), titles);
    QCOMPARE(bar_menu(window, u"&Tools"_s)->actions().size(), tools_rows + 1);

    component.add_to_menu(window, u"my &Edit"_s, {u"1"_s}, "one");
    titles.insert(1, u"my &Edit"_s);
    for (const QString& plain : {u"&Edit"_s, u"&File"_s}) {
        component.add_to_menu(window, plain, {u"1"_s}, "one");
        titles.insert(titles.size() - 2, plain);
    }
    QCOMPARE(bar_titles(window), titles);
}

void TstOstrelComponents::component_menu_is_shared_and_grows_at_its_end()
{
    Ostrel window;
    Component component;
    component.add_to_menu(window, u"Mesh"_s, {u"1"_s, u"-"_s, u"2"_s}, "one");
    const qsizetype menus = bar_titles(window).size();
    component.add_to_menu(window, u"Mesh"_s, {u"3"_s}, "two");
    component.add_to_menu(window, u"Mesh"_s, {u"-"_s, u"4"_s}, "one");
    QCOMPARE(bar_titles(window).size(), menus);
    QCOMPARE(shown(bar_menu(window, u"Mesh"_s)),
             (QStringList{u"1"_s, separator, u"2"_s, u"3"_s, separator, u"4"_s}));
}

void TstOstrelComponents::component_menu_is_the_windows_and_has_its_title()
{
    Ostrel window;
    Component component;
    component.add_to_menu(window, u"Gr\u00f6\u00dfe"_s, {u"1"_s}, "one");
    const QMenu* const menu = bar_menu(window, u"Gr\u00f6\u00dfe"_s);
    QVERIFY(menu);
    QCOMPARE(menu->title(), u"Gr\u00f6\u00dfe"_s);
    QCOMPARE(menu->parent(), &window);
}

void TstOstrelComponents::menu_without_a_component_is_not_made()
{
    Ostrel window;
    Component component;
    const QStringList before = describe_window(window);
    component.add_to_menu(window, u"Mesh"_s, {u"1"_s}, nullptr);
    component.add_to_menu(window, u"&Tools"_s, {u"2"_s}, nullptr);
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::menu_of_separators_is_made_and_goes_with_the_next_removal()
{
    Ostrel window;
    Component component;
    const QStringList before = describe_window(window);
    component.add_to_menu(window, u"Mesh"_s, {u"-"_s, u"-"_s}, "one");
    QVERIFY(bar_menu(window, u"Mesh"_s));
    QVERIFY(bar_menu(window, u"Mesh"_s)->isEmpty());
    window.remove_menu_items("another");
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::actions_of_scripts_keep_their_order()
{
    Ostrel window;
    PyAction first;
    PyAction second;
    PyAction third;
    first.setText("1");
    second.setText("2");
    third.setText("3");
    std::vector<PyAction*> actions{&second, nullptr, &first};
    window.add_to_menu("Gr\xc3\xb6\xc3\x9f"
                       "e",
                       actions, "script");
    QCOMPARE(shown(bar_menu(window, u"Gr\u00f6\u00dfe"_s)), (QStringList{u"2"_s, separator, u"1"_s}));
    std::vector<PyAction*> tool{&third};
    window.add_to_menu("&Tools", tool, "script");
    QCOMPARE(bar_menu(window, u"&Tools"_s)->actions().at(2), third.getAction());
    QCOMPARE(actions.size(), 3U);

    window.remove_menu_items("script");
    QVERIFY(!bar_menu(window, u"Gr\u00f6\u00dfe"_s));
    QVERIFY(!shown(bar_menu(window, u"&Tools"_s)).contains(u"3"_s));
}

void TstOstrelComponents::actions_of_scripts_need_a_title()
{
    Ostrel window;
    PyAction action;
    std::vector<PyAction*> actions{&action};
    const QStringList titles = bar_titles(window);
    window.add_to_menu(nullptr, actions, "script");
    window.add_to_menu("Mesh", actions, nullptr);
    QCOMPARE(bar_titles(window), titles);
}

void TstOstrelComponents::removal_reaches_all_menus()
{
    Ostrel window;
    Component component;
    Component other;
    for (const QString& title : {u"&View"_s, u"&Help"_s, u"Shared"_s})
        other.add_to_menu(window, title, {u"other"_s}, "two");
    const QStringList before = describe_window(window);
    for (const QString& title : {u"&View"_s, u"&Tools"_s, u"&Help"_s, u"Own"_s, u"Shared"_s, u"&Edit"_s})
        component.add_to_menu(window, title, {u"1"_s, u"2"_s}, "one");
    window.help_menu()->add_manual(component.action(u"manual"_s), "one");
    QVERIFY(describe_window(window) != before);
    window.remove_menu_items("one");
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::separator_before_an_emptied_section_stays()
{
    Ostrel window;
    Component component;
    const QMenu* const view = bar_menu(window, u"&View"_s);
    const QStringList rows = shown(view);
    // Stands at the end, where no menu shows it, and serves the next component.
    for (int life = 1; life <= 5; ++life) {
        component.add_to_menu(window, u"&View"_s, {u"1"_s}, "one");
        QCOMPARE(shown(view), rows + QStringList({separator, u"1"_s}));
        window.remove_menu_items("one");
        QCOMPARE(shown(view), rows + QStringList{separator});
    }
}

void TstOstrelComponents::component_menu_goes_with_its_last_action()
{
    Ostrel window;
    Component component;
    const QStringList titles = bar_titles(window);
    component.add_to_menu(window, u"Mesh"_s, {u"1"_s}, "one");
    component.add_to_menu(window, u"Mesh"_s, {u"-"_s, u"2"_s}, "two");
    const QPointer<QMenu> menu = bar_menu(window, u"Mesh"_s);
    window.remove_menu_items("one");
    QVERIFY(menu);
    QCOMPARE(shown(menu), QStringList{u"2"_s});
    window.remove_menu_items("two");
    QVERIFY(!menu);
    QCOMPARE(bar_titles(window), titles);
}

void TstOstrelComponents::component_menu_comes_back_before_the_tools_menu()
{
    Ostrel window;
    Component component;
    component.add_to_menu(window, u"A"_s, {u"1"_s}, "one");
    component.add_to_menu(window, u"B"_s, {u"2"_s}, "two");
    window.remove_menu_items("one");
    component.add_to_menu(window, u"A"_s, {u"3"_s}, "one");
    QCOMPARE(bar_titles(window).last(4), (QStringList{u"B"_s, u"A"_s, u"&Tools"_s, u"&Help"_s}));
    QCOMPARE(shown(bar_menu(window, u"A"_s)), QStringList{u"3"_s});
}

void TstOstrelComponents::edit_menu_comes_back_to_its_place()
{
    Ostrel window;
    Component component;
    component.add_to_menu(window, u"&Edit"_s, {u"1"_s}, "one");
    const QStringList titles = bar_titles(window);
    window.remove_menu_items("one");
    component.add_to_menu(window, u"&Edit"_s, {u"1"_s}, "one");
    QCOMPARE(bar_titles(window), titles);
    QCOMPARE(titles.at(1), u"&Edit"_s);
}

void TstOstrelComponents::menu_of_an_action_deleted_early_goes_too()
{
    Ostrel window;
    const QStringList before = describe_window(window);
    {
        Component component;
        component.add_to_menu(window, u"Mesh"_s, {u"1"_s, u"-"_s, u"2"_s}, "one");
        component.add_to_menu(window, u"&Help"_s, {u"3"_s}, "one");
        component.add_to_menu(window, u"&Tools"_s, {u"4"_s}, "one");
    }
    window.remove_menu_items("one");
    window.remove_menu_items("one");
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::removing_nobody_changes_nothing()
{
    Ostrel window;
    Component component;
    component.add_to_menu(window, u"Mesh"_s, {u"1"_s}, "one");
    const QStringList before = describe_window(window);
    for (const char* nobody : {static_cast<const char*>(nullptr), "", "One", "another"}) {
        window.remove_menu_items(nobody);
        window.remove_dock_window(nobody);
        window.remove_dock_windows(nobody);
    }
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::toolbar_is_made_as_asked()
{
    Ostrel window;
    Component component;
    std::vector<QAction*> actions = component.actions({u"1"_s, u"-"_s, u"2"_s});
    window.add_to_toolbar("mesh caf\xc3\xa9", u"Mesh Tools"_s, actions, "one", Qt::BottomToolBarArea);
    QToolBar* const bar = toolbar(window, u"mesh caf\u00e9"_s);
    QVERIFY(bar);
    QCOMPARE(bar->windowTitle(), u"Mesh Tools"_s);
    QCOMPARE(bar->parent(), &window);
    QCOMPARE(window.toolBarArea(bar), Qt::BottomToolBarArea);
    QCOMPARE(shown(bar), (QStringList{u"1"_s, separator, u"2"_s}));
    QCOMPARE(actions.size(), 3U);
}

void TstOstrelComponents::known_toolbar_ignores_title_and_area()
{
    Ostrel window;
    Component component;
    std::vector<QAction*> first = component.actions({u"1"_s});
    std::vector<QAction*> second = component.actions({u"2"_s, u"3"_s});
    window.add_to_toolbar("mesh", u"Mesh"_s, first, "one", Qt::BottomToolBarArea);
    const qsizetype bars = window.findChildren<QToolBar*>().size();
    window.add_to_toolbar("mesh", u"Other"_s, second, "two", Qt::LeftToolBarArea);
    const QToolBar* const bar = toolbar(window, u"mesh"_s);
    QCOMPARE(window.findChildren<QToolBar*>().size(), bars);
    QCOMPARE(bar->windowTitle(), u"Mesh"_s);
    QCOMPARE(window.toolBarArea(bar), Qt::BottomToolBarArea);
    QCOMPARE(shown(bar), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
}

void TstOstrelComponents::toolbar_needs_a_name_and_a_component()
{
    Ostrel window;
    Component component;
    const QStringList before = describe_window(window);
    component.add_to_toolbar(window, nullptr, {u"1"_s}, "one");
    component.add_to_toolbar(window, "mesh", {u"1"_s}, nullptr);
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::toolbar_names_are_compared_exactly()
{
    Ostrel window;
    Component component;
    component.add_to_toolbar(window, "mesh", {u"1"_s}, "one");
    component.add_to_toolbar(window, "Mesh", {u"2"_s}, "one");
    component.add_to_menu(window, u"mesh"_s, {u"3"_s}, "one");
    QCOMPARE(shown(toolbar(window, u"mesh"_s)), QStringList{u"1"_s});
    QCOMPARE(shown(toolbar(window, u"Mesh"_s)), QStringList{u"2"_s});
    QCOMPARE(shown(bar_menu(window, u"mesh"_s)), QStringList{u"3"_s});
}

void TstOstrelComponents::new_toolbar_is_in_the_view_menu()
{
    Ostrel window;
    Component component;
    QMenu* const bars = window.view_menu()->get_toolbar_menu();
    QCOMPARE(bars->actions(), QList<QAction*>{toolbar(window, u"FileTools"_s)->toggleViewAction()});
    component.add_to_toolbar(window, "mesh", {u"1"_s}, "one");
    component.add_to_toolbar(window, "mesh", {u"2"_s}, "one");
    QCOMPARE(bars->actions(), (QList<QAction*>{toolbar(window, u"FileTools"_s)->toggleViewAction(),
                                               toolbar(window, u"mesh"_s)->toggleViewAction()}));
}

void TstOstrelComponents::first_toolbar_holds_files_and_tools()
{
    const Ostrel window;
    const QToolBar* const bar = toolbar(window, u"FileTools"_s);
    QVERIFY(bar);
    QCOMPARE(bar->windowTitle(), u"File Tools"_s);
    QCOMPARE(window.toolBarArea(bar), Qt::TopToolBarArea);
    std::vector<QAction*> tools;
    window.tools_menu()->get_items_for_toolbar(tools);
    QCOMPARE(tools.size(), 4U);
    std::vector<QAction*> files;
    window.file_menu()->get_items_for_toolbar(files);
    QCOMPARE(files.size(), 5U);
    const QList<QAction*> actions = bar->actions();
    QCOMPARE(actions.size(), 10);
    QCOMPARE(actions.first(5), QList<QAction*>(files.begin(), files.end()));
    QVERIFY(actions.at(5)->isSeparator());
    QCOMPARE(actions.last(4), QList<QAction*>(tools.begin(), tools.end()));
}

void TstOstrelComponents::first_toolbar_belongs_to_the_framework()
{
    Ostrel window;
    Component component;
    component.add_to_toolbar(window, "FileTools", {u"1"_s}, "one");
    QCOMPARE(shown(toolbar(window, u"FileTools"_s)).constLast(), u"1"_s);
    window.remove_toolbar_items("one");
    QCOMPARE(shown(toolbar(window, u"FileTools"_s)).constLast(), u"Pause Script"_s);
    delete_what_waits();
    window.remove_toolbar_items("framework");
    delete_what_waits();
    window.remove_toolbar_items("framework");
    QVERIFY(!toolbar(window, u"FileTools"_s));
}

void TstOstrelComponents::toolbar_with_four_tool_buttons_stays()
{
    Ostrel window;
    Component component;
    component.add_to_toolbar(window, "mesh", {u"1"_s, u"2"_s, u"3"_s}, "one");
    const QPointer<QToolBar> bar = toolbar(window, u"mesh"_s);
    QCOMPARE(button_count(bar), 4);
    window.remove_toolbar_items("another");
    QVERIFY(bar);
    QCOMPARE(shown(bar), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
}

void TstOstrelComponents::toolbar_with_three_tool_buttons_goes()
{
    Ostrel window;
    Component component;
    component.add_to_toolbar(window, "mesh", {u"1"_s, u"2"_s}, "one");
    const QPointer<QToolBar> bar = toolbar(window, u"mesh"_s);
    QCOMPARE(button_count(bar), 3);
    // Whoever the buttons left belong to.
    window.remove_toolbar_items("another");
    QVERIFY(!bar);

    component.add_to_toolbar(window, "mesh", {u"3"_s}, "one");
    QCOMPARE(shown(toolbar(window, u"mesh"_s)), QStringList{u"3"_s});
}

void TstOstrelComponents::tool_buttons_count_at_any_depth()
{
    Ostrel window;
    Component component;
    QWidgetAction box(nullptr);
    auto* holder = new QWidget;
    for (int i = 0; i < 3; ++i)
        new QToolButton(holder);
    box.setDefaultWidget(holder);
    std::vector<QAction*> actions{&box};
    window.add_to_toolbar("mesh", u"Mesh"_s, actions, "one", Qt::LeftToolBarArea);
    const QPointer<QToolBar> bar = toolbar(window, u"mesh"_s);
    QCOMPARE(button_count(bar), 4);
    window.remove_toolbar_items("another");
    QVERIFY(bar);
    window.remove_toolbar_items("one");
    QVERIFY(!bar);
}

void TstOstrelComponents::tool_buttons_just_removed_still_count()
{
    Ostrel window;
    Component component;
    component.add_to_toolbar(window, "mesh", {u"1"_s, u"2"_s, u"3"_s}, "one");
    component.add_to_toolbar(window, "small", {u"1"_s, u"2"_s}, "one");
    const QPointer<QToolBar> bar = toolbar(window, u"mesh"_s);
    const QPointer<QToolBar> small = toolbar(window, u"small"_s);
    window.remove_toolbar_items("one");
    QVERIFY(!small);
    QVERIFY(bar);
    QVERIFY(shown(bar).isEmpty());
    delete_what_waits();
    window.remove_toolbar_items("another");
    QVERIFY(!bar);
}

void TstOstrelComponents::toolbar_goes_with_its_entry_in_the_view_menu()
{
    Ostrel window;
    Component component;
    const QStringList before = describe_window(window);
    component.add_to_toolbar(window, "mesh", {u"1"_s, u"2"_s}, "one");
    window.remove_toolbar_items("one");
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::toolbar_that_lost_a_separator_is_empty()
{
    Ostrel window;
    Component component;
    component.add_to_toolbar(window, "mesh", {u"1"_s, u"2"_s, u"3"_s, u"4"_s}, "one");
    component.add_to_toolbar(window, "mesh", {u"-"_s, u"5"_s}, "two");
    window.remove_toolbar_items("two");
    const QToolBar* const bar = toolbar(window, u"mesh"_s);
    QVERIFY(bar);
    QVERIFY(shown(bar).isEmpty());
}

void TstOstrelComponents::removal_without_a_component_touches_no_toolbar()
{
    Ostrel window;
    Component component;
    component.add_to_toolbar(window, "mesh", {u"1"_s}, "one");
    window.remove_toolbar_items(nullptr);
    QVERIFY(toolbar(window, u"mesh"_s));
}

void TstOstrelComponents::checkable_button_takes_the_state_and_is_not_clicked()
{
    Ostrel window;
    Component component;
    QAction* const action = component.action(u"1"_s);
    action->setCheckable(true);
    std::vector<QAction*> actions{action};
    window.add_to_toolbar("mesh", u"Mesh"_s, actions, "one", Qt::LeftToolBarArea);
    auto* const button = qobject_cast<QToolButton*>(toolbar(window, u"mesh"_s)->widgetForAction(action));
    QVERIFY(button);
    button->setObjectName(u"grid_action_button"_s);
    const QSignalSpy toggled(action, &QAction::toggled);
    const QSignalSpy triggered(action, &QAction::triggered);
    const QSignalSpy pressed(button, &QToolButton::pressed);

    window.push_tool_button("mesh", "grid", true);
    QVERIFY(action->isChecked());
    window.push_tool_button("mesh", "grid", true);
    QVERIFY(action->isChecked());
    QCOMPARE(toggled.size(), 1);
    window.push_tool_button("mesh", "grid", false);
    QVERIFY(!action->isChecked());
    QVERIFY(triggered.isEmpty());
    QVERIFY(pressed.isEmpty());
}

void TstOstrelComponents::plain_button_is_clicked_whatever_the_state()
{
    Ostrel window;
    Component component;
    QAction* const action = component.action(u"1"_s);
    std::vector<QAction*> actions{action};
    window.add_to_toolbar("mesh", u"Mesh"_s, actions, "one", Qt::LeftToolBarArea);
    auto* const button = qobject_cast<QToolButton*>(toolbar(window, u"mesh"_s)->widgetForAction(action));
    QVERIFY(button);
    button->setObjectName(u"caf\u00e9_action_button"_s);
    const QSignalSpy triggered(action, &QAction::triggered);
    qsizetype clicks = 0;
    for (const bool on : {true, false}) {
        window.push_tool_button("mesh", "caf\xc3\xa9", on);
        QVERIFY(button->isDown()); // as the user sees a click
        QCOMPARE(triggered.size(), clicks);
        QTRY_COMPARE(triggered.size(), clicks + 1);
        ++clicks;
        QVERIFY(!button->isDown());
    }
}

void TstOstrelComponents::button_is_found_at_any_depth()
{
    Ostrel window;
    Component component;
    component.add_to_toolbar(window, "mesh", {u"1"_s}, "one");
    auto* const holder = new QWidget(toolbar(window, u"mesh"_s));
    auto* const button = new QToolButton(holder);
    button->setCheckable(true);
    button->setObjectName(u"deep_action_button"_s);
    window.push_tool_button("mesh", "deep", true);
    QVERIFY(button->isChecked());
}

void TstOstrelComponents::pushing_what_is_not_there_does_nothing()
{
    Ostrel window;
    Component component;
    component.add_to_toolbar(window, "mesh", {u"1"_s}, "one");
    // A nameless toolbar is not what null stands for, nor a nameless button.
    QToolBar* const mesh = toolbar(window, u"mesh"_s);
    std::vector<QAction*> actions = component.actions({u"2"_s});
    window.add_to_toolbar("", u"Nameless"_s, actions, "one", Qt::LeftToolBarArea);
    auto* const nameless = qobject_cast<QToolBar*>(actions.front()->associatedObjects().constFirst());
    QVERIFY(nameless);
    // A toolbar that was not made through the window's own operation.
    QToolBar* const stranger = window.addToolBar(u"Stranger"_s);
    stranger->setObjectName(u"stranger"_s);
    QList<QToolButton*> buttons;
    for (QToolBar* bar : {mesh, nameless, stranger}) {
        for (const QString& name : {u"grid_action_button"_s, u"_action_button"_s}) {
            buttons << new QToolButton(bar);
            buttons.constLast()->setCheckable(true);
            buttons.constLast()->setObjectName(name);
        }
    }

    window.push_tool_button(nullptr, "grid", true);
    window.push_tool_button("mesh", nullptr, true);
    window.push_tool_button("Mesh", "grid", true);
    window.push_tool_button("stranger", "grid", true);
    window.push_tool_button("mesh", "Grid", true);
    window.push_tool_button("mesh", "grid_action_button", true);
    for (const QToolButton* button : buttons)
        QVERIFY(!button->isChecked());
    window.push_tool_button("mesh", "grid", true);
    QVERIFY(buttons.constFirst()->isChecked());
}

void TstOstrelComponents::dock_is_in_the_view_menu_under_its_component()
{
    Ostrel window;
    QDockWidget* const dock = make_dock(u"tree"_s);
    QVERIFY(window.add_dock_window(dock, "one", Qt::LeftDockWidgetArea, Qt::AllDockWidgetAreas));
    std::vector<QAction*> items;
    window.view_menu()->get_dock_items(items);
    QCOMPARE(items.size(), 3U);
    QCOMPARE(items.back(), dock->toggleViewAction());
    QCOMPARE(shown(bar_menu(window, u"&View"_s)),
             (QStringList{u"Toolbars"_s, separator, u"Command Line"_s, u"Command Panel"_s, u"tree"_s}));
    window.remove_dock_window("tree");
    QCOMPARE(bar_menu(window, u"&View"_s)->actions().size(), 5);
    window.remove_dock_window("one");
    QCOMPARE(bar_menu(window, u"&View"_s)->actions().size(), 4);
}

void TstOstrelComponents::dock_without_a_component_goes_by_its_own_name()
{
    Ostrel window;
    QDockWidget* const dock = make_dock(u"caf\u00e9"_s);
    QVERIFY(window.add_dock_window(dock, nullptr, Qt::LeftDockWidgetArea, Qt::AllDockWidgetAreas));
    QVERIFY(bar_menu(window, u"&View"_s)->actions().contains(dock->toggleViewAction()));
    window.remove_dock_windows("caf\xc3\xa9");
    QVERIFY(!bar_menu(window, u"&View"_s)->actions().contains(dock->toggleViewAction()));
}

void TstOstrelComponents::removed_dock_stays_in_the_window()
{
    for (const auto remove : {&Ostrel::remove_dock_window, &Ostrel::remove_dock_windows}) {
        Ostrel window;
        QDockWidget* const dock = make_dock(u"tree"_s);
        window.add_dock_window(dock, "one", Qt::LeftDockWidgetArea, Qt::AllDockWidgetAreas);
        (window.*remove)("one");
        std::vector<QAction*> items;
        window.view_menu()->get_dock_items(items);
        QCOMPARE(items.size(), 2U);
        QCOMPARE(dock->parent(), &window);
        QCOMPARE(window.dockWidgetArea(dock), Qt::LeftDockWidgetArea);
        QVERIFY(!dock->isHidden());
    }
}

void TstOstrelComponents::removing_docks_takes_other_view_entries_too()
{
    Ostrel window;
    Component component;
    component.add_to_menu(window, u"&View"_s, {u"1"_s}, "one");
    component.add_to_menu(window, u"&Tools"_s, {u"2"_s}, "one");
    window.remove_dock_window("one");
    QVERIFY(!shown(bar_menu(window, u"&View"_s)).contains(u"1"_s));
    QVERIFY(shown(bar_menu(window, u"&Tools"_s)).contains(u"2"_s));
}

void TstOstrelComponents::refused_dock_is_not_in_the_view_menu()
{
    Ostrel window;
    const QStringList before = describe_window(window);
    QDockWidget nameless(u"nameless"_s);
    QVERIFY(!window.add_dock_window(&nameless, "one", Qt::LeftDockWidgetArea, Qt::AllDockWidgetAreas));
    const std::unique_ptr<QDockWidget> misplaced(make_dock(u"tree"_s));
    QVERIFY(!window.add_dock_window(misplaced.get(), "one", Qt::LeftDockWidgetArea, Qt::TopDockWidgetArea));
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::dock_deleted_early_is_no_harm()
{
    Ostrel window;
    const QStringList before = describe_window(window);
    QDockWidget* const dock = make_dock(u"tree"_s);
    window.add_dock_window(dock, "one", Qt::LeftDockWidgetArea, Qt::AllDockWidgetAreas);
    delete dock;
    std::vector<QString> labels;
    window.view_menu()->get_dock_labels(labels);
    QCOMPARE(labels, (std::vector<QString>{u"Command Line"_s, u"Command Panel"_s}));
    QStringList rows;
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(), QPoint());
    {
        const MenuDriver driver([&](QMenu* menu) { rows = shown(menu); });
        window.display_context_menu(&event);
    }
    QCOMPARE(rows.first(3), (QStringList{u"Command Line"_s, u"Command Panel"_s, separator}));
    window.remove_dock_window("one");
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::context_menu_offers_docks_toolbars_and_line_up()
{
    Ostrel window;
    Component component;
    window.add_dock_window(make_dock(u"tree"_s), "one", Qt::LeftDockWidgetArea, Qt::AllDockWidgetAreas);
    component.add_to_menu(window, u"&View"_s, {u"no dock"_s}, "one");
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(1, 2), QPoint(40, 50));
    QList<QAction*> actions;
    QString name;
    QPoint place;
    bool is_window = false;
    {
        const MenuDriver driver([&](QMenu* menu) {
            actions = menu->actions();
            name = menu->objectName();
            place = menu->pos();
            is_window = !menu->parent();
            for (qsizetype i : {3, 5})
                if (!actions.at(i)->isSeparator())
                    actions.clear();
        });
        window.display_context_menu(&event);
    }
    QCOMPARE(name, u"MainContextMenu"_s);
    QCOMPARE(place, QPoint(40, 50));
    QVERIFY(is_window);
    std::vector<QAction*> docks;
    window.view_menu()->get_dock_items(docks);
    QCOMPARE(docks.size(), 3U);
    QCOMPARE(actions.size(), 7);
    QCOMPARE(actions.first(3), QList<QAction*>(docks.begin(), docks.end()));
    QCOMPARE(actions.at(4), window.view_menu()->get_toolbar_menu()->menuAction());
    QCOMPARE(actions.at(6), window.findChild<QAction*>(u"lineupToolsAction"_s));
}

void TstOstrelComponents::context_menu_accepts_the_event_and_leaves_what_it_showed()
{
    Ostrel window;
    const QStringList before = describe_window(window);
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(), QPoint());
    event.ignore();
    bool accepted_meanwhile = true;
    {
        const MenuDriver driver([&](QMenu*) { accepted_meanwhile = event.isAccepted(); });
        window.display_context_menu(&event);
        QVERIFY(driver.menu_is_deleted());
    }
    QVERIFY(!accepted_meanwhile);
    QVERIFY(event.isAccepted());
    QCOMPARE(describe_window(window), before);
    QVERIFY(window.view_menu()->get_toolbar_menu());
}

void TstOstrelComponents::line_up_goes_to_the_view_menu()
{
    const Ostrel window;
    auto* const action = window.findChild<QAction*>(u"lineupToolsAction"_s);
    QVERIFY(action);
    // Lining up changes nothing, so that the connection is all there is to see.
    QVERIFY(disconnect(action, &QAction::triggered, window.view_menu(), &OstrelViewMenu::lineup_tools));
    QVERIFY(!disconnect(action, nullptr, nullptr, nullptr));
}

void TstOstrelComponents::pause_button_stays_alive_during_work()
{
    MainFrame frame;
    frame.load_gui();
    const auto unload = qScopeGuard([&] { frame.unload_gui(); });
    Ostrel* const window = Ostrel::instance();
    QToolBar* const bar = toolbar(*window, u"FileTools"_s);
    QAction* const pause = window->tools_menu()->pause_action();
    QAction* const play = window->tools_menu()->play_action();
    QWidget* const pause_button = bar->widgetForAction(pause);
    QWidget* const play_button = bar->widgetForAction(play);
    QVERIFY(pause_button->isVisible());
    QVERIFY(play_button->isVisible());
    const QSignalSpy played(play, &QAction::triggered);

    click_later(pause_button);
    click_later(play_button);
    frame.check_interrupt_session("work");
    QVERIFY(pause->isChecked());
    QVERIFY(played.isEmpty());
    // The same click counts once no command runs: the button itself was not at fault.
    click_later(play_button);
    QCoreApplication::processEvents();
    QCOMPARE(played.size(), 1);
}

void TstOstrelComponents::action_stands_in_several_menus_and_leaves_them_one_by_one()
{
    Ostrel window;
    Component component;
    std::vector<QAction*> actions = component.actions({u"1"_s});
    window.add_to_menu(u"A"_s, actions, "one");
    window.add_to_menu(u"B"_s, actions, "two");
    window.add_to_menu(u"&Tools"_s, actions, "one");
    window.add_to_toolbar("mesh", u"Mesh"_s, actions, "one", Qt::LeftToolBarArea);
    window.remove_menu_items("one");
    QVERIFY(!bar_menu(window, u"A"_s));
    QVERIFY(!shown(bar_menu(window, u"&Tools"_s)).contains(u"1"_s));
    QCOMPARE(shown(bar_menu(window, u"B"_s)), QStringList{u"1"_s});
    QCOMPARE(shown(toolbar(window, u"mesh"_s)), QStringList{u"1"_s});
    window.remove_menu_items("two");
    window.remove_toolbar_items("one");
    QVERIFY(actions.front()->associatedObjects().isEmpty());
}

void TstOstrelComponents::action_added_twice_stands_once_and_goes_with_its_first_owner()
{
    Ostrel window;
    Component component;
    const QStringList before = describe_window(window);
    QAction* const action = component.action(u"1"_s);
    std::vector<QAction*> list{action, component.action(u"2"_s), action};
    window.add_to_menu(u"A"_s, list, "one");
    window.add_to_menu(u"A"_s, list, "two");
    // A menu holds an action once, where it was added last.
    QCOMPARE(shown(bar_menu(window, u"A"_s)), (QStringList{u"2"_s, u"1"_s}));
    window.remove_menu_items("one");
    window.remove_menu_items("two");
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::empty_list_makes_an_empty_menu_that_goes_with_the_next_removal()
{
    Ostrel window;
    const QStringList before = describe_window(window);
    std::vector<QAction*> none;
    window.add_to_menu(u"&Tools"_s, none, "one");
    QCOMPARE(describe_window(window), before);
    window.add_to_menu(u""_s, none, "");
    window.add_to_menu(u"A"_s, none, "one");
    window.add_to_toolbar("mesh", QString(), none, "one", Qt::LeftToolBarArea);
    QVERIFY(bar_menu(window, u"A"_s) && bar_menu(window, u"A"_s)->isEmpty());
    QVERIFY(toolbar(window, u"mesh"_s) && shown(toolbar(window, u"mesh"_s)).isEmpty());
    window.remove_menu_items("another");
    window.remove_toolbar_items("another");
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::component_may_leave_from_its_own_menu_data()
{
    QTest::addColumn<bool>("by_mouse");
    QTest::newRow("by mouse") << true;
    QTest::newRow("by keyboard") << false;
}

void TstOstrelComponents::component_may_leave_from_its_own_menu()
{
    QFETCH(const bool, by_mouse);
    Ostrel window;
    QVERIFY(show_active(&window));
    const QStringList before = describe_window(window);
    auto component = std::make_unique<Component>();
    QAction* const leave = component->action(u"Leave"_s);
    std::vector<QAction*> actions{leave};
    window.add_to_menu(u"&Own"_s, actions, "one");
    window.add_to_menu(u"&Tools"_s, actions, "one");
    int left = 0;
    connect(leave, &QAction::triggered, &window, [&] {
        ++left;
        window.remove_menu_items("one");
        component.reset(); // and with it the action that is being carried out
    });
    const QPointer<QMenu> menu = bar_menu(window, u"&Own"_s);
    {
        // Opened from the bar, as a user does.
        const MenuDriver driver([&](QMenu* open) {
            if (by_mouse) {
                // A menu takes a click only from a mouse that has moved since the menu came.
                const QPoint place = open->actionGeometry(leave).center();
                QTest::mouseMove(open, place);
                QTest::mouseClick(open, Qt::LeftButton, {}, place);
            } else {
                static_cast<void>(choose(open, u"Leave"_s));
            }
        });
        QMenuBar* const bar = window.menuBar();
        const QPoint place = bar->actionGeometry(menu->menuAction()).center();
        QTest::mouseMove(bar, place);
        QTest::mouseClick(bar, Qt::LeftButton, {}, place);
        QTRY_COMPARE(left, 1);
    }
    QTRY_VERIFY(!menu);
    QVERIFY(!QApplication::activePopupWidget());
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::component_may_leave_from_its_own_tool_button()
{
    Ostrel window;
    QVERIFY(show_active(&window));
    const QStringList before = describe_window(window);
    auto component = std::make_unique<Component>();
    QAction* const leave = component->action(u"Leave"_s);
    std::vector<QAction*> actions{leave};
    window.add_to_toolbar("own", u"Own"_s, actions, "one", Qt::TopToolBarArea);
    int left = 0;
    connect(leave, &QAction::triggered, &window, [&] {
        ++left;
        window.remove_toolbar_items("one");
        component.reset();
    });
    const QPointer<QToolBar> bar = toolbar(window, u"own"_s);
    QWidget* const button = bar->widgetForAction(leave);
    QTRY_VERIFY(!button->visibleRegion().isEmpty());
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                      button->mapTo(&window, button->rect().center()));
    QTRY_COMPARE(left, 1);
    QTRY_VERIFY(!bar);
    delete_what_waits();
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::component_may_leave_from_the_context_menu()
{
    Ostrel window;
    QPointer<QDockWidget> dock = make_dock(u"tree"_s);
    window.add_dock_window(dock, "one", Qt::LeftDockWidgetArea, Qt::AllDockWidgetAreas);
    int left = 0;
    connect(dock->toggleViewAction(), &QAction::triggered, &window, [&] {
        ++left;
        window.remove_dock_window("one");
        dock->deleteLater();
    });
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(), QPoint());
    {
        const MenuDriver driver([&](QMenu* menu) { static_cast<void>(choose(menu, u"tree"_s)); });
        window.display_context_menu(&event);
    }
    QCOMPARE(left, 1);
    delete_what_waits();
    QVERIFY(!dock);
    std::vector<QString> labels;
    window.view_menu()->get_dock_labels(labels);
    QCOMPARE(labels, (std::vector<QString>{u"Command Line"_s, u"Command Panel"_s}));
}

void TstOstrelComponents::hidden_toolbar_comes_and_goes_as_a_shown_one()
{
    Ostrel window;
    Component component;
    const QStringList before = describe_window(window);
    component.add_to_toolbar(window, "mesh", {u"1"_s}, "one");
    toolbar(window, u"mesh"_s)->hide();
    component.add_to_toolbar(window, "mesh", {u"2"_s}, "one");
    QVERIFY(toolbar(window, u"mesh"_s)->isHidden());
    QCOMPARE(shown(toolbar(window, u"mesh"_s)), (QStringList{u"1"_s, u"2"_s}));
    delete_what_waits();
    window.remove_toolbar_items("another");
    QVERIFY(!toolbar(window, u"mesh"_s));
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::floating_dock_keeps_its_entry_and_floats_on()
{
    Ostrel window;
    QDockWidget* const dock = make_dock(u"tree"_s);
    dock->setFloating(true);
    QVERIFY(window.add_dock_window(dock, "one", Qt::LeftDockWidgetArea, Qt::AllDockWidgetAreas));
    window.show();
    dock->setFloating(true);
    window.view_menu()->hide_dock_window(u"tree"_s);
    QVERIFY(dock->isHidden());
    window.view_menu()->show_dock_window(u"tree"_s);
    QVERIFY(dock->isVisible());
    QVERIFY(dock->isFloating());
    window.remove_dock_window("one");
    QVERIFY(dock->isVisible());
    QVERIFY(dock->isFloating());
    QCOMPARE(dock->parent(), &window);
    dock->hide();
}

void TstOstrelComponents::odd_titles_are_shown_as_they_are_data()
{
    QTest::addColumn<QString>("title");
    QTest::newRow("very long") << QString(20'000, u'm');
    QTest::newRow("ampersands") << u"&&a&b& &"_s;
    QTest::newRow("other scripts")
        << u"\u0421\u0435\u0442\u043a\u0430 \u7db2\u683c \u0634\u0628\u0643\u0629 \U0001f600"_s;
    QTest::newRow("lines and tabs") << u"a\nb\tc"_s;
    QTest::newRow("tags") << u"<b>a</b>"_s;
    QTest::newRow("blank") << u" "_s;
    QTest::newRow("empty") << QString();
}

void TstOstrelComponents::odd_titles_are_shown_as_they_are()
{
    QFETCH(const QString, title);
    Ostrel window;
    window.show();
    Component component;
    const QStringList before = describe_window(window);
    const QStringList titles = bar_titles(window);
    component.add_to_menu(window, title, {title.isEmpty() ? u"1"_s : title}, "one");
    component.add_to_menu(window, title, {u"2"_s}, "two");
    QCOMPARE(bar_titles(window).size(), titles.size() + 1);
    QCOMPARE(bar_titles(window).at(titles.size() - 2), title);
    QCOMPARE(bar_menu(window, title)->actions().size(), 2);
    std::vector<QAction*> actions = component.actions({u"3"_s});
    const QByteArray name = title.toUtf8();
    window.add_to_toolbar(name.constData(), title, actions, name.constData(), Qt::TopToolBarArea);
    std::vector<QString> labels;
    window.view_menu()->get_toolbar_labels(labels);
    QCOMPARE(std::count(labels.begin(), labels.end(), title), 1);
    window.view_menu()->hide_toolbar(title);
    QVERIFY(!bar_widget(actions.front())->isVisible());
    window.remove_menu_items("one");
    window.remove_menu_items("two");
    window.remove_toolbar_items(name.constData());
    QCOMPARE(describe_window(window), before);
}

void TstOstrelComponents::two_windows_keep_their_components_apart()
{
    Ostrel first;
    auto second = std::make_unique<Ostrel>();
    QCOMPARE(Ostrel::instance(), &first);
    const QStringList empty_first = describe_window(first);
    const QStringList empty_second = describe_window(*second);
    Component component;
    std::vector<QAction*> actions = component.actions({u"1"_s, u"2"_s});
    for (Ostrel* window : {&first, second.get()}) {
        window->add_to_menu(u"Mesh"_s, actions, "one");
        window->add_to_toolbar("mesh", u"Mesh"_s, actions, "one", Qt::TopToolBarArea);
    }
    second->remove_menu_items("one");
    second->remove_toolbar_items("one");
    QCOMPARE(describe_window(*second), empty_second);
    QCOMPARE(shown(bar_menu(first, u"Mesh"_s)), (QStringList{u"1"_s, u"2"_s}));
    QCOMPARE(shown(toolbar(first, u"mesh"_s)), (QStringList{u"1"_s, u"2"_s}));
    second->add_to_menu(u"Mesh"_s, actions, "one");
    second.reset();
    QCOMPARE(shown(bar_menu(first, u"Mesh"_s)), (QStringList{u"1"_s, u"2"_s}));
    first.remove_menu_items("one");
    first.remove_toolbar_items("one");
    delete_what_waits();
    QCOMPARE(describe_window(first), empty_first);
}

void TstOstrelComponents::window_closed_over_an_open_plugin_tool_takes_it_along()
{
    HostDouble& host = HostDouble::instance();
    host.component_path = u"/a;/b"_s;
    MainFrame frame;
    QVERIFY(frame.load_gui());
    auto* const open = Ostrel::instance()->findChild<QAction*>(u"mComponentAction"_s);
    open->trigger();
    const QPointer<ComponentTool> tool = Ostrel::instance()->findChild<ComponentTool*>();
    QVERIFY(tool && tool->isVisible());
    QCOMPARE(host.trackers.size(), 2U);
    // Opened as a modal dialog, too, by whoever finds it.
    tool->hide();
    bool closed = false;
    QTimer::singleShot(0, tool, [&] {
        closed = Ostrel::instance()->close();
        tool->reject();
    });
    tool->exec();
    QVERIFY(closed);
    open->trigger();
    QVERIFY(tool->isVisible());
    frame.unload_gui();
    QVERIFY(!tool);
    QCOMPARE(host.component_path, u"/a;/b"_s);
    QVERIFY(host.trackers.empty());
}

void TstOstrelComponents::five_lives_of_a_component_leave_nothing()
{
    Ostrel window;
    Component neighbor;
    neighbor.add_to_menu(window, u"Mesh"_s, {u"n1"_s, u"-"_s, u"n2"_s}, "neighbor");
    neighbor.add_to_menu(window, u"&Tools"_s, {u"n3"_s}, "neighbor");
    neighbor.add_to_menu(window, u"&Help"_s, {u"n4"_s}, "neighbor");
    neighbor.add_to_toolbar(window, "shared", {u"n5"_s, u"n6"_s, u"n7"_s}, "neighbor");
    QDockWidget* const neighbor_dock = make_dock(u"neighbor dock"_s);
    window.add_dock_window(neighbor_dock, "neighbor", Qt::LeftDockWidgetArea, Qt::AllDockWidgetAreas);
    // The separator before the view menu's general section stays once it is there.
    neighbor.add_to_menu(window, u"&View"_s, {u"n8"_s}, "former");
    window.remove_menu_items("former");
    const QStringList before = describe_window(window);

    QStringList loaded;
    for (int life = 1; life <= 5; ++life) {
        Component component;
        for (const QString& title : {u"Mesh"_s, u"&Edit"_s, u"&View"_s, u"&Tools"_s, u"&Help"_s, u"Own"_s})
            component.add_to_menu(window, title, {u"1"_s, u"2"_s, u"-"_s, u"3"_s}, "component");
        component.add_to_toolbar(window, "shared", {u"4"_s, u"5"_s}, "component");
        component.add_to_toolbar(window, "own", {u"6"_s, u"7"_s}, "component");
        const std::unique_ptr<QDockWidget> dock(make_dock(u"own dock"_s));
        QVERIFY(window.add_dock_window(dock.get(), "component", Qt::RightDockWidgetArea,
                                       Qt::RightDockWidgetArea));
        const QStringList now = describe_window(window);
        if (life == 1)
            loaded = now;
        QCOMPARE(now, loaded);
        QVERIFY(now.size() > before.size() + 20);

        window.remove_dock_window("component");
        window.remove_toolbar_items("component");
        window.remove_menu_items("component");
        window.removeDockWidget(dock.get());
        dock->setParent(nullptr);
        QCOMPARE(describe_window(window), before);
        delete_what_waits();
        QCOMPARE(describe_window(window), before);
    }
}

void TstOstrelComponents::component_that_never_says_goodbye_is_no_harm()
{
    Component component;
    const QPointer<QAction> action = component.action(u"1"_s);
    QPointer<QMenu> menu;
    QPointer<QDockWidget> dock = make_dock(u"tree"_s);
    {
        Ostrel window;
        std::vector<QAction*> actions{action};
        for (const QString& title : {u"Mesh"_s, u"&Edit"_s, u"&View"_s, u"&Tools"_s, u"&Help"_s})
            window.add_to_menu(title, actions, "one");
        window.add_to_toolbar("mesh", u"Mesh"_s, actions, "one", Qt::LeftToolBarArea);
        window.add_dock_window(dock, "one", Qt::LeftDockWidgetArea, Qt::AllDockWidgetAreas);
        menu = bar_menu(window, u"Mesh"_s);
        QVERIFY(menu);
    }
    QVERIFY(!menu);
    QVERIFY(!dock);
    QVERIFY(action);
    QVERIFY(action->associatedObjects().isEmpty());
}

OSTREL_TEST(TstOstrelComponents)

#include "tst_ostrel_components.moc"
