// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// A shared object that is no component.

extern "C" __attribute__((visibility("default"))) int fennar_not_a_component();
int fennar_not_a_component()
{
    return 1;
}
