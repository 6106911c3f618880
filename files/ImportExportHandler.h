// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <QString>

/**
 * A set of file formats that a component can import or export, known to the file menu by its filters alone.
 *
 * A component derives from this class, sets mFilters and adds its object with OstrelFileMenu::add_import() or
 * add_export(). While it is in a list the object belongs to the file menu; a component that takes it out
 * owns it again.
 */
class OSTRELGUI_EXPORT ImportExportHandler
{
public:
    /** @param component  the name of the owner, by which OstrelFileMenu::remove_component_items() finds it.
     */
    explicit ImportExportHandler(const QString& component);
    /** Copies filters and owner. */
    ImportExportHandler(const ImportExportHandler& other);
    /** Takes over filters and owner of @p other. */
    ImportExportHandler& operator=(const ImportExportHandler& other);
    virtual ~ImportExportHandler();

    /**
     * Does the work, and tells the user if it fails; it must not throw. The handler may be taken out of the
     * list, and deleted by its owner, before this returns.
     *
     * @param file    an absolute name as the file dialog gives it; with an export one that may exist.
     * @param filter  the filter under which it was chosen: one entry of mFilters, or a part of one.
     */
    virtual void execute(const QString& file, const QString& filter) = 0;

    /** Entries such as "Mesh Files (*.msh)", with ";;" between them. Empty until a derived class sets it; the
     * file menu thins it out when a handler with the same filters is removed. */
    QString mFilters;
    /** The name of the component that owns the handler. */
    QString mComponent;
};
