// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/ostrelfw/CommandLine.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace fennar {

/** Whether the two are names of one file; a device is none. */
static bool is_file(const QString& one, const QString& other)
{
    return QFileInfo(one).isFile() && QFileInfo(one) == QFileInfo(other);
}

CommandLine::CommandLine(const QStringList& words)
{
    bool only_files = false;
    for (qsizetype i = 0; i < words.size() && mError.isEmpty(); ++i) {
        const QString& word = words[i];
        if (only_files || !word.startsWith(u'-'))
            take_file(word);
        else if (word == "--"_L1)
            only_files = true;
        else if (word == "--batch"_L1)
            mBatch = true;
        else if (word == "--help"_L1 || word == "-h"_L1)
            mHelp = true;
        else if (word == "--version"_L1)
            mVersion = true;
        else if (word == "--no-components"_L1)
            mComponents = false;
        else if (take_value(word, words.value(i + 1)))
            ++i;
        else
            mError = u"unknown argument \"%1\""_s.arg(word);
    }
    if (mError.isEmpty())
        check_together();
    mBatch = mBatch || !mCheck.isEmpty();
}

bool CommandLine::take_value(const QString& argument, const QString& value)
{
    if (argument == "--set"_L1) {
        take_setting(value);
        return true;
    }
    struct Taken
    {
        QLatin1String argument;
        QString& value;
        QLatin1String what;
    };
    const Taken all[]{{"--play"_L1, mJournal, "the name of a journal"_L1},
                      {"--check"_L1, mCheck, "the name of a journal"_L1},
                      {"--settings"_L1, mSettings, "the name of a file"_L1},
                      {"--json"_L1, mRecord, "the name of a file"_L1}};
    for (const Taken& taken : all) {
        if (argument != taken.argument)
            continue;
        if (value.isEmpty())
            mError = argument + " needs "_L1 + taken.what;
        else if (!taken.value.isEmpty())
            mError = argument + u" is given twice, for \"%1\" and \"%2\""_s.arg(taken.value, value);
        taken.value = value;
        return true;
    }
    return false;
}

void CommandLine::take_setting(const QString& word)
{
    const qsizetype sign = word.indexOf(u'=');
    if (sign < 1) {
        mError = u"--set needs the name of a parameter and its value, as size=2"_s;
        return;
    }
    const QString name = word.first(sign);
    for (const auto& [other, value] : std::as_const(mSet)) {
        if (other == name)
            mError = u"--set gives a value for \"%1\" twice"_s.arg(name);
    }
    mSet.append({name, word.sliced(sign + 1)});
}

void CommandLine::check_together()
{
    if (!mCheck.isEmpty() &&
        (mBatch || !mJournal.isEmpty() || !mSet.isEmpty() || !mRecord.isEmpty() || !mFile.isEmpty()))
        mError = u"--check cannot be combined with --batch, --play, --set, --json or a model"_s;
    else if (mBatch && mJournal.isEmpty() && !mHelp && !mVersion)
        mError = u"--batch needs a journal: add --play FILE"_s;
    else if (!mBatch && mJournal == standard_input)
        mError = u"--play - reads the journal from standard input, which needs --batch"_s;
    else if (!mSet.isEmpty() && mJournal.isEmpty())
        mError = u"--set needs a journal: add --play FILE"_s;
    else if (!mBatch && !mRecord.isEmpty())
        mError = u"--json needs --batch"_s;
    else if (is_file(mRecord, mJournal) || is_file(mRecord, mFile) || is_file(mRecord, mSettings))
        mError = u"--json would write over \"%1\""_s.arg(mRecord);
}

void CommandLine::take_file(const QString& word)
{
    if (word.isEmpty())
        mError = u"the name of a model file is empty"_s;
    else if (!mFile.isEmpty())
        mError = u"only one model can be opened, and \"%1\" is the second"_s.arg(word);
    else
        mFile = word;
}

CommandLine& CommandLine::of_application()
{
    static CommandLine command_line(QCoreApplication::arguments().mid(1));
    return command_line;
}

QString CommandLine::usage()
{
    return u"Usage: fennar [--batch] [--no-components] [--settings FILE] [--play FILE [--set "
           u"NAME=VALUE]...]\n"
           "              [--json FILE] [[--] MODEL]\n"
           "       fennar [--no-components] [--settings FILE] --check FILE\n"
           "\n"
           "  MODEL        open this model, before anything is played; if that fails, nothing is played;\n"
           "               behind \"--\" its name may begin with a \"-\"\n"
           "  --play FILE  play a journal of commands, or of Python if its name ends in .py\n"
           "  --set NAME=VALUE\n"
           "               give a parameter that the journal declares this value and not its default\n"
           "  --batch      open no window: play the journal and end, with status 0, 1 if it failed, or 2 if\n"
           "               the arguments were wrong, --set included; FILE may then be a pipe, or \"-\" for\n"
           "               standard input\n"
           "  --json FILE  in a batch run, write what each command returned and how long it took, in JSON;\n"
           "               \"-\" is standard output, and what the journal prints goes to standard error\n"
           "  --check FILE look for errors in a journal without running it, and end, with status 0 if there\n"
           "               are none, or 1\n"
           "  --no-components\n"
           "               load no components at the start\n"
           "  --settings FILE\n"
           "               keep settings in FILE, and the history in FILE.data, not among the user's own\n"
           "  --version    print the version and end\n"
           "  --help       print this text and end\n"_s;
}

} // namespace fennar
