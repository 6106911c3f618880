// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "options/LayoutOptionsModel.h"
#include "support/TestCase.h"

#include <QAction>
#include <QListView>
#include <QPointer>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

QStringList texts(const LayoutOptionsModel& model)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row)
        texts << model.data(model.index(row, 0)).toString();
    return texts;
}

} // namespace

class TstLayoutOptionsModel : public TestCase
{
    Q_OBJECT

private slots:
    void actions_are_sorted_with_capitals_first();
    void actions_replace_those_before_without_a_signal();
    void indexes_are_flat();
    void texts_are_shown();
    void boxes_show_whether_checked();
    void other_roles_show_nothing();
    void click_triggers_whatever_the_value();
    void other_edits_are_refused();
    void header_has_a_name();
    void flags_allow_checking();
    void index_of_another_model_is_foreign();
    void deleted_action_leaves_the_list();
    void views_are_told_of_a_deleted_action();
    void deleted_action_is_not_read_any_more();
    void other_actions_may_be_set_while_one_is_deleted_data();
    void other_actions_may_be_set_while_one_is_deleted();
    void other_action_may_be_deleted_while_one_is_deleted();
    void model_may_go_when_views_have_been_told();
    void null_is_passed_over();
};

void TstLayoutOptionsModel::actions_are_sorted_with_capitals_first()
{
    QAction beta(u"beta"_s), alpha(u"alpha"_s), zulu(u"Zulu"_s), mnemonic(u"&Command"_s);
    LayoutOptionsModel model;
    model.set_actions({&beta, &zulu, &alpha, &mnemonic});
    QCOMPARE(texts(model), (QStringList{u"&Command"_s, u"Zulu"_s, u"alpha"_s, u"beta"_s}));
}

void TstLayoutOptionsModel::actions_replace_those_before_without_a_signal()
{
    QAction a(u"a"_s), b(u"b"_s), c(u"c"_s);
    LayoutOptionsModel model;
    const QSignalSpy reset(&model, &QAbstractItemModel::modelReset);
    const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    const QSignalSpy inserted(&model, &QAbstractItemModel::rowsInserted);
    const QSignalSpy laid_out(&model, &QAbstractItemModel::layoutChanged);
    model.set_actions({&a, &b});
    model.set_actions({&c});
    QCOMPARE(texts(model), QStringList{u"c"_s});
    QCOMPARE(reset.size() + changed.size() + inserted.size() + laid_out.size(), 0);
    model.set_actions({});
    QCOMPARE(model.rowCount(), 0);
}

void TstLayoutOptionsModel::indexes_are_flat()
{
    QAction a(u"a"_s), b(u"b"_s);
    LayoutOptionsModel model;
    model.set_actions({&a, &b});
    const QModelIndex second = model.index(1, 0);
    QVERIFY(second.isValid());
    QCOMPARE(second.internalPointer(), nullptr);
    QVERIFY(!model.index(-1, 0).isValid());
    QVERIFY(!model.index(2, 0).isValid());
    QVERIFY(!model.index(0, 1).isValid());
    QVERIFY(!model.index(0, -1).isValid());
    QVERIFY(!model.index(0, 0, second).isValid());
    QVERIFY(!model.parent(second).isValid());
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.rowCount(second), 0);
    QCOMPARE(model.columnCount(), 1);
    QCOMPARE(model.columnCount(second), 1);
}

void TstLayoutOptionsModel::texts_are_shown()
{
    QAction a(u"&File Tools"_s);
    LayoutOptionsModel model;
    model.set_actions({&a});
    QCOMPARE(model.data(model.index(0, 0), Qt::DisplayRole), QVariant(u"&File Tools"_s));
    QCOMPARE(model.data(model.index(0, 0), Qt::EditRole), QVariant(u"&File Tools"_s));
    QCOMPARE(model.data(QModelIndex(), Qt::DisplayRole), QVariant());
}

void TstLayoutOptionsModel::boxes_show_whether_checked()
{
    QAction on(u"a"_s), off(u"b"_s);
    on.setCheckable(true);
    on.setChecked(true);
    off.setCheckable(true);
    LayoutOptionsModel model;
    model.set_actions({&on, &off});
    QCOMPARE(model.data(model.index(0, 0), Qt::CheckStateRole), QVariant(2));
    QCOMPARE(model.data(model.index(1, 0), Qt::CheckStateRole), QVariant(0));
    QCOMPARE(model.data(model.index(0, 0), Qt::CheckStateRole).typeId(), int(QMetaType::Int));
}

void TstLayoutOptionsModel::other_roles_show_nothing()
{
    QAction a(QIcon(), u"a"_s);
    a.setToolTip(u"tip"_s);
    LayoutOptionsModel model;
    model.set_actions({&a});
    for (const int role : {Qt::DecorationRole, Qt::ToolTipRole, Qt::UserRole})
        QCOMPARE(model.data(model.index(0, 0), role), QVariant());
}

void TstLayoutOptionsModel::click_triggers_whatever_the_value()
{
    QAction a(u"a"_s);
    a.setCheckable(true);
    const QSignalSpy triggered(&a, &QAction::triggered);
    LayoutOptionsModel model;
    model.set_actions({&a});
    QVERIFY(model.setData(model.index(0, 0), Qt::Unchecked, Qt::CheckStateRole));
    QVERIFY(a.isChecked());
    QVERIFY(model.setData(model.index(0, 0), QVariant(), Qt::CheckStateRole));
    QVERIFY(!a.isChecked());
    QCOMPARE(triggered.size(), 2);
}

void TstLayoutOptionsModel::other_edits_are_refused()
{
    QAction a(u"a"_s);
    a.setCheckable(true);
    LayoutOptionsModel model;
    model.set_actions({&a});
    QVERIFY(!model.setData(model.index(0, 0), u"b"_s, Qt::EditRole));
    QVERIFY(!model.setData(QModelIndex(), Qt::Checked, Qt::CheckStateRole));
    QVERIFY(!a.isChecked());
    QCOMPARE(a.text(), u"a"_s);
}

void TstLayoutOptionsModel::header_has_a_name()
{
    const LayoutOptionsModel model;
    QCOMPARE(model.headerData(0, Qt::Horizontal, Qt::DisplayRole), QVariant(u"Name"_s));
    QCOMPARE(model.headerData(0, Qt::Horizontal, Qt::EditRole), QVariant(u"Name"_s));
    QCOMPARE(model.headerData(0, Qt::Horizontal, Qt::ToolTipRole), QVariant());
    QCOMPARE(model.headerData(0, Qt::Vertical, Qt::DisplayRole), QVariant());
    QCOMPARE(model.headerData(1, Qt::Horizontal, Qt::DisplayRole), QVariant());
}

void TstLayoutOptionsModel::flags_allow_checking()
{
    QAction a(u"a"_s);
    LayoutOptionsModel model;
    model.set_actions({&a});
    QCOMPARE(model.flags(model.index(0, 0)).toInt(), 49);
    QCOMPARE(model.flags(QModelIndex()).toInt(), 33);
}

void TstLayoutOptionsModel::index_of_another_model_is_foreign()
{
    QAction a(u"a"_s);
    a.setCheckable(true);
    LayoutOptionsModel model;
    model.set_actions({&a});
    const QStandardItemModel other(1, 1);
    const QModelIndex foreign = other.index(0, 0);
    QVERIFY(foreign.isValid());
    QCOMPARE(model.data(foreign, Qt::DisplayRole), QVariant());
    QCOMPARE(model.flags(foreign).toInt(), 33);
    QVERIFY(!model.setData(foreign, Qt::Checked, Qt::CheckStateRole));
    QVERIFY(!a.isChecked());
}

void TstLayoutOptionsModel::deleted_action_leaves_the_list()
{
    auto doomed = std::make_unique<QAction>(u"a"_s);
    QAction kept(u"b"_s);
    LayoutOptionsModel model;
    model.set_actions({doomed.get(), &kept});
    const QModelIndex last = model.index(1, 0);
    doomed.reset();
    QCOMPARE(texts(model), QStringList{u"b"_s});
    QCOMPARE(model.data(last), QVariant());
    QVERIFY(!model.setData(last, Qt::Checked, Qt::CheckStateRole));
}

void TstLayoutOptionsModel::views_are_told_of_a_deleted_action()
{
    auto doomed = std::make_unique<QAction>(u"b"_s);
    QAction a(u"a"_s), c(u"c"_s);
    LayoutOptionsModel model;
    model.set_actions({&a, doomed.get(), &c});
    const QSignalSpy removed(&model, &QAbstractItemModel::rowsRemoved);
    QListView view;
    view.setModel(&model);
    view.setCurrentIndex(model.index(2, 0));
    doomed.reset();
    QCOMPARE(removed.size(), 1);
    QCOMPARE(removed.constFirst().mid(1), (QVariantList{1, 1}));
    QCOMPARE(view.currentIndex().data().toString(), u"c"_s);
}

void TstLayoutOptionsModel::deleted_action_is_not_read_any_more()
{
    auto doomed = std::make_unique<QAction>(u"a"_s);
    doomed->setCheckable(true);
    LayoutOptionsModel model;
    model.set_actions({doomed.get()});
    QVariantList seen;
    connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, this, [&] {
        seen << model.data(model.index(0, 0)) << model.data(model.index(0, 0), Qt::CheckStateRole)
             << model.setData(model.index(0, 0), true, Qt::CheckStateRole);
    });
    doomed.reset();
    QCOMPARE(seen, (QVariantList{QVariant(), QVariant(), false}));
}

void TstLayoutOptionsModel::other_actions_may_be_set_while_one_is_deleted_data()
{
    QTest::addColumn<bool>("before");
    QTest::newRow("before the row goes") << true;
    QTest::newRow("when the row has gone") << false;
}

void TstLayoutOptionsModel::other_actions_may_be_set_while_one_is_deleted()
{
    QFETCH(const bool, before);
    auto doomed = std::make_unique<QAction>(u"a"_s);
    QAction b(u"b"_s), c(u"c"_s);
    LayoutOptionsModel model;
    model.set_actions({doomed.get(), &b, &c});
    QListView view;
    view.setModel(&model);
    connect(&model, before ? &QAbstractItemModel::rowsAboutToBeRemoved : &QAbstractItemModel::rowsRemoved,
            this, [&] {
                model.set_actions({&b, &c});
            });
    doomed.reset();
    QCOMPARE(texts(model), (QStringList{u"b"_s, u"c"_s}));
}

void TstLayoutOptionsModel::other_action_may_be_deleted_while_one_is_deleted()
{
    auto first = std::make_unique<QAction>(u"a"_s);
    auto second = std::make_unique<QAction>(u"b"_s);
    QAction c(u"c"_s);
    LayoutOptionsModel model;
    model.set_actions({first.get(), second.get(), &c});
    connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, this, [&] { second.reset(); });
    first.reset();
    QCOMPARE(texts(model), QStringList{u"c"_s});
}

void TstLayoutOptionsModel::model_may_go_when_views_have_been_told()
{
    auto doomed = std::make_unique<QAction>(u"a"_s);
    auto* model = new LayoutOptionsModel;
    const QPointer<LayoutOptionsModel> alive = model;
    model->set_actions({doomed.get(), doomed.get()});
    connect(model, &QAbstractItemModel::rowsRemoved, this, [&] { delete alive; });
    doomed.reset();
    QVERIFY(!alive);
}

void TstLayoutOptionsModel::null_is_passed_over()
{
    QAction a(u"a"_s), b(u"b"_s);
    LayoutOptionsModel model;
    model.set_actions({nullptr, &b, nullptr, &a});
    QCOMPARE(texts(model), (QStringList{u"a"_s, u"b"_s}));
}

OSTREL_TEST(TstLayoutOptionsModel)
#include "tst_layoutoptionsmodel.moc"
