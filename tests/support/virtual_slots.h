// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QList>

#include <cstddef>
#include <cstring>

/** The slot of a virtual function in its class's table, as the Itanium C++ ABI writes it into a pointer to
 * it; -1 for a function that is not virtual. */
template <class Function>
std::ptrdiff_t slot(Function function)
{
    struct
    {
        std::ptrdiff_t pointer;
        std::ptrdiff_t adjustment;
    } parts;
    static_assert(sizeof parts == sizeof function);
    std::memcpy(&parts, &function, sizeof parts);
#if defined(__arm__) || defined(__aarch64__)
    const bool is_virtual = parts.adjustment & 1; // addresses of functions may be odd there
    const std::ptrdiff_t offset = parts.pointer;
#else
    const bool is_virtual = parts.pointer & 1;
    const std::ptrdiff_t offset = parts.pointer - 1;
#endif
    return is_virtual ? offset / std::ptrdiff_t(sizeof(void*)) : -1;
}

template <class... Functions>
QList<std::ptrdiff_t> slots_of(Functions... functions)
{
    return {slot(functions)...};
}

/** @p count slots that follow each other, from @p first on. */
inline QList<std::ptrdiff_t> slots_from(std::ptrdiff_t first, qsizetype count)
{
    QList<std::ptrdiff_t> expected;
    for (qsizetype i = 0; i < count; ++i)
        expected << first + i;
    return expected;
}

/** A virtual destructor has two slots: one destroys, one also deletes. */
constexpr std::ptrdiff_t behind_destructor = 2;
