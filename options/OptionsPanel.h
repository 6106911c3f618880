// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <QDialog>

#include <memory>

class QTreeWidgetItem;

/**
 * The options dialog: a tree of page names on the left, the chosen page on the right.
 *
 * Pages are plain widgets that anyone adds under a path such as "Geometry/Display". The panel does not know
 * what they hold. It emits refreshSettings() when they should load their controls, and saveSettings() when
 * they should write them back; whoever owns a page connects it.
 *
 * The main window owns the panel and hands it out with Ostrel::options(). GUI thread only.
 */
class OSTRELGUI_EXPORT OptionsPanel : public QDialog
{
    Q_OBJECT

public:
    /** Makes a dialog without pages. @p parent owns it; may be null. */
    explicit OptionsPanel(QWidget* parent);
    ~OptionsPanel() override;

    /**
     * Adds a page.
     *
     * The first page of a path stays; a further one is ignored. An empty path is ignored.
     *
     * @param path  names the page and, in front of it, the groups it belongs to, parted by "/". Groups that
     * are missing are made. In a path of three or more parts, groups made here get their labels in reverse
     * order and pages below them cannot be reached by selection: use two parts at most.
     * @param page  becomes a child of the panel, and remains the caller's to remove and delete. Null makes
     * a group only.
     */
    void add_panel(const QString& path, QWidget* page);
    /**
     * Removes the page and its entry in the tree; entries below it disappear from the tree as well, their
     * pages stay added. The page is hidden and not deleted. If it is the one that is shown, no entry is
     * selected afterwards. An unknown path is ignored.
     */
    void remove_panel(const QString& path);
    /**
     * Selects the page of @p path and, if the dialog is hidden, emits refreshSettings() and runs it as a
     * modal dialog, which returns when it is closed. An unknown path leaves the selection as it is. Called by
     * a page that loads its controls it selects only.
     */
    void show_panel(const QString& path);
    /** Emits refreshSettings(). */
    void refresh_settings();
    /**
     * Runs the dialog until it is closed.
     *
     * If it is open already, which a page can be the cause of, this returns QDialog::Rejected at once; a
     * dialog that has just been closed then opens again.
     */
    int exec() override;
    /** Selects the first entry of the tree. */
    void select_first();

signals:
    /** "Save" was clicked: pages write their controls back. The dialog closes afterwards. */
    void saveSettings();
    /** The dialog is about to open: pages load their controls. */
    void refreshSettings();
    /** For components; the shell neither emits it nor listens to it. */
    void legacyBehaviorChanged(bool on);

protected slots:
    /** Emits saveSettings() and closes the dialog. */
    virtual void saveClicked();
    /** Shows the page of @p current. The previous entry is not used. */
    virtual void changeWidget(QTreeWidgetItem* current, QTreeWidgetItem* previous);

private:
    struct Form;

    void forget_items_below(QTreeWidgetItem* item);

    const std::unique_ptr<Form> mForm;
};
