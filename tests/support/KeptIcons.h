// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QGuiApplication>
#include <QHash>
#include <QIcon>
#include <QProxyStyle>

/**
 * The application's style, with its standard icons made once for each palette. Qt reads their pictures anew
 * for each title bar, tool bar and dialog, which takes tests of windows a tenth of their time, and those of
 * dialogs a quarter. All tests have it.
 */
class KeptIcons : public QProxyStyle
{
public:
    using QProxyStyle::polish;
    void polish(QPalette& palette) override
    {
        mIcons.clear();
        QProxyStyle::polish(palette);
    }

    QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override
    {
        // Some are mirrored then.
        if (QGuiApplication::isRightToLeft())
            return QProxyStyle::standardIcon(which, option, widget);
        const auto kept = mIcons.constFind(which);
        if (kept != mIcons.cend())
            return *kept;
        return *mIcons.insert(which, QProxyStyle::standardIcon(which, option, widget));
    }

private:
    mutable QHash<StandardPixmap, QIcon> mIcons;
};
