// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QColor>

class QPalette;

namespace fennar::graphics {

/** The colours of a view. */
struct ViewColours
{
    /** The background, which changes from top to bottom. */
    QColor top;
    QColor bottom;
    QColor solid;
    QColor edge;
    QColor mesh;
    QColor mesh_line;
    QColor selected;
    QColor selected_edge;
    QColor text;

    /** Those of a light view. */
    static ViewColours light();
    /** Those that go with a palette, be it light or dark. */
    static ViewColours fitting(const QPalette& palette);
};

} // namespace fennar::graphics
