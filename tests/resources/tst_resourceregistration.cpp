// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"

#include <QFile>
#include <QLibrary>
#include <QTest>

using namespace Qt::StringLiterals;

class TstResourceRegistration : public TestCase
{
    Q_OBJECT

private slots:
    void bundle_is_there_exactly_while_its_library_is_loaded();
};

void TstResourceRegistration::bundle_is_there_exactly_while_its_library_is_loaded()
{
    const QString logo = u":/ostrelgui/images/light/ostrel.svg"_s;
    QVERIFY(!QFile::exists(logo));
    QLibrary library(QString::fromUtf8(RESOURCES_MODULE));
    QVERIFY2(library.load(), qPrintable(library.errorString()));
    QVERIFY(QFile::exists(logo));
    QVERIFY(library.unload());
    QVERIFY(!QFile::exists(logo));
}

OSTREL_TEST(TstResourceRegistration)
#include "tst_resourceregistration.moc"
