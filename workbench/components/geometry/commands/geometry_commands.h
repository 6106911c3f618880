// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QDir>
#include <QString>

#include <functional>

namespace fennar {
class CommandRegistry;
struct ApplicationServices;
} // namespace fennar

namespace fennar::geometry {

class GeometryModel;

/** What the commands work with. */
struct CommandContext
{
    /** Outlives the commands, and so do the services. */
    GeometryModel& model;
    const ApplicationServices& services;
    /** The folder of the programs with the engine. */
    QDir programs;
    /** Is told how an import has ended; may be null. The file's path is absolute. */
    std::function<void(const QString& file, bool done)> imported = {};
};

/**
 * Adds the commands that make, change and mesh solids, and "import" and "export".
 *
 * @return false, with none added, if a name is taken.
 */
bool register_geometry_commands(CommandRegistry& registry, const QString& owner,
                                const CommandContext& context);

/** What the commands "new", "open" and "save" do; each may throw a GeometryError. */
struct DocumentActions
{
    /** With whether unsaved changes are dropped without a question. */
    std::function<void(bool discard)> start_new;
    /** With the whole path of a file that exists. */
    std::function<void(const QString& file)> open;
    /** With the whole path of a file, or empty for the document's own. */
    std::function<void(const QString& file)> save;
};

/** Adds these commands. Returns false, with none added, if a name is taken. */
bool register_document_commands(CommandRegistry& registry, const QString& owner,
                                const DocumentActions& actions);

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
