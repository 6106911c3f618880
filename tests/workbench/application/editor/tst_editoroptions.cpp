// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/application/editor/EditorOptions.h"

#include <QCheckBox>
#include <QSettings>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstEditorOptions : public TestCase
{
    Q_OBJECT

private slots:
    void all_is_on_at_first();
    void settings_that_make_no_sense_count_as_none();
    void page_loads_and_stores_the_settings();
};

void TstEditorOptions::all_is_on_at_first()
{
    QVERIFY(EditorOptions::colors());
    QVERIFY(EditorOptions::completes());
    EditorOptions page;
    page.refresh();
    for (const QCheckBox* box : page.findChildren<QCheckBox*>())
        QVERIFY(box->isChecked());
}

void TstEditorOptions::settings_that_make_no_sense_count_as_none()
{
    QSettings().setValue(u"/fennar/editor/colors"_s, QStringList({u"a"_s, u"b"_s}));
    QVERIFY(EditorOptions::colors());
}

void TstEditorOptions::page_loads_and_stores_the_settings()
{
    EditorOptions page;
    page.refresh();
    page.findChild<QCheckBox*>(u"cbColors"_s)->setChecked(false);
    QVERIFY(EditorOptions::colors());
    page.save();
    QVERIFY(!EditorOptions::colors());
    QVERIFY(EditorOptions::completes());
    EditorOptions other;
    other.refresh();
    QVERIFY(!other.findChild<QCheckBox*>(u"cbColors"_s)->isChecked());
    other.findChild<QCheckBox*>(u"cbCompletes"_s)->setChecked(false);
    other.save();
    QVERIFY(!EditorOptions::completes());
}

OSTREL_TEST(TstEditorOptions)
#include "tst_editoroptions.moc"
