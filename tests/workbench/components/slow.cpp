// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A component that takes as long to load as a file exists that the environment names.

#include "workbench/components/component.h"

#include <QFile>

#include <chrono>
#include <thread>

using namespace std::chrono_literals;

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
    while (QFile::exists(gate))
        std::this_thread::sleep_for(5ms);
}

void unload() {}

constexpr FennarComponent component{
    FENNAR_COMPONENT_INTERFACE, FENNAR_WORKBENCH_VERSION, "slow", "1", &load, &unload};

} // namespace

FENNAR_EXPORT_COMPONENT(component)
