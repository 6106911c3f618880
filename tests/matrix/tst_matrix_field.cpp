// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MatrixTest.h"

/** The field for file names. */
class TstMatrixField : public MatrixTest
{
    Q_OBJECT

public:
    TstMatrixField() : MatrixTest(field_flows()) {}
};

OSTREL_TEST(TstMatrixField)
#include "tst_matrix_field.moc"
