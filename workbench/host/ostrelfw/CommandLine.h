// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "host/ostrelfw/CLParser.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

namespace fennar {

/** The workbench's command line. */
class CommandLine : public CLParser
{
public:
    /** The name of a journal that stands for standard input; only in a batch run. */
    static constexpr QLatin1String standard_input{"-"};

    /** The name of a record that stands for standard output. */
    static constexpr QLatin1String standard_output{"-"};

    /** Reads the words behind the program's name. */
    explicit CommandLine(const QStringList& words);

    /** The one that the application was started with, as CLOptions gives it; an application object must
     * exist. */
    static CommandLine& of_application();

    /** What is wrong with the command line, as a text for the user; empty if nothing is. */
    QString error() const { return mError; }
    /** Whether only the usage was asked for. */
    bool help() const { return mHelp; }
    /** Whether only the version was asked for. */
    bool version() const { return mVersion; }
    /** The journal to play after the start; empty for none. */
    QString journal() const { return mJournal; }
    /** Values for the journal's parameters, with their names: each for another one. */
    const QList<std::pair<QString, QString>>& parameters() const { return mSet; }
    /** The file for a record of the run, standard_output, or empty for none; only in a batch run. */
    QString record() const { return mRecord; }
    /** The journal to look through for errors, with which the program ends; empty for none. */
    QString check() const { return mCheck; }
    /** The model to open after the start; empty for none. */
    QString file() const { return mFile; }
    /** Whether components are to be loaded at the start. */
    bool components() const { return mComponents; }
    /** The file for the settings; empty for the user's own. */
    QString settings() const { return mSettings; }
    /** How the program is called, as a text of several lines. */
    static QString usage();

    /** What the main window has reported last: 0 nothing, 1 its graphics widget has gone, 2 one has come. */
    int graphics_state() const { return mGraphicsState; }

    void set_graphics_state(int state) override { mGraphicsState = state; }
    bool batch_mode() override { return mBatch; }

private:
    void take_file(const QString& word);
    void take_setting(const QString& word);
    /** Takes an argument that has a value, which is empty if there is none. Returns whether it is one. */
    bool take_value(const QString& argument, const QString& value);
    void check_together();

    QString mError;
    QString mJournal;
    QString mCheck;
    QString mSettings;
    QString mFile;
    QList<std::pair<QString, QString>> mSet;
    QString mRecord;
    int mGraphicsState = 0;
    bool mBatch = false;
    bool mComponents = true;
    bool mHelp = false;
    bool mVersion = false;
};

} // namespace fennar
