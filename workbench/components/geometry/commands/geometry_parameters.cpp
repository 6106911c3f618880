// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/geometry_parameters.h"

#include "workbench/components/geometry/model/GeometryModel.h"

using namespace Qt::StringLiterals;

namespace fennar::geometry {

using Kind = CommandParameter::Kind;

namespace {

QList<CommandParameter> coordinates(const QString& what, const QString& unit, const QStringList& defaults)
{
    QList<CommandParameter> result;
    const std::pair<QString, const char*> axes[] = {{u"X"_s, QT_TRANSLATE_NOOP("CommandParameter", "X")},
                                                    {u"Y"_s, QT_TRANSLATE_NOOP("CommandParameter", "Y")},
                                                    {u"Z"_s, QT_TRANSLATE_NOOP("CommandParameter", "Z")}};
    for (const auto& [name, label] : axes) {
        result.append({.name = name,
                       .kind = Kind::Number,
                       .what = name.toLower() + u" of "_s + what,
                       .label = label,
                       .unit = unit,
                       .default_value = defaults.value(result.size()),
                       .least = -GeometryModel::farthest,
                       .most = GeometryModel::farthest,
                       .example = u"1"_s});
    }
    return result;
}

} // namespace

const QStringList& solid_keywords()
{
    static const QStringList words{u"about"_s, u"all"_s,  u"along"_s, u"as"_s,   u"at"_s,     u"by"_s,
                                   u"from"_s,  u"mesh"_s, u"name"_s,  u"size"_s, u"verbose"_s};
    return words;
}

QString solid_entity()
{
    return u"solid"_s;
}

CommandParameter length_parameter(const QString& name, const QString& what, const char* label,
                                  const QString& example)
{
    return {.name = name,
            .kind = Kind::Number,
            .what = what,
            .label = label,
            .unit = u"mm"_s,
            .least = GeometryModel::least_length,
            .most = GeometryModel::greatest_length,
            .example = example.isEmpty() ? u"5"_s : example};
}

CommandParameter solid_parameter(const char* label, const QString& name)
{
    return {.name = name,
            .kind = Kind::Entity,
            .what = u"a solid"_s,
            .label = label,
            .entity = solid_entity(),
            .by_number = true,
            .reserved = solid_keywords()};
}

CommandParameter solids_parameter(int at_least)
{
    CommandParameter result = solid_parameter(QT_TRANSLATE_NOOP("CommandParameter", "Solids"), u"SOLID"_s);
    result.all = u"all"_s;
    result.choices = {result.all};
    result.repeated = true;
    result.at_least = at_least;
    result.distinct = true;
    return result;
}

CommandClause position_clause(const QString& keyword, const QString& what, const char* label, bool optional,
                              const QString& default_value)
{
    return {.keyword = keyword,
            .parameters = coordinates(what, u"mm"_s, default_value.split(u' ')),
            .optional = optional,
            .label = label};
}

CommandClause axis_clause()
{
    return {.keyword = u"along"_s,
            .parameters = coordinates(u"the direction"_s, {}, {u"0"_s, u"0"_s, u"1"_s}),
            .optional = true,
            .label = QT_TRANSLATE_NOOP("CommandParameter", "Axis"),
            .tip = QT_TRANSLATE_NOOP("CommandParameter", "The direction; its length does not matter."),
            .not_zero = true};
}

CommandParameter new_name_parameter()
{
    return {.name = u"NAME"_s,
            .kind = Kind::NewName,
            .what = u"a name"_s,
            .label = QT_TRANSLATE_NOOP("CommandParameter", "New name"),
            .entity = solid_entity(),
            .reserved = solid_keywords(),
            .example = u"fresh"_s};
}

CommandClause name_clause()
{
    CommandParameter name = new_name_parameter();
    name.label = QT_TRANSLATE_NOOP("CommandParameter", "Name");
    name.tip =
        QT_TRANSLATE_NOOP("CommandParameter", "Without one the solid is named after its kind and number.");
    return {.keyword = u"name"_s, .parameters = {name}, .optional = true};
}

} // namespace fennar::geometry
