// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "resources/load_icon.h"

#include "resources/BundledIconEngine.h"

#include <QFileInfo>
#include <QString>

using namespace Qt::StringLiterals;

QIcon load_icon(const char* name)
{
    const QString path = u":/ostrelgui/images/light/"_s + QString::fromUtf8(name);
    // An icon made from a missing SVG file is empty too, but Qt warns of the file at each painting, and from
    // a name without its ending Qt guesses one.
    return QFileInfo(path).isFile() ? QIcon(new BundledIconEngine(path)) : QIcon();
}
