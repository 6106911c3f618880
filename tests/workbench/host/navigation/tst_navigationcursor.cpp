// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/NavigationModel.h"
#include "support/TestCase.h"
#include "workbench/host/navigation/NavigationCursor.h"
#include "workbench/host/navigation/NavigationNode.h"
#include "workbench/host/navigation/navigation_helpers.h"

#include <QSignalSpy>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

/** The place in a model that changes under it. */
class TstNavigationCursor : public TestCase
{
    Q_OBJECT

private slots:
    void starts_at_the_root();
    void without_model_there_is_nothing();
    void goes_to_an_entry_and_back();
    void going_to_the_given_root_is_being_at_the_root();
    void entry_outside_the_given_root_is_ignored();
    void index_of_another_model_is_ignored();
    void root_of_another_model_stands_for_the_whole_model();
    void new_model_starts_at_its_root();
    void removed_entry_gives_way_to_the_one_above();
    void removal_higher_up_gives_way_to_the_one_above_it();
    void removal_of_the_top_goes_to_the_root();
    void removal_elsewhere_keeps_the_place();
    void rows_inserted_before_keep_the_place();
    void sorting_keeps_the_place();
    void reset_goes_to_the_root();
    void deleted_model_leaves_nothing();
    void removed_root_leaves_nothing();
    void entry_that_is_no_longer_shown_gives_way_and_comes_back();
    void group_without_shown_entries_is_not_shown();
    void entries_that_do_not_say_what_they_are_are_shown();
    void place_set_is_told_at_once();
    void changes_of_the_model_are_told_once();
    void old_model_is_no_longer_listened_to();

private:
    /** P > (G > (C, D), E), Q > F */
    static void fill(NavigationModel& model);
    static QString place(const NavigationCursor& cursor) { return cursor.current().data().toString(); }
    static QStringList titles(const QModelIndexList& entries);
};

void TstNavigationCursor::fill(NavigationModel& model)
{
    QStandardItem* page = add_page(model, u"P"_s);
    QStandardItem* group = add_group(page, u"G"_s);
    add_command(group, u"C"_s, u"c"_s);
    add_command(group, u"D"_s, u"d"_s);
    add_command(page, u"E"_s, u"e"_s);
    add_command(add_page(model, u"Q"_s), u"F"_s, u"f"_s);
}

QStringList TstNavigationCursor::titles(const QModelIndexList& entries)
{
    QStringList titles;
    for (const QModelIndex& entry : entries)
        titles << entry.data().toString();
    return titles;
}

void TstNavigationCursor::starts_at_the_root()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, {});
    QVERIFY(!cursor.current().isValid());
    QVERIFY(!cursor.root().isValid());
    QVERIFY(cursor.path().isEmpty());
    QCOMPARE(titles(cursor.entries({})), (QStringList{u"P"_s, u"Q"_s}));
}

void TstNavigationCursor::without_model_there_is_nothing()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.go_to(entry(model, u"C"_s));
    QVERIFY(!cursor.current().isValid());
    cursor.set_model(&model, entry(model, u"P"_s));
    cursor.set_model(nullptr, entry(model, u"P"_s));
    QVERIFY(!cursor.root().isValid());
    QVERIFY(cursor.entries({}).isEmpty());
}

void TstNavigationCursor::goes_to_an_entry_and_back()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, {});
    cursor.go_to(entry(model, u"D"_s));
    QCOMPARE(titles(cursor.path()), (QStringList{u"P"_s, u"G"_s, u"D"_s}));
    QCOMPARE(cursor.current(), entry(model, u"D"_s));
    cursor.go_to({});
    QVERIFY(!cursor.current().isValid());
}

void TstNavigationCursor::going_to_the_given_root_is_being_at_the_root()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, entry(model, u"P"_s));
    QCOMPARE(cursor.root(), entry(model, u"P"_s));
    cursor.go_to(entry(model, u"C"_s));
    QCOMPARE(titles(cursor.path()), (QStringList{u"G"_s, u"C"_s}));
    cursor.go_to(entry(model, u"P"_s));
    QVERIFY(!cursor.current().isValid());
}

void TstNavigationCursor::entry_outside_the_given_root_is_ignored()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, entry(model, u"G"_s));
    cursor.go_to(entry(model, u"C"_s));
    for (const QString& outside : {u"E"_s, u"P"_s, u"F"_s}) {
        cursor.go_to(entry(model, outside));
        QCOMPARE(place(cursor), u"C"_s);
    }
}

void TstNavigationCursor::index_of_another_model_is_ignored()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationModel other(nullptr);
    fill(other);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, {});
    cursor.go_to(entry(model, u"C"_s));
    cursor.go_to(entry(other, u"D"_s));
    QCOMPARE(place(cursor), u"C"_s);
}

void TstNavigationCursor::root_of_another_model_stands_for_the_whole_model()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationModel other(nullptr);
    fill(other);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, entry(other, u"G"_s));
    QVERIFY(!cursor.root().isValid());
    QCOMPARE(titles(cursor.entries({})), (QStringList{u"P"_s, u"Q"_s}));
}

void TstNavigationCursor::new_model_starts_at_its_root()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, {});
    cursor.go_to(entry(model, u"C"_s));
    cursor.set_model(&model, {});
    QVERIFY(!cursor.current().isValid());
}

void TstNavigationCursor::removed_entry_gives_way_to_the_one_above()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, {});
    cursor.go_to(entry(model, u"D"_s));
    model.removeRow(1, entry(model, u"G"_s));
    QCOMPARE(place(cursor), u"G"_s);
}

void TstNavigationCursor::removal_higher_up_gives_way_to_the_one_above_it()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, {});
    cursor.go_to(entry(model, u"D"_s));
    model.removeRow(0, entry(model, u"P"_s));
    QCOMPARE(place(cursor), u"P"_s);
}

void TstNavigationCursor::removal_of_the_top_goes_to_the_root()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, {});
    cursor.go_to(entry(model, u"D"_s));
    model.removeRow(0);
    QVERIFY(!cursor.current().isValid());
    QCOMPARE(titles(cursor.entries({})), QStringList{u"Q"_s});
}

void TstNavigationCursor::removal_elsewhere_keeps_the_place()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, {});
    cursor.go_to(entry(model, u"D"_s));
    model.removeRow(0, entry(model, u"G"_s));
    model.removeRow(1, entry(model, u"P"_s));
    model.removeRow(1);
    QCOMPARE(titles(cursor.path()), (QStringList{u"P"_s, u"G"_s, u"D"_s}));
}

void TstNavigationCursor::rows_inserted_before_keep_the_place()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, {});
    cursor.go_to(entry(model, u"C"_s));
    model.insertRow(0, new NavigationNode(NavigationKind::Page, u"N"_s));
    QCOMPARE(place(cursor), u"C"_s);
}

void TstNavigationCursor::sorting_keeps_the_place()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, {});
    cursor.go_to(entry(model, u"C"_s));
    model.sort(0, Qt::DescendingOrder);
    QCOMPARE(model.index(0, 0).data().toString(), u"Q"_s);
    QCOMPARE(place(cursor), u"C"_s);
}

void TstNavigationCursor::reset_goes_to_the_root()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, {});
    cursor.go_to(entry(model, u"C"_s));
    model.clear();
    QVERIFY(!cursor.current().isValid());
    fill(model);
    QVERIFY(!cursor.current().isValid());
    QCOMPARE(titles(cursor.entries({})), (QStringList{u"P"_s, u"Q"_s}));
}

void TstNavigationCursor::deleted_model_leaves_nothing()
{
    auto model = std::make_unique<NavigationModel>(nullptr);
    fill(*model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(model.get(), entry(*model, u"P"_s));
    cursor.go_to(entry(*model, u"C"_s));
    QSignalSpy changed(&cursor, &NavigationCursor::changed);
    model.reset();
    QVERIFY(!cursor.current().isValid());
    QVERIFY(!cursor.root().isValid());
    QVERIFY(cursor.entries({}).isEmpty());
    cursor.go_to({});
    QTRY_COMPARE(changed.size(), 1);
}

void TstNavigationCursor::removed_root_leaves_nothing()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, entry(model, u"G"_s));
    cursor.go_to(entry(model, u"C"_s));
    model.removeRow(0, entry(model, u"P"_s));
    QVERIFY(!cursor.current().isValid());
    QVERIFY(!cursor.root().isValid());
    QVERIFY(cursor.entries(cursor.root()).isEmpty());
    cursor.go_to(entry(model, u"E"_s));
    QVERIFY(!cursor.current().isValid());
}

void TstNavigationCursor::entry_that_is_no_longer_shown_gives_way_and_comes_back()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, {});
    cursor.go_to(entry(model, u"C"_s));
    QStandardItem* group = model.itemFromIndex(entry(model, u"G"_s));
    group->setEnabled(false);
    QCOMPARE(place(cursor), u"P"_s);
    QCOMPARE(titles(cursor.entries(cursor.current())), QStringList{u"E"_s});
    group->setEnabled(true);
    QCOMPARE(place(cursor), u"C"_s);
}

void TstNavigationCursor::group_without_shown_entries_is_not_shown()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, {});
    add_group(model.item(1), u"Empty"_s);
    QCOMPARE(titles(cursor.entries(entry(model, u"Q"_s))), QStringList{u"F"_s});
    model.itemFromIndex(entry(model, u"F"_s))->setEnabled(false);
    QCOMPARE(titles(cursor.entries({})), QStringList{u"P"_s});
}

void TstNavigationCursor::entries_that_do_not_say_what_they_are_are_shown()
{
    NavigationModel model(nullptr);
    auto* outer = new QStandardItem(u"outer"_s);
    outer->appendRow(new QStandardItem(u"inner"_s));
    model.appendRow(outer);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, {});
    QCOMPARE(titles(cursor.entries({})), QStringList{u"outer"_s});
    QCOMPARE(titles(cursor.entries(model.index(0, 0))), QStringList{u"inner"_s});
}

void TstNavigationCursor::place_set_is_told_at_once()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationCursor cursor(nullptr);
    QSignalSpy changed(&cursor, &NavigationCursor::changed);
    cursor.set_model(&model, {});
    QCOMPARE(changed.size(), 1);
    cursor.go_to(entry(model, u"C"_s));
    QCOMPARE(changed.size(), 2);
}

void TstNavigationCursor::changes_of_the_model_are_told_once()
{
    NavigationModel model(nullptr);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&model, {});
    QSignalSpy changed(&cursor, &NavigationCursor::changed);
    fill(model);
    model.sort(0, Qt::DescendingOrder);
    model.removeRow(0);
    QCOMPARE(changed.size(), 0);
    QTRY_COMPARE(changed.size(), 1);
    // A second timer would have fired by the next turn.
    QCoreApplication::processEvents();
    QCOMPARE(changed.size(), 1);
    // Each kind of change is enough.
    model.item(0)->setText(u"new"_s);
    QTRY_COMPARE(changed.size(), 2);
    model.sort(0);
    QTRY_COMPARE(changed.size(), 3);
    model.clear();
    QTRY_COMPARE(changed.size(), 4);
    add_page(model, u"P"_s);
    QTRY_COMPARE(changed.size(), 5);
    model.removeRow(0);
    QTRY_COMPARE(changed.size(), 6);
}

void TstNavigationCursor::old_model_is_no_longer_listened_to()
{
    NavigationModel model(nullptr);
    fill(model);
    NavigationModel other(nullptr);
    NavigationCursor cursor(nullptr);
    cursor.set_model(&other, {});
    cursor.set_model(&model, {});
    cursor.go_to(entry(model, u"P"_s));
    QSignalSpy changed(&cursor, &NavigationCursor::changed);
    add_page(other, u"N"_s);
    other.removeRow(0);
    QCoreApplication::processEvents();
    QCOMPARE(changed.size(), 0);
    QCOMPARE(place(cursor), u"P"_s);
}

OSTREL_TEST(TstNavigationCursor)

#include "tst_navigationcursor.moc"
