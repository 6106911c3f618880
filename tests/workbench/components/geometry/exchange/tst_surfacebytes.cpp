// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/components/geometry/exchange/surface_bytes.h"
#include "workbench/components/geometry/model/GeometryError.h"

#include <QTest>

using namespace fennar;
using namespace fennar::geometry;

/** Surfaces on their way to and from the converter. */
class TstSurfaceBytes : public TestCase
{
    Q_OBJECT

private slots:
    void surface_comes_back();
    void empty_surface_comes_back();
    void cut_or_longer_bytes_are_refused();
};

void TstSurfaceBytes::surface_comes_back()
{
    const Surface before{{{0, 0.1, -2}, {1, 0, 1e300}, {3, 4, 5}}, {{0, 1, 2}, {2, 1, 0}}};
    const Surface after = unpack_surface(pack_surface(before));
    QVERIFY(after.points == before.points);
    QVERIFY(after.triangles == before.triangles);
}

void TstSurfaceBytes::empty_surface_comes_back()
{
    const Surface after = unpack_surface(pack_surface({}));
    QVERIFY(after.points.empty());
    QVERIFY(after.triangles.empty());
}

void TstSurfaceBytes::cut_or_longer_bytes_are_refused()
{
    const QByteArray whole = pack_surface({{{0, 1, 2}}, {{0, 0, 0}}});
    for (qsizetype size = 0; size < whole.size(); ++size)
        QVERIFY_THROWS_EXCEPTION(GeometryError, unpack_surface(whole.first(size)));
    QVERIFY_THROWS_EXCEPTION(GeometryError, unpack_surface(whole + 'x'));
    QVERIFY_THROWS_EXCEPTION(GeometryError, unpack_surface(QByteArray(16, '\xff')));
}

OSTREL_TEST(TstSurfaceBytes)
#include "tst_surfacebytes.moc"
