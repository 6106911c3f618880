// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/files/TemporaryFolder.h"

#include <QString>

namespace fennar {

/**
 * Makes one file, chosen by the user, the place of all settings of the program instead of the user's own.
 *
 * All default-constructed QSettings that are made while the object lives read and write that file: those of
 * the shell, the workbench and the components. The object is made before the first of them, with the names of
 * organization and application set, and outlives the last. One object at a time, on the GUI thread.
 *
 * Nothing else of the user's settings is read. What Qt remembers for itself, as the places in its file
 * dialogs, stays where Qt keeps it.
 *
 * QSettings takes a directory for its files but no name. So there is a temporary directory in which a
 * symbolic link leads to the file; QSettings writes through links.
 */
class SettingsFile
{
public:
    /**
     * @param file  need not exist yet, but its directory must. A relative name is resolved at once. Settings
     * that are damaged are moved aside, a file of another kind is left alone. Without a file that can be read
     * and written the program gets settings that end with it, filled from the file if that can be read.
     */
    explicit SettingsFile(const QString& file);

    /** What is wrong with the file, as lines for the user; empty if nothing is. */
    QString error() const { return mError; }

    /** The directory for what the program keeps beside its settings, "FILE.data". It need not exist. */
    QString data_directory() const { return mDataDirectory; }

private:
    TemporaryFolder mDirectory;
    QString mError;
    QString mDataDirectory;
};

} // namespace fennar
