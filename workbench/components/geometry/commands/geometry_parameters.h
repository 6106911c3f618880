// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"

namespace fennar::geometry {

// What the commands of the component take.

/** Words that cannot name solids, since commands give them a meaning. */
const QStringList& solid_keywords();
/** The kind of entities that solids are. */
QString solid_entity();

/** A width, radius or the like, in millimetres. @p what as "a radius", as CommandParameter has it. */
CommandParameter length_parameter(const QString& name, const QString& what, const char* label,
                                  const QString& example = {});
/** One solid. */
CommandParameter solid_parameter(const char* label, const QString& name);
/** At least @p at_least solids, or "all" of them if one is enough. */
CommandParameter solids_parameter(int at_least = 1);

/** "KEYWORD X Y Z": a point, which is @p what, as "the center". */
CommandClause position_clause(const QString& keyword, const QString& what, const char* label, bool optional,
                              const QString& default_value = {});
/** "[along X Y Z]" */
CommandClause axis_clause();
/** A name for a solid. */
CommandParameter new_name_parameter();
/** "[name NAME]" */
CommandClause name_clause();

} // namespace fennar::geometry
