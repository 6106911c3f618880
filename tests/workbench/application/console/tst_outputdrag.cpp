// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/CommandWidget.h"
#include "support/TestCase.h"
#include "support/drops.h"
#include "support/windows.h"
#include "workbench/application/console/OutputDrag.h"

#include <QHBoxLayout>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

/** Drags that begin on a console page; they need a real window system. */
class TstOutputDrag : public TestCase
{
    Q_OBJECT

private slots:
    void text_is_dragged_to_another_window_data();
    void text_is_dragged_to_another_window();
    void output_is_dragged_into_the_command();
    void press_beside_the_selection_selects_anew();

private:
    static QPoint middle_of(CommandWidget* page, int position)
    {
        QTextCursor cursor(page->document());
        cursor.setPosition(position);
        return page->cursorRect(cursor).center();
    }
    static void select(CommandWidget* page, int anchor, int position)
    {
        QTextCursor cursor(page->document());
        cursor.setPosition(anchor);
        cursor.setPosition(position, QTextCursor::KeepAnchor);
        page->setTextCursor(cursor);
    }
};

void TstOutputDrag::text_is_dragged_to_another_window_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QString>("arrived");
    QTest::addColumn<Qt::KeyboardModifiers>("keys");
    const Qt::KeyboardModifiers none;
    const auto all = u"first\nsecond\n$ command"_s;
    QTest::newRow("output is copied") << 0 << 5 << all << u"first"_s << none;
    QTest::newRow("output is copied with Ctrl")
        << 0 << 5 << all << u"first"_s << Qt::KeyboardModifiers(Qt::ControlModifier);
    QTest::newRow("output is copied with Alt")
        << 0 << 5 << all << u"first"_s << Qt::KeyboardModifiers(Qt::AltModifier);
    QTest::newRow("lines of output are copied") << 2 << 9 << all << u"rst\nsec"_s << none;
    QTest::newRow("output and command are copied") << 6 << 18 << all << u"second\n$ com"_s << none;
    QTest::newRow("the prompt is copied") << 13 << 15 << all << u"$ "_s << none;
    QTest::newRow("a part of the command moves")
        << 15 << 18 << u"first\nsecond\n$ mand"_s << u"com"_s << none;
}

void TstOutputDrag::text_is_dragged_to_another_window()
{
    QFETCH(const int, from);
    QFETCH(const int, to);
    QFETCH(const QString, left);
    QFETCH(const QString, arrived);
    QFETCH(const Qt::KeyboardModifiers, keys);
    QWidget window;
    auto* layout = new QHBoxLayout(&window);
    auto* page = new CommandWidget;
    auto* other = new QPlainTextEdit;
    layout->addWidget(page);
    layout->addWidget(other);
    const OutputDrag drag(page);
    page->printOutput(u"first\nsecond\n"_s);
    page->printPrompt();
    page->setCurrentCommand(u"command"_s);
    select(page, from, to);
    QVERIFY(show_active(&window));
    const QPoint target = other->viewport()->mapTo(&window, QPoint(20, 20));
    QVERIFY(drag_by_mouse(page->viewport(), middle_of(page, from + 1),
                          page->viewport()->mapFrom(&window, target), keys));
    QCOMPARE(other->toPlainText(), arrived);
    QCOMPARE(page->toPlainText(), left);
    // The mouse does as ever afterwards.
    QTest::mouseClick(page->viewport(), Qt::LeftButton, Qt::NoModifier, middle_of(page, 3));
    QCOMPARE(page->textCursor().position(), 3);
    QVERIFY(!page->textCursor().hasSelection());
}

void TstOutputDrag::output_is_dragged_into_the_command()
{
    CommandWidget page;
    const OutputDrag drag(&page);
    page.printOutput(u"output\n"_s);
    page.printPrompt();
    select(&page, 0, 6);
    QVERIFY(show_active(&page));
    QVERIFY(drag_by_mouse(page.viewport(), middle_of(&page, 3), middle_of(&page, 9)));
    QCOMPARE(page.toPlainText(), u"output\n$ output"_s);
}

void TstOutputDrag::press_beside_the_selection_selects_anew()
{
    CommandWidget page;
    const OutputDrag drag(&page);
    page.printOutput(u"first\nsecond\n"_s);
    select(&page, 0, 3);
    QVERIFY(show_active(&page));
    QVERIFY(!drag_by_mouse(page.viewport(), middle_of(&page, 7), middle_of(&page, 11)));
    QTest::mousePress(page.viewport(), Qt::LeftButton, Qt::NoModifier, middle_of(&page, 7));
    QTest::mouseMove(page.viewport(), middle_of(&page, 11));
    QTest::mouseRelease(page.viewport(), Qt::LeftButton, Qt::NoModifier, middle_of(&page, 11));
    QCOMPARE(page.textCursor().selectedText(), u"econ"_s);
}

OSTREL_TEST(TstOutputDrag)
#include "tst_outputdrag.moc"
