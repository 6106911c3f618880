// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandCall.h"

#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/Interrupt.h"
#include "workbench/sdk/core/commands/numbers.h"

using namespace Qt::StringLiterals;

CommandCall::CommandCall(const CommandWords& words, CommandInterpreter& interpreter)
    : mWords(words), mInterpreter(interpreter)
{}

QString CommandCall::text(qsizetype i, QAnyStringView what)
{
    return word(i, what).text;
}

double CommandCall::number(qsizetype i, QAnyStringView what)
{
    const std::optional<double> value = has(i) ? parse_number(word(i, what).text) : std::nullopt;
    if (!value)
        throw expected(i, QString(what.toString() + " (a number)"_L1));
    return *value;
}

int CommandCall::integer(qsizetype i, QAnyStringView what, int least, int most)
{
    const std::optional<qint64> value = has(i) ? parse_integer(word(i, what).text) : std::nullopt;
    if (value && *value >= least && *value <= most)
        return int(*value);
    const bool far_out = value && *value != int(*value); // so that both ends are worth telling
    const bool has_least = least != std::numeric_limits<int>::min();
    const bool has_most = most != std::numeric_limits<int>::max();
    QString kind = u"a whole number"_s;
    if (far_out || (has_least && has_most))
        kind += u" from %1 to %2"_s.arg(least).arg(most);
    else if (has_least)
        kind += u" from %1 on"_s.arg(least);
    else if (has_most)
        kind += u" up to %1"_s.arg(most);
    throw expected(i, QString(what.toString() + " ("_L1 + kind + ')'_L1));
}

std::optional<QString> CommandCall::optional(qsizetype i)
{
    if (!has(i))
        return std::nullopt;
    mNext = std::max(mNext, i + 1);
    return mWords.words[i].text;
}

std::optional<double> CommandCall::optional_number(qsizetype i, QAnyStringView what)
{
    if (!has(i))
        return std::nullopt;
    return number(i, what);
}

void CommandCall::expect_end() const
{
    if (has(mNext))
        throw expected(mNext, u"the end of the line");
}

CommandError CommandCall::expected(qsizetype i, QAnyStringView what) const
{
    const QString found = has(i) ? CommandError::shown(mWords.words[i].text) : u"the end of the line"_s;
    return CommandError::expected(what.toString(), found, column(i));
}

CommandError CommandCall::error(qsizetype i, const QString& message) const
{
    return CommandError(message, column(i));
}

void CommandCall::print(const QString& text)
{
    mInterpreter.print(text);
}

bool CommandCall::interrupted() const
{
    return interrupt_requested();
}

const CommandWord& CommandCall::word(qsizetype i, QAnyStringView what)
{
    if (!has(i))
        throw expected(i, what);
    mNext = std::max(mNext, i + 1);
    return mWords.words[i];
}
