// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/geometry_commands.h"

#include "workbench/components/geometry/commands/LongWork.h"
#include "workbench/components/geometry/commands/command_parts.h"
#include "workbench/components/geometry/commands/geometry_entities.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/model/ModelChanges.h"
#include "workbench/sdk/core/scene/select_command.h"

#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

/** Three numbers. */
Point3 vector(const CommandArguments& arguments, QLatin1StringView key)
{
    return {arguments.number(key, 0), arguments.number(key, 1), arguments.number(key, 2)};
}

int solid(const CommandArguments& arguments, const GeometryModel& model, QLatin1StringView key)
{
    return model.find(arguments.text(key))->id;
}

/** A coordinate, which the kernel knows to its tolerance only. */
QString shown_coordinate(double value)
{
    return shown_number(std::abs(value) < 5e-7 ? 0.0 : value);
}

QString shown(const Point3& vector)
{
    return shown_coordinate(vector.x) + u' ' + shown_coordinate(vector.y) + u' ' + shown_coordinate(vector.z);
}

int brick(CommandCall&, const CommandArguments& arguments, const CommandContext& context)
{
    const double width = arguments.number("WIDTH"_L1);
    const bool cube = !arguments.has("DEPTH"_L1);
    const Point3 size{width, cube ? width : arguments.number("DEPTH"_L1),
                      cube ? width : arguments.number("HEIGHT"_L1)};
    return context.model.brick(size, vector(arguments, "at"_L1), arguments.text("name"_L1));
}

int cylinder(CommandCall&, const CommandArguments& arguments, const CommandContext& context)
{
    return context.model.cylinder(arguments.number("RADIUS"_L1), arguments.number("HEIGHT"_L1),
                                  vector(arguments, "at"_L1), vector(arguments, "along"_L1),
                                  arguments.text("name"_L1));
}

int sphere(CommandCall&, const CommandArguments& arguments, const CommandContext& context)
{
    return context.model.sphere(arguments.number("RADIUS"_L1), vector(arguments, "at"_L1),
                                arguments.text("name"_L1));
}

int cone(CommandCall&, const CommandArguments& arguments, const CommandContext& context)
{
    return context.model.cone(arguments.number("RADIUS"_L1), arguments.number("TOP_RADIUS"_L1),
                              arguments.number("HEIGHT"_L1), vector(arguments, "at"_L1),
                              vector(arguments, "along"_L1), arguments.text("name"_L1));
}

int torus(CommandCall&, const CommandArguments& arguments, const CommandContext& context)
{
    return context.model.torus(arguments.number("RADIUS"_L1), arguments.number("TUBE_RADIUS"_L1),
                               vector(arguments, "at"_L1), vector(arguments, "along"_L1),
                               arguments.text("name"_L1));
}

void verify_torus(const CommandArguments& arguments, const CommandEntities&)
{
    const double radius = arguments.number("RADIUS"_L1);
    if (arguments.number("TUBE_RADIUS"_L1) >= radius)
        throw arguments.words().expected(
            arguments.word("TUBE_RADIUS"_L1),
            {QT_TRANSLATE_NOOP("CommandError", "a radius of the tube (less than %1)"),
             {arguments.text("RADIUS"_L1)}});
}

void move(CommandCall&, const CommandArguments& arguments, const CommandContext& context)
{
    context.model.move(solids(arguments, context.model), vector(arguments, "by"_L1));
}

void rotate(CommandCall&, const CommandArguments& arguments, const CommandContext& context)
{
    context.model.rotate(solids(arguments, context.model), arguments.number("by"_L1),
                         vector(arguments, "about"_L1), vector(arguments, "along"_L1));
}

int copy(CommandCall&, const CommandArguments& arguments, const CommandContext& context)
{
    return context.model.copy(solid(arguments, context.model, "SOLID"_L1), vector(arguments, "by"_L1),
                              arguments.text("name"_L1));
}

void rename(CommandCall&, const CommandArguments& arguments, const CommandContext& context)
{
    context.model.rename(solid(arguments, context.model, "SOLID"_L1), arguments.text("NAME"_L1));
}

/** Shows progress and a cancel button from the moment that the kernel has worked for a while. */
ShapeListener when_long(CommandCall& call, const CommandContext& context, const char* title)
{
    const auto work = std::make_shared<std::optional<LongWork>>();
    return {[&call, &context, title, work](int percent) {
                if (!*work)
                    work->emplace(call, context.services, title);
                (*work)->show(percent, {});
            },
            [work] { return (*work)->go_on(); }};
}

int unite(CommandCall& call, const CommandArguments& arguments, const CommandContext& context)
{
    const QList<int> ids = solids(arguments, context.model);
    context.model.unite(ids, when_long(call, context, "Unite"));
    return ids.first();
}

int subtract(CommandCall& call, const CommandArguments& arguments, const CommandContext& context)
{
    const int id = solid(arguments, context.model, "from"_L1);
    context.model.subtract(id, solids(arguments, context.model, "TOOL"_L1),
                           when_long(call, context, "Subtract"));
    return id;
}

int intersect(CommandCall& call, const CommandArguments& arguments, const CommandContext& context)
{
    const QList<int> ids = solids(arguments, context.model);
    context.model.intersect(ids, when_long(call, context, "Intersect"));
    return ids.first();
}

void remove(CommandCall&, const CommandArguments& arguments, const CommandContext& context)
{
    context.model.remove(solids(arguments, context.model));
}

void list(CommandCall& call, const CommandArguments& arguments, const CommandContext& context)
{
    const GeometryModel& model = context.model;
    const QList<int> ids = arguments.has("SOLID"_L1) ? solids(arguments, model) : model.ids();
    call.set_result(solids_value(model, ids));
    if (ids.isEmpty()) {
        call.print(u"There are no solids.\n"_s);
        return;
    }
    QList<QStringList> rows{{u"id"_s, u"name"_s, u"volume"_s, u"area"_s, u"pieces"_s, u"center"_s, u"box"_s}};
    for (const int id : ids) {
        const SolidMeasures measures = model.measures(id);
        const Box3 box = model.box(id);
        rows.append({QString::number(id), model.solid(id)->name, shown_number(measures.volume),
                     shown_number(measures.area), QString::number(measures.pieces), shown(measures.center),
                     shown(box.least) + u" to "_s + shown(box.most)});
    }
    call.print(table(rows, {true, false, true, true, true, false, false}));
}

const auto placing_help =
    "The solid lies around its center, which is the origin unless \"at\" tells another. "
    "Without a\nname it is named after its kind and id."_L1;
const auto axis_help =
    "The solid lies around its center, which is the origin unless \"at\" tells another. Its "
    "axis is\nthe z axis unless \"along\" tells another direction. Without a name it is named "
    "after its kind\nand id."_L1;
const auto combine_help =
    "The result has the name and id of the first solid; the others are gone. It may have several pieces."_L1;
const auto solids_help = "\"all\" stands for all solids."_L1;

/** Makes or changes a solid and returns its id. */
using SolidWork = int (*)(CommandCall& call, const CommandArguments& arguments,
                          const CommandContext& context);

/** A command that does this work, and tells of the solid and returns it. */
Command solid_command(const QString& name, const QString& summary, const QString& help,
                      const CommandSyntax& form, SolidWork work, const CommandContext& context)
{
    const auto perform = [work, context](CommandCall& call, const CommandArguments& arguments) {
        const int id = work(call, arguments, context);
        const GeometryModel& model = context.model;
        call.set_result(solid_value(model, id));
        const SolidMeasures measures = model.measures(id);
        QString text = u"%1: volume %2"_s.arg(model.solid(id)->name, shown_number(measures.volume));
        if (measures.pieces > 1)
            text += u" in %1 pieces"_s.arg(measures.pieces);
        call.print(text + u'\n');
    };
    return {.name = name,
            .summary = summary,
            .help = help,
            .perform = perform,
            .forms = {form},
            .changes_model = true,
            .result = entity_type(solid_entity())};
}

CommandParameter radius_parameter(const QString& example = {})
{
    return length_parameter(u"RADIUS"_s, u"a radius"_s, QT_TRANSLATE_NOOP("CommandParameter", "Radius"),
                            example);
}

CommandParameter tools()
{
    CommandParameter result = solids_parameter();
    result.name = u"TOOL"_s;
    result.label = QT_TRANSLATE_NOOP("CommandParameter", "Tools");
    result.choices.clear();
    return result;
}

/** What tools are taken away from, which is none of them. */
CommandParameter other_solid()
{
    CommandParameter result = solid_parameter();
    result.distinct = true;
    return result;
}

CommandClause offset(bool optional)
{
    return position_clause(u"by"_s, u"the offset"_s, QT_TRANSLATE_NOOP("CommandParameter", "Offset"),
                           optional);
}

CommandClause angle()
{
    return {.keyword = u"by"_s,
            .parameters = {{.name = u"DEGREES"_s,
                            .kind = CommandParameter::Kind::Number,
                            .what = u"an angle in degrees"_s,
                            .label = QT_TRANSLATE_NOOP("CommandParameter", "Angle"),
                            .unit = u"\u00b0"_s,
                            .example = u"30"_s}}};
}

/** Those that make a solid. */
QList<Command> making_commands(const CommandContext& context)
{
    const CommandParameter height =
        length_parameter(u"HEIGHT"_s, u"a height"_s, QT_TRANSLATE_NOOP("CommandParameter", "Height"));
    const CommandClause width = required_value(
        length_parameter(u"WIDTH"_s, u"a width"_s, QT_TRANSLATE_NOOP("CommandParameter", "Width")));
    const CommandClause depth_and_height{
        .parameters = {length_parameter(u"DEPTH"_s, u"a depth"_s,
                                        QT_TRANSLATE_NOOP("CommandParameter", "Depth")),
                       height},
        .optional = true,
        .tip = QT_TRANSLATE_NOOP("CommandParameter", "Without depth and height it is a cube.")};
    const CommandClause top_radius = optional_value(length_parameter(
        u"TOP_RADIUS"_s, u"a top radius"_s, QT_TRANSLATE_NOOP("CommandParameter", "Radius of the top"), {},
        QT_TRANSLATE_NOOP("CommandParameter", "Without it the cone ends in a point.")));
    const CommandClause tube_radius =
        required_value(length_parameter(u"TUBE_RADIUS"_s, u"a radius of the tube"_s,
                                        QT_TRANSLATE_NOOP("CommandParameter", "Radius of the tube"), u"2"_s));
    const CommandClause radius = required_value(radius_parameter());
    const CommandClause center =
        position_clause(u"at"_s, u"the center"_s, QT_TRANSLATE_NOOP("CommandParameter", "Center"));
    const CommandClause axis = axis_clause();
    const CommandClause name = name_clause();
    return {
        solid_command(u"brick"_s, u"Makes a brick, or a cube."_s, placing_help,
                      {{width, depth_and_height, center, name}}, &brick, context),
        solid_command(u"cylinder"_s, u"Makes a cylinder."_s, axis_help,
                      {{radius, required_value(height), center, axis, name}}, &cylinder, context),
        solid_command(u"sphere"_s, u"Makes a sphere."_s, placing_help, {{radius, center, name}}, &sphere,
                      context),
        solid_command(u"cone"_s, u"Makes a cone, or a part of one."_s, axis_help,
                      {{radius, required_value(height), top_radius, center, axis, name}}, &cone, context),
        solid_command(
            u"torus"_s, u"Makes a torus."_s, axis_help,
            {.clauses = {required_value(radius_parameter(u"10"_s)), tube_radius, center, axis, name},
             .verify = &verify_torus},
            &torus, context),
    };
}

/** Those that work on single solids. */
QList<Command> solid_commands(const CommandContext& context)
{
    return {
        {.name = u"move"_s,
         .summary = u"Moves solids."_s,
         .help = solids_help,
         .perform = performing(&move, context),
         .forms = {{.clauses = {required_value(solids_parameter()), offset(false)}}},
         .changes_model = true},
        {.name = u"rotate"_s,
         .summary = u"Turns solids."_s,
         .help = u"The axis goes through the origin unless \"about\" tells another point, in the direction "
                 u"of the z axis\nunless \"along\" tells another. \"all\" stands for all solids."_s,
         .perform = performing(&rotate, context),
         .forms = {{.clauses = {required_value(solids_parameter()), angle(),
                                position_clause(u"about"_s, u"the point"_s,
                                                QT_TRANSLATE_NOOP("CommandParameter", "Point on the axis")),
                                axis_clause()}}},
         .changes_model = true},
        solid_command(u"copy"_s, u"Copies a solid."_s, {},
                      {{required_value(solid_parameter()), offset(true), name_clause()}}, &copy, context),
        {.name = u"rename"_s,
         .summary = u"Gives a solid another name."_s,
         .perform = performing(&rename, context),
         .forms = {{.clauses = {required_value(solid_parameter()), required_value(new_name_parameter())}}},
         .changes_model = true},
        {.name = u"delete"_s,
         .summary = u"Deletes solids."_s,
         .help = solids_help,
         .perform = performing(&remove, context),
         .forms = {{.clauses = {required_value(solids_parameter())}}},
         .changes_model = true},
        {.name = u"list"_s,
         .summary = u"Lists solids with their measures."_s,
         .help = u"Solids can be named by name or by id. The box around a solid is exact to six digits."_s,
         .perform = performing(&list, context),
         .forms = {{.clauses = {optional_value(solids_parameter())}}},
         .result = list_type(entity_type(solid_entity()))},
    };
}

/** Those that make one solid of several. */
QList<Command> combining_commands(const CommandContext& context)
{
    QList<Command> commands{
        solid_command(u"unite"_s, u"Makes one solid of several."_s, combine_help,
                      {{required_value(solids_parameter(2))}}, &unite, context),
        solid_command(
            u"subtract"_s, u"Takes the tools away from a solid."_s,
            u"The tools are gone then. The solid may fall into several pieces, which stay one solid."_s,
            {{required_value(tools()), {.keyword = u"from"_s, .parameters = {other_solid()}}}}, &subtract,
            context),
        solid_command(u"intersect"_s, u"Keeps what several solids have in common."_s, combine_help,
                      {{required_value(solids_parameter(2))}}, &intersect, context),
    };
    for (Command& command : commands)
        command.long_running = true;
    return commands;
}

} // namespace

bool register_geometry_commands(CommandRegistry& registry, const QString& owner,
                                const CommandContext& context)
{
    QList<Command> commands = making_commands(context) + solid_commands(context) +
                              combining_commands(context) + mesh_commands(context) + file_commands(context);
    for (Command& command : commands) {
        if (command.changes_model)
            command.makes << item_entity();
    }
    offer_geometry_entities(registry.entities(), context.model, context.programs, owner);
    offer_formats(registry.entities(), owner);
    const auto changes = std::make_shared<ModelChanges>(context.model);
    registry.steps().add_source(owner, [changes] { return changes->take(); });
    QObject::connect(&context.model, &GeometryModel::replaced, &registry.steps(), &UndoSteps::clear);
    return registry.add_all(owner, commands);
}

} // namespace fennar::geometry
