// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QString>

#include <cstdint>

/** One component in the list that Mediator::get_components() fills. The list and its records are the
 * caller's. */
struct ComponentRecord
{
    /** The text shown in the plugin tool's list of components. */
    QString name;
    /** Not read by the shell. */
    QString text2;
    /** Not read by the shell. */
    QString text3;
    /** The component's state word, such as "loaded"; it also selects the icon shown beside the name. */
    QString state;
    /** Not read by the shell. */
    std::uintptr_t reserved = 0;
};
