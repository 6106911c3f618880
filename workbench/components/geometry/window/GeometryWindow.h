// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>
#include <utility>
#include <vector>

struct CommandField;
class GeometryDock;
class GeometryModel;
class ModelSteps;
class Ostrel;
class QAction;

namespace fennar {
class ComponentContext;
}

/**
 * All that the component has in the main window: the menus "Geometry" and "Edit", a toolbar, the dock
 * "Model", and an entry in the help menu. Whatever a user chooses is sent to the console as a command.
 */
class GeometryWindow : public QObject
{
    Q_OBJECT

public:
    /** Both must outlive this object. There is a window. */
    GeometryWindow(fennar::ComponentContext& context, const GeometryModel& model);

private:
    QAction* make_action(const char* name, const QString& text, const char* icon = nullptr);
    /** An action that opens a form for a command; the fields are asked for each time. */
    QAction* make_form_action(const char* command, const QString& text, const char* icon,
                              const std::function<QList<CommandField>()>& fields);
    /** An action that sends the command with the selected solids behind it. */
    QAction* make_selection_action(const char* command, const QString& text, const char* icon, int least);
    /** An action that sends a command as it is. */
    QAction* make_plain_action(const char* command, const QString& text);
    void make_solid_actions();
    void make_change_actions();
    void make_mesh_actions();
    void add_menu(fennar::ComponentContext& context);
    void add_edit_menu(fennar::ComponentContext& context, const ModelSteps& steps);
    void add_dock(fennar::ComponentContext& context);
    void update_actions();

    Ostrel* mWindow;
    /** The window owns it, and so it may go before this object. */
    QPointer<GeometryDock> mDock;
    QList<QPointer<QWidget>> mDialogs;
    /** Null stands for a separator. */
    std::vector<QAction*> mMenuActions;
    std::vector<QAction*> mToolActions;
    std::vector<QAction*> mDockActions;
    /** Actions that need so many selected solids. */
    QList<std::pair<QAction*, int>> mSelectionActions;
};
