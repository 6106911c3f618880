// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QTemporaryDir>

/** While it lives, every QSettings object made reads and writes files in a fresh temporary directory. */
class SettingsSandbox
{
public:
    SettingsSandbox();

    /** Whether there is such a directory. If not, settings must not be touched. */
    bool is_valid() const { return mDirectory.isValid(); }
    /** The file behind a default-constructed QSettings. */
    QString file() const;

private:
    QTemporaryDir mDirectory;
};
