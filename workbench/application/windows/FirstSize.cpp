// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/windows/FirstSize.h"

#include "frame/Ostrel.h"
#include "frame/settings_keys.h"

#include <QCoreApplication>
#include <QEvent>
#include <QScreen>
#include <QSettings>

namespace fennar {

/** The size of the main window at the first start, where the screen has room for it: all buttons of the
 * toolbars are seen, and most errors are not cut on the console. */
static constexpr QSize first_size(1200, 880);

FirstSize::FirstSize()
{
    if (QCoreApplication* application = QCoreApplication::instance())
        application->installEventFilter(this);
}

bool FirstSize::eventFilter(QObject* object, QEvent* event)
{
    // The shell has read its settings by then, and the screen has not got the window yet.
    if (event->type() != QEvent::Show || object != Ostrel::instance())
        return false;
    const QSettings settings;
    Ostrel* window = Ostrel::instance();
    if (!settings.contains(settings_keys::geometry) && !settings.contains(settings_keys::width))
        window->resize(window->size().expandedTo(first_size.boundedTo(window->screen()->availableSize())));
    return false;
}

} // namespace fennar
