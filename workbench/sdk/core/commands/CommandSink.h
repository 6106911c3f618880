// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

#include <QString>

#include <functional>

namespace fennar {

/**
 * Sets who receives the command lines that users apply in a command panel; one for all panels. An empty
 * function drops them, which is also the state before the first call.
 *
 * The sink runs inside the click on "Apply" and may do anything, also set another sink or delete the panel.
 */
FENNAR_CORE_EXPORT void set_command_sink(const std::function<void(const QString&)>& sink);

/** Hands @p line to the sink. */
FENNAR_CORE_EXPORT void send_command(const QString& line);

} // namespace fennar
