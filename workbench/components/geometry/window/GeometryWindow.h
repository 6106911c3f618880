// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/sdk/component/ComponentContext.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <utility>

class QAction;

namespace fennar::geometry {

class GeometryDock;
class GeometryModel;

/**
 * All that the component has in the main window: the menu "Geometry", a toolbar, the dock "Model",
 * and an entry in the help menu. Whatever a user chooses is sent to the console as a command.
 */
class GeometryWindow : public QObject
{
    Q_OBJECT

public:
    /** Both must outlive this object. There is a window. */
    GeometryWindow(ComponentContext& context, const GeometryModel& model);

private:
    /** One with the icon of the command, if it has one. */
    QAction* make_action(const QString& command, const QString& text, CommandUse use = CommandUse::Form);
    /** One that runs a command on the selected solids, and is disabled while they are too few. */
    QAction* make_selection_action(const QString& command, const QString& text);
    void add_help();
    void update_actions();

    ComponentContext& mContext;
    /** The window owns it, and so it may go before this object. */
    QPointer<GeometryDock> mDock;
    /** Actions that need so many selected solids. */
    QList<std::pair<QAction*, int>> mSelectionActions;
};

} // namespace fennar::geometry
