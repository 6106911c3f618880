// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QByteArrayList>
#include <QCoreApplication>
#include <QDateTime>
#include <QString>

namespace fennar::recovery {

/** A document of the journal editor, or the work of a component, as it is kept on disk. */
struct KeptDocument
{
    /** The full path of the file that it belongs to; empty if it was never saved. */
    QString file;
    /** When it was last changed; invalid if that is not known. */
    QDateTime changed;
    /** Its text, with a line feed at the end of each line but the last. */
    QString text;
    /** The kind of a component's work; empty for a document of the journal editor. */
    QString kind = {};
    /** The component's work instead of a text, as parts one behind the other; one of them from decode(). */
    QByteArrayList data = {};

    /**
     * As parts one behind the other: a line that says what follows, then the text or the data, which decode()
     * gives back exactly.
     *
     * The text is in UTF-8, so that it can be read in any editor; only one that UTF-8 cannot hold, since
     * half of a surrogate pair stands in it, is in UTF-16.
     */
    QByteArrayList encode() const;
    /** From what encode() returned, joined. Bytes without the first line are all text, of no file. */
    static KeptDocument decode(const QByteArray& bytes);

    /** Its name for the user: that of its file, and when it was changed, seen from @p now. */
    QString title(const QDateTime& now = QDateTime::currentDateTime()) const;

    Q_DECLARE_TR_FUNCTIONS(fennar::recovery::KeptDocument)
};

} // namespace fennar::recovery
