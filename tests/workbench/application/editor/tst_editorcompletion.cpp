// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/windows.h"
#include "workbench/application/editor/EditorCompletion.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextBlock>
#include <QToolTip>

#include <memory>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstEditorCompletion : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;
    void tear_down() override;

private slots:
    void only_candidate_goes_in_with_a_blank_behind_it();
    void common_part_goes_in_first_and_then_a_list_opens();
    void completion_is_one_step_of_undo();
    void list_gives_what_is_chosen_data();
    void list_gives_what_is_chosen();
    void typing_narrows_the_list();
    void list_closes_where_nothing_fits_any_longer();
    void escape_closes_the_list_alone();
    void where_nothing_fits_tab_indents_and_the_usage_is_shown();
    void tab_with_a_selection_or_modifiers_is_left_alone();
    void read_only_page_is_left_alone();
    void tab_indents_again_once_it_has_gone();

private:
    void key(int code, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::activePopupWidget() ? QApplication::activePopupWidget() : mPage.get(),
                        Qt::Key(code), modifiers);
    }
    void type(const QString& text)
    {
        for (const QChar c : text) {
            QWidget* const list = QApplication::activePopupWidget();
            QTest::keyClicks(list ? list : mPage.get(), c);
        }
    }
    QString text() const { return mPage->toPlainText(); }
    /** What is listed; nothing if there is no list. */
    static QStringList listed();

    std::unique_ptr<QPlainTextEdit> mPage;
    QString mHint;
};

void TstEditorCompletion::set_up()
{
    mHint.clear();
    mPage = std::make_unique<QPlainTextEdit>();
    new EditorCompletion(mPage.get(), [this](const QTextCursor& caret) {
        const QString line = caret.block().text().first(caret.positionInBlock());
        LineCompletion result{.start = line.lastIndexOf(u' ') + 1};
        for (const QString& word : {u"brick"_s, u"bring"_s, u"sphere"_s}) {
            if (!word.startsWith(line.sliced(result.start)))
                continue;
            result.candidates << LineCompletion::Candidate{word, word};
            if (result.candidates.size() == 1)
                result.common = word;
            while (!word.startsWith(result.common))
                result.common.chop(1);
        }
        result.followed = result.candidates.size() == 1;
        if (result.candidates.isEmpty())
            result.hint = mHint;
        return result;
    });
    QVERIFY(show_active(mPage.get()));
}

void TstEditorCompletion::tear_down()
{
    mPage.reset();
}

QStringList TstEditorCompletion::listed()
{
    const auto* const list = qobject_cast<QAbstractItemView*>(QApplication::activePopupWidget());
    QStringList names;
    for (int row = 0; list && row < list->model()->rowCount(); ++row)
        names << list->model()->index(row, 0).data().toString();
    return names;
}

void TstEditorCompletion::only_candidate_goes_in_with_a_blank_behind_it()
{
    type(u"a s"_s);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"a sphere "_s);
    QCOMPARE(listed(), QStringList());
}

void TstEditorCompletion::common_part_goes_in_first_and_then_a_list_opens()
{
    type(u"b"_s);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"bri"_s);
    QCOMPARE(listed(), QStringList());
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"bri"_s);
    QCOMPARE(listed(), QStringList({u"brick"_s, u"bring"_s}));
    key(Qt::Key_Escape);
}

void TstEditorCompletion::completion_is_one_step_of_undo()
{
    mPage->setPlainText(u"s"_s);
    mPage->moveCursor(QTextCursor::End);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"sphere "_s);
    mPage->undo();
    QCOMPARE(text(), u"s"_s);
}

void TstEditorCompletion::list_gives_what_is_chosen_data()
{
    QTest::addColumn<int>("down");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("chosen");
    QTest::newRow("first by return") << 0 << int(Qt::Key_Return) << u"brick"_s;
    QTest::newRow("second by return") << 1 << int(Qt::Key_Return) << u"bring"_s;
    QTest::newRow("second by tab") << 1 << int(Qt::Key_Tab) << u"bring"_s;
    QTest::newRow("by enter") << 1 << int(Qt::Key_Enter) << u"bring"_s;
}

void TstEditorCompletion::list_gives_what_is_chosen()
{
    QFETCH(const int, down);
    QFETCH(const int, code);
    QFETCH(const QString, chosen);
    type(u"x bri"_s);
    key(Qt::Key_Tab);
    QCOMPARE(listed().size(), 2);
    for (int i = 0; i < down; ++i)
        key(Qt::Key_Down);
    key(code);
    QCOMPARE(text(), u"x "_s + chosen);
    QCOMPARE(listed(), QStringList());
}

void TstEditorCompletion::typing_narrows_the_list()
{
    type(u"bri"_s);
    key(Qt::Key_Tab);
    type(u"n"_s);
    QCOMPARE(text(), u"brin"_s);
    QCOMPARE(listed(), QStringList(u"bring"_s));
    key(Qt::Key_Backspace);
    QCOMPARE(listed(), QStringList({u"brick"_s, u"bring"_s}));
    type(u"n"_s);
    key(Qt::Key_Return);
    QCOMPARE(text(), u"bring"_s);
}

void TstEditorCompletion::list_closes_where_nothing_fits_any_longer()
{
    type(u"bri"_s);
    key(Qt::Key_Tab);
    QCOMPARE(listed().size(), 2);
    type(u"x"_s);
    QCOMPARE(listed(), QStringList());
    QCOMPARE(text(), u"brix"_s);
    key(Qt::Key_Return);
    QCOMPARE(text(), u"brix\n"_s);
}

void TstEditorCompletion::escape_closes_the_list_alone()
{
    type(u"bri"_s);
    key(Qt::Key_Tab);
    QCOMPARE(listed().size(), 2);
    key(Qt::Key_Escape);
    QCOMPARE(listed(), QStringList());
    QCOMPARE(text(), u"bri"_s);
    QVERIFY(mPage->isVisible());
}

void TstEditorCompletion::where_nothing_fits_tab_indents_and_the_usage_is_shown()
{
    type(u"x"_s);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"x\t"_s);
    QVERIFY(!QToolTip::isVisible());
    mHint = u"Usage: x"_s;
    key(Qt::Key_Backspace);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"x\t"_s);
    QCOMPARE(QToolTip::text(), mHint);
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
}

void TstEditorCompletion::tab_with_a_selection_or_modifiers_is_left_alone()
{
    mPage->setPlainText(u"s"_s);
    mPage->selectAll();
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"\t"_s);
    mPage->setPlainText(u"s"_s);
    mPage->moveCursor(QTextCursor::End);
    key(Qt::Key_Tab, Qt::ShiftModifier);
    QVERIFY(!text().contains("sphere"_L1));
}

void TstEditorCompletion::read_only_page_is_left_alone()
{
    mPage->setPlainText(u"s"_s);
    mPage->moveCursor(QTextCursor::End);
    mPage->setReadOnly(true);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"s"_s);
}

void TstEditorCompletion::tab_indents_again_once_it_has_gone()
{
    delete mPage->findChild<EditorCompletion*>();
    type(u"s"_s);
    key(Qt::Key_Tab);
    QCOMPARE(text(), u"s\t"_s);
}

OSTREL_TEST(TstEditorCompletion)
#include "tst_editorcompletion.moc"
