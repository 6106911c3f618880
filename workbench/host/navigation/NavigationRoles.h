// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#pragma once

#include <Qt>

namespace fennar {

/** What an entry of a NavigationModel is; stored as an int under NavigationRole::Kind. */
enum class NavigationKind {
    Page,   ///< a top-level entry; holds groups and commands
    Group,  ///< holds groups and commands
    Command ///< leads to a command line
};

/** What a NavigationModel keeps for an entry besides its title (Qt::DisplayRole) and its picture
 * (Qt::DecorationRole). */
namespace NavigationRole {
/** QString, plain text of any length: what the entry is for. Also the tool tip in any other view. */
inline constexpr int Tip = Qt::ToolTipRole;
/** int, a NavigationKind. */
inline constexpr int Kind = Qt::UserRole + 1;
/** QString: the command line that a command starts from; its first word names the command. */
inline constexpr int Command = Qt::UserRole + 2;
/** QString: how the command is written, as in "echo [WORD...]"; empty if the file does not say. */
inline constexpr int Usage = Qt::UserRole + 3;
/** QString: the picture's name as the file gives it; empty for none. */
inline constexpr int IconName = Qt::UserRole + 4;
/** QString: the component without which the entry is not shown; empty for none. */
inline constexpr int Component = Qt::UserRole + 5;
} // namespace NavigationRole

} // namespace fennar
