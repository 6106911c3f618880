// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

/** A document of the journal editor as it is kept on disk. */
struct KeptDocument
{
    /** The full path of the file that it belongs to; empty if it was never saved. */
    QString file;
    /** When it was last changed; invalid if that is not known. */
    QDateTime changed;
    /** Its text, with a line feed at the end of each line but the last. */
    QString text;

    /**
     * As bytes: a line that says what follows, then the text, which decode() gives back exactly.
     *
     * The text is in UTF-8, so that it can be read in any editor; only one that UTF-8 cannot hold, since
     * half of a surrogate pair stands in it, is in UTF-16.
     */
    QByteArray encode() const;
    /** From what encode() returned. Bytes without the first line are all text, of no file. */
    static KeptDocument decode(const QByteArray& bytes);

    /** Its name for the user: that of its file, and when it was changed, seen from @p now. */
    QString title(const QDateTime& now = QDateTime::currentDateTime()) const;
};
