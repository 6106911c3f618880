// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/LongWork.h"
#include "workbench/components/geometry/commands/command_parts.h"
#include "workbench/components/geometry/commands/geometry_entities.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/programs/mesh_quality.h"
#include "workbench/components/geometry/programs/run_mesher.h"
#include "workbench/sdk/core/commands/ApplicationServices.h"

#include <cmath>
#include <memory>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

namespace {

/** So large a mesh would take all of the memory before anybody saw an error. */
constexpr double most_nodes = 1e8;

/** More than any machine has cores for such work. */
constexpr int most_threads = 256;

QString summary(const Mesh& mesh)
{
    qint64 volumes = 0;
    for (const Mesh::Elements& elements : mesh.elements) {
        if (elements.dimension == 3)
            volumes += elements.count;
    }
    return u"%1 nodes, %2 volume elements\n"_s.arg(mesh.nodes).arg(volumes);
}

void mesh(CommandCall& call, const CommandArguments& arguments, const CommandContext& context)
{
    GeometryModel& model = context.model;
    const QList<int> ids = solids(arguments, model);
    const double size = arguments.number("size"_L1);
    double nodes = 0;
    for (const int id : ids) {
        const SolidMeasures measures = model.measures(id);
        nodes += measures.volume / std::pow(size, 3) + measures.area / std::pow(size, 2);
    }
    if (nodes > most_nodes)
        throw arguments.error(
            arguments.word("size"_L1),
            u"elements so small would need about %1 nodes; %2 is the most"_s.arg(nodes, 0, 'g', 2)
                .arg(most_nodes));

    std::shared_ptr<const Mesh> result;
    {
        LongWork work(call, context.services, "Mesh", arguments.has("verbose"_L1));
        result = run_mesher(context.programs.filePath(u"fennar-mesher"_s), model, ids,
                            {.size = size,
                             .hxt = arguments.text("algorithm"_L1) == u"hxt",
                             .threads = arguments.integer("threads"_L1)},
                            work.listener());
    }
    if (!result)
        throw CommandError(u"cancelled; the last mesh is as it was"_s);
    model.set_mesh(result);
    call.set_result(mesh_value(*result));
    call.print(summary(*result));
}

const Mesh& last_mesh(CommandCall& call, const CommandContext& context)
{
    const std::shared_ptr<const Mesh> mesh = context.model.mesh();
    if (!mesh)
        throw call.error(0, u"there is no mesh"_s);
    return *mesh;
}

QString age(const GeometryModel& model)
{
    return model.is_mesh_old() ? u"The model has changed since.\n"_s : QString();
}

void statistics(CommandCall& call, const CommandArguments&, const CommandContext& context)
{
    const Mesh& mesh = last_mesh(call, context);
    call.set_result(mesh_counts(mesh));
    QList<QStringList> rows{{u"nodes"_s, QString::number(mesh.nodes)}};
    for (const Mesh::Elements& elements : mesh.elements)
        rows.append({elements.kind, QString::number(elements.count)});
    const QString origin =
        mesh.file.isEmpty()
            ? u"Mesh of %1, size %2\n"_s.arg(mesh.solids.join(u", "_s), shown_number(mesh.size))
            : u"Mesh from %1\n"_s.arg(CommandError::shown(mesh.file, mesh.file.size()));
    call.print(origin + table(rows, {false, true}) + age(context.model));
}

void quality(CommandCall& call, const CommandArguments& arguments, const CommandContext& context)
{
    const QString wanted = arguments.text("MEASURE"_L1);
    const Mesh& mesh = last_mesh(call, context);
    if (!mesh.quality) {
        LongWork work(call, context.services, "Quality");
        if (!measure_quality(mesh, context.programs, work.listener()))
            throw CommandError(u"cancelled"_s);
    }
    if (mesh.quality->isEmpty())
        throw call.error(0, u"the mesh has no volume elements"_s);
    call.set_result(mesh_qualities(mesh, wanted));
    QList<QStringList> rows{{u"measure"_s, u"min"_s, u"mean"_s, u"max"_s}};
    for (const Mesh::Quality& quality : *mesh.quality) {
        if (wanted.isEmpty() || quality.measure == wanted)
            rows.append({quality.measure, QString::number(quality.least, 'g', 4),
                         QString::number(quality.mean, 'g', 4), QString::number(quality.most, 'g', 4)});
    }
    call.print(table(rows, {false, true, true, true}) + age(context.model));
}

CommandParameter solids_or_all()
{
    CommandParameter result = solids_parameter();
    result.default_value = result.all;
    return result;
}

} // namespace

QList<Command> mesh_commands(const CommandContext& context)
{
    return {
        {.name = u"mesh"_s,
         .summary = u"Fills solids with tetrahedra."_s,
         .help =
             u"Without solids all of them are meshed. SIZE is the length of the elements. The mesh takes "
             u"the place of\nthe last one. \"hxt\" is a quick algorithm that works in several threads, "
             u"\"delaunay\" the usual one;\nwith more than one thread a mesh may differ a little from time "
             u"to time. \"verbose\" shows all that\nthe mesher has to say."_s,
         .perform = performing(&mesh, context),
         .forms = {{.clauses = {optional_value(solids_or_all()),
                                {.keyword = u"size"_s,
                                 .parameters = {length_parameter(
                                     u"SIZE"_s, u"a size of the elements"_s,
                                     QT_TRANSLATE_NOOP("CommandParameter", "Size of the elements"))}},
                                {.keyword = u"algorithm"_s,
                                 .parameters = {{.name = u"ALGORITHM"_s,
                                                 .kind = CommandParameter::Kind::Choice,
                                                 .label = QT_TRANSLATE_NOOP("CommandParameter", "Algorithm"),
                                                 .default_value = u"delaunay"_s,
                                                 .choices = {u"delaunay"_s, u"hxt"_s}}},
                                 .optional = true},
                                {.keyword = u"threads"_s,
                                 .parameters = {{.name = u"COUNT"_s,
                                                 .kind = CommandParameter::Kind::WholeNumber,
                                                 .what = u"a number of threads"_s,
                                                 .label = QT_TRANSLATE_NOOP("CommandParameter", "Threads"),
                                                 .default_value = u"1"_s,
                                                 .least = 1,
                                                 .most = most_threads}},
                                 .optional = true},
                                {.keyword = u"verbose"_s,
                                 .optional = true,
                                 .label = QT_TRANSLATE_NOOP("CommandParameter",
                                                            "Show all messages of the mesher")}}}},
         .changes_model = true,
         .long_running = true,
         .result = entity_type(mesh_entity())},
        {.name = u"statistics"_s,
         .summary = u"Counts the nodes and elements of the mesh."_s,
         .perform = performing(&statistics, context),
         .result = map_type({.kind = CommandType::Kind::WholeNumber})},
        {.name = u"quality"_s,
         .summary = u"Measures the volume elements of the mesh."_s,
         .help = u"ICN is the inverse condition number, IGE the inverse gradient error. 1 is the best value, "
                 u"and elements\nof 0 or less are useless."_s,
         .perform = performing(&quality, context),
         .forms = {{.clauses = {optional_value({.name = u"MEASURE"_s,
                                                .kind = CommandParameter::Kind::Choice,
                                                .label = QT_TRANSLATE_NOOP("CommandParameter", "Measure"),
                                                .choices = {u"ICN"_s, u"IGE"_s}})}}},
         .long_running = true,
         .result = map_type(map_type({.kind = CommandType::Kind::Number}))},
    };
}

} // namespace fennar::geometry
