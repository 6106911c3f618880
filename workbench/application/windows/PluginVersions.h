// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>

class Ostrel;

namespace fennar {

/** Shows the versions of the components behind their names in the plugin tool, as they are when that opens.
 */
class PluginVersions : public QObject
{
public:
    /** @param window  not null; outlives this object. */
    explicit PluginVersions(Ostrel* window);
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    Ostrel* const mWindow;
};

} // namespace fennar
