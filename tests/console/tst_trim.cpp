// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "console/trim.h"
#include "page.h"
#include "support/TestCase.h"
#include "support/random_seed.h"
#include "support/windows.h"

#include <QAbstractTextDocumentLayout>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/**
 * The page's output rules done with nothing but the document's own operations: all of the text is inserted,
 * and the document drops what is too much.
 */
class PlainPage : public QPlainTextEdit
{
public:
    void print_output(const QString& output)
    {
        QTextCursor cursor(document()->lastBlock());
        QString text = output;
        if (mLineOpen && document()->blockCount() > 1) {
            cursor.setPosition(cursor.position() - 1);
            if (text.endsWith("\r\n"_L1))
                text.chop(2);
            else if (text.endsWith(u'\n'))
                text.chop(1);
        } else if (!text.endsWith(u'\n')) {
            text.append(u'\n');
        }
        mLineOpen = !output.endsWith(u'\n');
        cursor.insertText(text);
        verticalScrollBar()->setValue(verticalScrollBar()->maximum());
    }

private:
    bool mLineOpen = false;
};

QStringList blocks(const QPlainTextEdit& edit)
{
    QStringList texts;
    for (QTextBlock block = edit.document()->firstBlock(); block.isValid(); block = block.next())
        texts << block.text();
    return texts;
}

/**
 * Counts the lines of all blocks.
 *
 * A block counts as one line, whatever it holds, until it is laid out, and only what comes near the viewport
 * is. Which blocks have been depends on how the text came in, and with it the range of the scroll bar.
 */
void lay_out_all(const QPlainTextEdit& edit)
{
    for (QTextBlock block = edit.document()->firstBlock(); block.isValid(); block = block.next())
        edit.document()->documentLayout()->blockBoundingRect(block);
}

QString random_text(QRandomGenerator& random)
{
    static const QStringList pieces = {u"\n"_s, u"\n"_s,     u"\n"_s, u"\r\n"_s,   u"\r"_s,   u"a"_s,
                                       u"bc"_s, u"\u2028"_s, u"d"_s,  u"\u2029"_s, u"\n\n"_s, u"\uFDD0"_s};
    QString text;
    for (int count = random.bounded(14); count > 0; --count)
        text += pieces[random.bounded(pieces.size())];
    return text;
}

} // namespace

class TstTrim : public TestCase
{
    Q_OBJECT

private slots:
    void what_is_dropped_at_once_data();
    void what_is_dropped_at_once();
    void a_page_is_as_if_all_had_been_inserted_data();
    void a_page_is_as_if_all_had_been_inserted();
    void a_flood_leaves_the_last_lines();
};

void TstTrim::what_is_dropped_at_once_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("limit");
    QTest::addColumn<QString>("kept");
    QTest::newRow("no limit") << u"a\nb\nc\n"_s << 0 << u"a\nb\nc\n"_s;
    QTest::newRow("a negative limit is none") << u"a\nb\nc\n"_s << -1 << u"a\nb\nc\n"_s;
    QTest::newRow("one block: only what follows the last line end") << u"a\nb\n"_s << 1 << u""_s;
    QTest::newRow("one block, text behind the last line end") << u"a\nb"_s << 1 << u"b"_s;
    QTest::newRow("two blocks") << u"a\nb\nc\n"_s << 2 << u"c\n"_s;
    QTest::newRow("just too many") << u"a\nb\nc\n"_s << 3 << u"b\nc\n"_s;
    QTest::newRow("all fit") << u"a\nb\nc\n"_s << 4 << u"a\nb\nc\n"_s;
    QTest::newRow("fewer than fit") << u"a\n"_s << 1000 << u"a\n"_s;
    QTest::newRow("nothing") << QString() << 1 << QString();
    QTest::newRow("no line end") << u"abc"_s << 1 << u"abc"_s;
    QTest::newRow("empty lines") << u"\n\n\n\n"_s << 2 << u"\n"_s;
    QTest::newRow("a line end at the front") << u"\na\nb"_s << 2 << u"a\nb"_s;
    QTest::newRow("carriage returns belong to their line feeds") << u"a\r\nb\r\nc\r\n"_s << 2 << u"c\r\n"_s;
    QTest::newRow("other line ends are left to the document") << u"a\rb\u2029c\nd\n"_s << 2 << u"d\n"_s;
    QTest::newRow("only other line ends") << u"a\rb\rc\u2029d"_s << 2 << u"a\rb\rc\u2029d"_s;
}

void TstTrim::what_is_dropped_at_once()
{
    QFETCH(QString, text);
    QFETCH(int, limit);
    QFETCH(QString, kept);
    QCOMPARE(text.sliced(dropped_at_once(text, limit)), kept);
}

void TstTrim::a_page_is_as_if_all_had_been_inserted_data()
{
    QTest::addColumn<int>("limit");
    for (const int limit : {0, 1, 2, 3, 5, 9})
        QTest::addRow("limit %d", limit) << limit;
}

void TstTrim::a_page_is_as_if_all_had_been_inserted()
{
    QFETCH(int, limit);
    QRandomGenerator random(random_seed());

    for (int run = 0; run < 60; ++run) {
        Page page;
        PlainPage plain;
        const std::array<QPlainTextEdit*, 2> both = {&page, &plain};
        // Same size and look, so that the scroll bars can be compared.
        for (QPlainTextEdit* edit : both) {
            edit->setFont(QFont(u"monospace"_s));
            edit->setWordWrapMode(QTextOption::NoWrap);
            edit->resize(200, 60);
            edit->document()->setMaximumBlockCount(limit);
            edit->document()->setUndoRedoEnabled(false);
        }
        QTextCursor other(page.document());
        QTextCursor plainOther(plain.document());
        QStringList history;
        for (int step = 0; step < 12; ++step) {
            const int size = page.document()->characterCount();
            QCOMPARE(plain.document()->characterCount(), size);
            // A caret with or without a selection anywhere, and a cursor of somebody else's.
            const int anchor = random.bounded(size);
            const int caret = random.bounded(2) ? anchor : random.bounded(size);
            const int place = random.bounded(size);
            for (QPlainTextEdit* edit : both) {
                QTextCursor cursor = edit->textCursor();
                cursor.setPosition(anchor);
                cursor.setPosition(caret, QTextCursor::KeepAnchor);
                edit->setTextCursor(cursor);
            }
            other.setPosition(place);
            plainOther.setPosition(place);

            const QString text = random_text(random);
            history << text;
            const auto told = [&](const QString& what) {
                return QString(what + u" after "_s +
                               QStringList(history)
                                   .replaceInStrings(u"\n"_s, u"\\n"_s)
                                   .replaceInStrings(u"\r"_s, u"\\r"_s)
                                   .join(u", "_s));
            };
            page.printOutput(text);
            plain.print_output(text);
            QVERIFY2(blocks(page) == blocks(plain), qPrintable(told(u"text"_s)));
            QVERIFY2(page.textCursor().position() == plain.textCursor().position(),
                     qPrintable(told(u"caret"_s)));
            QVERIFY2(page.textCursor().anchor() == plain.textCursor().anchor(),
                     qPrintable(told(u"anchor"_s)));
            QVERIFY2(other.position() == plainOther.position(), qPrintable(told(u"another cursor"_s)));
            for (QPlainTextEdit* edit : both) {
                QScrollBar* bar = edit->verticalScrollBar();
                QVERIFY2(bar->value() == bar->maximum(), qPrintable(told(u"scroll bar"_s)));
                lay_out_all(*edit);
                bar->setValue(bar->maximum());
            }
            QVERIFY2(page.verticalScrollBar()->maximum() == plain.verticalScrollBar()->maximum(),
                     qPrintable(told(u"scrolled range"_s)));
            if (random.bounded(4) == 0) {
                page.appendToCommand(u"x"_s);
                plainOther.movePosition(QTextCursor::End);
                plainOther.insertText(u"x"_s);
            }
        }
    }
}

void TstTrim::a_flood_leaves_the_last_lines()
{
    QString flood;
    for (int line = 0; line < 200'000; ++line)
        flood += QString::number(line) + u'\n';
    Page page;
    page.set_state(u"old\n$ com|mand"_s);
    page.printOutput(u"open"_s);
    page.resize(300, 100);
    QVERIFY(show_active(&page));
    page.printOutput(flood);
    QCOMPARE(page.document()->blockCount(), 1000);
    QCOMPARE(page.document()->firstBlock().text(), u"199001"_s);
    QCOMPARE(page.document()->lastBlock().previous().text(), u"199999"_s);
    QCOMPARE(page.state().right(10), u"$ com|mand"_s);
    QCOMPARE(page.verticalScrollBar()->value(), page.verticalScrollBar()->maximum());
}

OSTREL_TEST(TstTrim)
#include "tst_trim.moc"
