// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "workbench/host/navigation/EntryButtons.h"

#include <QByteArray>
#include <QList>
#include <QStringList>
#include <QTemporaryDir>

class NavigationModel;
class QAbstractItemModel;
class QModelIndex;
class QStandardItem;

/** A directory of navigation files, and what a reader makes of it. */
class NavigationFolder
{
public:
    /** Writes the file @p name. */
    void write(const QString& name, const QByteArray& contents);
    /** @p name with the directory in front of it. */
    QString path(const QString& name = {}) const;
    /** Reads all ".xml" files into @p model and returns the messages, with the directory and its slash taken
     * out. */
    QStringList read(NavigationModel* model) const;

private:
    QTemporaryDir mDirectory;
};

/** @p pages inside the root element of a navigation file. */
QByteArray navigation(const QByteArray& pages);

/** One line for each entry, two blanks for each level: kind, title, and the command in brackets. */
QStringList tree(const QAbstractItemModel& model);

/** The entry with the title @p title, which must be unique; invalid if there is none. */
QModelIndex entry(const QAbstractItemModel& model, const QString& title);

/** Adds a page, a group or a command below @p parent. */
QStandardItem* add_page(NavigationModel& model, const QString& title);
QStandardItem* add_group(QStandardItem* parent, const QString& title);
QStandardItem* add_command(QStandardItem* parent, const QString& title, const QString& command);

/** The visible entry buttons of @p panel, row by row. */
QList<fennar::EntryButton*> entry_buttons(const QWidget& panel);
/** The titles on these buttons. */
QStringList entry_titles(const QWidget& panel);
/** The titles on those that are down. */
QStringList chosen_titles(const QWidget& panel);
/** The visible entry button titled @p title; null if there is none. */
fennar::EntryButton* entry_button(const QWidget& panel, const QString& title);
