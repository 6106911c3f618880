// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QProxyStyle>

namespace fennar {

/**
 * Fusion with two changes for dark grounds. Its boxes to be ticked and its radio buttons get an outline, as
 * theirs is darker than the ground. And its sign that a toolbar has more buttons, which is nearly black, is
 * drawn in the colour of the window's text as that is when the style is set.
 */
class SchemeStyle : public QProxyStyle
{
    Q_OBJECT

public:
    SchemeStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
};

} // namespace fennar
