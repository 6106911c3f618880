// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QAction>
#include <QHash>
#include <QList>
#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QWidget>

#include <utility>

class CommandRegistry;
class ComponentTracker;
class OpenSaveHandler;

/** Where things were before a component was loaded, to find what it has added. */
struct Surroundings
{
    /** As they are now, with a window or without. */
    static Surroundings now(const CommandRegistry& registry);

    /** What can be seen or chosen in the main window, and all windows. Compared by address only. */
    /** With a watch on each: the address of one that has gone may belong to another. */
    QHash<const QObject*, QPointer<const QObject>> objects;
    /** Which action stands in which widget. */
    QSet<std::pair<const QWidget*, const QAction*>> actions;
    QWidget* graphics_widget = nullptr;
    QSet<const ComponentTracker*> trackers;
    QSet<QString> commands;
    const OpenSaveHandler* open_save_handler = nullptr;
    /** The labels of the options dialog's entries, as "Group/Page". */
    QSet<QString> option_labels;
    QSet<const QWidget*> option_pages;
};

/**
 * What a component has added to the program, and the cleaning up of what it leaves behind.
 *
 * Found are: all that came while the component was being loaded, all that bears its name as owner mark, and
 * all objects whose class is defined in its shared object.
 */
class ComponentTraces
{
public:
    ComponentTraces() = default;
    /**
     * @param before  the surroundings when the load began; the additions are what differs now.
     * @param code    an address in the component's shared object.
     */
    ComponentTraces(const QString& name, const Surroundings& before, const void* code,
                    CommandRegistry& registry);

    /** To be called before the component is asked to unload: what it deletes then cannot be looked at later.
     */
    void look_before_unload();

    /**
     * Takes away what is left of the component, and returns what that was, for people to read.
     *
     * Objects that wait for their deletion are deleted first, and are not counted. What the main window owns
     * is deleted; windows and the graphics widget are only taken out of sight, since nobody but the component
     * can know who owns them.
     */
    QStringList clean_up();

private:
    /** An action and the widget that it stands in. */
    struct Placement
    {
        QPointer<QWidget> widget;
        QPointer<QAction> action;
    };

    bool is_own_entry(const QWidget* widget, const QAction* action) const;
    bool is_own_class(const QObject* object) const;
    /** Whether it came with the component, or belongs to something that did. */
    bool is_own(const QObject* object) const;
    void delete_what_waits() const;
    void clean_commands(QStringList& left);
    void clean_trackers(QStringList& left);
    void clean_formats(QStringList& left) const;
    void clean_console(QStringList& left) const;
    void clean_files(QStringList& left) const;
    void clean_options(QStringList& left) const;
    void clean_owned_entries(QStringList& left) const;
    void remove_empty_toolbars() const;
    void clean_actions(QStringList& left) const;
    void clean_objects(QStringList& left) const;
    void clean_windows(QStringList& left) const;

    QString mName;
    const void* mCode = nullptr;
    CommandRegistry* mRegistry = nullptr;
    QList<QPointer<QObject>> mObjects;
    QList<Placement> mActions;
    QPointer<QWidget> mGraphicsWidget;
    QSet<const ComponentTracker*> mTrackers;
    QSet<QString> mCommands;
    /** Only compared by address: it may have been deleted. */
    const OpenSaveHandler* mOpenSaveHandler = nullptr;
    QSet<QString> mOptionLabels;
    QList<QPointer<QWidget>> mOptionPages;
};
