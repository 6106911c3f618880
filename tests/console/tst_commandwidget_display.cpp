// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "page.h"
#include "support/TestCase.h"
#include "support/drops.h"
#include "support/windows.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPointer>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;

/** What needs a real window system: drags that begin in the page, and the selection of X11. */
class TstCommandWidgetDisplay : public TestCase
{
    Q_OBJECT

private slots:
    void dragging_data();
    void dragging();
    void the_middle_button_pastes_in_the_command_data();
    void the_middle_button_pastes_in_the_command();
    void the_page_may_go_when_lines_come_by_the_middle_button();
    void the_page_may_go_when_output_is_dragged_to_it();
    void the_page_may_go_when_its_output_is_dragged_to_another();
};

void TstCommandWidgetDisplay::dragging_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("after");
    QTest::newRow("output into the command is copied")
        << u"^output|\n$ command"_s << 3 << 12 << u"output\n$ comoutput|mand"_s;
    QTest::newRow("output into the output is copied to the command's end")
        << u"^output|\nmore\n$ command"_s << 3 << 9 << u"output\nmore\n$ commandoutput|"_s;
    QTest::newRow("the prompt and a part of the command are copied")
        << u"out\n^$ com|mand"_s << 6 << 11 << u"out\n$ comma$ com|nd"_s;
    QTest::newRow("a part of the command moves in the command")
        << u"out\n$ ^one|two"_s << 7 << 12 << u"out\n$ twoone|"_s;
    QTest::newRow("a part of the command dropped on the output moves to the command's end")
        << u"out\n$ ^one|two"_s << 7 << 1 << u"out\n$ twoone|"_s;
}

void TstCommandWidgetDisplay::dragging()
{
    QFETCH(QString, before);
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, after);
    Page page;
    page.set_state(before);
    QVERIFY(show_active(&page));
    QVERIFY(drag_by_mouse(page.viewport(), page.middle_of(from), page.middle_of(to)));
    QCOMPARE(page.state(), after);
}

void TstCommandWidgetDisplay::the_middle_button_pastes_in_the_command_data()
{
    QTest::addColumn<int>("at");
    QTest::addColumn<QString>("after");
    QTest::newRow("clicked in the command: there") << 9 << u"output\n$ NEW|command"_s;
    QTest::newRow("clicked in the prompt: at the end") << 8 << u"output\n$ commandNEW|"_s;
    QTest::newRow("clicked in the output: at the end") << 2 << u"output\n$ commandNEW|"_s;
}

void TstCommandWidgetDisplay::the_middle_button_pastes_in_the_command()
{
    QFETCH(int, at);
    QFETCH(QString, after);
    QClipboard* clipboard = QGuiApplication::clipboard();
    QVERIFY(clipboard->supportsSelection());
    Page page;
    page.set_state(u"o^utput\n$ com|mand"_s);
    QVERIFY(show_active(&page));
    clipboard->setText(u"NEW"_s, QClipboard::Selection);
    // To the window: the page leaves the press itself to whoever wants it.
    QTest::mouseClick(page.windowHandle(), Qt::MiddleButton, Qt::NoModifier,
                      page.viewport()->mapTo(&page, page.middle_of(at)));
    QCOMPARE(page.state(), after);
    clipboard->clear(QClipboard::Selection);
}

void TstCommandWidgetDisplay::the_page_may_go_when_lines_come_by_the_middle_button()
{
    QClipboard* clipboard = QGuiApplication::clipboard();
    QVERIFY(clipboard->supportsSelection());
    QWidget window;
    const QPointer<Page> page = new Page;
    page->setParent(&window);
    page->set_state(u"$ "_s);
    QVERIFY(show_active(&window));
    clipboard->setText(u"one\ntwo"_s, QClipboard::Selection);
    QStringList entered;
    connect(page, &CommandWidget::commandsEntered, this, [&](const QList<QString>& lines) {
        entered = lines;
        delete page;
    });
    QTest::mouseClick(window.windowHandle(), Qt::MiddleButton, Qt::NoModifier,
                      page->viewport()->mapTo(&window, page->middle_of(2)));
    QVERIFY(!page);
    QCOMPARE(entered, QStringList({u"one"_s, u"two"_s}));
    clipboard->clear(QClipboard::Selection);
}

void TstCommandWidgetDisplay::the_page_may_go_when_output_is_dragged_to_it()
{
    QWidget window;
    const QPointer<Page> page = new Page;
    page->setParent(&window);
    page->set_state(u"^one\ntwo|\n$ "_s);
    QVERIFY(show_active(&window));
    QStringList entered;
    connect(page, &CommandWidget::commandsEntered, this, [&](const QList<QString>& lines) {
        entered = lines;
        delete page;
    });
    QVERIFY(drag_by_mouse(page->viewport(), page->middle_of(1), page->middle_of(10)));
    QVERIFY(!page);
    QCOMPARE(entered, QStringList({u"one"_s, u"two"_s}));
}

void TstCommandWidgetDisplay::the_page_may_go_when_its_output_is_dragged_to_another()
{
    QWidget window;
    auto* layout = new QHBoxLayout(&window);
    const QPointer<Page> from = new Page;
    auto* to = new Page;
    layout->addWidget(from);
    layout->addWidget(to);
    from->set_state(u"^one\ntwo|\n$ "_s);
    QVERIFY(show_active(&window));
    QStringList entered;
    connect(to, &CommandWidget::commandsEntered, this, [&](const QList<QString>& lines) {
        entered = lines;
        delete from;
    });
    const QPoint target = to->viewport()->mapTo(&window, QPoint(20, 20));
    QVERIFY(drag_by_mouse(from->viewport(), from->middle_of(1), from->viewport()->mapFrom(&window, target)));
    QVERIFY(!from);
    QCOMPARE(entered, QStringList({u"one"_s, u"two"_s}));
}

OSTREL_TEST(TstCommandWidgetDisplay)
#include "tst_commandwidget_display.moc"
