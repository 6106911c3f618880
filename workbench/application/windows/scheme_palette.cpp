// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/windows/scheme_palette.h"

namespace fennar {

namespace {

struct SchemeColor
{
    QPalette::ColorRole role;
    QRgb light;
    QRgb dark;
};

constexpr SchemeColor colors[] = {
    {QPalette::Window, 0xefefef, 0x2b2f36},
    {QPalette::WindowText, 0x17191c, 0xe4e7eb},
    {QPalette::Base, 0xffffff, 0x1e2126},
    {QPalette::AlternateBase, 0xf5f6f7, 0x262a30},
    {QPalette::Text, 0x17191c, 0xe4e7eb},
    {QPalette::PlaceholderText, 0x6b727b, 0x9aa3af},
    {QPalette::Button, 0xefefef, 0x3a4049},
    {QPalette::ButtonText, 0x17191c, 0xe4e7eb},
    {QPalette::BrightText, 0xb3261e, 0xff8a80},
    {QPalette::ToolTipBase, 0xfdf8e1, 0x424953},
    {QPalette::ToolTipText, 0x17191c, 0xf0f2f4},
    {QPalette::Highlight, 0x2a6db5, 0x2f6fb3},
    {QPalette::HighlightedText, 0xffffff, 0xffffff},
    {QPalette::Link, 0x0b57d0, 0x82bbff},
    {QPalette::LinkVisited, 0x6a3ab2, 0xc7a9ff},
    {QPalette::Light, 0xffffff, 0x555d69},
    {QPalette::Midlight, 0xf7f7f7, 0x474e58},
    {QPalette::Mid, 0xb9bcc0, 0x23272d},
    {QPalette::Dark, 0x9a9ea4, 0x1a1d21},
    {QPalette::Shadow, 0x6f7378, 0x0e1012},
};

/** Those that differ where a widget is disabled. */
constexpr SchemeColor disabled_colors[] = {
    {QPalette::WindowText, 0x82878e, 0x868e99},      {QPalette::Text, 0x82878e, 0x868e99},
    {QPalette::ButtonText, 0x82878e, 0x868e99},      {QPalette::Highlight, 0xb9bcc0, 0x4a515c},
    {QPalette::HighlightedText, 0x4d5258, 0xb4bac2},
};

} // namespace

QPalette scheme_palette(bool dark)
{
    QPalette palette;
    for (const SchemeColor& color : colors)
        palette.setColor(color.role, QColor(dark ? color.dark : color.light));
    for (const SchemeColor& color : disabled_colors)
        palette.setColor(QPalette::Disabled, color.role, QColor(dark ? color.dark : color.light));
    return palette;
}

} // namespace fennar
