// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component that takes as long to load as nobody opens the pipe that the environment names.

#include "workbench/sdk/component/component.h"

#include <QFile>

namespace {

void load()
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

void unload() {}

constexpr FennarComponent component{
    FENNAR_COMPONENT_INTERFACE, FENNAR_WORKBENCH_VERSION, "slow", "1", &load, &unload};

} // namespace

FENNAR_EXPORT_COMPONENT(component)
