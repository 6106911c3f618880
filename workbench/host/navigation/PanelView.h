// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/navigation/NavigationCursor.h"

#include <QScrollArea>

class QLabel;
class QVBoxLayout;

namespace fennar {

class CommandForm;

/**
 * The inside of a command panel: what both kinds of panel have in common.
 *
 * Holds the place in the model and shows it through show_place(), never more often than needed: a view that
 * is not visible waits until it is, since the shell keeps every panel that it has replaced.
 */
class PanelView : public QScrollArea
{
    Q_OBJECT

public:
    explicit PanelView(QWidget* panel);

    NavigationCursor& cursor() { return *mCursor; }
    const NavigationCursor& cursor() const { return *mCursor; }

    QSize sizeHint() const override { return {240, 400}; }
    QSize minimumSizeHint() const override { return {80, 80}; }

protected:
    /** Shows the levels that lead to the cursor's place, and nothing of the place itself if it is a command.
     */
    virtual void show_levels() = 0;
    /** What takes the keyboard in the levels shown, in order. */
    virtual QWidgetList level_controls() const = 0;

    /** Goes where the user has pointed, and gives the keyboard to a command's line. */
    virtual void choose(const QModelIndex& entry);

    /** Shows the cursor's place, or notes that it must be shown later. */
    void show_place();

    void showEvent(QShowEvent* event) override;

    /** The widget that is scrolled, and where subclasses put their levels. */
    QWidget* contents() const { return mContents; }
    QVBoxLayout* levels() const { return mLevels; }
    /** A line to be put between levels. */
    QFrame* new_line();

private:
    void chain_controls();
    void leave_form();

    NavigationCursor* mCursor;
    QWidget* mContents;
    QVBoxLayout* mLevels;
    QLabel* mNothing;
    CommandForm* mForm;
    bool mOutdated = true;
};

} // namespace fennar
