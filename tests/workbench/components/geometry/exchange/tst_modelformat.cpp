// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "support/TestCase.h"
#include "workbench/components/geometry/exchange/model_format.h"
#include "workbench/components/geometry/model/GeometryError.h"

#include <QBuffer>
#include <QCryptographicHash>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

using namespace fennar::geometry;
using namespace Qt::StringLiterals;

namespace {

/** A model with all that the format knows. */
GeometryContents sample()
{
    GeometryContents contents;
    contents.last_id = 9;
    contents.solids << GeometryContents::Solid{2, u"plate"_s, "DBRep\nshape\n"}
                    << GeometryContents::Solid{7, u"_a.b-2"_s, QByteArray("end\n\0\xff solid 1 x 5\n", 19)};
    auto mesh = std::make_shared<Mesh>();
    mesh->msh = QByteArray("$MeshFormat\n\0\x01\r\n\x1a", 17);
    mesh->size = 1.0 / 3;
    mesh->solids = {u"plate"_s, u"gone"_s};
    mesh->surfaces = {QByteArray("\0\n\xff", 3), QByteArray()};
    mesh->nodes = 12345678901;
    mesh->elements = {{0, u"Point"_s, 8}, {3, u"Tetrahedron 4"_s, 24}};
    contents.mesh = mesh;
    contents.mesh_age = 3;
    return contents;
}

QByteArray bytes(const GeometryContents& contents)
{
    return write_model(contents).join();
}

GeometryContents read(QByteArray file)
{
    QBuffer buffer(&file);
    buffer.open(QIODevice::ReadOnly);
    return read_model(buffer);
}

/** What is wrong with the file; empty if nothing is. */
QString error(const QByteArray& file)
{
    try {
        read(file);
        return {};
    } catch (const GeometryError& found) {
        return found.message();
    }
}

/** The text of a file with the checksum that belongs to it. */
QByteArray with_checksum(const QByteArray& text)
{
    return text + "end " + QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex() + '\n';
}

} // namespace

/** The file format of models, without the engine. */
class TstModelFormat : public TestCase
{
    Q_OBJECT

private slots:
    void format_is_as_documented();
    void all_comes_back();
    void empty_model_comes_back();
    void long_name_comes_back();
    void byte_order_marks_in_texts_come_back();
    void half_a_letter_at_the_end_of_a_text_can_be_saved_again();
    void wrong_files_are_refused_with_reason_and_place_data();
    void wrong_files_are_refused_with_reason_and_place();
    void each_truncated_file_is_told_to_be_cut_off();
    void no_changed_file_is_taken_for_a_whole_one();
    void huge_files_are_refused_at_once_data();
    void huge_files_are_refused_at_once();
};

void TstModelFormat::format_is_as_documented()
{
    GeometryContents contents;
    contents.last_id = 3;
    contents.solids << GeometryContents::Solid{1, u"brick1"_s, "SHAPE"};
    auto mesh = std::make_shared<Mesh>();
    mesh->msh = "MESH";
    mesh->size = 0.5;
    mesh->solids = {u"brick1"_s, u"b"_s};
    mesh->surfaces = {"SURFACE", ""};
    mesh->nodes = 14;
    mesh->elements = {{3, u"Tetrahedron 4"_s, 24}};
    contents.mesh = mesh;
    contents.mesh_age = 2;
    QCOMPARE(bytes(contents), with_checksum("fennar model 1\n"
                                            "last-id 3\n"
                                            "solid 1 brick1 5\n"
                                            "SHAPE\n"
                                            "mesh-size 0.5\n"
                                            "mesh-age 2\n"
                                            "mesh-nodes 14\n"
                                            "mesh-solid brick1\n"
                                            "mesh-surface 7\n"
                                            "SURFACE\n"
                                            "mesh-solid b\n"
                                            "mesh-surface 0\n"
                                            "\n"
                                            "mesh-elements 3 24 Tetrahedron 4\n"
                                            "mesh 4\n"
                                            "MESH\n"));
}

void TstModelFormat::all_comes_back()
{
    const GeometryContents before = sample();
    const GeometryContents after = read(bytes(before));
    QCOMPARE(after.last_id, 9);
    QCOMPARE(after.solids.size(), 2);
    for (qsizetype i = 0; i < 2; ++i) {
        QCOMPARE(after.solids[i].id, before.solids[i].id);
        QCOMPARE(after.solids[i].name, before.solids[i].name);
        QCOMPARE(after.solids[i].brep, before.solids[i].brep);
    }
    QVERIFY(after.mesh);
    QCOMPARE(after.mesh_age, 3);
    QCOMPARE(after.mesh->msh, before.mesh->msh);
    QVERIFY(after.mesh->size == 1.0 / 3); // to the last bit
    QCOMPARE(after.mesh->solids, before.mesh->solids);
    QCOMPARE(after.mesh->surfaces, before.mesh->surfaces);
    QCOMPARE(after.mesh->nodes, before.mesh->nodes);
    QCOMPARE(after.mesh->elements.size(), 2);
    QCOMPARE(after.mesh->elements[1].dimension, 3);
    QCOMPARE(after.mesh->elements[1].kind, u"Tetrahedron 4"_s);
    QCOMPARE(after.mesh->elements[1].count, 24);
    QCOMPARE(bytes(after), bytes(before));
}

void TstModelFormat::empty_model_comes_back()
{
    GeometryContents contents;
    contents.last_id = 4;
    const GeometryContents after = read(bytes(contents));
    QCOMPARE(after.last_id, 4);
    QVERIFY(after.solids.isEmpty());
    QVERIFY(!after.mesh);
}

void TstModelFormat::long_name_comes_back()
{
    GeometryContents contents;
    contents.last_id = 1;
    contents.solids << GeometryContents::Solid{1, QString(1'000'000, u'x'), "s"};
    QCOMPARE(read(bytes(contents)).solids[0].name, contents.solids[0].name);
}

void TstModelFormat::byte_order_marks_in_texts_come_back()
{
    const QByteArray file = with_checksum("fennar model 1\n"
                                          "last-id 0\n"
                                          "mesh-size 1\n"
                                          "mesh-age 0\n"
                                          "mesh-nodes 1\n"
                                          "mesh-elements 3 1 \xef\xbb\xbf\n"
                                          "mesh 0\n\n");
    QCOMPARE(bytes(read(file)), file);
}

void TstModelFormat::half_a_letter_at_the_end_of_a_text_can_be_saved_again()
{
    const QByteArray file = with_checksum("fennar model 1\n"
                                          "last-id 0\n"
                                          "mesh-size 1\n"
                                          "mesh-age 0\n"
                                          "mesh-nodes 1\n"
                                          "mesh-elements 3 1 Tetrahedron \xe0\n"
                                          "mesh 0\n\n");
    const GeometryContents contents = read(file);
    QCOMPARE(contents.mesh->elements.constFirst().kind, u"Tetrahedron \uFFFD"_s);
    QCOMPARE(bytes(read(bytes(contents))), bytes(contents));
}

void TstModelFormat::wrong_files_are_refused_with_reason_and_place_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("message");
    const QByteArray good = bytes(sample());
    const QByteArray head = "fennar model 1\nlast-id 9\n";
    QTest::newRow("empty") << QByteArray() << u"it is empty"_s;
    QTest::newRow("something else") << QByteArray("\x7f"
                                                  "ELF\0\0",
                                                  6)
                                    << u"it does not begin as a model file does, with \"fennar model\""_s;
    QTest::newRow("newer version")
        << "fennar model 2\nanything" + good
        << u"it has version 2 of the format, and this program knows no later one than 1"_s;
    QTest::newRow("version that is not a number")
        << QByteArray("fennar model 1.5\n") << u"the version of its format, \"1.5\", is not a number"_s;
    QTest::newRow("line ends of another system") << QByteArray(good).replace("model 1\n", "model 1\r\n")
                                                 << u"the version of its format, \"1\\r\", is not a number"_s;
    QTest::newRow("other line") << with_checksum("fennar model 1\nids 4\n")
                                << u"expected \"last-id\", found \"ids\" at byte 15"_s;
    QTest::newRow("other section") << with_checksum(head + "curve 1\n")
                                   << u"expected \"end\", found \"curve\" at byte 25"_s;
    QTest::newRow("id twice") << with_checksum(head + "solid 2 a 1\nx\nsolid 2 b 1\nx\n")
                              << u"the id 2 is not from 3 to 9 at byte 39"_s;
    QTest::newRow("id that is still to come")
        << with_checksum(head + "solid 10 a 1\nx\n") << u"the id 10 is not from 1 to 9 at byte 25"_s;
    QTest::newRow("id 0") << with_checksum(head + "solid 0 a 1\nx\n")
                          << u"expected a whole number from 1 to 2147483647, found \"0\" at byte 25"_s;
    QTest::newRow("greatest id too great")
        << with_checksum("fennar model 1\nlast-id 2147483647\n")
        << u"expected a whole number from 0 to 1000000000, found \"2147483647\" at byte 15"_s;
    QTest::newRow("wrong name") << with_checksum(head + "solid 1 a;b 1\nx\n")
                                << u"expected the name of a solid, found \"a;b\" at byte 25"_s;
    QTest::newRow("byte order mark ahead of a name")
        << with_checksum(head + "solid 1 \xef\xbb\xbf"
                                "a 1\nx\n")
        << u"expected the name of a solid, found \"\ufeffa\" at byte 25"_s;
    QTest::newRow("solid without a size")
        << with_checksum(head + "solid 1 a\nx\n") << u"the line \"solid\" is not whole at byte 25"_s;
    QTest::newRow("size too small") << with_checksum(head + "solid 1 a 1\nxy\n")
                                    << u"the size is wrong at byte 25"_s;
    QTest::newRow("size of more than there is")
        << with_checksum(head + "solid 1 a 9223372036854775807\nx\n") << u"it is cut off at byte 126"_s;
    QTest::newRow("negative size")
        << with_checksum(head + "solid 1 a -1\nx\n")
        << u"expected a whole number from 0 to 9223372036854775807, found \"-1\" at byte 25"_s;
    QTest::newRow("mesh of no size") << with_checksum(head + "mesh-size inf\n")
                                     << u"expected a number, found \"inf\" at byte 25"_s;
    QTest::newRow("other checksum")
        << head + "end 00\n"
        << u"it is damaged: its content does not agree with the checksum at byte 25"_s;
    QTest::newRow("more behind the end")
        << with_checksum(head) + "x" << u"there is more behind its end, at byte 94"_s;
}

void TstModelFormat::wrong_files_are_refused_with_reason_and_place()
{
    QFETCH(const QByteArray, file);
    QTEST(error(file), "message");
}

void TstModelFormat::each_truncated_file_is_told_to_be_cut_off()
{
    const QByteArray good = bytes(sample());
    for (qsizetype size = 1; size < good.size(); ++size)
        QCOMPARE(error(good.first(size)), u"it is cut off at byte %1"_s.arg(size));
    QCOMPARE(error(good), QString());
}

void TstModelFormat::no_changed_file_is_taken_for_a_whole_one()
{
    const quint32 seed = QRandomGenerator::system()->generate();
    qInfo("seed %u", seed);
    QRandomGenerator random(seed);
    const QByteArray good = bytes(sample());
    for (int i = 0; i < 5000; ++i) {
        QByteArray file = good;
        const int changes = random.bounded(1, 4);
        for (int change = 0; change < changes; ++change) {
            const qsizetype at = random.bounded(int(file.size()));
            switch (random.bounded(4)) {
            case 0:
                file[at] = char(file[at] ^ (1 << random.bounded(8)));
                break;
            case 1:
                file.remove(at, random.bounded(1, 20));
                break;
            case 2:
                file.insert(at, file.mid(random.bounded(int(file.size())), random.bounded(1, 20)));
                break;
            default:
                file[at] = char(random.bounded(256));
            }
            if (file.isEmpty())
                file = "x";
        }
        if (file != good)
            QVERIFY2(!error(file).isEmpty(), file.toPercentEncoding().constData());
    }
}

void TstModelFormat::huge_files_are_refused_at_once_data()
{
    QTest::addColumn<QByteArray>("begin");
    QTest::addColumn<QString>("message");
    QTest::newRow("nothing but zeros") << QByteArray() << u"it does not begin as a model file does"_s;
    QTest::newRow("zeros behind the first line")
        << QByteArray("fennar model 1\n") << u"a line is too long at byte 15"_s;
    QTest::newRow("solid of more bytes than there are")
        << QByteArray("fennar model 1\nlast-id 1\nsolid 1 a 999999999999999\n")
        << u"it is cut off at byte "_s;
}

void TstModelFormat::huge_files_are_refused_at_once()
{
    QFETCH(const QByteArray, begin);
    QFETCH(const QString, message);
    const QTemporaryDir directory;
    QFile file(directory.filePath(u"huge"_s));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QCOMPARE(file.write(begin), begin.size());
    // It takes no room on the disk.
    QVERIFY(file.resize(qint64(200) << 30));
    file.close();
    QVERIFY(file.open(QIODevice::ReadOnly));
    try {
        read_model(file);
        QFAIL("it was read");
    } catch (const GeometryError& found) {
        QVERIFY2(found.message().startsWith(message), qPrintable(found.message()));
    }
}

OSTREL_TEST(TstModelFormat)
#include "tst_modelformat.moc"
