// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

namespace fennar {

/**
 * Tells the navigation library that the component @p name is loaded, or that it no longer is.
 *
 * Called by whoever loads components, before the framework's trackers hear of it. Entries that wait for the
 * component follow at the next NavigationResourcesDelay::recheckResources(). Names are compared exactly; an
 * empty name is ignored.
 */
void set_component_loaded(const QString& name, bool loaded);

/** Whether set_component_loaded() last said that @p name is loaded; false for a name never told. */
bool is_component_loaded(const QString& name);

} // namespace fennar
