// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <deque>
#include <vector>

class QAction;
class QMenu;
class QToolBar;
class QWidget;

/** One action or separator of a menu or toolbar. */
struct MenuEntry
{
    /** The component that added it, or "ot_section_separator" for a separator between sections. */
    QString owner;
    /** Not owned; null for a separator. */
    QAction* action = nullptr;
    /** The separator that stands in the menu. Null for an action, and always on a toolbar. */
    QAction* separator = nullptr;
    /** The action or separator that stands in the widget. Null once that is deleted by someone else, which
     * the pointers above do not notice: the entry then goes on counting, but nothing is to be reached through
     * it. */
    QPointer<QAction> shown;
};

/** A named run of entries. Owns them. */
struct MenuSection
{
    explicit MenuSection(const QString& section_name) : name(section_name) {}
    ~MenuSection();
    Q_DISABLE_COPY_MOVE(MenuSection)

    QString name;
    std::vector<MenuEntry*> entries;
};

/**
 * The ordered list behind one menu or one toolbar: named sections of entries, each marked with the component
 * that owns it. It keeps the order while components come and go, and takes away what one of them added.
 *
 * Names are compared exactly and case-sensitively; they are UTF-8. Neither the widget nor the actions are
 * owned. Once the widget is deleted, by whomever, its pointers are null and the list works as one without.
 *
 * Widgets tell others of each change (event filters, the end of a separator), who may call the list again,
 * delete it, its widget or its actions. So the entries are brought up to date first, and the widget is
 * changed afterwards, step by step. What such a call changes is in the entries when it returns, and in the
 * widget when the call that was there before has done its own steps. GUI thread only.
 */
class MenuSections
{
public:
    /** @param list_name  the menu's title or the toolbar's name. */
    explicit MenuSections(const QString& list_name) : name(list_name) {}
    /** Deletes sections and entries, and leaves the widget with its actions alone. */
    ~MenuSections();
    Q_DISABLE_COPY_MOVE(MenuSections)

    /** Sets the menu to fill. @p bar_action stands for it in the menu bar; may be null. */
    void set_menu(QMenu* filled_menu, QAction* bar_action);
    /** Sets the toolbar to fill. */
    void set_toolbar(QToolBar* filled_toolbar);

    /**
     * Finds a section, or makes it.
     *
     * @param section   null stands for the last section; if there is none, one is made that is named after
     * the list, with "_section" behind it.
     * @param position  the index to insert a new section at; one outside the list appends.
     * @param run       is set to the number of actions behind the last separator, up to the end of the
     * section found. May be null.
     * @param total     is set to the number of entries up to there. May be null.
     */
    MenuSection* find_section(const char* section, int position, int* run, int* total);
    /** Makes a section if there is none of that name. Does nothing with a null name. */
    void add_section(const char* section, int position);

    /** Adds one action, as add_items() does. */
    void add_item(QAction* action, const char* component, const char* section);
    /**
     * Adds actions at the end of a section.
     *
     * @param actions    a null element asks for a separator; leading and doubled ones are left out.
     * @param component  the owner mark; with null nothing is added.
     * @param section    as for find_section(); it is made even if nothing is added.
     */
    void add_items(std::vector<QAction*>& actions, const char* component, const char* section);
    /**
     * Removes all entries of @p component, and separators that would then lead the list. Null removes
     * nothing.
     *
     * A toolbar that loses a separator is emptied altogether (docs/surprises.md): what stays in the list is
     * shown again when items are added to a section that has others behind it.
     */
    void remove_items(const char* component);
    /**
     * Appends the actions of a section to @p out, without separators; those of the first one if null. Actions
     * that have been deleted meanwhile are left out.
     */
    void get_items(std::vector<QAction*>& out, const char* section) const;

    /** The menu or the toolbar. Null if there is none, and as soon as its destruction has begun. */
    QWidget* widget() const;
    /** Whether a call is changing the widget just now, so that it does not show yet what the list holds. */
    bool is_changing() const { return mChanging; }
    /** Whether somebody who was told of the last call of add_items() has called remove_items(). */
    bool was_removed_from() const { return mRemovedFrom; }

    std::vector<MenuSection*> sections;
    QString name;
    QToolBar* toolbar = nullptr;
    QMenu* menu = nullptr;
    QAction* menu_action = nullptr;

private:
    /** A change of the widget that is due. */
    struct Step
    {
        enum class Kind {
            Add,
            Remove,
            Delete,
            Clear,
        };
        Kind kind;
        QPointer<QAction> action;
    };

    void take_out(MenuEntry& entry);
    void put_in(MenuEntry& entry);
    void put_in_again(MenuSection& section, int& run);
    void change_widget();
    void do_step(const Step& step);

    std::deque<Step> mSteps;
    bool mChanging = false;
    bool mRemovedFrom = false;
    /** Lives as long as the list, whose class is no QObject; holds separators until they are shown. */
    QObject mLife;
};
