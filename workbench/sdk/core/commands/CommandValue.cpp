// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/commands/CommandValue.h"

#include <algorithm>

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
    case Kind::Entity:
        return std::get<CommandValue::EntityReference>(value.data).kind == entity;
    default:
        return true;
    }
}

CommandType entity_type(const QString& kind)
{
    return {.kind = CommandType::Kind::Entity, .entity = kind};
}

CommandType list_type(const CommandType& of)
{
    return {.kind = CommandType::Kind::List, .of = {of}};
}

CommandType map_type(const CommandType& of)
{
    return {.kind = CommandType::Kind::Map, .of = {of}};
}
