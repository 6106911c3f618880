// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

#include <span>

class Stage;

/** What a component or a host does at some moment. None needs a window to be there. */
struct Act
{
    const char* name;
    void (*act)(Stage& stage);
};

std::span<const Act> all_acts();

/** The object name of dialogs that acts open, which answer themselves. */
inline const QString dialog_of_an_act = QStringLiteral("dialog of an act");
