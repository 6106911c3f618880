// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QPoint>
#include <QStringList>

class QWidget;

/** Drops @p text at @p position of @p target as another program would. Returns whether it was taken. */
[[nodiscard]] bool drop_text(QWidget* target, const QPoint& position, const QString& text);

/**
 * Drops files at @p position of @p target as another program would that offers @p offered and proposes to
 * move them. Returns what was done with them: Qt::IgnoreAction if they were not taken.
 */
[[nodiscard]] Qt::DropAction drop_files(QWidget* target, const QPoint& position, const QStringList& files,
                                        Qt::DropActions offered);

/**
 * Presses the mouse at @p from, drags what is selected there to @p to, and lets go.
 *
 * Runs the drag as the platform does, so that the widget is the source of its own drop. Only for a window
 * that is shown. Returns whether a drag began.
 *
 * @param at_press  keys that are held when the mouse is pressed, and no longer when it is let go.
 */
[[nodiscard]] bool drag_by_mouse(QWidget* widget, const QPoint& from, const QPoint& to,
                                 Qt::KeyboardModifiers at_press = Qt::NoModifier);
