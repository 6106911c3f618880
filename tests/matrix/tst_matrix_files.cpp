// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MatrixTest.h"

/** The file menu. */
class TstMatrixFiles : public MatrixTest
{
    Q_OBJECT

public:
    TstMatrixFiles() : MatrixTest(file_flows()) {}
};

OSTREL_TEST(TstMatrixFiles)
#include "tst_matrix_files.moc"
