// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

#include <QString>

#include <functional>

namespace fennar {

/** Tells how a command that is not there can be had, as the end of a sentence; empty if nobody brings it. */
using AbsentCommandHint = std::function<QString(const QString& name)>;

/** Sets who tells that; one for the whole process, null for nobody, which is also the state before the first
 * call. GUI thread only. */
FENNAR_CORE_EXPORT void set_absent_command_hint(const AbsentCommandHint& hint);

/** What is told of the command @p name; empty if nobody tells anything. */
FENNAR_CORE_EXPORT QString absent_command_hint(const QString& name);

} // namespace fennar
