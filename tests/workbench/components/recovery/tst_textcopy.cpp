// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/random_seed.h"
#include "workbench/components/recovery/TextCopy.h"

#include <QPlainTextDocumentLayout>
#include <QRandomGenerator>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>

#include <memory>

using namespace fennar;
using namespace fennar::recovery;
using namespace Qt::StringLiterals;

namespace {

/** So that only the least is copied. */
const QDeadlineTimer now(0);
const QDeadlineTimer never(QDeadlineTimer::Forever);

} // namespace

class TstTextCopy : public TestCase
{
    Q_OBJECT

private slots:
    void whole_text_is_copied_data();
    void whole_text_is_copied();
    void long_text_takes_several_turns();
    void text_set_meanwhile_is_the_one();
    void document_may_go();
    void random_changes_meanwhile_are_in_the_copy();
};

void TstTextCopy::whole_text_is_copied_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("one line") << u"a"_s;
    QTest::newRow("empty lines") << u"\n\n"_s;
    QTest::newRow("line end last") << u"a\nb\n"_s;
    QTest::newRow("odd characters") << u"a\0\u00a0\u2028\U0001f600\n\0"_s;
    QTest::newRow("as many lines as are copied at once") << u"x\n"_s.repeated(63) + u'x';
    QTest::newRow("one more") << u"x\n"_s.repeated(64);
}

void TstTextCopy::whole_text_is_copied()
{
    QFETCH(const QString, text);
    QTextDocument document(text);
    TextCopy copy(&document);
    QVERIFY(copy.advance(never));
    QVERIFY(copy.text() == document.toRawText());
    QCOMPARE(copy.text().size(), text.size());
}

void TstTextCopy::long_text_takes_several_turns()
{
    QTextDocument document(u"line\n"_s.repeated(1000));
    TextCopy copy(&document);
    int turns = 1;
    while (!copy.advance(now))
        ++turns;
    QCOMPARE(turns, 16);
    QVERIFY(copy.text() == document.toRawText());
}

void TstTextCopy::text_set_meanwhile_is_the_one()
{
    for (const int lines : {0, 1, 100, 2000}) {
        QTextDocument document(u"line\n"_s.repeated(1000));
        TextCopy copy(&document);
        QVERIFY(!copy.advance(now));
        document.setPlainText(u"new\n"_s.repeated(lines));
        QVERIFY(copy.advance(never));
        QVERIFY(copy.text() == document.toRawText());
    }
}

void TstTextCopy::document_may_go()
{
    auto document = std::make_unique<QTextDocument>(u"line\n"_s.repeated(1000));
    TextCopy copy(document.get());
    QVERIFY(!copy.advance(now));
    document.reset();
    QVERIFY(!copy.advance(never));
}

void TstTextCopy::random_changes_meanwhile_are_in_the_copy()
{
    QRandomGenerator random(random_seed());
    for (int round = 0; round < 50; ++round) {
        QTextDocument document;
        // That of an editor, which is the quicker one as well.
        document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
        document.setPlainText(u"some line\n"_s.repeated(random.bounded(1000)));
        TextCopy copy(&document);
        for (bool complete = false; !complete;) {
            const int changes = random.bounded(4);
            for (int i = 0; i < changes; ++i) {
                const int length = document.characterCount();
                QTextCursor cursor(&document);
                cursor.setPosition(random.bounded(length));
                const int size = random.bounded(10) == 0 ? length : 30;
                cursor.setPosition(std::min(length - 1, cursor.position() + random.bounded(size)),
                                   QTextCursor::KeepAnchor);
                switch (random.bounded(6)) {
                case 0:
                    cursor.insertText(u"new\ntext"_s);
                    break;
                case 1:
                    cursor.removeSelectedText();
                    break;
                case 2:
                    document.undo();
                    break;
                case 3:
                    document.redo();
                    break;
                case 4:
                    cursor.insertText(u"much\n"_s.repeated(random.bounded(400)));
                    break;
                default:
                    // Two places in one change.
                    cursor.beginEditBlock();
                    cursor.insertText(u"x"_s);
                    cursor.setPosition(random.bounded(document.characterCount()));
                    cursor.deletePreviousChar();
                    cursor.endEditBlock();
                }
            }
            complete = copy.advance(now);
        }
        QVERIFY(copy.text() == document.toRawText());
    }
}

OSTREL_TEST(TstTextCopy)
#include "tst_textcopy.moc"
