// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/random_seed.h"

#include <QRandomGenerator>
#include <QString>

quint32 random_seed()
{
    bool given = false;
    auto seed = qEnvironmentVariable("OSTREL_TEST_SEED").toUInt(&given);
    if (!given)
        seed = QRandomGenerator::global()->generate();
    qInfo("OSTREL_TEST_SEED=%u", seed);
    return seed;
}
