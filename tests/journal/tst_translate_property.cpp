// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/translate.h"
#include "literal_translation.h"
#include "support/TestCase.h"

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

private:
    QString text_of(int count, int kinds);
    /** What is wrong with the translation of @p text; empty if nothing is. */
    static QString difference(const QString& text);

    QRandomGenerator mRandom;
};

void TstTranslateProperty::initTestCase()
{
    const auto seed = qEnvironmentVariableIsSet("OSTREL_TEST_SEED")
                          ? static_cast<quint32>(qEnvironmentVariableIntValue("OSTREL_TEST_SEED"))
                          : QRandomGenerator::global()->generate() & 0x7fffffff;
    qInfo("OSTREL_TEST_SEED=%u", seed);
    mRandom.seed(seed);
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

OSTREL_TEST(TstTranslateProperty)
#include "tst_translate_property.moc"
