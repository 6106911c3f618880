// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

struct _object; // NOLINT(bugprone-reserved-identifier): the name that Python gives it

namespace fennar {

/** Gives the module fennar cmd() and CommandError. Called with Python's lock held; throws what pybind11
 * throws. */
void fill_fennar_module(struct _object* fennar);

/** Lets go of what the module fennar holds outside Python. Called with Python's lock held, before the end. */
void release_fennar_module();

} // namespace fennar
