// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "host/navigation/TaskPanel.h"

#include <memory>

/** The panel of rows of buttons: one row for each level down to the entry that the user has reached. */
class CommandButtonPanel : public TaskPanel
{
    Q_OBJECT

public:
    /** Makes a panel that shows nothing yet. @p parent owns it; may be null. */
    explicit CommandButtonPanel(QWidget* parent);
    ~CommandButtonPanel() override;

    void set_model(NavigationModel* model, const QModelIndex& root) override;
    QModelIndex root_index() const override;
    QModelIndex current_index() const override;
    void set_current_index(const QModelIndex& index) override;

private:
    struct Private;
    std::unique_ptr<Private> mPrivate;
};
