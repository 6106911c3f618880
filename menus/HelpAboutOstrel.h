// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "frame/export.h"

#include <QDialog>
#include <QString>

#include <memory>

namespace Ui {
class QtHelpAboutOstrel;
}

/**
 * The about dialog. The host gives it the product's name, text and icon, components add widgets of their own,
 * and the dialog itself writes which software is included.
 *
 * OstrelHelpMenu makes the one instance, which belongs to the main window. GUI thread only.
 */
class OSTRELGUI_EXPORT HelpAboutOstrel : public QDialog
{
    Q_OBJECT

public:
    /**
     * Builds the dialog. The included software is written now, under the application's present name; the
     * framework's Python interpreter must exist.
     */
    explicit HelpAboutOstrel(QWidget* parent);
    ~HelpAboutOstrel() override;

    /**
     * Sets where the icon is. Shown after finish_populating_dialog().
     *
     * @param path  as it stands if it contains "fennargui", such as a path into a resource of that name;
     * otherwise relative to the application's folder. With an empty one the icon stays as it is.
     */
    void setIconPath(QString path);
    /** Sets the product's name, as rich text. Shown after finish_populating_dialog(). */
    void setProductName(QString name);
    /** Sets the text below the name, as rich text. Shown after finish_populating_dialog(). */
    void setProductInfo(QString info);

    /**
     * Adds a widget above the line of included software, behind those added before. Null is ignored.
     *
     * @param widget  becomes a child of the dialog. It is shown at once if the dialog is; one that was hidden
     * before stays hidden otherwise.
     */
    void add_about(QWidget* widget);
    /**
     * Takes a widget that was added out and hides it. It is not deleted, and stays a child of the dialog
     * until it gets another parent. Null and what was not added are ignored.
     */
    void remove_about(QWidget* widget);

    /** Shows what the setters were given last. An icon that cannot be loaded leaves its place empty. */
    void finish_populating_dialog();

private:
    std::unique_ptr<Ui::QtHelpAboutOstrel> ui;
    QString mIconPath;
    QString mProductName;
    QString mProductInfo;
    /** Set by nothing. It keeps its place, since the size of an exported class is fixed. */
    QString mReserved;
};
