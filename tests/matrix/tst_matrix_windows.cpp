// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MatrixTest.h"

/** The frame, the window and its bars. */
class TstMatrixWindows : public MatrixTest
{
    Q_OBJECT

public:
    TstMatrixWindows() : MatrixTest(window_flows()) {}
};

OSTREL_TEST(TstMatrixWindows)
#include "tst_matrix_windows.moc"
