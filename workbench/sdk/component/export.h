// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QtGlobal>

/** Marks what the library offers. */
#ifdef FENNAR_COMPONENT_BUILD
#define FENNAR_COMPONENT_EXPORT Q_DECL_EXPORT
#else
#define FENNAR_COMPONENT_EXPORT Q_DECL_IMPORT
#endif
