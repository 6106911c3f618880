// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A plugin that says it is a component, but whose object is none.

#include "workbench/sdk/component/Component.h"

#include <QObject>

class NoObject : public QObject
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID FENNAR_COMPONENT_INTERFACE FILE "no_object.json")
};

#include "no_object.moc"
