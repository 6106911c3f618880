// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "files/file_names.h"
#include "support/TestCase.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TstFileNames : public TestCase
{
    Q_OBJECT

private slots:
    void directory_keeps_the_last_separator_data();
    void directory_keeps_the_last_separator();
    void dot_behind_the_last_slash_is_an_extension_data();
    void dot_behind_the_last_slash_is_an_extension();
    void extension_comes_from_the_filter_data();
    void extension_comes_from_the_filter();
};

void TstFileNames::directory_keeps_the_last_separator_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("directory");

    QTest::newRow("slash") << u"/home/ann/plate.mdl"_s << u"/home/ann/"_s;
    QTest::newRow("backslash") << u"C:\\work\\plate.mdl"_s << u"C:\\work\\"_s;
    QTest::newRow("slash before backslash") << u"/home/a\\b.mdl"_s << u"/home/"_s;
    QTest::newRow("backslash before slash") << u"C:\\work/plate.mdl"_s << u"C:\\work/"_s;
    QTest::newRow("file at the root") << u"/plate.mdl"_s << u"/"_s;
    QTest::newRow("backslash first") << u"\\plate.mdl"_s << u"\\"_s;
    QTest::newRow("separator at the end") << u"/home/ann/"_s << u"/home/ann/"_s;
    QTest::newRow("backslash at the end") << u"C:\\"_s << u"C:\\"_s;
    QTest::newRow("doubled slash") << u"/home//plate.mdl"_s << u"/home//"_s;
    QTest::newRow("no separator") << u"plate.mdl"_s << u"plate.mdl"_s;
    QTest::newRow("empty") << u""_s << u""_s;
    QTest::newRow("colon is none") << u"C:plate.mdl"_s << u"C:plate.mdl"_s;
    QTest::newRow("odd characters") << u"/a b;c#d%e&f'g\"h/\u677f\nx.mdl"_s << u"/a b;c#d%e&f'g\"h/"_s;
}

void TstFileNames::directory_keeps_the_last_separator()
{
    QFETCH(QString, file);
    QTEST(directory_of(file), "directory");
}

void TstFileNames::dot_behind_the_last_slash_is_an_extension_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("lacks");

    QTest::newRow("no dot") << u"/home/plate"_s << true;
    QTest::newRow("dot") << u"/home/plate.mdl"_s << false;
    QTest::newRow("dot in the directory") << u"/home/v1.2/plate"_s << true;
    QTest::newRow("dot at the end") << u"/home/plate."_s << false;
    QTest::newRow("dot first") << u"/home/.plate"_s << false;
    QTest::newRow("dot before a backslash") << u"C:\\v1.2\\plate"_s << false;
    QTest::newRow("no directory") << u"plate"_s << true;
    QTest::newRow("empty") << u""_s << true;
    QTest::newRow("wide dot is none") << u"/home/plate\u3002mdl"_s << true;
}

void TstFileNames::dot_behind_the_last_slash_is_an_extension()
{
    QFETCH(QString, file);
    QTEST(lacks_extension(file), "lacks");
}

void TstFileNames::extension_comes_from_the_filter_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("as_list"); // what it gives as a list of filters
    QTest::addColumn<QString>("as_one");  // what it gives as the selected filter

    const auto same = [](const char* row, const QString& filter, const QString& extension) {
        QTest::newRow(row) << filter << extension << extension;
    };
    const auto different = [](const char* row, const QString& filter, const QString& as_list,
                              const QString& as_one) { QTest::newRow(row) << filter << as_list << as_one; };

    same("one pattern", u"Models (*.mdl)"_s, u".mdl"_s);
    same("two patterns", u"Data (*.dat *.txt)"_s, u".dat"_s);
    same("upper case", u"Models (*.MDL)"_s, u".MDL"_s);
    same("non-Latin letters", u"\u041c\u043e\u0434\u0435\u043b\u044c (*.\u043c\u043e\u0434)"_s,
         u".\u043c\u043e\u0434"_s);
    same("two dots", u"Archives (*.tar.gz)"_s, u".tar.gz"_s);
    same("wildcard at the end", u"Results (*.e*)"_s, u".e"_s);
    same("wildcard inside", u"Parts (*.p*rt)"_s, u".p"_s);
    same("all files", u"All Files (*)"_s, u""_s);
    same("all files with a dot", u"All Files (*.*)"_s, u"."_s);
    same("two wildcards", u"Odd (**)"_s, u"*"_s);
    same("wildcard last", u"Cases (case.*)"_s, u"ase."_s);
    same("question mark", u"Steps (*.s?)"_s, u".s?"_s);
    same("empty", u""_s, u""_s);
    same("no parentheses, one pattern", u"*.mdl"_s, u".mdl"_s);
    same("no parentheses, two patterns", u"*.a *.b"_s, u".a"_s);
    same("no parentheses, no pattern", u"Plain text"_s, u"lain"_s);
    same("one letter", u"x"_s, u""_s);
    same("parentheses twice", u"Mesh (2D) (*.msh)"_s, u"D)"_s);
    same("empty parentheses", u"Nothing ()"_s, u""_s);
    same("opened and not closed", u"Models (*.a *.b"_s, u".a"_s);
    same("opened at the end", u"Models ("_s, u""_s);
    same("closed and not opened", u"Models *.a)"_s, u"odels"_s);
    same("closed twice", u"Models (*.a))"_s, u".a)"_s);
    same("no name", u"(*.a)"_s, u".a"_s);
    same("blank first", u"Models ( *.a)"_s, u""_s);
    same("blank last", u"Models (*.a )"_s, u".a"_s);
    same("blank behind the parentheses", u"Models (*.a) "_s, u".a)"_s);
    same("tab is no blank", u"Models (*.a\t*.b)"_s, u".a\t"_s);
    same("semicolon before the parentheses", u"A;B (*.a)"_s, u".a"_s);

    different("two filters", u"Models (*.mdl);;All Files (*.*)"_s, u".mdl"_s, u".mdl)"_s);
    different("two patterns and another filter", u"Data (*.dat *.txt);;All Files (*)"_s, u".dat "_s,
              u".dat "_s);
    different("wildcard and another filter", u"Results (*.e*);;Text (*.txt)"_s, u".e"_s, u".e"_s);
    different("all files first", u"All Files (*);;Models (*.mdl)"_s, u""_s, u")"_s);
    different("all files with a dot first", u"All Files (*.*);;Models (*.mdl)"_s, u"."_s, u"."_s);
    different("patterns parted by a semicolon", u"Models (*.a;*.b)"_s, u".a;"_s, u".a"_s);
    different("patterns parted by a semicolon, another filter", u"Models (*.a;*.b);;Text (*.txt)"_s, u".a;"_s,
              u".a"_s);
    different("parentheses twice and another filter", u"Mesh (2D) (*.msh);;All Files (*.*)"_s, u"D) ("_s,
              u"D) ("_s);
    different("separator at the end", u"Models (*.a);;"_s, u".a"_s, u".a)"_s);
    different("one semicolon", u"Models (*.a);Text (*.txt)"_s, u".a"_s, u".a)"_s);
    different("separator alone", u";;"_s, u";"_s, u""_s);
    different("semicolon, no parentheses", u"A;B"_s, u";B"_s, u""_s);
    different("semicolon, no parentheses, patterns", u"*.a;*.b"_s, u".a;"_s, u".a"_s);
    different("blank before a semicolon", u"Models (*.a ;*.b)"_s, u".a ;"_s, u".a "_s);
}

void TstFileNames::extension_comes_from_the_filter()
{
    QFETCH(QString, filter);
    QTEST(extension_of_filters(filter), "as_list");
    QTEST(extension_of_filter(filter), "as_one");
}

OSTREL_TEST(TstFileNames)
#include "tst_file_names.moc"
