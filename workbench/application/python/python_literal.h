// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

namespace fennar {

/** @p text as a string literal of Python. */
QString python_literal(QString text);

} // namespace fennar
