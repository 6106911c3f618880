// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "host/navigation/NavigationModel.h"
#include "host/navigation/NavigationResourcesDelay.h"
#include "support/TestCase.h"
#include "workbench/host/navigation/NavigationEntries.h"
#include "workbench/host/navigation/NavigationNode.h"
#include "workbench/host/navigation/navigation_helpers.h"

#include <QSignalSpy>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstNavigationResourcesDelay : public TestCase
{
    Q_OBJECT

private slots:
    void component_is_loaded_once_told();
    void component_names_are_compared_exactly();
    void empty_component_name_is_ignored();
    void model_is_null_at_first();
    void without_model_nothing_happens();
    void entry_follows_its_component_at_the_recheck();
    void entries_on_all_levels_are_rechecked();
    void plain_items_of_the_model_are_rechecked();
    void recheck_that_changes_nothing_is_silent();

protected:
    void tear_down() override { set_component_loaded(u"mesher"_s, false); }
};

void TstNavigationResourcesDelay::component_is_loaded_once_told()
{
    QVERIFY(!is_component_loaded(u"mesher"_s));
    set_component_loaded(u"mesher"_s, true);
    set_component_loaded(u"mesher"_s, true);
    QVERIFY(is_component_loaded(u"mesher"_s));
    set_component_loaded(u"mesher"_s, false);
    QVERIFY(!is_component_loaded(u"mesher"_s));
}

void TstNavigationResourcesDelay::component_names_are_compared_exactly()
{
    set_component_loaded(u"mesher"_s, true);
    QVERIFY(!is_component_loaded(u"Mesher"_s));
    QVERIFY(!is_component_loaded(u"mesher "_s));
}

void TstNavigationResourcesDelay::empty_component_name_is_ignored()
{
    set_component_loaded(QString(), true);
    QVERIFY(!is_component_loaded(QString()));
}

void TstNavigationResourcesDelay::model_is_null_at_first()
{
    QVERIFY(!NavigationResourcesDelay().model);
}

void TstNavigationResourcesDelay::without_model_nothing_happens()
{
    NavigationModel model(nullptr);
    QStandardItem* page = add_page(model, u"P"_s);
    page->setData(u"mesher"_s, NavigationRole::Component);
    NavigationResourcesDelay resources;
    resources.recheckResources();
    QVERIFY(page->isEnabled());
}

void TstNavigationResourcesDelay::entry_follows_its_component_at_the_recheck()
{
    NavigationModel model(nullptr);
    QStandardItem* page = add_page(model, u"P"_s);
    page->setData(u"mesher"_s, NavigationRole::Component);
    NavigationResourcesDelay resources;
    resources.model = &model;

    resources.recheckResources();
    QVERIFY(!page->isEnabled());
    set_component_loaded(u"mesher"_s, true);
    QVERIFY(!page->isEnabled());
    resources.recheckResources();
    QVERIFY(page->isEnabled());
    set_component_loaded(u"mesher"_s, false);
    resources.recheckResources();
    QVERIFY(!page->isEnabled());
}

void TstNavigationResourcesDelay::entries_on_all_levels_are_rechecked()
{
    NavigationModel model(nullptr);
    QStandardItem* page = add_page(model, u"P"_s);
    QStandardItem* group = add_group(page, u"G"_s);
    QStandardItem* command = add_command(group, u"C"_s, u"c"_s);
    QStandardItem* other = add_command(group, u"D"_s, u"d"_s);
    command->setData(u"mesher"_s, NavigationRole::Component);
    NavigationResourcesDelay resources;
    resources.model = &model;
    resources.recheckResources();
    QVERIFY(page->isEnabled() && group->isEnabled() && other->isEnabled());
    QVERIFY(!command->isEnabled());
}

void TstNavigationResourcesDelay::plain_items_of_the_model_are_rechecked()
{
    NavigationModel model(nullptr);
    auto* item = new QStandardItem(u"I"_s);
    item->setData(u"mesher"_s, NavigationRole::Component);
    model.appendRow(item);
    NavigationResourcesDelay resources;
    resources.model = &model;
    resources.recheckResources();
    QVERIFY(!item->isEnabled());
}

void TstNavigationResourcesDelay::recheck_that_changes_nothing_is_silent()
{
    NavigationModel model(nullptr);
    add_page(model, u"P"_s)->setData(u"mesher"_s, NavigationRole::Component);
    add_page(model, u"Q"_s);
    NavigationResourcesDelay resources;
    resources.model = &model;
    resources.recheckResources();
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    QVERIFY(changes.isValid());
    resources.recheckResources();
    QCOMPARE(changes.size(), 0);
    set_component_loaded(u"mesher"_s, true);
    resources.recheckResources();
    QCOMPARE(changes.size(), 1);
}

OSTREL_TEST(TstNavigationResourcesDelay)

#include "tst_navigationresourcesdelay.moc"
