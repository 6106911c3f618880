// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/random_seed.h"
#include "workbench/host/ostrelfw/LineFolder.h"

#include <QRandomGenerator>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype most = LineFolder::shown_size;

QString mark(qsizetype length, int number)
{
    return u" ... [%1 characters; \"edit line %2\" shows the line whole]"_s.arg(length).arg(number);
}

} // namespace

class TstLineFolder : public TestCase
{
    Q_OBJECT

private slots:
    void short_lines_stay_as_they_are();
    void long_line_is_cut_and_kept_whole();
    void line_of_many_pieces_is_one_line();
    void each_end_of_a_block_ends_a_line_data();
    void each_end_of_a_block_ends_a_line();
    void line_that_is_ended_from_outside_gets_its_mark();
    void character_of_two_halves_is_not_cut();
    void newest_lines_are_kept();
    void line_beyond_all_measure_is_kept_in_part();
    void pieces_do_not_matter();
    void line_that_is_not_kept_is_only_cut();
};

void TstLineFolder::short_lines_stay_as_they_are()
{
    LineFolder folder;
    const QString longest(most, u'x');
    for (const QString& text : {u"one\n"_s, QString(), u"two\nthree"_s, longest.chopped(5), u"\n"_s, longest,
                                u"\n"_s, longest + u'\n' + longest + u'\n'})
        QCOMPARE(folder.fold(text), text);
    QCOMPARE(folder.end_line(), QString());
    QVERIFY(!folder.line(1));
}

void TstLineFolder::long_line_is_cut_and_kept_whole()
{
    LineFolder folder;
    const QString line = QString(most, u'a') + QString(10'000'000 - most, u'b');
    QCOMPARE(folder.fold(u"before\n"_s + line + u"\nbehind\n"_s),
             u"before\n"_s + QString(most, u'a') + mark(10'000'000, 1) + u"\nbehind\n"_s);
    QVERIFY(folder.line(1) == line);
    QVERIFY(!folder.line(0));
    QVERIFY(!folder.line(2));
}

void TstLineFolder::line_of_many_pieces_is_one_line()
{
    LineFolder folder;
    QString whole;
    QString shown;
    for (int piece = 0; piece < 3000; ++piece) {
        const QString text = u"%1 "_s.arg(piece);
        whole += text;
        shown += folder.fold(text);
    }
    QCOMPARE(shown, whole.first(most));
    QCOMPARE(folder.fold(u"\nnext"_s), mark(whole.size(), 1) + u"\nnext"_s);
    QCOMPARE(folder.line(1), whole);
}

void TstLineFolder::each_end_of_a_block_ends_a_line_data()
{
    QTest::addColumn<QString>("end");
    QTest::newRow("newline") << u"\n"_s;
    QTest::newRow("carriage return") << u"\r"_s;
    QTest::newRow("both") << u"\r\n"_s;
    QTest::newRow("paragraph separator") << u"\u2029"_s;
}

void TstLineFolder::each_end_of_a_block_ends_a_line()
{
    QFETCH(const QString, end);
    LineFolder folder;
    QString text;
    for (int line = 0; line < 1000; ++line)
        text += u"0123456789"_s + end;
    QCOMPARE(folder.fold(text), text);
    const QString longer(most + 1, u'x');
    QCOMPARE(folder.fold(longer + end), longer.chopped(1) + mark(most + 1, 1) + end);
}

void TstLineFolder::line_that_is_ended_from_outside_gets_its_mark()
{
    LineFolder folder;
    const QString line(2 * most, u'x');
    QCOMPARE(folder.fold(line), line.first(most));
    QCOMPARE(folder.end_line(), mark(2 * most, 1));
    QCOMPARE(folder.end_line(), QString());
    QCOMPARE(folder.fold(u"a new line"_s), u"a new line"_s);
    QCOMPARE(folder.line(1), line);
}

void TstLineFolder::character_of_two_halves_is_not_cut()
{
    LineFolder folder;
    const QString line = QString(most - 1, u'x') + u"\U0001F600yz"_s;
    QCOMPARE(folder.fold(line), QString(most - 1, u'x'));
    folder.end_line();
    QCOMPARE(folder.line(1), line);
}

void TstLineFolder::newest_lines_are_kept()
{
    LineFolder folder;
    const int count = int(LineFolder::kept_lines) + 2;
    for (int number = 1; number <= count; ++number)
        folder.fold(QString(most + number, u'x') + u'\n');
    QVERIFY(!folder.line(1));
    QVERIFY(!folder.line(2));
    for (int number = 3; number <= count; ++number)
        QCOMPARE(folder.line(number).value_or(QString()).size(), most + number);
}

void TstLineFolder::line_beyond_all_measure_is_kept_in_part()
{
    LineFolder folder;
    folder.fold(QString(most + 1, u'x') + u'\n');
    const QString piece(LineFolder::kept_size / 2 + 10, u'y');
    folder.fold(piece);
    folder.fold(piece);
    QCOMPARE(folder.end_line(),
             u" ... [%1 characters, of which %2 are kept; \"edit line 2\" shows the line whole]"_s
                 .arg(2 * piece.size())
                 .arg(LineFolder::kept_size));
    QCOMPARE(folder.line(2).value_or(QString()).size(), LineFolder::kept_size);
    // It has taken the room of the one before.
    QVERIFY(!folder.line(1));
}

void TstLineFolder::pieces_do_not_matter()
{
    QRandomGenerator random(random_seed());
    for (int round = 0; round < 200; ++round) {
        QString text;
        while (text.size() < 20'000)
            text += QString(random.bounded(int(most) * 2), QChar(u'a' + random.bounded(26))) +
                    (random.bounded(4) ? u"\n"_s : u"\r"_s);
        LineFolder at_once;
        const QString expected = at_once.fold(text);
        LineFolder in_pieces;
        QString shown;
        for (qsizetype position = 0; position < text.size();) {
            const qsizetype size = random.bounded(random.bounded(3) ? 100 : 10'000);
            shown += in_pieces.fold(text.mid(position, size));
            position += size;
        }
        QCOMPARE(shown, expected);
        for (int number = 0; number < 20; ++number)
            QVERIFY(in_pieces.line(number) == at_once.line(number));
    }
}

void TstLineFolder::line_that_is_not_kept_is_only_cut()
{
    LineFolder folder(false);
    const QString shown(most, u'x');
    const QString behind = u" ... [%1 characters; the page of the commands says how to see the line whole]"_s;
    QCOMPARE(folder.fold(u"short\n"_s + shown + u"y\nbehind"_s),
             u"short\n"_s + shown + behind.arg(most + 1) + u"\nbehind"_s);
    QCOMPARE(folder.fold(u" it\n"_s), u" it\n"_s);
    for (qsizetype i = 0; i < most / 10 + 1; ++i)
        folder.fold(u"0123456789"_s);
    QCOMPARE(folder.end_line(), behind.arg(most + 10));
    QVERIFY(!folder.line(1));
}

OSTREL_TEST(TstLineFolder)
#include "tst_linefolder.moc"
