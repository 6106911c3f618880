// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/host/navigation/NavigationComponents.h"

#include <QSet>

namespace fennar {

namespace {

QSet<QString>& loaded_components()
{
    static QSet<QString> names;
    return names;
}

} // namespace

void set_component_loaded(const QString& name, bool loaded)
{
    if (name.isEmpty())
        return;
    if (loaded)
        loaded_components().insert(name);
    else
        loaded_components().remove(name);
}

bool is_component_loaded(const QString& name)
{
    return loaded_components().contains(name);
}

} // namespace fennar
