// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"
#include "workbench/sdk/core/commands/CommandValue.h"

#include <QDir>
#include <QLatin1StringView>
#include <QList>
#include <QString>
#include <QStringList>

namespace fennar {
class CommandArguments;
class CommandCall;
struct ApplicationServices;
} // namespace fennar

namespace fennar::geometry {

class GeometryModel;

/** A command that works on the model. */
struct GeometryCommand
{
    /** What all of them work with. */
    struct Context
    {
        GeometryModel& model;
        const ApplicationServices& services;
        /** The folder of the programs with the engine. */
        QDir programs;
    };
    using Perform = void (*)(CommandCall& call, const CommandArguments& arguments, Context& context);

    QLatin1StringView name;
    QLatin1StringView summary;
    QLatin1StringView help = {};
    Perform perform = nullptr;
    QList<CommandSyntax> forms = {{}};
    bool changes_model = false;
    bool long_running = false;
    /** As Command::makes. */
    QStringList makes = {};
    CommandType result = {};
};

/** Those that make and measure meshes. */
QList<GeometryCommand> mesh_commands();

/** The solids that an argument names, or all of them for "all". */
QList<int> solids(const CommandArguments& arguments, const GeometryModel& model,
                  QLatin1StringView key = QLatin1StringView("SOLID"));

/** A measure with six digits. */
QString shown_number(double value);

/** Lines up the cells of a table, the first line being its head. Numbers stand to the @p right. */
QString table(const QList<QStringList>& rows, const QList<bool>& right);

} // namespace fennar::geometry
