// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// What a component of another version has as its kernel: it must not be called.

extern "C" __attribute__((visibility("default"))) const void* fennar_shape_kernel_0_1_0()
{
    return nullptr;
}
