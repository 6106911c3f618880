// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>
#include <QString>

#include <functional>

class QWidget;

namespace fennar {

class CommandArguments;
class CommandCall;
class CommandRegistry;

/**
 * The commands "show", "hide", "edit", "form" and "picture": they open the program's windows, and take
 * pictures of them.
 *
 * Without a window, as in a batch run, they say that they are passed over. GUI thread only.
 */
class WindowCommands : public QObject
{
    Q_OBJECT

public:
    /**
     * @param registry  must outlive this object.
     * @param turn      runs the event loop once while a command waits for a window.
     * @param report    tells of a picture that could not be written later; gets a whole line.
     */
    WindowCommands(CommandRegistry& registry, const std::function<void()>& turn,
                   const std::function<void(const QString&)>& report);
    /** Takes the commands away. */
    ~WindowCommands() override;

private:
    void show_window(CommandCall& call, const CommandArguments& arguments);
    void hide_window(CommandCall& call, const CommandArguments& arguments);
    void edit(CommandCall& call, const CommandArguments& arguments);
    void edit_line(CommandCall& call, const CommandArguments& arguments);
    void show_form(CommandCall& call, const CommandArguments& arguments);
    void take_picture(CommandCall& call, const CommandArguments& arguments);
    void wait_until_complete(const CommandCall& call, const QWidget* window) const;

    CommandRegistry& mRegistry;
    std::function<void()> mTurn;
    std::function<void(const QString&)> mReport;
};

} // namespace fennar
