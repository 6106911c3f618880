// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/windows/SchemeStyle.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace fennar {

SchemeStyle::SchemeStyle() : QProxyStyle(u"fusion"_s) {}

void SchemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool box = element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
    const bool round = element == PE_IndicatorRadioButton;
    const QPalette& palette = option->palette;
    if ((!box && !round) ||
        palette.color(QPalette::Window).lightness() > palette.color(QPalette::WindowText).lightness())
        return;
    painter->save();
    painter->setPen(palette.color(QPalette::PlaceholderText));
    painter->setBrush(Qt::NoBrush);
    const QRectF rect = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (round) {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->drawEllipse(rect);
    } else {
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    }
    painter->restore();
}

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

} // namespace fennar
