// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

#include <QList>
#include <QString>

namespace fennar {

class CommandRegistry;

/** A part of a line, and what it is, for those who color it. */
struct LineMark
{
    /** What a part can be. */
    enum class Kind {
        /** The name of a command, or what stands for a call in another language. */
        Command,
        /** A word that the language gives a meaning, choices among them. */
        Keyword,
        Number,
        /** In quotes, or the name of a file. */
        String,
        /** The name of an entity, given or used. */
        Name,
        Variable,
        Comment,
    };

    Kind kind = Kind::Comment;
    /** An index into the line. */
    qsizetype start = 0;
    qsizetype length = 0;

    /** Whether kind and place are the same. */
    bool operator==(const LineMark&) const = default;
};

/**
 * What the parts of a command are, by its declaration: of its forms the one that fits for longest, read as
 * far as it fits.
 *
 * Words that the declaration does not tell about, as those of a command that does not exist, are marked only
 * if they are numbers or in quotes. Nothing is looked up but the command: names are marked where they
 * belong, whether something has them or not. Behind an escape that does not exist nothing is marked.
 *
 * @param line  one whole command, or the beginning of one, continued lines joined.
 * @return in the order of the line, except that variables come last: they may lie within other parts.
 */
FENNAR_CORE_EXPORT QList<LineMark> mark_command(const QString& line, const CommandRegistry& registry);

} // namespace fennar
