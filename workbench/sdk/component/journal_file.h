// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "journal/JournalDocument.h"

#include <QString>

/**
 * The full path of the file of a page of the journal editor; empty if it has none, or is no document.
 *
 * The sanitizer that looks at types would want the class's, which the shell does not export.
 */
__attribute__((no_sanitize("vptr"))) inline QString journal_file(const QWidget* page)
{
    // The class is not exported, so that it cannot be asked for by its meta-object.
    return page && page->inherits("JournalDocument") ? static_cast<const JournalDocument*>(page)->file_name()
                                                     : QString();
}
