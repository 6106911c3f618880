// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/random_seed.h"
#include "workbench/application/editor/mark_python.h"

#include <QRandomGenerator>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

constexpr auto letters = "CKNSEV#"_L1;

/** @p text with a letter in place of each character that is marked. */
QString marked(const QString& text)
{
    QStringList shown;
    PythonString string = PythonString::None;
    const QStringList lines = text.split(u'\n');
    for (const QString& line : lines) {
        const PythonLine python = mark_python(line, string);
        string = python.string;
        QString row = line;
        for (const LineMark& mark : python.marks)
            row.replace(mark.start, mark.length, QString(mark.length, letters[int(mark.kind)]));
        shown << row;
    }
    return shown.join(u'\n');
}

} // namespace

class TstMarkPython : public TestCase
{
    Q_OBJECT

private slots:
    void parts_are_marked_data();
    void parts_are_marked();
    void any_text_is_harmless();
};

void TstMarkPython::parts_are_marked_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    const auto row = [](const char* name, const QString& text, const QString& shown) {
        QTest::newRow(name) << text << shown;
    };
    row("nothing", {}, {});
    row("keywords", u"for x in None: pass"_s, u"KKK x KK KKKK: KKKK"_s);
    row("words that only begin so", u"format inner _if"_s, u"format inner _if"_s);
    row("names that are given", u"async def run(a): class B(C):"_s, u"KKKKK KKK EEE(a): KKKKK E(C):"_s);
    row("numbers", u"1 2.5e-3 0xFFe-1 .5 1_000j a1 x.5"_s, u"N NNNNNN NNNNN-N NN NNNNNN a1 xNN"_s);
    row("strings", u"'a' \"b\" f'{x}' rb\"\\\" x\" format''"_s, u"SSS SSS SSSSSS SSSSSSSS formatSS"_s);
    row("quote within other quotes", u"\"it's\" + 'say \"x\"'"_s, u"SSSSSS + SSSSSSSSS"_s);
    row("escape", u"'a\\'b' + 1"_s, u"SSSSSS + N"_s);
    row("string that is not closed", u"x = 'abc\nx = 1"_s, u"x = SSSS\nx = N"_s);
    row("string that a backslash continues", u"x = 'a\\\nb' + 1"_s, u"x = SSS\nSS + N"_s);
    row("backslash that continues nothing", u"x = 'a\\b\ny"_s, u"x = SSSS\ny"_s);
    row("three quotes", u"x = '''a'b''c\n\"\"\" # d\ne''' # f"_s, u"x = SSSSSSSSS\nSSSSSSS\nSSSS ###"_s);
    row("three double quotes", u"\"\"\"a\\\"\"\" b\n\"\"\" if"_s, u"SSSSSSSSSS\nSSS KK"_s);
    row("empty string ahead of a name", u"'' a"_s, u"SS a"_s);
    row("comment", u"x # if 1\n# 'a"_s, u"x ######\n####"_s);
    row("no comment", u"'#' 1"_s, u"SSS N"_s);
    row("decorator", u"  @fennar.step(1)\na @ b"_s, u"  CCCCCCCCCCCC(N)\na @ b"_s);
    row("letters of other scripts", u"l\u00e4nge = 1"_s, u"l\u00e4nge = N"_s);
}

void TstMarkPython::parts_are_marked()
{
    QFETCH(const QString, text);
    QFETCH(const QString, shown);
    QCOMPARE(marked(text), shown);
}

void TstMarkPython::any_text_is_harmless()
{
    QRandomGenerator random(random_seed());
    const QString some = u"def if1.0xe-_@#'\"\\  rb\u00e4\t"_s;
    for (int i = 0; i < 20000; ++i) {
        QString line;
        for (int n = random.bounded(16); n > 0; --n)
            line += some[random.bounded(int(some.size()))];
        qsizetype end = 0;
        const PythonLine python = mark_python(line, PythonString(random.bounded(5)));
        for (const LineMark& mark : python.marks) {
            QVERIFY2(mark.start >= end && mark.length > 0 && mark.start + mark.length <= line.size(),
                     qPrintable(line));
            end = mark.start + mark.length;
        }
    }
}

OSTREL_TEST(TstMarkPython)
#include "tst_mark_python.moc"
