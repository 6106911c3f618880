// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MatrixTest.h"

#include "Stage.h"
#include "acts.h"
#include "frame/Ostrel.h"
#include "support/describe_window.h"

#include <QApplication>
#include <QSet>
#include <QTest>

#include <utility>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(const Flow*)
Q_DECLARE_METATYPE(const Act*)

namespace {

void run(const Flow& flow, Stage& stage)
{
    flow.run(stage);
    QCoreApplication::processEvents();
}

/** With the quotes: folders of recent files have names of random letters. */
QStringList things_of_component(const Ostrel& window)
{
    return describe_window(window).filter(u"\"Own\""_s);
}

} // namespace

QList<TakenWays> take_ways(std::span<const Flow> flows)
{
    QList<TakenWays> taken;
    for (const Flow& flow : flows) {
        Stage stage;
        if (!flow.loads)
            stage.load();
        stage.take_ways();
        run(flow, stage);
        taken << TakenWays{&flow, stage.take_ways()};
    }
    return taken;
}

void MatrixTest::initTestCase()
{
    arm();
    mTaken = take_ways(mFlows);
    disarm();
}

void MatrixTest::every_way_out_bears_every_act_data()
{
    QTest::addColumn<const Flow*>("flow");
    QTest::addColumn<QString>("way");
    QTest::addColumn<const Act*>("act");
    const bool all = qEnvironmentVariableIsSet("OSTREL_TEST_ALL_FLOWS");
    QSet<QString> seen;
    for (const TakenWays& taken : std::as_const(mTaken)) {
        for (const QString& way : taken.ways) {
            // Dialogs have one name in several flows.
            if (seen.contains(way) && !way.contains(" over "_L1) && !all)
                continue;
            seen << way;
            for (const Act& act : all_acts())
                QTest::addRow("%s, %s: %s", taken.flow->name, qPrintable(way), act.name)
                    << taken.flow << way << &act;
        }
    }
}

void MatrixTest::every_way_out_bears_every_act()
{
    QFETCH(const Flow* const, flow);
    QFETCH(const QString, way);
    QFETCH(const Act* const, act);
    Stage stage;
    if (!flow->loads)
        stage.load();
    stage.again = [&] { flow->run(stage); };
    stage.act_at(way, act->act);
    run(*flow, stage);
    stage.again = nullptr;
    QVERIFY(stage.has_acted());
    QCOMPARE(stage.problems(), QStringList());
    // A window that is left can be used as before, and the component leaves nothing in it.
    stage.furnish();
    if (!stage.window())
        return;
    QCOMPARE(stage.window()->graphics_widget(), stage.graphics.data());
    if (QLatin1String(act->name) == "nothing"_L1)
        QVERIFY(!things_of_component(*stage.window()).isEmpty());
    stage.remove_component();
    QCOMPARE(things_of_component(*stage.window()), QStringList());
}
