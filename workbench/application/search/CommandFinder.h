// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/application/search/gather_entries.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>

class Ostrel;
class QAction;

namespace fennar {

class CommandRegistry;
class CommandSearch;

/**
 * The entry "Find Command..." of the menu "Tools", whose key also works in the journal editor: it opens the
 * CommandSearch with all commands, menu entries, pages of the options and recent files, and runs what is
 * chosen. In the journal editor the entries of its menus come first.
 *
 * The list follows what comes and goes while it is open. What is chosen runs from the event loop, so that it
 * may do anything; while a line runs on the console, or a dialog waits, nothing does. What was chosen last is
 * kept as the setting "fennar/search/recent". One object while there is a main window; it goes before the
 * window does.
 */
class CommandFinder : public QObject
{
    Q_OBJECT

public:
    /** What is done with commands. */
    struct Services
    {
        /** Runs a line as though it were typed. */
        UseName run;
        /** Puts the command on the console's prompt, for the user to complete. */
        UseName write;
    };

    /**
     * @param window    the main window, not null and not owned.
     * @param registry  must outlive this object.
     */
    CommandFinder(Ostrel* window, const CommandRegistry& registry, const Services& services);
    /** Takes its entry out of the menu, and closes the search. */
    ~CommandFinder() override;

    /** Says whether a line runs on the console. */
    void set_busy(bool busy);
    /** Opens the search in the window that is active; one that is open gets the focus. */
    void open();

    /** Sees menus that change while the search is open. */
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QList<SearchEntry> gather();
    void watch(const QList<QPointer<QMenu>>& menus);
    void unwatch();
    void refresh();
    void run_later(const SearchEntry& entry);
    void use_command(const QString& name);
    void show_form(const QModelIndex& entry);

    QPointer<Ostrel> mWindow;
    const CommandRegistry& mRegistry;
    const Services mServices;
    QAction* mAction;
    QPointer<CommandSearch> mSearch;
    QList<QPointer<QObject>> mWatched;
    QTimer mRefresh;
    bool mBusy = false;
};

} // namespace fennar
