// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <functional>

class CommandCall;
class GeometryModel;

/** Does the work of a command on the model: what it changes is a step that can be undone, and failures of the
 * model become those of the command. */
void run_model_command(CommandCall& call, GeometryModel& model, const std::function<void()>& work);
