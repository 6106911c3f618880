// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/components/geometry/programs/TessellatorOutput.h"

#include <QTest>

#include <vector>

namespace {

/** @p count numbers as they are in memory, the first of them 0. */
QByteArray numbers(int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i) {
        const double value = i;
        bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
    }
    return bytes;
}

} // namespace

/** What comes from the program that makes triangles. */
class TstTessellatorOutput : public TestCase
{
    Q_OBJECT

private slots:
    void shape_has_its_triangles_and_lines();
    void shape_may_come_byte_by_byte();
    void solid_that_failed_has_no_shape();
    void counts_that_make_no_sense_are_no_shape_data();
    void counts_that_make_no_sense_are_no_shape();
    void forgotten_bytes_are_gone();
};

void TstTessellatorOutput::shape_has_its_triangles_and_lines()
{
    TessellatorOutput output;
    output.add("shape 7 1 2\n" + numbers(18 + 12) + "failed 8\n");
    const auto solid = output.take();
    QVERIFY(solid && solid->shape);
    QCOMPARE(solid->id, 7);
    QCOMPARE(solid->shape->origin, (Point3{0, 1, 2}));
    QCOMPARE(solid->shape->corners,
             (std::vector<QVector3D>{QVector3D(0, 0, 0), QVector3D(3, 3, 3), QVector3D(6, 6, 6)}));
    QCOMPARE(solid->shape->normals.back(), QVector3D(15, 16, 17));
    QCOMPARE(solid->shape->lines.size(), 4U);
    QCOMPARE(output.take()->id, 8);
    QVERIFY(!output.take());
}

void TstTessellatorOutput::shape_may_come_byte_by_byte()
{
    const QByteArray bytes = "shape 7 1 1\n" + numbers(18 + 6);
    TessellatorOutput output;
    for (const char byte : bytes) {
        QVERIFY(!output.take());
        output.add(QByteArray(1, byte));
    }
    const auto solid = output.take();
    QVERIFY(solid && solid->shape);
    QCOMPARE(solid->shape->corners.size(), 3U);
    QCOMPARE(solid->shape->lines.size(), 2U);
}

void TstTessellatorOutput::solid_that_failed_has_no_shape()
{
    TessellatorOutput output;
    output.add("failed 3\n");
    const auto solid = output.take();
    QVERIFY(solid && !solid->shape);
    QCOMPARE(solid->id, 3);
}

void TstTessellatorOutput::counts_that_make_no_sense_are_no_shape_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("negative triangles") << QByteArray("shape 5 -1 0");
    QTest::newRow("negative lines") << QByteArray("shape 5 1 -3");
    QTest::newRow("too many") << QByteArray("shape 5 9223372036854775807 9223372036854775807");
    QTest::newRow("sum that wraps around") << QByteArray("shape 5 512409557603043101 0");
    QTest::newRow("missing") << QByteArray("shape 5");
}

void TstTessellatorOutput::counts_that_make_no_sense_are_no_shape()
{
    QFETCH(const QByteArray, line);
    TessellatorOutput output;
    output.add(line + "\nfailed 6\n");
    const auto solid = output.take();
    QVERIFY(solid && !solid->shape);
    QCOMPARE(solid->id, 5);
    const auto next = output.take();
    QVERIFY(next);
    QCOMPARE(next->id, 6);
}

void TstTessellatorOutput::forgotten_bytes_are_gone()
{
    TessellatorOutput output;
    output.add("shape 1 1");
    output.clear();
    output.add("failed 2\n");
    QCOMPARE(output.take()->id, 2);
}

OSTREL_TEST(TstTessellatorOutput)
#include "tst_tessellatoroutput.moc"
