// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/host/navigation/FlowLayout.h"

#include <QTest>
#include <QWidget>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

class Box : public QWidget
{
public:
    Box(QSize wanted, QWidget* parent) : QWidget(parent), mWanted(wanted) {}
    QSize sizeHint() const override { return mWanted; }

private:
    QSize mWanted;
};

} // namespace

class TstFlowLayout : public TestCase
{
    Q_OBJECT

private slots:
    void items_are_placed_data();
    void items_are_placed();
    void columns_show_all_where_there_is_room_data();
    void columns_show_all_where_there_is_room();
    void right_to_left_is_mirrored();
    void hidden_items_take_no_room();
    void order_can_be_set();
    void items_can_be_taken();
    void margins_are_kept_free();
};

void TstFlowLayout::items_are_placed_data()
{
    QTest::addColumn<FlowLayout::Arrangement>("arrangement");
    QTest::addColumn<int>("width");
    QTest::addColumn<QList<QRect>>("places");
    QTest::addColumn<int>("height");

    // Boxes of 50 x 20, 30 x 10 and 40 x 30; 2 pixels between them.
    using Places = QList<QRect>;
    QTest::newRow("flowing, all in one line")
        << FlowLayout::Arrangement::Flowing << 200 << Places{{0, 0, 50, 30}, {52, 0, 30, 30}, {84, 0, 40, 30}}
        << 30;
    QTest::newRow("flowing, just wide enough")
        << FlowLayout::Arrangement::Flowing << 124 << Places{{0, 0, 50, 30}, {52, 0, 30, 30}, {84, 0, 40, 30}}
        << 30;
    QTest::newRow("flowing, one pixel short")
        << FlowLayout::Arrangement::Flowing << 123 << Places{{0, 0, 50, 20}, {52, 0, 30, 20}, {0, 22, 40, 30}}
        << 52;
    QTest::newRow("flowing, items wider than the line are narrowed")
        << FlowLayout::Arrangement::Flowing << 35 << Places{{0, 0, 35, 20}, {0, 22, 30, 10}, {0, 34, 35, 30}}
        << 64;
    QTest::newRow("columns are as wide as the widest item")
        << FlowLayout::Arrangement::Columns << 154
        << Places{{0, 0, 50, 30}, {52, 0, 50, 30}, {104, 0, 50, 30}} << 30;
    QTest::newRow("columns, one pixel short")
        << FlowLayout::Arrangement::Columns << 153 << Places{{0, 0, 50, 20}, {52, 0, 50, 20}, {0, 22, 50, 30}}
        << 52;
    QTest::newRow("lines take the whole width")
        << FlowLayout::Arrangement::Lines << 200
        << Places{{0, 0, 200, 20}, {0, 22, 200, 10}, {0, 34, 200, 30}} << 64;
}

void TstFlowLayout::items_are_placed()
{
    QFETCH(const FlowLayout::Arrangement, arrangement);
    QFETCH(const int, width);
    QFETCH(const QList<QRect>, places);
    QFETCH(const int, height);
    QWidget parent;
    auto* layout = new FlowLayout(&parent);
    layout->set_arrangement(arrangement);
    QList<QRect> found;
    QList<Box*> boxes;
    for (const QSize size : {QSize(50, 20), QSize(30, 10), QSize(40, 30)}) {
        boxes << new Box(size, &parent);
        layout->addWidget(boxes.last());
        boxes.last()->show();
    }
    QCOMPARE(layout->heightForWidth(width), height);
    layout->setGeometry(QRect(0, 0, width, height));
    for (const Box* box : boxes)
        found << box->geometry();
    QCOMPARE(found, places);
}

void TstFlowLayout::columns_show_all_where_there_is_room_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("column");
    QTest::newRow("no room to spare") << 102 << 50;
    QTest::newRow("some room") << 142 << 70;
    QTest::newRow("one pixel left over") << 143 << 70;
    QTest::newRow("room for a third column, which comes first") << 154 << 50;
    QTest::newRow("room for all") << 400 << 80;
    QTest::newRow("one column") << 60 << 60;
    QTest::newRow("narrower than all like to be") << 40 << 40;
}

void TstFlowLayout::columns_show_all_where_there_is_room()
{
    QFETCH(const int, width);
    QWidget widget;
    auto* const layout = new FlowLayout(&widget);
    layout->set_arrangement(FlowLayout::Arrangement::Columns);
    layout->set_full_width([](const QWidget& box) { return box.sizeHint().width() + 30; });
    QList<Box*> boxes;
    for (const int liked : {50, 30, 40, 50}) {
        boxes << new Box({liked, 20}, &widget);
        layout->addWidget(boxes.last());
    }
    layout->setGeometry({0, 0, width, 200});
    for (const Box* box : std::as_const(boxes))
        QTEST(box->width(), "column");
}

void TstFlowLayout::right_to_left_is_mirrored()
{
    QWidget parent;
    parent.setLayoutDirection(Qt::RightToLeft);
    auto* layout = new FlowLayout(&parent);
    auto* first = new Box({50, 20}, &parent);
    auto* second = new Box({30, 20}, &parent);
    layout->addWidget(first);
    layout->addWidget(second);
    layout->setGeometry(QRect(0, 0, 100, 20));
    QCOMPARE(first->geometry(), QRect(50, 0, 50, 20));
    QCOMPARE(second->geometry(), QRect(18, 0, 30, 20));
}

void TstFlowLayout::hidden_items_take_no_room()
{
    QWidget parent;
    auto* layout = new FlowLayout(&parent);
    auto* first = new Box({50, 20}, &parent);
    auto* second = new Box({30, 20}, &parent);
    layout->addWidget(first);
    layout->addWidget(second);
    first->hide();
    layout->setGeometry(QRect(0, 0, 100, 20));
    QCOMPARE(second->geometry(), QRect(0, 0, 30, 20));
    second->hide();
    QCOMPARE(layout->heightForWidth(100), 0);
}

void TstFlowLayout::order_can_be_set()
{
    QWidget parent;
    auto* layout = new FlowLayout(&parent);
    QWidgetList boxes;
    for (int box = 0; box < 3; ++box) {
        boxes << new Box({10, 10}, &parent);
        layout->addWidget(boxes.last());
    }
    layout->set_order({boxes[2], boxes[0], boxes[1]});
    QCOMPARE(layout->itemAt(0)->widget(), boxes[2]);
    QCOMPARE(layout->itemAt(1)->widget(), boxes[0]);
    QCOMPARE(layout->itemAt(2)->widget(), boxes[1]);
}

void TstFlowLayout::items_can_be_taken()
{
    QWidget parent;
    auto* layout = new FlowLayout(&parent);
    auto* first = new Box({10, 10}, &parent);
    auto* second = new Box({10, 10}, &parent);
    layout->addWidget(first);
    layout->addWidget(second);
    QVERIFY(!layout->takeAt(-1));
    QVERIFY(!layout->takeAt(2));
    QVERIFY(!layout->itemAt(2));
    const std::unique_ptr<QLayoutItem> taken(layout->takeAt(0));
    QCOMPARE(taken->widget(), first);
    QCOMPARE(layout->count(), 1);
    QCOMPARE(layout->itemAt(0)->widget(), second);
}

void TstFlowLayout::margins_are_kept_free()
{
    QWidget parent;
    auto* layout = new FlowLayout(&parent);
    layout->setContentsMargins(3, 4, 5, 6);
    auto* box = new Box({50, 20}, &parent);
    layout->addWidget(box);
    QCOMPARE(layout->heightForWidth(58), 30);
    layout->setGeometry(QRect(0, 0, 40, 30));
    QCOMPARE(box->geometry(), QRect(3, 4, 32, 20));
}

OSTREL_TEST(TstFlowLayout)

#include "tst_flowlayout.moc"
