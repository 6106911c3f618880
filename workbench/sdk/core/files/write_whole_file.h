// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

#include <QByteArrayList>
#include <QString>

namespace fennar {

/**
 * Writes @p parts, one behind the other, as the new content of @p path: all of it or nothing.
 *
 * A file with another name is written beside it, is brought to the disk, and then takes its place. The file's
 * permissions stay, and a symbolic link stays one: the file that it leads to is replaced. A file that may not
 * be written to is not replaced. What is no file, as a device, is written to directly.
 * Any thread.
 *
 * @return why it failed, in the system's words; empty if the new content is on the disk. After a failure what
 * was at @p path is as it was, unless it is a device.
 */
[[nodiscard]] FENNAR_CORE_EXPORT QString write_whole_file(const QString& path, const QByteArrayList& parts);

} // namespace fennar
