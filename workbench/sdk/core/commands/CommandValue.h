// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <memory>
#include <utility>
#include <variant>
#include <vector>

namespace fennar {

/**
 * What a command returns, or a property of an entity is, to a caller that is a program.
 *
 * A plain value: it holds nothing alive. Entities are told by kind and key, see EntityReference.
 */
struct FENNAR_CORE_EXPORT CommandValue
{
    /** Something that is there at the time, under whatever name. */
    struct EntityReference
    {
        /** As in CommandEntities. */
        QString kind;
        /** What CommandEntities::name_of() knows it by for as long as it is there. It never stands for
         * another thing, so better a number than a name, which may change. */
        QString key;

        /** Whether it is the same thing. */
        bool operator==(const EntityReference&) const = default;
    };
    /** Values in their order. */
    using List = QList<CommandValue>;
    /** Values with names, in their order. */
    using Map = QList<std::pair<QString, CommandValue>>;

    /** Values of kinds that are known, with names: what has too little to it to be an entity. */
    struct Record
    {
        /** As CommandType::entity. */
        QString name;
        /** In the order of the type. */
        Map fields;
    };
    /** Many numbers, in rows of equal length. Those who look at them share them: they never change. */
    struct Array
    {
        /** One row behind the other; not null. */
        std::variant<std::shared_ptr<const std::vector<double>>, std::shared_ptr<const std::vector<qint64>>>
            numbers;
        /** How many numbers a row has, at least 1. */
        qsizetype columns = 1;
    };

    /** Nothing at first. */
    std::variant<std::monostate, double, qint64, QString, List, Map, EntityReference, Record, Array> data =
        {};

    /** Whether there is no value. */
    bool is_nothing() const { return data.index() == 0; }
};

/** What kind of value that is, so that a caller can know it ahead of the call. */
struct FENNAR_CORE_EXPORT CommandType
{
    /** As the alternatives of CommandValue, in their order. */
    enum class Kind { Nothing, Number, WholeNumber, Text, List, Map, Entity, Record, Array };

    /** What the value is. */
    Kind kind = Kind::Nothing;
    /** The kind of entities, for Entity; what a Record is, as "face". */
    QString entity = {};
    /** One type, which all values of a List, Map or Array have; those of the fields of a Record. */
    QList<CommandType> of = {};
    /** The names of the fields of a Record. */
    QStringList names = {};

    /** Whether @p value is of this type, to its innermost values. */
    bool fits(const CommandValue& value) const;
};

/** The type of a reference to an entity of that kind. */
inline CommandType entity_type(const QString& kind)
{
    return {.kind = CommandType::Kind::Entity, .entity = kind};
}
/** The type of a list of such values. */
inline CommandType list_type(const CommandType& of)
{
    return {.kind = CommandType::Kind::List, .of = {of}};
}
/** The type of a map of such values. */
inline CommandType map_type(const CommandType& of)
{
    return {.kind = CommandType::Kind::Map, .of = {of}};
}
/** The type of an array of such numbers, Number or WholeNumber. */
inline CommandType array_type(CommandType::Kind of)
{
    return {.kind = CommandType::Kind::Array, .of = {{.kind = of}}};
}
/** The type of a record; each field has a name that an EntityProperty could have, and a type. */
FENNAR_CORE_EXPORT CommandType record_type(const QString& name,
                                           const QList<std::pair<QString, CommandType>>& fields);

} // namespace fennar
