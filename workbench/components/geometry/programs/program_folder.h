// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QDir>

namespace fennar::geometry {

/** Where the programs and the kernel are: beside the shared object of this component, or beside what a link
 * to it stands for. */
QDir program_folder();

} // namespace fennar::geometry
