// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/plain_command.h"

/** A registry and an interpreter whose output is kept, and a command "note" that keeps its words. */
struct CommandSession
{
    CommandSession()
    {
        interpreter.set_output([this](const QString& text) { output += text; });
        interpreter.set_error_output([this](const QString& text) { errors += text; });
        add("note", [this](fennar::CommandCall& call) {
            QStringList words;
            for (const fennar::CommandWord& word : call.words().sliced(1))
                words << word.text;
            notes << words.join(u'|');
        });
    }

    void add(const char* name, const std::function<void(fennar::CommandCall&)>& run,
             const char* owner = "test")
    {
        registry.add(plain_command(QString::fromUtf8(name), QString::fromUtf8(owner), run));
    }

    QString take_errors() { return std::exchange(errors, QString()); }
    QString take_output() { return std::exchange(output, QString()); }
    QStringList take_notes() { return std::exchange(notes, QStringList()); }

    fennar::CommandRegistry registry;
    fennar::CommandInterpreter interpreter{registry};
    QString output;
    QString errors;
    QStringList notes;
};
