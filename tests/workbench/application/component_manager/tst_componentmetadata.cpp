// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/application/component_manager/ComponentMetadata.h"

#include <QTest>

using namespace fennar;
using namespace Qt::StringLiterals;

class TstComponentMetadata : public TestCase
{
    Q_OBJECT

private slots:
    void kit_is_good_for_what_was_made_with_an_older_one_of_its_kind_data();
    void kit_is_good_for_what_was_made_with_an_older_one_of_its_kind();
};

void TstComponentMetadata::kit_is_good_for_what_was_made_with_an_older_one_of_its_kind_data()
{
    QTest::addColumn<QString>("present");
    QTest::addColumn<QString>("made_with");
    QTest::addColumn<bool>("good");
    QTest::newRow("the same") << u"0.2.0"_s << u"0.2.0"_s << true;
    QTest::newRow("corrected") << u"0.2.0"_s << u"0.2.9"_s << true;
    QTest::newRow("before version 1, older") << u"0.2.0"_s << u"0.1.0"_s << false;
    QTest::newRow("before version 1, newer") << u"0.2.0"_s << u"0.3.0"_s << false;
    QTest::newRow("before version 1, for 1") << u"1.2.0"_s << u"0.2.0"_s << false;
    QTest::newRow("older") << u"1.2.0"_s << u"1.1.5"_s << true;
    QTest::newRow("newer") << u"1.2.0"_s << u"1.3.0"_s << false;
    QTest::newRow("another") << u"2.2.0"_s << u"1.2.0"_s << false;
    QTest::newRow("none") << u"0.2.0"_s << QString() << false;
    QTest::newRow("half of one") << u"0.2.0"_s << u"0"_s << false;
    QTest::newRow("none at all") << QString() << QString() << false;
}

void TstComponentMetadata::kit_is_good_for_what_was_made_with_an_older_one_of_its_kind()
{
    QFETCH(const QString, present);
    QFETCH(const QString, made_with);
    QTEST(ComponentMetadata::is_kit_good_for(present, made_with), "good");
}

OSTREL_TEST(TstComponentMetadata)
#include "tst_componentmetadata.moc"
