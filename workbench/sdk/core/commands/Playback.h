// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/Callback.h"
#include "workbench/sdk/core/commands/CommandDescription.h"
#include "workbench/sdk/core/commands/journal_parameters.h"
#include "workbench/sdk/core/export.h"

#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <functional>

class QIODevice;

namespace fennar {

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
 * The line is that of the last command that ran, or the first line if none has. While it is paused it says on
 * the output ahead of which line it waits. GUI thread only.
 */
class FENNAR_CORE_EXPORT Playback
{
public:
    /** How playback has ended. */
    enum class Outcome {
        Played,
        /** An error was reported. */
        Failed,
        /** The interrupt flag was raised. */
        Interrupted,
        /** stop() was called. */
        Stopped,
        /** The values for its parameters are wrong, which was reported. No line of it has run. */
        Refused,
    };
    /** A Python script to be run. */
    struct PythonScript
    {
        /** As it was given to play(), for messages. */
        QString path;
        /** All that is to be run; empty lines at the beginning make the lines keep their numbers. */
        QString source;
        /** Whether it is a piece of a script, whose lines may all be indented. */
        bool piece = false;
    };

    /** Where lines come from that are not read from a file. */
    struct Origin
    {
        /** The number of the first line in messages, from 1. */
        qsizetype first_line = 1;
        /** A Python script, whatever its first line says. */
        bool python = false;
        /** A piece of a Python script, as a selection: its lines may all be indented. */
        bool piece = false;
        /** The current directory while they play, if directories are changed; empty leaves it. */
        QString directory;
        /** Tells the user how to play on from a line; see set_hints(). Null if there is no way. */
        std::function<QString(qsizetype line)> go_on;
    };

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
     *
     * @param from  the line to begin with. It is an error if there is no such line, if it continues the
     *              line before it, and if it is not 1 for a Python script.
     * @param settings  values for parameters that the journal declares; the others have their defaults. A
     * name that it does not declare, or that is given twice, is refused, as is a wrong value.
     */
    Outcome play(const QString& path, qsizetype from = 1, const QList<JournalSetting>& settings = {});
    /**
     * Plays what an open device has up to its end, which may be waited for, as a file of that name. Nothing
     * is known of its directory, and no way to play on from a line is told.
     */
    Outcome play_device(QIODevice& device, const QString& name, const QList<JournalSetting>& settings = {});
    /** Plays lines that are not in a file; @p name stands for the file's name in messages. */
    Outcome play_lines(const QStringList& lines, const QString& name, const Origin& origin);
    /** Plays lines as those of a journal, counted from 1. */
    Outcome play_lines(const QStringList& lines, const QString& name)
    {
        return play_lines(lines, name, Origin());
    }
    /** Whether this text is a Python script: its first line that is not blank is "#!python". */
    static bool is_python(QStringView text);

    /**
     * Tells that a Python script in play has reached @p line of it: shows the progress, waits while playback
     * is paused, and returns when it is not or the run is to end. A @p line of 0 is not known. Without a
     * script in play it does nothing.
     */
    void script_reached(qsizetype line);
    /** The name of the innermost Python script in play; empty if there is none. */
    QString script_in_play() const;
    /** The absolute path of the file in play of that name; empty if there is none. */
    QString file_in_play(const QString& name) const;

    /** For a line that declares a parameter. */
    struct Declaration
    {
        /** The value that was given for it; nothing if it is to have its default. */
        std::optional<QString> value = {};
        /** Whether it stands behind other commands of the journal. */
        bool late = false;
        /** Whether the journal has declared that name already. */
        bool again = false;
    };
    /** Called by the line that declares a parameter. Outside of a journal all is well. */
    Declaration declare(const QString& name);
    /** The parameters of the outermost journal that is, or was, in play, with their values. */
    const QList<std::pair<CommandParameter, QString>>& parameters() const { return mParameters; }

    /** Whether a journal is being played, paused or not. */
    bool is_playing() const { return !mScripts.isEmpty(); }
    /** A number for the outermost journal that is being played, which no other gets; 0 if there is none. */
    int journal_number() const { return is_playing() ? mJournals : 0; }
    /** Makes playback wait before its next command. Stays on until resume() or stop(), also between files. */
    void pause() { set_paused(true); }
    /** Ends a pause. */
    void resume() { set_paused(false); }
    /** Whether playback waits before its next command. */
    bool is_paused() const { return mPaused; }
    /** Ends all levels of playback behind the command that runs. Ends a pause, too. */
    void stop();

    /** Called with each line ahead of its command, without line end. */
    void set_echo(const std::function<void(const QString& line)>& echo) { mEcho = echo; }
    /** Called ahead of each command. */
    void set_turn(const std::function<void()>& turn) { mTurn = turn; }
    /** Called again and again while paused. Without it a pause is not waited for: nothing could end it. */
    void set_wait(const std::function<void()>& wait) { mWait = wait; }
    /** Called with the new state when is_paused() changes. */
    void set_pause_changed(const std::function<void(bool)>& changed) { mPauseChanged = changed; }
    /** Called to run a Python script: it reports its errors itself, calls script_reached() now and then, and
     * returns whether the script went well. Without it a Python script is an error. */
    void set_python_hook(const std::function<bool(const PythonScript& script)>& hook) { mPythonHook = hook; }
    /** Asked at the start of each file; on true its directory is the current one while it plays. */
    void set_change_directory(const std::function<bool()>& asked) { mChangeDirectory = asked; }
    /**
     * Called with the outermost journal's name and 0 when it begins, with a percentage below 100 as it gets
     * on, and with 100 when it has ended, be it that an error has ended it.
     */
    void set_progress(const std::function<void(const QString& name, int percent)>& progress)
    {
        mProgress = progress;
    }
    /** Whether a journal that ends before its last line tells how to play on. At first it does not. */
    void set_hints(bool hints) { mHints = hints; }

private:
    /** A text in play. */
    struct Script
    {
        QString text;
        QString name;
        bool python;
        qsizetype first_line = 1;
        std::function<QString(qsizetype)> go_on = {};
        /** The absolute path of the file; empty if it is none. */
        QString file = {};
        /** The current directory while it plays; empty for any. */
        QString directory = {};
        bool piece = false;
        QList<JournalSetting> settings = {};
        /** The parameters of a journal that do not have their default, by name. */
        QMap<QString, QString> given = {};
        QStringList declared = {};
        /** How many of its lines may declare parameters. */
        qsizetype head_lines = 0;
        /** How many lines have run. */
        qsizetype lines = 0;
    };

    Outcome play_text(Script script);
    /** The innermost Python script in play; null if there is none. */
    const Script* python_script() const;
    /** Reads the declarations at the beginning; what is wrong with the settings, or nothing. */
    QString read_parameters(Script& script);
    Outcome play_journal(Script& script);
    Outcome play_python(const Script& script);
    /** Played unless the journal is to end here. */
    Outcome turn_and_wait(const QString& next);
    void wait_while_paused(const QString& where);
    void show_progress(const Script& script, int percent);
    Outcome test_end() const;
    /** How a line or a script has ended, which was done or has failed. */
    Outcome end_of(bool done) const;
    Outcome report_end(Outcome outcome, const QString& place);
    void hint(const Script& script, qsizetype line) const;
    QString name_from_here(const QString& path) const;
    Outcome fail(const QString& message);
    void set_paused(bool paused);

    CommandInterpreter& mInterpreter;
    Callback<void(const QString&)> mEcho;
    Callback<void()> mTurn;
    Callback<void()> mWait;
    Callback<void(bool)> mPauseChanged;
    Callback<bool(const PythonScript&)> mPythonHook;
    Callback<bool()> mChangeDirectory;
    Callback<void(const QString&, int)> mProgress;
    /** The current directory when the outermost journal began. */
    QString mDirectory;
    /** How many outermost journals have begun. */
    int mJournals = 0;
    /** The scripts in play, the outermost one first. */
    QList<Script*> mScripts;
    QList<std::pair<CommandParameter, QString>> mParameters;
    /** What was shown last of the outermost one. */
    int mPercent = 0;
    bool mHints = false;
    bool mPaused = false;
    bool mStop = false;
    /** How the inner journal has ended that came last; it has told what ended it. */
    Outcome mInner = Outcome::Played;
    /** Whether that was a Python script, which can only be run anew. */
    bool mInnerPython = false;
};

} // namespace fennar
