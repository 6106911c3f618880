// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/Translations.h"
#include "workbench/application/search/SearchTest.h"

#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

/** The command search of a user who reads German. */
class TstSearchLanguage : public SearchTest
{
    Q_OBJECT

protected:
    void prepare(Workbench& workbench) override
    {
        SearchTest::prepare(workbench);
        mTranslations = std::make_unique<Translations>(QStringList(u"de"_s));
        QCOMPARE(mTranslations->language(), u"de"_s);
    }
    void after_workbench() override { mTranslations.reset(); }

private slots:
    void entries_are_found_by_german_words_data();
    void entries_are_found_by_german_words();

private:
    std::unique_ptr<Translations> mTranslations;
};

void TstSearchLanguage::entries_are_found_by_german_words_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("row");
    QTest::newRow("menu entry") << u"speichern"_s << u"-Speichern|Datei|Strg+S"_s;
    QTest::newRow("menu entry by its place") << u"datei beend"_s << u"Beenden|Datei|"_s;
    QTest::newRow("command by its title") << u"verlauf"_s << u"Verlauf|Befehl history|"_s;
    QTest::newRow("command by its name") << u"history"_s << u"Verlauf|Befehl history|"_s;
    QTest::newRow("page of the options") << u"optionen allg"_s << u"Allgemein|Optionen|"_s;
}

void TstSearchLanguage::entries_are_found_by_german_words()
{
    QFETCH(const QString, words);
    QFETCH(const QString, row);
    look_for(words);
    QVERIFY2(rows().contains(row), qPrintable(row + u" is not among\n"_s + rows().join(u'\n')));
}

OSTREL_TEST(TstSearchLanguage)
#include "tst_searchlanguage.moc"
