// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "journal/translate.h"

#include <QString>

void pythonize_text(QString& /*text*/) {}
