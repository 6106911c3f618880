// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QtGlobal>

/**
 * The seed for what a test does at random: another one each time, unless the environment variable
 * OSTREL_TEST_SEED has a number, which repeats a run. The seed is printed, so that it is known.
 */
quint32 random_seed();
