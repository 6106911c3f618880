// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>

class QAction;

namespace fennar {
class ComponentContext;
}

namespace fennar::graphics {

class GraphicsState;

/**
 * All that the component has in the main window: the graphics view, a toolbar, and entries in the View menu.
 * Whatever a user chooses there is sent to the console as a command.
 *
 * What is displayed is kept from one start to the next, as settings in the group "graphics".
 */
class GraphicsWindow : public QObject
{
    Q_OBJECT

public:
    /** Both must outlive this object. There is a window. The state takes over what is kept. */
    GraphicsWindow(ComponentContext& context, GraphicsState& state);

private:
    /** An action that sends a command. */
    QAction* make_action(const char* name, const QString& text, const char* icon, const char* shortcut,
                         const char* command);
    /** An action that switches something of "display" on and off. */
    QAction* make_switch(const char* name, const QString& text, const char* icon);
    void update_switches();
    void restore_display();
    void keep_display() const;

    GraphicsState& mState;
    QAction* mShaded = nullptr;
    QAction* mWireframe = nullptr;
    QAction* mMesh = nullptr;
};

} // namespace fennar::graphics
