// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

#include "resources/load_icon.h"
#include "support/TestCase.h"

#include <QApplication>
#include <QBuffer>
#include <QDirIterator>
#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetrics>
#include <QImage>
#include <QImageReader>
#include <QPainter>
#include <QPalette>
#include <QResource>
#include <QScopeGuard>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

const char* const kIcons[] = {
    // files and edit
    "filenew_ot.svg", "fileopen_ot.svg", "filesave_ot.svg", "print_ot.svg", "undo.svg", "undo_ot.svg",
    "redo_ot.svg", "cut_ot.svg", "copy_ot.svg", "paste_ot.svg", "find_ot.svg",
    // import and export
    "Import22.svg", "Export22.svg", "export_ot.svg",
    // scripts
    "script.svg", "play.svg", "pause_ot.svg", "scriptplay_ot.svg", "scriptplayfennar_ot.svg", "python.svg",
    "trpython.svg",
    // windows
    "cmdwindow_ot.svg", "ctrlpanel_ot.svg", "autotools_ot.svg",
    // status
    "cancel.svg", "dcancel.svg", "warning.svg", "arrowup_ot.svg", "arrowdown_ot.svg",
    // components
    "loaded_ot.svg", "loading_ot.svg", "unloading_ot.svg", "geometry_ot.svg", "boundary_ot.svg",
    "meshing.svg", "meshing_ot.svg", "post_ot.svg",
    // logos
    "ostrel.svg", "fennar.svg", "halvane_fennar.svg"};

constexpr int kSizes[] = {16, 22, 36, 64};
constexpr int kGrid = 22;

QString icon_path(const char* name)
{
    return u":/ostrelgui/images/light/"_s + QString::fromUtf8(name);
}

/** All files of the bundle, as paths below ":/ostrelgui". */
QStringList files_of_bundle()
{
    const QString root = u":/ostrelgui/"_s;
    QStringList files;
    QDirIterator it(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(it.next().mid(root.size()));
    files.sort();
    return files;
}

void add_icon_rows()
{
    QTest::addColumn<QByteArray>("name");
    for (const char* name : kIcons)
        QTest::newRow(name) << QByteArray(name);
}

QImage render(const QIcon& icon, int size, QIcon::Mode mode = QIcon::Normal)
{
    return icon.pixmap(QSize(size, size), mode).toImage().convertToFormat(QImage::Format_ARGB32);
}

QImage on_window(const QImage& picture, QRgb window)
{
    QImage result(picture.size(), QImage::Format_RGB32);
    result.fill(window);
    QPainter(&result).drawImage(0, 0, picture);
    return result;
}

/** The smallest rectangle around all pixels for which @p holds is true. */
template <typename Predicate>
QRect bounds(const QImage& picture, Predicate holds)
{
    QRect box;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (holds(picture.pixel(x, y)))
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

bool is_visible(QRgb pixel)
{
    return qAlpha(pixel) >= 64;
}

/** The relative luminance of a color, 0 to 1, as contrast ratios are defined on it. */
double luminance(QRgb color)
{
    const auto linear = [](int channel) {
        const double value = channel / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

/** 1 for two colors equally bright, 21 for black and white. */
double contrast_ratio(QRgb a, QRgb b)
{
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

/** What is left of an icon on a window when everything of less contrast than a given ratio is taken away. */
struct Remainder
{
    double area = 0;   ///< of the whole square
    double extent = 0; ///< of the longer side of its bounding box, in sides of the square
};

Remainder remainder(const QImage& picture, QRgb window, double ratio)
{
    const QImage shown = on_window(picture, window);
    const auto stands_out = [=](QRgb pixel) { return contrast_ratio(pixel, window) >= ratio; };
    int count = 0;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x)
            count += stands_out(shown.pixel(x, y)) ? 1 : 0;
    }
    const QRect box = bounds(shown, stands_out);
    const double side = picture.width();
    return {count / (side * side), std::max(box.width(), box.height()) / side};
}

/** Mean difference of two pictures on a mid-gray window over all pixels and channels, 0 to 255. */
double difference(const QImage& a, const QImage& b)
{
    const QImage left = on_window(a, qRgb(128, 128, 128));
    const QImage right = on_window(b, qRgb(128, 128, 128));
    qint64 sum = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) {
            const QRgb p = left.pixel(x, y);
            const QRgb q = right.pixel(x, y);
            sum +=
                std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q));
        }
    }
    return double(sum) / (3.0 * left.width() * left.height());
}

/** The palettes of a light and of a dark desktop, as far as icons depend on them. */
QPalette window_palette(QRgb window)
{
    return QPalette(QColor(window).darker(110), QColor(window));
}

} // namespace

class TstResources : public TestCase
{
    Q_OBJECT

private slots:
    void bundle_holds_exactly_the_known_files();
    void every_file_is_stored_uncompressed_and_unchanged();
    void icon_is_found_by_its_short_name_data() { add_icon_rows(); }
    void icon_is_found_by_its_short_name();
    void icon_is_a_scalable_file_on_the_common_grid_data() { add_icon_rows(); }
    void icon_is_a_scalable_file_on_the_common_grid();
    void icon_fills_its_square_at_every_size_data() { add_icon_rows(); }
    void icon_fills_its_square_at_every_size();
    void icon_draws_nothing_outside_the_grid_data() { add_icon_rows(); }
    void icon_draws_nothing_outside_the_grid();
    void icon_stands_out_from_the_window_data();
    void icon_stands_out_from_the_window();
    void no_two_icons_look_alike_data();
    void no_two_icons_look_alike();
    void name_without_picture_gives_an_icon_without_picture_data();
    void name_without_picture_gives_an_icon_without_picture();
    void logo_lies_outside_the_path_of_the_application();
    void logo_raster_shows_the_logo_of_maker_and_application();
    void font_is_the_monospaced_family_of_its_name();
};

void TstResources::bundle_holds_exactly_the_known_files()
{
    QStringList expected{u"fonts/Inconsolata-Regular.ttf"_s, u"images/halvane_fennar.png"_s};
    for (const char* name : kIcons)
        expected.append(u"images/light/"_s + QString::fromUtf8(name));
    expected.sort();
    QCOMPARE(files_of_bundle(), expected);
}

void TstResources::every_file_is_stored_uncompressed_and_unchanged()
{
    const QStringList files = files_of_bundle();
    QVERIFY(!files.isEmpty());
    for (const QString& name : files) {
        const QResource resource(u":/ostrelgui/"_s + name);
        QVERIFY2(resource.isValid(), qPrintable(name));
        QCOMPARE(resource.compressionAlgorithm(), QResource::NoCompression);
        QFile source(QString::fromUtf8(RESOURCES_DIRECTORY) + u'/' + name);
        QVERIFY2(source.open(QIODevice::ReadOnly), qPrintable(source.fileName()));
        QVERIFY2(QByteArrayView(resource.data(), resource.size()) == source.readAll(), qPrintable(name));
    }
}

void TstResources::icon_is_found_by_its_short_name()
{
    QFETCH(QByteArray, name);
    const QIcon icon = load_icon(name.constData());
    QVERIFY(!icon.isNull());
    for (const int size : kSizes)
        QCOMPARE(render(icon, size), render(QIcon(icon_path(name.constData())), size));
}

void TstResources::icon_is_a_scalable_file_on_the_common_grid()
{
    QFETCH(QByteArray, name);
    QImageReader reader(icon_path(name.constData()));
    QCOMPARE(reader.format(), QByteArray("svg"));
    QCOMPARE(reader.size(), QSize(kGrid, kGrid));
    for (const int size : kSizes) {
        QImageReader sized(icon_path(name.constData()));
        sized.setScaledSize(QSize(size, size));
        const QImage picture = sized.read();
        QVERIFY2(!picture.isNull(), qPrintable(sized.errorString()));
        QCOMPARE(picture.size(), QSize(size, size));
        QVERIFY(!bounds(picture, is_visible).isEmpty());
    }
}

void TstResources::icon_fills_its_square_at_every_size()
{
    QFETCH(QByteArray, name);
    const QIcon icon = load_icon(name.constData());
    for (const int size : kSizes) {
        const QImage picture = render(icon, size);
        QCOMPARE(picture.size(), QSize(size, size));
        const QRect box = bounds(picture, is_visible);
        QVERIFY2(std::max(box.width(), box.height()) >= 0.75 * size, qPrintable(QString::number(size)));
        QVERIFY2(std::min(box.width(), box.height()) >= 0.5 * size, qPrintable(QString::number(size)));
        // Centered, so that icons in a row or a column line up.
        QVERIFY(std::abs(box.left() - (size - 1 - box.right())) <= 0.15 * size);
        QVERIFY(std::abs(box.top() - (size - 1 - box.bottom())) <= 0.15 * size);
    }
}

void TstResources::icon_draws_nothing_outside_the_grid()
{
    QFETCH(QByteArray, name);
    QFile file(icon_path(name.constData()));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QByteArray svg = file.readAll();
    // The same drawing, seen through a window that is wider by one grid unit on each side.
    const QByteArray frame = R"(width="22" height="22" viewBox="0 0 22 22")";
    QVERIFY(svg.contains(frame));
    svg.replace(frame, R"(width="24" height="24" viewBox="-1 -1 24 24")");
    QBuffer buffer(&svg);
    QImageReader reader(&buffer, "svg");
    constexpr int kScale = 4;
    reader.setScaledSize(QSize(24, 24) * kScale);
    const QImage picture = reader.read();
    QVERIFY(!picture.isNull());
    const QRect grid(kScale, kScale, kGrid * kScale, kGrid * kScale);
    const QRect drawn = bounds(picture, [](QRgb pixel) { return qAlpha(pixel) > 0; });
    QVERIFY2(grid.contains(drawn), qPrintable(QDebug::toString(drawn)));
}

void TstResources::icon_stands_out_from_the_window_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QRgb>("window");
    QTest::addColumn<QIcon::Mode>("mode");
    QTest::addColumn<double>("ratio");
    const struct
    {
        const char* label;
        QRgb color;
    } windows[] = {{"white", qRgb(0xff, 0xff, 0xff)},
                   {"light", qRgb(0xf5, 0xf5, 0xf5)},
                   {"dark", qRgb(0x2b, 0x2b, 0x2b)}};
    for (const char* name : kIcons) {
        for (const auto& window : windows) {
            QTest::addRow("%s, normal, %s", name, window.label)
                << QByteArray(name) << window.color << QIcon::Normal << 2.0;
            // A disabled icon is meant to recede, but not to vanish.
            QTest::addRow("%s, disabled, %s", name, window.label)
                << QByteArray(name) << window.color << QIcon::Disabled << 1.5;
        }
    }
}

void TstResources::icon_stands_out_from_the_window()
{
    QFETCH(QByteArray, name);
    QFETCH(QRgb, window);
    QFETCH(QIcon::Mode, mode);
    QFETCH(double, ratio);
    const auto restore =
        qScopeGuard([palette = QApplication::palette()] { QApplication::setPalette(palette); });
    QApplication::setPalette(window_palette(window));
    const QIcon icon = load_icon(name.constData());
    for (const int size : kSizes) {
        const Remainder left = remainder(render(icon, size, mode), window, ratio);
        const QByteArray seen = QByteArray::number(size) + " px: area " + QByteArray::number(left.area) +
                                ", extent " + QByteArray::number(left.extent);
        QVERIFY2(left.area >= 0.15, seen.constData());
        QVERIFY2(left.extent >= 0.75, seen.constData());
    }
}

void TstResources::no_two_icons_look_alike_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<QIcon::Mode>("mode");
    QTest::addColumn<double>("least");
    for (const int size : kSizes) {
        QTest::addRow("normal, %d pixels", size) << size << QIcon::Normal << 8.0;
        QTest::addRow("disabled, %d pixels", size) << size << QIcon::Disabled << 4.0;
    }
}

void TstResources::no_two_icons_look_alike()
{
    QFETCH(int, size);
    QFETCH(QIcon::Mode, mode);
    QFETCH(double, least);
    std::vector<QImage> pictures;
    for (const char* name : kIcons)
        pictures.push_back(render(load_icon(name), size, mode));
    for (std::size_t i = 0; i < pictures.size(); ++i) {
        for (std::size_t k = 0; k < i; ++k) {
            const double found = difference(pictures[i], pictures[k]);
            const QByteArray seen =
                QByteArray(kIcons[i]) + " and " + kIcons[k] + ": " + QByteArray::number(found);
            QVERIFY2(found >= least, seen.constData());
        }
    }
}

void TstResources::name_without_picture_gives_an_icon_without_picture_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("state that has no icon") << QByteArray("unloaded_ot.svg");
    QTest::newRow("name that is not in the bundle") << QByteArray("nothing.svg");
    QTest::newRow("name without its ending") << QByteArray("undo");
    QTest::newRow("name in other case") << QByteArray("import22.svg");
    QTest::newRow("empty name") << QByteArray("");
    QTest::newRow("null") << QByteArray();
}

void TstResources::name_without_picture_gives_an_icon_without_picture()
{
    QFETCH(QByteArray, name);
    const QIcon icon = load_icon(name.isNull() ? nullptr : name.constData());
    QVERIFY(icon.availableSizes().isEmpty());
    for (const int size : kSizes)
        QVERIFY(icon.pixmap(size).isNull());
}

void TstResources::logo_lies_outside_the_path_of_the_application()
{
    QVERIFY(!QFile::exists(u":/fennargui"_s));
    QVERIFY(QIcon(u":/fennargui/halvane_fennar.png"_s).pixmap(kGrid).isNull());
    QVERIFY(!QIcon(u":/ostrelgui/images/halvane_fennar.png"_s).pixmap(kGrid).isNull());
}

void TstResources::logo_raster_shows_the_logo_of_maker_and_application()
{
    QImageReader reader(u":/ostrelgui/images/halvane_fennar.png"_s);
    QCOMPARE(reader.format(), QByteArray("png"));
    const QImage raster = reader.read();
    QCOMPARE(raster.size(), QSize(128, 128));
    // Two renderers smooth edges differently; a changed drawing differs far more.
    QVERIFY(difference(raster, render(load_icon("halvane_fennar.svg"), 128)) < 1.0);
}

void TstResources::font_is_the_monospaced_family_of_its_name()
{
    const int id = QFontDatabase::addApplicationFont(u":/ostrelgui/fonts/Inconsolata-Regular.ttf"_s);
    QVERIFY(id >= 0);
    const auto remove = qScopeGuard([id] { QFontDatabase::removeApplicationFont(id); });
    QCOMPARE(QFontDatabase::applicationFontFamilies(id), QStringList{u"Inconsolata"_s});
    QVERIFY(QFontDatabase::styles(u"Inconsolata"_s).contains(u"Regular"_s));
    const QFont font(u"Inconsolata"_s, 12);
    QCOMPARE(QFontInfo(font).family(), u"Inconsolata"_s);
    QVERIFY(QFontInfo(font).fixedPitch());
    const QFontMetrics metrics(font);
    QCOMPARE(metrics.horizontalAdvance(u"iiii"_s), metrics.horizontalAdvance(u"WWWW"_s));
}

OSTREL_TEST(TstResources)
#include "tst_resources.moc"
