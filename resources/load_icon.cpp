// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "resources/load_icon.h"

#include <QString>

using namespace Qt::StringLiterals;

QIcon load_icon(const char* name)
{
    return QIcon(u":/ostrelgui/images/light/"_s + QString::fromUtf8(name));
}
