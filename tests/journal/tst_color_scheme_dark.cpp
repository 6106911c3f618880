// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/JournalDocument.h"
#include "journal/JournalEditor.h"
#include "journal/color_scheme.h"
#include "support/TestCase.h"

#include <QTabWidget>
#include <QTest>

/** Runs with the settings of a dark desktop. */
class TstColorSchemeDark : public TestCase
{
    Q_OBJECT

private slots:
    void dark_desktop_is_noticed();
    void current_line_is_dark_gray();
};

void TstColorSchemeDark::dark_desktop_is_noticed()
{
    QVERIFY(is_dark_color_scheme());
}

void TstColorSchemeDark::current_line_is_dark_gray()
{
    JournalEditor editor;
    QTabWidget tabs;
    const auto* document = new JournalDocument(&editor, &tabs, "JournalDocument");
    QCOMPARE(document->extraSelections().size(), 1);
    QCOMPARE(document->extraSelections().first().format.background(), QBrush(QColor(75, 75, 75)));
}

OSTREL_TEST(TstColorSchemeDark)
#include "tst_color_scheme_dark.moc"
