// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/geometry_commands.h"

#include "workbench/components/geometry/commands/GeometryCommand.h"
#include "workbench/components/geometry/commands/LongWork.h"
#include "workbench/components/geometry/commands/geometry_entities.h"
#include "workbench/components/geometry/commands/geometry_parameters.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/model/ModelChanges.h"
#include "workbench/sdk/core/commands/CommandArguments.h"
#include "workbench/sdk/core/commands/CommandCall.h"
#include "workbench/sdk/core/commands/CommandInterpreter.h"
#include "workbench/sdk/core/commands/CommandRegistry.h"
#include "workbench/sdk/core/scene/select_command.h"

#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

using Context = GeometryCommand::Context;

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

/** Tells of the solid that a command has made or changed, and returns it. */
void tell_solid(CommandCall& call, const GeometryModel& model, int id)
{
    call.set_result(solid_value(model, id));
    const SolidMeasures measures = model.measures(id);
    QString text = u"%1: volume %2"_s.arg(model.solid(id)->name, shown_number(measures.volume));
    if (measures.pieces > 1)
        text += u" in %1 pieces"_s.arg(measures.pieces);
    call.print(text + u'\n');
}

void brick(CommandCall& call, const CommandArguments& arguments, Context& context)
{
    const double width = arguments.number("WIDTH"_L1);
    const bool cube = !arguments.has("DEPTH"_L1);
    const Point3 size{width, cube ? width : arguments.number("DEPTH"_L1),
                      cube ? width : arguments.number("HEIGHT"_L1)};
    tell_solid(call, context.model,
               context.model.brick(size, vector(arguments, "at"_L1), arguments.text("name"_L1)));
}

void cylinder(CommandCall& call, const CommandArguments& arguments, Context& context)
{
    tell_solid(call, context.model,
               context.model.cylinder(arguments.number("RADIUS"_L1), arguments.number("HEIGHT"_L1),
                                      vector(arguments, "at"_L1), vector(arguments, "along"_L1),
                                      arguments.text("name"_L1)));
}

void sphere(CommandCall& call, const CommandArguments& arguments, Context& context)
{
    tell_solid(call, context.model,
               context.model.sphere(arguments.number("RADIUS"_L1), vector(arguments, "at"_L1),
                                    arguments.text("name"_L1)));
}

void cone(CommandCall& call, const CommandArguments& arguments, Context& context)
{
    tell_solid(call, context.model,
               context.model.cone(arguments.number("RADIUS"_L1), arguments.number("TOP_RADIUS"_L1),
                                  arguments.number("HEIGHT"_L1), vector(arguments, "at"_L1),
                                  vector(arguments, "along"_L1), arguments.text("name"_L1)));
}

void torus(CommandCall& call, const CommandArguments& arguments, Context& context)
{
    tell_solid(call, context.model,
               context.model.torus(arguments.number("RADIUS"_L1), arguments.number("TUBE_RADIUS"_L1),
                                   vector(arguments, "at"_L1), vector(arguments, "along"_L1),
                                   arguments.text("name"_L1)));
}

void verify_torus(const CommandArguments& arguments, const CommandEntities&)
{
    const double radius = arguments.number("RADIUS"_L1);
    if (arguments.number("TUBE_RADIUS"_L1) >= radius)
        throw arguments.words().expected(arguments.word("TUBE_RADIUS"_L1),
                                         u"a radius of the tube (less than %1)"_s.arg(radius));
}

void move(CommandCall&, const CommandArguments& arguments, Context& context)
{
    context.model.move(solids(arguments, context.model), vector(arguments, "by"_L1));
}

void rotate(CommandCall&, const CommandArguments& arguments, Context& context)
{
    context.model.rotate(solids(arguments, context.model), arguments.number("by"_L1),
                         vector(arguments, "about"_L1), vector(arguments, "along"_L1));
}

void copy(CommandCall& call, const CommandArguments& arguments, Context& context)
{
    tell_solid(call, context.model,
               context.model.copy(solid(arguments, context.model, "SOLID"_L1), vector(arguments, "by"_L1),
                                  arguments.text("name"_L1)));
}

void rename(CommandCall&, const CommandArguments& arguments, Context& context)
{
    context.model.rename(solid(arguments, context.model, "SOLID"_L1), arguments.text("NAME"_L1));
}

/** Shows progress and a cancel button from the moment that the kernel has worked for a while. */
class LongOperation
{
public:
    LongOperation(CommandCall& call, const Context& context, const char* title)
        : mListener{[&, title](int percent) {
                        if (!mWork)
                            mWork.emplace(call, context.services, title);
                        mWork->show(percent, {});
                    },
                    [this] { return mWork->go_on(); }}
    {}

    const ShapeListener& listener() const { return mListener; }

private:
    std::optional<LongWork> mWork;
    ShapeListener mListener;
};

void unite(CommandCall& call, const CommandArguments& arguments, Context& context)
{
    const QList<int> ids = solids(arguments, context.model);
    context.model.unite(ids, LongOperation(call, context, "Unite").listener());
    tell_solid(call, context.model, ids.first());
}

void subtract(CommandCall& call, const CommandArguments& arguments, Context& context)
{
    const int id = solid(arguments, context.model, "from"_L1);
    context.model.subtract(id, solids(arguments, context.model, "TOOL"_L1),
                           LongOperation(call, context, "Subtract").listener());
    tell_solid(call, context.model, id);
}

void intersect(CommandCall& call, const CommandArguments& arguments, Context& context)
{
    const QList<int> ids = solids(arguments, context.model);
    context.model.intersect(ids, LongOperation(call, context, "Intersect").listener());
    tell_solid(call, context.model, ids.first());
}

void remove(CommandCall&, const CommandArguments& arguments, Context& context)
{
    context.model.remove(solids(arguments, context.model));
}

void list(CommandCall& call, const CommandArguments& arguments, Context& context)
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

constexpr auto placing_help =
    "The solid lies around its center, which is the origin unless \"at\" tells another. "
    "Without a\nname it is named after its kind and id."_L1;
constexpr auto axis_help =
    "The solid lies around its center, which is the origin unless \"at\" tells another. Its "
    "axis is\nthe z axis unless \"along\" tells another direction. Without a name it is named "
    "after its kind\nand id."_L1;
constexpr auto combine_help =
    "The result has the name and id of the first solid; the others are gone. It may have several pieces."_L1;
constexpr auto solids_help = "\"all\" stands for all solids."_L1;

/** Of a cone. */
CommandParameter top_radius()
{
    CommandParameter result = length_parameter(u"TOP_RADIUS"_s, u"a top radius"_s,
                                               QT_TRANSLATE_NOOP("CommandParameter", "Radius of the top"));
    result.tip = QT_TRANSLATE_NOOP("CommandParameter", "Without it the cone ends in a point.");
    return result;
}

CommandParameter one_solid()
{
    return solid_parameter(QT_TRANSLATE_NOOP("CommandParameter", "Solid"), u"SOLID"_s);
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
    CommandParameter result = one_solid();
    result.distinct = true;
    return result;
}

CommandParameter radius()
{
    return length_parameter(u"RADIUS"_s, u"a radius"_s, QT_TRANSLATE_NOOP("CommandParameter", "Radius"));
}

CommandParameter height()
{
    return length_parameter(u"HEIGHT"_s, u"a height"_s, QT_TRANSLATE_NOOP("CommandParameter", "Height"));
}

/** The radius of a torus from its middle to that of the tube. */
CommandParameter ring_radius()
{
    CommandParameter result = radius();
    result.example = u"10"_s;
    return result;
}

CommandParameter tube_radius()
{
    return length_parameter(u"TUBE_RADIUS"_s, u"a radius of the tube"_s,
                            QT_TRANSLATE_NOOP("CommandParameter", "Radius of the tube"), u"2"_s);
}

/** Those of a brick that may be left out together. */
CommandClause depth_and_height()
{
    return {.parameters = {length_parameter(u"DEPTH"_s, u"a depth"_s,
                                            QT_TRANSLATE_NOOP("CommandParameter", "Depth")),
                           height()},
            .optional = true,
            .tip = QT_TRANSLATE_NOOP("CommandParameter", "Without depth and height it is a cube.")};
}

CommandClause center()
{
    return position_clause(u"at"_s, u"the center"_s, QT_TRANSLATE_NOOP("CommandParameter", "Center"), true,
                           u"0 0 0"_s);
}

CommandClause offset(bool optional)
{
    return position_clause(u"by"_s, u"the offset"_s, QT_TRANSLATE_NOOP("CommandParameter", "Offset"),
                           optional, optional ? u"0 0 0"_s : QString());
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
QList<GeometryCommand> making_commands()
{
    return {
        {.name = "brick"_L1,
         .summary = "Makes a brick, or a cube."_L1,
         .help = placing_help,
         .perform = brick,
         .forms = {{.clauses = {required_value(
                                    length_parameter(u"WIDTH"_s, u"a width"_s,
                                                     QT_TRANSLATE_NOOP("CommandParameter", "Width"))),
                                depth_and_height(), center(), name_clause()}}},
         .changes_model = true,
         .result = entity_type(solid_entity())},
        {.name = "cylinder"_L1,
         .summary = "Makes a cylinder."_L1,
         .help = axis_help,
         .perform = cylinder,
         .forms = {{.clauses = {required_value(radius()), required_value(height()), center(), axis_clause(),
                                name_clause()}}},
         .changes_model = true,
         .result = entity_type(solid_entity())},
        {.name = "sphere"_L1,
         .summary = "Makes a sphere."_L1,
         .help = placing_help,
         .perform = sphere,
         .forms = {{.clauses = {required_value(radius()), center(), name_clause()}}},
         .changes_model = true,
         .result = entity_type(solid_entity())},
        {.name = "cone"_L1,
         .summary = "Makes a cone, or a part of one."_L1,
         .help = axis_help,
         .perform = cone,
         .forms = {{.clauses = {required_value(radius()), required_value(height()),
                                optional_value(top_radius()), center(), axis_clause(), name_clause()}}},
         .changes_model = true,
         .result = entity_type(solid_entity())},
        {.name = "torus"_L1,
         .summary = "Makes a torus."_L1,
         .help = axis_help,
         .perform = torus,
         .forms = {{.clauses = {required_value(ring_radius()), required_value(tube_radius()), center(),
                                axis_clause(), name_clause()},
                    .verify = &verify_torus}},
         .changes_model = true,
         .result = entity_type(solid_entity())},
    };
}

/** Those that work on single solids. */
QList<GeometryCommand> solid_commands()
{
    return {
        {.name = "move"_L1,
         .summary = "Moves solids."_L1,
         .help = solids_help,
         .perform = move,
         .forms = {{.clauses = {required_value(solids_parameter()), offset(false)}}},
         .changes_model = true},
        {.name = "rotate"_L1,
         .summary = "Turns solids."_L1,
         .help =
             "The axis goes through the origin unless \"about\" tells another point, in the direction of the "
             "z axis\nunless \"along\" tells another. \"all\" stands for all solids."_L1,
         .perform = rotate,
         .forms = {{.clauses = {required_value(solids_parameter()), angle(),
                                position_clause(u"about"_s, u"the point"_s,
                                                QT_TRANSLATE_NOOP("CommandParameter", "Point on the axis"),
                                                true, u"0 0 0"_s),
                                axis_clause()}}},
         .changes_model = true},
        {.name = "copy"_L1,
         .summary = "Copies a solid."_L1,
         .perform = copy,
         .forms = {{.clauses = {required_value(one_solid()), offset(true), name_clause()}}},
         .changes_model = true,
         .result = entity_type(solid_entity())},
        {.name = "rename"_L1,
         .summary = "Gives a solid another name."_L1,
         .perform = rename,
         .forms = {{.clauses = {required_value(one_solid()), required_value(new_name_parameter())}}},
         .changes_model = true},
        {.name = "delete"_L1,
         .summary = "Deletes solids."_L1,
         .help = solids_help,
         .perform = remove,
         .forms = {{.clauses = {required_value(solids_parameter())}}},
         .changes_model = true},
        {.name = "list"_L1,
         .summary = "Lists solids with their measures."_L1,
         .help = "Solids can be named by name or by id. The box around a solid is exact to six digits."_L1,
         .perform = list,
         .forms = {{.clauses = {optional_value(solids_parameter())}}},
         .result = list_type(entity_type(solid_entity()))},
    };
}

/** Those that make one solid of several. */
QList<GeometryCommand> combining_commands()
{
    return {
        {.name = "unite"_L1,
         .summary = "Makes one solid of several."_L1,
         .help = combine_help,
         .perform = unite,
         .forms = {{.clauses = {required_value(solids_parameter(2))}}},
         .changes_model = true,
         .long_running = true,
         .result = entity_type(solid_entity())},
        {.name = "subtract"_L1,
         .summary = "Takes the tools away from a solid."_L1,
         .help = "The tools are gone then. The solid may fall into several pieces, which stay one solid."_L1,
         .perform = subtract,
         .forms = {{.clauses = {required_value(tools()),
                                {.keyword = u"from"_s, .parameters = {other_solid()}}}}},
         .changes_model = true,
         .long_running = true,
         .result = entity_type(solid_entity())},
        {.name = "intersect"_L1,
         .summary = "Keeps what several solids have in common."_L1,
         .help = combine_help,
         .perform = intersect,
         .forms = {{.clauses = {required_value(solids_parameter(2))}}},
         .changes_model = true,
         .long_running = true,
         .result = entity_type(solid_entity())},
    };
}

} // namespace

bool register_geometry_commands(CommandRegistry& registry, const QString& owner, GeometryModel& model,
                                const ApplicationServices& services, const QDir& programs)
{
    const auto context = std::make_shared<Context>(Context{model, services, programs});
    QList<Command> commands;
    for (const GeometryCommand& entry :
         making_commands() + solid_commands() + combining_commands() + mesh_commands()) {
        commands.append(
            {.name = entry.name,
             .summary = entry.summary,
             .help = entry.help,
             .perform =
                 [context, function = entry.perform](CommandCall& call, const CommandArguments& arguments) {
                     function(call, arguments, *context);
                 },
             .forms = entry.forms,
             .changes_model = entry.changes_model,
             .makes = entry.changes_model ? entry.makes + QStringList{item_entity()} : entry.makes,
             .long_running = entry.long_running,
             .result = entry.result});
    }
    offer_geometry_entities(registry.entities(), model, programs, owner);
    const auto changes = std::make_shared<ModelChanges>(model);
    registry.steps().add_source(owner, [changes] { return changes->take(); });
    QObject::connect(&model, &GeometryModel::replaced, &registry.steps(), &UndoSteps::clear);
    return registry.add_all(owner, commands);
}

} // namespace fennar::geometry
