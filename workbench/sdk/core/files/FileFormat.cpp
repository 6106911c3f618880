// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/sdk/core/files/FileFormat.h"

using namespace Qt::StringLiterals;

namespace fennar {

QString file_filter(const QString& name, const QStringList& endings)
{
    QStringList patterns;
    for (const QString& ending : endings)
        patterns << u"*."_s + ending;
    return u"%1 (%2)"_s.arg(name, patterns.join(u' '));
}

} // namespace fennar
