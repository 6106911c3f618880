// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QLatin1StringView>
#include <QString>

/**
 * All keys under which the shell keeps something in QSettings, from the top. docs/settings.md tells what each
 * holds, and who reads and writes it.
 */
namespace settings_keys {

// The main window.
inline constexpr QLatin1StringView geometry("geometry");
inline constexpr QLatin1StringView x("/ostrelgui/ostrel/x");
inline constexpr QLatin1StringView y("/ostrelgui/ostrel/y");
inline constexpr QLatin1StringView width("/ostrelgui/ostrel/width");
inline constexpr QLatin1StringView height("/ostrelgui/ostrel/height");
inline constexpr QLatin1StringView saved_state("/ostrelgui/ostrel/saved_state");

// Files.
inline constexpr QLatin1StringView save_prompt("/ostrelgui/ostrel/saveprompt");
inline constexpr QLatin1StringView restore_working_directory("/ostrelgui/ostrel/restoreWorkingDir");
inline constexpr QLatin1StringView working_directory("/ostrelgui/ostrel/workingdir");
inline constexpr QLatin1StringView component_path("/ostrelgui/ostrel/comppath");
/** With a number behind it, see numbered(). */
inline constexpr QLatin1StringView recent_file("/ostrelgui/ostrel/file");
/** With a number behind it, see numbered(). */
inline constexpr QLatin1StringView recent_import("/ostrelgui/ostrel/import");
// These two hold filters, despite their names, which stored settings have.
inline constexpr QLatin1StringView import_filter("/ostrelgui/ostrel/importdir");
inline constexpr QLatin1StringView export_filter("/ostrelgui/ostrel/exportdir");

// The start.
inline constexpr QLatin1StringView splash("/ostrelgui/ostrel/splash");
inline constexpr QLatin1StringView use_python_paths("/ostrelgui/ostrel/usepythonpaths");
inline constexpr QLatin1StringView python_paths("/ostrelgui/ostrel/pythonpaths");

// The console.
inline constexpr QLatin1StringView font_family("/ostrelgui/command/fontfamily");
inline constexpr QLatin1StringView font_size("/ostrelgui/command/fontsize");
inline constexpr QLatin1StringView use_trim("/ostrelgui/command/usetrim");
inline constexpr QLatin1StringView trim_limit("/ostrelgui/command/trimlimit");
inline constexpr QLatin1StringView history_limit("/ostrelgui/command/historylimit");

// The journal editor.
inline constexpr QLatin1StringView journal_x("/ostrelgui/journal/x");
inline constexpr QLatin1StringView journal_y("/ostrelgui/journal/y");
inline constexpr QLatin1StringView journal_width("/ostrelgui/journal/width");
inline constexpr QLatin1StringView journal_height("/ostrelgui/journal/height");
inline constexpr QLatin1StringView journal_prompt("/ostrelgui/journal/unsavedjournalprompt");
/** With a number behind it, see numbered(). */
inline constexpr QLatin1StringView recent_journal("/ostrelgui/journal/file");

// Panels and docks.
inline constexpr QLatin1StringView breadcrumbs("/fennargui/commandpanel/breadcrumbs");
inline constexpr QLatin1StringView classic_navigation("/fennargui/commandpanel/classicnavigation");
inline constexpr QLatin1StringView tab_position("/fennargui/tabposition");

/** The key of an entry of a recent list; the newest has the number 1. */
inline QString numbered(QLatin1StringView key, int number)
{
    return QString(key) + QString::number(number);
}

} // namespace settings_keys
