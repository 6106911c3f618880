// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/application/component_manager/ComponentMetadata.h"
#include "workbench/application/component_manager/LoadMark.h"
#include "workbench/host/ostrelfw/HostMediator.h"

#include <QDateTime>
#include <QObject>

#include <functional>
#include <memory>
#include <vector>

namespace fennar {

class CommandInterpreter;

/**
 * Finds components in the directories of the component path, loads and unloads them, and keeps the program
 * alive whatever they do. Their files tell of them before any of their code runs.
 *
 * A component is on unless the user has unloaded it, and is then loaded at each start. One that brought the
 * program down while it was being loaded is left out until the user loads it by name.
 *
 * The code of a component stays in memory until the program ends, also when it is unloaded: Qt, its registry
 * of types above all, and the C++ library may still point into it. See docs/component-guide.md.
 *
 * Settings: "/fennar/components/path", "/fennar/components/off", "/fennar/components/crashed". The
 * environment variable FENNAR_COMPONENT_PATH, also an empty one, replaces the stored path for a run.
 *
 * One object at a time; it is the source of HostMediator. GUI thread only.
 */
class ComponentManager : public ComponentSource
{
public:
    enum class State {
        Unloaded,
        Loading,
        Loaded,
        Unloading,
    };

    /** The word for it, as "loaded". */
    static QString state_word(State state);

    /** A component that is known. */
    struct Component
    {
        /** As its metadata tell; the file's name if they tell none. */
        QString name;
        QString version;
        /** The whole path. */
        QString file;
        State state = State::Unloaded;
        /** The commands that it would add, and the components that it needs, as its metadata tell. */
        QStringList commands = {};
        QStringList needs = {};
        /** Why it is not loaded, if it should be; empty otherwise. */
        QString refusal;
        /** The user has switched it off. */
        bool off = false;
        /** The program ended while it was being loaded. */
        bool crashed = false;
    };

    /**
     * @param interpreter  its registry takes the components' commands. Not owned; outlives the manager.
     * @param notes        the directory of the notes that survive a crash.
     */
    ComponentManager(CommandInterpreter& interpreter, const QString& notes);
    /** Unloads all components. */
    ~ComponentManager() override;
    Q_DISABLE_COPY_MOVE(ComponentManager)

    /** Takes messages of one line, with its line end. Null drops them. */
    void set_report(std::function<void(const QString& text)> report) { mReport = std::move(report); }
    /** Whether load() and unload() are remembered for the next start. At first they are. */
    void set_remembering(bool remember) { mRemember = remember; }

    /**
     * Loads all components that are on, each in a turn of the event loop of its own, then calls @p done.
     *
     * While a command runs this waits.
     */
    void start(const std::function<void()>& done);
    /** Loads all components that are on, now. */
    void load_all();
    /** Unloads all components, the last one loaded first. Ends what start() has begun. */
    void unload_all();

    /**
     * Loads one component, and before it those that it needs, and switches them on.
     *
     * @param what  a name, or a file if it has a "/" or ends in ".so".
     * @param name  is set to the component's name. May be null.
     * @return why it was not loaded; empty if it was.
     */
    QString load(const QString& what, QString* name = nullptr);
    /**
     * Unloads one component and switches it off.
     *
     * Refused while a component that is loaded needs it, while a command of the component runs, and while a
     * modal dialog or a menu is open, which may have been opened by it. A component whose documents the file
     * menu opens and saves is not unloaded either if the user, asked as when the window closes, wants to keep
     * unsaved data.
     *
     * @return why it was not unloaded; empty if it was.
     */
    QString unload(const QString& name);

    /** How the command @p name can be had, if a component brings it that is not loaded; otherwise empty. */
    QString hint_for_command(const QString& name);

    /** All components that are known, in the order of the path; those of other directories follow. */
    std::vector<Component> components();

    std::vector<ComponentRecord> component_records() override;
    QString component_path() const override;
    /** Is stored, unless the environment gives the path. Loads and unloads nothing. */
    void set_component_path(const QString& path) override;
    QString component_directory() const override;

private:
    struct Entry;

    /** Looks into the directories; returns the files of all that is known then. */
    QStringList search();
    Entry& entry_of_file(const QString& file);
    Entry* entry_named(const QString& name) const;
    void load_next();
    void load_if_wanted(const QString& file);
    QString load_entry(Entry& entry, bool asked_for);
    QString load_needed(Entry& entry, bool asked_for);
    QString load_noted(Entry& entry);
    QString open(Entry& entry);
    QString run_load(Entry& entry);
    void run_unload(Entry& entry);
    bool may_lose_data(const Entry& entry);
    QString name_conflict(const Entry& entry) const;
    void report(const Entry& entry, const QString& text) const;
    void tell(void (ComponentTracker::*step)(const char*), const Entry& entry) const;
    void tell_names_changed() const;

    CommandInterpreter& mInterpreter;
    LoadMark mMark;
    std::function<void(const QString&)> mReport;
    std::vector<std::unique_ptr<Entry>> mEntries;
    /** Those that are loaded, in the order in which they were. */
    std::vector<Entry*> mLoaded;
    /** Those that wait for components that they need. */
    std::vector<Entry*> mNeeding;
    /** Files that start() has yet to look at. */
    QStringList mWaiting;
    std::function<void()> mDone;
    bool mRemember = true;
    /** Whether the user knows that crashes will not be noted. */
    bool mToldOfNotes = false;
    /** While a component's load() or unload() runs no other may. */
    bool mBusy = false;
    std::unique_ptr<QObject> mTurns;
};

} // namespace fennar
