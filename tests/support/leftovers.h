// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QDir>
#include <QFile>
#include <QStringList>

#include <csignal>

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

/**
 * Stops the processes that this one has started, as if their work took forever, or lets them go on. Returns
 * whether there are any.
 */
inline bool freeze_children(bool frozen = true)
{
    const QList<int> children = child_processes();
    for (const int child : children)
        kill(child, frozen ? SIGSTOP : SIGCONT);
    return !children.isEmpty();
}

/** What lies in the folder of temporary files. */
inline QStringList temporary_files()
{
    return QDir(QDir::tempPath()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
}
