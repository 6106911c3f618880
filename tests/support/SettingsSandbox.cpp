// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/SettingsSandbox.h"

#include <QSettings>

using namespace Qt::StringLiterals;

SettingsSandbox::SettingsSandbox()
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
