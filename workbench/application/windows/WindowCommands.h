// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

#include <functional>

namespace fennar {

class CommandRegistry;

/**
 * The commands "show", "hide", "edit", "form" and "picture": they open the program's windows, and take
 * pictures of them.
 *
 * Without a window, as in a batch run, they say that they are passed over. GUI thread only.
 */
class WindowCommands
{
public:
    /**
     * @param registry  must outlive this object.
     * @param turn      runs the event loop once while a command waits for a window.
     * @param report    tells of a picture that could not be written later; gets a whole line.
     */
    WindowCommands(CommandRegistry& registry, const std::function<void()>& turn,
                   const std::function<void(const QString&)>& report);
    /** Takes the commands away. */
    ~WindowCommands();
    Q_DISABLE_COPY_MOVE(WindowCommands)

private:
    CommandRegistry& mRegistry;
};

} // namespace fennar
