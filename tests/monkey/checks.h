// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

class Ostrel;
class World;

/** What is wrong with the window, whatever has been done; empty if nothing is. */
QString wrong_with(World& world);
/** What the components have left in @p window; empty if nothing is. */
QString left_in(const Ostrel& window);
