// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandError.h"

namespace fennar::geometry {

/** Why an operation on the model or a mesh has failed, in one line. Nothing has changed. */
class GeometryError : public CommandError
{
    using CommandError::CommandError;
};

} // namespace fennar::geometry
