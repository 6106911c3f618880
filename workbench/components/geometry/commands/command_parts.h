// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/geometry/commands/geometry_commands.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"

namespace fennar::geometry {

// What the commands are made of.

using CommandWork = void (*)(CommandCall& call, const CommandArguments& arguments,
                             const CommandContext& context);
/** For Command::perform. */
decltype(Command::perform) performing(CommandWork work, const CommandContext& context);

/** Those that make and measure meshes. */
QList<Command> mesh_commands(const CommandContext& context);
/** "import" and "export". */
QList<Command> file_commands(const CommandContext& context);
/** Offers the formats that these take. */
void offer_formats(CommandEntities& entities, const QString& owner);

/** The solids that an argument names, or all of them for "all". */
QList<int> solids(const CommandArguments& arguments, const GeometryModel& model,
                  QLatin1StringView key = QLatin1StringView("SOLID"));

/** A measure with six digits. */
QString shown_number(double value);

/** Lines up the cells of a table, the first line being its head. Numbers stand to the @p right. */
QString table(const QList<QStringList>& rows, const QList<bool>& right);

/** Words that cannot name solids, since commands give them a meaning. */
const QStringList& solid_keywords();
/** The kind of entities that solids are. */
QString solid_entity();

/** A width, radius or the like, in millimeters. @p what as "a radius", as CommandParameter has it. */
CommandParameter length_parameter(const QString& name, const QString& what, const char* label,
                                  const QString& example = {}, const char* tip = nullptr);
/** One solid. */
CommandParameter solid_parameter();
/** At least @p at_least solids, or "all" of them if one is enough. */
CommandParameter solids_parameter(int at_least = 1);

/** "KEYWORD X Y Z": a point, which is @p what, as "the center", and the origin where it may be left out. */
CommandClause position_clause(const QString& keyword, const QString& what, const char* label,
                              bool optional = true);
/** "[along X Y Z]" */
CommandClause axis_clause();
/** A name for a solid. */
CommandParameter new_name_parameter();
/** "[name NAME]" */
CommandClause name_clause();

} // namespace fennar::geometry
