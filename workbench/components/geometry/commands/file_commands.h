// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

#include <functional>

namespace fennar {
class CommandRegistry;
struct ApplicationServices;
} // namespace fennar

namespace fennar::geometry {

class FileExchange;
class GeometryModel;

/** Is told how an import has ended. @p file is absolute. */
using ImportListener = std::function<void(const QString& file, bool done)>;

/**
 * Adds the commands "import" and "export".
 *
 * @param model     outlives the commands, and so do @p services and @p exchange.
 * @param imported  may be null.
 * @return false, with none added, if a name is taken.
 */
bool register_file_commands(CommandRegistry& registry, const QString& owner, GeometryModel& model,
                            FileExchange& exchange, const ApplicationServices& services,
                            const ImportListener& imported = {});

/** The command that imports @p file as FORMAT. The format is named only where the file's ending does not tell
 * it. */
QString import_command(const QString& file, const QString& format);
/** The same for an export of everything. */
QString export_command(const QString& file, const QString& format);

/**
 * As import_command(), but in the form that the list of recent imports needs: what stands between the first
 * two quotes is the name of the file. For the few names that no quotes can hold as they are, it is the name
 * of a folder above the file.
 */
QString recent_import_command(const QString& file, const QString& format);

} // namespace fennar::geometry
