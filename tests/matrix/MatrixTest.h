// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "flows.h"
#include "support/TestCase.h"

#include <QStringList>

#include <span>

/** The ways that a flow takes when nobody acts. */
struct TakenWays
{
    const Flow* flow;
    QStringList ways;
};

/** Runs each flow on a stage of its own. */
QList<TakenWays> take_ways(std::span<const Flow> flows);

/**
 * Every way that some flows take out of the shell, and on each every act.
 *
 * Of the flows that take a way, the first stands for all, unless the environment has OSTREL_TEST_ALL_FLOWS.
 */
class MatrixTest : public TestCase
{
    Q_OBJECT

protected:
    explicit MatrixTest(std::span<const Flow> flows) : mFlows(flows) {}

private slots:
    void initTestCase();

    void every_way_out_bears_every_act_data();
    void every_way_out_bears_every_act();

private:
    std::span<const Flow> mFlows;
    QList<TakenWays> mTaken;
};
