// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/commands/CommandDescription.h"

// What the commands of the component take.

/** The kind of entities that solids are. */
QString solid_entity();

/** A width, radius or the like, in millimetres. */
CommandParameter length_parameter(const QString& name, const char* label, const QString& example = {});
/** One solid. */
CommandParameter solid_parameter(const char* label, const QString& name);
/** At least @p at_least solids, or "all" of them if one is enough. */
CommandParameter solids_parameter(int at_least = 1);

/** "KEYWORD X Y Z": a point. */
CommandClause position_clause(const QString& keyword, const char* label, bool optional,
                              const QString& default_value = {});
/** "[along X Y Z]" */
CommandClause axis_clause();
/** A name for a solid. */
CommandParameter new_name_parameter();
/** "[name NAME]" */
CommandClause name_clause();
