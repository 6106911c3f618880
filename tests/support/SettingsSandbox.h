// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QTemporaryDir>

/**
 * While it lives, every QSettings object made reads and writes files in a fresh temporary directory.
 *
 * It lies in memory where the system has a folder for that, and else among the temporary files: settings are
 * forced onto the disk each time they are written, and tests would spend much of their time waiting for it.
 */
class SettingsSandbox
{
public:
    /** @param folder  where the directory is made; empty stands for the usual place. */
    explicit SettingsSandbox(const QString& folder = {});

    /** Whether there is such a directory. If not, settings must not be touched. */
    bool is_valid() const { return mDirectory.isValid(); }
    /** The file behind a default-constructed QSettings. */
    QString file() const;

private:
    QTemporaryDir mDirectory;
};
