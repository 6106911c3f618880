// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "PythonRecorder.h"
#include "host/fennar_python/FennarPythonInterpreter.h"
#include "support/TestCase.h"
#include "workbench/host/fennar_python/PythonRuntime.h"
#include "workbench/host/fennar_python/commands/python_commands.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

#include <QTest>

/**
 * Commands as functions of Python, without the program. Python can be started once in a process, so all
 * functions share it and the registry. What a call has run is kept in lines.
 */
class PythonCommandsTest : public TestCase
{
protected:
    void start_python()
    {
        fennar::PythonHooks hooks = mRecorder.hooks();
        hooks.extend = [this](struct _object* module) {
            const auto call = [this](const QString& line, bool quiet) {
                lines << line;
                quiet_lines << (quiet ? line : QString());
                return interpreter.call(line);
            };
            fennar::add_python_commands(module, {.registry = &registry,
                                                 .call = call,
                                                 .check_caller = &fennar::PythonRuntime::require_gui_thread});
        };
        interpreter.set_error_output([this](const QString& text) { reported += text; });
        QVERIFY2(fennar::PythonRuntime::start(hooks), qPrintable(mRecorder.errors));
        mUser = fennar::make_python_interpreter(fennar::PythonRuntime::user_namespace());
    }

    void set_up() override
    {
        mRecorder.clear();
        lines.clear();
        quiet_lines.clear();
        performed.clear();
        words_performed.clear();
        reported.clear();
    }

    /** Runs Python code; its names stay. */
    bool run(const QByteArray& source) { return mUser->Run_SimpleString(source.constData()) == 0; }
    /** What the code prints, or how it fails. */
    QString shown(const QByteArray& source)
    {
        mRecorder.output.clear();
        mRecorder.errors.clear();
        return run(source) ? mRecorder.output : mRecorder.errors;
    }
    /** The last line of what the code prints or how it fails. */
    QString last_line(const QByteArray& source) { return shown(source).trimmed().split(QChar(u'\n')).last(); }

    /** Adds a command that writes its words down and returns @p result. */
    void add(const char* name, const QList<fennar::CommandSyntax>& forms, const char* owner = "test",
             const fennar::CommandType& type = {}, const fennar::CommandValue& result = {})
    {
        registry.add({.name = QString::fromUtf8(name),
                      .summary = QStringLiteral("Does something."),
                      .owner = QString::fromUtf8(owner),
                      .perform =
                          [this, result](fennar::CommandCall& call, const fennar::CommandArguments&) {
                              QStringList words;
                              for (const fennar::CommandWord& word : call.words())
                                  words << word.text;
                              words_performed << words;
                              performed << words.join(QChar(u'|'));
                              call.set_result(result);
                          },
                      .forms = forms,
                      .result = type});
    }

    fennar::CommandRegistry registry;
    fennar::CommandInterpreter interpreter{registry};
    /** The command lines that were handed over. */
    QStringList lines;
    /** The same, but empty for those whose output is to be shown. */
    QStringList quiet_lines;
    /** The words of the commands that have run. */
    QStringList performed;
    QList<QStringList> words_performed;
    QString reported;
    PythonRecorder mRecorder;
    std::unique_ptr<FennarPythonInterpreter> mUser;
};
