// SPDX-FileCopyrightText: 2026 The Ostrel developers
// SPDX-License-Identifier: BSD-3-Clause

// Runs during the build. Draws icons and writes the pictures as the source file behind drawn_icons.h:
//
//   draw_icons OUTPUT SIDE,SIDE...:FILE...

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QTextStream>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

constexpr auto head = R"(// Made by draw_icons.

#include "resources/drawn_icons.h"

#include <array>

namespace {

)";

/** As BundledIconEngine reads a file. */
QImage draw(const QString& file, int side)
{
    QImageReader reader(file);
    reader.setScaledSize(reader.size().scaled(side, side, Qt::KeepAspectRatio));
    return reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

void write_pixels(QTextStream& out, const QImage& picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        for (int x = 0; x < picture.width(); ++x)
            out << line[x] << "u,";
        out << '\n';
    }
}

} // namespace

int main(int argc, char** argv)
{
    // Qt looks for its plugins when there is an application.
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    QFile file(arguments.value(1));
    if (!file.open(QIODevice::WriteOnly)) {
        std::fprintf(stderr, "draw_icons: cannot write %s\n", qPrintable(file.fileName()));
        return 1;
    }
    QTextStream out(&file);
    out << head;

    const bool can_draw = QImageReader::supportedImageFormats().contains("svg");
    // The program works all the same: it draws what it finds no picture of.
    if (!can_draw)
        std::fputs("draw_icons: Qt's SVG plugins are missing; no icon is drawn ahead\n", stderr);
    QString table;
    qsizetype count = 0;
    for (const QString& argument : can_draw ? arguments.mid(2) : QStringList()) {
        const qsizetype colon = argument.indexOf(u':');
        const QString path = argument.mid(colon + 1);
        for (const QString& side : argument.first(colon).split(u',')) {
            const QImage picture = draw(path, side.toInt());
            if (picture.isNull() || picture.width() != picture.height()) {
                std::fprintf(stderr, "draw_icons: cannot draw %s\n", qPrintable(path));
                return 1;
            }
            out << "constexpr QRgb picture_" << count << "[] = {\n";
            write_pixels(out, picture);
            out << "};\n";
            table +=
                u"DrawnIcon{\"%1\", %2, picture_%3},\n"_s.arg(QFileInfo(path).fileName(), side).arg(count);
            ++count;
        }
    }
    out << "constexpr std::array<DrawnIcon, " << count << "> table{\n"
        << table << "};\n\n} // namespace\n\n"
        << "std::span<const DrawnIcon> drawn_icons()\n{\n    return table;\n}\n";
    out.flush();
    return file.error() == QFileDevice::NoError ? 0 : 1;
}
