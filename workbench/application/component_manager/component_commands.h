// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QLatin1StringView>

namespace fennar {

class CommandRegistry;
class ComponentManager;

/** The kinds of entities that components are. */
inline constexpr QLatin1StringView loaded_component("loaded component");
inline constexpr QLatin1StringView other_component("unloaded component");

/** Adds load, unload and components to @p registry, with the owner "workbench". The manager outlives them. */
void register_component_commands(CommandRegistry& registry, ComponentManager& manager);

} // namespace fennar
