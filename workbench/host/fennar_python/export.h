// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QtGlobal>

/** Marks the classes and functions that the rest of the workbench may use. */
#ifdef FENNAR_PYTHON_BUILD
#define FENNAR_PYTHON_EXPORT Q_DECL_EXPORT
#else
#define FENNAR_PYTHON_EXPORT Q_DECL_IMPORT
#endif
