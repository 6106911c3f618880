// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QByteArray>

/**
 * Turns the first faces of a shell in a file in the BREP format inside out.
 *
 * @param shell  counts from 1; 0 for all shells.
 * @return the number of shells.
 */
inline int turn_faces(QByteArray& brep, int shell, int faces)
{
    // The faces of a shell stand in one line, each with a sign that tells its side.
    int shells = 0;
    for (qsizetype at = brep.indexOf("\nSh\n"); at >= 0; at = brep.indexOf("\nSh\n", at)) {
        at = brep.indexOf("00\n", at) + 3;
        ++shells;
        for (int i = 0; i < faces && (shell == 0 || shell == shells); ++i) {
            brep[at] = brep[at] == '+' ? '-' : '+';
            at = brep.indexOf(" 0 ", at) + 3;
        }
    }
    return shells;
}
