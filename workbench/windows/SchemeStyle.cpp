// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/windows/SchemeStyle.h"

#include <QApplication>
#include <QPainter>

using namespace Qt::StringLiterals;

SchemeStyle::SchemeStyle() : QProxyStyle(u"fusion"_s) {}

QIcon SchemeStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const
{
    const QIcon plain = QProxyStyle::standardIcon(icon, option, widget);
    if (icon != SP_ToolBarHorizontalExtensionButton && icon != SP_ToolBarVerticalExtensionButton)
        return plain;
    QIcon coloured;
    const QList<QSize> sizes = plain.availableSizes();
    for (const QSize& size : sizes) {
        QPixmap pixmap = plain.pixmap(size, 1.0);
        QPainter painter(&pixmap);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), QApplication::palette().color(QPalette::WindowText));
        painter.end();
        coloured.addPixmap(pixmap);
    }
    return coloured;
}
