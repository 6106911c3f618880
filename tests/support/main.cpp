// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"

int main(int argc, char** argv)
{
    return run_test(argc, argv);
}
