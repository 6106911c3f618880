// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/ProgramStart.h"

#include "frame/Ostrel.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace fennar {

namespace {

/** How long, in milliseconds, the start waits for the splash screen to be seen. */
constexpr qint64 splash_patience = 300;

/** How often, and for how many milliseconds at most, the start looks whether the window has been painted. */
constexpr auto start_interval = 2ms;
constexpr qint64 start_patience = 2000;

} // namespace

void wait_for_windows()
{
    const QDeadlineTimer patience(splash_patience);
    const auto exposed = [](const QWindow* window) { return !window->isVisible() || window->isExposed(); };
    const QWindowList windows = QGuiApplication::topLevelWindows();
    while (!std::all_of(windows.begin(), windows.end(), exposed) && !patience.hasExpired())
        QCoreApplication::processEvents();
}

QString not_played(const QString& journal)
{
    return u"ERROR: %1 is not played, since the model could not be opened\n"_s.arg(
        CommandError::shown(journal, journal.size()));
}

void ProgramStart::begin()
{
    mPatience.setRemainingTime(start_patience);
    look_for_window();
}

void ProgramStart::look_for_window()
{
    // What the user can do without for a moment comes once the window has been painted.
    if (!Ostrel::instance()->windowHandle()->isExposed() && !mPatience.hasExpired()) {
        QTimer::singleShot(start_interval, Ostrel::instance(), [this] { look_for_window(); });
        return;
    }
    PythonRuntime::is_ready();
    mSteps.load_components([this] {
        mReady = true;
        run_lines();
    });
}

void ProgramStart::add(const QString& model, const QString& journal, const QList<JournalSetting>& settings)
{
    mModel = model;
    mJournal = journal;
    mSettings = settings;
    if (mReady)
        run_lines();
}

void ProgramStart::run_lines()
{
    // From the event loop, so that the window is up.
    QTimer::singleShot(0, Ostrel::instance(), [this] {
        if (mModel.isEmpty())
            play(true);
        else
            mSteps.run_line(u"open "_s + quote_word(mModel), [this](bool done) { play(done); });
    });
}

void ProgramStart::play(bool opened)
{
    const QString journal = std::exchange(mJournal, {});
    if (journal.isEmpty())
        return;
    if (!opened) {
        mSteps.report(not_played(journal));
        return;
    }
    QString line = u"play "_s + quote_word(journal);
    if (!mSettings.isEmpty())
        line += " with"_L1;
    for (const JournalSetting& setting : std::as_const(mSettings))
        line += u' ' + quote_word(QString(setting.name + u'=' + setting.value));
    mSteps.run_line(line, {});
}

} // namespace fennar
