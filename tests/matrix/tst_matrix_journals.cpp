// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MatrixTest.h"

/** The journal editor. */
class TstMatrixJournals : public MatrixTest
{
    Q_OBJECT

public:
    TstMatrixJournals() : MatrixTest(journal_flows()) {}
};

OSTREL_TEST(TstMatrixJournals)
#include "tst_matrix_journals.moc"
