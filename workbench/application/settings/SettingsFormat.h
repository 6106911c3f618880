// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QByteArray>
#include <QSettings>

namespace fennar {

/**
 * The format of settings files: files ending in ".conf" as Qt's own formats on Linux, where they are read and
 * written in the same way. But a write that fails leaves the old file: some versions of Qt do not notice if
 * the disk is full, and put a file that is cut in its place.
 *
 * To be made the default format by the main function. Registered with the first call.
 */
QSettings::Format settings_format();

/** @p settings as the text of a file in the INI format of QSettings. */
QByteArray ini_text(const QSettings::SettingsMap& settings);

} // namespace fennar
