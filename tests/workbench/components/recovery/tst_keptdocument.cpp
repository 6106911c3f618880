// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/components/recovery/KeptDocument.h"

#include <QTest>

using namespace fennar::recovery;
using namespace Qt::StringLiterals;

class TstKeptDocument : public TestCase
{
    Q_OBJECT

private slots:
    void what_is_decoded_is_what_was_encoded_data();
    void what_is_decoded_is_what_was_encoded();
    void text_stands_in_utf8_behind_one_line();
    void marks_of_a_byte_order_are_no_part_of_a_kind();
    void work_of_a_component_comes_back();
    void bytes_without_the_first_line_are_all_text_data();
    void bytes_without_the_first_line_are_all_text();
    void title_has_name_and_time_data();
    void title_has_name_and_time();
};

void TstKeptDocument::what_is_decoded_is_what_was_encoded_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("text");
    const QString name = u"/home/a/part.jou"_s;
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("lines") << name << u"brick x 1\nmesh\n"_s;
    QTest::newRow("no line end") << name << u"mesh"_s;
    QTest::newRow("nul") << name << u"a\0b\0"_s;
    QTest::newRow("carriage returns") << name << u"a\r\nb\rc\r\n"_s;
    QTest::newRow("other scripts") << u"/\u4e2d\u6587/\u00e9\U0001f600.jou"_s
                                   << u"\u4e2d\u6587 \u0628 \U0001f600 \u00e9e\u0301\u00a0\u2028\u2029"_s;
    QTest::newRow("byte order mark") << name << u"\ufeff# a"_s;
    QTest::newRow("half a pair") << name << QString(u"a"_s) + QChar(0xd83d) + u"b\n\ufeff"_s;
    QTest::newRow("swapped mark before half a pair") << name << QString(QChar(0xfffe)) + QChar(0xdc00);
    QTest::newRow("noncharacters") << name << u"\ufdd0\uffff"_s;
    QTest::newRow("what looks like a first line") << name << u"{\"fennar kept journal\":1}\nx"_s;
    QTest::newRow("odd file name") << u"/a\n\"b\\<b>.jou"_s << u"x"_s;
}

void TstKeptDocument::what_is_decoded_is_what_was_encoded()
{
    QFETCH(const QString, file);
    QFETCH(const QString, text);
    const QDateTime changed = QDateTime::fromString(u"2026-05-01T12:03:04.567Z"_s, Qt::ISODateWithMs);
    const KeptDocument decoded = KeptDocument::decode(KeptDocument{file, changed, text}.encode().join());
    QCOMPARE(decoded.file, file);
    QCOMPARE(decoded.changed, changed);
    QCOMPARE(decoded.text.size(), text.size());
    QVERIFY(decoded.text == text);
    // A time that is not known stays so.
    QVERIFY(!KeptDocument::decode(KeptDocument{file, {}, text}.encode().join()).changed.isValid());
}

void TstKeptDocument::text_stands_in_utf8_behind_one_line()
{
    const QByteArray bytes = KeptDocument{u"/a\nb"_s, {}, u"gr\u00fcn\nzwei"_s}.encode().join();
    QCOMPARE(bytes.sliced(bytes.indexOf('\n') + 1), QByteArray("gr\xc3\xbcn\nzwei"));
}

void TstKeptDocument::marks_of_a_byte_order_are_no_part_of_a_kind()
{
    const KeptDocument kept =
        KeptDocument::decode("{\"fennar kept journal\":1,\"kind\":\"\xef\xbb\xbf\xef\xbb\xbfmodel\"}\nbytes");
    QCOMPARE(kept.kind, u"model"_s);
    QCOMPARE(KeptDocument::decode(kept.encode().join()).kind, kept.kind);
    QCOMPARE(kept.data, QByteArrayList{"bytes"});
}

void TstKeptDocument::work_of_a_component_comes_back()
{
    const QDateTime changed = QDateTime::fromString(u"2026-05-01T12:03:00Z"_s, Qt::ISODate);
    const QByteArray bytes("a\0\n\xff", 4);
    const KeptDocument kept{u"/a/part.mdl"_s, changed, {}, u"model"_s, {bytes, {}, "b"}};
    const KeptDocument decoded = KeptDocument::decode(kept.encode().join());
    QCOMPARE(decoded.kind, u"model"_s);
    QCOMPARE(decoded.file, kept.file);
    QCOMPARE(decoded.changed, changed);
    QCOMPARE(decoded.data, QByteArrayList{bytes + 'b'});
    QCOMPARE(decoded.text, QString());
    QCOMPARE(KeptDocument::decode(KeptDocument{{}, {}, {}, u"model"_s, {}}.encode().join()).data.join(), "");
    QCOMPARE((KeptDocument{{}, {}, {}, u"model"_s}.title()), u"Untitled model"_s);
}

void TstKeptDocument::bytes_without_the_first_line_are_all_text_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("text") << QByteArray("brick x 1\nmesh\n");
    QTest::newRow("one line") << QByteArray("brick x 1");
    QTest::newRow("half a letter at the end") << QByteArray("mesh \xc3");
    QTest::newRow("line end first") << QByteArray("\nmesh");
    QTest::newRow("another line of that kind") << QByteArray("{\"file\":\"/a\"}\nmesh");
    QTest::newRow("a later format") << QByteArray("{\"fennar kept journal\":2}\nmesh");
    QTest::newRow("cut first line") << QByteArray("{\"fennar kept journal\":1");
}

void TstKeptDocument::bytes_without_the_first_line_are_all_text()
{
    QFETCH(const QByteArray, bytes);
    const KeptDocument decoded = KeptDocument::decode(bytes);
    QCOMPARE(decoded.text, QString::fromUtf8(bytes));
    QCOMPARE(decoded.file, QString());
    QVERIFY(!decoded.changed.isValid());
}

void TstKeptDocument::title_has_name_and_time_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QDateTime>("changed");
    QTest::addColumn<QString>("title");
    const QDate day(2026, 5, 2);
    QTest::newRow("today") << u"/a/part.jou"_s << QDateTime(day, QTime(12, 3))
                           << u"part.jou (changed 12:03)"_s;
    QTest::newRow("in another zone") << u"/a/part.jou"_s << QDateTime(day, QTime(12, 3)).toUTC()
                                     << u"part.jou (changed 12:03)"_s;
    QTest::newRow("the day before") << u"/a/part.jou"_s << QDateTime(day.addDays(-1), QTime(23, 59))
                                    << u"part.jou (changed 2026-05-01 23:59)"_s;
    QTest::newRow("untitled") << QString() << QDateTime(day, QTime(0, 0)) << u"Untitled (changed 00:00)"_s;
    QTest::newRow("percent signs") << u"/a/%2.jou"_s << QDateTime(day, QTime(1, 2))
                                   << u"%2.jou (changed 01:02)"_s;
    QTest::newRow("no time") << QString() << QDateTime() << u"Untitled"_s;
}

void TstKeptDocument::title_has_name_and_time()
{
    QFETCH(const QString, file);
    QFETCH(const QDateTime, changed);
    QFETCH(const QString, title);
    QCOMPARE((KeptDocument{file, changed, {}}.title(QDateTime(QDate(2026, 5, 2), QTime(23, 0)))), title);
}

OSTREL_TEST(TstKeptDocument)
#include "tst_keptdocument.moc"
