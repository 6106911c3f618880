// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component that takes as long to load as nobody opens the pipe that the environment names.

#include "workbench/sdk/component/ComponentContext.h"

#include <QFile>

using namespace fennar;

void fennar::load_component(ComponentContext&)
{
    const QString gate = qEnvironmentVariable("TEST_COMPONENT_GATE");
    if (gate.isEmpty())
        return;
    QFile reached(gate + QStringLiteral(".reached"));
    if (!reached.open(QIODevice::WriteOnly))
        qFatal("the test cannot be told");
    reached.close();
    QFile pipe(gate);
    if (!pipe.open(QIODevice::ReadOnly))
        qFatal("the pipe cannot be opened");
}
