// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/windows/scheme_palette.h"

#include <utility>

namespace fennar {

namespace {

using Colours = std::initializer_list<std::pair<QPalette::ColorRole, QRgb>>;

/** The colours of all widgets, and those that differ where a widget is disabled. */
QPalette make_palette(const Colours& colours, const Colours& disabled)
{
    QPalette palette;
    for (const auto& [role, colour] : colours)
        palette.setColor(role, QColor(colour));
    for (const auto& [role, colour] : disabled)
        palette.setColor(QPalette::Disabled, role, QColor(colour));
    return palette;
}

} // namespace

QPalette scheme_palette(bool dark)
{
    if (dark) {
        return make_palette({{QPalette::Window, 0x2b2f36},
                             {QPalette::WindowText, 0xe4e7eb},
                             {QPalette::Base, 0x1e2126},
                             {QPalette::AlternateBase, 0x262a30},
                             {QPalette::Text, 0xe4e7eb},
                             {QPalette::PlaceholderText, 0x9aa3af},
                             {QPalette::Button, 0x3a4049},
                             {QPalette::ButtonText, 0xe4e7eb},
                             {QPalette::BrightText, 0xff8a80},
                             {QPalette::ToolTipBase, 0x424953},
                             {QPalette::ToolTipText, 0xf0f2f4},
                             {QPalette::Highlight, 0x2f6fb3},
                             {QPalette::HighlightedText, 0xffffff},
                             {QPalette::Link, 0x82bbff},
                             {QPalette::LinkVisited, 0xc7a9ff},
                             {QPalette::Light, 0x555d69},
                             {QPalette::Midlight, 0x474e58},
                             {QPalette::Mid, 0x23272d},
                             {QPalette::Dark, 0x1a1d21},
                             {QPalette::Shadow, 0x0e1012}},
                            {{QPalette::WindowText, 0x868e99},
                             {QPalette::Text, 0x868e99},
                             {QPalette::ButtonText, 0x868e99},
                             {QPalette::Highlight, 0x4a515c},
                             {QPalette::HighlightedText, 0xb4bac2}});
    }
    return make_palette({{QPalette::Window, 0xefefef},
                         {QPalette::WindowText, 0x17191c},
                         {QPalette::Base, 0xffffff},
                         {QPalette::AlternateBase, 0xf5f6f7},
                         {QPalette::Text, 0x17191c},
                         {QPalette::PlaceholderText, 0x6b727b},
                         {QPalette::Button, 0xefefef},
                         {QPalette::ButtonText, 0x17191c},
                         {QPalette::BrightText, 0xb3261e},
                         {QPalette::ToolTipBase, 0xfdf8e1},
                         {QPalette::ToolTipText, 0x17191c},
                         {QPalette::Highlight, 0x2a6db5},
                         {QPalette::HighlightedText, 0xffffff},
                         {QPalette::Link, 0x0b57d0},
                         {QPalette::LinkVisited, 0x6a3ab2},
                         {QPalette::Light, 0xffffff},
                         {QPalette::Midlight, 0xf7f7f7},
                         {QPalette::Mid, 0xb9bcc0},
                         {QPalette::Dark, 0x9a9ea4},
                         {QPalette::Shadow, 0x6f7378}},
                        {{QPalette::WindowText, 0x82878e},
                         {QPalette::Text, 0x82878e},
                         {QPalette::ButtonText, 0x82878e},
                         {QPalette::Highlight, 0xb9bcc0},
                         {QPalette::HighlightedText, 0x4d5258}});
}

} // namespace fennar
