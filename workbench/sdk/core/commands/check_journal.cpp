// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/check_journal.h"

#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/commands/ContinuedCommand.h"
#include "workbench/sdk/core/commands/tokenize.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

class Checker
{
public:
    Checker(const CommandRegistry& registry, const CommandVariables& variables)
        : mRegistry(registry), mVariables(variables)
    {}

    QList<JournalFault> check(const QString& text)
    {
        ContinuedCommand lines;
        qsizetype first = 1;
        qsizetype number = 1;
        for (qsizetype start = 0; start < text.size(); ++number) {
            const qsizetype found = text.indexOf(u'\n', start);
            const qsizetype end = found < 0 ? text.size() : found + 1;
            if (lines.is_empty())
                first = number;
            if (lines.add(QStringView(text).sliced(start, end - start))) {
                check_command(lines, first);
                lines.clear();
            }
            start = end;
        }
        if (lines.is_incomplete()) {
            tell(lines, first, {},
                 CommandError(u"expected another line behind the backslash, found the end of the text"_s,
                              lines.text().size() + 1));
        }
        return mFaults;
    }

private:
    void tell(const ContinuedCommand& lines, qsizetype first, const QString& command,
              const CommandError& error)
    {
        const ContinuedCommand::Position at = lines.position(error.column());
        QString message = CommandRegistry::is_name(command) ? command + ": "_L1 : QString();
        if (error.column() > 0)
            message += u"column %1: "_s.arg(at.column);
        mFaults.append({first + at.line, message + error.message()});
    }

    void check_command(const ContinuedCommand& lines, qsizetype first)
    {
        bool unknown = false;
        const auto lookup = [&](QStringView name) -> std::optional<QString> {
            const std::optional<QString> value = mVariables.value(name);
            unknown = unknown || !value;
            return value || !mAnyVariable ? value : QString();
        };
        const CommandWords words = tokenize(lines.text(), lookup);
        if (unknown && mAnyVariable)
            return;
        const QString name = words.words.isEmpty() ? QString() : words.words[0].text;
        try {
            if (words.error)
                throw *words.error;
            if (name.isEmpty() && words.words.isEmpty())
                return;
            const std::shared_ptr<const Command> command = mRegistry.find(name);
            if (!command)
                throw mRegistry.not_found(name, words.words[0].column);
            CommandArguments(words, command->forms, nullptr);
            follow(words.words);
        } catch (const CommandError& error) {
            tell(lines, first, name, error);
        }
    }

    /** Does what the command does to variables. */
    void follow(const QList<CommandWord>& words)
    {
        if (words[0].text == "play"_L1 || words[0].text == "python"_L1) {
            mAnyVariable = true;
        } else if (words[0].text == "set"_L1 && words.size() > 2) {
            QStringList value;
            for (const CommandWord& word : words.sliced(2))
                value << word.text;
            mVariables.set(words[1].text, value.join(u' '));
        }
    }

    const CommandRegistry& mRegistry;
    CommandVariables mVariables;
    /** Whether others may be set. */
    bool mAnyVariable = false;
    QList<JournalFault> mFaults;
};

} // namespace

QList<JournalFault> check_journal(const QString& text, const CommandRegistry& registry,
                                  CommandVariables variables)
{
    return Checker(registry, variables).check(text);
}
