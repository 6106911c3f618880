// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QAction>
#include <QString>
#include <QVariant>

namespace fennar {

/** Says why an action, or the menu whose action it is, cannot be used while it is disabled: a sentence in the
 * user's language, which the command search shows. An empty one takes that back. Never null. */
inline void set_disabled_reason(QAction* action, const QString& reason)
{
    action->setProperty("fennarDisabledReason", reason.isEmpty() ? QVariant() : QVariant(reason));
}

/** What was said so; empty if nothing was. It holds only while the action is disabled. */
inline QString disabled_reason(const QAction* action)
{
    return action->property("fennarDisabledReason").toString();
}

} // namespace fennar
