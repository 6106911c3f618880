// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/real_input.h"

#include <QProcess>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

bool xdotool(const QStringList& arguments)
{
    return QProcess::execute(u"xdotool"_s, arguments) == 0;
}

} // namespace

bool real_click(const QWidget* target)
{
    const QPoint place = target->mapToGlobal(target->rect().center());
    return xdotool(
        {u"mousemove"_s, QString::number(place.x()), QString::number(place.y()), u"click"_s, u"1"_s});
}

bool real_key(const QString& key)
{
    return xdotool({u"key"_s, key});
}
