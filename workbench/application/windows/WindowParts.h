// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

#include <functional>
#include <memory>

class Ostrel;

namespace fennar {

class CommandFinder;
class ComponentContext;
class ConsoleOwner;
class EditorLanguage;
class FileDrops;
class JournalFiles;
class WindowKeys;

/**
 * What the program adds to the shell's main window and journal editor: its name and product, pages of the
 * options, undo, keys, drops, the command search, and what looks after journals and their languages. One
 * object while there is a window; it goes before the window does.
 */
class WindowParts
{
public:
    struct Services
    {
        /** Runs a command as though the user had typed it. */
        std::function<void(const QString& command)> run;
        /** Puts the command's name where the user types, to be completed. */
        std::function<void(const QString& name)> write;
        /** Tells an error; whole lines. */
        std::function<void(const QString& text)> report;
    };

    /** @param window, console  not null; they outlive this object. */
    WindowParts(Ostrel* window, ConsoleOwner* console, const Services& services);
    ~WindowParts();

    /** Says whether a line runs on the console. */
    void set_busy(bool busy);

private:
    /** What is added to the window as components add theirs. */
    const std::unique_ptr<ComponentContext> mContext;
    const std::unique_ptr<JournalFiles> mJournalFiles;
    const std::unique_ptr<EditorLanguage> mEditorLanguage;
    const std::unique_ptr<WindowKeys> mKeys;
    const std::unique_ptr<FileDrops> mDrops;
    const std::unique_ptr<CommandFinder> mFinder;
};

} // namespace fennar
