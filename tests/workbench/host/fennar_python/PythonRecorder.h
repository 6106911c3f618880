// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/fennar_python/PythonRuntime.h"

#include <QStringList>

#include <atomic>
#include <functional>

/** The application's side of Python in a test: keeps what arrives, and does what the test puts into it. */
struct PythonRecorder
{
    QString output;
    QString errors;
    /** Both, each call as "out:TEXT" or "err:TEXT". */
    QStringList calls;
    QStringList commands;
    std::atomic<int> wakes = 0;

    std::function<void(const QString&)> onOutput;
    std::function<void(const QString&)> onError;
    std::function<bool(const QString&)> onCommand;
    /** What is told of a command for which onCommand returns false. */
    fennar::PythonCommandFailure failure;
    std::function<void()> onTurn;

    fennar::PythonHooks hooks()
    {
        fennar::PythonHooks hooks;
        hooks.output = [this](const QString& text) {
            output += text;
            calls += QStringLiteral("out:") + text;
            if (onOutput)
                onOutput(text);
        };
        hooks.error_output = [this](const QString& text) {
            errors += text;
            calls += QStringLiteral("err:") + text;
            if (onError)
                onError(text);
        };
        hooks.run_command = [this](const QString& text) {
            commands += text;
            const bool done = !onCommand || onCommand(text);
            return done ? std::nullopt : std::optional(failure);
        };
        hooks.wake = [this] { ++wakes; };
        hooks.turn = [this] {
            if (onTurn)
                onTurn();
        };
        return hooks;
    }

    void clear()
    {
        output.clear();
        errors.clear();
        calls.clear();
        commands.clear();
        wakes = 0;
        onOutput = nullptr;
        onError = nullptr;
        onCommand = nullptr;
        failure = {};
        onTurn = nullptr;
    }
};
