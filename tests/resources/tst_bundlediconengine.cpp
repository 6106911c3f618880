// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "resources/BundledIconEngine.h"
#include "resources/load_icon.h"
#include "support/TestCase.h"

#include <QApplication>
#include <QDataStream>
#include <QFile>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const auto kPath = u":/ostrelgui/images/light/filesave_ot.svg"_s;
const auto kOther = u":/ostrelgui/images/light/cancel.svg"_s;

constexpr QIcon::Mode kModes[] = {QIcon::Normal, QIcon::Disabled, QIcon::Active, QIcon::Selected};
constexpr QIcon::State kStates[] = {QIcon::Off, QIcon::On};
constexpr QSize kSizes[] = {QSize(1, 1), QSize(16, 16), QSize(22, 22), QSize(36, 36), QSize(40, 16)};

QIcon bundled(const QString& path)
{
    return QIcon(new BundledIconEngine(path));
}

/** The first way of asking @p left and @p right for a picture in which they differ, or nothing. */
QByteArray first_difference(const QIcon& left, const QIcon& right)
{
    for (const QSize& size : kSizes) {
        for (const qreal ratio : {1.0, 1.5, 2.0}) {
            for (const auto mode : kModes) {
                for (const auto state : kStates) {
                    const QPixmap a = left.pixmap(size, ratio, mode, state);
                    const QPixmap b = right.pixmap(size, ratio, mode, state);
                    const bool same =
                        !a.isNull() && a.size() == b.size() && a.devicePixelRatio() == b.devicePixelRatio() &&
                        a.toImage() == b.toImage() &&
                        left.actualSize(size, mode, state) == right.actualSize(size, mode, state);
                    if (!same)
                        return QByteArray::number(size.width()) + " x " + QByteArray::number(size.height()) +
                               ", ratio " + QByteArray::number(ratio) + ", mode " + QByteArray::number(mode) +
                               ", state " + QByteArray::number(state);
                }
            }
        }
    }
    return {};
}

QImage painted(const QIcon& icon, const QRect& rect, qreal ratio, Qt::Alignment alignment, QIcon::Mode mode)
{
    QImage image(QSize(80, 60) * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::white);
    QPainter painter(&image);
    icon.paint(&painter, rect, alignment, mode);
    return image;
}

void write_square(const QString& path, const QByteArray& color)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<svg xmlns='http://www.w3.org/2000/svg' width='22' height='22' viewBox='0 0 22 22'>"
               "<path fill='" +
               color + "' d='M0 0h22v22H0z'/></svg>");
}

/** A picture of so many pixels, whatever the screens scale by. */
QPixmap pixels(const QIcon& icon, int size, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap(QSize(size, size), 1.0, mode);
}

QColor middle(const QIcon& icon, int size)
{
    return pixels(icon, size).toImage().pixelColor(size / 2, size / 2);
}

/** What a stream holds after @p icon and the text "behind". */
QByteArray streamed(const QIcon& icon)
{
    QByteArray bytes;
    QDataStream out(&bytes, QDataStream::WriteOnly);
    out << icon << u"behind"_s;
    return bytes;
}

/** The icon at the start of such a stream; null if the text does not follow it. */
QIcon from_stream(const QByteArray& bytes)
{
    QDataStream in(bytes);
    QIcon icon;
    QString behind;
    in >> icon >> behind;
    return behind == u"behind"_s && in.atEnd() ? icon : QIcon();
}

QPixmap square(int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::magenta);
    return pixmap;
}

} // namespace

class TstBundledIconEngine : public TestCase
{
    Q_OBJECT

protected:
    void set_up() override;

private slots:
    void pictures_are_those_of_an_icon_made_by_qt_from_the_file();
    void pictures_for_a_window_have_its_pixel_ratio();
    void painting_is_that_of_an_icon_made_by_qt_data();
    void painting_is_that_of_an_icon_made_by_qt();
    void icon_is_described_as_one_made_by_qt();
    void icon_of_the_bundle_has_this_engine();
    void empty_size_gives_no_picture();
    void file_is_read_when_a_picture_is_first_asked_for();
    void picture_is_drawn_once();
    void icons_of_one_file_share_pictures();
    void other_palette_gives_other_pictures();
    void added_pixmap_is_used_as_by_an_icon_made_by_qt();
    void picture_of_another_icon_is_drawn_when_asked_for_as_if_it_had_been_added();
    void picture_of_a_missing_icon_adds_nothing();
    void added_file_is_used_as_by_an_icon_made_by_qt();
    void addition_to_a_copy_leaves_the_original();
    void copy_of_a_composed_icon_is_composed();
    void icon_is_written_and_read_as_one_made_by_qt();
    void composed_icon_is_written_with_its_addition();
};

void TstBundledIconEngine::set_up()
{
    QPixmapCache::clear();
}

void TstBundledIconEngine::pictures_are_those_of_an_icon_made_by_qt_from_the_file()
{
    QCOMPARE(first_difference(bundled(kPath), QIcon(kPath)), QByteArray());
    // The comparison notices another picture.
    QVERIFY(!first_difference(bundled(kPath), QIcon(kOther)).isEmpty());
}

void TstBundledIconEngine::pictures_for_a_window_have_its_pixel_ratio()
{
    const QSize size(22, 22);
    for (const qreal ratio : {1.0, 2.0}) {
        const QPixmap picture = bundled(kPath).pixmap(size, ratio);
        QCOMPARE(picture.size(), size * ratio);
        QCOMPARE(picture.devicePixelRatio(), ratio);
    }
    QCOMPARE(bundled(kPath).pixmap(size).deviceIndependentSize(), QSizeF(size));
}

void TstBundledIconEngine::painting_is_that_of_an_icon_made_by_qt_data()
{
    QTest::addColumn<QRect>("rect");
    QTest::addColumn<qreal>("ratio");
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::addColumn<QIcon::Mode>("mode");
    const Qt::Alignment center = Qt::AlignCenter;
    QTest::newRow("square") << QRect(3, 4, 22, 22) << 1.0 << center << QIcon::Normal;
    QTest::newRow("square, two pixels a point") << QRect(3, 4, 22, 22) << 2.0 << center << QIcon::Normal;
    QTest::newRow("wide, in the middle") << QRect(0, 0, 70, 30) << 1.0 << center << QIcon::Normal;
    QTest::newRow("wide, at the right")
        << QRect(0, 0, 70, 30) << 1.0 << Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter) << QIcon::Normal;
    QTest::newRow("high, two pixels a point") << QRect(0, 0, 20, 50) << 2.0 << center << QIcon::Normal;
    QTest::newRow("disabled") << QRect(3, 4, 22, 22) << 1.0 << center << QIcon::Disabled;
    QTest::newRow("selected") << QRect(3, 4, 22, 22) << 1.0 << center << QIcon::Selected;
}

void TstBundledIconEngine::painting_is_that_of_an_icon_made_by_qt()
{
    QFETCH(QRect, rect);
    QFETCH(qreal, ratio);
    QFETCH(Qt::Alignment, alignment);
    QFETCH(QIcon::Mode, mode);
    const QImage expected = painted(QIcon(kPath), rect, ratio, alignment, mode);
    QVERIFY(expected != painted(QIcon(), rect, ratio, alignment, mode));
    QCOMPARE(painted(bundled(kPath), rect, ratio, alignment, mode), expected);
}

void TstBundledIconEngine::icon_is_described_as_one_made_by_qt()
{
    const QIcon icon = bundled(kPath);
    const QIcon expected(kPath);
    QVERIFY(!icon.isNull());
    QVERIFY(!expected.isNull());
    QCOMPARE(icon.name(), expected.name());
    QCOMPARE(icon.isMask(), expected.isMask());
    for (const auto mode : kModes)
        QCOMPARE(icon.availableSizes(mode), expected.availableSizes(mode));
}

void TstBundledIconEngine::icon_of_the_bundle_has_this_engine()
{
    // Pictures made by this engine are shared; Qt's own icons of a file have pictures of their own.
    QCOMPARE(pixels(load_icon("filesave_ot.svg"), 22).cacheKey(), pixels(bundled(kPath), 22).cacheKey());
}

void TstBundledIconEngine::empty_size_gives_no_picture()
{
    for (const QSize& size : {QSize(), QSize(0, 0), QSize(16, 0), QSize(0, 16)}) {
        QVERIFY(bundled(kPath).pixmap(size).isNull());
        QCOMPARE(bundled(kPath).actualSize(size), QIcon(kPath).actualSize(size));
    }
}

void TstBundledIconEngine::file_is_read_when_a_picture_is_first_asked_for()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"square.svg"_s);
    const QIcon icon = bundled(path);
    write_square(path, "#0000ff");
    QCOMPARE(middle(icon, 22), QColor(Qt::blue));
}

void TstBundledIconEngine::picture_is_drawn_once()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"square.svg"_s);
    write_square(path, "#ff0000");
    const QIcon icon = bundled(path);
    QCOMPARE(middle(icon, 22), QColor(Qt::red));
    write_square(path, "#0000ff");
    QCOMPARE(middle(icon, 22), QColor(Qt::red));
    // Neither another size nor an emptied cache is served with an old picture.
    QCOMPARE(middle(icon, 36), QColor(Qt::blue));
    QPixmapCache::clear();
    QCOMPARE(middle(icon, 22), QColor(Qt::blue));
}

void TstBundledIconEngine::icons_of_one_file_share_pictures()
{
    const QPixmap picture = pixels(bundled(kPath), 22);
    QCOMPARE(pixels(bundled(kPath), 22).cacheKey(), picture.cacheKey());
    QVERIFY(pixels(bundled(kOther), 22).cacheKey() != picture.cacheKey());
}

void TstBundledIconEngine::other_palette_gives_other_pictures()
{
    const auto restore =
        qScopeGuard([palette = QApplication::palette()] { QApplication::setPalette(palette); });
    const QIcon icon = bundled(kPath);
    QApplication::setPalette(QPalette(QColor(0xd0, 0xd0, 0xd0), QColor(0xf5, 0xf5, 0xf5)));
    const QImage light = pixels(icon, 22, QIcon::Disabled).toImage();
    QApplication::setPalette(QPalette(QColor(0x30, 0x30, 0x30), QColor(0x2b, 0x2b, 0x2b)));
    const QImage dark = pixels(icon, 22, QIcon::Disabled).toImage();
    QVERIFY(light != dark);
    QCOMPARE(dark, pixels(QIcon(kPath), 22, QIcon::Disabled).toImage());
}

void TstBundledIconEngine::added_pixmap_is_used_as_by_an_icon_made_by_qt()
{
    QIcon icon = bundled(kPath);
    QIcon expected(kPath);
    for (QIcon* each : {&icon, &expected})
        each->addPixmap(square(36), QIcon::Disabled);
    QCOMPARE(first_difference(icon, expected), QByteArray());
    QCOMPARE(pixels(icon, 36, QIcon::Disabled).toImage(), square(36).toImage());
    QCOMPARE(icon.availableSizes(QIcon::Disabled), expected.availableSizes(QIcon::Disabled));
    const QRect rect(2, 2, 36, 36);
    QCOMPARE(painted(icon, rect, 1.0, Qt::AlignCenter, QIcon::Disabled),
             painted(expected, rect, 1.0, Qt::AlignCenter, QIcon::Disabled));
}

void TstBundledIconEngine::picture_of_another_icon_is_drawn_when_asked_for_as_if_it_had_been_added()
{
    const QSize size(36, 36);
    QIcon expected(kPath);
    expected.addPixmap(QIcon(kOther).pixmap(size), QIcon::Disabled);
    const QIcon icon = load_icon("filesave_ot.svg", "cancel.svg", size);
    QCOMPARE(first_difference(icon, expected), QByteArray());
    QCOMPARE(icon.pixmap(size, QIcon::Disabled).toImage(), QIcon(kOther).pixmap(size).toImage());
    QVERIFY(icon.pixmap(size, QIcon::Normal).toImage() != icon.pixmap(size, QIcon::Disabled).toImage());
    // A later addition takes its place, a file leaves it there, and it is written with the rest.
    QIcon later = icon;
    later.addPixmap(square(36), QIcon::Disabled);
    QCOMPARE(pixels(later, 36, QIcon::Disabled).toImage(), square(36).toImage());
    QIcon more = icon;
    QIcon more_expected = expected;
    for (QIcon* each : {&more, &more_expected})
        each->addFile(kOther, QSize(), QIcon::Normal, QIcon::On);
    QCOMPARE(first_difference(more, more_expected), QByteArray());
    QCOMPARE(first_difference(from_stream(streamed(icon)), from_stream(streamed(expected))), QByteArray());
}

void TstBundledIconEngine::picture_of_a_missing_icon_adds_nothing()
{
    const QSize size(36, 36);
    QCOMPARE(first_difference(load_icon("filesave_ot.svg", "none.svg", size), QIcon(kPath)), QByteArray());
    QVERIFY(load_icon("none.svg", "also_none.svg", size).isNull());
    QCOMPARE(load_icon("none.svg", "filesave_ot.svg", size).pixmap(size, QIcon::Disabled).toImage(),
             QIcon(kPath).pixmap(size).toImage());
}

void TstBundledIconEngine::added_file_is_used_as_by_an_icon_made_by_qt()
{
    QIcon icon = bundled(kPath);
    QIcon expected(kPath);
    for (QIcon* each : {&icon, &expected})
        each->addFile(kOther, QSize(), QIcon::Normal, QIcon::On);
    QCOMPARE(first_difference(icon, expected), QByteArray());
    QCOMPARE(icon.pixmap(QSize(22, 22), 1.0, QIcon::Normal, QIcon::On).toImage(),
             QIcon(kOther).pixmap(QSize(22, 22), 1.0).toImage());
}

void TstBundledIconEngine::addition_to_a_copy_leaves_the_original()
{
    const QIcon icon = bundled(kPath);
    QIcon copy = icon;
    QCOMPARE(copy.cacheKey(), icon.cacheKey());
    copy.addPixmap(square(36), QIcon::Disabled);
    QCOMPARE(first_difference(icon, QIcon(kPath)), QByteArray());
    QCOMPARE(pixels(copy, 36, QIcon::Disabled).toImage(), square(36).toImage());
}

void TstBundledIconEngine::copy_of_a_composed_icon_is_composed()
{
    QIcon icon = bundled(kPath);
    icon.addPixmap(square(36), QIcon::Disabled);
    QIcon copy = icon;
    copy.addPixmap(square(22), QIcon::Selected);
    QCOMPARE(pixels(copy, 36, QIcon::Disabled).toImage(), square(36).toImage());
    QCOMPARE(pixels(copy, 22, QIcon::Selected).toImage(), square(22).toImage());
    QVERIFY(pixels(icon, 22, QIcon::Selected).toImage() != square(22).toImage());
}

void TstBundledIconEngine::icon_is_written_and_read_as_one_made_by_qt()
{
    QCOMPARE(streamed(bundled(kPath)), streamed(QIcon(kPath)));
    QCOMPARE(first_difference(from_stream(streamed(bundled(kPath))), QIcon(kPath)), QByteArray());
}

void TstBundledIconEngine::composed_icon_is_written_with_its_addition()
{
    QIcon icon = bundled(kPath);
    icon.addPixmap(square(36), QIcon::Disabled);
    const QIcon read = from_stream(streamed(icon));
    QCOMPARE(pixels(read, 36, QIcon::Disabled).toImage(), square(36).toImage());
    QCOMPARE(pixels(read, 22).toImage(), pixels(QIcon(kPath), 22).toImage());
}

OSTREL_TEST(TstBundledIconEngine)
#include "tst_bundlediconengine.moc"
