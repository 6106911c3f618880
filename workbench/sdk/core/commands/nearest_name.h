// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

#include <QString>
#include <QStringList>

namespace fennar {

/**
 * The name of @p names that @p typed most likely was meant to be; empty if none is near.
 *
 * Counted are letters put in, left out, changed, or swapped with their neighbour. A third of the letters of
 * the typed word may be wrong, and always one. Of equally near names the first wins.
 */
FENNAR_CORE_EXPORT QString nearest_name(const QString& typed, const QStringList& names);

} // namespace fennar
