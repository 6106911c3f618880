// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "MatrixTest.h"

/** The options, the plugin tool and the help menu. */
class TstMatrixPanels : public MatrixTest
{
    Q_OBJECT

public:
    TstMatrixPanels() : MatrixTest(panel_flows()) {}
};

OSTREL_TEST(TstMatrixPanels)
#include "tst_matrix_panels.moc"
