// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "frame/OstrelSplitter.h"
#include "support/TestCase.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TstOstrelSplitter : public TestCase
{
    Q_OBJECT

private slots:
    void name_becomes_object_name();
    void missing_name_counts_as_empty();
    void orientation_is_taken();
    void removed_widget_loses_its_parent();
    void widget_from_elsewhere_keeps_its_parent();
    void widget_deeper_inside_is_left_alone();
    void null_is_ignored();
};

void TstOstrelSplitter::name_becomes_object_name()
{
    QWidget parent;
    const OstrelSplitter plain(&parent, "plain");
    const OstrelSplitter oriented(Qt::Vertical, &parent, "caf\xc3\xa9");
    QCOMPARE(plain.objectName(), u"plain"_s);
    QCOMPARE(oriented.objectName(), u"caf\u00e9"_s);
    QCOMPARE(plain.parentWidget(), &parent);
    QCOMPARE(oriented.parentWidget(), &parent);
}

void TstOstrelSplitter::missing_name_counts_as_empty()
{
    const OstrelSplitter plain;
    const OstrelSplitter oriented(Qt::Vertical);
    const OstrelSplitter null(nullptr, nullptr);
    QCOMPARE(plain.objectName(), QString());
    QCOMPARE(oriented.objectName(), QString());
    QCOMPARE(null.objectName(), QString());
    QCOMPARE(plain.parentWidget(), nullptr);
    QCOMPARE(oriented.parentWidget(), nullptr);
}

void TstOstrelSplitter::orientation_is_taken()
{
    QCOMPARE(OstrelSplitter().orientation(), Qt::Horizontal);
    QCOMPARE(OstrelSplitter(Qt::Vertical).orientation(), Qt::Vertical);
    QCOMPARE(OstrelSplitter(Qt::Horizontal).orientation(), Qt::Horizontal);
}

void TstOstrelSplitter::removed_widget_loses_its_parent()
{
    OstrelSplitter splitter;
    auto* first = new QWidget;
    auto* second = new QWidget;
    splitter.addWidget(first);
    splitter.addWidget(second);
    splitter.removeWidget(first);
    const std::unique_ptr<QWidget> removed(first);
    QCOMPARE(first->parent(), nullptr);
    QCOMPARE(splitter.count(), 1);
    QCOMPARE(splitter.widget(0), second);
}

void TstOstrelSplitter::widget_from_elsewhere_keeps_its_parent()
{
    OstrelSplitter splitter;
    QWidget parent;
    QWidget other(&parent);
    splitter.removeWidget(&other);
    QCOMPARE(other.parentWidget(), &parent);
}

void TstOstrelSplitter::widget_deeper_inside_is_left_alone()
{
    OstrelSplitter splitter;
    auto* page = new QWidget;
    splitter.addWidget(page);
    auto* inside = new QWidget(page);
    splitter.removeWidget(inside);
    QCOMPARE(inside->parentWidget(), page);
    QCOMPARE(splitter.count(), 1);
}

void TstOstrelSplitter::null_is_ignored()
{
    OstrelSplitter splitter;
    splitter.addWidget(new QWidget);
    splitter.removeWidget(nullptr);
    QCOMPARE(splitter.count(), 1);
}

OSTREL_TEST(TstOstrelSplitter)

#include "tst_ostrelsplitter.moc"
