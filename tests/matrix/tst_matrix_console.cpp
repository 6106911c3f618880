// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MatrixTest.h"

/** The console. */
class TstMatrixConsole : public MatrixTest
{
    Q_OBJECT

public:
    TstMatrixConsole() : MatrixTest(console_flows()) {}
};

OSTREL_TEST(TstMatrixConsole)
#include "tst_matrix_console.moc"
