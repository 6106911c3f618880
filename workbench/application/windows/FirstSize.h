// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>

namespace fennar {

/** Gives the main window its first size just before it is shown, unless the settings have one. To be there
 * while the window is loaded. */
class FirstSize : public QObject
{
public:
    FirstSize();
    bool eventFilter(QObject* object, QEvent* event) override;
};

} // namespace fennar
