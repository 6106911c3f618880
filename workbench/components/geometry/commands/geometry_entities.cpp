// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/geometry_entities.h"

#include "workbench/components/geometry/commands/command_parts.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/programs/mesh_arrays.h"
#include "workbench/components/geometry/programs/mesh_quality.h"
#include "workbench/sdk/core/commands/Fennar.h"
#include "workbench/sdk/core/commands/Interrupt.h"
#include "workbench/sdk/core/commands/numbers.h"

#include <concepts>
#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

using Kind = CommandType::Kind;

namespace {

using Solid = GeometryModel::Solid;

const CommandType number_type{.kind = Kind::Number};
const CommandType whole_number_type{.kind = Kind::WholeNumber};
const CommandType point_type = list_type(number_type);
const CommandType face_type = record_type(
    u"face"_s, {{u"number"_s, whole_number_type}, {u"area"_s, number_type}, {u"center"_s, point_type}});

// What is told, as the value of a command.

CommandValue value(double number)
{
    return {.data = number};
}

CommandValue value(std::integral auto number)
{
    return {.data = qint64(number)};
}

CommandValue value(const CommandValue& known)
{
    return known;
}

CommandValue value(const QString& text)
{
    return {.data = text};
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

CommandValue value(const QList<FaceMeasures>& faces)
{
    CommandValue::List list;
    for (const FaceMeasures& face : faces)
        list.append({.data = CommandValue::Record{face_type.entity,
                                                  {{u"number"_s, value(list.size() + 1)},
                                                   {u"area"_s, value(face.area)},
                                                   {u"center"_s, value(face.center)}}}});
    return {.data = list};
}

template <typename Item>
CommandValue value(const QList<Item>& items)
{
    CommandValue::List list;
    for (const Item& item : items)
        list.append(value(item));
    return {.data = list};
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
            auto arrays = read_mesh_arrays(mesh, mPrograms, listener);
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

std::optional<Solid> solid_of(const GeometryModel& model, const QString& word)
{
    const std::optional<qint64> id = parse_integer(word);
    return id && *id == int(*id) ? model.solid(int(*id)) : std::nullopt;
}

/** The solid of a reference; empty if it is gone. */
std::optional<Solid> solid_of_key(const GeometryModel& model, const QString& key)
{
    const QString origin = key.section(u'@', 1);
    return origin == QString::number(model.origin()) ? solid_of(model, key.section(u'@', 0, 0))
                                                     : std::nullopt;
}

/** The name of a solid that may be none. */
QString name_of(const std::optional<Solid>& solid)
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

/** Makes properties that tell of what @p find finds by its reference. */
template <typename Find>
auto properties_of(const Find& find)
{
    return [find](const QString& name, const QString& summary, const QString& unit, const CommandType& type,
                  auto tell) {
        return EntityProperty{.name = name,
                              .summary = summary,
                              .unit = unit,
                              .type = type,
                              .value = [find, tell](const QString& key, const QStringList&) {
                                  return value(std::invoke(tell, *find(key)));
                              }};
    };
}

QList<EntityProperty> solid_properties(const GeometryModel& model)
{
    const auto property = properties_of([&model](const QString& key) { return solid_of_key(model, key); });
    const auto measured = [&model](auto SolidMeasures::*measure) {
        return [&model, measure](const Solid& solid) { return model.measures(solid.id).*measure; };
    };
    return {
        property(u"id"_s, u"Its number, which is never used again"_s, {}, whole_number_type, &Solid::id),
        property(u"volume"_s, u"Its volume"_s, u"mm\u00b3"_s, number_type, measured(&SolidMeasures::volume)),
        property(u"area"_s, u"The area of its surface"_s, u"mm\u00b2"_s, number_type,
                 measured(&SolidMeasures::area)),
        property(u"center"_s, u"Its center of mass, as x, y and z"_s, u"mm"_s, point_type,
                 measured(&SolidMeasures::center)),
        property(u"bounding_box"_s, u"The least and the greatest corner of the box around it"_s, u"mm"_s,
                 list_type(point_type),
                 [&model](const Solid& solid) {
                     const Box3 box = model.box(solid.id);
                     return QList{box.least, box.most};
                 }),
        property(u"faces"_s, u"Its faces, with number (from 1), area (mm\u00b2) and center (mm) of each"_s,
                 {}, list_type(face_type),
                 [&model](const Solid& solid) { return model.shape(solid.id).faces(); }),
        property(u"pieces"_s, u"How many volumes that do not hang together it consists of"_s, {},
                 whole_number_type, measured(&SolidMeasures::pieces)),
    };
}

QList<EntityProperty> mesh_properties(const GeometryModel& model, const QDir& programs)
{
    const auto property = properties_of([&model](const QString&) { return model.mesh(); });
    const auto arrays = std::make_shared<KnownArrays>(programs);
    return {
        property(u"size"_s, u"The length of the elements that was asked for; 0 if it was imported"_s, u"mm"_s,
                 number_type, &Mesh::size),
        property(u"solids"_s, u"The names of the solids when they were meshed"_s, {},
                 list_type({.kind = Kind::Text}), &Mesh::solids),
        property(u"node_count"_s, u"How many nodes it has"_s, {}, whole_number_type, &Mesh::nodes),
        property(u"counts"_s, u"How many nodes and elements of each kind it has"_s, {},
                 map_type(whole_number_type), &mesh_counts),
        property(u"nodes"_s,
                 u"Its nodes, a row with x, y and z for each; an array that cannot be written to"_s, u"mm"_s,
                 array_type(Kind::Number),
                 [arrays](const Mesh& mesh) {
                     return CommandValue{.data = CommandValue::Array{arrays->of(mesh).nodes, 3}};
                 }),
        property(
            u"elements"_s,
            u"Its elements by their kinds, a row for each with the rows of its nodes, from 0; arrays that "
            u"cannot be written to"_s,
            {}, map_type(array_type(Kind::WholeNumber)),
            [arrays](const Mesh& mesh) { return arrays->of(mesh).elements; }),
        {.name = u"quality"_s,
         .summary = u"A measure of its volume elements: min, mean and max"_s,
         .type = map_type(number_type),
         .parameters = {{.name = u"MEASURE"_s,
                         .kind = CommandParameter::Kind::Choice,
                         .choices = {u"ICN"_s, u"IGE"_s}}},
         .value =
             [&model, programs](const QString&, const QStringList& arguments) {
                 const std::shared_ptr<const Mesh> mesh = model.mesh();
                 const PatientListener listener;
                 if (!measure_quality(*mesh, programs, listener))
                     throw PatientListener::interrupted();
                 for (const Mesh::Quality& quality : *mesh->quality) {
                     if (quality.measure == arguments.value(0))
                         return value(quality);
                 }
                 throw CommandError(u"the mesh has no volume elements"_s);
             }},
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
    CommandValue::Map counts{{u"nodes"_s, value(mesh.nodes)}};
    for (const Mesh::Elements& elements : mesh.elements)
        counts.append({elements.kind, value(elements.count)});
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
