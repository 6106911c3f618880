// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QIcon>

/**
 * Returns the icon that the library carries under @p name, a file name with its ending, such as
 * "undo_ot.svg".
 *
 * A name that the library does not carry gives an icon without a picture; so does null. Nothing is reported.
 */
QIcon load_icon(const char* name);

/**
 * The same, with the picture of the icon @p disabled in @p size, in points, added for the mode
 * QIcon::Disabled. Neither file is read before a picture is asked for.
 */
QIcon load_icon(const char* name, const char* disabled, const QSize& size);
