// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <QObject>
#include <QString>

#include <array>

class Ostrel;
class QAction;

namespace fennar {

class CommandRegistry;

/**
 * The colors of all windows: those of the system, or light or dark ones of the program's own, which come
 * with the style Fusion, as others draw by colors of theirs.
 *
 * The user's choice is kept as the setting "fennar/scheme". Adds the command "scheme"; without windows, as in
 * a batch run, that does nothing.
 */
class ColorScheme : public QObject
{
    Q_OBJECT

public:
    enum class Scheme { System, Light, Dark };

    /** Nothing is changed yet. @param registry  must outlive this object. */
    explicit ColorScheme(CommandRegistry& registry);
    /** Takes the command away, and brings the system's colors back. */
    ~ColorScheme() override;

    Scheme scheme() const { return mScheme; }
    /** Takes over what is kept; the system's colors if that is nothing or nothing known. To be called before
     * there are windows. */
    void restore();
    /** Changes all windows at once. @param keep  whether the next start shall find it. */
    void set_scheme(Scheme scheme, bool keep);

    /** Adds an entry for each scheme to the menu "View", which send the command. */
    void add_to_menu(Ostrel* window);
    /** Takes them away again. */
    void remove_from_menu(Ostrel* window);

private:
    void update_actions();

    CommandRegistry& mRegistry;
    Scheme mScheme = Scheme::System;
    /** The style without this object's doing; empty while that is in use. */
    QString mSystemStyle;
    std::array<QAction*, 3> mActions = {};
};

} // namespace fennar
