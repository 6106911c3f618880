// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "files/RecentFile.h"

/**
 * One remembered import: a whole command, with the name of the imported file in quotes inside it.
 *
 * The file is what stands between the first two double quotes or, if there is no double quote, between the
 * first two apostrophes. A command without quotes has an empty file name, and all such commands count as the
 * same file.
 */
class RecentImport : public RecentFile
{
public:
    using RecentFile::RecentFile;

    /** Whether @p other imports the same file. If so, this entry remembers @p other from now on. */
    bool matches(const QString& other) override;
    bool exists() override;
    void display_text(QString& text) override;
};
