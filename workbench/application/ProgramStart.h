// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/journal_parameters.h"

#include <QDeadlineTimer>
#include <QList>
#include <QString>

#include <functional>

namespace fennar {

/** Lets the windows that have been shown, which is the splash screen, come to the screen and be painted. */
void wait_for_windows();

/** Tells why a journal is left out. */
QString not_played(const QString& journal);

/**
 * What follows once the main window is up, one after another from the event loop: Python, the components, the
 * model and the journal that the program was started with. It is there while the window is.
 */
class ProgramStart
{
public:
    struct Steps
    {
        /** Loads the components, then calls @p done. */
        std::function<void(const std::function<void()>& done)> load_components;
        /** Runs a line on the console and tells whether it went well. */
        std::function<void(const QString& line, const std::function<void(bool done)>& then)> run_line;
        /** Tells an error; whole lines. */
        std::function<void(const QString& text)> report;
    };

    explicit ProgramStart(const Steps& steps) : mSteps(steps) {}

    /** Begins as soon as the main window has been painted. */
    void begin();
    /** Adds what is to be opened and played; see Workbench::start_later(). */
    void add(const QString& model, const QString& journal, const QList<JournalSetting>& settings);

private:
    void look_for_window();
    void run_lines();
    void play(bool opened);

    const Steps mSteps;
    QDeadlineTimer mPatience;
    QString mModel;
    QString mJournal;
    QList<JournalSetting> mSettings;
    /** Whether the components are loaded, and lines need not wait for them. */
    bool mReady = false;
};

} // namespace fennar
