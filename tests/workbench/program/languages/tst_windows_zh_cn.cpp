// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "WindowTest.h"

using namespace Qt::StringLiterals;

namespace {

class TstChinese : public WindowTest
{
public:
    TstChinese() : WindowTest(u"zh_CN"_s) {}
};

} // namespace

OSTREL_TEST(TstChinese)
