// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The part of GeometryModel that needs no engine.

#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

namespace fennar::geometry {

bool GeometryModel::is_name(const QString& text)
{
    return CommandRegistry::is_name(text);
}

} // namespace fennar::geometry
