// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/fennari19/Callback.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>

class CommandInterpreter;

/**
 * Plays journals: runs their commands one after the other, and can be paused and stopped in between.
 *
 * A journal may play another one. The first error ends all of them. Between two commands playback gives the
 * application its turn, waits while it is paused, and tests whether it was stopped or interrupted; it says so
 * on the interpreter's error output:
 *
 *     Interrupted: mesh.jou:12
 *
 * The line is that of the last command that ran, or the first line if none has. GUI thread only.
 */
class Playback
{
public:
    enum class Outcome {
        Played,
        /** An error was reported. */
        Failed,
        /** The interrupt flag was raised. */
        Interrupted,
        /** stop() was called. */
        Stopped,
    };
    using Turn = std::function<void()>;
    using Echo = std::function<void(const QString& line)>;
    /**
     * Runs a Python script, reports its errors itself, and returns whether it went well.
     *
     * The source is all that is to be run; the path is as it was given to play(), for messages.
     */
    using PythonHook = std::function<bool(const QString& path, const QString& source)>;

    /** How deep journals may play journals. */
    static constexpr int depth_limit = 16;

    /** @param interpreter  not owned; outlives the playback. */
    explicit Playback(CommandInterpreter& interpreter);

    /**
     * Plays a file; a relative path is taken from the current directory. A file named "*.py", or whose first
     * line that is not empty is "#!python", goes whole to the Python hook.
     *
     * The file is UTF-8 with or without a byte order mark, its lines end in "\n" or "\r\n". A file that is
     * missing, unreadable, or no such text is reported, and no line of it is played.
     */
    Outcome play(const QString& path);
    /** Plays lines that are not in a file; @p name stands for the file's name in messages. */
    Outcome play_lines(const QStringList& lines, const QString& name);

    bool is_playing() const { return mDepth > 0; }
    /** Makes playback wait before its next command. Stays on until resume() or stop(), also between files. */
    void pause();
    void resume();
    bool is_paused() const { return mPaused; }
    /** Ends all levels of playback behind the command that runs. Ends a pause, too. */
    void stop();

    /** Called with each line ahead of its command, without line end. */
    void set_echo(const Echo& echo) { mEcho = echo; }
    /** Called ahead of each command. */
    void set_turn(const Turn& turn) { mTurn = turn; }
    /** Called again and again while paused. Without it a pause is not waited for: nothing could end it. */
    void set_wait(const Turn& wait) { mWait = wait; }
    /** Called with the new state when is_paused() changes. */
    void set_pause_changed(const std::function<void(bool)>& changed) { mPauseChanged = changed; }
    /** Without it a Python script is an error. */
    void set_python_hook(const PythonHook& hook) { mPythonHook = hook; }
    /** Asked at the start of each file; on true its directory is the current one while it plays. */
    void set_change_directory(const std::function<bool()>& asked) { mChangeDirectory = asked; }

private:
    Outcome play_text(const QString& text, const QString& name, bool python);
    Outcome play_journal(QStringView text, const QString& name);
    Outcome play_python(const QString& text, const QString& name);
    Outcome run_command(const QString& command, const QString& name, qsizetype line);
    /** Played unless the journal is to end here. */
    Outcome turn_and_wait();
    Outcome test_end() const;
    Outcome report_end(Outcome outcome, const QString& place);
    Outcome fail(const QString& message);
    void set_paused(bool paused);

    CommandInterpreter& mInterpreter;
    Callback<void(const QString&)> mEcho;
    Callback<void()> mTurn;
    Callback<void()> mWait;
    Callback<void(bool)> mPauseChanged;
    Callback<bool(const QString&, const QString&)> mPythonHook;
    Callback<bool()> mChangeDirectory;
    int mDepth = 0;
    bool mPaused = false;
    bool mStop = false;
    /** Whether an inner journal has told what ended it. */
    bool mInnerEnded = false;
};
