// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>
#include <QPointer>

class GeneralOptions;
class LayoutOptions;
class OptionsPanel;

/**
 * Joins the shell's own two pages, General and Layout, to the options panel.
 *
 * The main window makes it behind its panel and is its parent. GUI thread only.
 */
class OstrelGUIOptions : public QObject
{
    Q_OBJECT

public:
    /** Adds the pages to the panel of Ostrel::instance(). Without a window or a panel it does nothing. */
    explicit OstrelGUIOptions(QObject* parent);
    /** Takes the pages out of the panel and deletes them, if there still is a panel. */
    ~OstrelGUIOptions() override;

private:
    QPointer<LayoutOptions> mLayoutOptions;
    QPointer<GeneralOptions> mGeneralOptions;
};
