// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

class CommandRegistry;
class ComponentManager;

/** Adds load, unload and components to @p registry, with the owner "workbench". The manager outlives them. */
void register_component_commands(CommandRegistry& registry, ComponentManager& manager);
