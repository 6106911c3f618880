// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include "host/navigation/NavigationResources.h"

class NavigationModel;

/** Navigation resources whose entries may wait for a component that has not been loaded yet. */
class NavigationResourcesDelay : public NavigationResources
{
public:
    NavigationResourcesDelay();
    ~NavigationResourcesDelay() override;

    /** Looks again at every entry that waits for a component. Without a model nothing happens. */
    void recheckResources();

    /** The model whose entries are looked at; null until the shell has loaded its window. Not owned. */
    NavigationModel* model = nullptr;
};
