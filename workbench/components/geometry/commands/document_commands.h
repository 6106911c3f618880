// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

#include <functional>

namespace fennar {
class CommandRegistry;
}

namespace fennar::geometry {

class GeometryModel;

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

/**
 * Adds the commands.
 *
 * @param model  outlives the commands.
 * @return false, with none added, if a name is taken.
 */
bool register_document_commands(CommandRegistry& registry, const QString& owner,
                                const DocumentActions& actions);

} // namespace fennar::geometry
