// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// contact_sheet OUT.png [DIRECTORY]
//
// Draws every icon of DIRECTORY, or of the library's own bundle, at the sizes in which the shell shows icons:
// normal and disabled, on a light and on a dark window. For the eye of whoever draws or changes an icon.

#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSizes[] = {16, 22, 36, 64};
constexpr int kGap = 8;
constexpr int kRow = 64 + 2 * kGap;
constexpr int kNames = 170;
constexpr int kColumns = 2;

int strip_width()
{
    int width = kGap;
    for (const int size : kSizes)
        width += 2 * (size + kGap);
    return width;
}

QPalette window_palette(QRgb window)
{
    return QPalette(QColor(window).darker(110), QColor(window));
}

/** Draws one icon at all sizes, first normal then disabled, from @p at to the right. */
void draw_strip(QPainter& painter, QPoint at, const QIcon& icon, QRgb window)
{
    painter.fillRect(QRect(at, QSize(strip_width(), kRow)), QColor(window));
    int x = at.x() + kGap;
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled}) {
        for (const int size : kSizes) {
            painter.drawPixmap(x, at.y() + (kRow - size) / 2, icon.pixmap(QSize(size, size), mode));
            x += size + kGap;
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2 || arguments.size() > 3) {
        std::fprintf(stderr, "usage: contact_sheet OUT.png [DIRECTORY]\n");
        return 2;
    }
    const QDir directory(arguments.value(2, u":/ostrelgui/images/light"_s));
    const QStringList names = directory.entryList({u"*.svg"_s}, QDir::Files, QDir::Name | QDir::IgnoreCase);
    if (names.isEmpty()) {
        std::fprintf(stderr, "contact_sheet: no icons in %s\n", qUtf8Printable(directory.path()));
        return 1;
    }
    QFontDatabase::addApplicationFont(u":/ostrelgui/fonts/Inconsolata-Regular.ttf"_s);

    constexpr QRgb windows[] = {qRgb(0xf5, 0xf5, 0xf5), qRgb(0x2b, 0x2b, 0x2b)};
    const int rows = (int(names.size()) + kColumns - 1) / kColumns;
    const int column = kNames + 2 * strip_width();
    QImage sheet(kColumns * column, rows * kRow, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.setFont(QFont(u"Inconsolata"_s, 11));
    // The look of a disabled icon is computed from the palette of the application, hence one pass for each.
    for (int pass = 0; pass < 2; ++pass) {
        QApplication::setPalette(window_palette(windows[pass]));
        for (int i = 0; i < names.size(); ++i) {
            const QPoint corner(i / rows * column, i % rows * kRow);
            painter.drawText(QRect(corner, QSize(kNames, kRow)).adjusted(kGap, 0, 0, 0),
                             Qt::AlignVCenter | Qt::AlignLeft, names.at(i).chopped(4));
            draw_strip(painter, corner + QPoint(kNames + pass * strip_width(), 0),
                       QIcon(directory.filePath(names.at(i))), windows[pass]);
        }
    }
    painter.end();
    if (!sheet.save(arguments.at(1))) {
        std::fprintf(stderr, "contact_sheet: cannot write %s\n", qUtf8Printable(arguments.at(1)));
        return 1;
    }
    return 0;
}
