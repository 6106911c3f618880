// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/application/search/SearchModel.h"

#include <QAbstractItemModelTester>
#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

/** What the command search finds, and in which order. */
class TstSearchModel : public TestCase
{
    Q_OBJECT

private slots:
    void words_are_found_data();
    void words_are_found();
    void best_hits_come_first_data();
    void best_hits_come_first();
    void used_entries_come_first_among_equals();
    void entries_that_can_run_come_first_among_equals();
    void used_entries_come_first_without_words();
    void columns_hold_text_place_and_key();
    void refused_entry_says_so();
    void entries_are_found_again_by_name();
    void words_stay_when_entries_change();

private:
    static QList<SearchEntry> entries(const QStringList& texts)
    {
        QList<SearchEntry> entries;
        for (const QString& text : texts)
            entries << SearchEntry{.text = text, .run = [] {}};
        return entries;
    }
    static QStringList texts(const SearchModel& model)
    {
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts << model.entry(row).text;
        return texts;
    }
};

void TstSearchModel::words_are_found_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<bool>("found");
    const auto row = [](const char* name, const QString& words, bool found) {
        QTest::newRow(name) << words << found;
    };
    row("nothing typed", {}, true);
    row("blanks", u"  "_s, true);
    row("whole text", u"Save Journal As"_s, true);
    row("other case", u"sAVE"_s, true);
    row("part of a word", u"ourn"_s, true);
    row("words in another order", u"as journal"_s, true);
    row("parts in another order, with blanks", u"  journ \t sav "_s, true);
    row("word of the place", u"file"_s, true);
    row("word of the tip", u"disk"_s, true);
    row("further word", u"write"_s, true);
    row("key", u"ctrl+s"_s, true);
    row("words of text and place", u"file save"_s, true);
    row("folded letters", u"ÄNDERUNG"_s, true);
    row("one word missing", u"save model"_s, false);
    row("letters apart", u"sve"_s, false);
}

void TstSearchModel::words_are_found()
{
    QFETCH(const QString, words);
    QFETCH(const bool, found);
    SearchModel model;
    model.set_entries({{.text = u"Save Journal As"_s,
                        .place = u"File > Änderungen"_s,
                        .key = u"Ctrl+S"_s,
                        .tip = u"Puts it on the disk."_s,
                        .words = u"write"_s,
                        .run = [] {}}});
    model.set_query(words);
    QCOMPARE(model.rowCount(), found ? 1 : 0);
}

void TstSearchModel::best_hits_come_first_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QStringList>("given");
    QTest::addColumn<QStringList>("shown");
    const auto row = [](const char* name, const QString& words, const QStringList& given,
                        const QStringList& shown) { QTest::newRow(name) << words << given << shown; };
    row("without words as given", {}, {u"b"_s, u"aa"_s, u"a"_s}, {u"b"_s, u"aa"_s, u"a"_s});
    row("start of the text, start of a word, middle", u"part"_s, {u"depart"_s, u"A Part"_s, u"Particular"_s},
        {u"Particular"_s, u"A Part"_s, u"depart"_s});
    row("a sign begins a word", u"part"_s, {u"depart"_s, u"(part)"_s}, {u"(part)"_s, u"depart"_s});
    row("the best place of a word counts", u"part"_s, {u"a part of"_s, u"apart part"_s},
        {u"a part of"_s, u"apart part"_s});
    row("short before long", u"save"_s, {u"Save All"_s, u"Save"_s, u"Save As"_s},
        {u"Save"_s, u"Save As"_s, u"Save All"_s});
    row("equals as given", u"o"_s, {u"ob"_s, u"oa"_s}, {u"ob"_s, u"oa"_s});
}

void TstSearchModel::best_hits_come_first()
{
    QFETCH(const QString, words);
    QFETCH(const QStringList, given);
    QFETCH(const QStringList, shown);
    SearchModel model;
    model.set_entries(entries(given));
    model.set_query(words);
    QCOMPARE(texts(model), shown);

    // What is found elsewhere comes last, however short its text.
    if (words.isEmpty())
        return;
    QList<SearchEntry> more = entries(given);
    more.prepend({.text = u"-"_s, .place = words, .run = [] {}});
    model.set_entries(more);
    QCOMPARE(texts(model), shown + QStringList(u"-"_s));
}

void TstSearchModel::used_entries_come_first_among_equals()
{
    SearchModel model;
    const QStringList given = {u"oa"_s, u"ob"_s, u"oc"_s, u"o"_s};
    model.set_entries(entries(given));
    model.set_query(u"o"_s);
    model.set_recent({u" > oc"_s, u" > ob"_s, u" > gone"_s});
    QCOMPARE(texts(model), QStringList({u"o"_s, u"oc"_s, u"ob"_s, u"oa"_s}));
    // What was used is known also of entries that come later.
    model.set_entries(entries({u"ob"_s, u"od"_s, u"oc"_s}));
    QCOMPARE(texts(model), QStringList({u"oc"_s, u"ob"_s, u"od"_s}));
}

void TstSearchModel::entries_that_can_run_come_first_among_equals()
{
    QList<SearchEntry> given = entries({u"oa"_s, u"ob"_s, u"oc"_s, u"o"_s});
    given[0].refusal = given[3].refusal = u"No."_s;
    SearchModel model;
    model.set_entries(given);
    model.set_recent({u" > oa"_s});
    model.set_query(u"o"_s);
    QCOMPARE(texts(model), QStringList({u"o"_s, u"ob"_s, u"oc"_s, u"oa"_s}));
}

void TstSearchModel::used_entries_come_first_without_words()
{
    SearchModel model;
    model.set_recent({u" > three"_s, u" > two"_s});
    model.set_entries(entries({u"1"_s, u"two"_s, u"three"_s, u"4"_s}));
    QCOMPARE(texts(model), QStringList({u"three"_s, u"two"_s, u"1"_s, u"4"_s}));
}

void TstSearchModel::columns_hold_text_place_and_key()
{
    SearchModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.set_entries(
        {{.text = u"Save"_s, .place = u"File"_s, .key = u"Ctrl+S"_s, .tip = u"Writes."_s, .run = [] {}}});
    const auto data = [&](int column, int role) { return model.index(0, column).data(role); };
    QCOMPARE(data(SearchModel::TextColumn, Qt::DisplayRole), u"Save"_s);
    QCOMPARE(data(SearchModel::PlaceColumn, Qt::DisplayRole), u"File"_s);
    QCOMPARE(data(SearchModel::KeyColumn, Qt::DisplayRole), u"Ctrl+S"_s);
    QCOMPARE(data(SearchModel::TextColumn, Qt::AccessibleTextRole), u"Save, File, Ctrl+S"_s);
    QCOMPARE(data(SearchModel::TextColumn, Qt::AccessibleDescriptionRole), u"Writes."_s);
    QCOMPARE(data(SearchModel::TextColumn, SearchModel::EnabledRole), true);
}

void TstSearchModel::refused_entry_says_so()
{
    SearchModel model;
    model.set_entries({{.text = u"Save"_s, .tip = u"Writes."_s, .refusal = u"No."_s, .run = [] {}}});
    const QModelIndex index = model.index(0, SearchModel::TextColumn);
    QCOMPARE(index.data(SearchModel::EnabledRole), false);
    QCOMPARE(index.data(Qt::AccessibleDescriptionRole), u"No."_s);
    // It can be chosen, to be read.
    QVERIFY(index.flags().testFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable));
}

void TstSearchModel::entries_are_found_again_by_name()
{
    SearchModel model;
    model.set_entries({{.text = u"New"_s, .place = u"File"_s, .run = [] {}},
                       {.text = u"New"_s, .place = u"Edit"_s, .run = [] {}}});
    QCOMPARE(model.row_of(search_id(model.entry(1))), 1);
    QCOMPARE(model.row_of(u"File > Old"_s), -1);
    model.set_query(u"edit"_s);
    QCOMPARE(model.row_of(u"Edit > New"_s), 0);
    QCOMPARE(model.row_of(u"File > New"_s), -1);
}

void TstSearchModel::words_stay_when_entries_change()
{
    SearchModel model;
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.set_query(u"a"_s);
    QCOMPARE(model.rowCount(), 0);
    model.set_entries(entries({u"a"_s, u"b"_s}));
    QCOMPARE(texts(model), QStringList(u"a"_s));
    model.set_entries({});
    QCOMPARE(model.rowCount(), 0);
}

OSTREL_TEST(TstSearchModel)
#include "tst_searchmodel.moc"
