// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

/** What a NavigationReader may ask about the components that navigation entries depend on. */
class NavigationResources
{
public:
    virtual ~NavigationResources();
};
