// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

/** Lets go of what the module fennar holds outside Python. Called with Python's lock held, before the end. */
void release_fennar_module();
