// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

/** What writes a file, and may fail. */
struct Writing
{
    /** The file that is written. What it holds when the sweep begins is put back before each try. */
    QString file;
    /** Writes it. Returns what the user is told if that fails; empty if it is said to be written. */
    std::function<QString()> write;
    /** Calls about files in this folder are to fail. */
    QString folder;
    /** Let calls of this program fail, which write() starts; empty for this process. */
    QString program = {};
    /** Takes away what differs each time. */
    std::function<QByteArray(const QByteArray&)> clean = {};
};

/**
 * Lets the first call of the system fail that writes, brings to the disk, renames or closes a file, then the
 * second, and so on, and then each together with all behind it. The file must be the old one or the new one
 * after each try, and the new one if it was said to be written.
 *
 * @return what went wrong, a line each; also if no call counts, or if none makes the writing fail.
 */
QString sweep(const Writing& writing);
