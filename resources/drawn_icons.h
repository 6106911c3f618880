// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QRgb>

#include <span>

/** A picture that the build has drawn of a file of the bundle. */
struct DrawnIcon
{
    const char* name;   ///< the file, without its directory
    int side;           ///< width and height, in pixels
    const QRgb* pixels; ///< line by line, from the top, as QImage::Format_ARGB32_Premultiplied has them
};

/**
 * The pictures of the icons that stand in a new main window, in the sizes in which it shows them on screens
 * of one and of two pixels to the point: see CMakeLists.txt. They are exactly what Qt draws of the files.
 * Nothing has to be loaded or parsed for them, which is much of what the first window would wait for.
 *
 * Empty if Qt's SVG plugins were missing when this was built.
 */
std::span<const DrawnIcon> drawn_icons();
