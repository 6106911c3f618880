// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "options/OptionsPanel.h"
#include "support/TestCase.h"
#include "support/windows.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QMetaMethod>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/** The methods that a class declares itself, in order, as signatures. */
QStringList own_methods(const QMetaObject& type, QMetaMethod::MethodType kind)
{
    QStringList signatures;
    for (int i = type.methodOffset(); i < type.methodCount(); ++i)
        if (type.method(i).methodType() == kind)
            signatures << QString::fromLatin1(type.method(i).methodSignature());
    return signatures;
}

void write_rows(QStringList& rows, const QTreeWidgetItem* item, const QString& indent)
{
    for (int i = 0; i < item->childCount(); ++i) {
        rows << indent + item->child(i)->text(0);
        write_rows(rows, item->child(i), indent + u"  "_s);
    }
}

/** A panel and what it is made of. */
struct Panel
{
    OptionsPanel dialog{nullptr};
    QTreeWidget* tree = dialog.findChild<QTreeWidget*>(u"mOptionList"_s);
    QStackedWidget* stack = dialog.findChild<QStackedWidget*>(u"mOptionStack"_s);
    QWidget* blank = dialog.findChild<QWidget*>(u"mBlankPage"_s);
    QPushButton* save = dialog.findChild<QPushButton*>(u"mSaveButton"_s);
    QPushButton* close = dialog.findChild<QPushButton*>(u"mCancelButton"_s);

    QStringList rows() const
    {
        QStringList rows;
        write_rows(rows, tree->invisibleRootItem(), QString());
        return rows;
    }
    /** The only item with that label. */
    QTreeWidgetItem* item(const QString& label) const
    {
        const QList<QTreeWidgetItem*> found = tree->findItems(label, Qt::MatchExactly | Qt::MatchRecursive);
        return found.size() == 1 ? found.first() : nullptr;
    }
    /** What is shown when the item with that label is selected; null if there is no such item. */
    QWidget* shown_at(const QString& label) const
    {
        QTreeWidgetItem* const wanted = item(label);
        if (!wanted)
            return nullptr;
        tree->setCurrentItem(nullptr);
        tree->setCurrentItem(wanted);
        return stack->currentWidget();
    }
};

/** Calls @p act when the dialog has opened and closes it then. */
void meet_open_dialog(OptionsPanel& dialog, const std::function<void()>& act)
{
    QTimer::singleShot(0, &dialog, [&dialog, act] {
        act();
        dialog.close();
    });
}

} // namespace

class TstOptionsPanel : public TestCase
{
    Q_OBJECT

private slots:
    void form_has_its_names_texts_and_sizes();
    void grid_has_its_places();
    void dialog_is_a_window_of_its_parent();
    void signals_and_slots_stand_in_order();

    void page_gets_an_entry_and_a_place_in_the_stack();
    void empty_path_is_ignored();
    void entries_are_sorted();
    void first_page_of_a_path_stays();
    void group_takes_a_page_later();
    void group_with_a_page_is_not_sorted_again();
    void null_page_makes_a_group();
    void null_page_for_a_known_path_changes_nothing();
    void two_levels_have_their_labels();
    void known_group_is_used_again();
    void three_levels_have_reversed_groups();
    void four_levels_have_reversed_groups();
    void empty_parts_are_kept();
    void names_differ_by_case();

    void selection_shows_the_page();
    void no_selection_shows_the_blank_page();
    void selection_goes_by_labels();

    void removed_page_leaves_and_lives();
    void removed_page_gives_way_to_the_blank_page();
    void no_entry_is_current_when_the_shown_page_was_removed();
    void hidden_page_may_act_data();
    void hidden_page_may_act();
    void dying_pages_may_take_pages_out();
    void receiver_of_save_may_delete_the_panel();
    void receiver_of_refresh_may_act_data();
    void receiver_of_refresh_may_act();
    void dialog_that_is_open_is_not_opened_twice();
    void dialog_may_be_closed_and_opened_again_from_inside();
    void removed_page_that_is_not_shown_leaves_the_shown_one();
    void removed_path_can_come_back();
    void unknown_path_is_not_removed();
    void children_of_a_removed_group_stay_known();
    void page_below_a_removed_group_can_be_removed();
    void new_page_below_a_removed_branch_finds_a_place();
    void deleted_page_harms_nothing();

    void select_first_takes_the_first_entry();
    void select_first_of_an_empty_panel_is_harmless();
    void refresh_settings_emits();
    void save_emits_then_closes();
    void close_saves_nothing();
    void show_panel_refreshes_then_opens_modally();
    void show_panel_of_an_open_dialog_only_selects();
    void show_panel_of_an_unknown_path_opens_as_it_was();
    void shortcuts_work();
    void panel_dies_with_a_page_selected();
};

void TstOptionsPanel::form_has_its_names_texts_and_sizes()
{
    const Panel panel;
    QCOMPARE(panel.dialog.objectName(), u"QtOptionsPanel"_s);
    QCOMPARE(panel.dialog.windowTitle(), u"Options"_s);
    QCOMPARE(panel.dialog.size(), QSize(600, 383));
    QCOMPARE(panel.tree->headerItem()->text(0), u"Options"_s);
    QVERIFY(panel.tree->isHeaderHidden());
    QCOMPARE(panel.tree->minimumSize(), QSize(180, 0));
    QCOMPARE(panel.tree->maximumSize(), QSize(180, 16777215));
    QCOMPARE(panel.save->text(), u"&Save"_s);
    QCOMPARE(panel.save->shortcut(), QKeySequence(u"Alt+S"_s));
    QCOMPARE(panel.close->text(), u"&Close"_s);
    QCOMPARE(panel.close->shortcut(), QKeySequence(u"Alt+C"_s));
    const auto* frame = panel.dialog.findChild<QFrame*>(u"frame"_s);
    QCOMPARE(frame->frameShape(), QFrame::Box);
    QCOMPARE(frame->frameShadow(), QFrame::Sunken);
    const auto* description = panel.dialog.findChild<QLabel*>(u"mDescription"_s);
    QCOMPARE(description->text(), QString());
    QCOMPARE(description->minimumHeight(), 40);
    QCOMPARE(panel.stack->count(), 1);
    QCOMPARE(panel.stack->widget(0), panel.blank);
}

void TstOptionsPanel::grid_has_its_places()
{
    const Panel panel;
    auto* grid = panel.dialog.findChild<QGridLayout*>(u"gridLayout"_s);
    QCOMPARE(panel.dialog.layout(), grid);
    QCOMPARE(grid->spacing(), 5);
    QCOMPARE(grid->contentsMargins(), QMargins(5, 5, 5, 5));
    const auto place = [&](const QString& name) {
        QList<int> at{-1, -1, -1, -1};
        if (auto* widget = panel.dialog.findChild<QWidget*>(name); widget && grid->indexOf(widget) >= 0)
            grid->getItemPosition(grid->indexOf(widget), &at[0], &at[1], &at[2], &at[3]);
        return at;
    };
    QCOMPARE(place(u"mOptionList"_s), (QList<int>{0, 0, 2, 1}));
    QCOMPARE(place(u"frame"_s), (QList<int>{0, 1, 1, 3}));
    QCOMPARE(place(u"mDescription"_s), (QList<int>{1, 1, 1, 1}));
    QCOMPARE(place(u"mSaveButton"_s), (QList<int>{1, 2, 1, 1}));
    QCOMPARE(place(u"mCancelButton"_s), (QList<int>{1, 3, 1, 1}));
    const auto* column = panel.dialog.findChild<QVBoxLayout*>(u"verticalLayout"_s);
    QCOMPARE(panel.dialog.findChild<QFrame*>(u"frame"_s)->layout(), column);
    QCOMPARE(column->spacing(), 0);
    QCOMPARE(column->contentsMargins(), QMargins());
    QVERIFY(column->indexOf(panel.stack) >= 0);
}

void TstOptionsPanel::dialog_is_a_window_of_its_parent()
{
    QWidget parent;
    const OptionsPanel panel(&parent);
    QCOMPARE(panel.parentWidget(), &parent);
    QVERIFY(panel.isWindow());
}

void TstOptionsPanel::signals_and_slots_stand_in_order()
{
    QCOMPARE(own_methods(OptionsPanel::staticMetaObject, QMetaMethod::Signal),
             (QStringList{u"saveSettings()"_s, u"refreshSettings()"_s, u"legacyBehaviorChanged(bool)"_s}));
    QCOMPARE(own_methods(OptionsPanel::staticMetaObject, QMetaMethod::Slot),
             (QStringList{u"saveClicked()"_s, u"changeWidget(QTreeWidgetItem*,QTreeWidgetItem*)"_s}));
}

void TstOptionsPanel::page_gets_an_entry_and_a_place_in_the_stack()
{
    Panel panel;
    auto* page = new QWidget;
    panel.dialog.add_panel(u"A"_s, page);
    QCOMPARE(panel.rows(), QStringList{u"A"_s});
    QVERIFY(panel.stack->indexOf(page) > 0);
}

void TstOptionsPanel::empty_path_is_ignored()
{
    Panel panel;
    QWidget page;
    panel.dialog.add_panel(QString(), &page);
    QCOMPARE(panel.rows(), QStringList());
    QCOMPARE(panel.stack->count(), 1);
    QCOMPARE(page.parentWidget(), nullptr);
}

void TstOptionsPanel::entries_are_sorted()
{
    Panel panel;
    for (const auto& path : {u"Layout"_s, u"b/z"_s, u"General"_s, u"b/a"_s})
        panel.dialog.add_panel(path, new QWidget);
    QCOMPARE(panel.rows(), (QStringList{u"General"_s, u"Layout"_s, u"b"_s, u"  a"_s, u"  z"_s}));
}

void TstOptionsPanel::first_page_of_a_path_stays()
{
    Panel panel;
    auto* first = new QWidget;
    QWidget second;
    panel.dialog.add_panel(u"A"_s, first);
    panel.dialog.add_panel(u"A"_s, &second);
    QCOMPARE(panel.rows(), QStringList{u"A"_s});
    QCOMPARE(panel.stack->indexOf(&second), -1);
    QCOMPARE(second.parentWidget(), nullptr);
    QCOMPARE(panel.shown_at(u"A"_s), first);
}

void TstOptionsPanel::group_takes_a_page_later()
{
    Panel panel;
    auto* below = new QWidget;
    auto* above = new QWidget;
    panel.dialog.add_panel(u"A/B"_s, below);
    QCOMPARE(panel.shown_at(u"A"_s), panel.blank);
    panel.dialog.add_panel(u"A"_s, above);
    QCOMPARE(panel.rows(), (QStringList{u"A"_s, u"  B"_s}));
    QCOMPARE(panel.shown_at(u"A"_s), above);
    QCOMPARE(panel.shown_at(u"B"_s), below);
}

void TstOptionsPanel::group_with_a_page_is_not_sorted_again()
{
    Panel panel;
    panel.dialog.add_panel(u"A/B"_s, new QWidget);
    panel.dialog.add_panel(u"C"_s, new QWidget);
    panel.item(u"C"_s)->setText(0, u"0"_s);
    panel.dialog.add_panel(u"A"_s, new QWidget);
    QCOMPARE(panel.rows(), (QStringList{u"A"_s, u"  B"_s, u"0"_s}));
}

void TstOptionsPanel::null_page_makes_a_group()
{
    Panel panel;
    panel.dialog.add_panel(u"A"_s, nullptr);
    QCOMPARE(panel.rows(), QStringList{u"A"_s});
    QCOMPARE(panel.stack->count(), 1);
    QCOMPARE(panel.shown_at(u"A"_s), panel.blank);
}

void TstOptionsPanel::null_page_for_a_known_path_changes_nothing()
{
    Panel panel;
    auto* page = new QWidget;
    panel.dialog.add_panel(u"A"_s, page);
    panel.dialog.add_panel(u"A"_s, nullptr);
    QCOMPARE(panel.rows(), QStringList{u"A"_s});
    QCOMPARE(panel.shown_at(u"A"_s), page);
}

void TstOptionsPanel::two_levels_have_their_labels()
{
    Panel panel;
    auto* page = new QWidget;
    panel.dialog.add_panel(u"Group/Page"_s, page);
    QCOMPARE(panel.rows(), (QStringList{u"Group"_s, u"  Page"_s}));
    QCOMPARE(panel.shown_at(u"Page"_s), page);
}

void TstOptionsPanel::known_group_is_used_again()
{
    Panel panel;
    panel.dialog.add_panel(u"G/a"_s, new QWidget);
    panel.dialog.add_panel(u"G/b"_s, new QWidget);
    QCOMPARE(panel.rows(), (QStringList{u"G"_s, u"  a"_s, u"  b"_s}));
}

void TstOptionsPanel::three_levels_have_reversed_groups()
{
    Panel panel;
    panel.dialog.add_panel(u"A/B/C"_s, new QWidget);
    QCOMPARE(panel.rows(), (QStringList{u"B"_s, u"  A"_s, u"    C"_s}));
    for (const auto& label : {u"A"_s, u"B"_s, u"C"_s})
        QCOMPARE(panel.shown_at(label), panel.blank);
    // The map holds the keys in order: a page for the key A lands on the node labeled B.
    auto* page = new QWidget;
    panel.dialog.add_panel(u"A"_s, page);
    QCOMPARE(panel.rows(), (QStringList{u"B"_s, u"  A"_s, u"    C"_s}));
    panel.dialog.show();
    panel.dialog.show_panel(u"A"_s);
    QCOMPARE(panel.tree->currentItem(), panel.item(u"B"_s));
}

void TstOptionsPanel::four_levels_have_reversed_groups()
{
    Panel panel;
    panel.dialog.add_panel(u"A/B/C/D"_s, new QWidget);
    QCOMPARE(panel.rows(), (QStringList{u"C"_s, u"  B"_s, u"    A"_s, u"      D"_s}));
    // Known groups keep their labels; the count goes on over them.
    panel.dialog.add_panel(u"A/B/X/Y"_s, new QWidget);
    QCOMPARE(panel.rows(),
             (QStringList{u"C"_s, u"  B"_s, u"    A"_s, u"      D"_s, u"    A"_s, u"      Y"_s}));
}

void TstOptionsPanel::empty_parts_are_kept()
{
    Panel panel;
    auto* page = new QWidget;
    auto* trailing = new QWidget;
    panel.dialog.add_panel(u"/x"_s, page);
    QCOMPARE(panel.rows(), (QStringList{QString(), u"  x"_s}));
    QCOMPARE(panel.shown_at(u"x"_s), page);
    panel.dialog.add_panel(u"y/"_s, trailing);
    QCOMPARE(panel.rows(), (QStringList{QString(), u"  x"_s, u"y"_s, u"  "_s}));
    panel.tree->setCurrentItem(panel.item(u"y"_s)->child(0));
    QCOMPARE(panel.stack->currentWidget(), trailing);
}

void TstOptionsPanel::names_differ_by_case()
{
    Panel panel;
    panel.dialog.add_panel(u"a"_s, new QWidget);
    panel.dialog.add_panel(u"A"_s, new QWidget);
    QCOMPARE(panel.rows().size(), 2);
}

void TstOptionsPanel::selection_shows_the_page()
{
    Panel panel;
    auto* a = new QWidget;
    auto* b = new QWidget;
    panel.dialog.add_panel(u"a"_s, a);
    panel.dialog.add_panel(u"b"_s, b);
    QCOMPARE(panel.shown_at(u"b"_s), b);
    QCOMPARE(panel.shown_at(u"a"_s), a);
}

void TstOptionsPanel::no_selection_shows_the_blank_page()
{
    Panel panel;
    auto* page = new QWidget;
    panel.dialog.add_panel(u"a"_s, page);
    QCOMPARE(panel.stack->currentWidget(), panel.blank);
    QCOMPARE(panel.shown_at(u"a"_s), page);
    panel.tree->setCurrentItem(nullptr);
    QCOMPARE(panel.stack->currentWidget(), panel.blank);
}

void TstOptionsPanel::selection_goes_by_labels()
{
    Panel panel;
    auto* page = new QWidget;
    panel.dialog.add_panel(u"a"_s, page);
    panel.dialog.add_panel(u"b"_s, new QWidget);
    panel.item(u"a"_s)->setText(0, u"other"_s);
    QCOMPARE(panel.shown_at(u"other"_s), panel.blank);
    panel.item(u"b"_s)->setText(0, u"a"_s);
    QCOMPARE(panel.shown_at(u"a"_s), page);
}

void TstOptionsPanel::removed_page_leaves_and_lives()
{
    Panel panel;
    const QPointer<QWidget> page(new QWidget);
    panel.dialog.add_panel(u"a"_s, page);
    panel.dialog.remove_panel(u"a"_s);
    QCOMPARE(panel.rows(), QStringList());
    QCOMPARE(panel.stack->count(), 1);
    QVERIFY(page);
    delete page;
}

void TstOptionsPanel::removed_page_gives_way_to_the_blank_page()
{
    Panel panel;
    auto* a = new QWidget;
    panel.dialog.add_panel(u"a"_s, a);
    panel.dialog.add_panel(u"b"_s, new QWidget);
    panel.dialog.add_panel(u"c"_s, new QWidget);
    QCOMPARE(panel.shown_at(u"a"_s), a);
    panel.dialog.remove_panel(u"a"_s);
    QCOMPARE(panel.stack->currentWidget(), panel.blank);
    QCOMPARE(panel.rows(), (QStringList{u"b"_s, u"c"_s}));
}

void TstOptionsPanel::removed_page_that_is_not_shown_leaves_the_shown_one()
{
    Panel panel;
    auto* b = new QWidget;
    panel.dialog.add_panel(u"a"_s, new QWidget);
    panel.dialog.add_panel(u"b"_s, b);
    QCOMPARE(panel.shown_at(u"b"_s), b);
    panel.dialog.remove_panel(u"a"_s);
    QCOMPARE(panel.stack->currentWidget(), b);
}

void TstOptionsPanel::removed_path_can_come_back()
{
    Panel panel;
    panel.dialog.add_panel(u"a"_s, new QWidget);
    panel.dialog.remove_panel(u"a"_s);
    auto* second = new QWidget;
    panel.dialog.add_panel(u"a"_s, second);
    QCOMPARE(panel.shown_at(u"a"_s), second);
}

void TstOptionsPanel::unknown_path_is_not_removed()
{
    Panel panel;
    panel.dialog.add_panel(u"a"_s, new QWidget);
    panel.dialog.remove_panel(u"b"_s);
    panel.dialog.remove_panel(QString());
    QCOMPARE(panel.rows(), QStringList{u"a"_s});
    QCOMPARE(panel.stack->count(), 2);
}

void TstOptionsPanel::children_of_a_removed_group_stay_known()
{
    Panel panel;
    auto* page = new QWidget;
    panel.dialog.add_panel(u"A/B"_s, page);
    panel.dialog.remove_panel(u"A"_s);
    QCOMPARE(panel.rows(), QStringList());
    QVERIFY(panel.stack->indexOf(page) >= 0);
    // Its path is taken, and leads nowhere.
    QWidget other;
    panel.dialog.add_panel(u"A/B"_s, &other);
    QCOMPARE(panel.stack->indexOf(&other), -1);
    QCOMPARE(panel.rows(), QStringList());
    panel.dialog.show();
    panel.dialog.show_panel(u"A/B"_s);
    QCOMPARE(panel.tree->currentItem(), nullptr);
}

void TstOptionsPanel::page_below_a_removed_group_can_be_removed()
{
    Panel panel;
    auto* page = new QWidget;
    panel.dialog.add_panel(u"A/B"_s, page);
    panel.dialog.remove_panel(u"A"_s);
    panel.dialog.remove_panel(u"A/B"_s);
    QCOMPARE(panel.stack->indexOf(page), -1);
    panel.dialog.add_panel(u"A/B"_s, page);
    QCOMPARE(panel.rows(), (QStringList{u"A"_s, u"  B"_s}));
    QCOMPARE(panel.shown_at(u"B"_s), page);
}

void TstOptionsPanel::new_page_below_a_removed_branch_finds_a_place()
{
    Panel panel;
    panel.dialog.add_panel(u"A"_s, new QWidget);
    panel.dialog.add_panel(u"A/B"_s, new QWidget);
    panel.dialog.remove_panel(u"A"_s);
    panel.dialog.add_panel(u"A/B/C"_s, new QWidget);
    QVERIFY(panel.item(u"C"_s));
}

void TstOptionsPanel::deleted_page_harms_nothing()
{
    Panel panel;
    auto* page = new QWidget;
    panel.dialog.add_panel(u"a"_s, page);
    QCOMPARE(panel.shown_at(u"a"_s), page);
    delete page;
    QCOMPARE(panel.shown_at(u"a"_s), panel.blank);
    panel.dialog.remove_panel(u"a"_s);
    QCOMPARE(panel.rows(), QStringList());
}

void TstOptionsPanel::select_first_takes_the_first_entry()
{
    Panel panel;
    auto* general = new QWidget;
    panel.dialog.add_panel(u"Layout"_s, new QWidget);
    panel.dialog.add_panel(u"General"_s, general);
    QVERIFY(panel.shown_at(u"Layout"_s));
    panel.dialog.select_first();
    QCOMPARE(panel.tree->currentItem(), panel.item(u"General"_s));
    QCOMPARE(panel.stack->currentWidget(), general);
}

void TstOptionsPanel::select_first_of_an_empty_panel_is_harmless()
{
    Panel panel;
    panel.dialog.select_first();
    QCOMPARE(panel.tree->currentItem(), nullptr);
    QCOMPARE(panel.stack->currentWidget(), panel.blank);
}

void TstOptionsPanel::refresh_settings_emits()
{
    Panel panel;
    const QSignalSpy refreshed(&panel.dialog, &OptionsPanel::refreshSettings);
    panel.dialog.refresh_settings();
    QCOMPARE(refreshed.size(), 1);
}

void TstOptionsPanel::save_emits_then_closes()
{
    Panel panel;
    panel.dialog.show();
    QStringList order;
    connect(&panel.dialog, &OptionsPanel::saveSettings, &panel.dialog,
            [&] { order << (panel.dialog.isVisible() ? u"saved while open"_s : u"saved when closed"_s); });
    panel.save->click();
    QCOMPARE(order, QStringList{u"saved while open"_s});
    QVERIFY(panel.dialog.isHidden());
}

void TstOptionsPanel::close_saves_nothing()
{
    Panel panel;
    panel.dialog.show();
    const QSignalSpy saved(&panel.dialog, &OptionsPanel::saveSettings);
    panel.close->click();
    QVERIFY(panel.dialog.isHidden());
    QCOMPARE(saved.size(), 0);
}

void TstOptionsPanel::show_panel_refreshes_then_opens_modally()
{
    Panel panel;
    auto* page = new QWidget;
    panel.dialog.add_panel(u"a"_s, page);
    QStringList order;
    connect(&panel.dialog, &OptionsPanel::refreshSettings, &panel.dialog,
            [&] { order << (panel.dialog.isVisible() ? u"refreshed when open"_s : u"refreshed before"_s); });
    meet_open_dialog(panel.dialog, [&] {
        order << (panel.dialog.isModal() ? u"modal"_s : u"not modal"_s);
        order << (panel.stack->currentWidget() == page ? u"page"_s : u"another page"_s);
    });
    panel.dialog.show_panel(u"a"_s);
    QCOMPARE(order, (QStringList{u"refreshed before"_s, u"modal"_s, u"page"_s}));
    QVERIFY(panel.dialog.isHidden());
}

void TstOptionsPanel::show_panel_of_an_open_dialog_only_selects()
{
    Panel panel;
    auto* page = new QWidget;
    panel.dialog.add_panel(u"a"_s, page);
    panel.dialog.show();
    const QSignalSpy refreshed(&panel.dialog, &OptionsPanel::refreshSettings);
    // Would wait for the dialog to close if it opened it once more.
    panel.dialog.show_panel(u"a"_s);
    QCOMPARE(panel.stack->currentWidget(), page);
    QCOMPARE(refreshed.size(), 0);
    QVERIFY(!panel.dialog.isModal());
}

void TstOptionsPanel::show_panel_of_an_unknown_path_opens_as_it_was()
{
    Panel panel;
    auto* page = new QWidget;
    panel.dialog.add_panel(u"a"_s, page);
    QCOMPARE(panel.shown_at(u"a"_s), page);
    const QSignalSpy refreshed(&panel.dialog, &OptionsPanel::refreshSettings);
    QWidget* shown = nullptr;
    meet_open_dialog(panel.dialog, [&] { shown = panel.stack->currentWidget(); });
    panel.dialog.show_panel(u"unknown"_s);
    QCOMPARE(shown, page);
    QCOMPARE(refreshed.size(), 1);
}

void TstOptionsPanel::shortcuts_work()
{
    Panel panel;
    QVERIFY(show_active(&panel.dialog));
    const QSignalSpy saved(&panel.dialog, &OptionsPanel::saveSettings);
    QTest::keyClick(&panel.dialog, Qt::Key_S, Qt::AltModifier);
    // A button clicked by its shortcut stays down for a moment.
    QTRY_VERIFY(panel.dialog.isHidden());
    QCOMPARE(saved.size(), 1);
    QVERIFY(show_active(&panel.dialog));
    QTest::keyClick(&panel.dialog, Qt::Key_C, Qt::AltModifier);
    QTRY_VERIFY(panel.dialog.isHidden());
    QCOMPARE(saved.size(), 1);
}

void TstOptionsPanel::panel_dies_with_a_page_selected()
{
    auto panel = std::make_unique<Panel>();
    const QPointer<QWidget> page(new QWidget);
    panel->dialog.add_panel(u"G/a"_s, page);
    QCOMPARE(panel->shown_at(u"a"_s), page);
    panel.reset();
    // It was a child of the panel by then.
    QVERIFY(!page);
}

void TstOptionsPanel::no_entry_is_current_when_the_shown_page_was_removed()
{
    for (const bool first : {true, false}) {
        Panel panel;
        auto* a = new QWidget;
        auto* b = new QWidget;
        panel.dialog.add_panel(u"a"_s, a);
        panel.dialog.add_panel(u"b"_s, b);
        panel.dialog.add_panel(u"c"_s, new QWidget);
        QCOMPARE(panel.shown_at(u"a"_s), a);
        panel.dialog.remove_panel(u"a"_s);
        QCOMPARE(panel.tree->currentItem(), nullptr);
        QCOMPARE(panel.tree->selectedItems(), QList<QTreeWidgetItem*>());
        // So that what stands there next can be chosen.
        if (first)
            panel.dialog.select_first();
        else
            panel.tree->setCurrentItem(panel.item(u"b"_s));
        QCOMPARE(panel.stack->currentWidget(), b);
    }
}

void TstOptionsPanel::hidden_page_may_act_data()
{
    QTest::addColumn<QString>("cause");
    QTest::addColumn<QString>("act");
    for (const char* cause : {"select", "remove", "remove group", "close"}) {
        for (const char* act : {"remove itself", "remove group", "remove next", "add", "select another"})
            QTest::addRow("%s, %s", cause, act) << QString::fromUtf8(cause) << QString::fromUtf8(act);
    }
}

void TstOptionsPanel::hidden_page_may_act()
{
    QFETCH(QString, cause);
    QFETCH(QString, act);

    /** Acts when it is hidden, once. */
    class Page : public QWidget
    {
    public:
        std::function<void()> act;

    protected:
        void hideEvent(QHideEvent*) override
        {
            if (act)
                std::exchange(act, nullptr)();
        }
    };

    auto panel = std::make_unique<Panel>();
    const QPointer<Page> page(new Page);
    const QPointer<QWidget> next(new QWidget);
    panel->dialog.add_panel(u"G/a"_s, page);
    panel->dialog.add_panel(u"G/b"_s, next);
    auto* const h = new QWidget;
    panel->dialog.add_panel(u"H"_s, h);
    panel->dialog.show();
    QCOMPARE(panel->shown_at(u"a"_s), page);
    QVERIFY(page->isVisible());
    bool acted = false;
    page->act = [&] {
        acted = true;
        if (act == u"remove itself"_s)
            panel->dialog.remove_panel(u"G/a"_s);
        else if (act == u"remove group"_s)
            panel->dialog.remove_panel(u"G"_s);
        else if (act == u"remove next"_s)
            panel->dialog.remove_panel(u"G/b"_s);
        else if (act == u"add"_s)
            panel->dialog.add_panel(u"A/new"_s, new QWidget);
        else if (act == u"select another"_s)
            panel->tree->setCurrentItem(panel->item(u"H"_s));
    };
    if (cause == u"select"_s)
        panel->tree->setCurrentItem(panel->item(u"b"_s));
    else if (cause == u"remove"_s)
        panel->dialog.remove_panel(u"G/a"_s);
    else if (cause == u"remove group"_s)
        panel->dialog.remove_panel(u"G"_s);
    else
        panel->dialog.close();
    QVERIFY(acted);
    // What is shown belongs to what is selected.
    const QTreeWidgetItem* const current = panel->tree->currentItem();
    const QWidget* const shown = panel->stack->currentWidget();
    if (!current || current->childCount() > 0)
        QCOMPARE(shown, panel->blank);
    else if (current == panel->item(u"b"_s))
        QCOMPARE(shown, next);
    else if (current == panel->item(u"H"_s))
        QCOMPARE(shown, h);
    if (cause == u"select"_s && act == u"remove itself"_s)
        QCOMPARE(current, panel->item(u"b"_s));
    if (cause == u"select"_s && act == u"select another"_s)
        QCOMPARE(current, panel->item(u"H"_s));
    panel->dialog.close();
    panel.reset();
    // One that was removed is nobody's but ours.
    delete page;
    delete next;
}

void TstOptionsPanel::dying_pages_may_take_pages_out()
{
    class Page : public QWidget
    {
    public:
        explicit Page(OptionsPanel& panel) : mPanel(panel) {}
        ~Page() override
        {
            mPanel.remove_panel(u"a"_s);
            mPanel.remove_panel(u"c"_s);
            mPanel.select_first();
        }

    private:
        OptionsPanel& mPanel;
    };
    auto panel = std::make_unique<Panel>();
    const QPointer<QWidget> removed(new QWidget);
    panel->dialog.add_panel(u"a"_s, new Page(panel->dialog));
    panel->dialog.add_panel(u"b"_s, new Page(panel->dialog));
    panel->dialog.add_panel(u"c"_s, removed);
    panel->dialog.show();
    QVERIFY(panel->shown_at(u"a"_s) != panel->blank);
    panel.reset();
    // The first one that died has taken it out.
    QVERIFY(!removed || !removed->parent());
    delete removed;
}

void TstOptionsPanel::receiver_of_save_may_delete_the_panel()
{
    auto panel = std::make_unique<Panel>();
    panel->dialog.show();
    connect(&panel->dialog, &OptionsPanel::saveSettings, this, [&] { panel.reset(); });
    QMetaObject::invokeMethod(&panel->dialog, "saveClicked");
    QVERIFY(!panel);
}

void TstOptionsPanel::receiver_of_refresh_may_act_data()
{
    QTest::addColumn<QString>("act");
    QTest::newRow("delete panel") << u"delete"_s;
    QTest::newRow("show a page") << u"page"_s;
    QTest::newRow("show the dialog") << u"show"_s;
}

void TstOptionsPanel::receiver_of_refresh_may_act()
{
    QFETCH(QString, act);
    auto panel = std::make_unique<Panel>();
    auto* page = new QWidget;
    panel->dialog.add_panel(u"a"_s, new QWidget);
    panel->dialog.add_panel(u"b"_s, page);
    int refreshed = 0;
    connect(&panel->dialog, &OptionsPanel::refreshSettings, this, [&] {
        ++refreshed;
        if (act == u"delete"_s)
            panel.reset();
        else if (act == u"page"_s)
            panel->dialog.show_panel(u"b"_s);
        else
            panel->dialog.show();
    });
    bool opened = false;
    if (act == u"page"_s)
        meet_open_dialog(panel->dialog, [&] { opened = panel->stack->currentWidget() == page; });
    panel->dialog.show_panel(u"a"_s);
    QCOMPARE(refreshed, 1);
    QCOMPARE(opened, act == u"page"_s);
    if (panel)
        panel->dialog.close();
}

void TstOptionsPanel::dialog_that_is_open_is_not_opened_twice()
{
    Panel panel;
    int result = -1;
    meet_open_dialog(panel.dialog, [&] { result = panel.dialog.exec(); });
    panel.dialog.exec();
    QCOMPARE(result, int(QDialog::Rejected));
    QVERIFY(panel.dialog.isHidden());
}

void TstOptionsPanel::dialog_may_be_closed_and_opened_again_from_inside()
{
    Panel panel;
    auto* page = new QWidget;
    panel.dialog.add_panel(u"a"_s, page);
    QStringList met;
    QTimer::singleShot(0, &panel.dialog, [&] {
        met << u"first"_s;
        panel.dialog.close();
        meet_open_dialog(panel.dialog, [&] {
            met << (panel.stack->currentWidget() == page ? u"page"_s : u"another"_s);
            met << (panel.dialog.isModal() ? u"modal"_s : u"not modal"_s);
        });
        panel.dialog.show_panel(u"a"_s);
    });
    panel.dialog.exec();
    QCOMPARE(met, (QStringList{u"first"_s, u"page"_s, u"modal"_s}));
    QVERIFY(panel.dialog.isHidden());
}

OSTREL_TEST(TstOptionsPanel)
#include "tst_optionspanel.moc"
