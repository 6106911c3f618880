// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QModelIndex>
#include <QWidget>

class NavigationModel;

/** A widget that leads the user through a NavigationModel. The order of the virtual functions is part of the
 * interface. */
class TaskPanel : public QWidget
{
    Q_OBJECT

public:
    /** @p parent owns the panel; may be null. */
    explicit TaskPanel(QWidget* parent);
    ~TaskPanel() override;

    /**
     * Shows @p model from @p root on.
     *
     * @param model  not owned; null shows nothing.
     * @param root   the entry whose children come first; an invalid index stands for the whole model.
     */
    virtual void set_model(NavigationModel* model, const QModelIndex& root) = 0;
    /** The entry given to set_model() as root. Not used by the shell. */
    virtual QModelIndex root_index() const = 0;
    /** The entry that the user has reached; invalid at the root. */
    virtual QModelIndex current_index() const = 0;
    /** Goes to @p index; an invalid index goes to the root, one of another model is ignored. */
    virtual void set_current_index(const QModelIndex& index) = 0;
};
