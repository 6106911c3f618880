// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/component/ComponentContext.h"
#include "workbench/sdk/component/export.h"

#include <QtPlugin>

/** Changes when class Component, or what the context promises, changes. */
#define FENNAR_COMPONENT_INTERFACE "2"
/** What a component's metadata begin with; the number behind it is the interface. */
#define FENNAR_COMPONENT_FAMILY "fennar.Component/"

namespace fennar {

/**
 * What the workbench sees of a component: the one object of a plugin of Qt's.
 *
 * ostrelgui_add_component() writes the class that derives from it, which calls load_component(), and the
 * metadata: "name", "version", "workbench" (the version it was made for), and "requires" and "commands",
 * which are lists of names.
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

Q_DECLARE_INTERFACE(fennar::Component, FENNAR_COMPONENT_FAMILY FENNAR_COMPONENT_INTERFACE)
