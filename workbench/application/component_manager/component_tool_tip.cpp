// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/component_manager/component_tool_tip.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace fennar {

QString component_tool_tip(const ComponentManager::Component& component)
{
    QStringList lines{component.file};
    if (!component.commands.isEmpty())
        lines
            << QCoreApplication::translate("Workbench", "Commands: %1").arg(component.commands.join(u", "_s));
    if (!component.needs.isEmpty())
        lines << QCoreApplication::translate("Workbench", "Needs: %1").arg(component.needs.join(u", "_s));
    return lines.join(u'\n');
}

} // namespace fennar
