// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QPointer>

#include <array>

/**
 * Remembers objects across a call out of the shell (a signal, a handler, the host, a dialog), and tells after
 * it whether all of them still exist. What is called may delete any of them.
 *
 *     const Alive alive(this, page);
 *     emit current_changed();
 *     if (!alive)
 *         return;
 *
 * A null pointer counts as an object that does not exist. An object counts as gone from the moment its
 * QObject part is destroyed; one that waits for deleteLater() still exists.
 */
template <std::size_t Count>
class Alive
{
public:
    template <class... Objects>
    explicit Alive(const Objects*... objects) : mObjects{QPointer<const QObject>(objects)...}
    {}

    /** Whether all of them exist. */
    explicit operator bool() const
    {
        for (const QPointer<const QObject>& object : mObjects)
            if (!object)
                return false;
        return true;
    }

private:
    std::array<QPointer<const QObject>, Count> mObjects;
};

template <class... Objects>
Alive(const Objects*...) -> Alive<sizeof...(Objects)>;
