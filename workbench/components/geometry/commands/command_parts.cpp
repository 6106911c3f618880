// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/command_parts.h"

#include "workbench/components/geometry/model/GeometryModel.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

using Kind = CommandParameter::Kind;

namespace {

/** @param defaults  empty if they must be given. */
QList<CommandParameter> coordinates(const QString& what, const QString& unit, const QStringList& defaults)
{
    QList<CommandParameter> result;
    for (const char* name :
         {QT_TRANSLATE_NOOP("CommandParameter", "X"), QT_TRANSLATE_NOOP("CommandParameter", "Y"),
          QT_TRANSLATE_NOOP("CommandParameter", "Z")}) {
        result.append({.name = QString::fromLatin1(name),
                       .kind = Kind::Number,
                       .what = QString::fromLatin1(name).toLower() + u" of "_s + what,
                       .label = name,
                       .unit = unit,
                       .default_value = defaults.value(result.size()),
                       .least = -GeometryModel::farthest,
                       .most = GeometryModel::farthest,
                       .example = u"1"_s});
    }
    return result;
}

} // namespace

decltype(Command::perform) performing(CommandWork work, const CommandContext& context)
{
    return [work, context](CommandCall& call, const CommandArguments& arguments) {
        work(call, arguments, context);
    };
}

QList<int> solids(const CommandArguments& arguments, const GeometryModel& model, QLatin1StringView key)
{
    const QStringList names = arguments.texts(key);
    if (names == QStringList(u"all"_s))
        return model.ids();
    QList<int> ids;
    for (const QString& name : names)
        ids << model.find(name)->id;
    return ids;
}

QString shown_number(double value)
{
    return QString::number(value, 'g', 6);
}

QString table(const QList<QStringList>& rows, const QList<bool>& right)
{
    QList<qsizetype> widths(right.size(), 0);
    for (const QStringList& row : rows) {
        for (qsizetype i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    QString text;
    for (const QStringList& row : rows) {
        QString line;
        for (qsizetype i = 0; i < row.size(); ++i) {
            line += i > 0 ? u"  "_s : QString();
            line += right[i] ? row[i].rightJustified(widths[i]) : row[i].leftJustified(widths[i]);
        }
        while (line.endsWith(u' '))
            line.chop(1);
        text += line + u'\n';
    }
    return text;
}

const QStringList& solid_keywords()
{
    static const QStringList words{u"about"_s, u"all"_s,  u"along"_s, u"as"_s,   u"at"_s,   u"by"_s,
                                   u"from"_s,  u"mesh"_s, u"name"_s,  u"none"_s, u"size"_s, u"verbose"_s};
    return words;
}

QString solid_entity()
{
    return u"solid"_s;
}

CommandParameter length_parameter(const QString& name, const QString& what, const char* label,
                                  const QString& example, const char* tip)
{
    return {.name = name,
            .kind = Kind::Number,
            .what = what,
            .label = label,
            .tip = tip,
            .unit = u"mm"_s,
            .least = GeometryModel::least_length,
            .most = GeometryModel::greatest_length,
            .example = example.isEmpty() ? u"5"_s : example};
}

CommandParameter solid_parameter()
{
    return {.name = u"SOLID"_s,
            .kind = Kind::Entity,
            .what = u"a solid"_s,
            .label = QT_TRANSLATE_NOOP("CommandParameter", "Solid"),
            .entity = solid_entity(),
            .by_number = true,
            .reserved = solid_keywords()};
}

CommandParameter solids_parameter(int at_least)
{
    CommandParameter result = solid_parameter();
    result.label = QT_TRANSLATE_NOOP("CommandParameter", "Solids");
    result.all = u"all"_s;
    result.choices = {result.all};
    result.repeated = true;
    result.at_least = at_least;
    result.distinct = true;
    return result;
}

CommandClause position_clause(const QString& keyword, const QString& what, const char* label, bool optional)
{
    return {.keyword = keyword,
            .parameters =
                coordinates(what, u"mm"_s, optional ? QStringList{u"0"_s, u"0"_s, u"0"_s} : QStringList()),
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
