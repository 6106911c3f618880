// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

namespace fennar {

// What is kept of components from one start to the next.

/** The directories that are searched, joined with ";". The environment's stand above those in the settings.
 */
QString component_path();
/** Sets them where component_path() takes them from. */
void set_component_path(const QString& path);
/** Where components lie beside the program: installed, or in the tree it was built in. */
QString default_component_directory();
/** Sets the program's folder, for a process that another executable has started. */
void set_program_directory(const QString& directory);

/** Whether the user has switched a component off, by its name. */
bool is_component_off(const QString& name);
/** Keeps that, or forgets it. */
void set_component_off(const QString& name, bool off);

/** Whether the program has gone down while a component was loaded, by its whole path. */
bool has_component_crashed(const QString& file);
/** Keeps that, or forgets it. */
void set_component_crashed(const QString& file, bool crashed);

} // namespace fennar
