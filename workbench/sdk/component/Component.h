// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/component/export.h"

#include <QtPlugin>

/** What tells components from other plugins of Qt's. */
#define FENNAR_COMPONENT_INTERFACE "fennar.Component"

namespace fennar {

class ComponentContext;

/**
 * What the workbench sees of a component: the one object of a plugin of Qt's.
 *
 * fennar_add_component() writes the class that derives from it, which calls load_component(), and the
 * metadata: "name", "version", "kit" (the version of the kit that it was made with), and "requires" and
 * "commands", which are lists of names.
 */
class FENNAR_COMPONENT_EXPORT Component
{
public:
    Component() = default;
    virtual ~Component();
    Q_DISABLE_COPY_MOVE(Component)

    /** Calls load_component(). */
    virtual void load(ComponentContext& context) = 0;
};

} // namespace fennar

Q_DECLARE_INTERFACE(fennar::Component, FENNAR_COMPONENT_INTERFACE)
