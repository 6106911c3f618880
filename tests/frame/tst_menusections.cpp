// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/MenuSections.h"
#include "support/TestCase.h"

#include <QAction>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QToolBar>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <memory>
#include <new>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const auto separator = u"---"_s;

QStringList shown(const QWidget& widget)
{
    QStringList rows;
    for (const QAction* action : widget.actions())
        rows << (action->isSeparator() ? separator : action->text());
    return rows;
}

/** The entries of all sections as "section owner text". */
QStringList entries(const MenuSections& list)
{
    QStringList rows;
    for (const MenuSection* section : list.sections)
        for (const MenuEntry* entry : section->entries)
            rows << section->name + u' ' + entry->owner + u' ' +
                        (entry->action ? entry->action->text() : separator);
    return rows;
}

QStringList section_names(const MenuSections& list)
{
    QStringList names;
    for (const MenuSection* section : list.sections)
        names << section->name;
    return names;
}

/** A list with its widget and a supply of actions. */
struct Fixture
{
    explicit Fixture(bool on_toolbar = false)
    {
        if (on_toolbar)
            list.set_toolbar(&toolbar);
        else
            list.set_menu(&menu, nullptr);
    }

    QAction* action(const QString& text)
    {
        actions.push_back(std::make_unique<QAction>(text));
        return actions.back().get();
    }

    /** Makes and adds actions of these texts; "-" stands for null. */
    void add(const QStringList& texts, const char* component, const char* section)
    {
        std::vector<QAction*> added;
        for (const QString& text : texts)
            added.push_back(text == u"-"_s ? nullptr : action(text));
        list.add_items(added, component, section);
    }

    QStringList shown_rows() const { return list.toolbar ? shown(toolbar) : shown(menu); }

    std::vector<std::unique_ptr<QAction>> actions;
    QMenu menu;
    QToolBar toolbar;
    MenuSections list{u"list"_s};
};

} // namespace

class TstMenuSections : public TestCase
{
    Q_OBJECT

private slots:
    // Construction and ownership.
    void new_list_is_empty_and_has_no_widget();
    void widgets_are_kept_as_given();
    void deleting_the_list_leaves_widget_and_actions_alone_data() { menu_and_toolbar(); }
    void deleting_the_list_leaves_widget_and_actions_alone();

    // Finding.
    void section_is_found_by_exact_name();
    void null_name_finds_the_last_section();
    void null_name_makes_the_default_section();
    void new_section_goes_to_its_position_data();
    void new_section_goes_to_its_position();
    void found_section_is_not_moved();
    void counts_cover_all_up_to_the_section_found();
    void counts_of_a_new_section_cover_all();
    void counts_are_reset_first();
    void adding_a_null_section_does_nothing();

    // Adding.
    void items_go_to_the_end_of_their_section_data() { menu_and_toolbar(); }
    void items_go_to_the_end_of_their_section();
    void items_without_a_section_go_to_the_last_data() { menu_and_toolbar(); }
    void items_without_a_section_go_to_the_last();
    void section_is_made_even_if_nothing_is_added();
    void leading_and_doubled_separators_are_left_out_data() { menu_and_toolbar(); }
    void leading_and_doubled_separators_are_left_out();
    void trailing_separator_stays_data() { menu_and_toolbar(); }
    void trailing_separator_stays();
    void separator_may_join_earlier_items_of_the_section_data() { menu_and_toolbar(); }
    void separator_may_join_earlier_items_of_the_section();
    void new_last_section_is_parted_by_one_separator_data() { menu_and_toolbar(); }
    void new_last_section_is_parted_by_one_separator();
    void new_section_that_starts_with_a_separator_has_only_that_data() { menu_and_toolbar(); }
    void new_section_that_starts_with_a_separator_has_only_that();
    void nothing_before_means_no_separator_data() { menu_and_toolbar(); }
    void nothing_before_means_no_separator();
    void separator_before_means_no_second_one_data() { menu_and_toolbar(); }
    void separator_before_means_no_second_one();
    void middle_section_keeps_later_ones_behind_it_data() { menu_and_toolbar(); }
    void middle_section_keeps_later_ones_behind_it();
    void several_later_sections_keep_their_order_data() { menu_and_toolbar(); }
    void several_later_sections_keep_their_order();
    void later_separator_without_anything_before_is_dropped_data() { menu_and_toolbar(); }
    void later_separator_without_anything_before_is_dropped();
    void later_section_that_is_empty_gets_no_separator_data() { menu_and_toolbar(); }
    void later_section_that_is_empty_gets_no_separator();
    void menu_separators_are_remembered_and_toolbar_separators_not();
    void rebuilt_menu_separator_is_the_new_one();
    void null_item_asks_for_a_separator();
    void rebuilding_leaves_no_separators_behind_data() { menu_and_toolbar(); }
    void rebuilding_leaves_no_separators_behind();

    // Removing.
    void removing_takes_the_owners_entries_alone_data() { menu_and_toolbar(); }
    void removing_takes_the_owners_entries_alone();
    void owner_is_compared_exactly_data() { menu_and_toolbar(); }
    void owner_is_compared_exactly();
    void null_owner_removes_nothing_data() { menu_and_toolbar(); }
    void null_owner_removes_nothing();
    void without_a_widget_nothing_is_removed();
    void leading_separators_go_too();
    void separators_in_the_middle_and_at_the_end_stay();
    void kept_separators_do_not_start_the_count_anew();
    void sections_stay_when_they_are_empty();
    void toolbar_that_loses_a_separator_is_emptied_data();
    void toolbar_that_loses_a_separator_is_emptied();
    void emptied_toolbar_comes_back_with_items_before_a_later_section();
    void items_at_the_end_do_not_bring_an_emptied_toolbar_back();

    // Reading.
    void actions_are_read_without_separators();
    void null_section_reads_the_first();
    void unknown_section_reads_nothing();
    void reading_makes_no_section();

    // Early deletion.
    void deleted_action_is_never_touched_data() { menu_and_toolbar(); }
    void deleted_action_is_never_touched();
    void entry_of_a_deleted_action_counts_on_data() { menu_and_toolbar(); }
    void entry_of_a_deleted_action_counts_on();
    void new_action_in_the_place_of_a_deleted_one_is_left_alone();
    void cleared_menu_is_no_harm_data() { menu_and_toolbar(); }
    void cleared_menu_is_no_harm();

private:
    static void menu_and_toolbar()
    {
        QTest::addColumn<bool>("on_toolbar");
        QTest::newRow("menu") << false;
        QTest::newRow("toolbar") << true;
    }
};

void TstMenuSections::new_list_is_empty_and_has_no_widget()
{
    const MenuSections list(u"Edit"_s);
    QCOMPARE(list.name, u"Edit"_s);
    QVERIFY(list.sections.empty());
    QCOMPARE(list.menu, nullptr);
    QCOMPARE(list.toolbar, nullptr);
    QCOMPARE(list.menu_action, nullptr);
}

void TstMenuSections::widgets_are_kept_as_given()
{
    QMenu menu;
    QAction action;
    MenuSections of_menu(u"m"_s);
    of_menu.set_menu(&menu, &action);
    QCOMPARE(of_menu.menu, &menu);
    QCOMPARE(of_menu.menu_action, &action);
    QToolBar toolbar;
    MenuSections of_toolbar(u"t"_s);
    of_toolbar.set_toolbar(&toolbar);
    QCOMPARE(of_toolbar.toolbar, &toolbar);
    QCOMPARE(of_toolbar.menu, nullptr);
}

void TstMenuSections::deleting_the_list_leaves_widget_and_actions_alone()
{
    QFETCH(const bool, on_toolbar);
    QMenu menu;
    QToolBar toolbar;
    QAction one(u"one"_s);
    QAction two(u"two"_s);
    {
        MenuSections list(u"list"_s);
        if (on_toolbar)
            list.set_toolbar(&toolbar);
        else
            list.set_menu(&menu, nullptr);
        std::vector<QAction*> actions{&one, nullptr, &two};
        list.add_items(actions, "geometry", nullptr);
    }
    const QStringList expected{u"one"_s, separator, u"two"_s};
    QCOMPARE(on_toolbar ? shown(toolbar) : shown(menu), expected);
}

void TstMenuSections::section_is_found_by_exact_name()
{
    MenuSections list(u"list"_s);
    MenuSection* const lower = list.find_section("draw", -1, nullptr, nullptr);
    MenuSection* const upper = list.find_section("Draw", -1, nullptr, nullptr);
    MenuSection* const empty = list.find_section("", -1, nullptr, nullptr);
    MenuSection* const accent = list.find_section("caf\xc3\xa9", -1, nullptr, nullptr);
    QCOMPARE(section_names(list), (QStringList{u"draw"_s, u"Draw"_s, u""_s, u"caf\u00e9"_s}));
    QCOMPARE(list.find_section("draw", -1, nullptr, nullptr), lower);
    QCOMPARE(list.find_section("Draw", 0, nullptr, nullptr), upper);
    QCOMPARE(list.find_section("", 0, nullptr, nullptr), empty);
    QCOMPARE(list.find_section("caf\xc3\xa9", 0, nullptr, nullptr), accent);
    QCOMPARE(list.sections.size(), 4U);
}

void TstMenuSections::null_name_finds_the_last_section()
{
    MenuSections list(u"list"_s);
    list.add_section("first", -1);
    MenuSection* const last = list.find_section("last", -1, nullptr, nullptr);
    QCOMPARE(list.find_section(nullptr, 0, nullptr, nullptr), last);
    QCOMPARE(list.sections.size(), 2U);
}

void TstMenuSections::null_name_makes_the_default_section()
{
    MenuSections list(u"&Mesh"_s);
    const MenuSection* const made = list.find_section(nullptr, -1, nullptr, nullptr);
    QCOMPARE(made->name, u"&Mesh_section"_s);
    QCOMPARE(list.sections.size(), 1U);
    QCOMPARE(list.sections.front(), made);
}

void TstMenuSections::new_section_goes_to_its_position_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QStringList>("names");
    const QString a = u"a"_s;
    const QString b = u"b"_s;
    const QString n = u"new"_s;
    QTest::newRow("first") << 0 << QStringList{n, a, b};
    QTest::newRow("middle") << 1 << QStringList{a, n, b};
    QTest::newRow("number of sections appends") << 2 << QStringList{a, b, n};
    QTest::newRow("beyond appends") << 1000 << QStringList{a, b, n};
    QTest::newRow("negative appends") << -1 << QStringList{a, b, n};
    QTest::newRow("very negative appends") << std::numeric_limits<int>::min() << QStringList{a, b, n};
}

void TstMenuSections::new_section_goes_to_its_position()
{
    QFETCH(const int, position);
    QFETCH(const QStringList, names);
    MenuSections list(u"list"_s);
    list.add_section("a", -1);
    list.add_section("b", 1);
    list.add_section("new", position);
    QCOMPARE(section_names(list), names);
}

void TstMenuSections::found_section_is_not_moved()
{
    MenuSections list(u"list"_s);
    list.add_section("a", -1);
    list.add_section("b", -1);
    list.add_section("b", 0);
    QCOMPARE(section_names(list), (QStringList{u"a"_s, u"b"_s}));
}

void TstMenuSections::counts_cover_all_up_to_the_section_found()
{
    Fixture f;
    f.add({u"1"_s, u"2"_s}, "c", "a");
    f.add({u"-"_s, u"3"_s, u"4"_s, u"5"_s}, "c", "b");
    f.add({u"-"_s, u"6"_s}, "c", "c");
    f.list.add_section("empty", -1);
    const auto count = [&](const char* section) {
        int run = -1;
        int total = -1;
        f.list.find_section(section, -1, &run, &total);
        return std::pair(run, total);
    };
    QCOMPARE(count("a"), std::pair(2, 2));
    QCOMPARE(count("b"), std::pair(3, 6));
    QCOMPARE(count("c"), std::pair(1, 8));
    QCOMPARE(count("empty"), std::pair(1, 8));
    QCOMPARE(count(nullptr), std::pair(1, 8));
}

void TstMenuSections::counts_of_a_new_section_cover_all()
{
    Fixture f;
    f.add({u"1"_s, u"-"_s, u"2"_s, u"3"_s}, "c", "a");
    int run = -1;
    int total = -1;
    // Though it is put before all others.
    f.list.find_section("new", 0, &run, &total);
    QCOMPARE(run, 2);
    QCOMPARE(total, 4);
}

void TstMenuSections::counts_are_reset_first()
{
    MenuSections list(u"list"_s);
    int run = 7;
    int total = 7;
    list.find_section("a", -1, &run, nullptr);
    list.find_section("a", -1, nullptr, &total);
    QCOMPARE(run, 0);
    QCOMPARE(total, 0);
}

void TstMenuSections::adding_a_null_section_does_nothing()
{
    MenuSections list(u"list"_s);
    list.add_section(nullptr, -1);
    QVERIFY(list.sections.empty());
}

void TstMenuSections::items_go_to_the_end_of_their_section()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s, u"2"_s}, "one", "a");
    f.add({u"3"_s}, "two", "a");
    f.list.add_item(f.action(u"4"_s), "one", "a");
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
    QCOMPARE(entries(f.list), (QStringList{u"a one 1"_s, u"a one 2"_s, u"a two 3"_s, u"a one 4"_s}));
}

void TstMenuSections::items_without_a_section_go_to_the_last()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s}, "one", nullptr);
    QCOMPARE(entries(f.list), QStringList{u"list_section one 1"_s});
    f.list.add_section("last", -1);
    f.add({u"2"_s}, "one", nullptr);
    QCOMPARE(entries(f.list),
             (QStringList{u"list_section one 1"_s, u"last ot_section_separator ---"_s, u"last one 2"_s}));
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, separator, u"2"_s}));
}

void TstMenuSections::section_is_made_even_if_nothing_is_added()
{
    QAction action;
    std::vector<QAction*> one{&action};
    std::vector<QAction*> none;
    MenuSections list(u"list"_s);
    list.add_items(one, "component", "without a widget");
    QMenu menu;
    list.set_menu(&menu, nullptr);
    list.add_items(one, nullptr, "without a component");
    list.add_items(none, "component", "without actions");
    list.add_item(&action, nullptr, "one item");
    QCOMPARE(section_names(list), (QStringList{u"without a widget"_s, u"without a component"_s,
                                               u"without actions"_s, u"one item"_s}));
    QVERIFY(entries(list).isEmpty());
    QVERIFY(menu.isEmpty());
}

void TstMenuSections::leading_and_doubled_separators_are_left_out()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"-"_s, u"-"_s}, "one", "a");
    QVERIFY(entries(f.list).isEmpty());
    QVERIFY(f.shown_rows().isEmpty());
    f.add({u"-"_s, u"1"_s, u"-"_s, u"-"_s, u"2"_s}, "one", "a");
    QCOMPARE(entries(f.list), (QStringList{u"a one 1"_s, u"a one ---"_s, u"a one 2"_s}));
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, separator, u"2"_s}));
}

void TstMenuSections::trailing_separator_stays()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s, u"-"_s}, "one", "a");
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, separator}));
    f.add({u"-"_s, u"2"_s}, "two", "a");
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, separator, u"2"_s}));
    QCOMPARE(entries(f.list), (QStringList{u"a one 1"_s, u"a one ---"_s, u"a two 2"_s}));
}

void TstMenuSections::separator_may_join_earlier_items_of_the_section()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s}, "one", "a");
    f.add({u"-"_s, u"2"_s}, "two", "a");
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, separator, u"2"_s}));
    QCOMPARE(entries(f.list), (QStringList{u"a one 1"_s, u"a two ---"_s, u"a two 2"_s}));
}

void TstMenuSections::new_last_section_is_parted_by_one_separator()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s}, "one", "a");
    f.list.add_section("empty", -1);
    f.add({u"2"_s}, "one", "b");
    f.add({u"3"_s}, "one", "b");
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, separator, u"2"_s, u"3"_s}));
    QCOMPARE(entries(f.list),
             (QStringList{u"a one 1"_s, u"b ot_section_separator ---"_s, u"b one 2"_s, u"b one 3"_s}));
}

void TstMenuSections::new_section_that_starts_with_a_separator_has_only_that()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s}, "one", "a");
    f.add({u"-"_s, u"2"_s}, "one", "b");
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, separator, u"2"_s}));
    QCOMPARE(entries(f.list), (QStringList{u"a one 1"_s, u"b one ---"_s, u"b one 2"_s}));
}

void TstMenuSections::nothing_before_means_no_separator()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.list.add_section("a", -1);
    f.add({u"1"_s}, "one", "b");
    QCOMPARE(f.shown_rows(), QStringList{u"1"_s});
    QCOMPARE(entries(f.list), QStringList{u"b one 1"_s});
}

void TstMenuSections::separator_before_means_no_second_one()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s, u"-"_s}, "one", "a");
    f.add({u"2"_s}, "one", "b");
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, separator, u"2"_s}));
    QCOMPARE(entries(f.list), (QStringList{u"a one 1"_s, u"a one ---"_s, u"b one 2"_s}));
}

void TstMenuSections::middle_section_keeps_later_ones_behind_it()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.list.add_section("a", -1);
    f.list.add_section("b", -1);
    f.add({u"1"_s, u"2"_s}, "one", "b");
    f.add({u"3"_s}, "two", "a");
    const QStringList rows{u"3"_s, separator, u"1"_s, u"2"_s};
    QCOMPARE(f.shown_rows(), rows);
    QCOMPARE(entries(f.list),
             (QStringList{u"a two 3"_s, u"b ot_section_separator ---"_s, u"b one 1"_s, u"b one 2"_s}));
    f.add({u"4"_s}, "two", "a");
    QCOMPARE(f.shown_rows(), (QStringList{u"3"_s, u"4"_s, separator, u"1"_s, u"2"_s}));
    QCOMPARE(entries(f.list).size(), 5);
}

void TstMenuSections::several_later_sections_keep_their_order()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s}, "one", "a");
    f.add({u"2"_s, u"-"_s, u"3"_s}, "one", "c");
    f.add({u"4"_s}, "one", "d");
    f.list.add_section("b", 1);
    f.add({u"5"_s, u"-"_s}, "two", "b");
    // The separator at the end of the new items parts them from what follows.
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, separator, u"5"_s, separator, u"2"_s, separator, u"3"_s,
                                          separator, u"4"_s}));
    QCOMPARE(entries(f.list), (QStringList{u"a one 1"_s, u"b ot_section_separator ---"_s, u"b two 5"_s,
                                           u"b two ---"_s, u"c one 2"_s, u"c one ---"_s, u"c one 3"_s,
                                           u"d ot_section_separator ---"_s, u"d one 4"_s}));
}

void TstMenuSections::later_separator_without_anything_before_is_dropped()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s}, "one", "a");
    f.add({u"-"_s, u"2"_s, u"-"_s, u"3"_s}, "two", "c");
    f.list.add_section("b", 1);
    // The list now ends with a separator before the section that starts with one.
    f.add({u"-"_s}, "three", "b");
    QCOMPARE(entries(f.list),
             (QStringList{u"a one 1"_s, u"b three ---"_s, u"c two 2"_s, u"c two ---"_s, u"c two 3"_s}));
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, separator, u"2"_s, separator, u"3"_s}));
}

void TstMenuSections::later_section_that_is_empty_gets_no_separator()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.list.add_section("a", -1);
    f.list.add_section("b", -1);
    f.add({u"1"_s}, "one", "a");
    QCOMPARE(entries(f.list), QStringList{u"a one 1"_s});
    QCOMPARE(f.shown_rows(), QStringList{u"1"_s});
}

void TstMenuSections::menu_separators_are_remembered_and_toolbar_separators_not()
{
    Fixture in_menu(false);
    in_menu.add({u"1"_s, u"-"_s}, "one", "a");
    const MenuEntry* const remembered = in_menu.list.sections.front()->entries.at(1);
    QCOMPARE(remembered->action, nullptr);
    QCOMPARE(remembered->separator, in_menu.menu.actions().at(1));
    QCOMPARE(in_menu.list.sections.front()->entries.front()->separator, nullptr);

    Fixture on_bar(true);
    on_bar.add({u"1"_s, u"-"_s}, "one", "a");
    const MenuEntry* const forgotten = on_bar.list.sections.front()->entries.at(1);
    QCOMPARE(forgotten->action, nullptr);
    QCOMPARE(forgotten->separator, nullptr);
    QCOMPARE(on_bar.shown_rows(), (QStringList{u"1"_s, separator}));
}

void TstMenuSections::rebuilt_menu_separator_is_the_new_one()
{
    Fixture f;
    f.list.add_section("a", -1);
    f.add({u"1"_s, u"-"_s, u"2"_s}, "one", "b");
    f.add({u"3"_s}, "one", "a");
    const std::vector<MenuEntry*>& later = f.list.sections.at(1)->entries;
    QCOMPARE(later.size(), 4U);
    QCOMPARE(later.at(0)->separator, f.menu.actions().at(1));
    QCOMPARE(later.at(2)->separator, f.menu.actions().at(3));
}

void TstMenuSections::null_item_asks_for_a_separator()
{
    Fixture f;
    f.list.add_item(nullptr, "one", "a");
    QVERIFY(entries(f.list).isEmpty());
    f.add({u"1"_s}, "one", "a");
    f.list.add_item(nullptr, "one", "a");
    QCOMPARE(entries(f.list), (QStringList{u"a one 1"_s, u"a one ---"_s}));
}

void TstMenuSections::rebuilding_leaves_no_separators_behind()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.list.add_section("a", -1);
    f.add({u"1"_s, u"-"_s, u"2"_s}, "one", "b");
    const QWidget* const widget = on_toolbar ? static_cast<QWidget*>(&f.toolbar) : &f.menu;
    const auto separators = [&] {
        const QList<QAction*> all = widget->findChildren<QAction*>();
        return std::count_if(all.begin(), all.end(), [](const QAction* a) { return a->isSeparator(); });
    };
    for (int i = 0; i < 5; ++i)
        f.add({u"3"_s}, "two", "a");
    QCOMPARE(separators(), 2);
    f.list.remove_items("one");
    f.list.remove_items("two");
    QCOMPARE(separators(), 0);
}

void TstMenuSections::removing_takes_the_owners_entries_alone()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s}, "one", "a");
    f.add({u"2"_s, u"3"_s}, "two", "a");
    f.add({u"4"_s}, "one", "a");
    f.add({u"5"_s}, "two", "b");
    f.add({u"6"_s}, "one", "b");
    f.list.remove_items("two");
    QCOMPARE(entries(f.list),
             (QStringList{u"a one 1"_s, u"a one 4"_s, u"b ot_section_separator ---"_s, u"b one 6"_s}));
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, u"4"_s, separator, u"6"_s}));
}

void TstMenuSections::owner_is_compared_exactly()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s}, "one", "a");
    for (const char* other : {"One", "on", "one ", ""})
        f.list.remove_items(other);
    QCOMPARE(f.shown_rows(), QStringList{u"1"_s});
    f.list.remove_items("one");
    QVERIFY(f.shown_rows().isEmpty());
}

void TstMenuSections::null_owner_removes_nothing()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s}, "", "a");
    f.list.remove_items(nullptr);
    QCOMPARE(f.shown_rows(), QStringList{u"1"_s});
    f.list.remove_items("");
    QVERIFY(f.shown_rows().isEmpty());
}

void TstMenuSections::without_a_widget_nothing_is_removed()
{
    Fixture f;
    f.add({u"1"_s}, "one", "a");
    f.list.set_menu(nullptr, nullptr);
    f.list.remove_items("one");
    QCOMPARE(entries(f.list), QStringList{u"a one 1"_s});
}

void TstMenuSections::leading_separators_go_too()
{
    Fixture f;
    f.add({u"1"_s}, "one", "a");
    f.add({u"-"_s}, "two", "a");
    f.add({u"2"_s}, "one", "b");
    f.add({u"3"_s}, "two", "c");
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, separator, u"2"_s, separator, u"3"_s}));
    f.list.remove_items("one");
    QCOMPARE(entries(f.list), QStringList{u"c two 3"_s});
    QCOMPARE(f.shown_rows(), QStringList{u"3"_s});
}

void TstMenuSections::separators_in_the_middle_and_at_the_end_stay()
{
    Fixture f;
    f.add({u"1"_s, u"-"_s}, "one", "a");
    f.add({u"2"_s}, "two", "a");
    f.add({u"-"_s}, "one", "a");
    f.add({u"3"_s}, "two", "b");
    f.list.remove_items("two");
    QCOMPARE(entries(f.list), (QStringList{u"a one 1"_s, u"a one ---"_s, u"a one ---"_s}));
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, separator, separator}));
}

void TstMenuSections::kept_separators_do_not_start_the_count_anew()
{
    Fixture f;
    f.add({u"1"_s, u"-"_s}, "one", "a");
    f.add({u"2"_s}, "two", "b");
    f.add({u"3"_s}, "one", "c");
    f.list.remove_items("two");
    QCOMPARE(entries(f.list),
             (QStringList{u"a one 1"_s, u"a one ---"_s, u"c ot_section_separator ---"_s, u"c one 3"_s}));
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, separator, separator, u"3"_s}));
}

void TstMenuSections::sections_stay_when_they_are_empty()
{
    Fixture f;
    f.add({u"1"_s}, "one", "a");
    f.add({u"2"_s}, "one", "b");
    f.list.remove_items("one");
    QCOMPARE(section_names(f.list), (QStringList{u"a"_s, u"b"_s}));
    QVERIFY(entries(f.list).isEmpty());
    QVERIFY(f.menu.isEmpty());
}

void TstMenuSections::toolbar_that_loses_a_separator_is_emptied_data()
{
    QTest::addColumn<QByteArray>("removed");
    QTest::addColumn<QStringList>("left");
    QTest::newRow("its own separator") << QByteArray("two") << QStringList{u"a one 1"_s, u"a one 3"_s};
    QTest::newRow("a separator that would lead") << QByteArray("one") << QStringList{u"a two 2"_s};
}

void TstMenuSections::toolbar_that_loses_a_separator_is_emptied()
{
    QFETCH(const QByteArray, removed);
    QFETCH(const QStringList, left);
    Fixture f(true);
    f.add({u"1"_s}, "one", "a");
    f.add({u"-"_s, u"2"_s}, "two", "a");
    f.add({u"3"_s}, "one", "a");
    f.list.remove_items(removed.constData());
    QCOMPARE(entries(f.list), left);
    QVERIFY(f.shown_rows().isEmpty());
}

void TstMenuSections::emptied_toolbar_comes_back_with_items_before_a_later_section()
{
    Fixture f(true);
    f.add({u"1"_s}, "one", "a");
    f.add({u"-"_s, u"2"_s}, "two", "a");
    f.add({u"3"_s}, "one", "b");
    f.list.remove_items("two");
    QVERIFY(f.shown_rows().isEmpty());
    f.add({u"4"_s}, "two", "a");
    QCOMPARE(f.shown_rows(), (QStringList{u"1"_s, u"4"_s, separator, u"3"_s}));
}

void TstMenuSections::items_at_the_end_do_not_bring_an_emptied_toolbar_back()
{
    Fixture f(true);
    f.add({u"1"_s}, "one", "a");
    f.add({u"-"_s, u"2"_s}, "two", "a");
    f.list.remove_items("two");
    f.add({u"3"_s}, "two", "a");
    QCOMPARE(f.shown_rows(), QStringList{u"3"_s});
    QCOMPARE(entries(f.list), (QStringList{u"a one 1"_s, u"a two 3"_s}));
}

void TstMenuSections::actions_are_read_without_separators()
{
    Fixture f;
    f.add({u"1"_s, u"-"_s, u"2"_s}, "one", "a");
    f.add({u"3"_s}, "one", "b");
    QAction before;
    std::vector<QAction*> out{&before};
    f.list.get_items(out, "a");
    QCOMPARE(out, (std::vector<QAction*>{&before, f.actions.at(0).get(), f.actions.at(1).get()}));
    f.list.get_items(out, "b");
    QCOMPARE(out.size(), 4U);
    QCOMPARE(out.back(), f.actions.at(2).get());
}

void TstMenuSections::null_section_reads_the_first()
{
    Fixture f;
    std::vector<QAction*> out;
    f.list.get_items(out, nullptr);
    QVERIFY(out.empty());
    f.add({u"1"_s}, "one", "a");
    f.add({u"2"_s}, "one", "b");
    f.list.get_items(out, nullptr);
    QCOMPARE(out, std::vector<QAction*>{f.actions.at(0).get()});
}

void TstMenuSections::unknown_section_reads_nothing()
{
    Fixture f;
    f.add({u"1"_s}, "one", "a");
    std::vector<QAction*> out;
    f.list.get_items(out, "A");
    QVERIFY(out.empty());
}

void TstMenuSections::reading_makes_no_section()
{
    const MenuSections list(u"list"_s);
    std::vector<QAction*> out;
    list.get_items(out, "a");
    QVERIFY(list.sections.empty());
}

void TstMenuSections::deleted_action_is_never_touched()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.list.add_section("a", -1);
    f.add({u"1"_s, u"2"_s}, "one", "b");
    f.actions.front().reset();
    QCOMPARE(f.shown_rows(), QStringList{u"2"_s});

    std::vector<QAction*> out;
    f.list.get_items(out, "b");
    QCOMPARE(out, std::vector<QAction*>{f.actions.at(1).get()});
    f.add({u"3"_s}, "two", "a"); // takes the later section out and puts it back
    QCOMPARE(f.shown_rows(), (QStringList{u"3"_s, separator, u"2"_s}));
    f.list.remove_items("one");
    QCOMPARE(f.list.sections.at(1)->entries.size(), 1U);
    QCOMPARE(f.shown_rows(), (QStringList{u"3"_s, separator}));
}

void TstMenuSections::entry_of_a_deleted_action_counts_on()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.add({u"1"_s}, "one", "a");
    f.actions.front().reset();
    int run = 0;
    int total = 0;
    f.list.find_section("a", -1, &run, &total);
    QCOMPARE(run, 1);
    QCOMPARE(total, 1);
    f.add({u"2"_s}, "two", "b");
    QCOMPARE(f.shown_rows(), (QStringList{separator, u"2"_s}));
    // It stays, and so the separator behind it does not lead.
    f.list.remove_items("three");
    QCOMPARE(f.shown_rows(), (QStringList{separator, u"2"_s}));
}

void TstMenuSections::new_action_in_the_place_of_a_deleted_one_is_left_alone()
{
    Fixture f;
    alignas(QAction) std::array<std::byte, sizeof(QAction)> place;
    auto* action = new (place.data()) QAction(u"old"_s);
    f.list.add_item(action, "one", "a");
    action->~QAction();
    action = new (place.data()) QAction(u"new"_s);
    f.menu.addAction(action);
    f.list.remove_items("one");
    QCOMPARE(f.shown_rows(), QStringList{u"new"_s});
    action->~QAction();
}

void TstMenuSections::cleared_menu_is_no_harm()
{
    QFETCH(const bool, on_toolbar);
    Fixture f(on_toolbar);
    f.list.add_section("a", -1);
    f.add({u"1"_s, u"-"_s, u"2"_s}, "one", "b");
    if (on_toolbar)
        f.toolbar.clear();
    else
        f.menu.clear(); // deletes the separator
    f.add({u"3"_s}, "two", "a");
    QCOMPARE(f.shown_rows(), (QStringList{u"3"_s, separator, u"1"_s, separator, u"2"_s}));
    f.list.remove_items("one");
    if (on_toolbar)
        QVERIFY(f.shown_rows().isEmpty());
    else
        QCOMPARE(f.shown_rows(), (QStringList{u"3"_s, separator}));
}

OSTREL_TEST(TstMenuSections)

#include "tst_menusections.moc"
