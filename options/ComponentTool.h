// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "host/ostrelfw/ComponentTracker.h"

#include <QDialog>
#include <QString>

#include <memory>

class Ostrel;
class QListWidgetItem;

/**
 * The dialog "Plugin Directories": the components that the framework knows, with their states, and the
 * ordered list of directories in which it looks for components, for editing.
 *
 * Everything is read from the framework when the dialog is shown. While it is open the states follow the
 * framework's reports. The directories go back to the framework when the dialog is hidden, by whatever means
 * and whether changed or not; there is no way to discard changes. Deleting the open dialog hides it first;
 * minimizing it does not hide it.
 *
 * The Tools menu creates it, without showing it, on first use and owns it. GUI thread only.
 */
class ComponentTool : public QDialog, public ComponentTracker
{
    Q_OBJECT

public:
    /** @p parent is the window that the dialog belongs to; may be null. */
    explicit ComponentTool(Ostrel* parent);
    ~ComponentTool() override;

    // What the framework reports; a name that is not in the list is ignored, and so is null.
    void component_loading(const char* name) override;
    void component_loaded(const char* name) override;
    void component_unloading(const char* name) override;
    void component_unloaded(const char* name) override;

    /** The directory in which the folder dialog starts. Empty lets the framework name one. The main window
     * saves and restores it. */
    static QString sLastPath;

public slots:
    /** Lets the user choose a directory, and adds it at the end of the list; one that is in the list already
     * is selected instead. One that is chosen when the dialog has been hidden meanwhile is not added. */
    void add_location();
    /** Removes the current directory from the list; without one nothing happens. */
    void remove_location();
    /** Moves the current directory one row up; nothing happens in the first row. */
    void move_up();
    /** Moves the current directory one row down; nothing happens in the last row. */
    void move_down();
    /** Enables the buttons that have something to do while @p current, which may be null, is the current
     * directory. */
    void update_buttons(QListWidgetItem* current, QListWidgetItem* previous);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    struct Form;

    void load();
    void hand_back();
    void show_state(const char* name, const char* icon);

    std::unique_ptr<Form> ui;
};
