// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QRect>
#include <QString>

#include <optional>

namespace fennar {

/** Whether all of @p path, which must exist, can be read as settings; true if that cannot be found out. */
bool are_readable_settings(const QString& path);

/**
 * Moves the settings file @p path aside, and begins a new one with what can be read of it.
 *
 * @return what was done, as a line for the user; nothing if the file could not be moved, and is as it was.
 */
std::optional<QString> keep_unreadable_settings(const QString& path);

/**
 * Moves the user's own settings file aside if it cannot be read, before the first write would put another one
 * in its place. What can be read of it is taken over.
 *
 * To be called before anything else asks for settings, and not with a SettingsFile, which looks for itself.
 *
 * @return what was done, as a line for the user; empty if there is nothing to tell.
 */
QString keep_unreadable_settings();

/**
 * What to tell the user if settings cannot be written, as a line; empty if they can. At the end of the
 * program, when they are written, there is no console any more.
 */
QString tell_unwritable_settings();

/**
 * Takes back settings with which the windows could not be used: sizes without an area, places off the screen,
 * a font that leaves no room for text.
 *
 * @param screens  where windows can be seen.
 */
void bound_settings(const QRect& screens);

} // namespace fennar
