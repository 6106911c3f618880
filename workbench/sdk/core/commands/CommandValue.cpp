// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandValue.h"

#include <algorithm>

namespace fennar {

bool CommandType::fits(const CommandValue& value) const
{
    if (value.data.index() != std::size_t(kind))
        return false;
    switch (kind) {
    case Kind::List: {
        const auto& list = std::get<CommandValue::List>(value.data);
        return of.size() == 1 && std::all_of(list.begin(), list.end(), [this](const CommandValue& item) {
                   return of.first().fits(item);
               });
    }
    case Kind::Map: {
        const auto& map = std::get<CommandValue::Map>(value.data);
        return of.size() == 1 && std::all_of(map.begin(), map.end(), [this](const auto& item) {
                   return of.first().fits(item.second);
               });
    }
    case Kind::Record: {
        const auto& record = std::get<CommandValue::Record>(value.data);
        qsizetype i = 0;
        return record.name == entity && record.fields.size() == of.size() &&
               std::all_of(record.fields.begin(), record.fields.end(), [this, &i](const auto& field) {
                   const qsizetype at = i++;
                   return field.first == names.value(at) && of[at].fits(field.second);
               });
    }
    case Kind::Array: {
        const auto& array = std::get<CommandValue::Array>(value.data);
        return of.size() == 1 &&
               of.first().kind == (array.numbers.index() == 0 ? Kind::Number : Kind::WholeNumber);
    }
    case Kind::Entity:
        return std::get<CommandValue::EntityReference>(value.data).kind == entity;
    default:
        return true;
    }
}

CommandType record_type(const QString& name, const QList<std::pair<QString, CommandType>>& fields)
{
    CommandType type{.kind = CommandType::Kind::Record, .entity = name};
    for (const auto& [field, kind] : fields) {
        type.names << field;
        type.of << kind;
    }
    return type;
}

} // namespace fennar
