// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MatrixTest.h"
#include "ways_out.h"

#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

/** The flows of the matrix take every way out of the shell that its sources have. */
class TstWaysOut : public TestCase
{
    Q_OBJECT

private slots:
    void initTestCase();

    void every_way_out_is_taken_data();
    void every_way_out_is_taken();
    void every_place_that_waits_for_the_user_is_known();

private:
    QStringList mTaken;
};

void TstWaysOut::initTestCase()
{
    arm();
    for (const auto& flows :
         {window_flows(), console_flows(), file_flows(), journal_flows(), panel_flows(), field_flows()}) {
        for (const TakenWays& taken : take_ways(flows)) {
            mTaken << taken.ways;
            for (const QString& way : taken.ways)
                mTaken << QString::fromUtf8(taken.flow->name) + u", "_s + way;
        }
    }
    disarm();
}

void TstWaysOut::every_way_out_is_taken_data()
{
    QTest::addColumn<QString>("way");
    for (const QStringList& ways : {signals_of_exported_classes(), signals_of_base_classes(),
                                    virtuals_of_handlers(), host_calls(), waits_for_the_user().values()}) {
        for (const QString& way : ways) {
            QVERIFY(!way.isEmpty());
            QTest::newRow(qPrintable(way)) << way;
        }
    }
}

void TstWaysOut::every_way_out_is_taken()
{
    QFETCH(const QString, way);
    QVERIFY(mTaken.contains(way));
}

/** Where a source of the shell opens a dialog or a menu and waits, the list of ways has one for it. */
void TstWaysOut::every_place_that_waits_for_the_user_is_known()
{
    const QMultiMap<QString, QString> known = waits_for_the_user();
    const QMap<QString, int> places = places_that_wait();
    QCOMPARE(known.uniqueKeys(), places.keys());
    for (auto place = places.begin(); place != places.end(); ++place)
        QVERIFY2(known.count(place.key()) == place.value(), qPrintable(place.key()));
}

OSTREL_TEST(TstWaysOut)
#include "tst_ways_out.moc"
