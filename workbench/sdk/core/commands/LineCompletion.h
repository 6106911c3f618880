// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>
#include <QString>

namespace fennar {

/** What could stand at the caret of a half-typed line. */
struct LineCompletion
{
    /** One thing that fits. */
    struct Candidate
    {
        /** For a list of candidates. */
        QString shown;
        /** What the line holds in place of the part typed, ready to go on behind it. */
        QString inserted;
    };

    /** Where the part typed begins, an index into the line; it ends at the caret. */
    qsizetype start = 0;
    /** Sorted; empty if nothing is known to fit. */
    QList<Candidate> candidates = {};
    /** What all candidates begin with, as it is put into the line; never shorter than what was typed means.
     */
    QString common = {};
    /** Whether a blank belongs behind a single candidate that ends the line. */
    bool followed = false;
    /** A line that tells what could be typed where nothing can be listed; empty for none. */
    QString hint = {};
};

} // namespace fennar
