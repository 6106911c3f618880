// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// The part of GeometryModel that needs no engine.

#include "workbench/components/geometry/model/GeometryModel.h"

#include <algorithm>

bool GeometryModel::is_name(const QString& text)
{
    const auto is_letter = [](QChar c) {
        return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || c == u'_';
    };
    return !text.isEmpty() && is_letter(text.front()) &&
           std::all_of(text.begin(), text.end(), [&is_letter](QChar c) {
               return is_letter(c) || (c >= u'0' && c <= u'9') || c == u'-' || c == u'.';
           });
}
