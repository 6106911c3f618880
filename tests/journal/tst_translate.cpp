// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/translate.h"
#include "literal_translation.h"
#include "support/TestCase.h"
#include "support/processor_time.h"

#include <QDir>
#include <QTest>

#include <ctime>
#include <limits>
#include <string>

using namespace Qt::StringLiterals;

namespace {

QString translated(const QString& text)
{
    QString result = text;
    pythonize_text(result);
    return result;
}

QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

} // namespace

class TstTranslate : public TestCase
{
    Q_OBJECT

private slots:
    void journals_of_the_case_folder_data();
    void journals_of_the_case_folder();
    void literal_translation_agrees_data();
    void literal_translation_agrees();
    void null_text_stays_null();
    void half_a_surrogate_pair_is_replaced();
    void byte_order_mark_stays();
    void end_of_a_call_that_lands_inside_a_character_breaks_it();
    void search_goes_backwards_between_its_ends();
    void search_that_hits_the_first_byte_starts_over_at_the_end();
    void time_grows_with_the_length_of_the_text_data();
    void time_grows_with_the_length_of_the_text();
};

/** Each NAME.before with its NAME.expected; a new case is these two files. */
void TstTranslate::journals_of_the_case_folder_data()
{
    QTest::addColumn<QString>("path");
    const QDir folder(QStringLiteral(TRANSLATION_CASES));
    const QFileInfoList befores = folder.entryInfoList({u"*.before"_s}, QDir::Files, QDir::Name);
    QVERIFY(befores.size() >= 40);
    QCOMPARE(folder.entryList({u"*.expected"_s}, QDir::Files).size(), befores.size());
    for (const QFileInfo& before : befores)
        QTest::newRow(qPrintable(before.completeBaseName())) << folder.filePath(before.completeBaseName());
}

void TstTranslate::journals_of_the_case_folder()
{
    QFETCH(const QString, path);
    const QString before = QString::fromUtf8(content(path + u".before"_s));
    QCOMPARE(translated(before).toUtf8(), content(path + u".expected"_s));
}

void TstTranslate::literal_translation_agrees_data()
{
    journals_of_the_case_folder_data();
}

void TstTranslate::literal_translation_agrees()
{
    QFETCH(const QString, path);
    QString text = QString::fromUtf8(content(path + u".before"_s));
    literally_pythonize_text(text);
    QCOMPARE(text.toUtf8(), content(path + u".expected"_s));
}

void TstTranslate::null_text_stays_null()
{
    QVERIFY(translated({}).isEmpty());
}

void TstTranslate::half_a_surrogate_pair_is_replaced()
{
    const QString half(QChar(0xD83D));
    const QString shown = QString::fromUtf8(half.toUtf8());
    QVERIFY(shown != half);
    QCOMPARE(translated(u"a"_s + half), u"fennar.cmd('a"_s + shown + u"')"_s);
}

void TstTranslate::byte_order_mark_stays()
{
    QCOMPARE(translated(u"\uFEFFrun"_s), u"fennar.cmd('\uFEFFrun')"_s);
}

void TstTranslate::end_of_a_call_that_lands_inside_a_character_breaks_it()
{
    // One apostrophe comes later, so the end lies one byte too far. Here the line end is that byte ...
    QCOMPARE(translated(u"'a'\n\u00E9'"_s), u"fennar.cmd('\\\\'a\\\\'\n')fennar.cmd('\u00E9\\\\'\\'')"_s);
    // ... and here, with two, it is the first of two bytes.
    QString text = translated(u"'a'\n\u00E9''"_s);
    QVERIFY2(text.startsWith(u"fennar.cmd('\\\\'a\\\\'\n\uFFFD')fennar.cmd('\uFFFD"_s), qPrintable(text));
}

void TstTranslate::search_goes_backwards_between_its_ends()
{
    const auto replaced = [](std::string text, std::size_t begin, std::size_t end) {
        const std::size_t count = replace_backwards(text, begin, end, "'", "\\'");
        return QString::fromStdString(text + " " + std::to_string(count));
    };
    QCOMPARE(replaced("a'b'c'", 2, 4), u"a'b\\'c' 1"_s);
    QCOMPARE(replaced("a'b'c'", 1, 5), u"a\\'b\\'c\\' 3"_s);
    QCOMPARE(replaced("a'b'c'", 1, 60), u"a\\'b\\'c\\' 3"_s);
    QCOMPARE(replaced("abc", 0, 2), u"abc 0"_s);
    QCOMPARE(replaced("", 0, 0), u" 0"_s);
    QCOMPARE(replaced("a'", 5, 9), u"a' 0"_s);
}

void TstTranslate::search_that_hits_the_first_byte_starts_over_at_the_end()
{
    std::string text = "'a\n'";
    QCOMPARE(replace_backwards(text, 0, 2, "'", "\\'"), std::size_t(3));
    QCOMPARE(QString::fromStdString(text), u"\\\\'a\n\\'"_s);
}

void TstTranslate::time_grows_with_the_length_of_the_text_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("repeated");

    QTest::newRow("many lines") << QString() << u"load \"C:\\dir\\file.dat\" it's\n"_s;
    QTest::newRow("one long line") << QString() << u"x 'a\\b\\' "_s;
    QTest::newRow("one long command") << QString() << u"run 'x' \\\n"_s;
    QTest::newRow("nothing but apostrophes") << QString() << u"'"_s;
    QTest::newRow("nothing but backslashes between quotes") << u"\""_s << u"\\"_s;
    QTest::newRow("nothing but line ends") << QString() << u"\n"_s;
    QTest::newRow("a leading apostrophe") << u"'a'\n"_s << u"b 'c'\n"_s;
}

/** Sixteen times the text takes sixteen to thirty times as long, not the square of it: the limit lies between
 * the two. */
void TstTranslate::time_grows_with_the_length_of_the_text()
{
    QFETCH(const QString, before);
    QFETCH(const QString, repeated);
    const auto best_time = [&](qsizetype characters) {
        const QString text = before + repeated.repeated(characters / repeated.size());
        QString result;
        std::clock_t best = std::numeric_limits<std::clock_t>::max();
        for (int round = 0; round < 3; ++round)
            best = qMin(best, processor_time([&] { result = translated(text); }));
        return result.size() < text.size() ? -1 : best;
    };
    QCOMPARE(takes_too_long(
                 80, [&] { return best_time(1 << 17); }, [&] { return best_time(1 << 21); }),
             QString());
}

OSTREL_TEST(TstTranslate)
#include "tst_translate.moc"
