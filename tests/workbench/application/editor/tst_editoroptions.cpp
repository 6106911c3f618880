// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/application/editor/editor_options.h"

#include <QCheckBox>
#include <QSettings>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

/** The page as the dialog has it when it opens. */
struct Page : OptionsPage
{
    explicit Page(const std::function<void()>& saved = [] {}) : OptionsPage(make_editor_options(saved))
    {
        refresh();
    }
    ~Page() { delete widget; }
    Q_DISABLE_COPY_MOVE(Page)
};

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
    QVERIFY(editor_colors());
    QVERIFY(editor_completes());
    const Page page;
    for (const QCheckBox* box : page.widget->findChildren<QCheckBox*>())
        QVERIFY(box->isChecked());
}

void TstEditorOptions::settings_that_make_no_sense_count_as_none()
{
    QSettings().setValue(u"/fennar/editor/colors"_s, QStringList({u"a"_s, u"b"_s}));
    QVERIFY(editor_colors());
}

void TstEditorOptions::page_loads_and_stores_the_settings()
{
    int saved = 0;
    const Page page([&saved] { ++saved; });
    page.widget->findChild<QCheckBox*>(u"cbColors"_s)->setChecked(false);
    QVERIFY(editor_colors());
    page.save();
    QCOMPARE(saved, 1);
    QVERIFY(!editor_colors());
    QVERIFY(editor_completes());
    const Page other;
    QVERIFY(!other.widget->findChild<QCheckBox*>(u"cbColors"_s)->isChecked());
    other.widget->findChild<QCheckBox*>(u"cbCompletes"_s)->setChecked(false);
    other.save();
    QVERIFY(!editor_completes());
}

OSTREL_TEST(TstEditorOptions)
#include "tst_editoroptions.moc"
