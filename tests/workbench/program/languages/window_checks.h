// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QMenu;
class QWidget;

/** A text that the user reads, and where. */
struct ShownText
{
    QString place;
    QString text;
};

/** All texts of @p window, of what is in it and of its actions; not what the user has written or what is
 * data. */
QList<ShownText> shown_texts(const QWidget* window);

/** The visible texts in @p window that have too little room, as messages. */
QStringList clipped_texts(const QWidget* window);

/** The mnemonics that several entries of a menu, or several fields of a dialog, have in common, and buttons
 * whose mnemonic is not their shortcut. */
QStringList mnemonic_faults(const QWidget* window);

/** The visible widgets that the user works with and that have no name that a screen reader could say. */
QStringList nameless_widgets(const QWidget* window);

/** What is wrong with the round that the Tab key makes through the window, which is active; empty if nothing
 * is. */
QStringList tab_faults(QWidget* window);
