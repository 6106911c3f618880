// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "workbench/application/editor/mark_color.h"

namespace fennar {

QRgb mark_color(LineMark::Kind kind, bool dark)
{
    switch (kind) {
    case LineMark::Kind::Command:
        return dark ? 0xff9ccbff : 0xff0b4fb3;
    case LineMark::Kind::Keyword:
        return dark ? 0xffd9b8ff : 0xff7a1fa2;
    case LineMark::Kind::Number:
        return dark ? 0xffffbd8a : 0xff9a3c00;
    case LineMark::Kind::String:
        return dark ? 0xffa9dc9a : 0xff1b6b24;
    case LineMark::Kind::Name:
        return dark ? 0xff7fdcd4 : 0xff00646b;
    case LineMark::Kind::Variable:
        return dark ? 0xffffb0c8 : 0xffa8144a;
    case LineMark::Kind::Comment:
        break;
    }
    return dark ? 0xffc0c6ce : 0xff5f6570;
}

} // namespace fennar
