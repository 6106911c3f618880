// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QtGlobal>

/** Marks the classes that hosts and components may use; everything else stays hidden in the library. */
#ifdef OSTRELGUI_BUILD
#define OSTRELGUI_EXPORT Q_DECL_EXPORT
#else
#define OSTRELGUI_EXPORT Q_DECL_IMPORT
#endif
