// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

#include <QTemporaryDir>

#include <memory>

namespace fennar {

/**
 * A new folder for temporary files. It is removed with the object, and also if a signal ends the program; see
 * remove_on_signals(). Any thread.
 */
class FENNAR_CORE_EXPORT TemporaryFolder
{
public:
    /** Makes it where the system has temporary files. */
    TemporaryFolder();
    ~TemporaryFolder();
    Q_DISABLE_COPY_MOVE(TemporaryFolder)

    /** Whether it could be made. */
    bool is_valid() const { return mFolder->isValid(); }
    /** Why it could not be made. */
    QString error() const { return mFolder->errorString(); }
    /** Its whole path. */
    QString path() const { return mFolder->path(); }
    /** The path of a file in it. */
    QString path(const QString& name) const { return mFolder->filePath(name); }
    /**
     * Makes a folder in it, with those on the way there, and tells whether it is there. One that is made
     * another way while a signal removes the whole may stay.
     */
    bool make_folder(const QString& name) const;

    /**
     * From now on SIGINT, SIGTERM and SIGHUP remove all these folders before they end the program, which they
     * do as they would by themselves. A signal that is ignored, or that somebody sees to, stays so. Called
     * once.
     */
    static void remove_on_signals();

    /**
     * The first of these signals from now on only calls @p cancel, which asks the program's work to come to
     * an end, on a thread of its own. The next ends the program. Null takes that back.
     */
    static void cancel_on_first_signal(void (*cancel)());
    /** If a signal has called for the end of the work, ends the program by that signal. Else it does nothing.
     */
    static void end_by_caught_signal();

private:
    std::unique_ptr<QTemporaryDir> mFolder;
};

} // namespace fennar
