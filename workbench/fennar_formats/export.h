// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QtGlobal>

/** Marks what components may use of the library. */
#ifdef FENNAR_FORMATS_BUILD
#define FENNAR_FORMATS_EXPORT Q_DECL_EXPORT
#else
#define FENNAR_FORMATS_EXPORT Q_DECL_IMPORT
#endif
