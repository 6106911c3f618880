// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QStringList>

/**
 * Keeps the engine initialized, and quiet: what it has to say is left to take_messages().
 *
 * One object at a time; GUI thread only. The handling of SIGINT and the locale are left as they were.
 */
class GmshSession
{
public:
    GmshSession();
    ~GmshSession();
    GmshSession(const GmshSession&) = delete;
    GmshSession& operator=(const GmshSession&) = delete;

    /** The warnings and errors since the last call, one line each. */
    QStringList take_messages();
};
