// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

class QIODevice;

namespace fennar {

/** The text of a journal or script. */
struct JournalText
{
    /** The whole text; empty if something is wrong. */
    QString text;
    /** What is wrong with the file, without "ERROR" and a line end; empty if nothing is. */
    QString error;
};

/** Reads a regular file, which must be UTF-8 without NUL. */
JournalText read_journal_text(const QString& path);
/** Reads what is left in an open device; @p shown is what that is called in messages. */
JournalText read_journal_text(QIODevice& device, const QString& shown);

} // namespace fennar
