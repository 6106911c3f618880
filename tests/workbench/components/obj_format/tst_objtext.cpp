// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/components/obj_format/obj_text.h"

#include <QTest>

#include <limits>
#include <stdexcept>

using namespace fennar;
using namespace fennar::obj_format;
using namespace Qt::StringLiterals;

/** OBJ files as text. */
class TstObjText : public TestCase
{
    Q_OBJECT

private slots:
    void what_is_written_comes_back();
    void faces_become_triangles_data();
    void faces_become_triangles();
    void errors_tell_the_line_data();
    void errors_tell_the_line();
    void long_file_is_quick();
};

void TstObjText::what_is_written_comes_back()
{
    const Surface before{{{0.1, -1e-300, 1e300},
                          {1.0 / 3, 0, -2},
                          {5, 6, 7},
                          {0, 0, std::numeric_limits<double>::denorm_min()}},
                         {{0, 1, 2}, {2, 1, 3}}};
    const QByteArray text = write_obj(before);
    const Surface after = read_obj(text);
    QVERIFY(after.points == before.points);
    QVERIFY(after.triangles == before.triangles);
    QCOMPARE(text.count('\n'), 6);
    QCOMPARE(text.split('\n')[4], QByteArray("f 1 2 3"));
}

void TstObjText::faces_become_triangles_data()
{
    QTest::addColumn<QByteArray>("face");
    QTest::addColumn<QList<int>>("corners");
    const QList<int> one{0, 1, 2};
    QTest::newRow("plain") << QByteArray("f 1 2 3") << one;
    QTest::newRow("with textures") << QByteArray("f 1/1 2/2 3/3") << one;
    QTest::newRow("with normals") << QByteArray("f 1//1 2//2 3/3/3") << one;
    QTest::newRow("from the end") << QByteArray("f -4 -3 -2") << one;
    QTest::newRow("blanks") << QByteArray("  f\t1   2 3  \r") << one;
    QTest::newRow("comment") << QByteArray("f 1 2 3 # 4") << one;
    QTest::newRow("continued") << QByteArray("f 1 2\\\n3") << one;
    QTest::newRow("continued with carriage returns") << QByteArray("f 1 \\\r\n2 3\r") << one;
    QTest::newRow("quadrangle") << QByteArray("f 1 2 3 4") << QList<int>{0, 1, 2, 0, 2, 3};
    QTest::newRow("other lines") << QByteArray("vn 0 0 1\nusemtl a\ns off\no x\nl 1 2\nf 1 2 3\ng") << one;
    QTest::newRow("no line end") << QByteArray("f 1 2 3") << one;
}

void TstObjText::faces_become_triangles()
{
    QFETCH(const QByteArray, face);
    QFETCH(const QList<int>, corners);
    const Surface surface = read_obj("# four corners\nv 0 0 0\nv 1 0 0 1.0\nv 1 +1 0\nv 0 1e0 0\n" + face);
    QCOMPARE(surface.points.size(), 4U);
    QCOMPARE(surface.points[3][1], 1.0);
    QList<int> found;
    for (const auto& triangle : surface.triangles) {
        for (const auto corner : triangle)
            found << int(corner);
    }
    QCOMPARE(found, corners);
}

void TstObjText::errors_tell_the_line_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("message");
    const QByteArray points = "v 0 0 0\nv 1 0 0\nv 0 1 0\n";
    QTest::newRow("empty") << QByteArray() << QByteArray("there are no faces in the file");
    QTest::newRow("no faces") << points << QByteArray("there are no faces in the file");
    QTest::newRow("two numbers") << QByteArray("v 1 2") << QByteArray("line 1: a vertex needs three numbers");
    QTest::newRow("a word") << points + "v 1 b 2" << QByteArray("line 4: a vertex needs three numbers");
    QTest::newRow("comma") << points + "v 1,5 1 2" << QByteArray("line 4: a vertex needs three numbers");
    QTest::newRow("not a number") << points + "v nan 0 0"
                                  << QByteArray("line 4: a vertex needs three numbers");
    QTest::newRow("infinite") << points + "v inf 0 0" << QByteArray("line 4: a vertex needs three numbers");
    QTest::newRow("too large") << points + "v 1e999 0 0"
                               << QByteArray("line 4: a vertex needs three numbers");
    QTest::newRow("two corners") << points + "f 1 2" << QByteArray("line 4: a face needs three corners");
    QTest::newRow("corner 0") << points + "f 0 1 2" << QByteArray("line 4: there is no vertex 0");
    QTest::newRow("corner that comes later")
        << points + "f 1 2 4\nv 0 0 0" << QByteArray("line 4: there is no vertex 4");
    QTest::newRow("before the first") << points + "f -1 -2 -4" << QByteArray("line 4: there is no vertex -4");
    QTest::newRow("huge number") << points + "f 1 2 99999999999999999999"
                                 << QByteArray("line 4: a corner of a face must be the number of a vertex");
    QTest::newRow("no number") << points + "f a b c"
                               << QByteArray("line 4: a corner of a face must be the number of a vertex");
    QTest::newRow("slash alone") << points + "f / 1 2"
                                 << QByteArray("line 4: a corner of a face must be the number of a vertex");
    QTest::newRow("NUL") << points + QByteArray("f 1 2\0 3", 8) << QByteArray("line 4: the file is not text");
    QTest::newRow("first of continued lines")
        << points + "f 1 \\\n2 \\\n9" << QByteArray("line 4: there is no vertex 9");
}

void TstObjText::errors_tell_the_line()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QByteArray, message);
    QByteArray found;
    try {
        read_obj(text);
    } catch (const std::runtime_error& error) {
        found = error.what();
    }
    QCOMPARE(found, message);
}

void TstObjText::long_file_is_quick()
{
    Surface surface;
    for (int i = 0; i < 200'000; ++i) {
        surface.points.push_back({i * 0.1, 1, 2});
        surface.triangles.push_back({0, std::uint32_t(i / 2), std::uint32_t(i)});
    }
    const QByteArray text = write_obj(surface);
    QCOMPARE(read_obj(text).triangles.size(), surface.triangles.size());
}

OSTREL_TEST(TstObjText)

#include "tst_objtext.moc"
