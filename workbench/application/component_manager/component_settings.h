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

/** A list of texts in the settings. */
struct KeptList
{
    const char* key;

    bool contains(const QString& text) const;
    void set(const QString& text, bool contained) const;
};

/** The components that the user has switched off, by their names. */
inline constexpr KeptList components_off{"/fennar/components/off"};
/** Those with which the program has gone down while they were loaded, by their whole paths. */
inline constexpr KeptList components_crashed{"/fennar/components/crashed"};

} // namespace fennar
