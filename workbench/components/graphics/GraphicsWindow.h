// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/components/graphics/GraphicsState.h"

#include <QObject>

#include <utility>
#include <vector>

class QAction;

namespace fennar {
class ComponentContext;
}

namespace fennar::graphics {

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
    /** An action that is called as the last word of a command, and so is its icon. */
    QAction* make_action(const QString& command, const QString& text);
    /** One that sends the command. */
    QAction* make_sender(const QString& command, const QString& text, const char* shortcut);
    /** One that switches something of "display" on and off. */
    QAction* make_switch(const DisplayOption& option, const QString& text);
    void update_switches();
    void restore_display();
    void keep_display() const;

    GraphicsState& mState;
    std::vector<std::pair<QAction*, bool DisplayOptions::*>> mSwitches;
};

} // namespace fennar::graphics
