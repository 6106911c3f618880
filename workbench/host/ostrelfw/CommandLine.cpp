// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/ostrelfw/CommandLine.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

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
        else if (word == "--play"_L1 && i + 1 < words.size())
            mJournal = words[++i];
        else if (word == "--play"_L1)
            mError = u"--play needs the name of a journal"_s;
        else if (word == "--check"_L1 && i + 1 < words.size() && !words[i + 1].isEmpty())
            mCheck = words[++i];
        else if (word == "--check"_L1)
            mError = u"--check needs the name of a journal"_s;
        else if (word == "--settings"_L1 && i + 1 < words.size() && !words[i + 1].isEmpty())
            mSettings = words[++i];
        else if (word == "--settings"_L1)
            mError = u"--settings needs the name of a file"_s;
        else
            mError = u"unknown argument \"%1\""_s.arg(word);
    }
    if (mError.isEmpty() && !mCheck.isEmpty() && (mBatch || !mJournal.isEmpty() || !mFile.isEmpty()))
        mError = u"--check cannot be combined with --batch, --play or a model"_s;
    mBatch = mBatch || !mCheck.isEmpty();
    if (mError.isEmpty() && mBatch && mJournal.isEmpty() && mCheck.isEmpty() && !mHelp && !mVersion)
        mError = u"--batch needs a journal: add --play FILE"_s;
    else if (mError.isEmpty() && !mBatch && mJournal == standard_input)
        mError = u"--play - reads the journal from standard input, which needs --batch"_s;
}

CommandLine::~CommandLine() = default;

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
    return u"Usage: fennar [--batch] [--no-components] [--settings FILE] [--play FILE] [[--] MODEL]\n"
           "       fennar [--no-components] [--settings FILE] --check FILE\n"
           "\n"
           "  MODEL        open this model, before anything is played; if that fails, nothing is played;\n"
           "               behind \"--\" its name may begin with a \"-\"\n"
           "  --play FILE  play a journal of commands, or of Python if its name ends in .py\n"
           "  --batch      open no window: play the journal and end, with status 0, or 1 if it failed;\n"
           "               FILE may then be a pipe, or \"-\" for standard input\n"
           "  --check FILE look for errors in a journal without running it, and end, with status 0 if there\n"
           "               are none, or 1\n"
           "  --no-components\n"
           "               load no components at the start\n"
           "  --settings FILE\n"
           "               keep settings in FILE, and the history in FILE.data, not among the user's own\n"
           "  --version    print the version and end\n"
           "  --help       print this text and end\n"_s;
}

void CommandLine::set_graphics_state(int state)
{
    mGraphicsState = state;
}

bool CommandLine::batch_mode()
{
    return mBatch;
}
