// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/components/geometry/model/GeometryError.h"
#include "workbench/components/geometry/model/GeometryModel.h"
#include "workbench/components/geometry/programs/program_folder.h"

#include <QFile>
#include <QLibrary>
#include <QRegularExpression>
#include <QTest>

using namespace fennar::geometry;
using namespace Qt::StringLiterals;

/** The module of the kernel, in a program that has none of its own. */
class TstShapeKernel : public TestCase
{
    Q_OBJECT

private slots:
    void function_has_the_version_in_its_name();
    void module_of_another_version_is_refused();
};

void TstShapeKernel::function_has_the_version_in_its_name()
{
    QString version = QStringLiteral(FENNAR_SDK_VERSION);
    version.replace(QRegularExpression(u"\\W"_s), u"_"_s);
    QLibrary kernel(QStringLiteral(FENNAR_PROGRAMS) + u"/fennar-kernel.so"_s);
    QVERIFY2(kernel.load(), qPrintable(kernel.errorString()));
    QVERIFY(kernel.resolve(qPrintable(u"fennar_shape_kernel_"_s + version)));
}

void TstShapeKernel::module_of_another_version_is_refused()
{
    const QString file = program_folder().filePath(u"fennar-kernel.so"_s);
    QVERIFY(QFile::exists(file));
    GeometryModel model;
    for ([[maybe_unused]] const int time : {1, 2}) {
        QString message;
        try {
            model.brick({1, 1, 1}, {}, {});
        } catch (const GeometryError& error) {
            message = error.message();
        }
        QCOMPARE(message, u"the CAD kernel cannot be loaded: %1 is of another version"_s.arg(file));
        QVERIFY(model.ids().isEmpty());
    }
}

OSTREL_TEST(TstShapeKernel)
#include "tst_shapekernel.moc"
