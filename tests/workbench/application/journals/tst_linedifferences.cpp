// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/random_seed.h"
#include "workbench/application/journals/line_differences.h"

#include <QRandomGenerator>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

QString compared(const QString& before, const QString& after)
{
    return line_differences(before.split(u' '), after.split(u' ')).join(u'|');
}

} // namespace

class TstLineDifferences : public TestCase
{
    Q_OBJECT

private slots:
    void lines_are_marked_data();
    void lines_are_marked();
    void texts_come_back_from_their_differences();
    void long_texts_are_not_matched();
};

void TstLineDifferences::lines_are_marked_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QString>("shown");
    QTest::newRow("equal") << u"a b"_s << u"a b"_s << QString();
    QTest::newRow("changed") << u"a b c"_s << u"a x c"_s << u"  a|- b|+ x|  c"_s;
    QTest::newRow("added at the end") << u"a"_s << u"a b"_s << u"  a|+ b"_s;
    QTest::newRow("removed at the begin") << u"a b"_s << u"b"_s << u"- a|  b"_s;
    QTest::newRow("three lines around") << u"1 2 3 4 5 x 6 7 8 9"_s << u"1 2 3 4 5 y 6 7 8 9"_s
                                        << u"...|  3|  4|  5|- x|+ y|  6|  7|  8|..."_s;
    QTest::newRow("left out in between") << u"a 1 2 3 4 5 6 7 b"_s << u"x 1 2 3 4 5 6 7 y"_s
                                         << u"- a|+ x|  1|  2|  3|...|  5|  6|  7|- b|+ y"_s;
}

void TstLineDifferences::lines_are_marked()
{
    QFETCH(const QString, before);
    QFETCH(const QString, after);
    QFETCH(const QString, shown);
    QCOMPARE(compared(before, after), shown);
}

void TstLineDifferences::texts_come_back_from_their_differences()
{
    QRandomGenerator random(random_seed());
    for (int run = 0; run < 5000; ++run) {
        const auto text = [&random] {
            QStringList lines;
            for (int line = random.bounded(1, 7); line > 0; --line)
                lines << QString(QChar(u'a' + random.bounded(3)));
            return lines;
        };
        const QStringList before = text();
        const QStringList after = text();
        QStringList old_lines;
        QStringList new_lines;
        const QStringList lines = line_differences(before, after);
        for (const QString& line : lines) {
            if (!line.startsWith(u'+'))
                old_lines << line.sliced(2);
            if (!line.startsWith(u'-'))
                new_lines << line.sliced(2);
        }
        if (before == after) {
            QCOMPARE(lines, QStringList());
            continue;
        }
        // Texts as short as these have no line far from a difference, but for those at an end.
        if (lines.contains(u"..."_s))
            continue;
        QCOMPARE(old_lines, before);
        QCOMPARE(new_lines, after);
    }
}

void TstLineDifferences::long_texts_are_not_matched()
{
    QStringList before{u"a"_s};
    QStringList after{u"b"_s};
    for (int line = 0; line < 3000; ++line) {
        before << u"same %1"_s.arg(line);
        after << u"same %1"_s.arg(line);
    }
    before << u"c"_s;
    after << u"d"_s;
    const QStringList lines = line_differences(before, after);
    QCOMPARE(lines.size(), before.size() + after.size());
    QCOMPARE(lines.constFirst(), u"- a"_s);
    QCOMPARE(lines.constLast(), u"+ d"_s);
}

OSTREL_TEST(TstLineDifferences)
#include "tst_linedifferences.moc"
