// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/SettingsSandbox.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

using namespace Qt::StringLiterals;

namespace {

QString usual_folder()
{
    const QFileInfo memory(u"/dev/shm"_s);
    // A test without a directory for temporary files is to fail, and not only when it needs one.
    const QFileInfo usual(QDir::tempPath());
    return usual.isDir() && memory.isDir() && memory.isWritable() ? memory.filePath() : usual.filePath();
}

} // namespace

SettingsSandbox::SettingsSandbox(const QString& folder)
    : mDirectory((folder.isEmpty() ? usual_folder() : folder) + u"/ostrel-settings-XXXXXX"_s)
{
    QSettings::setDefaultFormat(QSettings::IniFormat);
    for (const QSettings::Format format : {QSettings::IniFormat, QSettings::NativeFormat}) {
        QSettings::setPath(format, QSettings::UserScope, mDirectory.path() + u"/user"_s);
        QSettings::setPath(format, QSettings::SystemScope, mDirectory.path() + u"/system"_s);
    }
}

QString SettingsSandbox::file() const
{
    return QSettings().fileName();
}
