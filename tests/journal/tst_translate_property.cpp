// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/translate.h"
#include "literal_translation.h"
#include "support/TestCase.h"
#include "support/random_seed.h"

#include <QRandomGenerator>
#include <QTest>

#include <array>

using namespace Qt::StringLiterals;

namespace {

/** What means something to the translation, and some text that does not. */
const std::array pieces = {
    u"'"_s,
    u"'"_s,
    u"\""_s,
    u"\""_s,
    u"\\"_s,
    u"\\"_s,
    u"\\\n"_s,
    u"\\\r\n"_s,
    u"#"_s,
    u"# "_s,
    u"\r"_s,
    u"\n"_s,
    u"\n"_s,
    u"\n"_s,
    u"\r\n"_s,
    u"\n\n"_s,
    u" "_s,
    u"  "_s,
    u"\t"_s,
    u"("_s,
    u")"_s,
    u"a"_s,
    u"run step"_s,
    u"fennar.cmd"_s,
    u"fennar.cmd('"_s,
    u"')"_s,
    u"#!python"_s,
    u"\u00E9"_s,
    u"\u6F22\u5B57"_s,
    u"\u0645\u0631"_s,
    u"\u2028"_s,
    u"\u00A0"_s,
    u"\uFEFF"_s,
    u"\U0001F600"_s,
    QString(QChar(0xD83D)), // the first half of a pair
    QString(QChar(0xDE00)), // the second half
};

QString visible(const QString& text)
{
    QString shown;
    for (const QChar c : text) {
        const ushort code = c.unicode();
        shown += code >= 0x20 && code < 0x7f && code != '\\' ? QString(c)
                 : code == '\\'                              ? u"\\\\"_s
                                                             : u"\\u%1"_s.arg(code, 4, 16, QLatin1Char('0'));
    }
    return shown;
}

} // namespace

class TstTranslateProperty : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void short_texts_data();
    void short_texts();
    void all_texts_of_few_pieces();
    void long_texts();
    void replacing_backwards_is_what_one_match_after_the_other_gives();

private:
    QString text_of(int count, int kinds);
    /** What is wrong with the translation of @p text; empty if nothing is. */
    static QString difference(const QString& text);

    QRandomGenerator mRandom;
};

void TstTranslateProperty::initTestCase()
{
    mRandom.seed(random_seed());
}

/** @p count pieces of @p kinds kinds, which are chosen anew for each text so that some come up often. */
QString TstTranslateProperty::text_of(int count, int kinds)
{
    std::array<size_t, pieces.size()> chosen{};
    for (int kind = 0; kind < kinds; ++kind)
        chosen[static_cast<size_t>(kind)] = mRandom.bounded(static_cast<quint32>(pieces.size()));
    QString text;
    // Rare, since it hides all that comes behind it.
    const int nul_at = mRandom.bounded(20) == 0 ? mRandom.bounded(count + 1) : -1;
    for (int i = 0; i < count; ++i) {
        if (i == nul_at)
            text += QChar(u'\0');
        text += pieces[chosen[static_cast<size_t>(mRandom.bounded(kinds))]];
    }
    return text;
}

QString TstTranslateProperty::difference(const QString& text)
{
    QString found = text;
    pythonize_text(found);
    QString expected = text;
    literally_pythonize_text(expected);
    if (found == expected)
        return {};
    return u"\n  text     %1\n  found    %2\n  expected %3"_s.arg(visible(text), visible(found),
                                                                  visible(expected));
}

void TstTranslateProperty::short_texts_data()
{
    QTest::addColumn<int>("kinds");

    QTest::newRow("of three kinds of piece") << 3;
    QTest::newRow("of six kinds of piece") << 6;
    QTest::newRow("of any kind of piece") << 36;
}

void TstTranslateProperty::short_texts()
{
    QFETCH(const int, kinds);
    for (int run = 0; run < 300'000; ++run) {
        const QString text = text_of(mRandom.bounded(1, 25), kinds);
        const QString wrong = difference(text);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }
}

/** Every text of up to six of the bytes that count, beginning with an apostrophe or not. */
void TstTranslateProperty::all_texts_of_few_pieces()
{
    const QString bytes = u"'\"\\#\n )a"_s;
    constexpr int longest = 6;
    qsizetype texts = 1;
    for (int length = 1; length <= longest; ++length) {
        texts *= bytes.size();
        for (qsizetype number = 0; number < texts; ++number) {
            QString text;
            for (qsizetype rest = number; text.size() < length; rest /= bytes.size())
                text += bytes.at(rest % bytes.size());
            const QString wrong = difference(text);
            QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
        }
    }
    QCOMPARE(texts, qsizetype(262'144));
}

void TstTranslateProperty::long_texts()
{
    for (int run = 0; run < 300; ++run) {
        QString text = text_of(mRandom.bounded(1000, 5000), mRandom.bounded(2, 37));
        if (run % 4 == 0)
            text.prepend(u'\'');
        const QString wrong = difference(text);
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong));
    }
}

/** With any pattern, and with ends that lie anywhere. */
void TstTranslateProperty::replacing_backwards_is_what_one_match_after_the_other_gives()
{
    const auto random_text = [this](int shortest, int longest) {
        std::string text(static_cast<size_t>(mRandom.bounded(shortest, longest + 1)), 'a');
        for (char& byte : text)
            byte = "aab"[mRandom.bounded(3)];
        return text;
    };
    int replaced = 0;
    int started_over = 0;
    for (int run = 0; run < 200'000; ++run) {
        const std::string before = random_text(0, 12);
        const std::string from = random_text(1, 3);
        // One that begins with what it replaces would be replaced again and again at the very start.
        const std::string to = '+' + random_text(0, 3);
        const auto begin = static_cast<size_t>(mRandom.bounded(14));
        const auto end = static_cast<size_t>(mRandom.bounded(16));
        std::string found = before;
        const size_t count = replace_backwards(found, begin, end, from, to);
        std::string expected = before;
        const size_t expected_count = literally_replace_backwards(expected, begin, end, from, to);
        const auto text = u"%1 from %2 to %3, %4 to %5"_s.arg(
            QString::fromStdString(before), QString::fromStdString(from), QString::fromStdString(to),
            QString::number(begin), QString::number(end));
        QVERIFY2(found == expected && count == expected_count, qPrintable(text));
        replaced += count > 0;
        started_over += begin == 0 && before.starts_with(from) && end < before.size();
    }
    QVERIFY(replaced > 20'000);
    QVERIFY(started_over > 1'000);
}

OSTREL_TEST(TstTranslateProperty)
#include "tst_translate_property.moc"
