// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>
#include <pybind11/pybind11.h>

namespace fennar {

// Both are called with Python's lock held.

/** The text of a Python string. A lone surrogate, which no Qt text may hold, becomes U+FFFD. */
QString to_qstring(const pybind11::str& text);

/** The Python string of @p text. */
pybind11::str to_python(const QString& text);

} // namespace fennar
