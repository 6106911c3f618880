// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QHash>
#include <QIcon>
#include <QProxyStyle>

/**
 * The application's style, with its standard icons made once. Qt reads their pictures anew for each title
 * bar, tool bar and dialog; where windows are made by the thousand, that is a tenth of the time.
 *
 *     QApplication::setStyle(new KeptIcons);
 */
class KeptIcons : public QProxyStyle
{
public:
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override
    {
        const auto kept = mIcons.constFind(which);
        if (kept != mIcons.cend())
            return *kept;
        return *mIcons.insert(which, QProxyStyle::standardIcon(which, option, widget));
    }

private:
    mutable QHash<StandardPixmap, QIcon> mIcons;
};
