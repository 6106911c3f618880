// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "host/navigation/TaskPanel.h"

#include <memory>

/** The panel that shows one level at a time, with the way back to the root above it. */
class BreadcrumbsPanel : public TaskPanel
{
    Q_OBJECT

public:
    /** Makes a panel that shows nothing yet. @p parent owns it; may be null. */
    explicit BreadcrumbsPanel(QWidget* parent);
    ~BreadcrumbsPanel() override;

    void set_model(NavigationModel* model, const QModelIndex& root) override;
    QModelIndex root_index() const override;
    QModelIndex current_index() const override;
    void set_current_index(const QModelIndex& index) override;

    /** Shows large icons (36 pixels) or small ones (22 pixels), at once. */
    void setUsingLargeIcons(bool large);

    /** Whether large icons are in use. To be read only; setUsingLargeIcons() changes it. */
    bool usingLargeIcons = false;

private:
    struct Private;
    std::unique_ptr<Private> mPrivate;
};
