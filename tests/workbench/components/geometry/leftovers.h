// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QDir>
#include <QFile>
#include <QStringList>

/** The processes that this one has started and not yet taken leave of, dead or alive. */
inline QList<int> child_processes()
{
    QList<int> result;
    const QStringList tasks =
        QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& task : tasks) {
        QFile file(QStringLiteral("/proc/self/task/") + task + QStringLiteral("/children"));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("the children of a process cannot be listed here");
        const QList<QByteArray> words = file.readAll().simplified().split(' ');
        for (const QByteArray& word : words) {
            if (!word.isEmpty())
                result << word.toInt();
        }
    }
    return result;
}

/** What lies in the folder of temporary files. */
inline QStringList temporary_files()
{
    return QDir(QDir::tempPath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
}
