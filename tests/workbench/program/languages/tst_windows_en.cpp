// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "WindowTest.h"

using namespace Qt::StringLiterals;

namespace {

class TstEnglish : public WindowTest
{
public:
    TstEnglish() : WindowTest(QString()) {}
};

} // namespace

OSTREL_TEST(TstEnglish)
