// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "resources/load_icon.h"

#include "resources/BundledIconEngine.h"

#include <QFileInfo>
#include <QString>

using namespace Qt::StringLiterals;

namespace {

QString path_of(const char* name)
{
    return u":/ostrelgui/images/light/"_s + QString::fromUtf8(name);
}

} // namespace

QIcon load_icon(const char* name)
{
    const QString path = path_of(name);
    // An icon made from a missing SVG file is empty too, but Qt warns of the file at each painting, and from
    // a name without its ending Qt guesses one.
    return QFileInfo(path).isFile() ? QIcon(new BundledIconEngine(path)) : QIcon();
}

QIcon load_icon(const char* name, const char* disabled, const QSize& size)
{
    const QString path = path_of(name);
    const QIcon other = load_icon(disabled);
    if (QFileInfo(path).isFile() && !other.isNull())
        return QIcon(new BundledIconEngine(path, other, size));
    QIcon icon = load_icon(name);
    icon.addPixmap(other.pixmap(size), QIcon::Disabled);
    return icon;
}
