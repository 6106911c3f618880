// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "support/random_seed.h"
#include "workbench/sdk/core/commands/numbers.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QLocale>
#include <QRandomGenerator>
#include <QScopeGuard>
#include <QTest>

#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <sstream>

using namespace fennar;
using namespace Qt::StringLiterals;

namespace {

std::optional<QString> variable(QStringView name)
{
    if (name == u"part")
        return u"gear wheel"_s;
    if (name == u"n_1")
        return u"12"_s;
    if (name == u"sly")
        return u"$part \" # '"_s;
    if (name == u"none")
        return QString();
    return std::nullopt;
}

/** The words as "text@column", quoted ones with a "q" behind. */
QStringList described(const CommandWords& words)
{
    QStringList result;
    for (const CommandWord& word : words.words)
        result << word.text + u'@' + QString::number(word.column) + (word.quoted ? u"q"_s : QString());
    return result;
}

} // namespace

class TstTokenize : public TestCase
{
    Q_OBJECT

private slots:
    void words_keep_text_column_and_quotes_data();
    void words_keep_text_column_and_quotes();
    void faults_name_column_and_expectation_data();
    void faults_name_column_and_expectation();
    void words_ahead_of_a_fault_are_kept();
    void end_column_is_behind_the_last_word();
    void without_a_lookup_no_variable_exists();
    void expansion_beyond_the_limit_is_an_error();
    void quoted_words_read_back_the_same();
    void plain_words_are_not_quoted_data();
    void plain_words_are_not_quoted();
    void any_text_gives_words_or_a_fault();
    void line_of_ten_million_characters_is_read_whole();
    void numbers_data();
    void numbers();
    void integers_data();
    void integers();
    void numbers_ignore_the_locale();
    void numbers_read_back_what_was_printed();
    void variable_names_data();
    void variable_names();
};

void TstTokenize::words_keep_text_column_and_quotes_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("words");

    QTest::newRow("empty line") << u""_s << QStringList();
    QTest::newRow("blanks only") << u" \t\r\n "_s << QStringList();
    QTest::newRow("words at blanks and tabs") << u"a  bc\td"_s << QStringList{u"a@1"_s, u"bc@4"_s, u"d@7"_s};
    QTest::newRow("leading and trailing blanks") << u"  a "_s << QStringList{u"a@3"_s};
    QTest::newRow("line end counts as blank") << u"a\nb"_s << QStringList{u"a@1"_s, u"b@3"_s};
    QTest::newRow("no-break space is no blank") << u"a\u00a0b"_s << QStringList{u"a\u00a0b@1"_s};
    QTest::newRow("double quotes hold blanks") << u"a \"b c\""_s << QStringList{u"a@1"_s, u"b c@3q"_s};
    QTest::newRow("single quotes hold blanks") << u"'b c' d"_s << QStringList{u"b c@1q"_s, u"d@7"_s};
    QTest::newRow("empty quotes are a word") << u"\"\" ''"_s << QStringList{u"@1q"_s, u"@4q"_s};
    QTest::newRow("double quote in single quotes") << u"'a\"b'"_s << QStringList{u"a\"b@1q"_s};
    QTest::newRow("single quote in double quotes") << u"\"a'b\""_s << QStringList{u"a'b@1q"_s};
    QTest::newRow("quoted parts join to one word")
        << u"a\"b c\"'d e'f g"_s << QStringList{u"ab cd ef@1q"_s, u"g@14"_s};
    QTest::newRow("escapes in double quotes")
        << uR"("\" \\ \$part \n \r \t")"_s << QStringList{u"\" \\ $part \n \r \t@1q"_s};
    QTest::newRow("single quotes are literal") << uR"('\n $part \')"_s << QStringList{uR"(\n $part \@1q)"_s};
    QTest::newRow("backslash outside quotes is literal")
        << uR"(C:\dir\new \\)"_s << QStringList{uR"(C:\dir\new@1)"_s, uR"(\\@12)"_s};
    QTest::newRow("quote behind a plain backslash opens") << uR"(a\"b c")"_s << QStringList{uR"(a\b c@1q)"_s};
    QTest::newRow("comment line") << u"# a 'b"_s << QStringList();
    QTest::newRow("comment behind words") << u"a #b \"c"_s << QStringList{u"a@1"_s};
    QTest::newRow("hash inside a word") << u"face#3 b"_s << QStringList{u"face#3@1"_s, u"b@8"_s};
    QTest::newRow("hash behind a quote is part of the word") << u"''#a"_s << QStringList{u"#a@1q"_s};
    QTest::newRow("hash in quotes") << u"'#a' \"#b\""_s << QStringList{u"#a@1q"_s, u"#b@6q"_s};
    QTest::newRow("variable is one word") << u"$part b"_s << QStringList{u"gear wheel@1"_s, u"b@7"_s};
    QTest::newRow("variable in braces") << u"x${n_1}y z"_s << QStringList{u"x12y@1"_s, u"z@10"_s};
    QTest::newRow("variables side by side") << u"$n_1$n_1"_s << QStringList{u"1212@1"_s};
    QTest::newRow("name ends at the first other character") << u"$n_1.5"_s << QStringList{u"12.5@1"_s};
    QTest::newRow("variable in double quotes") << u"\"a $n_1 b\""_s << QStringList{u"a 12 b@1q"_s};
    QTest::newRow("value is not read again") << u"$sly"_s << QStringList{u"$part \" # '@1"_s};
    QTest::newRow("empty value is an empty word")
        << u"a $none b"_s << QStringList{u"a@1"_s, u"@3"_s, u"b@9"_s};
    QTest::newRow("dollar without a name")
        << u"$ 5$ $5 \"$\""_s << QStringList{u"$@1"_s, u"5$@3"_s, u"$5@6"_s, u"$@9q"_s};
    QTest::newRow("other scripts") << u"größe ’ \U0001F600 x"_s
                                   << QStringList{u"größe@1"_s, u"’@7"_s, u"\U0001F600@9"_s, u"x@12"_s};
}

void TstTokenize::words_keep_text_column_and_quotes()
{
    QFETCH(QString, line);
    QFETCH(QStringList, words);
    const CommandWords result = tokenize(line, variable);
    QVERIFY2(!result.error, result.error ? result.error->what() : "");
    QCOMPARE(described(result), words);
}

void TstTokenize::faults_name_column_and_expectation_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<qsizetype>("column");
    QTest::addColumn<QString>("message");

    QTest::newRow("double quote never closed")
        << u"a \"b c"_s << qsizetype(3) << u"expected a closing double quote, found the end of the line"_s;
    QTest::newRow("single quote never closed")
        << u"a b'c "_s << qsizetype(4) << u"expected a closing single quote, found the end of the line"_s;
    QTest::newRow("double quote closed by an escaped one only")
        << uR"(a "b\")"_s << qsizetype(3) << u"expected a closing double quote, found the end of the line"_s;
    QTest::newRow("backslash ends the line within quotes")
        << uR"(a "b\)"_s << qsizetype(3) << u"expected a closing double quote, found the end of the line"_s;
    QTest::newRow("unknown escape") << uR"(a "b\qc")"_s << qsizetype(5)
                                    << uR"(expected an escape (\" \\ \$ \n \r \t), found "\q")"_s;
    QTest::newRow("unknown escape of a wide character")
        << u"\"\\\U0001F600\""_s << qsizetype(2)
        << u"expected an escape (\\\" \\\\ \\$ \\n \\r \\t), found \"\\\U0001F600\""_s;
    QTest::newRow("unknown variable") << u"a x$nix"_s << qsizetype(4) << u"unknown variable \"nix\""_s;
    QTest::newRow("unknown variable in quotes")
        << u"a \"x $nix\""_s << qsizetype(6) << u"unknown variable \"nix\""_s;
    QTest::newRow("braces without a name")
        << u"${}"_s << qsizetype(3) << u"expected the name of a variable, found \"}\""_s;
    QTest::newRow("braces around a number")
        << u"${1}"_s << qsizetype(3) << u"expected the name of a variable, found \"1\""_s;
    QTest::newRow("brace at the line's end")
        << u"${"_s << qsizetype(3) << u"expected the name of a variable, found the end of the line"_s;
    QTest::newRow("brace never closed")
        << u"${part"_s << qsizetype(7) << u"expected \"}\", found the end of the line"_s;
    QTest::newRow("something else in braces")
        << u"${part x}"_s << qsizetype(7) << u"expected \"}\", found \" \""_s;
}

void TstTokenize::faults_name_column_and_expectation()
{
    QFETCH(QString, line);
    QFETCH(qsizetype, column);
    QFETCH(QString, message);
    const CommandWords result = tokenize(line, variable);
    QVERIFY(result.error);
    QCOMPARE(result.error->message(), message);
    QCOMPARE(result.error->column(), column);
    QVERIFY(message.startsWith(u"unknown"_s) || !result.error->expected_what().isEmpty());
}

void TstTokenize::words_ahead_of_a_fault_are_kept()
{
    const CommandWords result = tokenize(u"set 'a b' \"c");
    QVERIFY(result.error);
    QCOMPARE(described(result), QStringList({u"set@1"_s, u"a b@5q"_s}));
}

void TstTokenize::end_column_is_behind_the_last_word()
{
    QCOMPARE(tokenize(u"").end_column, 1);
    QCOMPARE(tokenize(u"  # x").end_column, 1);
    QCOMPARE(tokenize(u"ab 'c'   # x").end_column, 7);
}

void TstTokenize::without_a_lookup_no_variable_exists()
{
    const CommandWords result = tokenize(u"a $part");
    QVERIFY(result.error);
    QCOMPARE(result.error->message(), u"unknown variable \"part\""_s);
}

void TstTokenize::expansion_beyond_the_limit_is_an_error()
{
    const QString value(expansion_limit / 4, u'x');
    const auto long_value = [&value](QStringView) { return std::optional<QString>(value); };
    QVERIFY(!tokenize(u"$a $a $a $a", long_value).error);
    const CommandWords result = tokenize(u"$a $a $a $a $a", long_value);
    QVERIFY(result.error);
    QCOMPARE(result.error->message(),
             u"the variables of this command expand to more than 67108864 characters"_s);
    QCOMPARE(result.error->column(), 13);
}

void TstTokenize::quoted_words_read_back_the_same()
{
    QRandomGenerator random(random_seed());
    // The marks of the language, and some letters for it to look like text.
    const QString marks = u" \t\r\n\v\f\"'\\$#{}_=.,abcn0159-+\u00e4\u20ac\u00a0"_s + QChar(u'\0') +
                          QChar(0xd83d) + QChar(0xde00);
    for (int round = 0; round < 5000; ++round) {
        QStringList words;
        QString line;
        for (int i = random.bounded(1, 6); i > 0; --i) {
            QString word;
            for (int length = random.bounded(0, 9); length > 0; --length)
                word += marks[random.bounded(marks.size())];
            words << word;
            line += quote_word(word) + u' ';
        }
        if (random.bounded(2))
            line.chop(1);
        QVERIFY2(!line.endsWith(u'\\'), qPrintable(line)); // it would be continued
        QVERIFY2(!line.contains(u'\n') && !line.contains(u'\r'), qPrintable(line));

        const CommandWords result = tokenize(line);
        QVERIFY2(!result.error, qPrintable(line));
        QStringList read;
        for (const CommandWord& word : result.words)
            read << word.text;
        QCOMPARE(read, words);
    }
}

void TstTokenize::plain_words_are_not_quoted_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("written");
    QTest::newRow("letters and marks") << u"a-b.c/d=5"_s << u"a-b.c/d=5"_s;
    QTest::newRow("empty") << u""_s << u"\"\""_s;
    QTest::newRow("blank") << u"a b"_s << u"\"a b\""_s;
    QTest::newRow("backslash") << uR"(C:\a)"_s << uR"("C:\\a")"_s;
    QTest::newRow("dollar") << u"$a"_s << uR"("\$a")"_s;
    QTest::newRow("apostrophe") << u"it's"_s << u"\"it's\""_s;
    QTest::newRow("line end") << u"a\nb"_s << uR"("a\nb")"_s;
}

void TstTokenize::plain_words_are_not_quoted()
{
    QFETCH(QString, word);
    QFETCH(QString, written);
    QCOMPARE(quote_word(word), written);
}

void TstTokenize::any_text_gives_words_or_a_fault()
{
    QRandomGenerator random(random_seed());
    const QString marks = u" \"'\\$#{}an"_s + QChar(u'\0') + QChar(0xd800) + QChar(0xdc00);
    for (int round = 0; round < 20000; ++round) {
        QString line;
        for (int length = random.bounded(0, 12); length > 0; --length)
            line += marks[random.bounded(marks.size())];
        const CommandWords result = tokenize(line, variable);
        qsizetype last = 0;
        for (const CommandWord& word : result.words) {
            QVERIFY(word.column > last);
            last = word.column;
        }
        QVERIFY(last <= line.size());
        QVERIFY(result.words.isEmpty() || result.end_column > last);
        if (result.error) {
            QVERIFY(result.error->column() > last);
            QVERIFY(result.error->column() <= line.size() + 1);
        }
    }
}

void TstTokenize::line_of_ten_million_characters_is_read_whole()
{
    // How long such lines take is a row of bench_workbench.
    const qsizetype size = 10'000'000;
    QCOMPARE(tokenize(QString(size, u'x')).words[0].text.size(), size);
    QCOMPARE(tokenize(u'"' + QString(size, u'x') + u'"').words[0].text.size(), size);
    QCOMPARE(tokenize(u"x "_s.repeated(size / 2)).words.size(), size / 2);
    QCOMPARE(tokenize(u"\"\""_s.repeated(size / 2)).words.size(), 1);
    QVERIFY(tokenize(QString(size, u'\'') + u'\'').error);
    QCOMPARE(tokenize(QString(size, u'$')).words[0].text.size(), size);
    QCOMPARE(tokenize(QString(size, QChar(u'\0'))).words[0].text.size(), size);
    QCOMPARE(tokenize(QString(size, QChar(0xd800))).words[0].text.size(), size);
}

void TstTokenize::numbers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<double>("value");

    const auto good = [](const char* text, double value) {
        QTest::addRow("number %s", text) << QString::fromLatin1(text) << true << value;
    };
    const auto bad = [](const char* rule, const QString& text) {
        QTest::addRow("refused: %s", rule) << text << false << 0.0;
    };
    good("1", 1);
    good("-2.5", -2.5);
    good("+2.5", 2.5);
    good("1e-3", 1e-3);
    good("1E+3", 1e3);
    good(".5", 0.5);
    good("5.", 5);
    good("-.5e1", -5);
    good("007", 7);
    good("1e-310", 1e-310);
    good("0e99999", 0);
    good("0.1", 0.1);
    bad("decimal comma", u"1,5"_s);
    bad("group marks", u"1.000.000"_s);
    bad("not a number", u"nan"_s);
    bad("infinity", u"inf"_s);
    bad("signed infinity", u"-Infinity"_s);
    bad("hexadecimal", u"0x10"_s);
    bad("hexadecimal float", u"0x1p3"_s);
    bad("nothing", u""_s);
    bad("sign alone", u"-"_s);
    bad("two signs", u"+-1"_s);
    bad("point alone", u"."_s);
    bad("exponent alone", u"e5"_s);
    bad("exponent without digits", u"1e"_s);
    bad("exponent with sign only", u"1e+"_s);
    bad("fraction in the exponent", u"1e1.5"_s);
    bad("blank in front", u" 1"_s);
    bad("blank behind", u"1 "_s);
    bad("unit behind", u"1mm"_s);
    bad("too large", u"1e999"_s);
    bad("too small", u"1e-999"_s);
    bad("digits of another script", u"\u0661"_s);
    bad("full-width minus", u"\uff0d1"_s);
    bad("typographic minus", u"\u22121"_s);
    bad("NUL inside", u"1"_s + QChar(u'\0') + u"2"_s);
}

void TstTokenize::numbers()
{
    QFETCH(QString, text);
    QFETCH(bool, valid);
    QFETCH(double, value);
    const std::optional<double> result = parse_number(text);
    QCOMPARE(result.has_value(), valid);
    if (valid)
        QVERIFY2(*result == value, qPrintable(QString::number(*result, 'g', 17)));
}

void TstTokenize::integers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<qint64>("value");
    QTest::newRow("digits") << u"42"_s << true << qint64(42);
    QTest::newRow("minus") << u"-42"_s << true << qint64(-42);
    QTest::newRow("plus") << u"+42"_s << true << qint64(42);
    QTest::newRow("largest") << u"9223372036854775807"_s << true << std::numeric_limits<qint64>::max();
    QTest::newRow("smallest") << u"-9223372036854775808"_s << true << std::numeric_limits<qint64>::min();
    QTest::newRow("one too large") << u"9223372036854775808"_s << false << qint64(0);
    QTest::newRow("fraction") << u"1.0"_s << false << qint64(0);
    QTest::newRow("exponent") << u"1e3"_s << false << qint64(0);
    QTest::newRow("nothing") << u""_s << false << qint64(0);
    QTest::newRow("sign alone") << u"+"_s << false << qint64(0);
    QTest::newRow("two signs") << u"+-1"_s << false << qint64(0);
    QTest::newRow("hexadecimal") << u"0x1"_s << false << qint64(0);
}

void TstTokenize::integers()
{
    QFETCH(QString, text);
    QFETCH(bool, valid);
    QFETCH(qint64, value);
    QCOMPARE(parse_integer(text), valid ? std::optional<qint64>(value) : std::nullopt);
}

void TstTokenize::numbers_ignore_the_locale()
{
    struct CommaPoint : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\3"; }
    };
    const QLocale qt_before;
    const std::locale cpp_before;
    const std::string c_before = std::setlocale(LC_ALL, nullptr);
    const auto restore = qScopeGuard([&] {
        QLocale::setDefault(qt_before);
        std::locale::global(cpp_before);
        std::setlocale(LC_ALL, c_before.c_str());
    });

    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(QLocale().toString(1.5), u"1,5"_s);
    std::locale::global(std::locale(cpp_before, new CommaPoint));
    std::ostringstream printed;
    printed << 1.5;
    QCOMPARE(QString::fromStdString(printed.str()), u"1,5"_s);

    QVERIFY(std::setlocale(LC_ALL, "de_DE.UTF-8"));
    QCOMPARE(std::strtod("1,5", nullptr), 1.5);

    QCOMPARE(parse_number(u"1.5"), std::optional<double>(1.5));
    QCOMPARE(parse_number(u"-1e-3"), std::optional<double>(-1e-3));
    QCOMPARE(parse_number(u"1,5"), std::nullopt);
    QCOMPARE(parse_number(u"1.000,5"), std::nullopt);
    QCOMPARE(parse_integer(u"1.000"), std::nullopt);
}

void TstTokenize::numbers_read_back_what_was_printed()
{
    QRandomGenerator random(random_seed());
    for (int round = 0; round < 20000;) {
        const quint64 bits = random.generate64();
        double value = 0;
        static_assert(sizeof bits == sizeof value);
        std::memcpy(&value, &bits, sizeof value);
        if (!std::isfinite(value))
            continue;
        ++round;
        const QString text = QString::number(value, 'g', 17);
        const std::optional<double> read = parse_number(text);
        QVERIFY2(read && *read == value, qPrintable(text));
    }
}

void TstTokenize::variable_names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("valid");
    QTest::newRow("letter") << u"a"_s << true;
    QTest::newRow("underscore first") << u"_a1"_s << true;
    QTest::newRow("digits behind") << u"A9_z"_s << true;
    QTest::newRow("empty") << u""_s << false;
    QTest::newRow("digit first") << u"1a"_s << false;
    QTest::newRow("mark inside") << u"a-b"_s << false;
    QTest::newRow("letter outside ASCII") << u"\u00e4"_s << false;
}

void TstTokenize::variable_names()
{
    QFETCH(QString, name);
    QFETCH(bool, valid);
    QCOMPARE(is_variable_name(name), valid);
}

OSTREL_TEST(TstTokenize)
#include "tst_tokenize.moc"
