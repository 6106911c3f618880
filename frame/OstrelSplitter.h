// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QSplitter>

/**
 * The central area of the main window: the splitter into which a component puts the graphics view.
 *
 * Ostrel::graphics_area() hands it out. The class is not exported: outside of the shell it is a QSplitter,
 * and what it adds cannot be linked.
 */
class OstrelSplitter : public QSplitter
{
    Q_OBJECT

public:
    /** @param name  the object name, in UTF-8; null counts as empty. */
    explicit OstrelSplitter(QWidget* parent = nullptr, const char* name = nullptr);
    /** As above, with @p orientation. */
    explicit OstrelSplitter(Qt::Orientation orientation, QWidget* parent = nullptr,
                            const char* name = nullptr);

    /** Takes @p widget out and leaves it without a parent. Anything that is not in the splitter, null
     * included, is left alone. */
    void removeWidget(QWidget* widget);
};
