// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QStandardItemModel>

/**
 * The tree of pages, groups and commands that the command panels show.
 *
 * The main window creates it empty and owns it; a NavigationReader fills it.
 */
class NavigationModel : public QStandardItemModel
{
    Q_OBJECT

public:
    /** Makes an empty model. @p parent owns it; may be null. */
    explicit NavigationModel(QObject* parent);
    ~NavigationModel() override;
};
