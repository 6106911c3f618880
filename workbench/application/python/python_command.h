// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

namespace fennar {

class CommandRegistry;

/** Adds the command "python", which runs a statement as the user's own, to @p registry. */
void register_python_command(CommandRegistry& registry);

} // namespace fennar
