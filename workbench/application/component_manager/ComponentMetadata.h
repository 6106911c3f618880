// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>
#include <QStringList>

namespace fennar {

/** What the file of a component tells of it before any of its code runs. */
struct ComponentMetadata
{
    /** Looks into @p file; nothing of it is run. */
    static ComponentMetadata read(const QString& file);
    /**
     * Whether a program with one version of the component kit can load what was made with another. Both are
     * semantic versions (semver.org): before version 1 anything may change with the second number. False if
     * one is no version.
     */
    static bool is_kit_good_for(const QString& present, const QString& made_with);

    /** Why the file cannot be loaded by this program; empty if it can. The other fields may be empty then. */
    QString fault;
    /** A lower-case letter, then lower-case letters, digits, "_" and "-"; empty if the file gives none that a
     * component may have. */
    QString name;
    /** The component's own, for people to read. */
    QString version;
    /** The components that it needs. */
    QStringList needs;
    /** The commands that it adds. */
    QStringList commands;
};

} // namespace fennar
