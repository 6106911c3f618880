// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/application/component_manager/ComponentManager.h"

#include <QString>

namespace fennar {

/** What the plugin tool tells of a component beside its name and version, loaded or not: lines in the user's
 * language. */
QString component_tool_tip(const ComponentManager::Component& component);

} // namespace fennar
