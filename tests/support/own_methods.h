// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QStringList>

struct QMetaObject;

/** The signals, slots and other methods that a class adds to its base, in order, as "slot hide(int)". */
QStringList own_methods(const QMetaObject& meta);
