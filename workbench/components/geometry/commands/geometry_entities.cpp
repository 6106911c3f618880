// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/geometry_entities.h"

#include "workbench/components/geometry/commands/geometry_parameters.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/programs/mesh_arrays.h"
#include "workbench/components/geometry/programs/mesh_quality.h"
#include "workbench/sdk/core/commands/CommandEntities.h"
#include "workbench/sdk/core/commands/CommandError.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/Interrupt.h"
#include "workbench/sdk/core/commands/numbers.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

using Kind = CommandType::Kind;

namespace {

const CommandType number_type{.kind = Kind::Number};
const CommandType whole_number_type{.kind = Kind::WholeNumber};
const CommandType point_type = list_type(number_type);
const CommandType face_type = record_type(
    u"face"_s, {{u"number"_s, whole_number_type}, {u"area"_s, number_type}, {u"center"_s, point_type}});

CommandValue value(double number)
{
    return {.data = number};
}

CommandValue value(const Point3& point)
{
    return {.data = CommandValue::List{value(point.x), value(point.y), value(point.z)}};
}

CommandValue value(const Mesh::Quality& quality)
{
    return {.data = CommandValue::Map{{u"min"_s, value(quality.least)},
                                      {u"mean"_s, value(quality.mean)},
                                      {u"max"_s, value(quality.most)}}};
}

CommandValue value(const QStringList& texts)
{
    CommandValue::List list;
    for (const QString& text : texts)
        list.append({.data = text});
    return {.data = list};
}

CommandValue value(const QList<FaceMeasures>& faces)
{
    CommandValue::List list;
    for (const FaceMeasures& face : faces) {
        list.append({.data = CommandValue::Record{face_type.entity,
                                                  {{u"number"_s, {.data = qint64(list.size() + 1)}},
                                                   {u"area"_s, value(face.area)},
                                                   {u"center"_s, value(face.center)}}}});
    }
    return {.data = list};
}

/** What @p tell tells; its error is one of the caller's command. */
template <typename Tell>
auto told_by(const Tell& tell)
{
    try {
        return tell();
    } catch (const GeometryError& error) {
        throw CommandError(error.message());
    }
}

/** Gives the application its turn while a program tells something of a mesh, and lets the user end that. */
class PatientListener : public MesherListener
{
public:
    PatientListener()
    {
        go_on = [] {
            if (const auto& turn = Fennar::instance().application().turn)
                turn();
            return !interrupt_requested();
        };
    }
    static CommandError interrupted() { return CommandError(u"interrupted"_s); }

private:
    InterruptScope mScope;
};

/** Nodes and elements of the mesh that was asked for last, so that to ask again costs nothing. */
class KnownArrays
{
public:
    explicit KnownArrays(const QDir& programs) : mPrograms(programs) {}

    const MeshArrays& of(const Mesh& mesh)
    {
        if (mNumber != mesh.number) {
            const PatientListener listener;
            auto arrays = told_by([&] { return read_mesh_arrays(mesh, mPrograms, listener); });
            if (!arrays)
                throw PatientListener::interrupted();
            mArrays = std::move(*arrays);
            mNumber = mesh.number;
        }
        return mArrays;
    }

private:
    QDir mPrograms;
    MeshArrays mArrays;
    qint64 mNumber = 0;
};

CommandValue value(const std::vector<MeshArrays::Elements>& kinds)
{
    CommandValue::Map map;
    for (const MeshArrays::Elements& kind : kinds)
        map.append({kind.kind, {.data = CommandValue::Array{kind.nodes, kind.size}}});
    return {.data = map};
}

std::optional<GeometryModel::Solid> solid_of(const GeometryModel& model, const QString& word)
{
    const std::optional<qint64> id = parse_integer(word);
    return id && *id == int(*id) ? model.solid(int(*id)) : std::nullopt;
}

/** The solid of a reference; empty if it is gone. */
std::optional<GeometryModel::Solid> solid_of_key(const GeometryModel& model, const QString& key)
{
    const QString origin = key.section(u'@', 1);
    return origin == QString::number(model.origin()) ? solid_of(model, key.section(u'@', 0, 0))
                                                     : std::nullopt;
}

/** The name of a solid that may be none. */
QString name_of(const std::optional<GeometryModel::Solid>& solid)
{
    return solid ? solid->name : QString();
}

QStringList solid_names(const GeometryModel& model)
{
    QStringList names;
    const QList<int> ids = model.ids();
    for (const int id : ids)
        names << model.solid(id)->name;
    return names;
}

QList<EntityProperty> solid_properties(const GeometryModel& model)
{
    const auto measured = [&model](auto measure) {
        return [&model, measure](const QString& key, const QStringList&) {
            return measure(model.measures(solid_of_key(model, key)->id));
        };
    };
    return {
        {.name = u"id"_s,
         .summary = u"Its number, which is never used again"_s,
         .type = whole_number_type,
         .value =
             [&model](const QString& key, const QStringList&) {
                 return CommandValue{.data = qint64(solid_of_key(model, key)->id)};
             }},
        {.name = u"volume"_s,
         .summary = u"Its volume"_s,
         .unit = u"mm\u00b3"_s,
         .type = number_type,
         .value = measured([](const SolidMeasures& measures) { return value(measures.volume); })},
        {.name = u"area"_s,
         .summary = u"The area of its surface"_s,
         .unit = u"mm\u00b2"_s,
         .type = number_type,
         .value = measured([](const SolidMeasures& measures) { return value(measures.area); })},
        {.name = u"center"_s,
         .summary = u"Its center of mass, as x, y and z"_s,
         .unit = u"mm"_s,
         .type = point_type,
         .value = measured([](const SolidMeasures& measures) { return value(measures.center); })},
        {.name = u"bounding_box"_s,
         .summary = u"The least and the greatest corner of the box around it"_s,
         .unit = u"mm"_s,
         .type = list_type(point_type),
         .value =
             [&model](const QString& key, const QStringList&) {
                 const Box3 box = model.box(solid_of_key(model, key)->id);
                 return CommandValue{.data = CommandValue::List{value(box.least), value(box.most)}};
             }},
        {.name = u"faces"_s,
         .summary = u"Its faces, with number (from 1), area (mm\u00b2) and center (mm) of each"_s,
         .type = list_type(face_type),
         .value =
             [&model](const QString& key, const QStringList&) {
                 return value(told_by([&] { return model.shape(solid_of_key(model, key)->id).faces(); }));
             }},
        {.name = u"pieces"_s,
         .summary = u"How many volumes that do not hang together it consists of"_s,
         .type = whole_number_type,
         .value = measured(
             [](const SolidMeasures& measures) { return CommandValue{.data = qint64(measures.pieces)}; })},
    };
}

QList<EntityProperty> mesh_properties(const GeometryModel& model, const QDir& programs)
{
    const auto arrays = std::make_shared<KnownArrays>(programs);
    const auto told = [&model](auto tell) {
        return [&model, tell](const QString&, const QStringList& arguments) {
            return tell(*model.mesh(), arguments);
        };
    };
    return {
        {.name = u"size"_s,
         .summary = u"The length of the elements that was asked for; 0 if it was imported"_s,
         .unit = u"mm"_s,
         .type = number_type,
         .value = told([](const Mesh& mesh, const QStringList&) { return value(mesh.size); })},
        {.name = u"solids"_s,
         .summary = u"The names of the solids when they were meshed"_s,
         .type = list_type({.kind = Kind::Text}),
         .value = told([](const Mesh& mesh, const QStringList&) { return value(mesh.solids); })},
        {.name = u"node_count"_s,
         .summary = u"How many nodes it has"_s,
         .type = whole_number_type,
         .value =
             told([](const Mesh& mesh, const QStringList&) { return CommandValue{.data = mesh.nodes}; })},
        {.name = u"counts"_s,
         .summary = u"How many nodes and elements of each kind it has"_s,
         .type = map_type(whole_number_type),
         .value = told([](const Mesh& mesh, const QStringList&) { return mesh_counts(mesh); })},
        {.name = u"nodes"_s,
         .summary = u"Its nodes, a row with x, y and z for each; an array that cannot be written to"_s,
         .unit = u"mm"_s,
         .type = array_type(Kind::Number),
         .value = told([arrays](const Mesh& mesh, const QStringList&) {
             return CommandValue{.data = CommandValue::Array{arrays->of(mesh).nodes, 3}};
         })},
        {.name = u"elements"_s,
         .summary =
             u"Its elements by their kinds, a row for each with the rows of its nodes, from 0; arrays that "
             u"cannot be written to"_s,
         .type = map_type(array_type(Kind::WholeNumber)),
         .value = told(
             [arrays](const Mesh& mesh, const QStringList&) { return value(arrays->of(mesh).elements); })},
        {.name = u"quality"_s,
         .summary = u"A measure of its volume elements: min, mean and max"_s,
         .type = map_type(number_type),
         .parameters = {{.name = u"MEASURE"_s,
                         .kind = CommandParameter::Kind::Choice,
                         .choices = {u"ICN"_s, u"IGE"_s}}},
         .value = told([programs](const Mesh& mesh, const QStringList& arguments) {
             const PatientListener listener;
             if (!told_by([&] { return measure_quality(mesh, programs, listener); }))
                 throw PatientListener::interrupted();
             for (const Mesh::Quality& quality : *mesh.quality) {
                 if (quality.measure == arguments.value(0))
                     return value(quality);
             }
             throw CommandError(u"the mesh has no volume elements"_s);
         })},
    };
}

} // namespace

QString mesh_entity()
{
    return u"mesh"_s;
}

CommandValue solid_value(const GeometryModel& model, int id)
{
    return {.data = CommandValue::EntityReference{solid_entity(), u"%1@%2"_s.arg(id).arg(model.origin())}};
}

CommandValue solids_value(const GeometryModel& model, const QList<int>& ids)
{
    CommandValue::List list;
    for (const int id : ids)
        list << solid_value(model, id);
    return {.data = list};
}

CommandValue mesh_value(const Mesh& mesh)
{
    return {.data = CommandValue::EntityReference{mesh_entity(), QString::number(mesh.number)}};
}

CommandValue mesh_counts(const Mesh& mesh)
{
    CommandValue::Map counts{{u"nodes"_s, {.data = mesh.nodes}}};
    for (const Mesh::Elements& elements : mesh.elements)
        counts.append({elements.kind, {.data = elements.count}});
    return {.data = counts};
}

CommandValue mesh_qualities(const Mesh& mesh, const QString& wanted)
{
    CommandValue::Map qualities;
    for (const Mesh::Quality& quality : *mesh.quality) {
        if (wanted.isEmpty() || quality.measure == wanted)
            qualities.append({quality.measure, value(quality)});
    }
    return {.data = qualities};
}

void offer_geometry_entities(CommandEntities& entities, GeometryModel& model, const QDir& programs,
                             const QString& owner)
{
    entities.offer(
        solid_entity(), owner, [&model] { return solid_names(model); },
        [&model](const QString& word) { return name_of(solid_of(model, word)); });
    entities.offer_properties(solid_entity(), solid_properties(model),
                              [&model](const QString& key) { return name_of(solid_of_key(model, key)); });
    QObject::connect(&model, &GeometryModel::solid_changed, &entities,
                     [&entities] { entities.tell_changed(solid_entity()); });
    // Nobody names the mesh: there is one. Its number tells it from those before.
    entities.offer(mesh_entity(), owner, [] { return QStringList(); });
    entities.offer_properties(mesh_entity(), mesh_properties(model, programs), [&model](const QString& key) {
        const std::shared_ptr<const Mesh> mesh = model.mesh();
        return mesh && QString::number(mesh->number) == key ? mesh_entity() : QString();
    });
}

} // namespace fennar::geometry
