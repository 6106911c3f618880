// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/components/geometry/commands/GeometryCommand.h"

#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/sdk/core/commands/CommandArguments.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace fennar::geometry {

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

} // namespace fennar::geometry
