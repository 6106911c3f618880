// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/core/export.h"

#include <QMap>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

namespace fennar {

/** The variables of the command language, by name. Names are case-sensitive. */
class FENNAR_CORE_EXPORT CommandVariables
{
public:
    /** Sets a variable, new or not. Returns false and does nothing if is_variable_name(@p name) is false. */
    bool set(const QString& name, const QString& value);
    /** The value of a variable; empty if there is none of that name. */
    std::optional<QString> value(QStringView name) const;
    /** All names, sorted. */
    QStringList names() const { return mValues.keys(); }
    /** Removes a variable; none is no error. */
    void remove(const QString& name) { mValues.remove(name); }

private:
    QMap<QString, QString> mValues;
};

} // namespace fennar
