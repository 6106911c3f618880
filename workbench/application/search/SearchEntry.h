// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

#include <functional>

namespace fennar {

/** One thing that the command search finds. */
struct SearchEntry
{
    /** What it is called, in the user's language. */
    QString text;
    /** Where it stands otherwise, as "View > Toolbars". */
    QString place = {};
    /** The keys that do the same, as the user sees them; empty for none. */
    QString key = {};
    /** One line on what it does; may be empty. */
    QString tip = {};
    /** Further words by which it is found. */
    QString words = {};
    /** Why it cannot be run now, as a line for the user; empty if it can. */
    QString refusal = {};
    /** Runs it, or does nothing if it is gone or cannot be run any more. Never null. */
    std::function<void()> run = {};
};

/** Names an entry from one run of the program to the next. */
inline QString search_id(const SearchEntry& entry)
{
    return entry.place + QStringLiteral(" > ") + entry.text;
}

} // namespace fennar
