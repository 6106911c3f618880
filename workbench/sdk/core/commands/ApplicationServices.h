// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <functional>

class OstrelGUI;
class QString;
class QWidget;

namespace fennar {

/** What commands of components need from the application; each may be null. */
struct ApplicationServices
{
    /** The shell, to show progress with; it does nothing while there is no window. Not owned. */
    OstrelGUI* shell = nullptr;
    /**
     * Gives the application its turn, so that the window stays alive and its cancel button works. For
     * commands that take their time, to be called as often as they like.
     */
    std::function<void()> turn = {};
    /**
     * Opens a dialog with the form of a command, which sends the line as though it were typed and deletes
     * itself when it is closed.
     *
     * @param title  may be the text of a menu entry: what marks its key, and "...", is left out.
     */
    std::function<QWidget*(const QString& command, const QString& title)> open_form = {};
};

} // namespace fennar
