// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "WindowTest.h"

using namespace Qt::StringLiterals;

namespace {

class TstGerman : public WindowTest
{
public:
    TstGerman() : WindowTest(u"de"_s) {}
};

} // namespace

OSTREL_TEST(TstGerman)
