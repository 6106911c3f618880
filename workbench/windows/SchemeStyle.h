// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QProxyStyle>

/**
 * Fusion, whose toolbars can be seen to have more buttons on a dark ground, too: its own sign for that is
 * nearly black. It is drawn in the colour of the window's text as that is when the style is set.
 */
class SchemeStyle : public QProxyStyle
{
    Q_OBJECT

public:
    SchemeStyle();

    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override;
};
